#include "midi/backends/EventPump.h"
#include "midi/backends/MidiSystem.h"
#include "midi/backends/SimMidiSystem.h"
#include "midi/backends/SimulatedZ1.h"
#include "sysex/MessageCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillon {
namespace {

struct OutputRecorder : MidiOutputEvents {
    void outputError(int code, const std::string& text) override { errors.emplace_back(code, text); }
    void outputDone() override { ++done; }
    std::vector<std::pair<int, std::string>> errors;
    int done = 0;
};

struct InputRecorder : MidiInputEvents {
    explicit InputRecorder(MidiInput* port = nullptr) : input(port) {}
    void inputError(int code, const std::string& text) override { errors.emplace_back(code, text); }
    void inputMessage() override
    {
        ++messages;
        if (input != nullptr)
            countsSeen.push_back(input->messageCount());
    }
    MidiInput* input;
    std::vector<std::pair<int, std::string>> errors;
    int messages = 0;
    std::vector<int> countsSeen;
};

struct SimMidiPorts : ::testing::Test {
    QueuedEventPump pump;
    SimulatedZ1 z1{1};
    std::unique_ptr<MidiSystem> system = openSimMidiSystem(pump, withSimulator(z1));
    MidiOutput& out = system->output();
    MidiInput& in = system->input();
    OutputRecorder outEvents;
    InputRecorder inEvents{&system->input()};

    static MidiSystemOptions withSimulator(SimulatedZ1& z1)
    {
        MidiSystemOptions options;
        options.simulator = &z1;
        return options;
    }

    void SetUp() override
    {
        out.setEvents(&outEvents);
        in.setEvents(&inEvents);
        in.setBufferSize(200000);
    }

    void send(const SysExMessage& message)
    {
        out.setMessageType(240);
        out.setMessageText(message);
        out.queue();
    }
};

SysExMessage request(int index, int channel = 1)
{
    return requestMessage(dumpRequests()[static_cast<std::size_t>(index)], channel);
}

TEST(MidiApiNames, NamesAndParsesEverySystem)
{
    for (MidiApi api : {MidiApi::Alsa, MidiApi::Jack, MidiApi::CoreMidi, MidiApi::WinMm, MidiApi::Sim})
        EXPECT_EQ(midiApiFromName(midiApiName(api)), api);
    EXPECT_EQ(midiApiName(MidiApi::CoreMidi), "coremidi");
    EXPECT_EQ(midiApiName(MidiApi::WinMm), "winmm");
    EXPECT_FALSE(midiApiFromName("ALSA").has_value());
    EXPECT_FALSE(midiApiFromName("").has_value());
}

TEST(MidiApiNames, UnsetMeansThePlatformsDefault)
{
#if defined(__APPLE__)
    const MidiApi platform = MidiApi::CoreMidi;
#elif defined(_WIN32)
    const MidiApi platform = MidiApi::WinMm;
#else
    const MidiApi platform = MidiApi::Alsa;
#endif
    EXPECT_EQ(chooseMidiApi(nullptr), platform);
    EXPECT_EQ(chooseMidiApi(""), platform);
    EXPECT_EQ(chooseMidiApi("sim"), MidiApi::Sim);
    EXPECT_EQ(chooseMidiApi("jack"), MidiApi::Jack);
}

TEST(MidiApiNames, AnUnknownNameThrowsAndSaysWhichNamesThereAre)
{
    try {
        chooseMidiApi("pipewire");
        FAIL() << "no error";
    } catch (const MidiError& error) {
        const std::string text = error.what();
        EXPECT_NE(text.find("pipewire"), std::string::npos);
        EXPECT_NE(text.find("alsa"), std::string::npos);
        EXPECT_NE(text.find("sim"), std::string::npos);
    }
}

TEST(MidiApiNames, TheSimulatorIsAlwaysCompiledIn)
{
    const auto apis = compiledMidiApis();
    EXPECT_NE(std::find(apis.begin(), apis.end(), MidiApi::Sim), apis.end());
}

TEST(SimMidiSystemOpen, OpenMidiSystemGivesTheSimulatorWithItsOwnSeededInstrument)
{
    QueuedEventPump pump;
    auto system = openMidiSystem(MidiApi::Sim, pump);
    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->api(), MidiApi::Sim);
    EXPECT_EQ(system->inputDevices(), std::vector<std::string>{"Simulated Z1"});
    EXPECT_EQ(system->outputDevices(), std::vector<std::string>{"Simulated Z1"});
    ASSERT_NE(system->simulator(), nullptr);
    EXPECT_EQ(system->simulator()->memory().bankA.size(), 84261u);
    EXPECT_EQ(system->sysExRate(), kCableSysExRate);
    system->setSysExRate(1000);
    EXPECT_EQ(system->sysExRate(), 1000);
}

TEST_F(SimMidiPorts, TheGivenInstrumentIsTheOneBehindThePorts)
{
    EXPECT_EQ(system->simulator(), &z1);
}

