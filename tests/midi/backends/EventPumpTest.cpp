#include "midi/backends/EventPump.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace quillon {
namespace {

TEST(EventPump, EventsWaitUntilTheOwnerRunsThemAndKeepTheirOrder)
{
    QueuedEventPump pump;
    std::vector<int> seen;
    pump.post([&] { seen.push_back(1); });
    pump.post([&] { seen.push_back(2); });
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(pump.runPending(), 2);
    EXPECT_EQ(seen, (std::vector<int>{1, 2}));
    EXPECT_TRUE(pump.empty());
}

TEST(EventPump, AnEventPostedByAnEventRunsInTheSameRound)
{
    QueuedEventPump pump;
    int ran = 0;
    pump.post([&] {
        ++ran;
        pump.post([&] { ++ran; });
    });
    EXPECT_EQ(pump.runPending(), 2);
    EXPECT_EQ(ran, 2);
}

TEST(EventPump, WaitingReturnsWhenAnotherThreadPosts)
{
    QueuedEventPump pump;
    bool ran = false;
    std::thread poster([&] { pump.post([&] { ran = true; }); });
    EXPECT_TRUE(pump.waitAndRun(std::chrono::seconds(10)));
    poster.join();
    EXPECT_TRUE(ran);
}

TEST(EventPump, WaitingWithNothingPostedGivesUp)
{
    QueuedEventPump pump;
    EXPECT_FALSE(pump.waitAndRun(std::chrono::milliseconds(1)));
}

}  // namespace
}  // namespace quillon
