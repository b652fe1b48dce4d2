#include "output/TextLists.h"

#include "output/ListFormat.h"

#include "model/Kind.h"
#include "model/LoadReport.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quillon {
namespace {

// Writes a sixteen-character name into member `position` of a bank image.
void nameMember(AppModel& model, int kind, int position, int memberBytes, std::string name)
{
    name.resize(16, ' ');
    ByteImage& image = model.banks.image(kind);
    std::copy(name.begin(), name.end(), image.begin() + static_cast<std::ptrdiff_t>(position) * memberBytes);
}

void setName(ParamValues& values, std::string name)
{
    name.resize(16, ' ');
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(name[i]);
}

// The patch that timbre t of multiset m in a multi bank plays.
void setTimbre(AppModel& model, int multiBank, int m, int timbre, int patchBank, int patchNumber)
{
    ByteImage member = model.banks.readBankMulti(multiBank, m);
    const auto& rows = paramTables().multi;
    const int first = (timbre - 1) * 27 + 17;
    writeParam(rows[first], patchBank, member);
    writeParam(rows[first + 1], patchNumber, member);
    model.banks.writeBankMulti(multiBank, m, member);
}

TEST(BankList, AlwaysHas130Lines)
{
    TestModel t;
    EXPECT_EQ(bankListLines(t.model, kPatchBankA).size(), 130u);
    t.model.flags.loaded[kPatchBankB] = true;
    EXPECT_EQ(bankListLines(t.model, kPatchBankB).size(), 130u);
}

TEST(BankList, HeadingEmptyLineThenLetterPlaceAndName)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankB] = true;
    nameMember(t.model, kPatchBankB, 0, kPatchBytes, "Warm Pad");
    nameMember(t.model, kPatchBankB, 127, kPatchBytes, "Last One");
    const auto lines = bankListLines(t.model, kPatchBankB);
    EXPECT_EQ(lines[0], "Bank B");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "B000 Warm Pad        ");
    EXPECT_EQ(lines[12].substr(0, 5), "B010 ");
    EXPECT_EQ(lines[129], "B127 Last One        ");
}

TEST(BankList, OnlyPatchBanksHaveOne)
{
    TestModel t;
    EXPECT_TRUE(bankListLines(t.model, kMultiBankA).empty());
}

TEST(MultiBankList, EachMultisetHasItsNameSixTimbresAndAnEmptyLine)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankA] = true;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.flags.loaded[kPatchBankB] = true;
    nameMember(t.model, kMultiBankA, 3, kMultiBytes, "Split Keys");
    nameMember(t.model, kPatchBankA, 5, kPatchBytes, "Bass One");
    nameMember(t.model, kPatchBankB, 100, kPatchBytes, "Lead Two");
    setTimbre(t.model, kMultiBankA, 3, 1, 0, 5);
    setTimbre(t.model, kMultiBankA, 3, 6, 1, 100);

    const auto lines = multiBankListLines(t.model, kMultiBankA);
    ASSERT_EQ(lines.size(), 2u + 16u * 8u);
    EXPECT_EQ(lines[0], "Multi Bank A");
    EXPECT_EQ(lines[1], "");
    const std::size_t block = 2 + 3 * 8;
    EXPECT_EQ(lines[block], "A03 Split Keys      ");
    EXPECT_EQ(lines[block + 1], "  patch A005 Bass One        ");
    EXPECT_EQ(lines[block + 6], "  patch B100 Lead Two        ");
    EXPECT_EQ(lines[block + 7], "");
    EXPECT_EQ(lines[2 + 15 * 8].substr(0, 4), "A15 ");
}

TEST(MultiBankList, TimbreOfAnUnloadedPatchBankSaysSo)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankB] = true;
    setTimbre(t.model, kMultiBankB, 0, 2, 1, 7);
    const auto lines = multiBankListLines(t.model, kMultiBankB);
    EXPECT_EQ(lines[0], "Multi Bank B");
    EXPECT_EQ(lines[2].substr(0, 4), "B00 ");
    EXPECT_EQ(lines[4], "  patch B007 No patch (007)");
}

