#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

const ParamDef& patchRow(int r) { return paramTables().patch[r]; }

// A patch image holding one byte at the place of a row.
ByteImage patchWithByte(const ParamDef& def, std::uint8_t value)
{
    ByteImage image(kPatchBytes, 0);
    image[def.startB / 8 - 1] = value;
    return image;
}

std::int16_t readFromByte(const ParamDef& def, std::uint8_t value, LoadReport& report)
{
    return readParam(def, patchWithByte(def, value), report);
}

TEST(ParamImage, SignedRowReadsAByteAboveMaxAsNegative)
{
    const ParamDef& startLevel = patchRow(31);
    ASSERT_EQ(startLevel.min, -99);
    ASSERT_EQ(startLevel.max, 99);
    LoadReport report;
    EXPECT_EQ(readFromByte(startLevel, 0xFF, report), -1);
    EXPECT_EQ(readFromByte(startLevel, 0x9D, report), -99);
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(ParamImage, SignedRowClampsByte100ToMinAndReportsFromMinus156)
{
    LoadReport report;
    EXPECT_EQ(readFromByte(patchRow(31), 100, report), -99);
    ASSERT_EQ(report.changeCount(), 1);
    EXPECT_EQ(report.changeList()[0], "Start Level (31) value changed from -156 to -99");
}

TEST(ParamImage, FullRangeRowTakesEveryByteAsItStands)
{
    const ParamDef& reserved = patchRow(321);
    ASSERT_EQ(reserved.min, 0);
    ASSERT_EQ(reserved.max, 255);
    LoadReport report;
    for (int b = 0; b <= 255; ++b)
        EXPECT_EQ(readFromByte(reserved, static_cast<std::uint8_t>(b), report), b);
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(ParamImage, PatternReservedRowWithMinus255To255TakesEveryByteAsItStands)
{
    const ParamDef& reserved = paramTables().arp[33];
    ASSERT_EQ(reserved.name, "reserved");
    ASSERT_EQ(reserved.min, -255);
    ASSERT_EQ(reserved.max, 255);
    LoadReport report;
    for (int b = 0; b <= 255; ++b) {
        ByteImage image(kPatternBytes, 0);
        image[reserved.startB / 8 - 1] = static_cast<std::uint8_t>(b);
        EXPECT_EQ(readParam(reserved, image, report), b);
    }
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(ParamImage, Row603ReadsFFAsMinus1AndDecodesOff)
{
    const ParamDef& row = patchRow(603);
    ASSERT_EQ(row.min, -1);
    ASSERT_EQ(row.max, 99);
    LoadReport report;
    const auto v = readFromByte(row, 0xFF, report);
    EXPECT_EQ(v, -1);
    EXPECT_EQ(decodeValue(row.table, v), "OFF");
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(ParamImage, MultiEffectSendReads102AsMinus154AndClampsTo0)
{
    const ParamDef& send = paramTables().multi[26];
    ASSERT_EQ(send.name, "Effect Send");
    ASSERT_EQ(send.min, 0);
    ASSERT_EQ(send.max, 101);
    ByteImage image(kMultiBytes, 0);
    image[send.startB / 8 - 1] = 102;
    LoadReport report;
    EXPECT_EQ(readParam(send, image, report), 0);
    ASSERT_EQ(report.changeCount(), 1);
    EXPECT_EQ(report.changeList()[0], "Effect Send (26) value changed from -154 to 0");
}

TEST(ParamImage, OneBitRow169ReadsItsSetBitAsOne)
{
    const ParamDef& portamento = patchRow(169);
    ASSERT_EQ(portamento.startB, portamento.endB);
    LoadReport report;
    EXPECT_EQ(readFromByte(portamento, 0x01, report), 1);
    EXPECT_EQ(readFromByte(portamento, 0xFE, report), 0);
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(ParamImage, NarrowRowsWhoseFieldFitsTheirRangeAreNeverAboveMax)
{
    // A field of w bits holds at most 2^w - 1; wherever the range reaches
    // that far, no byte can make the row report.
    for (int r = 1; r <= kPatchParams; ++r) {
        const ParamDef& def = patchRow(r);
        const int width = def.endB - def.startB + 1;
        if (def.startB < 8 || width < 1 || width >= 8 || def.max < (1 << width) - 1 || def.min > 0)
            continue;
        LoadReport report;
        for (int b = 0; b <= 255; ++b)
            readFromByte(def, static_cast<std::uint8_t>(b), report);
        EXPECT_EQ(report.changeCount(), 0) << "row " << r;
    }
}

TEST(ParamImage, NarrowRowBelowItsFieldClampsToMin)
{
    // Key Priority: two bits, range 0 to 2. A field holding 3 lies above Max,
    // counts as 3 - 256 and is brought up to Min.
    const ParamDef& keyPriority = patchRow(20);
    ASSERT_EQ(keyPriority.max, 2);
    LoadReport report;
    EXPECT_EQ(readFromByte(keyPriority, static_cast<std::uint8_t>(3 << (keyPriority.startB % 8)), report), 0);
    ASSERT_EQ(report.changeCount(), 1);
    EXPECT_EQ(report.changeList()[0], "Key Priority (20) value changed from -253 to 0");
}

TEST(ParamImage, WritingMinus1IntoAFullByteGivesFF)
{
    ByteImage image(kPatchBytes, 0);
    writeParam(patchRow(31), -1, image);
    EXPECT_EQ(image[patchRow(31).startB / 8 - 1], 0xFF);
}

TEST(ParamImage, NarrowFieldTakesTheLowBitsOfValuePlus256)
{
    // Rows 118 to 120 share one byte: MIDI Sync Time in bits 0-3.
    const ParamDef& syncTime = patchRow(120);
    ByteImage image(kPatchBytes, 0xFF);
    writeParam(syncTime, -3, image);  // -3 + 256 = 253 = 0b1111'1101
    EXPECT_EQ(image[syncTime.startB / 8 - 1], 0xFD);
    writeParam(syncTime, 2, image);
    EXPECT_EQ(image[syncTime.startB / 8 - 1], 0xF2);
}

TEST(ParamImage, HundredFiftyClampedValuesCountAll150AndKeep100Texts)
{
    ParamValues values = paramTables().patchDefaults;
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    int broken = 0;
    std::vector<bool> used(kPatchBytes, false);
    for (int r = 17; r <= 463 && broken < 150; ++r) {
        const ParamDef& def = patchRow(r);
        const std::size_t at = def.startB / 8 - 1;
        if (def.endB - def.startB != 7 || def.min < 0 || def.max >= 255 || used[at])
            continue;
        used[at] = true;
        image[at] = static_cast<std::uint8_t>(def.max + 1);
        ++broken;
    }
    ASSERT_EQ(broken, 150);
    LoadReport report;
    imageToPatchParams(image, values, report);
    EXPECT_EQ(report.changeCount(), 150);
    EXPECT_EQ(report.changeList().size(), 100u);
}

TEST(ParamImage, ReadingFollowsTheOscillatorTypeInHand)
{
    ParamValues values = paramTables().patchDefaults;
    ByteImage image(kPatchBytes, 0);
    values[174] = 10;  // Reed Model
    patchParamsToImage(values, image);
    const auto rows = rowsInForce(kPatch, values);
    for (int r : rows) {
        if (r >= 464 && r <= 754) {
            EXPECT_EQ(patchRow(r).sect, 430) << r;
        }
    }
    EXPECT_NE(std::find(rows.begin(), rows.end(), 690), rows.end());
    EXPECT_EQ(std::find(rows.begin(), rows.end(), 464), rows.end());
}

TEST(ParamImage, WritingKeepsBitsThatNoRowDescribes)
{
    // Bits 157 to 159 of the first common byte belong to no row.
    ByteImage image(kPatchBytes, 0);
    image[19 - 1] = 0xE0;
    patchParamsToImage(paramTables().patchDefaults, image);
    EXPECT_EQ(image[19 - 1] & 0xE0, 0xE0);
}

}  // namespace
}  // namespace quillon
