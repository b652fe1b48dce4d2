#include "banks/screens/frmImport.h"

#include "banks/ImportFiles.h"
#include "banks/ImportFixtures.h"
#include "files/AtomicFile.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

namespace fs = std::filesystem;

// A bank file of patches named "<letter>nk 000" ...
fs::path writeBank(const fs::path& path, int bank)
{
    ByteImage image(byteImageSize(bank), 0);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        const std::string name = (bank == kPatchBankA ? "Ank " : "Bnk ") + std::to_string(1000 + p).substr(1);
        const ByteImage patch = namedPatch(name, p);
        std::copy(patch.begin(), patch.end(), image.begin() + p * kPatchBytes);
    }
    EXPECT_TRUE(writeFileAtomically(path, patchBankDump(bank, 1, DATAtoMIDI(bank, image))));
    return path;
}

// The main window with both banks opened through File > Open.
struct ImportWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};

    ImportWindow()
    {
        EXPECT_TRUE(doFormLoadMain(model));
        window.show();
        for (int bank : {kPatchBankA, kPatchBankB}) {
            answerNextFileDialog(QString::fromStdString(writeBank(folder / ("bank" + std::to_string(bank) + ".syx"), bank).string()));
            window.action("mnuOpen")->trigger();
        }
    }

    QLabel* label(int i) { return window.findChild<QLabel*>(QString("lblBkPatch_%1").arg(i)); }
    void click(int i, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(label(i), button, modifiers, label(i)->rect().center());
    }
};

template <typename T>
T* control(QWidget* form, const char* name)
{
    T* found = form->findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

// The form as it stands on the screen, its lists laid out.
void settle(QWidget* form)
{
    EXPECT_TRUE(QTest::qWaitForWindowExposed(form));
    QApplication::processEvents();
}

void clickRow(QListWidget* list, int row, Qt::KeyboardModifiers modifiers = {})
{
    QApplication::processEvents();
    const QRect rect = list->visualItemRect(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, rect.center());
}

std::vector<std::string> resultLines(QListWidget* list)
{
    std::vector<std::string> lines;
    for (int row = 0; row < list->count(); ++row)
        lines.push_back(list->item(row)->text().toStdString());
    return lines;
}

TEST(frmImport, AFolderOfPatchFilesGoesIntoBankBThroughTheFormsWidgets)
{
    ImportWindow w;
    const fs::path in = w.folder / "in";
    fs::create_directory(in);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(writeFileAtomically(in / ("p" + std::to_string(i) + ".syx"),
                                        patchFileBytes(namedPatch("Imported " + std::to_string(i), 50 + i))));
    EXPECT_TRUE(writeFileAtomically(in / "notes.syx", std::vector<std::uint8_t>(100, 0)));
    w.model.workFolder = w.folder.path().string();

    std::vector<std::string> lines;
    std::string counted;
    bool bChosen = false;
    whenNextModalOpens([&](QWidget* form) {
        EXPECT_EQ(form->objectName(), "frmImport");
        settle(form);
        auto* dirs = control<QListWidget>(form, "Dir1");
        const auto found = dirs->findItems("in", Qt::MatchExactly);
        EXPECT_EQ(found.size(), 1);
        if (!found.empty()) {
            // A double click: the first press and release, then the second.
            const QPoint at = dirs->visualItemRect(found[0]).center();
            QTest::mouseClick(dirs->viewport(), Qt::LeftButton, {}, at);
            QTest::mouseDClick(dirs->viewport(), Qt::LeftButton, {}, at);
        }
        auto* files = control<QListWidget>(form, "File1");
        EXPECT_EQ(files->count(), 4);
        QTest::mouseClick(control<QRadioButton>(form, "OptB"), Qt::LeftButton);
        bChosen = control<QRadioButton>(form, "OptB")->isChecked();
        auto* start = control<QComboBox>(form, "cmbStartPatch");
        EXPECT_EQ(start->itemText(0).left(8).toStdString(), "B000 Bnk");
        start->setFocus();
        for (int i = 0; i < 10; ++i)
            QTest::keyClick(start, Qt::Key_Down);
        clickRow(files, 0);
        clickRow(files, 3, Qt::ShiftModifier);
        counted = control<QLabel>(form, "lblNumPatchesSelected")->text().toStdString();
        QTest::mouseClick(control<QPushButton>(form, "cmdImport"), Qt::LeftButton);
        lines = resultLines(control<QListWidget>(form, "lstResults"));
        QTest::mouseClick(control<QPushButton>(form, "cmdDone"), Qt::LeftButton);
    });
    w.window.action("mnuImportToBank")->trigger();

    EXPECT_TRUE(bChosen);
    EXPECT_EQ(counted, "4 files selected");
    EXPECT_EQ(lines, (std::vector<std::string>{"notes.syx is not a Z1 patch file", "p0.syx loaded",
                                               "Imported 0 has replaced B010 Bnk 010", "p1.syx loaded",
                                               "Imported 1 has replaced B011 Bnk 011", "p2.syx loaded",
                                               "Imported 2 has replaced B012 Bnk 012"}));
    EXPECT_EQ(w.model.mode, kPatchBankB);
    EXPECT_TRUE(w.model.flags.changed[kPatchBankB]);
    EXPECT_EQ(w.label(11)->text().trimmed().toStdString(), "Imported 1");
    EXPECT_EQ(w.label(13)->text().trimmed().toStdString(), "Bnk 013");
    EXPECT_EQ(w.model.workFolder, in.string());
    EXPECT_EQ(trimmedRight(w.model.banks.bankPatchName(kPatchBankA, 11)), "Ank 011");
}

TEST(frmImport, StopWhileARunGoesKeepsThePatchesWrittenBeforeIt)
{
    ImportWindow w;
    const fs::path in = w.folder / "many";
    fs::create_directory(in);
    for (int i = 0; i < 6; ++i)
        EXPECT_TRUE(writeFileAtomically(in / ("p" + std::to_string(i) + ".syx"),
                                        patchFileBytes(namedPatch("Run " + std::to_string(i), i))));
    w.model.workFolder = in.string();

    std::vector<std::string> lines;
    bool stopShownOnlyWhileRunning = false;
    whenNextModalOpens([&](QWidget* form) {
        settle(form);
        auto* files = control<QListWidget>(form, "File1");
        auto* results = control<QListWidget>(form, "lstResults");
        auto* stop = control<QPushButton>(form, "cmdStop");
        clickRow(files, 0);
        clickRow(files, 5, Qt::ShiftModifier);
        const bool idleStopDisabled = !stop->isEnabled();
        // The user clicks Stop as soon as the second patch has been written.
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            if (results->count() >= 4 && stop->isEnabled()) {
                watch.stop();
                QTest::mouseClick(stop, Qt::LeftButton);
            }
        });
        watch.start(0);
        QTest::mouseClick(control<QPushButton>(form, "cmdImport"), Qt::LeftButton);
        stopShownOnlyWhileRunning = idleStopDisabled && !stop->isEnabled();
        lines = resultLines(results);
        QTest::mouseClick(control<QPushButton>(form, "cmdDone"), Qt::LeftButton);
    });
    w.window.action("mnuImportToBank")->trigger();

    EXPECT_TRUE(stopShownOnlyWhileRunning);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines.back(), "Import terminated by user");
    EXPECT_EQ(trimmedRight(w.model.banks.bankPatchName(kPatchBankB, 1)), "Run 1");
    EXPECT_EQ(trimmedRight(w.model.banks.bankPatchName(kPatchBankB, 2)), "Bnk 002");
}

