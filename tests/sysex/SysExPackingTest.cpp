#include "sysex/SysExPacking.h"

#include "model/Kind.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quillon {
namespace {

ByteImage randomImage(std::size_t size, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> byte(0, 255);
    ByteImage image(size);
    for (auto& b : image)
        b = static_cast<std::uint8_t>(byte(random));
    return image;
}

SysExImage withClosingF7(SysExImage packed)
{
    packed.push_back(0xF7);
    return packed;
}

const int kKinds[] = {1, 2, 3, 4, 5, 6, 7, 8};

TEST(SysexPacking, PackedSizesAreThoseOfTheKindTable)
{
    const int expected[] = {659, 84261, 84261, 238, 293, 3804, 3804, 5852};
    for (int i = 0; i < 8; ++i) {
        const int kind = kKinds[i];
        const auto packed = DATAtoMIDI(kind, ByteImage(static_cast<std::size_t>(byteImageSize(kind))));
        EXPECT_EQ(static_cast<int>(packed.size()), expected[i]) << "kind " << kind;
        EXPECT_EQ(packedImageSize(kind), expected[i]) << "kind " << kind;
    }
}

TEST(SysexPacking, PackingThenUnpackingIsTheIdentityForEveryKind)
{
    for (const int kind : kKinds) {
        const auto image = randomImage(static_cast<std::size_t>(byteImageSize(kind)),
                                       static_cast<unsigned>(kind));
        auto packed = withClosingF7(DATAtoMIDI(kind, image));
        LoadReport report;
        EXPECT_EQ(MIDItoDATA(kind, packed, report), image) << "kind " << kind;
        EXPECT_EQ(report.changeCount(), 0) << "kind " << kind;
    }
}

TEST(SysexPacking, PackingThenUnpackingIsTheIdentityForOddSizes)
{
    for (const std::size_t size : {1u, 2u, 6u, 7u, 8u, 13u, 14u, 15u, 416u, 999u, 6656u}) {
        const auto image = randomImage(size, static_cast<unsigned>(size));
        auto packed = withClosingF7(packBytes(image));
        ASSERT_EQ(packed.size(), size + (size + 6) / 7 + 1);
        LoadReport report;
        EXPECT_EQ(MIDItoDATA(kOtherDump, packed, report), image) << "size " << size;
        EXPECT_EQ(report.changeCount(), 0);
    }
}

TEST(SysexPacking, PackedDataBytesHaveSevenBits)
{
    const auto packed = DATAtoMIDI(kPatchBankA, randomImage(73728, 99));
    for (const auto b : packed)
        ASSERT_LT(b, 0x80);
}

TEST(SysexPacking, AllZeroImagePacksToZerosAndAllFFToSevenFsWithLastFirstByte03)
{
    const auto zeros = DATAtoMIDI(kPatch, ByteImage(576, 0x00));
    ASSERT_EQ(zeros.size(), 659u);
    for (const auto b : zeros)
        EXPECT_EQ(b, 0x00);

    const auto ones = DATAtoMIDI(kPatch, ByteImage(576, 0xFF));
    ASSERT_EQ(ones.size(), 659u);
    for (std::size_t i = 0; i + 3 < ones.size(); ++i)
        EXPECT_EQ(ones[i], 0x7F) << "packed byte " << i + 1;
    EXPECT_EQ(ones[656], 0x03);
    EXPECT_EQ(ones[657], 0x7F);
    EXPECT_EQ(ones[658], 0x7F);
}

TEST(SysexPacking, LastGroupHoldsTheBytesThatRemain)
{
    // For an all-0xFF image the last first byte has one bit per data byte
    // that remains: patch 2, bank 4, multiset 5, pattern 4, multi bank 3,
    // arpeggiator bank 3.
    const int remaining[] = {2, 4, 4, 5, 4, 3, 3, 3};
    for (int i = 0; i < 8; ++i) {
        const int kind = kKinds[i];
        const auto packed = DATAtoMIDI(kind, ByteImage(static_cast<std::size_t>(byteImageSize(kind)), 0xFF));
        const std::size_t lastFirst = packed.size() - static_cast<std::size_t>(remaining[i]) - 1;
        EXPECT_EQ(lastFirst % 8, 0u) << "kind " << kind;
        EXPECT_EQ(packed[lastFirst], (1 << remaining[i]) - 1) << "kind " << kind;
        EXPECT_EQ(packed[lastFirst - 8], 0x7F) << "kind " << kind;
    }
}

TEST(SysexPacking, HighBitOfEachDataByteGoesToItsPlaceInTheFirstByte)
{
    ByteImage image(14, 0x00);
    image[0] = 0x80;   // byte 1: bit 0 of the first group
    image[6] = 0x81;   // byte 7: bit 6 of the first group
    image[9] = 0xC0;   // byte 10: bit 2 of the second group
    const auto packed = packBytes(image);
    ASSERT_EQ(packed.size(), 16u);
    EXPECT_EQ(packed[0], 0x41);
    EXPECT_EQ(packed[1], 0x00);
    EXPECT_EQ(packed[7], 0x01);
    EXPECT_EQ(packed[8], 0x04);
    EXPECT_EQ(packed[11], 0x40);
}

TEST(SysexPacking, PatchImageSurvivesPackingAndUnpackingIn659Bytes)
{
    const auto image = randomImage(576, 576);
    auto packed = DATAtoMIDI(kPatch, image);
    EXPECT_EQ(packed.size(), 659u);
    LoadReport report;
    EXPECT_EQ(MIDItoDATA(kPatch, packed, report), image);
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(SysexPacking, StrayHighBitBehindTheLastPatchByteReportsHiBitsPresentAt660)
{
    SysExImage packed(660, 0x00);
    packed[659] = 0xF7;
    packed[656] = 0x04;  // byte 657, the last first byte: bit 2
    LoadReport report;
    const auto image = MIDItoDATA(kPatch, packed, report);
    ASSERT_EQ(report.changeCount(), 1);
    EXPECT_EQ(report.changeList().at(0), "MIDI byte 660 hiBits present (ignored)");
    EXPECT_EQ(packed[657], 0x00);
    EXPECT_EQ(packed[658], 0x00);
    EXPECT_EQ(packed[659], 0xF7);
    EXPECT_EQ(image, ByteImage(576, 0x00));
}

TEST(SysexPacking, DataByteFFWithItsHighBitAlsoSetReportsHighValue383AndStays255)
{
    SysExImage packed(660, 0x00);
    packed[8] = 0x04;    // byte 9, first byte of the second group: bit 2
    packed[11] = 0xFF;   // byte 12
    LoadReport report;
    const auto image = MIDItoDATA(kPatch, packed, report);
    ASSERT_EQ(report.changeCount(), 1);
    EXPECT_EQ(report.changeList().at(0), "MIDI byte 12 high value 383 changed to 255");
    EXPECT_EQ(packed[11], 0xFF);
    EXPECT_EQ(image[9], 0xFF);  // the tenth data byte
}

TEST(SysexPacking, HighBitsAreAddedToThePackedBufferInPlace)
{
    SysExImage packed(660, 0x00);
    packed[0] = 0x05;   // bits 0 and 2: bytes 2 and 4
    packed[1] = 0x11;
    packed[3] = 0x22;
    LoadReport report;
    const auto image = MIDItoDATA(kPatch, packed, report);
    EXPECT_EQ(packed[0], 0x05);
    EXPECT_EQ(packed[1], 0x91);
    EXPECT_EQ(packed[3], 0xA2);
    EXPECT_EQ(image[0], 0x91);
    EXPECT_EQ(image[2], 0xA2);
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(SysexPacking, SecondUnpackingOfTheSameBufferReportsEveryHighBitAgain)
{
    ByteImage image(576, 0x00);
    image[0] = 0x80;
    image[100] = 0xFF;
    image[575] = 0x9C;
    auto packed = withClosingF7(DATAtoMIDI(kPatch, image));

    LoadReport first;
    EXPECT_EQ(MIDItoDATA(kPatch, packed, first), image);
    EXPECT_EQ(first.changeCount(), 0);

    LoadReport second;
    const auto again = MIDItoDATA(kPatch, packed, second);
    ASSERT_EQ(second.changeCount(), 3);
    // Byte 1 of the image is packed byte 2; byte 101 is packed byte 116;
    // byte 576 is packed byte 659.
    EXPECT_EQ(second.changeList()[0], "MIDI byte 2 high value 256 changed to 128");
    EXPECT_EQ(second.changeList()[1], "MIDI byte 116 high value 383 changed to 255");
    EXPECT_EQ(second.changeList()[2], "MIDI byte 659 high value 284 changed to 156");
    // The bytes that already had bit 7 stay as they are, so the image reads
    // the same as before.
    EXPECT_EQ(again, image);
}

TEST(SysexPacking, BitSevenOfAFirstByteIsIgnored)
{
    SysExImage packed(660, 0x00);
    packed[0] = 0x80;
    packed[1] = 0x12;
    packed[8] = 0x81;   // bit 7 ignored, bit 0 sets the high bit of byte 10
    packed[9] = 0x01;
    packed[659] = 0xF7;
    SysExImage expected = packed;
    expected[9] = 0x81;
    LoadReport report;
    const auto image = MIDItoDATA(kPatch, packed, report);
    EXPECT_EQ(report.changeCount(), 0);
    EXPECT_EQ(image[0], 0x12);
    EXPECT_EQ(image[7], 0x81);
    // Only byte 10 changed: neither first byte nor the first byte of the
    // group behind took anything from bit 7.
    EXPECT_EQ(packed, expected);
}

TEST(SysexPacking, DataByteWithBit7AndNoHighBitIsKeptWithoutReport)
{
    SysExImage packed(660, 0x00);
    packed[5] = 0x85;
    LoadReport report;
    const auto image = MIDItoDATA(kPatch, packed, report);
    EXPECT_EQ(report.changeCount(), 0);
    EXPECT_EQ(image[4], 0x85);
}

TEST(SysexPacking, ReportsStopAtAHundredTextsButCountOn)
{
    // Every first byte 7F and every data byte FF: 576 bytes that already have
    // bit 7, and five bits of the last first byte behind the data.
    SysExImage packed(659, 0xFF);
    for (std::size_t i = 0; i < packed.size(); i += 8)
        packed[i] = 0x7F;
    LoadReport report;
    const auto image = MIDItoDATA(kPatch, packed, report);
    EXPECT_EQ(report.changeCount(), 581);
    ASSERT_EQ(report.changeList().size(), 100u);
    EXPECT_EQ(report.changeList().front(), "MIDI byte 2 high value 383 changed to 255");
    EXPECT_EQ(report.changeList().back(), "MIDI byte 115 high value 383 changed to 255");
    EXPECT_EQ(image, ByteImage(576, 0xFF));
}

TEST(SysexPacking, ReportsJoinWhatTheCounterAlreadyHolds)
{
    LoadReport report;
    report.add("earlier");
    SysExImage packed(660, 0x00);
    packed[656] = 0x08;   // bit 3 points at byte 661
    MIDItoDATA(kPatch, packed, report);
    ASSERT_EQ(report.changeCount(), 2);
    EXPECT_EQ(report.changeList()[0], "earlier");
    EXPECT_EQ(report.changeList()[1], "MIDI byte 661 hiBits present (ignored)");
}

TEST(SysexPacking, ClosingF7BehindTheDataIsNotData)
{
    const auto image = randomImage(208, 208);
    const auto bare = DATAtoMIDI(kMultiset, image);
    auto withEnd = withClosingF7(bare);
    auto without = bare;
    LoadReport report;
    EXPECT_EQ(MIDItoDATA(kMultiset, withEnd, report), image);
    EXPECT_EQ(MIDItoDATA(kMultiset, without, report), image);
    EXPECT_EQ(withEnd.back(), 0xF7);
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(SysexPacking, ShortBufferIsFilledUpWithZeros)
{
    SysExImage packed{0x01, 0x05, 0x06};
    LoadReport report;
    const auto image = MIDItoDATA(kPattern, packed, report);
    ASSERT_EQ(image.size(), 256u);
    EXPECT_EQ(image[0], 0x85);
    EXPECT_EQ(image[1], 0x06);
    for (std::size_t i = 2; i < image.size(); ++i)
        ASSERT_EQ(image[i], 0x00);
    EXPECT_EQ(packed.size(), 293u);
}

TEST(SysexPacking, OtherDumpReadsTheWholeBufferButItsLastByte)
{
    const auto image = randomImage(416, 416);
    auto packed = withClosingF7(packBytes(image));
    ASSERT_EQ(packed.size(), 477u);
    LoadReport report;
    const auto unpacked = MIDItoDATA(kOtherDump, packed, report);
    EXPECT_EQ(unpacked, image);
    EXPECT_EQ(packed.back(), 0xF7);
}

TEST(SysexPacking, OtherDumpBitPointingAtTheClosingByteIsReported)
{
    // Nine bytes of data and the F7: the second group holds one data byte,
    // so bit 1 of its first byte points at byte 11, behind the data.
    SysExImage packed(11, 0x00);
    packed[8] = 0x02;
    packed[10] = 0xF7;
    LoadReport report;
    const auto image = MIDItoDATA(kOtherDump, packed, report);
    EXPECT_EQ(image.size(), 8u);
    ASSERT_EQ(report.changeCount(), 1);
    EXPECT_EQ(report.changeList()[0], "MIDI byte 11 hiBits present (ignored)");
    EXPECT_EQ(packed[10], 0xF7);
}

TEST(SysexPacking, OtherDumpOfOnlyTheClosingByteIsEmpty)
{
    SysExImage onlyEnd{0xF7};
    SysExImage nothing;
    LoadReport report;
    EXPECT_TRUE(MIDItoDATA(kOtherDump, onlyEnd, report).empty());
    EXPECT_TRUE(MIDItoDATA(kOtherDump, nothing, report).empty());
    EXPECT_EQ(report.changeCount(), 0);
}

TEST(SysexPacking, KindsWithoutPackedDataAreIgnored)
{
    SysExImage packed(20, 0x7F);
    const SysExImage before = packed;
    LoadReport report;
    EXPECT_TRUE(MIDItoDATA(0, packed, report).empty());
    EXPECT_TRUE(MIDItoDATA(10, packed, report).empty());
    EXPECT_EQ(packed, before);
    EXPECT_EQ(report.changeCount(), 0);
    EXPECT_TRUE(DATAtoMIDI(0, ByteImage(10, 1)).empty());
    EXPECT_TRUE(DATAtoMIDI(kOtherDump, ByteImage(10, 1)).empty());
}

TEST(SysexPacking, ShortImageIsPackedAsIfFilledUpWithZeros)
{
    ByteImage image(10, 0xFF);
    const auto packed = DATAtoMIDI(kPatch, image);
    ASSERT_EQ(packed.size(), 659u);
    EXPECT_EQ(packed[0], 0x7F);
    EXPECT_EQ(packed[8], 0x07);
    EXPECT_EQ(packed[16], 0x00);
    EXPECT_EQ(image, ByteImage(10, 0xFF));
}

TEST(SysexPacking, PackingNothingGivesNothing)
{
    EXPECT_TRUE(packBytes({}).empty());
}

}  // namespace
}  // namespace quillon
