#include "banks/screens/frmRemap.h"

#include "../RemapFixtures.h"
#include "editors/TimbreCaption.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace quillon {
namespace {

// The lists of a remap in the data folder: new A is old A reversed, and
// old B012 was renamed; and its table.
void writeRemapFiles(const AppModel& model, bool withNewB = true)
{
    auto newA = numberedNames("A");
    std::reverse(newA.begin(), newA.end());
    auto newB = numberedNames("B");
    newB[12] = "Renamed         ";
    writeBankListFile(model, kPatchBankA, kOldList, numberedNames("A"));
    writeBankListFile(model, kPatchBankB, kOldList, numberedNames("B"));
    writeBankListFile(model, kPatchBankA, kNewList, newA);
    if (withNewB)
        writeBankListFile(model, kPatchBankB, kNewList, newB);
    RemapTable table{};
    for (int p = 0; p < 256; ++p)
        table[static_cast<std::size_t>(p)] = static_cast<std::int16_t>(p < 128 ? 127 - p : p);
    table[140] = -1;
    writeRemapFile(model, table);
}

QStringList linesOf(const QPlainTextEdit* text) { return text->toPlainText().split('\n'); }

// The main window over a data folder of its own.
struct RemapWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    std::unique_ptr<frmMain> window;

    explicit RemapWindow(bool withRemap = true, bool withNewB = true)
    {
        if (withRemap)
            writeRemapFiles(model, withNewB);
        window = std::make_unique<frmMain>(model, host);
        EXPECT_TRUE(doFormLoadMain(model));
        window->show();
    }
};

// Answers the program's own MessageBox forms one after another with the
// button of each turn (by its name), keeping their texts.
void answerStepFormsInTurn(QStringList buttons, QStringList* seenTexts)
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    auto remaining = std::make_shared<QStringList>(std::move(buttons));
    auto answered = std::make_shared<QPointer<QWidget>>();
    QObject::connect(poll, &QTimer::timeout, [=] {
        QWidget* form = QApplication::activeModalWidget();
        if (form == nullptr || form == answered->data() || form->objectName() != "MessageBox")
            return;
        *answered = form;
        seenTexts->append(form->findChild<QLabel*>("lblText")->text());
        const QString button = remaining->takeFirst();
        if (remaining->isEmpty()) {
            poll->stop();
            poll->deleteLater();
        }
        QTest::mouseClick(form->findChild<QPushButton*>(button), Qt::LeftButton);
    });
    poll->start();
}

TEST(frmRemap, TheSortButtonsRebuildTheListOfItsOrder)
{
    TestModel t;
    writeRemapFiles(t.model);
    RemapShowData data;
    ASSERT_TRUE(openShowRemap(t.model, data));
    frmRemap form(data);
    form.show();
    auto* text = form.findChild<QPlainTextEdit*>("txtShowRemap");
    ASSERT_NE(text, nullptr);
    ASSERT_EQ(linesOf(text).size(), 256);
    EXPECT_EQ(linesOf(text)[140], "B012\tB012            \tA000\t[not present]");

    QTest::mouseClick(form.findChild<QPushButton*>("cmdSortByNewNum"), Qt::LeftButton);
    EXPECT_EQ(linesOf(text)[0], "A127\tA127            \tA000\tA127            ");
    EXPECT_EQ(linesOf(text)[140], "A000\t[not present]\tB012\tRenamed         ");

    QTest::mouseClick(form.findChild<QPushButton*>("cmdSortByNewName"), Qt::LeftButton);
    EXPECT_EQ(linesOf(text)[255], "A000\t[not present]\tB012\tRenamed         ");

    QTest::mouseClick(form.findChild<QPushButton*>("cmdSortByOldName"), Qt::LeftButton);
    EXPECT_EQ(linesOf(text)[0], "A000\tA000            \tA127\tA000            ");
    EXPECT_EQ(linesOf(text)[140], "B012\tB012            \tA000\t[not present]");

    QTest::mouseClick(form.findChild<QPushButton*>("cmdSortByOldNum"), Qt::LeftButton);
    EXPECT_EQ(linesOf(text)[1], "A001\tA001            \tA126\tA001            ");
}

