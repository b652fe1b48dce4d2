#include "banks/screens/BankScreen.h"

#include "editors/ScreenLayout.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {
namespace {

// A bank file whose patches are named "Pad 000" ... "Pad 127"; patch 40 is
// "Soft Bell".
std::string writeBankFile(const TempFolder& folder)
{
    ByteImage bank(byteImageSize(kPatchBankA), 0);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        ParamValues values = paramTables().patchDefaults;
        char name[17];
        std::snprintf(name, sizeof name, "%-16s", p == 40 ? "Soft Bell" : ("Pad " + std::to_string(1000 + p).substr(1)).c_str());
        for (int i = 0; i < 16; ++i)
            values[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(name[i]);
        ByteImage image(kPatchBytes, 0);
        patchParamsToImage(values, image);
        std::copy(image.begin(), image.end(), bank.begin() + p * kPatchBytes);
    }
    const auto path = folder / "bank.syx";
    EXPECT_TRUE(writeFileAtomically(path, patchBankDump(kPatchBankA, 1, DATAtoMIDI(kPatchBankA, bank))));
    return path.string();
}

// The main window with bank A opened from a file through File > Open.
struct BankWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};

    BankWindow()
    {
        EXPECT_TRUE(doFormLoadMain(model));
        window.show();
        answerNextFileDialog(QString::fromStdString(writeBankFile(folder)));
        window.action("mnuOpen")->trigger();
    }

    QLabel* label(int i) { return window.findChild<QLabel*>(QString("lblBkPatch_%1").arg(i)); }
    std::vector<int> selected() const
    {
        std::vector<int> patches;
        for (int p = 0; p < kPatchesPerBank; ++p)
            if (model.banks.selection(kPatchBankA).selected(p))
                patches.push_back(p);
        return patches;
    }
    void click(int i, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(label(i), button, modifiers, label(i)->rect().center());
    }
};

