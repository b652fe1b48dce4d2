#include "midi/backends/RtMidiSystem.h"

#include "midi/backends/EventPump.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillon {
namespace {

TEST(RtMidiSystem, AJackServerThatIsNotRunningThrowsMidiError)
{
    setenv("JACK_DEFAULT_SERVER", "quillon-no-such-server", 1);
    QueuedEventPump pump;
    try {
        openRtMidiSystem(MidiApi::Jack, pump, {});
        FAIL() << "a system without its server opened";
    } catch (const MidiError& error) {
        EXPECT_NE(error.code(), 0);
        EXPECT_FALSE(std::string(error.what()).empty());
    }
}

TEST(RtMidiSystem, ASystemRtMidiDoesNotOfferThrowsMidiError)
{
    QueuedEventPump pump;
    EXPECT_THROW(openRtMidiSystem(MidiApi::Sim, pump, {}), MidiError);
#if defined(__linux__)
    EXPECT_THROW(openRtMidiSystem(MidiApi::WinMm, pump, {}), MidiError);
#endif
}

}  // namespace
}  // namespace quillon
