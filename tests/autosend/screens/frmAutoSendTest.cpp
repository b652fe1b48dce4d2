#include "autosend/screens/frmAutoSend.h"

#include "files/AtomicFile.h"
#include "midi/backends/SimulatedZ1.h"
#include "midi/screens/SimulatedMidiWindow.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "support/DialogAnswers.h"
#include "sysex/SysExPacking.h"

#include <QComboBox>
#include <QMenu>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {
namespace {

// The main window over the simulated Z1, with bank A as the instrument
// holds it and a selection in it.
struct AutoSendWindow : SimulatedMidiWindow {
    AutoSendWindow(const std::vector<int>& places)
    {
        const SysExMessage bank = z1().dumpFor(1);
        SysExImage packed(bank.begin() + 8, bank.end());
        LoadReport report;
        model.banks.image(kPatchBankA) = MIDItoDATA(kPatchBankA, packed, report);
        model.flags.loaded[kPatchBankA] = true;
        selectBankPatches(model, kPatchBankA, places);
    }
};

std::string trimmedName(const AppModel& model, int place)
{
    return trimmedRight(model.banks.bankPatchName(kPatchBankA, place));
}

template <typename T = QWidget>
T* control(QWidget& form, const char* name)
{
    T* found = form.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

void click(QWidget& form, const char* name)
{
    QWidget* button = control(form, name);
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
}

// The show's timers run on the toolkit's clock; their intervals are made
// short so that the test need not wait for seconds.
void hurry(frmAutoSend& form)
{
    form.autoTimer().timer().setInterval(20);
    form.miniTimer().timer().setInterval(20);
}

TEST(frmAutoSend, EveryControlWithItsCaptionAndTooltip)
{
    AutoSendWindow w({3, 9});
    frmAutoSend form(w.model, kPatchBankA, &w.window);
    form.show();
    const std::pair<const char*, const char*> buttons[] = {
        {"cmdStart", "Send start patch and other patches selected"},
        {"cmdPause", "Stop or start at current patch"},
        {"cmdMark", "Mark to include in new selection"},
        {"cmdReselect", "Make new selection with marked patches only"},
        {"cmdDone", "Stop auto send and return to bank screen"},
    };
    for (const auto& [name, tip] : buttons)
        EXPECT_EQ(control(form, name)->toolTip(), tip) << name;
    EXPECT_EQ(control<QPushButton>(form, "cmdStart")->text(), "Start");
    EXPECT_EQ(control<QPushButton>(form, "cmdPause")->text(), "Pause");
    EXPECT_EQ(control<QPushButton>(form, "cmdMark")->text(), "Mark");
    EXPECT_EQ(control<QPushButton>(form, "cmdReselect")->text(), "Reselect");
    EXPECT_EQ(control<QPushButton>(form, "cmdDone")->text(), "Done");
    EXPECT_EQ(control<QPushButton>(form, "cmdHelp")->text(), "Help");
    EXPECT_EQ(control<QLabel>(form, "lblInterval")->text(), "Interval (secs)");
    EXPECT_EQ(control<QGroupBox>(form, "fraArp")->title(), "Arpeggiator");
    EXPECT_EQ(control<QRadioButton>(form, "optArp_0")->text(), "Off");
    EXPECT_EQ(control<QRadioButton>(form, "optArp_1")->text(), "On");
    EXPECT_EQ(control<QRadioButton>(form, "optArp_2")->text(), "As patch");
    EXPECT_EQ(control<QGroupBox>(form, "fraProgress")->title(), "Progress");
    EXPECT_EQ(control<QLabel>(form, "lblCurrentCaption")->text(), "Current patch:");
    EXPECT_EQ(control(form, "lblCurrentCaption")->toolTip(), "Patch just sent. Name will be highlighted if marked");
    EXPECT_EQ(control<QLabel>(form, "lblStartCaption")->text(), "Start patch:");
    EXPECT_EQ(control(form, "lblStartCaption")->toolTip(), "Patch sent when start key is pressed");
    EXPECT_EQ(control<QLabel>(form, "lblEndCaption")->text(), "End patch:");
    EXPECT_EQ(control(form, "lblEndCaption")->toolTip(), "Last patch selected");
    EXPECT_EQ(control<QLabel>(form, "lblSelectedCaption")->text(), "Patches selected:");
    EXPECT_EQ(control<QLabel>(form, "lblMarkedCaption")->text(), "Patches marked:");
    EXPECT_EQ(control<QLabel>(form, "lblSentCaption")->text(), "Patches sent:");
    EXPECT_EQ(control<QLabel>(form, "lblSoundShow")->text(), "SOUND SHOW MODE [uses Korg Z1 INT clock]");
    EXPECT_EQ(control<QLabel>(form, "lblPaused")->text(), "Paused");
    EXPECT_EQ(control<QLabel>(form, "lblTips")->text(), "ALT=Start | CTRL=Mark | PAUSE=Pause");

    // As it opens: the selection, the stored settings, Pause and Reselect
    // off, Paused hidden, the sound show note with the arpeggiator On.
    EXPECT_EQ(control<QLabel>(form, "lblSelected")->text(), "2");
    EXPECT_EQ(control<QLabel>(form, "lblStartPatch")->text(),
              "A003 " + QString::fromStdString(trimmedName(w.model, 3)));
    EXPECT_EQ(control<QComboBox>(form, "cmbInterval")->currentText(), "5");
    EXPECT_EQ(control<QComboBox>(form, "cmbInterval")->count(), 28);
    EXPECT_EQ(control<QComboBox>(form, "cmbPatternSelect")->currentText(), "As patch");
    EXPECT_EQ(control<QComboBox>(form, "cmbChordSeq")->currentText(), "Major-minor relative");
    EXPECT_TRUE(control<QRadioButton>(form, "optArp_1")->isChecked());
    EXPECT_FALSE(control(form, "cmdPause")->isEnabled());
    EXPECT_FALSE(control(form, "cmdReselect")->isEnabled());
    EXPECT_FALSE(control(form, "lblPaused")->isVisible());
    EXPECT_TRUE(control(form, "lblSoundShow")->isVisible());
    QWidget* off = control(form, "optArp_0");
    QTest::mouseClick(off, Qt::LeftButton, {}, QPoint(8, off->height() / 2));
    EXPECT_FALSE(control(form, "lblSoundShow")->isVisible());
    EXPECT_EQ(showArpMode(w.model), kShowArpOff);
}

TEST(frmAutoSend, StartPauseAndMarkByTheirButtons)
{
    AutoSendWindow w({3, 9, 20});
    setShowArpMode(w.model, kShowArpOff);
    frmAutoSend form(w.model, kPatchBankA, &w.window);
    form.show();
    click(form, "cmdStart");
    EXPECT_TRUE(form.autoTimer().enabled());
    EXPECT_EQ(form.autoTimer().interval(), 5000);
    EXPECT_TRUE(control(form, "cmdPause")->isEnabled());
    hurry(form);
    ASSERT_TRUE(runEventsUntil([&form] { return form.autoSend().sendIndex() >= 1; }));
    click(form, "cmdPause");
    EXPECT_FALSE(form.autoTimer().enabled());
    EXPECT_TRUE(control(form, "lblPaused")->isVisible());
    EXPECT_EQ(control<QLabel>(form, "lblSent")->text(), "1");
    click(form, "cmdMark");
    click(form, "cmdMark");
    EXPECT_EQ(control<QLabel>(form, "lblMarked")->text(), "1");
    EXPECT_TRUE(control(form, "cmdReselect")->isEnabled());
    EXPECT_FALSE(control(form, "lblCurrentPatch")->styleSheet().isEmpty());
    ASSERT_TRUE(runEventsUntil([&w] { return !w.z1().received().empty(); }));
    EXPECT_EQ(w.z1().received().back().size(), 666u);
}

TEST(frmAutoSend, AltStartsCtrlMarksAndPausePauses)
{
    AutoSendWindow w({3, 9, 20});
    setShowArpMode(w.model, kShowArpOff);
    frmAutoSend form(w.model, kPatchBankA, &w.window);
    form.show();
    QWidget* focus = control(form, "cmbChordSeq");
    QTest::keyClick(focus, Qt::Key_Alt, Qt::AltModifier);
    EXPECT_TRUE(form.autoTimer().enabled());
    hurry(form);
    ASSERT_TRUE(runEventsUntil([&form] { return form.autoSend().sendIndex() >= 1; }));
    QTest::keyClick(focus, Qt::Key_Pause);
    EXPECT_FALSE(form.autoTimer().enabled());
    EXPECT_TRUE(control(form, "lblPaused")->isVisible());
    QTest::keyClick(focus, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(form.autoSend().markCount(), 1);
    EXPECT_TRUE(form.autoSend().markedAt(form.autoSend().sendIndex()));
    QTest::keyClick(focus, Qt::Key_Pause);
    EXPECT_TRUE(form.autoTimer().enabled());
    EXPECT_FALSE(control(form, "lblPaused")->isVisible());
}

TEST(frmAutoSend, DoneClosesTheFormAndReleasesTheChord)
{
    AutoSendWindow w({3});
    setShowChordSequence(w.model, 0);
    frmAutoSend form(w.model, kPatchBankA, &w.window);
    form.show();
    click(form, "cmdStart");
    hurry(form);
    ASSERT_TRUE(runEventsUntil([&w] { return w.z1().notes().size() >= 3; }));
    EXPECT_EQ(w.z1().sounding().size(), 3u);
    click(form, "cmdDone");
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.autoTimer().enabled());
    EXPECT_FALSE(form.autoSend().autoSendActive());
    ASSERT_TRUE(runEventsUntil([&w] { return w.z1().sounding().empty(); }));
}

TEST(frmAutoSend, TheIntervalChosenSetsTheTimer)
{
    AutoSendWindow w({3});
    frmAutoSend form(w.model, kPatchBankA, &w.window);
    form.show();
    auto* interval = control<QComboBox>(form, "cmbInterval");
    interval->setFocus();
    QTest::keyClick(interval, Qt::Key_Down);
    EXPECT_EQ(showInterval(w.model), 6);
    EXPECT_EQ(form.autoTimer().interval(), 6000);
}

// Clicks an item of a popup menu that is showing.
void clickItem(QMenu* menu, const char* name)
{
    QAction* item = menu->findChild<QAction*>(name);
    ASSERT_NE(item, nullptr) << name;
    ASSERT_TRUE(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
}

// The main window over the simulated Z1 with bank A opened from a file.
struct OpenedBankWindow : SimulatedMidiWindow {
    OpenedBankWindow()
    {
        const auto path = folder / "bank-a.syx";
        EXPECT_TRUE(writeFileAtomically(path, z1().dumpFor(1)));
        window.show();
        answerNextFileDialog(QString::fromStdString(path.string()));
        action("mnuOpen")->trigger();
    }
    QLabel* patch(int i) { return window.findChild<QLabel*>(QString("lblBkPatch_%1").arg(i)); }
    void click(int i, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(patch(i), button, {}, patch(i)->rect().center());
    }
};

TEST(frmAutoSend, ThePopupOpensTheShowOnTheSelectionAndMarkAndReselectMakeTheNewOne)
{
    OpenedBankWindow w;
    ASSERT_EQ(w.model.mode, kPatchBankA);
    setShowArpMode(w.model, kShowArpOff);
    for (int i : {2, 5, 9})
        w.click(i);
    w.click(9, Qt::RightButton);
    QMenu* popup = w.window.findChild<QMenu*>("mnuPopup2");
    ASSERT_NE(popup, nullptr);
    bool opened = false;
    whenNextModalOpens([&](QWidget* modal) {
        auto* form = qobject_cast<frmAutoSend*>(modal);
        ASSERT_NE(form, nullptr);
        opened = true;
        EXPECT_EQ(control<QLabel>(*form, "lblSelected")->text(), "3");
        EXPECT_TRUE(control<QLabel>(*form, "lblStartPatch")->text().startsWith("A002 "));
        EXPECT_TRUE(control<QLabel>(*form, "lblEndPatch")->text().startsWith("A009 "));
        click(*form, "cmdStart");
        hurry(*form);
        // Mark the first and the third.
        for (int element : {1, 3}) {
            ASSERT_TRUE(runEventsUntil([form, element] { return form->autoSend().sendIndex() >= element; }));
            click(*form, "cmdPause");
            if (form->autoSend().sendIndex() == element)
                click(*form, "cmdMark");
            click(*form, "cmdPause");
        }
        EXPECT_EQ(control<QLabel>(*form, "lblMarked")->text(), "2");
        ASSERT_TRUE(control(*form, "cmdReselect")->isEnabled());
        QString question;
        answerNextMessageBox("Yes", &question);
        click(*form, "cmdReselect");
        EXPECT_EQ(question, "Replace current bank selection with marked patches only?");
        EXPECT_EQ(control<QLabel>(*form, "lblSelected")->text(), "2");
        click(*form, "cmdDone");
    });
    clickItem(popup, "mnuAutoSend2");
    ASSERT_TRUE(opened);
    const BankSelection& selection = w.model.banks.selection(kPatchBankA);
    EXPECT_EQ(selection.selectionCount, 2);
    for (int p = 0; p < 128; ++p)
        EXPECT_EQ(selection.selected(p), p == 2 || p == 9) << p;
    EXPECT_EQ(w.patch(2)->styleSheet(), w.patch(9)->styleSheet());
    EXPECT_NE(w.patch(5)->styleSheet(), w.patch(9)->styleSheet());
}

}  // namespace
}  // namespace quillon
