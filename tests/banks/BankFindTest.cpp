#include "banks/BankFind.h"

#include "banks/BankFixtures.h"
#include "model/Kind.h"
#include "model/ValueDecoder.h"
#include "files/SystemSettings.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

std::vector<int> selected(const AppModel& model, int bank)
{
    std::vector<int> patches;
    for (int p = 0; p < kPatchesPerBank; ++p)
        if (model.banks.selection(bank).selected(p))
            patches.push_back(p);
    return patches;
}

// A bank A on show whose first patches carry the given names.
void bankWithNames(AppModel& model, std::initializer_list<const char*> names)
{
    loadNumberedBank(model, kPatchBankA);
    int p = 0;
    for (const char* name : names)
        nameBankPatch(model, kPatchBankA, p++, name);
    showBank(model, kPatchBankA);
}

void search(AppModel& model, int code, const std::string& text, FindScope scope = {})
{
    model.settings.find.text = findTextOf(text);
    runFind(model, code, scope);
}

TEST(FindText, LastPartStartsWithNeedsABlankButAnyPartStartsWithDoesNot)
{
    EXPECT_FALSE(findTextHit(3, "Strings", "str"));
    EXPECT_TRUE(findTextHit(2, "Strings", "str"));
    EXPECT_TRUE(findTextHit(3, "Warm Strings", "str"));
}

TEST(FindText, TrailingBlanksAreTrimmedSoTheLastPartIsTheLastWord)
{
    EXPECT_TRUE(findTextHit(3, "Soft Pad        ", "pad"));
    EXPECT_FALSE(findTextHit(3, "Soft Pad        ", "soft"));
}

TEST(FindText, EachTextSearchByItsCode)
{
    EXPECT_TRUE(findTextHit(0, "Big Brass", "g br"));
    EXPECT_FALSE(findTextHit(0, "Big Brass", "horn"));
    EXPECT_TRUE(findTextHit(1, "Big Brass", "big"));
    EXPECT_FALSE(findTextHit(1, "Big Brass", "brass"));
    EXPECT_TRUE(findTextHit(2, "Big Fat Brass", "fat"));
    EXPECT_FALSE(findTextHit(2, "Big Fat Brass", "rass"));
    EXPECT_TRUE(findTextHit(3, "Big Fat Brass", "bra"));
    EXPECT_FALSE(findTextHit(3, "Big Fat Brass", "fat"));
    EXPECT_TRUE(findTextHit(4, "Big Brass", "horn"));
    EXPECT_FALSE(findTextHit(4, "Big Brass", "brass"));
}

TEST(FindText, NamesAreComparedInLowerCase)
{
    EXPECT_TRUE(findTextHit(1, "BIG Brass", findTextOf("bIg")));
    EXPECT_EQ(findTextOf("BiG"), "big");
}

TEST(Find, MinusWithNothingSelectedGivesAnEmptySelection)
{
    TestModel t;
    bankWithNames(t.model, {"Soft Pad", "Pad Two"});
    search(t.model, 0, "pad", {false, true});
    EXPECT_TRUE(selected(t.model, kPatchBankA).empty());
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 0);
}

TEST(Find, PlusWithBankNumAddsOnePatchByNumber)
{
    TestModel t;
    bankWithNames(t.model, {});
    selectPatches(t.model, {3, 9});
    t.model.settings.find.typeValue = 100;
    runFind(t.model, 10, {true, false});
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{3, 9, 100}));
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 3);
    EXPECT_EQ(t.model.bankView.labels[100].scheme, kSelectedScheme);
}

TEST(Find, SwitchWithAllSelectedClearsAll)
{
    TestModel t;
    bankWithNames(t.model, {});
    mnuSelectAll(t.model);
    cmdSwitch(t.model);
    EXPECT_TRUE(selected(t.model, kPatchBankA).empty());
    EXPECT_EQ(t.model.bankView.labels[0].scheme, kUnselectedScheme);
    cmdSwitch(t.model);
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 128);
}

TEST(Find, ANewSearchReplacesTheSelectionAndMinusNarrowsIt)
{
    TestModel t;
    bankWithNames(t.model, {"Soft Pad", "Hard Lead", "Pad Two", "Soft Bell"});
    selectPatches(t.model, {1, 50});
    search(t.model, 0, "SOFT");
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{0, 3}));
    search(t.model, 0, "pad", {false, true});
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{0}));
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionSequence[1], 0);
}

