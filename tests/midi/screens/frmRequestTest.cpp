#include "midi/screens/frmRequest.h"

#include "midi/ReceiveEngine.h"
#include "midi/backends/SimulatedZ1.h"
#include "midi/screens/SimulatedMidiWindow.h"
#include "model/Kind.h"
#include "shell/screens/HelpWindow.h"
#include "support/DialogAnswers.h"
#include "sysex/SysExPacking.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

namespace quillon {
namespace {

template <typename T>
T* child(QWidget& form, const QString& name)
{
    T* found = form.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
}

QRadioButton* option(QWidget& form, int index) { return child<QRadioButton>(form, QString("optData_%1").arg(index)); }

TEST(frmRequest, HasItsCaptionFrameEightOptionsNoteAndButtons)
{
    TestModel t;
    frmRequest form(t.model);
    EXPECT_EQ(form.windowTitle(), "Request data from Korg Z1");
    EXPECT_EQ(child<QGroupBox>(form, "fraSelectData")->title(), "Select");
    const QStringList captions{"Current patch", "Bank A",      "Bank B",          "Current multi",
                               "Multibank A",   "Multibank B", "Current pattern", "Pattern bank"};
    for (int i = 0; i < kRequestOptions; ++i) {
        EXPECT_EQ(option(form, i)->text(), captions[i]);
        EXPECT_EQ(option(form, i)->text().toStdString(), requestCaption(i));
        EXPECT_EQ(option(form, i)->parentWidget()->objectName(), "fraSelectData");
    }
    EXPECT_EQ(child<QLabel>(form, "lblMIDINote")->text(), "REQUEST uses MIDI IN and OUT");
    EXPECT_EQ(child<QPushButton>(form, "cmdOK")->text(), "OK");
    EXPECT_EQ(child<QPushButton>(form, "cmdCancel")->text(), "Cancel");
    EXPECT_EQ(child<QPushButton>(form, "cmdHelp")->text(), "Help");
}

TEST(frmRequest, SetUpChoosesCurrentPatchAndEmptiesTheDoneText)
{
    TestModel t;
    t.model.midi.doneText = "Bank A has been sent";
    frmRequest form(t.model);
    option(form, 5)->setChecked(true);
    form.doSetup();
    EXPECT_TRUE(option(form, 0)->isChecked());
    EXPECT_EQ(form.selectedIndex(), 0);
    EXPECT_EQ(t.model.midi.doneText, "");
}

TEST(frmRequest, HelpShowsTheRequestTopic)
{
    TestModel t;
    frmRequest form(t.model);
    child<QPushButton>(form, "cmdHelp")->click();
    ASSERT_NE(HelpWindow::instance(), nullptr);
    EXPECT_EQ(HelpWindow::instance()->context(), 101);
    HelpWindow::instance()->close();
}

TEST(frmRequest, IsKnownAsLoadedOnlyWhileItExists)
{
    TestModel t;
    EXPECT_EQ(frmRequest::loaded(), nullptr);
    {
        frmRequest form(t.model);
        EXPECT_EQ(frmRequest::loaded(), &form);
    }
    EXPECT_EQ(frmRequest::loaded(), nullptr);
    // Unloading with nothing loaded does nothing.
    unloadRequestDialog();
}

TEST(frmRequest, CancelUnloadsItAndAsksTheInstrumentForNothing)
{
    SimulatedMidiWindow w;
    bool shown = false;
    whenNextModalOpens([&shown](QWidget* modal) {
        shown = modal->objectName() == "frmRequest";
        modal->findChild<QRadioButton*>("optData_1")->setChecked(true);
        modal->findChild<QPushButton*>("cmdCancel")->click();
    });
    w.action("mnuRequest")->trigger();
    runWaitingEvents();
    EXPECT_TRUE(shown);
    EXPECT_EQ(frmRequest::loaded(), nullptr);
    EXPECT_TRUE(w.z1().received().empty());
    EXPECT_EQ(w.model.midi.requestPending, 0);
    EXPECT_FALSE(w.model.flags.loaded[kPatchBankA]);
}

TEST(frmRequest, BankAChosenAndOkLoadsTheInstrumentsBankA)
{
    SimulatedMidiWindow w;
    const QString labelBefore = w.label("lblLoaded_2")->styleSheet();
    const int schemeBefore = w.model.labels.label(kPatchBankA).scheme;
    bool hiddenOnOk = false;
    whenNextModalOpens([&hiddenOnOk](QWidget* modal) {
        modal->findChild<QRadioButton*>("optData_1")->setChecked(true);
        modal->findChild<QPushButton*>("cmdOK")->click();
        hiddenOnOk = !modal->isVisible();
    });
    w.action("mnuRequest")->trigger();
    EXPECT_TRUE(hiddenOnOk);
    EXPECT_EQ(frmRequest::loaded(), nullptr);

    ASSERT_TRUE(runEventsUntil([&w] { return w.model.flags.loaded[kPatchBankA]; }));
    // The request went out on the instrument's channel.
    ASSERT_FALSE(w.z1().received().empty());
    EXPECT_EQ(w.z1().received().front(),
              (std::vector<std::uint8_t>{0xF0, 0x42, 0x30, 0x46, 0x1C, 0x10, 0x00, 0x00, 0xF7}));
    // The answer is in the bank store and its label shows it loaded.
    SysExImage packed = w.z1().memory().bankA;
    LoadReport report;
    EXPECT_EQ(w.model.banks.image(kPatchBankA), MIDItoDATA(kPatchBankA, packed, report));
    EXPECT_NE(w.model.labels.label(kPatchBankA).scheme, schemeBefore);
    EXPECT_NE(w.label("lblLoaded_2")->styleSheet(), labelBefore);
    EXPECT_EQ(w.model.midi.requestPending, 0);
    EXPECT_EQ(w.model.midi.input().state(), kPortClosed);
}

TEST(frmRequest, BankBRequestSaysPleaseWaitUntilTheAnswerComes)
{
    SimulatedMidiWindow w;
    QString statusAfterOk;
    whenNextModalOpens([&](QWidget* modal) {
        modal->findChild<QRadioButton*>("optData_2")->setChecked(true);
        modal->findChild<QPushButton*>("cmdOK")->click();
        statusAfterOk = w.label("lblStatus")->text();
    });
    w.action("mnuRequest")->trigger();
    EXPECT_EQ(statusAfterOk, "Bank B data requested - please wait");
    ASSERT_TRUE(runEventsUntil([&w] { return w.model.flags.loaded[kPatchBankB]; }));
    SysExImage packed = w.z1().memory().bankB;
    LoadReport report;
    EXPECT_EQ(w.model.banks.image(kPatchBankB), MIDItoDATA(kPatchBankB, packed, report));
}

}  // namespace
}  // namespace quillon
