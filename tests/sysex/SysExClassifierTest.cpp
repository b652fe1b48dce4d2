#include "sysex/SysExClassifier.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

namespace quillon {
namespace {

std::vector<std::uint8_t> headerWithFunction(std::uint8_t function)
{
    return {0xF0, 0x42, 0x30, 0x46, function};
}

TEST(SysExClassifier, FunctionCodesGiveTheirTypes)
{
    EXPECT_EQ(classifySysEx(headerWithFunction(0x40)), kSysExPatch);
    EXPECT_EQ(classifySysEx(headerWithFunction(0x49)), kSysExSingleMulti);
    EXPECT_EQ(classifySysEx(headerWithFunction(0x4C)), kSysExAllProgram);
    EXPECT_EQ(classifySysEx(headerWithFunction(0x4D)), kSysExAllMulti);
    EXPECT_EQ(classifySysEx(headerWithFunction(0x50)), kSysExAllData);
    EXPECT_EQ(classifySysEx(headerWithFunction(0x51)), kSysExGlobalOrMidi);
    EXPECT_EQ(classifySysEx(headerWithFunction(0x69)), kSysExArpBank);
    EXPECT_EQ(classifySysEx(headerWithFunction(0x6B)), kSysExSinglePattern);
}

TEST(SysExClassifier, TypeNumbersAreThoseOfTheTypeList)
{
    EXPECT_EQ(kSysExAllData, 1);
    EXPECT_EQ(kSysExAllProgram, 2);
    EXPECT_EQ(kSysExPatchBank, 3);
    EXPECT_EQ(kSysExPatch, 4);
    EXPECT_EQ(kSysExAllMulti, 5);
    EXPECT_EQ(kSysExMultiBank, 6);
    EXPECT_EQ(kSysExSingleMulti, 7);
    EXPECT_EQ(kSysExArpBank, 8);
    EXPECT_EQ(kSysExSinglePattern, 9);
    EXPECT_EQ(kSysExGlobalOrMidi, 10);
    EXPECT_EQ(kSysExGlobalAndMidi, 11);
    EXPECT_EQ(kSysExNonZ1, 12);
}

TEST(SysExClassifier, UnknownFunctionCodeOfTheZ1IsNonZ1)
{
    for (int function = 0; function < 256; ++function) {
        switch (function) {
        case 0x40: case 0x49: case 0x4C: case 0x4D:
        case 0x50: case 0x51: case 0x69: case 0x6B:
            continue;
        default:
            EXPECT_EQ(classifySysEx(headerWithFunction(static_cast<std::uint8_t>(function))),
                      kSysExNonZ1)
                << "function " << function;
        }
    }
}

TEST(SysExClassifier, FewerThanFiveBytesGiveZero)
{
    const std::vector<std::uint8_t> four{0xF0, 0x42, 0x30, 0x46};
    EXPECT_EQ(classifySysEx(four), 0);
    EXPECT_EQ(classifySysEx(std::span<const std::uint8_t>{}), 0);
}

TEST(SysExClassifier, MoreThanFiveBytesAreJudgedByTheFirstFive)
{
    const std::vector<std::uint8_t> longer{0xF0, 0x42, 0x3F, 0x46, 0x40, 0x01, 0x7F, 0xF7};
    EXPECT_EQ(classifySysEx(longer), kSysExPatch);
}

TEST(SysExClassifier, EachWrongHeaderByteGivesZero)
{
    auto bytes = headerWithFunction(0x40);
    bytes[0] = 0xF7;
    EXPECT_EQ(classifySysEx(bytes), 0);
    bytes = headerWithFunction(0x40);
    bytes[1] = 0x41;
    EXPECT_EQ(classifySysEx(bytes), 0);
    bytes = headerWithFunction(0x40);
    bytes[3] = 0x47;
    EXPECT_EQ(classifySysEx(bytes), 0);
}

TEST(SysExClassifier, ChannelByteMustLieIn30To3F)
{
    auto bytes = headerWithFunction(0x40);
    for (int channelByte = 0; channelByte < 256; ++channelByte) {
        bytes[2] = static_cast<std::uint8_t>(channelByte);
        const int expected = (channelByte >= 0x30 && channelByte <= 0x3F) ? kSysExPatch : 0;
        EXPECT_EQ(classifySysEx(bytes), expected) << "channel byte " << channelByte;
    }
}

TEST(SysExClassifier, LabelsNameEveryType)
{
    EXPECT_EQ(sysExTypeLabel(1), "all Z1");
    EXPECT_EQ(sysExTypeLabel(2), "all program");
    EXPECT_EQ(sysExTypeLabel(3), "bank");
    EXPECT_EQ(sysExTypeLabel(4), "patch");
    EXPECT_EQ(sysExTypeLabel(5), "all multi");
    EXPECT_EQ(sysExTypeLabel(6), "multi A/B");
    EXPECT_EQ(sysExTypeLabel(7), "single multi");
    EXPECT_EQ(sysExTypeLabel(8), "arpeggiator");
    EXPECT_EQ(sysExTypeLabel(9), "single arpeggiator");
    EXPECT_EQ(sysExTypeLabel(10), "global/MIDI");
    EXPECT_EQ(sysExTypeLabel(11), "global & MIDI");
    EXPECT_EQ(sysExTypeLabel(12), "non-Z1");
}

TEST(SysExClassifier, NumbersOutsideTheListHaveNoLabel)
{
    EXPECT_EQ(sysExTypeLabel(0), "");
    EXPECT_EQ(sysExTypeLabel(13), "");
    EXPECT_EQ(sysExTypeLabel(-1), "");
}

}  // namespace
}  // namespace quillon
