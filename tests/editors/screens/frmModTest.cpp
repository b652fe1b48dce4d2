#include "editors/screens/frmMod.h"

#include "editors/ModSources.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {
namespace {

struct ModWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    CollectingPrinter printer;
    AppModel model{host, store, folder.path(), &printer};
    frmMain window{model, host};

    ModWindow()
    {
        EXPECT_TRUE(doFormLoadMain(model));
        model.flags.loaded[kPatch] = true;
        model.settings.modulationShow = false;
        window.show();
    }
    ParamValues& current() { return model.buffers.of(kPatch).current; }
};

template <typename T = QWidget>
T* control(QWidget* form, const QString& name)
{
    T* found = form->findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
}

TEST(frmMod, ListsTheSourcesOfThePatchAndTypingStoresIntoCurrent)
{
    ModWindow t;
    frmMod form(t.model, &t.window);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    const ModList& list = form.list();
    ASSERT_GT(list.rows.size(), 15u);
    EXPECT_EQ(control<QLabel>(&form, "lblModShowHead")->text(), "All modulation sources");
    EXPECT_EQ(control<QLabel>(&form, "lblParamName_0")->text(), "Retrigger Controller");
    EXPECT_EQ(control<QLabel>(&form, "lblSect_0")->text(), "Patch Common");
    EXPECT_EQ(control<QLabel>(&form, "lblSect_0")->toolTip(), "Click to go to this section");
    EXPECT_TRUE(control<QScrollBar>(&form, "vsbArrayNo")->isEnabled());
    EXPECT_EQ(control<QScrollBar>(&form, "vsbArrayNo")->maximum(), static_cast<int>(list.rows.size()) - 14);
    EXPECT_TRUE(form.windowTitle().startsWith("Modulation sources ["));

    const int param = list.rows[1].Param;
    auto* box = control<QLineEdit>(&form, "txtParamVal_1");
    QTest::mouseClick(box, Qt::LeftButton);
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, "12");
    EXPECT_EQ(t.current()[static_cast<std::size_t>(param)], 12);
    EXPECT_FALSE(control<QLabel>(&form, "lblParamDecode_1")->text().isEmpty());

    // A value past the maximum is limited, and the box shows the limit.
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, "999");
    EXPECT_EQ(t.current()[static_cast<std::size_t>(param)], list.rows[1].Max);
    EXPECT_EQ(box->text(), QString::number(list.rows[1].Max));
}

TEST(frmMod, ScrollingShowsLaterRowsAndAClickOnASectionGoesThere)
{
    ModWindow t;
    frmMod form(t.model, &t.window);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    auto* scroll = control<QScrollBar>(&form, "vsbArrayNo");
    scroll->setValue(3);
    EXPECT_EQ(form.list().ModOffset, 3);
    const ModRow row = form.list().rows[3];
    EXPECT_EQ(control<QLabel>(&form, "lblParamName_0")->text().toStdString(), row.ParamName);
    QTest::mouseClick(control(&form, "lblSubsect_0"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(t.model.layout.patchFrames[1].Subsection, subsectionOfPatchParam(row.Param));
}

TEST(frmMod, ModKeyOpensTheFormAndDoneClosesIt)
{
    ModWindow t;
    QString title;
    whenNextModalOpens([&title](QWidget* modal) {
        title = modal->windowTitle();
        QTest::mouseClick(modal->findChild<QPushButton*>("cmdDone"), Qt::LeftButton);
    });
    QAction* key = t.window.action("tlbMain_mod");
    ASSERT_TRUE(key->isEnabled());
    key->trigger();
    EXPECT_TRUE(title.startsWith("Modulation sources ["));
}

TEST(frmMod, CtrlTTidiesThePatchAfterItsQuestion)
{
    ModWindow t;
    t.current()[110] = 0;  // LFO1 Freq Mod1 Sce
    t.current()[111] = 20;
    QString text;
    QString seenTitle;
    t.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&t.window));
    answerNextMessageBox("Yes", &text, &seenTitle);
    QTest::keyClick(&t.window, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(seenTitle, "Tidy up patch");
    EXPECT_EQ(text, "Clear unnecessary intensity values");
    EXPECT_EQ(t.current()[111], 0);
}

TEST(frmMod, PrintSendsTheListToTheProgramsPrinter)
{
    ModWindow t;
    frmMod form(t.model, &t.window);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QTest::mouseClick(control<QPushButton>(&form, "cmdPrint"), Qt::LeftButton);
    ASSERT_EQ(t.printer.jobs.size(), 1u);
    EXPECT_EQ(t.printer.jobs[0].title, form.windowTitle().toStdString());
    EXPECT_FALSE(t.printer.jobs[0].lines.empty());
}

}  // namespace
}  // namespace quillon
