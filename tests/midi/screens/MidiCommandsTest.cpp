#include "midi/backends/SimMidiSystem.h"
#include "midi/backends/SimulatedZ1.h"
#include "midi/screens/SimulatedMidiWindow.h"
#include "model/Kind.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"
#include "support/DialogAnswers.h"

#include <QApplication>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace quillon {
namespace {

constexpr std::size_t kPatchDumpBytes = 666;
constexpr std::size_t kMultiDumpBytes = 245;
constexpr int kCurrentMultiRequest = 3;

TEST(MidiCommands, ReceiveAndSendMenusAndTheirToolbarKeysAreWorking)
{
    SimulatedMidiWindow w;
    for (const char* name : {"mnuListen", "mnuRequest", "mnuResetInput", "mnuSendActive", "mnuTestTone",
                             "mnuResetOutput", "tlbMain_listen", "tlbMain_request", "tlbMain_send", "tlbMain_test"})
        EXPECT_TRUE(w.action(name)->isEnabled()) << name;
}

TEST(MidiCommands, SendAndTestToneFollowWhatIsLoadedAndSendTakesItsCaption)
{
    SimulatedMidiWindow w;
    EXPECT_EQ(w.action("mnuSendActive")->text(), "Init Patch      ");
    EXPECT_TRUE(w.action("mnuSendActive")->isEnabled());
    // Bank B is empty at start: nothing to send or play.
    QTest::mouseClick(w.label("lblLoaded_3"), Qt::LeftButton);
    EXPECT_EQ(w.action("mnuSendActive")->text(), "Bank B");
    EXPECT_FALSE(w.action("mnuSendActive")->isEnabled());
    EXPECT_FALSE(w.action("mnuTestTone")->isEnabled());
    QTest::mouseClick(w.label("lblLoaded_1"), Qt::LeftButton);
    EXPECT_TRUE(w.action("mnuSendActive")->isEnabled());
    EXPECT_TRUE(w.action("mnuTestTone")->isEnabled());
}

TEST(MidiCommands, SendInPatchModeDeliversTheWholePatchToTheInstrument)
{
    SimulatedMidiWindow w;
    ASSERT_EQ(w.model.mode, kPatch);
    w.action("mnuSendActive")->trigger();
    ASSERT_TRUE(runEventsUntil([&w] { return !w.z1().received().empty(); }));
    ASSERT_EQ(w.z1().received().size(), 1u);
    const std::vector<std::uint8_t>& patch = w.z1().received().front();
    EXPECT_EQ(patch.size(), kPatchDumpBytes);
    EXPECT_EQ(std::vector<std::uint8_t>(patch.begin(), patch.begin() + 6),
              (std::vector<std::uint8_t>{0xF0, 0x42, 0x30, 0x46, 0x40, 0x01}));
    EXPECT_EQ(patch.back(), 0xF7);
    ASSERT_TRUE(runEventsUntil([&w] { return w.label("lblStatus")->text().endsWith("has been sent"); }));
    EXPECT_EQ(w.label("lblStatus")->text(), "Init Patch has been sent");
}

TEST(MidiCommands, ListenTakesAMultisetTheInstrumentSendsByItself)
{
    SimulatedMidiWindow w;
    w.action("tlbMain_listen")->trigger();
    EXPECT_EQ(w.label("lblStatus")->text(), "Waiting for SysEx data");
    const std::vector<std::uint8_t> multi = w.z1().dumpFor(kCurrentMultiRequest);
    ASSERT_EQ(multi.size(), kMultiDumpBytes);
    SysExImage packed = w.z1().memory().currentMulti;
    LoadReport report;
    const ByteImage expected = MIDItoDATA(kMultiset, packed, report);
    ASSERT_NE(w.model.itemImage(kMultiset), expected);
    sendFromSimulatedZ1(w.midi->system(), multi);
    ASSERT_TRUE(runEventsUntil([&] { return w.model.itemImage(kMultiset) == expected; }));
    // Taken from the instrument: not clean, no file, and Listen is over.
    EXPECT_FALSE(w.model.flags.clean[kMultiset]);
    EXPECT_EQ(w.model.itemPath[kMultiset], "");
    EXPECT_EQ(w.model.midi.input().state(), kPortClosed);
    // A second multiset is not heard.
    w.model.itemImage(kMultiset).assign(w.model.itemImage(kMultiset).size(), 0);
    sendFromSimulatedZ1(w.midi->system(), multi);
    runWaitingEvents();
    EXPECT_NE(w.model.itemImage(kMultiset), expected);
}

TEST(MidiCommands, ListenOpensTheDumpDialogForAnAllMultiDumpAndItOffersToSaveIt)
{
    SimulatedMidiWindow w;
    w.action("mnuListen")->trigger();
    // Both multi banks in one message, as the instrument sends them from
    // its panel.
    const std::vector<std::uint8_t> packed(7607, 0);
    const SysExMessage allMulti = buildSysExMessage(0x4D, std::vector<std::uint8_t>{0x00, 0x00, 0x00, 0x00}, 1, packed);
    ASSERT_EQ(allMulti.size(), 7617u);
    QString caption;
    QString saveSend;
    bool sendOffered = true;
    whenNextModalOpens([&](QWidget* modal) {
        caption = modal->windowTitle();
        auto* button = modal->findChild<QPushButton*>("cmdSaveSend");
        ASSERT_NE(button, nullptr);
        saveSend = button->text();
        sendOffered = saveSend.startsWith("Send");
        modal->findChild<QPushButton*>("cmdDone")->click();
    });
    sendFromSimulatedZ1(w.midi->system(), allMulti);
    ASSERT_TRUE(runEventsUntil([&] { return !caption.isEmpty(); }));
    EXPECT_EQ(caption, "All Multi");
    // Received from the instrument: it can be saved, not sent back.
    EXPECT_EQ(saveSend, "Save All Multi");
    EXPECT_FALSE(sendOffered);
    EXPECT_EQ(w.model.midi.input().state(), kPortClosed);
    EXPECT_EQ(w.model.misc.message, allMulti);
}

TEST(MidiCommands, AProgressBarBesideTheStatusLinesShowsADumpAndGoesWhenItEnds)
{
    SimulatedMidiWindow w;
    auto* bar = w.window.findChild<QProgressBar*>("prgTransfer");
    ASSERT_NE(bar, nullptr);
    EXPECT_FALSE(bar->isVisibleTo(&w.window));

    w.action("mnuSendActive")->trigger();
    EXPECT_TRUE(bar->isVisibleTo(&w.window));
    EXPECT_EQ(bar->maximum(), 666);
    EXPECT_EQ(bar->text(), "0 of 666 bytes");
    EXPECT_EQ(w.label("lblStatus")->text(), "Sending Init Patch") << "the status texts stay as they are";
    ASSERT_TRUE(runEventsUntil([&w] { return w.label("lblStatus")->text() == "Init Patch has been sent"; }));
    EXPECT_FALSE(bar->isVisibleTo(&w.window));

    w.action("mnuListen")->trigger();
    EXPECT_TRUE(bar->isVisibleTo(&w.window));
    EXPECT_EQ(bar->text(), "0 bytes");
    w.action("mnuResetInput")->trigger();
    EXPECT_FALSE(bar->isVisibleTo(&w.window));
}

TEST(MidiCommands, SendToADeviceThatIsGoneShowsTheMidiErrorBoxAndWorksWithAnotherDevice)
{
    SimulatedMidiWindow w;
    w.model.settings.outputDevice = 99;
    QString title;
    QString text;
    answerNextMessageBox("OK", &text, &title);

    w.action("mnuSendActive")->trigger();

    EXPECT_EQ(title, "MIDI Error");
    EXPECT_TRUE(text.endsWith("cannot be opened]")) << text.toStdString();
    runWaitingEvents();
    EXPECT_NE(w.label("lblStatus")->text(), "Init Patch has been sent");
    EXPECT_TRUE(w.z1().received().empty());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    w.model.settings.outputDevice = 0;
    w.action("mnuSendActive")->trigger();
    ASSERT_TRUE(runEventsUntil([&w] { return w.label("lblStatus")->text() == "Init Patch has been sent"; }));
    EXPECT_EQ(w.z1().received().size(), 1u);
}

TEST(MidiCommands, ResetInputEndsAListenLeftOpen)
{
    SimulatedMidiWindow w;
    w.action("mnuListen")->trigger();
    EXPECT_NE(w.model.midi.input().state(), kPortClosed);
    w.action("mnuResetInput")->trigger();
    EXPECT_EQ(w.model.midi.input().state(), kPortClosed);
    EXPECT_EQ(w.label("lblStatus")->text(), "");
}

TEST(MidiCommands, TestTonePlaysTheNoteOnTheRealTimerAfterThePatch)
{
    SimulatedMidiWindow w;
    w.model.settings.toneLength = 1;  // a tenth of a second
    QSignalSpy ticks(&w.midi->timerMain().timer(), &QTimer::timeout);
    w.action("mnuTestTone")->trigger();
    EXPECT_TRUE(w.midi->timerMain().enabled());
    ASSERT_TRUE(runEventsUntil([&w] { return w.z1().notes().size() >= 2; }, 2900));
    EXPECT_GE(ticks.count(), 3);
    EXPECT_FALSE(w.midi->timerMain().enabled());
    ASSERT_EQ(w.z1().received().size(), 1u);
    EXPECT_EQ(w.z1().received().front().size(), kPatchDumpBytes);
    const std::vector<PlayedNote>& notes = w.z1().notes();
    EXPECT_EQ(notes[0].status, 0x90);
    EXPECT_EQ(notes[0].key, w.model.settings.tonePitch);
    EXPECT_EQ(notes[0].velocity, w.model.settings.toneVelocity);
    EXPECT_EQ(notes[1].status, 0x80);
    EXPECT_EQ(notes[1].key, w.model.settings.tonePitch);
    EXPECT_EQ(notes[1].velocity, 40);
    EXPECT_EQ(w.label("lblStatus")->text(), "Tone has been sent");
    EXPECT_EQ(w.label("lblMessage")->text(), "6 bytes on MIDI channel 1");
}

TEST(MidiCommands, TestToneOutsidePatchModeSaysSoAndPlaysNothing)
{
    SimulatedMidiWindow w;
    w.model.mode = kMultiset;
    QString title;
    QString text;
    answerNextMessageBox("OK", &text, &title);
    w.action("tlbMain_test")->trigger();
    EXPECT_EQ(title, "Send test tone");
    EXPECT_EQ(text, "Patch mode only");
    runWaitingEvents();
    EXPECT_TRUE(w.z1().notes().empty());
    EXPECT_TRUE(w.z1().received().empty());
}

}  // namespace
}  // namespace quillon