TEST_F(SimMidiPorts, PortsStartClosedAndOpenOnTheirDevice)
{
    EXPECT_EQ(out.state(), kPortClosed);
    EXPECT_EQ(in.state(), kPortClosed);
    out.setDevice(0);
    out.open();
    in.setDevice(0);
    in.open();
    EXPECT_EQ(out.state(), kPortOpen);
    EXPECT_EQ(in.state(), kPortOpen);
    in.start();
    EXPECT_GE(in.state(), kPortBusy);
    in.reset();
    EXPECT_EQ(in.state(), kPortOpen);
    out.close();
    in.close();
    EXPECT_EQ(out.state(), kPortClosed);
    EXPECT_EQ(in.state(), kPortClosed);
    pump.runPending();
    EXPECT_TRUE(outEvents.errors.empty());
    EXPECT_TRUE(inEvents.errors.empty());
}

TEST_F(SimMidiPorts, OpeningADeviceThatIsNotThereReportsAnErrorThroughThePumpAndStaysClosed)
{
    out.setDevice(3);
    out.open();
    in.setDevice(1);
    in.open();
    EXPECT_EQ(out.state(), kPortClosed);
    EXPECT_EQ(in.state(), kPortClosed);
    // Nothing reaches the program from inside the operation itself.
    EXPECT_TRUE(outEvents.errors.empty());
    EXPECT_TRUE(inEvents.errors.empty());
    pump.runPending();
    ASSERT_EQ(outEvents.errors.size(), 1u);
    ASSERT_EQ(inEvents.errors.size(), 1u);
    EXPECT_NE(outEvents.errors[0].first, 0);
    EXPECT_NE(outEvents.errors[0].first, 8);
    EXPECT_FALSE(outEvents.errors[0].second.empty());
}

TEST_F(SimMidiPorts, StartingAClosedOutputReportsAnError)
{
    out.start();
    pump.runPending();
    EXPECT_EQ(outEvents.errors.size(), 1u);
    EXPECT_EQ(outEvents.done, 0);
    EXPECT_EQ(out.state(), kPortClosed);
}

TEST_F(SimMidiPorts, TheQueuePlaysOutLaterThenDoneThenTheAnswerArrives)
{
    out.open();
    in.open();
    in.start();
    send(request(0));
    out.start();
    EXPECT_GE(out.state(), kPortBusy);
    EXPECT_TRUE(z1.received().empty());
    EXPECT_EQ(outEvents.done, 0);
    pump.runPending();
    ASSERT_EQ(z1.received().size(), 1u);
    EXPECT_EQ(z1.received()[0], request(0));
    EXPECT_EQ(outEvents.done, 1);
    EXPECT_EQ(out.state(), kPortOpen);
    ASSERT_EQ(inEvents.messages, 1);
    EXPECT_EQ(in.messageCount(), 1);
    EXPECT_EQ(in.messageText(), z1.dumpFor(0));
    in.next();
    EXPECT_EQ(in.messageCount(), 0);
    EXPECT_TRUE(in.messageText().empty());
}

TEST_F(SimMidiPorts, PiecesOfTheQueueAreJoinedIntoWholeMessages)
{
    out.open();
    const SysExMessage dump = arpBankDump(1, SysExImage(5852, 0x11));
    for (std::size_t at = 0; at < dump.size(); at += 1000) {
        out.setMessageText(SysExMessage(dump.begin() + static_cast<std::ptrdiff_t>(at),
                                        dump.begin() + static_cast<std::ptrdiff_t>(std::min(at + 1000, dump.size()))));
        out.queue();
    }
    send(request(6));
    out.start();
    pump.runPending();
    ASSERT_EQ(z1.received().size(), 2u);
    EXPECT_EQ(z1.received()[0], dump);
    EXPECT_EQ(z1.received()[1], request(6));
    EXPECT_EQ(z1.memory().arpBank, SysExImage(5852, 0x11));
}

TEST_F(SimMidiPorts, AnswersAreTakenOnlyIfTheInputIsStartedWhenTheyArrive)
{
    out.open();
    in.open();
    send(request(3));
    out.start();
    pump.runPending();
    EXPECT_EQ(outEvents.done, 1);
    EXPECT_EQ(inEvents.messages, 0);
    EXPECT_EQ(in.messageCount(), 0);

    // Started after the request left but before its answer is carried over.
    send(request(3));
    out.start();
    in.start();
    pump.runPending();
    EXPECT_EQ(inEvents.messages, 1);
    EXPECT_EQ(in.messageText().size(), 245u);
}

TEST_F(SimMidiPorts, AnAcknowledgementArrivesAfterADump)
{
    out.open();
    in.open();
    in.start();
    send(currentPatchDump(1, SysExImage(659, 0x05)));
    out.start();
    pump.runPending();
    EXPECT_EQ(z1.memory().currentPatch, SysExImage(659, 0x05));
    ASSERT_EQ(in.messageCount(), 1);
    EXPECT_EQ(in.messageText(), (SysExMessage{0xF0, 0x42, 0x30, 0x46, 0x23, 0xF7}));
}

