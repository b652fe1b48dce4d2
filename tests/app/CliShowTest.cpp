#include "app/CliArguments.h"
#include "app/CliCommands.h"
#include "app/CliTimer.h"

#include "app/CliRun.h"
#include "files/AtomicFile.h"
#include "midi/backends/SimulatedZ1.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillon {
namespace {

TEST(CliPlaceList, NumbersAndRangesComeOnceEachInAscendingOrder)
{
    EXPECT_EQ(parsePlaceList("0-3,17", 127), (std::vector<int>{0, 1, 2, 3, 17}));
    EXPECT_EQ(parsePlaceList("17,2,2-3", 127), (std::vector<int>{2, 3, 17}));
    EXPECT_EQ(parsePlaceList("127", 127), (std::vector<int>{127}));
    EXPECT_EQ(parsePlaceList("5-5", 127), (std::vector<int>{5}));
}

TEST(CliPlaceList, AnythingElseIsRefused)
{
    for (const char* bad : {"", ",", "1,", "128", "-1", "3-1", "a", "1-", "0-200", "1;2", "1 ,2"})
        EXPECT_FALSE(parsePlaceList(bad, 127)) << bad;
}

TEST(CliTimer, TicksWhenItsIntervalHasPassedAndCountsOnFromTheTick)
{
    CliTimer timer;
    int ticks = 0;
    timer.setTick([&ticks] { ++ticks; });
    timer.setInterval(1000);
    EXPECT_FALSE(timer.due());
    timer.setEnabled(true);
    ASSERT_TRUE(timer.due());
    const auto first = *timer.due();
    EXPECT_FALSE(timer.tickIfDue(first - std::chrono::milliseconds(1)));
    EXPECT_TRUE(timer.tickIfDue(first));
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(*timer.due(), first + std::chrono::milliseconds(1000));
    // Enabling it again while it runs leaves its count alone.
    timer.setEnabled(true);
    EXPECT_EQ(*timer.due(), first + std::chrono::milliseconds(1000));
    timer.setEnabled(false);
    EXPECT_FALSE(timer.tickIfDue(first + std::chrono::hours(1)));
    EXPECT_EQ(ticks, 1);
}

TEST(CliTimer, ATickThatStopsTheTimerLeavesItStopped)
{
    CliTimer timer;
    timer.setTick([&timer] { timer.setEnabled(false); });
    timer.setInterval(10);
    timer.setEnabled(true);
    EXPECT_TRUE(timer.tickIfDue(*timer.due()));
    EXPECT_FALSE(timer.enabled());
}

class CliShow : public ::testing::Test {
protected:
    void SetUp() override
    {
        setenv("QUILLON_MIDI_API", "sim", 1);
        const SysExMessage bank = SimulatedZ1().dumpFor(1);
        ASSERT_TRUE(writeFileAtomically(bankPath, bank));
    }
    void TearDown() override { unsetenv("QUILLON_MIDI_API"); }

    TempFolder folder;
    std::filesystem::path bankPath = folder / "bank.syx";
};

TEST_F(CliShow, WithoutMembersItIsBadUsage)
{
    const CliRun result = run(runShow, {bankPath.string()});
    EXPECT_EQ(result.exitCode, kExitUsage);
    EXPECT_NE(result.err.find("--members is needed"), std::string::npos);
    EXPECT_NE(result.err.find("usage: quillon-cli show"), std::string::npos);
}

TEST_F(CliShow, BadValuesAreBadUsageAndNamed)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"--members", "0-200"}, "--members needs places 0 to 127"},
        {{"--members", "1", "--interval", "2"}, "--interval needs a number from 3 to 30"},
        {{"--members", "1", "--interval", "31"}, "--interval needs a number from 3 to 30"},
        {{"--members", "1", "--arp", "sometimes"}, "--arp needs off, on or patch"},
        {{"--members", "1", "--pattern", "21"}, "--pattern needs a number from 0 to 20"},
        {{"--members", "1", "--chords", "7"}, "--chords needs a number from 0 to 6"},
        {{"--members", "1", "--yes"}, ""},
        {{"--members"}, "--members needs a value"},
    };
    for (const auto& [options, reason] : cases) {
        std::vector<std::string> args{bankPath.string()};
        args.insert(args.end(), options.begin(), options.end());
        const CliRun result = run(runShow, args);
        EXPECT_EQ(result.exitCode, kExitUsage) << options.back();
        EXPECT_NE(result.err.find(reason), std::string::npos) << result.err;
        EXPECT_TRUE(result.out.empty());
    }
}

TEST_F(CliShow, AFileWithoutAPatchBankIsRefused)
{
    const auto patchPath = folder / "patch.syx";
    ASSERT_TRUE(writeFileAtomically(patchPath, SimulatedZ1().dumpFor(0)));
    const CliRun result = run(runShow, {patchPath.string(), "--members", "0"});
    EXPECT_EQ(result.exitCode, kExitBadData);
    EXPECT_NE(result.err.find("holds no patch bank"), std::string::npos);
}

TEST_F(CliShow, AMissingFileIsBadUsage)
{
    const CliRun result = run(runShow, {(folder / "none.syx").string(), "--members", "0"});
    EXPECT_EQ(result.exitCode, kExitUsage);
}

TEST_F(CliShow, AnOutputDeviceThatIsNotThereIsBadUsage)
{
    const CliRun result = run(runShow, {bankPath.string(), "--members", "0", "--out-port", "7"});
    EXPECT_EQ(result.exitCode, kExitUsage);
    EXPECT_NE(result.err.find("no MIDI output device 7"), std::string::npos);
}

}  // namespace
}  // namespace quillon
