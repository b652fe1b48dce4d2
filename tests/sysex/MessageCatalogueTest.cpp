#include "sysex/MessageCatalogue.h"

#include "model/Kind.h"
#include "sysex/SysExClassifier.h"
#include "sysex/SysExFraming.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillon {
namespace {

SysExImage countingPacked(int bytes)
{
    SysExImage packed(static_cast<std::size_t>(bytes));
    for (std::size_t i = 0; i < packed.size(); ++i)
        packed[i] = static_cast<std::uint8_t>(i % 128);
    return packed;
}

std::vector<std::uint8_t> front(const SysExMessage& message, std::size_t count)
{
    return {message.begin(), message.begin() + static_cast<std::ptrdiff_t>(count)};
}

TEST(MessageCatalogue, TotalIsHeaderPlusPackedPlusOneInEveryDumpRow)
{
    const auto shapes = dumpShapes();
    ASSERT_EQ(shapes.size(), 16u);
    for (const auto& shape : shapes) {
        EXPECT_EQ(shape.totalBytes,
                  shape.messageCount * (shape.headerBytes() + shape.packedBytes + 1))
            << shape.name;
    }
}

TEST(MessageCatalogue, DumpRowsHoldTheirFunctionSubHeaderSizesAndType)
{
    struct Row {
        std::string_view name;
        int function;
        int otherFunction;
        int subHeaderBytes;
        int packed;
        int total;
        int type;
    };
    const Row rows[] = {
        {"Current patch", 0x40, 0x40, 1, 659, 666, 4},
        {"Patch with a longer header", 0x40, 0x4C, 3, 659, 668, 4},
        {"Current multi", 0x49, 0x49, 1, 238, 245, 7},
        {"Multi with a longer header", 0x49, 0x4D, 4, 238, 248, 7},
        {"Current pattern", 0x6B, 0x6B, 1, 293, 300, 9},
        {"Pattern with a longer header", 0x69, 0x69, 2, 293, 301, 9},
        {"Bank A", 0x4C, 0x4C, 3, 84261, 84270, 3},
        {"Bank B", 0x4C, 0x4C, 3, 84261, 84270, 3},
        {"All Program", 0x4C, 0x4C, 3, 168522, 168531, 2},
        {"Multi bank A", 0x4D, 0x4D, 4, 3804, 3814, 6},
        {"Multi bank B", 0x4D, 0x4D, 4, 3804, 3814, 6},
        {"All Multi", 0x4D, 0x4D, 4, 7607, 7617, 5},
        {"Arpeggiator bank", 0x69, 0x69, 2, 5852, 5860, 8},
        {"Global or MIDI settings", 0x51, 0x51, 1, 476, 483, 10},
        {"Global and MIDI", 0x51, 0x51, 1, 476, 966, 11},
        {"All Data", 0x50, 0x50, 2, 182931, 182939, 1},
    };
    const auto shapes = dumpShapes();
    ASSERT_EQ(shapes.size(), std::size(rows));
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        EXPECT_EQ(shapes[i].name, rows[i].name);
        EXPECT_EQ(shapes[i].function, rows[i].function) << rows[i].name;
        EXPECT_EQ(shapes[i].otherFunction, rows[i].otherFunction) << rows[i].name;
        EXPECT_EQ(shapes[i].subHeaderBytes, rows[i].subHeaderBytes) << rows[i].name;
        EXPECT_EQ(shapes[i].packedBytes, rows[i].packed) << rows[i].name;
        EXPECT_EQ(shapes[i].totalBytes, rows[i].total) << rows[i].name;
        EXPECT_EQ(shapes[i].type, rows[i].type) << rows[i].name;
    }
}

TEST(MessageCatalogue, DumpPackedSizesAreThoseOfTheirUnpackedData)
{
    for (const auto& shape : dumpShapes()) {
        int unpacked = 0;
        switch (shape.type) {
        case kSysExPatch: unpacked = byteImageSize(kPatch); break;
        case kSysExSingleMulti: unpacked = byteImageSize(kMultiset); break;
        case kSysExSinglePattern: unpacked = byteImageSize(kPattern); break;
        case kSysExPatchBank: unpacked = byteImageSize(kPatchBankA); break;
        case kSysExMultiBank: unpacked = byteImageSize(kMultiBankA); break;
        case kSysExArpBank: unpacked = byteImageSize(kArpBank); break;
        case kSysExGlobalAndMidi: unpacked = miscImageBytes(kSysExGlobalOrMidi); break;
        default: unpacked = miscImageBytes(shape.type); break;
        }
        EXPECT_EQ(packedSizeOf(unpacked), shape.packedBytes) << shape.name;
    }
}