TEST_F(SimMidiPorts, ResetOrCloseBeforeThePlayOutLosesWhatWasQueued)
{
    out.open();
    send(currentPatchDump(1, SysExImage(659, 0x05)));
    out.start();
    out.reset();
    EXPECT_EQ(out.state(), kPortOpen);
    send(currentMultiDump(1, SysExImage(238, 0x06)));
    out.start();
    out.close();
    out.open();
    send(currentPatternDump(1, SysExImage(293, 0x07)));
    out.start();
    pump.runPending();
    ASSERT_EQ(z1.received().size(), 1u);
    EXPECT_EQ(z1.received()[0].size(), 300u);
    EXPECT_EQ(outEvents.done, 1);
}

TEST_F(SimMidiPorts, TheBufferSizeDropsALongerMessage)
{
    in.setBufferSize(5000);
    EXPECT_EQ(in.bufferSize(), 5000);
    in.open();
    in.start();
    sendFromSimulatedZ1(*system, z1.dumpFor(1));
    sendFromSimulatedZ1(*system, z1.dumpFor(7));
    pump.runPending();
    EXPECT_EQ(inEvents.messages, 0);
    in.setBufferSize(200000);
    sendFromSimulatedZ1(*system, z1.dumpFor(1));
    pump.runPending();
    EXPECT_EQ(inEvents.messages, 1);
    EXPECT_EQ(in.messageText().size(), 84270u);
}

TEST_F(SimMidiPorts, FilteredStatusesNeverWait)
{
    in.open();
    in.setFilter(254, true);
    in.setFilter(248, true);
    EXPECT_TRUE(in.filter(254));
    EXPECT_FALSE(in.filter(250));
    in.start();
    const std::uint8_t sensing[] = {0xFE};
    const std::uint8_t clock[] = {0xF8};
    const std::uint8_t start[] = {0xFA};
    sendFromSimulatedZ1(*system, sensing);
    sendFromSimulatedZ1(*system, clock);
    sendFromSimulatedZ1(*system, start);
    pump.runPending();
    EXPECT_EQ(inEvents.messages, 1);
    EXPECT_EQ(in.messageText(), (std::vector<std::uint8_t>{0xFA}));
    in.setFilter(254, false);
    EXPECT_FALSE(in.filter(254));
}

TEST_F(SimMidiPorts, MessagesSentByTheInstrumentWaitInOrderUntilNext)
{
    in.open();
    in.start();
    sendFromSimulatedZ1(*system, z1.dumpFor(0));
    sendFromSimulatedZ1(*system, z1.dumpFor(3));
    EXPECT_EQ(in.messageCount(), 0);
    pump.runPending();
    EXPECT_EQ(inEvents.messages, 2);
    EXPECT_EQ(inEvents.countsSeen, (std::vector<int>{1, 2}));
    EXPECT_EQ(in.messageText().size(), 666u);
    in.next();
    EXPECT_EQ(in.messageText().size(), 245u);
    in.reset();
    EXPECT_EQ(in.messageCount(), 0);
    EXPECT_EQ(in.state(), kPortOpen);
}

TEST_F(SimMidiPorts, NothingArrivesAtAClosedInput)
{
    sendFromSimulatedZ1(*system, z1.dumpFor(0));
    pump.runPending();
    EXPECT_EQ(inEvents.messages, 0);
    in.open();
    sendFromSimulatedZ1(*system, z1.dumpFor(0));
    pump.runPending();
    EXPECT_EQ(inEvents.messages, 0);
}

TEST_F(SimMidiPorts, SendShortPlaysANoteAtOnce)
{
    out.open();
    out.setMessageType(0x90);
    out.setData1(64);
    out.setData2(90);
    out.sendShort();
    ASSERT_EQ(z1.notes().size(), 1u);
    EXPECT_EQ(z1.notes()[0].status, 0x90);
    EXPECT_EQ(z1.notes()[0].key, 64);
    EXPECT_EQ(z1.notes()[0].velocity, 90);
}

TEST_F(SimMidiPorts, SendShortOnAClosedOutputReportsAnErrorAndPlaysNothing)
{
    out.setMessageType(0x90);
    out.sendShort();
    pump.runPending();
    EXPECT_TRUE(z1.notes().empty());
    EXPECT_EQ(outEvents.errors.size(), 1u);
}

TEST(SimMidiSystemLifetime, EventsPostedBeforeTheSystemWentAwayDoNothing)
{
    QueuedEventPump pump;
    SimulatedZ1 z1(1);
    MidiSystemOptions options;
    options.simulator = &z1;
    OutputRecorder events;
    {
        auto system = openSimMidiSystem(pump, options);
        system->output().setEvents(&events);
        system->output().open();
        system->output().setMessageText(request(0));
        system->output().queue();
        system->output().start();
    }
    EXPECT_EQ(pump.runPending(), 1);
    EXPECT_EQ(events.done, 0);
    EXPECT_TRUE(z1.received().empty());
}

}  // namespace
}  // namespace quillon