// Clicks an item of a popup menu that is showing.
void clickItem(QMenu* menu, const char* name)
{
    QAction* item = menu->findChild<QAction*>(name);
    ASSERT_NE(item, nullptr) << name;
    ASSERT_TRUE(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
}

TEST(BankScreen, ABankOpenedFromAFileShows128Names)
{
    BankWindow w;
    ASSERT_EQ(w.model.mode, kPatchBankA);
    EXPECT_TRUE(w.window.findChild<QWidget*>("fraBank")->isVisible());
    EXPECT_FALSE(w.window.findChild<QWidget*>("lblScreensHint")->isVisible());
    for (int i = 0; i < kPatchesPerBank; ++i) {
        ASSERT_NE(w.label(i), nullptr) << i;
        EXPECT_EQ(w.label(i)->text().trimmed().toStdString(),
                  i == 40 ? "Soft Bell" : "Pad " + std::to_string(1000 + i).substr(1));
    }
    // Eight a row, sixteen rows, along the rows.
    EXPECT_EQ(w.label(1)->y(), w.label(0)->y());
    EXPECT_GT(w.label(1)->x(), w.label(0)->x());
    EXPECT_EQ(w.label(8)->x(), w.label(0)->x());
    EXPECT_GT(w.label(8)->y(), w.label(0)->y());
    EXPECT_GT(w.label(127)->y(), w.label(119)->y());
}

TEST(BankScreen, TheGridFillsTheCentreAsTheWindowGrows)
{
    BankWindow w;
    const int before = w.label(0)->width();
    w.window.resize(w.window.width() + 400, w.window.height() + 200);
    QApplication::processEvents();
    EXPECT_GT(w.label(0)->width(), before);
    QWidget* grid = w.window.findChild<QWidget*>("fraBank");
    EXPECT_GT(w.label(7)->geometry().right(), grid->width() * 9 / 10);
    EXPECT_GT(w.label(127)->geometry().bottom(), grid->height() * 9 / 10);
}

TEST(BankScreen, ClickShiftClickAndAltClickSelect)
{
    BankWindow w;
    w.click(3);
    EXPECT_EQ(w.selected(), (std::vector<int>{3}));
    EXPECT_NE(w.label(3)->styleSheet(), w.label(4)->styleSheet()) << "selected in its own colours";
    w.click(6, Qt::ShiftModifier);
    EXPECT_EQ(w.selected(), (std::vector<int>{3, 4, 5, 6}));
    w.click(5, Qt::AltModifier);
    EXPECT_EQ(w.selected(), (std::vector<int>{5}));
    w.click(5);
    EXPECT_TRUE(w.selected().empty());
    EXPECT_EQ(w.label(5)->styleSheet(), w.label(4)->styleSheet());
}

TEST(BankScreen, RightClickWithNothingSelectedOpensTheOnePatchMenuForThePatchUnderThePointer)
{
    BankWindow w;
    w.click(40, {}, Qt::RightButton);
    QMenu* popup = w.window.findChild<QMenu*>("mnuPopup1");
    ASSERT_TRUE(popup->isVisible());
    EXPECT_TRUE(w.selected().empty()) << "the patch stays unflagged";
    EXPECT_FALSE(popup->findChild<QAction*>("mnuInsertFirst1")->isEnabled());
    QString text;
    answerNextMessageBox("OK", &text);
    clickItem(popup, "mnuProperties");
    EXPECT_TRUE(text.startsWith("Patch name: Soft Bell")) << text.toStdString();
    EXPECT_TRUE(text.contains("Position: 40"));
}

TEST(BankScreen, RightClickOnASelectionOpensTheSelectionMenuWhoseDeselectAllClearsIt)
{
    BankWindow w;
    w.click(1);
    w.click(2);
    w.click(2, {}, Qt::RightButton);
    QMenu* popup = w.window.findChild<QMenu*>("mnuPopup2");
    ASSERT_TRUE(popup->isVisible());
    std::vector<std::string> captions;
    for (QAction* a : popup->actions())
        if (!a->isSeparator())
            captions.push_back(a->text().toStdString());
    EXPECT_EQ(captions.front(), "Undo");
    EXPECT_EQ(captions.at(8), "Sort (Name)");
    EXPECT_EQ(captions.back(), "Extract to Files");
    clickItem(popup, "mnuDeselectAll");
    EXPECT_TRUE(w.selected().empty());
}

TEST(BankScreen, APopupReorderItemRunsAndTheBankMenusUndoTakesItBack)
{
    BankWindow w;
    w.click(2);
    w.click(40);
    w.click(40, {}, Qt::RightButton);
    clickItem(w.window.findChild<QMenu*>("mnuPopup2"), "mnuInsertFirst2");
    EXPECT_EQ(w.label(0)->text().trimmed().toStdString(), "Pad 002");
    EXPECT_EQ(w.label(1)->text().trimmed().toStdString(), "Soft Bell");
    QAction* undo = w.window.action("mnuUndoBank");
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_EQ(undo->text().toStdString(), "Undo A Insert First");
    undo->trigger();
    EXPECT_EQ(w.label(0)->text().trimmed().toStdString(), "Pad 000");
    EXPECT_EQ(w.label(40)->text().trimmed().toStdString(), "Soft Bell");
    EXPECT_FALSE(undo->isEnabled());
}

TEST(BankScreen, OnePatchSelectedShowsTheMergeTools)
{
    BankWindow w;
    QWidget* group = w.window.findChild<QWidget*>("txtBankPatchSelGroup");
    EXPECT_FALSE(group->isVisible());
    // Wide enough for the whole toolbar.
    w.window.resize(1600, 800);
    w.click(9);
    EXPECT_TRUE(w.model.bankView.selectionToolsShown);
    QApplication::processEvents();
    EXPECT_TRUE(group->isVisible());
    EXPECT_TRUE(w.window.findChild<QWidget*>("updBankPatchSelSS")->isVisible());
    w.click(10);
    QApplication::processEvents();
    EXPECT_FALSE(w.model.bankView.selectionToolsShown);
    EXPECT_FALSE(group->isVisible());
}

TEST(BankScreen, TheMergeToolsShowAndSetWhatTheNextMergeByKeyTakes)
{
    BankWindow w;
    w.window.resize(1600, 800);
    w.click(9);
    QApplication::processEvents();
    auto* box = w.window.findChild<QLineEdit*>("txtBankPatchSelGroup");
    auto* spin = w.window.findChild<QSpinBox*>("updBankPatchSelGroup");
    ASSERT_TRUE(box->isVisible());
    EXPECT_EQ(box->text().toStdString(), std::string(patchGroup(0).caption));
    QTest::keyClick(spin, Qt::Key_Up);
    QTest::keyClick(spin, Qt::Key_Up);
    EXPECT_EQ(w.model.merge.BankGroupNext, 2);
    EXPECT_EQ(box->text().toStdString(), std::string(patchGroup(2).caption));
    QTest::mouseDClick(box, Qt::LeftButton);
    EXPECT_EQ(w.model.merge.BankGroupNext, 0) << "a double click starts again from the first group";
    EXPECT_EQ(spin->value(), 0);
    QTest::keyClick(w.window.findChild<QSpinBox*>("updBankPatchSelSS"), Qt::Key_Up);
    EXPECT_EQ(w.model.merge.BankSubsectionNext, 2);
    EXPECT_EQ(w.window.findChild<QLineEdit*>("txtBankPatchSelSS")->text(), "2");
}

TEST(BankScreen, PutInPatchEditorFromThePopupTakesThePatch)
{
    BankWindow w;
    w.click(40, {}, Qt::RightButton);
    clickItem(w.window.findChild<QMenu*>("mnuPopup1"), "mnuPutInEditor");
    EXPECT_EQ(w.model.itemName[kPatch], "Soft Bell");
    EXPECT_EQ(w.model.banks.lastPutPatch, 40);
}

TEST(BankScreen, ACopyItemOfThePopupMergesThatGroupOfThePatchUnderThePointer)
{
    BankWindow w;
    w.click(40, {}, Qt::RightButton);
    clickItem(w.window.findChild<QMenu*>("mnuPopup1"), "mnuCopyArray_2");  // "Copy EG"
    const ByteImage bankPatch = w.model.banks.readBankPatch(kPatchBankA, 40);
    ByteImage editor(kPatchBytes, 0);
    patchParamsToImage(w.model.buffers.of(kPatch).current, editor);
    for (int byte = 26; byte <= 101; ++byte)
        EXPECT_EQ(editor[static_cast<std::size_t>(byte - 1)], bankPatch[static_cast<std::size_t>(byte - 1)]) << byte;
    EXPECT_EQ(w.model.merge.BankGroupNext, 2) << "the EG group was merged, the next is LFO";
}

TEST(BankScreen, FindNarrowsTheSelection)
{
    BankWindow w;
    w.click(10);
    w.click(11);
    w.click(40);
    whenNextModalOpens([](QWidget* find) {
        auto* text = find->findChild<QComboBox*>("cmbFindText");
        text->lineEdit()->clear();
        QTest::keyClicks(text->lineEdit(), "PAD 01");
        QTest::mouseClick(find->findChild<QPushButton*>("cmdFindTextMinus"), Qt::LeftButton);
        QTest::mouseClick(find->findChild<QPushButton*>("cmdDone"), Qt::LeftButton);
    });
    w.window.action("mnuFind")->trigger();
    EXPECT_EQ(w.selected(), (std::vector<int>{10, 11}));
    EXPECT_EQ(w.model.settings.find.recentTexts.front(), "pad 01");
}

TEST(BankScreen, PutPatchInBankThroughTheDialog)
{
    BankWindow w;
    whenNextModalOpens([](QWidget* dialog) {
        auto* number = dialog->findChild<QLineEdit*>("txtNum");
        number->selectAll();
        QTest::keyClicks(number, "7");
        QTest::mouseClick(dialog->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    });
    w.window.action("mnuPutPatchInBank")->trigger();
    EXPECT_EQ(w.label(7)->text().trimmed().toStdString(), w.model.itemName[kPatch]);
    EXPECT_TRUE(w.window.findChild<QLabel*>("lblStatus")->text().contains("has replaced A007 Pad 007"));
}

}  // namespace
}  // namespace quillon
