#include "model/BankImage.h"
#include "model/Kind.h"

#include <gtest/gtest.h>

#include <cstring>

namespace quillon {
namespace {

ByteImage bankWithName(int members, int memberBytes, int member, const char* name)
{
    ByteImage bank(static_cast<std::size_t>(members) * memberBytes, ' ');
    std::memcpy(bank.data() + static_cast<std::size_t>(member) * memberBytes, name, std::strlen(name));
    return bank;
}

TEST(BankImage, LoadedBankGivesTheSixteenNameCharactersUntrimmed)
{
    const ByteImage bank = bankWithName(kPatchesPerBank, kPatchBytes, 5, "Fat Bass");
    EXPECT_EQ(bankPatchName(bank, true, kPatchBankA, 5), "Fat Bass        ");
}

TEST(BankImage, EmptyBankSaysNoPatchWithThreeDigits)
{
    const ByteImage bank(kPatchesPerBank * kPatchBytes, 0);
    EXPECT_EQ(bankPatchName(bank, false, kPatchBankB, 7), "No patch (007)");
    EXPECT_EQ(bankMultiName(ByteImage(kMultisPerBank * kMultiBytes), false, kMultiBankA, 15), "No patch (015)");
    EXPECT_EQ(bankPatternName(ByteImage(kPatternsPerBank * kPatternBytes), false, 19), "No pattern (019)");
}

TEST(BankImage, OutOfRangeBankOrMemberGivesEmptyText)
{
    const ByteImage bank(kPatchesPerBank * kPatchBytes, 'A');
    EXPECT_EQ(bankPatchName(bank, true, 9, 0), "");
    EXPECT_EQ(bankPatchName(bank, true, -1, 0), "");
    EXPECT_EQ(bankPatchName(bank, true, kPatchBankA, 128), "");
    EXPECT_EQ(bankMultiName(ByteImage(kMultisPerBank * kMultiBytes), true, kMultiBankA, 16), "");
    EXPECT_EQ(bankPatternName(ByteImage(kPatternsPerBank * kPatternBytes), true, 20), "");
}

TEST(BankImage, MemberNamesOfMultiAndPatternBanks)
{
    const ByteImage multis = bankWithName(kMultisPerBank, kMultiBytes, 3, "Split Pad");
    EXPECT_EQ(bankMultiName(multis, true, kMultiBankB, 3), "Split Pad       ");
    const ByteImage patterns = bankWithName(kPatternsPerBank, kPatternBytes, 19, "Last One");
    EXPECT_EQ(bankPatternName(patterns, true, 19), "Last One        ");
}

TEST(FileNameFromName, TrimsTrailingBlanks)
{
    EXPECT_EQ(fileNameFromName("  Lead 1    "), "  Lead 1");
}

TEST(FileNameFromName, EmptyNameBecomesUntitled)
{
    EXPECT_EQ(fileNameFromName("                "), "Untitled");
    EXPECT_EQ(fileNameFromName(""), "Untitled");
}

TEST(FileNameFromName, ReplacesCharactersNotAllowedInFileNames)
{
    EXPECT_EQ(fileNameFromName("a\"b*c/d:e;f<g>h?i\\j|k"), "a b c d e f g h i j k");
}

TEST(BankPatchAttribute, ReadsTheFieldByteOfTheMember)
{
    ByteImage bank(kPatchesPerBank * kPatchBytes, 0);
    const std::size_t patch = 9;
    const int bytes[] = {457, 17, 18, 155, 207, 411, 434, 313, 340, 484};
    for (int field = 1; field <= 10; ++field)
        bank[patch * kPatchBytes + bytes[field - 1] - 1] = static_cast<std::uint8_t>(field * 3);
    for (int field = 1; field <= 10; ++field)
        EXPECT_EQ(bankPatchAttribute(bank, static_cast<int>(patch), field), field * 3) << field;
    EXPECT_EQ(bankPatchAttribute(bank, static_cast<int>(patch), 0), 0);
    EXPECT_EQ(bankPatchAttribute(bank, static_cast<int>(patch), 11), 0);
    EXPECT_EQ(bankPatchAttribute(bank, 8, 1), 0);
}

}  // namespace
}  // namespace quillon
