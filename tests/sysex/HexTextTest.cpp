#include "sysex/HexText.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(HexText, ByteIsTwoUpperCaseDigits)
{
    EXPECT_EQ(hexByte(0xAB).text, "AB");
    EXPECT_EQ(hexByte(255).text, "FF");
    EXPECT_EQ(hexByte(16).text, "10");
    EXPECT_TRUE(hexByte(0xAB).error.empty());
}

TEST(HexText, OneDigitGetsALeadingZero)
{
    EXPECT_EQ(hexByte(0).text, "00");
    EXPECT_EQ(hexByte(5).text, "05");
    EXPECT_EQ(hexByte(0x0C).text, "0C");
    EXPECT_TRUE(hexByte(5).error.empty());
}

TEST(HexText, ValueBeyondAByteGives00AndTheFormattingError)
{
    for (const int value : {256, 0xFFF, -1}) {
        const auto result = hexByte(value);
        EXPECT_EQ(result.text, "00") << value;
        EXPECT_EQ(result.error, "Error in formatting as hex") << value;
    }
}

TEST(HexText, FourDigitsReadLowByteFirst)
{
    const auto result = lsbMsbToInteger("3412");
    EXPECT_EQ(result.value, 0x1234);
    EXPECT_TRUE(result.error.empty());
    EXPECT_EQ(lsbMsbToInteger("FFFF").value, 65535);
    EXPECT_EQ(lsbMsbToInteger("0001").value, 256);
    EXPECT_EQ(lsbMsbToInteger("0100").value, 1);
}

TEST(HexText, LowerCaseDigitsAreRead)
{
    EXPECT_EQ(lsbMsbToInteger("ff0a").value, 0x0AFF);
}

TEST(HexText, TextOfAnotherLengthGivesTheErrorAndIsReadAllTheSame)
{
    const auto two = lsbMsbToInteger("12");
    EXPECT_EQ(two.value, 0x12);
    EXPECT_EQ(two.error, "Error in converting LSB/MSB to integer");

    const auto three = lsbMsbToInteger("123");
    EXPECT_EQ(three.value, 0x12 + 256 * 0x3);
    EXPECT_EQ(three.error, "Error in converting LSB/MSB to integer");

    const auto six = lsbMsbToInteger("341278");
    EXPECT_EQ(six.value, 0x1234);
    EXPECT_EQ(six.error, "Error in converting LSB/MSB to integer");

    const auto empty = lsbMsbToInteger("");
    EXPECT_EQ(empty.value, 0);
    EXPECT_EQ(empty.error, "Error in converting LSB/MSB to integer");
}

TEST(HexText, PairReadsAsFarAsItsHexDigitsGo)
{
    EXPECT_EQ(lsbMsbToInteger("1Z00").value, 1);
    EXPECT_EQ(lsbMsbToInteger("ZZ01").value, 256);
}

TEST(HexText, BytesWrittenAsHexReadBackAsTheirNumber)
{
    for (const int number : {0, 1, 255, 256, 4660, 65535}) {
        const auto text = hexByte(number % 256).text + hexByte(number / 256).text;
        EXPECT_EQ(lsbMsbToInteger(text).value, number) << text;
    }
}

}  // namespace
}  // namespace quillon
