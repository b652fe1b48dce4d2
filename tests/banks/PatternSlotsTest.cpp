#include "banks/PatternSlots.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(PatternSlots, UserPatternsAreNamedByGroupAndPlace)
{
    EXPECT_EQ(patternSlotName(5), "U1-1");
    EXPECT_EQ(patternSlotName(9), "U1-5");
    EXPECT_EQ(patternSlotName(10), "U2-1");
    EXPECT_EQ(patternSlotName(19), "U3-5");
}

TEST(PatternSlots, PresetsAndOtherNumbersHaveNoSlotName)
{
    EXPECT_EQ(patternSlotName(0), "");
    EXPECT_EQ(patternSlotName(4), "");
    EXPECT_EQ(patternSlotName(20), "");
    EXPECT_EQ(patternSlotName(-1), "");
}

}  // namespace
}  // namespace quillon
