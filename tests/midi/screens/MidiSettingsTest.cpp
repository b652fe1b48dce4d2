#include "files/MiscDialog.h"
#include "midi/MidiGlobal.h"
#include "midi/SysExRate.h"
#include "midi/backends/SimulatedZ1.h"
#include "midi/screens/MidiSystemAccess.h"
#include "midi/screens/SimulatedMidiWindow.h"
#include "shell/screens/FormLaunchers.h"
#include "shell/screens/frmSettings.h"
#include "support/DialogAnswers.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include <array>

namespace quillon {
namespace {

constexpr int kMidiTab = 2;
constexpr std::size_t kAllDataImageBytes = 160064;
constexpr std::size_t kAllDataBytes = 182939;

QStringList itemsOf(QComboBox* combo)
{
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}

QComboBox* combo(frmSettings& form, const char* name)
{
    auto* found = form.findChild<QComboBox*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

TEST(MidiSettings, MidiTabListsTheDevicesOfTheMidiSystem)
{
    SimulatedMidiWindow w;
    frmSettings form(w.model, kMidiTab);
    EXPECT_EQ(itemsOf(combo(form, "cmbInpDev")), QStringList{"Simulated Z1"});
    EXPECT_EQ(itemsOf(combo(form, "cmbOutDev")), QStringList{"Simulated Z1"});
    EXPECT_EQ(combo(form, "cmbInpDev")->currentIndex(), 0);
    EXPECT_EQ(combo(form, "cmbOutDev")->currentIndex(), 0);
}

TEST(MidiSettings, WithoutAMidiSystemTheDeviceListsStayEmpty)
{
    TestModel t;
    ASSERT_EQ(registeredMidiSystem(), nullptr);
    frmSettings form(t.model, kMidiTab);
    EXPECT_EQ(combo(form, "cmbInpDev")->count(), 0);
    EXPECT_EQ(combo(form, "cmbOutDev")->count(), 0);
}

TEST(MidiSettings, ChoosingADeviceStoresItAndOpensIt)
{
    SimulatedMidiWindow w;
    w.model.settings.inputDevice = -1;
    w.model.settings.outputDevice = -1;
    frmSettings form(w.model, kMidiTab);
    ASSERT_EQ(w.model.midi.output().state(), kPortClosed);
    combo(form, "cmbOutDev")->setCurrentIndex(0);
    EXPECT_EQ(w.model.settings.outputDevice, 0);
    EXPECT_NE(w.model.midi.output().state(), kPortClosed);
    combo(form, "cmbInpDev")->setCurrentIndex(0);
    EXPECT_EQ(w.model.settings.inputDevice, 0);
    EXPECT_NE(w.model.midi.input().state(), kPortClosed);
    EXPECT_TRUE(w.model.midi.input().filter(254));
    EXPECT_TRUE(w.model.midi.input().filter(248));
}

TEST(MidiSettings, SysExRateOffersTheCableSpeedAndFasterOnes)
{
    SimulatedMidiWindow w;
    frmSettings form(w.model, kMidiTab);
    QComboBox* rate = combo(form, "cmbSysExRate");
    EXPECT_EQ(itemsOf(rate), (QStringList{"3125 (MIDI cable speed)", "6250", "12500", "31250", "62500"}));
    EXPECT_EQ(rate->currentIndex(), 0);
    auto* label = qobject_cast<QLabel*>(form.findChild<QLabel*>("lblSysExRate"));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->buddy(), rate);
}

TEST(MidiSettings, SysExRateIsKeptInTheUserStoreAndAppliedAtOnce)
{
    SimulatedMidiWindow w;
    frmSettings form(w.model, kMidiTab);
    combo(form, "cmbSysExRate")->setCurrentIndex(3);
    EXPECT_EQ(w.store.read("MIDI", "SysExRate"), "31250");
    EXPECT_EQ(w.midi->system().sysExRate(), 31250);
}

TEST(MidiSettings, StoredSysExRateIsUsedAtStartUp)
{
    MemorySettingsStore store;
    EXPECT_EQ(storedSysExRate(store), 3125);
    store.write("MIDI", "SysExRate", "12500");
    EXPECT_EQ(storedSysExRate(store), 12500);
    store.write("MIDI", "SysExRate", "999");
    EXPECT_EQ(storedSysExRate(store), 3125);
    store.write("MIDI", "SysExRate", "6250x");
    EXPECT_EQ(storedSysExRate(store), 3125);

    TestModel t;
    t.store.write("MIDI", "SysExRate", "62500");
    MidiConnection midi(t.model, MidiApi::Sim, nullptr);
    EXPECT_EQ(midi.system().sysExRate(), 62500);
    EXPECT_EQ(registeredMidiSystem(), &midi.system());
}

// An All Data dump loaded from a file, held for frmMisc to send.
MiscDialogState holdAllDataFromFile(AppModel& model)
{
    const std::array<std::uint8_t, 2> subHeader{0, 0};
    const SysExMessage message = buildSysExMessage(0x50, subHeader, 1, packBytes(ByteImage(kAllDataImageBytes, 7)));
    model.misc.message.assign(message.begin(), message.end());
    model.misc.mode = 3;
    return misc::doSetup(model);
}

TEST(frmMiscSend, SendsADumpFromAFileAfterYesAndCloses)
{
    SimulatedMidiWindow w;
    w.model.settings.outputChannel = 3;
    MiscDialogState state = holdAllDataFromFile(w.model);
    QString question;
    bool stillOpen = true;
    whenNextModalOpens([&](QWidget* modal) {
        auto* send = modal->findChild<QPushButton*>("cmdSaveSend");
        ASSERT_NE(send, nullptr);
        EXPECT_TRUE(send->isEnabled());
        EXPECT_EQ(send->text(), "Send All Data to Z1");
        answerNextMessageBox("Yes", &question);
        send->click();
        stillOpen = modal->isVisible();
    });
    showMiscDialog(w.model, state, &w.window);
    EXPECT_EQ(question, "Completely replace data in Korg Z1. Are you sure?");
    EXPECT_FALSE(stillOpen);
    ASSERT_TRUE(runEventsUntil([&w] { return !w.z1().received().empty(); }));
    const std::vector<std::uint8_t>& sent = w.z1().received().front();
    ASSERT_EQ(sent.size(), kAllDataBytes);
    // It goes out on the channel of the settings.
    EXPECT_EQ(sent[2], 0x32);
}

TEST(frmMiscSend, ClosesAlsoWhenTheSendIsRefused)
{
    SimulatedMidiWindow w;
    MiscDialogState state = holdAllDataFromFile(w.model);
    bool stillOpen = true;
    whenNextModalOpens([&](QWidget* modal) {
        answerNextMessageBox("No");
        modal->findChild<QPushButton*>("cmdSaveSend")->click();
        stillOpen = modal->isVisible();
    });
    showMiscDialog(w.model, state, &w.window);
    EXPECT_FALSE(stillOpen);
    runWaitingEvents();
    EXPECT_TRUE(w.z1().received().empty());
}

}  // namespace
}  // namespace quillon