TEST(MessageCatalogue, ReceivedMessagesAreTypedByTheirExactLength)
{
    EXPECT_EQ(dumpTypeForLength(666), 4);
    EXPECT_EQ(dumpTypeForLength(668), 4);
    EXPECT_EQ(dumpTypeForLength(245), 7);
    EXPECT_EQ(dumpTypeForLength(248), 7);
    EXPECT_EQ(dumpTypeForLength(300), 9);
    EXPECT_EQ(dumpTypeForLength(84270), 3);
    EXPECT_EQ(dumpTypeForLength(168531), 2);
    EXPECT_EQ(dumpTypeForLength(3814), 6);
    EXPECT_EQ(dumpTypeForLength(7617), 5);
    EXPECT_EQ(dumpTypeForLength(5860), 8);
    EXPECT_EQ(dumpTypeForLength(483), 10);
    EXPECT_EQ(dumpTypeForLength(966), 11);
    EXPECT_EQ(dumpTypeForLength(182939), 1);
    EXPECT_EQ(dumpTypeForLength(667), 0);
    EXPECT_EQ(dumpTypeForLength(0), 0);
}

TEST(MessageCatalogue, SavedSingleMultiStartsWithChannelOneHeaderAndEndsWithF7)
{
    const auto packed = DATAtoMIDI(kMultiset, ByteImage(208, 0x41));
    const auto message = currentMultiDump(1, packed);
    ASSERT_EQ(message.size(), 245u);
    EXPECT_EQ(front(message, 6), (std::vector<std::uint8_t>{0xF0, 0x42, 0x30, 0x46, 0x49, 0x00}));
    EXPECT_EQ(message.back(), 0xF7);
    EXPECT_EQ(std::vector<std::uint8_t>(message.begin() + 6, message.end() - 1), packed);
}

TEST(MessageCatalogue, CurrentPatchDumpHasFunction40AndSubHeader01)
{
    const auto packed = countingPacked(659);
    const auto message = currentPatchDump(10, packed);
    ASSERT_EQ(message.size(), 666u);
    EXPECT_EQ(front(message, 6), (std::vector<std::uint8_t>{0xF0, 0x42, 0x39, 0x46, 0x40, 0x01}));
    EXPECT_EQ(std::vector<std::uint8_t>(message.begin() + 6, message.end() - 1), packed);
    EXPECT_EQ(message.back(), 0xF7);
}

TEST(MessageCatalogue, CurrentPatternDumpHasFunction6BAndSubHeader00)
{
    const auto message = currentPatternDump(16, countingPacked(293));
    ASSERT_EQ(message.size(), 300u);
    EXPECT_EQ(front(message, 6), (std::vector<std::uint8_t>{0xF0, 0x42, 0x3F, 0x46, 0x6B, 0x00}));
    EXPECT_EQ(message.back(), 0xF7);
}

TEST(MessageCatalogue, BankDumpsNameTheirBankInTheSubHeader)
{
    const auto packed = countingPacked(84261);
    const auto a = patchBankDump(kPatchBankA, 1, packed);
    const auto b = patchBankDump(kPatchBankB, 1, packed);
    ASSERT_EQ(a.size(), 84270u);
    ASSERT_EQ(b.size(), 84270u);
    EXPECT_EQ(front(a, 8), (std::vector<std::uint8_t>{0xF0, 0x42, 0x30, 0x46, 0x4C, 0x10, 0x00, 0x00}));
    EXPECT_EQ(front(b, 8), (std::vector<std::uint8_t>{0xF0, 0x42, 0x30, 0x46, 0x4C, 0x11, 0x00, 0x00}));
    EXPECT_EQ(a.back(), 0xF7);
    EXPECT_TRUE(patchBankDump(kPatch, 1, packed).empty());
}