TEST(MultiBankList, SingleMultisetIsOneBlock)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    nameMember(t.model, kPatchBankA, 12, kPatchBytes, "Strings");
    ParamValues& multi = t.model.buffers.of(kMultiset).current;
    setName(multi, "My Multi");
    for (int timbre = 1; timbre <= 6; ++timbre) {
        multi[(timbre - 1) * 27 + 17] = 0;
        multi[(timbre - 1) * 27 + 18] = 12;
    }

    const auto lines = multiBankListLines(t.model, kMultiset);
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_EQ(lines[0], "Multiset");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "My Multi        ");
    for (int i = 3; i <= 8; ++i)
        EXPECT_EQ(lines[i], "  patch A012 Strings         ");
    EXPECT_EQ(lines[9], "");
}

TEST(ArpBankList, PresetsAndUserSlots)
{
    TestModel t;
    t.model.flags.loaded[kArpBank] = true;
    nameMember(t.model, kArpBank, 0, kPatternBytes, "Up");
    nameMember(t.model, kArpBank, 5, kPatternBytes, "Mine");
    nameMember(t.model, kArpBank, 19, kPatternBytes, "Last");
    const auto lines = arpBankListLines(t.model, kArpBank);
    ASSERT_EQ(lines.size(), 22u);
    EXPECT_EQ(lines[0], "Arpeggiator Bank");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "PRESET: Up              ");
    EXPECT_EQ(lines[6].substr(0, 8), "PRESET: ");
    EXPECT_EQ(lines[7], "U1-1 Mine            ");
    EXPECT_EQ(lines[12].substr(0, 5), "U2-1 ");
    EXPECT_EQ(lines[21], "U3-5 Last            ");
}

TEST(ArpBankList, SlotNamesFollowTheBankPlaces)
{
    EXPECT_EQ(arpListSlotName(0), "PRESET:");
    EXPECT_EQ(arpListSlotName(4), "PRESET:");
    EXPECT_EQ(arpListSlotName(5), "U1-1");
    EXPECT_EQ(arpListSlotName(9), "U1-5");
    EXPECT_EQ(arpListSlotName(10), "U2-1");
    EXPECT_EQ(arpListSlotName(14), "U2-5");
    EXPECT_EQ(arpListSlotName(15), "U3-1");
    EXPECT_EQ(arpListSlotName(19), "U3-5");
    EXPECT_EQ(arpListSlotName(20), "");
    EXPECT_EQ(arpListSlotName(-1), "");
}

TEST(ArpBankList, SinglePatternListsItsName)
{
    TestModel t;
    setName(t.model.buffers.of(kPattern).current, "Gallop");
    const std::vector<std::string> expected{"Arpeggiator Pattern", "", "Gallop          "};
    EXPECT_EQ(arpBankListLines(t.model, kPattern), expected);
}

TEST(ListFormat, AtFormatRightAlignsAndNeverCuts)
{
    EXPECT_EQ(rightAligned(7, 3), "  7");
    EXPECT_EQ(rightAligned(-99, 3), "-99");
    EXPECT_EQ(rightAligned(-128, 3), "-128");
    EXPECT_EQ(rightAligned(1343, 4), "1343");
    EXPECT_EQ(rightAligned("ab", 4), "  ab");
}

TEST(ListFormat, ZeroFormatPadsWithLeadingZeros)
{
    EXPECT_EQ(zeroPadded(0, 3), "000");
    EXPECT_EQ(zeroPadded(42, 3), "042");
    EXPECT_EQ(zeroPadded(5, 2), "05");
    EXPECT_EQ(zeroPadded(127, 2), "127");
}

TEST(ListFormat, NameComesFromTheFirstSixteenParameters)
{
    ParamValues values(20, 0);
    setName(values, "Abc");
    values[17] = 'X';
    EXPECT_EQ(nameFromParams(values), "Abc             ");
}

}  // namespace
}  // namespace quillon