TEST(frmImport, ImportWithNoFileSelectedAsksForFiles)
{
    ImportWindow w;
    QString text;
    QString title;
    whenNextModalOpens([&](QWidget* form) {
        answerNextMessageBox("OK", &text, &title);
        QTest::mouseClick(control<QPushButton>(form, "cmdImport"), Qt::LeftButton);
        QTest::mouseClick(control<QPushButton>(form, "cmdDone"), Qt::LeftButton);
    });
    w.window.action("mnuImportToBank")->trigger();
    EXPECT_EQ(title.toStdString(), "Import to Bank");
    EXPECT_EQ(text.toStdString(), "Please select files to import");
}

TEST(frmImport, ExtractToFilesWritesTheSelectionThroughThePopupAndTheSaveDialog)
{
    ImportWindow w;
    const fs::path out = w.folder / "out";
    fs::create_directory(out);
    QTest::mouseClick(w.window.findChild<QLabel*>("lblLoaded_2"), Qt::LeftButton);
    ASSERT_EQ(w.model.mode, kPatchBankA);
    w.click(3);
    w.click(9);
    w.click(9, {}, Qt::RightButton);
    QMenu* popup = w.window.findChild<QMenu*>("mnuPopup2");
    ASSERT_TRUE(popup->isVisible());
    QAction* extract = popup->findChild<QAction*>("mnuExtractToFiles");
    ASSERT_TRUE(extract->isEnabled());
    answerNextFileDialog(QString::fromStdString((out / "first.syx").string()));
    QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(extract).center());
    EXPECT_TRUE(fs::exists(out / "Ank 003.syx"));
    EXPECT_TRUE(fs::exists(out / "Ank 009.syx"));
    EXPECT_EQ(fs::file_size(out / "Ank 009.syx"), 666u);
    EXPECT_EQ(w.window.findChild<QLabel*>("lblStatus")->text().toStdString(), "2 files saved");
}

}  // namespace
}  // namespace quillon