TEST(MessageCatalogue, MultiBankDumpsNameTheirBankInTheSubHeader)
{
    const auto packed = countingPacked(3804);
    const auto a = multiBankDump(kMultiBankA, 2, packed);
    const auto b = multiBankDump(kMultiBankB, 2, packed);
    ASSERT_EQ(a.size(), 3814u);
    ASSERT_EQ(b.size(), 3814u);
    EXPECT_EQ(front(a, 9),
              (std::vector<std::uint8_t>{0xF0, 0x42, 0x31, 0x46, 0x4D, 0x00, 0x10, 0x00, 0x00}));
    EXPECT_EQ(front(b, 9),
              (std::vector<std::uint8_t>{0xF0, 0x42, 0x31, 0x46, 0x4D, 0x00, 0x11, 0x00, 0x00}));
    EXPECT_TRUE(multiBankDump(kPatchBankA, 2, packed).empty());
}

TEST(MessageCatalogue, ArpeggiatorBankDumpHasFunction69AndSubHeader1000)
{
    const auto message = arpBankDump(1, countingPacked(5852));
    ASSERT_EQ(message.size(), 5860u);
    EXPECT_EQ(front(message, 7),
              (std::vector<std::uint8_t>{0xF0, 0x42, 0x30, 0x46, 0x69, 0x10, 0x00}));
    EXPECT_EQ(message.back(), 0xF7);
}

TEST(MessageCatalogue, ClosingF7LeftOnThePackedBufferIsNotCopiedTwice)
{
    auto packed = countingPacked(659);
    packed.push_back(0xF7);
    const auto message = currentPatchDump(1, packed);
    ASSERT_EQ(message.size(), 666u);
    EXPECT_EQ(message[664], packed[658]);
    EXPECT_EQ(message[665], 0xF7);
}

TEST(MessageCatalogue, LongPackedBufferIsCutToThePackedSizeOfItsKind)
{
    const auto packed = countingPacked(700);
    const auto message = currentPatchDump(1, packed);
    ASSERT_EQ(message.size(), 666u);
    EXPECT_EQ(message[664], packed[658]);
    EXPECT_EQ(message[665], 0xF7);
}

TEST(MessageCatalogue, ShortPackedBufferIsFilledUpWithZeros)
{
    const auto message = currentMultiDump(1, SysExImage{0x01, 0x02});
    ASSERT_EQ(message.size(), 245u);
    EXPECT_EQ(message[6], 0x01);
    EXPECT_EQ(message[7], 0x02);
    EXPECT_EQ(message[8], 0x00);
    EXPECT_EQ(message[243], 0x00);
    EXPECT_EQ(message[244], 0xF7);
}

TEST(MessageCatalogue, EveryKindsDumpIsTakenBackWhole)
{
    for (const int kind : {1, 2, 3, 4, 5, 6, 7, 8}) {
        const auto packed = countingPacked(packedImageSize(kind));
        const auto message = dumpForKind(kind, 5, packed);
        const auto result = STRINGtoMIDI(message, kind == 3 ? 3 : 2, kind == 7 ? 7 : 6);
        ASSERT_TRUE(result.success) << "kind " << kind;
        EXPECT_EQ(result.target, kind);
        EXPECT_EQ(result.channel, 5);
        SysExImage expected = packed;
        expected.push_back(0xF7);
        EXPECT_EQ(result.packed, expected) << "kind " << kind;
    }
    EXPECT_TRUE(dumpForKind(9, 1, countingPacked(10)).empty());
    EXPECT_TRUE(dumpForKind(0, 1, countingPacked(10)).empty());
}

TEST(MessageCatalogue, DumpsAreRecognisedAsTheTypeOfTheirLength)
{
    for (const int kind : {1, 2, 4, 5, 6, 8}) {
        const auto message = dumpForKind(kind, 1, countingPacked(packedImageSize(kind)));
        const int type = dumpTypeForLength(message.size());
        EXPECT_NE(type, 0) << "kind " << kind;
        EXPECT_NE(classifySysEx(message), 0) << "kind " << kind;
    }
    EXPECT_EQ(dumpTypeForLength(dumpForKind(2, 1, {}).size()), kSysExPatchBank);
    EXPECT_EQ(dumpTypeForLength(dumpForKind(6, 1, {}).size()), kSysExMultiBank);
}

