#include "sysex/SysExFraming.h"

#include "sysex/SysExBytes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillon {
namespace {

// A message of the given length: header F0 42 3n 46 function, then bytes
// counting up from 1 (seven bits each), and the closing F7.
std::vector<std::uint8_t> messageOf(std::size_t length, std::uint8_t function,
                                    std::uint8_t channelByte = 0x30)
{
    std::vector<std::uint8_t> message(length);
    for (std::size_t i = 0; i < length; ++i)
        message[i] = static_cast<std::uint8_t>((i + 1) & 0x7F);
    message[0] = 0xF0;
    message[1] = 0x42;
    message[2] = channelByte;
    message[3] = 0x46;
    message[4] = function;
    message[length - 1] = 0xF7;
    return message;
}

struct ExpectedShape {
    int length;
    int headerBytes;
    int copied;
    std::vector<std::uint8_t> acceptedFunctions;
    int target;  // with bank targets 3 and 7
};

const std::vector<ExpectedShape>& expectedShapes()
{
    static const std::vector<ExpectedShape> shapes{
        {668, 8, 660, {0x4C, 0x40}, 1},
        {666, 6, 660, {0x4C, 0x40}, 1},
        {300, 6, 294, {0x69, 0x6B}, 5},
        {301, 7, 294, {0x69, 0x6B}, 5},
        {245, 6, 239, {0x4D, 0x49}, 4},
        {248, 9, 239, {0x4D, 0x49}, 4},
        {3814, 9, 3805, {0x4D}, 7},
        {5860, 7, 5853, {0x69}, 8},
        {84270, 8, 84262, {0x4C}, 3},
    };
    return shapes;
}

const std::vector<std::uint8_t> kAllFunctions{0x40, 0x49, 0x4C, 0x4D, 0x50, 0x51, 0x69, 0x6B, 0x12};

TEST(SysexFraming, PatchIsAcceptedAt666BytesWithBankCodeAndAt668WithPatchCode)
{
    const auto short666 = messageOf(666, 0x4C);
    const auto long668 = messageOf(668, 0x40);

    const auto a = STRINGtoMIDI(short666, 2, 6);
    ASSERT_TRUE(a.handled);
    EXPECT_TRUE(a.success);
    EXPECT_EQ(a.target, 1);
    EXPECT_EQ(a.packed.size(), 660u);

    const auto b = STRINGtoMIDI(long668, 2, 6);
    ASSERT_TRUE(b.handled);
    EXPECT_TRUE(b.success);
    EXPECT_EQ(b.target, 1);
    EXPECT_EQ(b.packed.size(), 660u);
}

TEST(SysexFraming, ChannelByte3FReadsAsChannel16)
{
    const auto result = STRINGtoMIDI(messageOf(666, 0x40, 0x3F), 2, 6);
    ASSERT_TRUE(result.success);
    EXPECT_EQ(result.channel, 16);
}

TEST(SysexFraming, EveryChannelByteReadsAsItsChannel)
{
    for (int channel = 1; channel <= 16; ++channel) {
        const auto byte = static_cast<std::uint8_t>(0x30 + channel - 1);
        const auto result = STRINGtoMIDI(messageOf(245, 0x49, byte), 2, 6);
        ASSERT_TRUE(result.success);
        EXPECT_EQ(result.channel, channel);
    }
}

TEST(SysexFraming, BankDumpGoesToTheCallersBankWhateverItsSubHeaderSays)
{
    auto toB = messageOf(84270, 0x4C);
    toB[5] = 0x11;
    EXPECT_EQ(STRINGtoMIDI(toB, 2, 6).target, 2);
    EXPECT_EQ(STRINGtoMIDI(toB, 3, 6).target, 3);

    auto toA = messageOf(84270, 0x4C);
    toA[5] = 0x10;
    EXPECT_EQ(STRINGtoMIDI(toA, 3, 6).target, 3);
}

TEST(SysexFraming, MultiBankDumpGoesToTheCallersMultiBankWhateverItsSubHeaderSays)
{
    auto message = messageOf(3814, 0x4D);
    message[6] = 0x10;
    EXPECT_EQ(STRINGtoMIDI(message, 2, 7).target, 7);
    message[6] = 0x11;
    EXPECT_EQ(STRINGtoMIDI(message, 2, 6).target, 6);
}

TEST(SysexFraming, EveryLengthCopiesTheBytesBehindItsHeaderWithTheClosingF7)
{
    for (const auto& shape : expectedShapes()) {
        const auto message = messageOf(static_cast<std::size_t>(shape.length),
                                       shape.acceptedFunctions.front());
        const auto result = STRINGtoMIDI(message, 3, 7);
        ASSERT_TRUE(result.handled) << shape.length;
        ASSERT_TRUE(result.success) << shape.length;
        EXPECT_EQ(result.target, shape.target) << shape.length;
        ASSERT_EQ(static_cast<int>(result.packed.size()), shape.copied) << shape.length;
        EXPECT_EQ(shape.headerBytes + shape.copied, shape.length);
        const std::vector<std::uint8_t> behindHeader(message.begin() + shape.headerBytes,
                                                     message.end());
        EXPECT_EQ(result.packed, behindHeader) << shape.length;
        EXPECT_EQ(result.packed.back(), 0xF7) << shape.length;
    }
}

TEST(SysexFraming, EveryLengthAcceptsItsTypesAndRefusesTheOthers)
{
    for (const auto& shape : expectedShapes()) {
        for (const std::uint8_t function : kAllFunctions) {
            const auto message = messageOf(static_cast<std::size_t>(shape.length), function);
            const auto result = STRINGtoMIDI(message, 2, 6);
            bool accepted = false;
            for (const auto f : shape.acceptedFunctions)
                accepted = accepted || f == function;
            EXPECT_TRUE(result.handled);
            EXPECT_EQ(result.success, accepted)
                << "length " << shape.length << " function " << int(function);
        }
    }
}

TEST(SysexFraming, ShapesTableHoldsTheNineLengths)
{
    const auto shapes = messageShapes();
    ASSERT_EQ(shapes.size(), expectedShapes().size());
    for (const auto& expected : expectedShapes()) {
        const MessageShape* shape = findMessageShape(static_cast<std::size_t>(expected.length));
        ASSERT_NE(shape, nullptr) << expected.length;
        EXPECT_EQ(shape->headerBytes, expected.headerBytes);
        EXPECT_EQ(shape->copiedBytes(), expected.copied);
    }
    EXPECT_EQ(findMessageShape(667), nullptr);
}

TEST(SysexFraming, TheInstrumentsOwnPatternDumpOf301BytesGivesThePatternBehindItsSevenHeaderBytes)
{
    std::vector<std::uint8_t> message(301, 0x11);
    message[0] = 0xF0;
    message[1] = 0x42;
    message[2] = 0x30;
    message[3] = 0x46;
    message[4] = 0x69;
    message[5] = 0x00;
    message[6] = 0x07;  // the pattern's number in the bank
    message[7] = 0x55;
    message.back() = 0xF7;
    const auto result = STRINGtoMIDI(message, 2, 6);
    ASSERT_TRUE(result.success);
    EXPECT_EQ(result.target, 5);
    ASSERT_EQ(result.packed.size(), 294u);
    EXPECT_EQ(result.packed.front(), 0x55);
    EXPECT_EQ(result.packed.back(), 0xF7);
}

TEST(SysexFraming, UnknownLengthsDoNothing)
{
    for (const std::size_t length :
         {0u, 4u, 5u, 244u, 246u, 299u, 302u, 483u, 665u, 667u, 669u, 966u, 3813u, 3815u,
          5859u, 5861u, 7617u, 84269u, 84271u, 168531u, 182939u}) {
        std::vector<std::uint8_t> message(length, 0x00);
        if (length >= 5) {
            message = messageOf(length, 0x40);
        }
        const auto result = STRINGtoMIDI(message, 2, 6);
        EXPECT_FALSE(result.handled) << length;
        EXPECT_FALSE(result.success) << length;
        EXPECT_TRUE(result.packed.empty()) << length;
        EXPECT_EQ(result.target, 0) << length;
        EXPECT_EQ(result.channel, 0) << length;
        EXPECT_TRUE(result.errorText.empty()) << length;
        EXPECT_FALSE(result.clearStatusLine) << length;
    }
}

TEST(SysexFraming, BadHeaderShowsProblemWithSysExHeaderAndEmptiesTheStatusLine)
{
    auto message = messageOf(666, 0x40);
    message[1] = 0x41;
    const auto result = STRINGtoMIDI(message, 2, 6);
    EXPECT_TRUE(result.handled);
    EXPECT_FALSE(result.success);
    EXPECT_EQ(result.errorTitle, "Converting MIDI Data");
    EXPECT_EQ(result.errorText, "Problem with SysEx header");
    EXPECT_TRUE(result.clearStatusLine);
    EXPECT_TRUE(result.packed.empty());
    EXPECT_EQ(result.channel, 0);
    EXPECT_TRUE(result.busyText.empty());
    EXPECT_TRUE(result.doneText.empty());
}

TEST(SysexFraming, BankOfTheWrongFunctionIsABadHeader)
{
    const auto result = STRINGtoMIDI(messageOf(84270, 0x4D), 2, 6);
    EXPECT_TRUE(result.handled);
    EXPECT_FALSE(result.success);
    EXPECT_EQ(result.errorText, "Problem with SysEx header");
}

TEST(SysexFraming, ChannelByteOutsideTheZ1RangeIsABadHeader)
{
    const auto result = STRINGtoMIDI(messageOf(245, 0x49, 0x40), 2, 6);
    EXPECT_TRUE(result.handled);
    EXPECT_FALSE(result.success);
}

TEST(SysexFraming, LongConversionsCarryTheirStatusTexts)
{
    const auto bank = STRINGtoMIDI(messageOf(84270, 0x4C), 2, 6);
    EXPECT_EQ(bank.busyText, "Converting bank data");
    EXPECT_EQ(bank.doneText, "Converted bank data");
    const auto multiBank = STRINGtoMIDI(messageOf(3814, 0x4D), 2, 6);
    EXPECT_EQ(multiBank.busyText, "Converting multibank data");
    EXPECT_EQ(multiBank.doneText, "Converted multibank data");
    const auto arpBank = STRINGtoMIDI(messageOf(5860, 0x69), 2, 6);
    EXPECT_EQ(arpBank.busyText, "Converting arpeggiator bank data");
    EXPECT_EQ(arpBank.doneText, "Converted arpeggiator bank data");
}

TEST(SysexFraming, ShortMessagesCarryNoStatusTexts)
{
    for (const auto& [length, function] : std::vector<std::pair<std::size_t, std::uint8_t>>{
             {666, 0x40}, {668, 0x40}, {245, 0x49}, {248, 0x49}, {300, 0x6B}}) {
        const auto result = STRINGtoMIDI(messageOf(length, function), 2, 6);
        ASSERT_TRUE(result.success) << length;
        EXPECT_TRUE(result.busyText.empty()) << length;
        EXPECT_TRUE(result.doneText.empty()) << length;
        EXPECT_TRUE(result.errorText.empty()) << length;
    }
}

TEST(SysexFraming, ChannelBytesRoundTrip)
{
    EXPECT_EQ(channelByte(1), 0x30);
    EXPECT_EQ(channelByte(16), 0x3F);
    EXPECT_EQ(channelOfByte(0x30), 1);
    EXPECT_EQ(channelOfByte(0x3F), 16);
    EXPECT_EQ(channelByte(0), 0x30);
    EXPECT_EQ(channelByte(17), 0x3F);
}

}  // namespace
}  // namespace quillon
