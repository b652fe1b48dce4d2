#include "midi/MidiGlobal.h"
#include "midi/screens/MidiConnection.h"
#include "midi/screens/MidiSystemAccess.h"
#include "midi/screens/QtEventPump.h"
#include "midi/screens/QtTimer.h"
#include "midi/screens/SimulatedMidiWindow.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"

#include <QSignalSpy>
#include <QThread>

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <thread>
#include <vector>

namespace quillon {
namespace {

TEST(QtEventPump, EventsPostedFromAnotherThreadRunLaterOnTheUserInterfaceThreadInOrder)
{
    QtEventPump pump;
    std::vector<int> order;
    std::vector<QThread*> threads;
    std::thread worker([&] {
        for (int i = 1; i <= 3; ++i)
            pump.post([&order, &threads, i] {
                order.push_back(i);
                threads.push_back(QThread::currentThread());
            });
    });
    worker.join();
    EXPECT_TRUE(order.empty());
    ASSERT_TRUE(runEventsUntil([&order] { return order.size() == 3; }));
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
    for (QThread* thread : threads)
        EXPECT_EQ(thread, QThread::currentThread());
}

TEST(QtEventPump, EventsStillWaitingWhenThePumpGoesAreDropped)
{
    bool ran = false;
    {
        QtEventPump pump;
        pump.post([&ran] { ran = true; });
    }
    runWaitingEvents();
    EXPECT_FALSE(ran);
}

TEST(QtTimer, TicksWhileEnabledAtItsInterval)
{
    QtTimer timer;
    int ticks = 0;
    timer.setTick([&ticks] { ++ticks; });
    timer.setInterval(20);
    EXPECT_EQ(timer.interval(), 20);
    EXPECT_FALSE(timer.enabled());
    timer.setEnabled(true);
    EXPECT_TRUE(timer.enabled());
    ASSERT_TRUE(runEventsUntil([&ticks] { return ticks >= 2; }, 1000));
    timer.setEnabled(false);
    EXPECT_FALSE(timer.enabled());
    const int stoppedAt = ticks;
    QSignalSpy spy(&timer.timer(), &QTimer::timeout);
    EXPECT_FALSE(spy.wait(60));
    EXPECT_EQ(ticks, stoppedAt);
}

TEST(QtTimer, ATickMayStopItsOwnTimer)
{
    QtTimer timer;
    int ticks = 0;
    timer.setTick([&] {
        ++ticks;
        timer.setEnabled(false);
    });
    timer.setInterval(5);
    timer.setEnabled(true);
    ASSERT_TRUE(runEventsUntil([&ticks] { return ticks == 1; }, 1000));
    EXPECT_FALSE(timer.enabled());
}

// Sets an environment variable for one test and puts back what was there.
class EnvironmentValue {
public:
    EnvironmentValue(const char* name, const char* value) : name_(name)
    {
        if (const char* old = std::getenv(name))
            old_ = old;
        setenv(name, value, 1);
    }
    ~EnvironmentValue()
    {
        if (old_)
            setenv(name_, old_->c_str(), 1);
        else
            unsetenv(name_);
    }

private:
    const char* name_;
    std::optional<std::string> old_;
};

TEST(MidiStartUp, AMidiSystemThatCannotBeOpenedShowsMidiErrorAndEndsStartUp)
{
    EnvironmentValue api("QUILLON_MIDI_API", "no-such-system");
    TestModel t;
    t.host.expectMessage("MIDI Error");
    std::unique_ptr<MidiConnection> midi;
    EXPECT_FALSE(startMidi(t.model, nullptr, midi));
    EXPECT_TRUE(t.host.allShown());
    ASSERT_EQ(t.host.messages.size(), 1u);
    const MessageRequest& box = t.host.messages.front();
    EXPECT_EQ(box.icon, MessageIcon::Exclamation);
    EXPECT_TRUE(box.help);
    EXPECT_EQ(box.helpContext, 310);
    std::string expected;
    try {
        chooseMidiApi("no-such-system");
    } catch (const MidiError& error) {
        expected = midiErrorText(error.code(), error.what());
    }
    EXPECT_EQ(box.text, expected);
    EXPECT_NE(box.text.find("MIDI does not appear to be available"), std::string::npos);
    EXPECT_NE(box.text.find("no-such-system"), std::string::npos);
    EXPECT_EQ(midi, nullptr);
    EXPECT_FALSE(t.model.midi.attached());
}

TEST(MidiStartUp, TheSimulatedSystemIsChosenByTheEnvironmentAndAttachedToTheModel)
{
    EnvironmentValue api("QUILLON_MIDI_API", "sim");
    TestModel t;
    std::unique_ptr<MidiConnection> midi;
    ASSERT_TRUE(startMidi(t.model, nullptr, midi));
    ASSERT_NE(midi, nullptr);
    EXPECT_EQ(midi->system().api(), MidiApi::Sim);
    EXPECT_TRUE(t.model.midi.attached());
    EXPECT_EQ(t.model.midi.timerMain(), &midi->timerMain());
    EXPECT_TRUE(static_cast<bool>(t.model.midi.surroundings.showMiscDialog));
    EXPECT_TRUE(static_cast<bool>(t.model.midi.surroundings.unloadRequestDialog));
    // No port is open after start-up.
    EXPECT_EQ(t.model.midi.output().state(), kPortClosed);
    EXPECT_EQ(t.model.midi.input().state(), kPortClosed);
    midi.reset();
    EXPECT_FALSE(t.model.midi.attached());
    EXPECT_EQ(registeredMidiSystem(), nullptr);
}

}  // namespace
}  // namespace quillon