TEST(frmRemap, CopyTakesTheSelectionOrAllOfTheList)
{
    TestModel t;
    writeRemapFiles(t.model);
    RemapShowData data;
    ASSERT_TRUE(openShowRemap(t.model, data));
    frmRemap form(data);
    form.show();
    auto* text = form.findChild<QPlainTextEdit*>("txtShowRemap");
    QApplication::clipboard()->clear();
    QTest::mouseClick(form.findChild<QPushButton*>("cmdCopy"), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), text->toPlainText());

    // A drag over the first line's number selects it.
    const QRect firstLine = text->cursorRect(QTextCursor(text->document()));
    QTest::mousePress(text->viewport(), Qt::LeftButton, {}, QPoint(firstLine.left() + 1, firstLine.center().y()));
    QTest::mouseMove(text->viewport(), QPoint(firstLine.left() + text->fontMetrics().horizontalAdvance("A00"),
                                              firstLine.center().y()));
    QTest::mouseRelease(text->viewport(), Qt::LeftButton, {},
                        QPoint(firstLine.left() + text->fontMetrics().horizontalAdvance("A00"), firstLine.center().y()));
    ASSERT_TRUE(text->textCursor().hasSelection());
    const QString selected = text->textCursor().selectedText();
    QTest::mouseClick(form.findChild<QPushButton*>("cmdCopy"), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), selected);
    EXPECT_TRUE(QString("A000").startsWith(selected));
}

TEST(frmRemap, ShowRemapFromTheBankMenuOpensTheFormWithTheList)
{
    RemapWindow w;
    QString seen;
    QString title;
    whenNextModalOpens([&seen, &title](QWidget* form) {
        title = form->windowTitle();
        QTest::mouseClick(form->findChild<QPushButton*>("cmdSortByNewNum"), Qt::LeftButton);
        seen = form->findChild<QPlainTextEdit*>("txtShowRemap")->toPlainText().split('\n')[0];
        form->close();
    });
    ASSERT_TRUE(w.window->action("mnuShowRemap")->isEnabled());
    w.window->action("mnuShowRemap")->trigger();
    EXPECT_EQ(title, "Show Remap");
    EXPECT_EQ(seen, "A127\tA127            \tA000\tA127            ");
}

TEST(frmRemap, ShowRemapWithAListMissingSaysSoAndOpensNoForm)
{
    RemapWindow w(true, false);
    QString text;
    QString title;
    answerNextMessageBox("OK", &text, &title);
    w.window->action("mnuShowRemap")->trigger();
    EXPECT_EQ(title, "Show Remap");
    EXPECT_EQ(text, "Missing remap text files");
    EXPECT_EQ(w.window->findChild<frmRemap*>(), nullptr);
}

TEST(frmRemap, RemapMultisetFromTheMultiMenuRemapsTheTimbresAndSaysCompleted)
{
    RemapWindow w;
    w.model.flags.loaded[kMultiset] = true;
    setEditTimbre(w.model, 1, 3);    // A003 went to A124
    setEditTimbre(w.model, 2, 140);  // B012 is gone: A000
    setEditTimbre(w.model, 3, 200);  // B072 stayed
    QString text;
    QString title;
    answerNextMessageBox("OK", &text, &title);
    ASSERT_TRUE(w.window->action("mnuRemapMultiset")->isEnabled());
    w.window->action("mnuRemapMultiset")->trigger();
    EXPECT_EQ(title, "Remap Multiset");
    EXPECT_EQ(text, "Completed");
    EXPECT_EQ(editTimbre(w.model, 1), 124);
    EXPECT_EQ(editTimbre(w.model, 2), 0);
    EXPECT_EQ(editTimbre(w.model, 3), 200);
    EXPECT_FALSE(w.model.flags.clean[kMultiset]);
}

TEST(frmRemap, CreateRemapFromTheBankMenuAsksEachStepOnTheMessageForm)
{
    RemapWindow w;
    QStringList texts;
    answerStepFormsInTurn({"cmdYesOrOK", "cmdYesOrOK", "cmdYesOrOK", "cmdYesOrOK", "cmdNoOrOK"}, &texts);
    ASSERT_TRUE(w.window->action("mnuCreateRemap")->isEnabled());
    w.window->action("mnuCreateRemap")->trigger();
    ASSERT_EQ(texts.size(), 5);
    EXPECT_EQ(texts[0], "Step 1: Read Old Bank A\nUse existing bank map?");
    EXPECT_EQ(texts[3], "Step 4: Read New Bank B\nUse existing bank map?");
    EXPECT_EQ(texts[4], "New Bank Remap created successfully. It can be applied to \nmultisets and multi banks");
    EXPECT_EQ(w.model.remap.remapTable[3], 124);
    EXPECT_EQ(w.model.remap.remapTable[140], -1);
}

}  // namespace
}  // namespace quillon
