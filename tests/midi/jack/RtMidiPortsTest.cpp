// The RtMidi ports on a JACK server: device lists, errors, reset, and
// whole messages out of pieces.

#include "JackRig.h"

#include "midi/backends/RtMidiSystem.h"

namespace quillon {
namespace {

// Quillon's ports beside a panel; the input listens to the panel's output,
// which plays messages straight to it.
struct JackPorts : JackRig, private MidiInputEvents, private MidiOutputEvents {
    JackPorts()
    {
        out().setEvents(this);
        in().setEvents(this);
    }
    ~JackPorts() override
    {
        out().setEvents(nullptr);
        in().setEvents(nullptr);
    }

    MidiOutput& out() { return system->output(); }
    MidiInput& in() { return system->input(); }

    // Opens the input on the panel's output and starts it.
    void listenToPanel(int bufferSize = kInputBufferBytes)
    {
        const int device = deviceNumber(system->inputDevices(), "Panel out:midi");
        ASSERT_GE(device, 0);
        in().setBufferSize(bufferSize);
        in().setDevice(device);
        in().open();
        ASSERT_EQ(in().state(), kPortOpen);
        in().start();
        ASSERT_EQ(in().state(), kPortBusy);
    }

    static SysExMessage message(std::size_t bytes, std::uint8_t fill)
    {
        SysExMessage m(bytes, fill);
        m.front() = 0xF0;
        m[1] = 0x7D;
        m.back() = 0xF7;
        return m;
    }

    std::vector<SysExMessage> arrived;
    std::vector<int> errorCodes;
    int doneCount = 0;

private:
    void inputMessage() override
    {
        arrived.push_back(in().messageText());
        in().next();
    }
    void inputError(int code, const std::string&) override { errorCodes.push_back(code); }
    void outputDone() override { ++doneCount; }
    void outputError(int code, const std::string&) override { errorCodes.push_back(code); }
};

TEST_F(JackPorts, TheDeviceListsNameZ1simsPorts)
{
    EXPECT_GE(deviceNumber(system->outputDevices(), z1simInputName()), 0);
    EXPECT_GE(deviceNumber(system->inputDevices(), z1simOutputName()), 0);
    EXPECT_EQ(system->api(), MidiApi::Jack);
}

TEST_F(JackPorts, OpeningADeviceThatIsNotThereReportsAnErrorAndStaysClosed)
{
    out().setDevice(9999);
    out().open();
    in().setDevice(9999);
    in().open();
    EXPECT_EQ(out().state(), kPortClosed);
    EXPECT_EQ(in().state(), kPortClosed);
    EXPECT_TRUE(errorCodes.empty());  // told through the pump, not from inside
    pump.runPending();
    ASSERT_EQ(errorCodes.size(), 2u);
    EXPECT_NE(errorCodes[0], 0);
    EXPECT_NE(errorCodes[0], 8);
}

TEST_F(JackPorts, StartingAClosedOutputReportsAnError)
{
    out().start();
    pump.runPending();
    ASSERT_EQ(errorCodes.size(), 1u);
    EXPECT_EQ(out().state(), kPortClosed);
    EXPECT_EQ(doneCount, 0);
}

TEST_F(JackPorts, TheQueuePlaysOutAndDoneFollows)
{
    out().setDevice(deviceNumber(system->outputDevices(), z1simInputName()));
    out().open();
    out().setMessageType(240);
    out().setMessageText(message(3000, 0x11));
    out().queue();
    out().start();
    EXPECT_EQ(out().state(), kPortBusy);
    ASSERT_TRUE(runUntil(pump, [&] { return doneCount == 1; }));
    EXPECT_EQ(out().state(), kPortOpen);
}

TEST_F(JackPorts, ResetStopsThePlayOutAndNoDoneFollows)
{
    system->setSysExRate(kCableSysExRate);
    out().setDevice(deviceNumber(system->outputDevices(), z1simInputName()));
    out().open();
    out().setMessageType(240);
    out().setMessageText(message(20000, 0x22));  // more than six seconds at the pace of a cable
    out().queue();
    out().start();
    out().reset();
    EXPECT_EQ(out().state(), kPortOpen);
    // A done would come within the time of the first piece.
    EXPECT_FALSE(runUntil(pump, [&] { return doneCount > 0; }, std::chrono::seconds(1)));
}

TEST_F(JackPorts, ALongSysExPlayedInPiecesArrivesWhole)
{
    listenToPanel();
    const SysExMessage big = message(50000, 0x33);
    panel.send(big);
    ASSERT_TRUE(runUntil(pump, [&] { return !arrived.empty(); }));
    ASSERT_EQ(arrived.size(), 1u);
    EXPECT_EQ(arrived[0], big);
}

TEST_F(JackPorts, AMessageLongerThanTheBufferIsDroppedAndTheNextIsTaken)
{
    listenToPanel(10000);
    panel.send(message(12000, 0x44));
    const SysExMessage small = message(300, 0x55);
    panel.send(small);
    ASSERT_TRUE(runUntil(pump, [&] { return !arrived.empty(); }));
    ASSERT_EQ(arrived.size(), 1u);
    EXPECT_EQ(arrived[0], small);
}

TEST_F(JackPorts, ClockAndActiveSensingNeverWait)
{
    listenToPanel();
    in().setFilter(248, true);
    in().setFilter(254, true);
    panel.send({0xF8});
    panel.send({0xFE});
    panel.send({0x90, 60, 100});
    ASSERT_TRUE(runUntil(pump, [&] { return !arrived.empty(); }));
    ASSERT_EQ(arrived.size(), 1u);
    EXPECT_EQ(arrived[0], (SysExMessage{0x90, 60, 100}));
}

TEST_F(JackPorts, AFilteredStatusIsKeptOut)
{
    listenToPanel();
    in().setFilter(0x80, true);
    panel.send({0x80, 60, 40});
    panel.send({0x90, 61, 100});
    ASSERT_TRUE(runUntil(pump, [&] { return !arrived.empty(); }));
    EXPECT_EQ(arrived[0], (SysExMessage{0x90, 61, 100}));
}

TEST_F(JackPorts, ResetDropsTheWaitingMessagesAndStopsTakingIn)
{
    listenToPanel();
    in().setEvents(nullptr);  // messages wait in the port
    panel.send({0x90, 62, 100});
    ASSERT_TRUE(runUntil(pump, [&] { return in().messageCount() > 0; }));
    EXPECT_EQ(in().messageText(), (SysExMessage{0x90, 62, 100}));
    in().reset();
    EXPECT_EQ(in().messageCount(), 0);
    EXPECT_EQ(in().state(), kPortOpen);
    in().close();
    EXPECT_EQ(in().state(), kPortClosed);
}

}  // namespace
}  // namespace quillon