TEST(MessageCatalogue, EightRequestsWithTheirLabelsAndBytes)
{
    struct Expected {
        std::string_view label;
        std::vector<std::uint8_t> bytes;
    };
    const Expected expected[] = {
        {"Current patch", {0xF0, 0x42, 0x32, 0x46, 0x10, 0x00, 0xF7}},
        {"Bank A", {0xF0, 0x42, 0x32, 0x46, 0x1C, 0x10, 0x00, 0x00, 0xF7}},
        {"Bank B", {0xF0, 0x42, 0x32, 0x46, 0x1C, 0x11, 0x00, 0x00, 0xF7}},
        {"Current multi", {0xF0, 0x42, 0x32, 0x46, 0x19, 0x00, 0xF7}},
        {"Multibank A", {0xF0, 0x42, 0x32, 0x46, 0x1D, 0x10, 0x00, 0x00, 0xF7}},
        {"Multibank B", {0xF0, 0x42, 0x32, 0x46, 0x1D, 0x11, 0x00, 0x00, 0xF7}},
        {"Current pattern", {0xF0, 0x42, 0x32, 0x46, 0x36, 0x00, 0xF7}},
        {"Pattern bank", {0xF0, 0x42, 0x32, 0x46, 0x34, 0x10, 0x00, 0xF7}},
    };
    const auto requests = dumpRequests();
    ASSERT_EQ(requests.size(), std::size(expected));
    for (std::size_t i = 0; i < requests.size(); ++i) {
        EXPECT_EQ(requests[i].label, expected[i].label);
        EXPECT_EQ(requestMessage(requests[i], 3), expected[i].bytes) << expected[i].label;
    }
}

TEST(MessageCatalogue, MiscellaneousDumpIsSentAgainWithOnlyItsChannelSetAnew)
{
    SysExMessage message(483, 0x22);
    message[0] = 0xF0;
    message[1] = 0x42;
    message[2] = 0x30;
    message[3] = 0x46;
    message[4] = 0x51;
    message[5] = 0x01;
    message[482] = 0xF7;
    const auto resent = withChannel(message, 12);
    ASSERT_EQ(resent.size(), message.size());
    EXPECT_EQ(resent[2], 0x3B);
    auto rest = resent;
    rest[2] = 0x30;
    EXPECT_EQ(rest, message);
}

TEST(MessageCatalogue, TooShortMessageIsResentUnchanged)
{
    const SysExMessage shortMessage{0xF0, 0x42};
    EXPECT_EQ(withChannel(shortMessage, 5), shortMessage);
}

TEST(MessageCatalogue, MiscellaneousDataStartsBehindTheHeaderOfItsDump)
{
    EXPECT_EQ(miscDataOffset(kSysExAllData), 7);
    EXPECT_EQ(miscDataOffset(kSysExAllProgram), 8);
    EXPECT_EQ(miscDataOffset(kSysExAllMulti), 9);
    EXPECT_EQ(miscDataOffset(kSysExGlobalOrMidi), 6);
    EXPECT_EQ(miscDataOffset(kSysExGlobalAndMidi), 6);
    EXPECT_EQ(miscDataOffset(kSysExPatch), 0);
    for (const auto& shape : dumpShapes()) {
        if (miscDataOffset(shape.type) != 0) {
            EXPECT_EQ(miscDataOffset(shape.type), shape.headerBytes()) << shape.name;
        }
    }
}

TEST(MessageCatalogue, AllDataImageHoldsBothBanksBothMultiBanksArpBankAndGlobal)
{
    const auto parts = miscImageLayout(kSysExAllData);
    ASSERT_EQ(parts.size(), 6u);
    const int kinds[] = {kPatchBankA, kPatchBankB, kMultiBankA, kMultiBankB, kArpBank, 0};
    int next = 1;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        EXPECT_EQ(parts[i].firstByte, next) << parts[i].content;
        EXPECT_EQ(parts[i].kind, kinds[i]) << parts[i].content;
        if (kinds[i] != 0) {
            EXPECT_EQ(parts[i].bytes(), byteImageSize(kinds[i])) << parts[i].content;
        }
        next = parts[i].lastByte + 1;
    }
    EXPECT_EQ(parts[5].firstByte, 159233);
    EXPECT_EQ(parts[5].bytes(), 832);
    EXPECT_EQ(next - 1, 160064);
    EXPECT_EQ(miscImageBytes(kSysExAllData), 160064);
}

