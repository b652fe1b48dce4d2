#include "model/NumberFormat.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace quillon {
namespace {

TEST(NumberFormat, RequiredDigitsPadWithLeadingZeros)
{
    EXPECT_EQ(formatNumber(5, "000"), "005");
    EXPECT_EQ(formatNumber(42, "000"), "042");
    EXPECT_EQ(formatNumber(127, "000"), "127");
    EXPECT_EQ(formatNumber(5, "00.0"), "05.0");
}

TEST(NumberFormat, TwoRequiredIntegerDigitsShowTenAsTenPointZero)
{
    EXPECT_EQ(formatNumber(10, "00.0"), "10.0");
    EXPECT_EQ(formatNumber(60, "00.0"), "60.0");
}

TEST(NumberFormat, OptionalDigitsAddNoLeadingZeros)
{
    EXPECT_EQ(formatNumber(5, "#0.0"), "5.0");
    EXPECT_EQ(formatNumber(5, "##0.00"), "5.00");
    EXPECT_EQ(formatNumber(0.5, "#0.0"), "0.5");
    EXPECT_EQ(formatNumber(12.5, "#0.00"), "12.50");
}

TEST(NumberFormat, OptionalDigitsAloneShowNothingForAZeroIntegerPart)
{
    EXPECT_EQ(formatNumber(0.5, "#.00"), ".50");
    EXPECT_EQ(formatNumber(0, "#"), "");
}

TEST(NumberFormat, IntegerPartGrowsBeyondThePattern)
{
    EXPECT_EQ(formatNumber(123.25, "#0.0"), "123.3");
    EXPECT_EQ(formatNumber(1234.5, "0.0"), "1234.5");
    EXPECT_EQ(formatNumber(987, "0"), "987");
}

TEST(NumberFormat, NoThousandsMark)
{
    EXPECT_EQ(formatNumber(1234567, "0"), "1234567");
    EXPECT_EQ(formatNumber(12345.5, "##0.00"), "12345.50");
}

TEST(NumberFormat, RoundsToTheDecimalsShown)
{
    EXPECT_EQ(formatNumber(1.396, "0.00"), "1.40");
    EXPECT_EQ(formatNumber(1.394, "0.00"), "1.39");
    EXPECT_EQ(formatNumber(0.04, "0.0"), "0.0");
    EXPECT_EQ(formatNumber(7.6, "0"), "8");
}

TEST(NumberFormat, RoundsExactHalvesAwayFromZero)
{
    // 0.125, 0.375, 0.625 and 2.5 are exact in binary, so they are true ties.
    EXPECT_EQ(formatNumber(0.125, "0.00"), "0.13");
    EXPECT_EQ(formatNumber(0.375, "0.00"), "0.38");
    EXPECT_EQ(formatNumber(0.625, "0.00"), "0.63");
    EXPECT_EQ(formatNumber(2.5, "0"), "3");
    EXPECT_EQ(formatNumber(3.5, "0"), "4");
    EXPECT_EQ(formatNumber(-0.125, "0.00"), "-0.13");
    EXPECT_EQ(formatNumber(-2.5, "0"), "-3");
}

TEST(NumberFormat, RoundingCarriesIntoTheIntegerPart)
{
    EXPECT_EQ(formatNumber(9.996, "0.00"), "10.00");
    EXPECT_EQ(formatNumber(99.96, "#0.0"), "100.0");
    EXPECT_EQ(formatNumber(-9.96, "0.0"), "-10.0");
}

TEST(NumberFormat, FormatsTheExactBinaryValueNotTheDecimalWritten)
{
    // 0.045 as a double lies just below the half, as a float just above it;
    // 0.005 the other way round.
    EXPECT_EQ(formatNumber(0.045, "0.00"), "0.04");
    EXPECT_EQ(formatNumber(0.045f, "0.00"), "0.05");
    EXPECT_EQ(formatNumber(0.005, "0.00"), "0.01");
    EXPECT_EQ(formatNumber(0.005f, "0.00"), "0.00");
}

TEST(NumberFormat, NegativesGetAMinusSign)
{
    EXPECT_EQ(formatNumber(-1.5, "#0.0"), "-1.5");
    EXPECT_EQ(formatNumber(-0.04, "#0.00"), "-0.04");
    EXPECT_EQ(formatNumber(-24, "#0.0"), "-24.0");
    EXPECT_EQ(formatNumber(-7, "000"), "-007");
}

TEST(NumberFormat, NegativeThatRoundsToZeroHasNoMinusSign)
{
    EXPECT_EQ(formatNumber(-0.001, "0.00"), "0.00");
    EXPECT_EQ(formatNumber(-0.0, "0.0"), "0.0");
}

TEST(NumberFormat, OptionalDecimalsDropTrailingZeros)
{
    EXPECT_EQ(formatNumber(1.5, "0.0#"), "1.5");
    EXPECT_EQ(formatNumber(1.25, "0.0#"), "1.25");
    EXPECT_EQ(formatNumber(1, "0.##"), "1.");
}

TEST(NumberFormat, PatternWithoutPointShowsNoDecimals)
{
    EXPECT_EQ(formatNumber(12.4, "#0"), "12");
    EXPECT_EQ(formatNumber(0.4, "#0"), "0");
}

TEST(NumberFormat, VeryLargeAndVerySmallMagnitudes)
{
    EXPECT_EQ(formatNumber(1e20, "0"), "100000000000000000000");
    EXPECT_EQ(formatNumber(std::numeric_limits<double>::denorm_min(), "0.00"), "0.00");
}

TEST(NumberFormat, NotANumberGivesEmptyText)
{
    EXPECT_EQ(formatNumber(std::numeric_limits<double>::quiet_NaN(), "0.00"), "");
    EXPECT_EQ(formatNumber(std::numeric_limits<double>::infinity(), "0.00"), "");
}

TEST(NumberFormat, PatternWithOtherCharactersIsRejected)
{
    EXPECT_THROW(formatNumber(1, "0,000"), std::invalid_argument);
    EXPECT_THROW(formatNumber(1, "0.0.0"), std::invalid_argument);
    EXPECT_THROW(formatNumber(1, ""), std::invalid_argument);
}

}  // namespace
}  // namespace quillon
