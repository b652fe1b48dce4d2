#include "model/BitFields.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(BitFields, GetBitsMovesTheFieldDown)
{
    EXPECT_EQ(getBits(0b1011'0110, 0, 7), 0b1011'0110);
    EXPECT_EQ(getBits(0b1011'0110, 4, 6), 0b011);
    EXPECT_EQ(getBits(0b1000'0000, 7, 7), 1);
    EXPECT_EQ(getBits(0b0111'1111, 7, 7), 0);
}

TEST(BitFields, ReversedFieldReadsZero)
{
    EXPECT_EQ(getBits(0xFF, 6, 0), 0);
}

TEST(BitFields, SetBitsReplacesOnlyTheField)
{
    EXPECT_EQ(setBits(0xFF, 4, 6, 0), 0b1000'1111);
    EXPECT_EQ(setBits(0x00, 0, 3, 0x1F), 0x0F);
    EXPECT_EQ(setBits(0x00, 7, 7, 1), 0x80);
}

TEST(BitFields, ReversedFieldLeavesTheByte)
{
    EXPECT_EQ(setBits(0xA5, 6, 0, 0xFF), 0xA5);
}

}  // namespace
}  // namespace quillon