TEST(MessageCatalogue, AllProgramAndAllMultiImagesHoldBanksAAndB)
{
    const auto program = miscImageLayout(kSysExAllProgram);
    ASSERT_EQ(program.size(), 2u);
    EXPECT_EQ(program[0].firstByte, 1);
    EXPECT_EQ(program[0].lastByte, 73728);
    EXPECT_EQ(program[0].kind, kPatchBankA);
    EXPECT_EQ(program[1].firstByte, 73729);
    EXPECT_EQ(program[1].lastByte, 147456);
    EXPECT_EQ(program[1].kind, kPatchBankB);
    EXPECT_EQ(miscImageBytes(kSysExAllProgram), 147456);

    const auto multi = miscImageLayout(kSysExAllMulti);
    ASSERT_EQ(multi.size(), 2u);
    EXPECT_EQ(multi[0].lastByte, 3328);
    EXPECT_EQ(multi[0].kind, kMultiBankA);
    EXPECT_EQ(multi[1].firstByte, 3329);
    EXPECT_EQ(multi[1].lastByte, 6656);
    EXPECT_EQ(multi[1].kind, kMultiBankB);
    EXPECT_EQ(miscImageBytes(kSysExAllMulti), 6656);
}

TEST(MessageCatalogue, GlobalOrMidiImageIsOneWholePart)
{
    const auto parts = miscImageLayout(kSysExGlobalOrMidi);
    ASSERT_EQ(parts.size(), 1u);
    EXPECT_EQ(parts[0].bytes(), 416);
    EXPECT_EQ(parts[0].kind, 0);
    EXPECT_EQ(miscImageBytes(kSysExGlobalOrMidi), 416);
    EXPECT_TRUE(miscImageLayout(kSysExPatch).empty());
    EXPECT_EQ(miscImageBytes(kSysExPatch), 0);
}

TEST(MessageCatalogue, GlobalOrMidiDumpIsNamedByTheByteBehindItsFunctionCode)
{
    SysExMessage message{0xF0, 0x42, 0x30, 0x46, 0x51, 0x00, 0x7F, 0xF7};
    EXPECT_EQ(globalOrMidiName(message), "Global");
    message[5] = 0x01;
    message[6] = 0x00;
    EXPECT_EQ(globalOrMidiName(message), "MIDI");
    message[5] = 0x40;
    EXPECT_EQ(globalOrMidiName(message), "MIDI");
}

TEST(MessageCatalogue, SplitTakesWholeMessagesAndDropsStrayBytesAndACutShortMessage)
{
    const std::vector<std::uint8_t> bytes{0x01, 0xF0, 0x42, 0xF7, 0x7F, 0xF0, 0x10, 0xF0, 0x43, 0x44, 0xF7, 0xF0, 0x11};
    const auto messages = splitSysExMessages(bytes);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0], (std::vector<std::uint8_t>{0xF0, 0x42, 0xF7}));
    EXPECT_EQ(messages[1], (std::vector<std::uint8_t>{0xF0, 0x43, 0x44, 0xF7}));
}

TEST(MessageCatalogue, TheBankADumpNamesBankAAndAMultiBankBDumpNamesMultiBankB)
{
    const std::vector<std::uint8_t> packed(84261, 0);
    EXPECT_EQ(bankNamedBy(patchBankDump(kPatchBankA, 1, packed), kPatchBankA), kPatchBankA);
    EXPECT_EQ(bankNamedBy(patchBankDump(kPatchBankB, 1, packed), kPatchBankA), kPatchBankB);
    const std::vector<std::uint8_t> multis(3804, 0);
    EXPECT_EQ(bankNamedBy(multiBankDump(kMultiBankB, 1, multis), kMultiBankA), kMultiBankB);
    EXPECT_EQ(bankNamedBy(multiBankDump(kMultiBankA, 1, multis), kMultiBankA), kMultiBankA);
    EXPECT_EQ(bankNamedBy(std::vector<std::uint8_t>{0xF0}, kArpBank), kArpBank);
}

}  // namespace
}  // namespace quillon
