#include "banks/GenerationRule.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quillon {
namespace {

TEST(GenerationRule, HalvesRoundToTheEvenNeighbour)
{
    EXPECT_EQ(roundHalfToEven(0.5), 0);
    EXPECT_EQ(roundHalfToEven(1.5), 2);
    EXPECT_EQ(roundHalfToEven(2.5), 2);
    EXPECT_EQ(roundHalfToEven(3.5), 4);
    EXPECT_EQ(roundHalfToEven(-0.5), 0);
    EXPECT_EQ(roundHalfToEven(-2.5), -2);
    EXPECT_EQ(roundHalfToEven(-3.5), -4);
    EXPECT_EQ(roundHalfToEven(60.5), 60);
    EXPECT_EQ(roundHalfToEven(-38.5), -38);
}

TEST(GenerationRule, OtherValuesRoundToTheNearest)
{
    EXPECT_EQ(roundHalfToEven(2.49), 2);
    EXPECT_EQ(roundHalfToEven(2.51), 3);
    EXPECT_EQ(roundHalfToEven(-2.51), -3);
    EXPECT_EQ(roundHalfToEven(-2.49), -2);
    EXPECT_EQ(roundHalfToEven(7.0), 7);
}

TEST(GenerationRule, TheSpanIsRangeTimesPercentOverAHundred)
{
    EXPECT_FLOAT_EQ(generationSpan(-99, 99, 50), 99.0F);
    EXPECT_FLOAT_EQ(generationSpan(0, 99, 1), 0.99F);
    EXPECT_FLOAT_EQ(generationSpan(0, 99, 0), 0.0F);
}

TEST(GenerationRule, AProductBeyondSixteenBitsIsAnOverflow)
{
    EXPECT_EQ(rangeTimesPercent(-99, 99, 165), 32670);
    EXPECT_THROW(rangeTimesPercent(-99, 99, 166), std::overflow_error);
    EXPECT_THROW(rangeTimesPercent(0, 199, -200), std::overflow_error);
    try {
        rangeTimesPercent(0, 1000, 100);
        FAIL() << "no overflow";
    } catch (const std::overflow_error& error) {
        EXPECT_STREQ(error.what(), "Overflow");
    }
}

TEST(GenerationRule, SpreadWalksFromTheLowEndToTheHighEnd)
{
    // base 11, span 99: the low end is -38.5.
    EXPECT_EQ(spreadRuleValue(11, -99, 99, 99.0F, 0), -38);
    EXPECT_EQ(spreadRuleValue(11, -99, 99, 99.0F, 1), -38);
    EXPECT_EQ(spreadRuleValue(11, -99, 99, 99.0F, 63), 11);
    EXPECT_EQ(spreadRuleValue(11, -99, 99, 99.0F, 64), 11);
    EXPECT_EQ(spreadRuleValue(11, -99, 99, 99.0F, 127), 60);
}

TEST(GenerationRule, SpreadIsHeldWithinTheRange)
{
    EXPECT_EQ(spreadRuleValue(95, 0, 99, 50.0F, 127), 99);
    EXPECT_EQ(spreadRuleValue(2, 0, 99, 50.0F, 0), 0);
}

TEST(GenerationRule, RandomStartsAtTheLowEndAndSpansOneMoreThanTheWidth)
{
    // base 50, width 10: lo 45, the values 45 .. 56 rounded.
    EXPECT_EQ(randomRuleValue(50, 0, 99, 10.0F, 0.0F), 45);
    EXPECT_EQ(randomRuleValue(50, 0, 99, 10.0F, 0.5F), 50);   // 50.5 goes to 50
    EXPECT_EQ(randomRuleValue(50, 0, 99, 10.0F, 0.99F), 56);  // 55.89
}

TEST(GenerationRule, RandomMovesTheSpanInsideTheRange)
{
    // Near Min the low end is raised to Min.
    EXPECT_EQ(randomRuleValue(2, 0, 99, 20.0F, 0.0F), 0);
    // Near Max the span is moved down so that it ends at Max, and a value
    // above Max is lowered to it.
    EXPECT_EQ(randomRuleValue(98, 0, 99, 20.0F, 0.0F), 79);
    EXPECT_EQ(randomRuleValue(98, 0, 99, 20.0F, 0.999F), 99);
}

}  // namespace
}  // namespace quillon