TEST(Find, AnEmptyTextIsIgnoredAndNoHitEmptiesTheSelectionUnlessKept)
{
    TestModel t;
    bankWithNames(t.model, {"Soft Pad"});
    selectPatches(t.model, {5});
    search(t.model, 0, "");
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{5}));
    search(t.model, 0, "zzz", {true, false});
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{5}));
    search(t.model, 0, "zzz");
    EXPECT_TRUE(selected(t.model, kPatchBankA).empty());
}

TEST(Find, FilterTypesCompareTheStoredValueLessOne)
{
    TestModel t;
    bankWithNames(t.model, {});
    ByteImage& image = t.model.banks.image(kPatchBankA);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        image[static_cast<std::size_t>(p * kPatchBytes + 313 - 1)] = 1;
        image[static_cast<std::size_t>(p * kPatchBytes + 340 - 1)] = 1;
    }
    image[static_cast<std::size_t>(7 * kPatchBytes + 313 - 1)] = 3;
    image[static_cast<std::size_t>(8 * kPatchBytes + 340 - 1)] = 3;
    t.model.settings.find.typeValue = 2;  // the third row of the filter list
    runFind(t.model, 18, {});
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{7}));
    runFind(t.model, 19, {});
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{8}));
    EXPECT_EQ(findTypeNames(t.model, 18).at(2), decodeValue(40, 3));
}

TEST(Find, TypeSearchesReadTheirAttribute)
{
    TestModel t;
    bankWithNames(t.model, {});
    ByteImage& image = t.model.banks.image(kPatchBankA);
    image[static_cast<std::size_t>(4 * kPatchBytes + 17 - 1)] = 9;    // category
    image[static_cast<std::size_t>(5 * kPatchBytes + 457 - 1)] = 2;   // master effect
    image[static_cast<std::size_t>(6 * kPatchBytes + 484 - 1)] = 12;  // linked pattern
    t.model.settings.find.typeValue = 9;
    runFind(t.model, 11, {});
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{4}));
    t.model.settings.find.typeValue = 2;
    runFind(t.model, 17, {});
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{5}));
    t.model.settings.find.typeValue = 12;
    runFind(t.model, 20, {});
    EXPECT_EQ(selected(t.model, kPatchBankA), (std::vector<int>{6}));
}

TEST(Find, TypeListsByOption)
{
    TestModel t;
    EXPECT_EQ(findTypeNames(t.model, 10).size(), 128u);
    EXPECT_EQ(findTypeNames(t.model, 10).at(7), "007");
    EXPECT_EQ(findTypeNames(t.model, 11).at(5), "E.Piano");
    EXPECT_EQ(findTypeNames(t.model, 12).size(), 16u);
    const auto arp = findTypeNames(t.model, 20);
    ASSERT_EQ(arp.size(), 20u);
    EXPECT_EQ(arp[0], "UP");
    EXPECT_EQ(arp[4], "RANDOM");
    EXPECT_EQ(arp[5], "User pattern");
    t.model.flags.loaded[kArpBank] = true;
    EXPECT_EQ(findTypeNames(t.model, 20).at(5).substr(0, 5), "U1-1 ");
    EXPECT_EQ(findTypeOptionCaptions().at(8), "Filt1");
    EXPECT_EQ(findTextOptionCaptions().at(3), "Last part starts with");
}

TEST(Find, TheLastTenTextsNewestFirst)
{
    FindSettings settings;
    for (int i = 0; i < 12; ++i)
        rememberFindText(settings, "t" + std::to_string(i));
    ASSERT_EQ(settings.recentTexts.size(), 10u);
    EXPECT_EQ(settings.recentTexts.front(), "t11");
    EXPECT_EQ(settings.recentTexts.back(), "t2");
    rememberFindText(settings, "t5");
    EXPECT_EQ(settings.recentTexts.front(), "t11") << "a text among the ten stays where it is";
}

TEST(Find, OpensOnlyOverALoadedBankOnShow)
{
    TestModel t;
    t.host.expectMessage("Find patch in bank", Answer::Ok, "No bank loaded");
    EXPECT_FALSE(mnuFind(t.model));
    loadNumberedBank(t.model, kPatchBankB);
    t.model.mode = kPatch;
    t.host.expectMessage("Find patch in bank", Answer::Ok, "Please select bank");
    EXPECT_FALSE(mnuFind(t.model));
    showBank(t.model, kPatchBankB);
    EXPECT_TRUE(mnuFind(t.model));
}

}  // namespace
}  // namespace quillon
