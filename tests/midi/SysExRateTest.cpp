#include "midi/SysExRate.h"

#include "files/SettingsStore.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillon {
namespace {

TEST(SysExRate, NothingStoredMeansTheSpeedOfAMidiCable)
{
    MemorySettingsStore store;
    EXPECT_EQ(storedSysExRate(store), 3125);
}

TEST(SysExRate, AStoredChoiceComesBackAndAStrangeOneGivesTheCableSpeed)
{
    MemorySettingsStore store;
    storeSysExRate(store, 31250);
    EXPECT_EQ(store.read("MIDI", "SysExRate"), "31250");
    EXPECT_EQ(storedSysExRate(store), 31250);
    store.write("MIDI", "SysExRate", "4000");
    EXPECT_EQ(storedSysExRate(store), 3125);
    store.write("MIDI", "SysExRate", "6250 bytes");
    EXPECT_EQ(storedSysExRate(store), 3125);
}

TEST(SysExRate, TheChoicesStartAtTheCableSpeedWhichSaysSo)
{
    const auto choices = sysExRateChoices();
    ASSERT_FALSE(choices.empty());
    EXPECT_EQ(choices.front(), kCableSysExRate);
    EXPECT_TRUE(std::is_sorted(choices.begin(), choices.end()));
    EXPECT_EQ(sysExRateCaption(3125), "3125 (MIDI cable speed)");
    EXPECT_EQ(sysExRateCaption(12500), "12500");
}

}  // namespace
}  // namespace quillon
