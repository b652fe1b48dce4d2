#include "banks/BankSort.h"

#include "banks/BankFixtures.h"
#include "banks/BankMenus.h"
#include "banks/BankUndo.h"
#include "banks/BankView.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using BankSort = BankAOnShow;

TEST_F(BankSort, SortBankByNameIgnoresCaseAndKeepsBankOrderForEqualNames)
{
    nameBankPatch(model, kPatchBankA, 0, "zebra");
    nameBankPatch(model, kPatchBankA, 1, "Apple");
    nameBankPatch(model, kPatchBankA, 2, "apple");
    nameBankPatch(model, kPatchBankA, 3, "APPLE");
    nameBankPatch(model, kPatchBankA, 4, "Bass");
    sortBank(model, 1);
    const auto after = names();
    EXPECT_EQ(after[0], "Apple");
    EXPECT_EQ(after[1], "apple");
    EXPECT_EQ(after[2], "APPLE");
    EXPECT_EQ(after[3], "Bass");
    EXPECT_EQ(after[4], "P005");
    EXPECT_EQ(after[127], "zebra");
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Sort by Name");
}

TEST_F(BankSort, NamesCompareWithTheirTrailingBlanks)
{
    // "Pad" padded with blanks sorts before "Pad!" as the blank is the
    // lower character.
    nameBankPatch(model, kPatchBankA, 0, "Pad!");
    nameBankPatch(model, kPatchBankA, 1, "Pad");
    std::vector<int> patches{0, 1};
    sortPatchesByKey(model.banks.image(kPatchBankA), 1, patches);
    EXPECT_EQ(patches, (std::vector<int>{1, 0}));
}

TEST_F(BankSort, EveryAttributeKeySortsAscendingAndStably)
{
    for (int key = 2; key <= kSortKeys; ++key) {
        std::vector<int> patches;
        for (int p = 0; p < kPatchesPerBank; ++p) {
            setPatchKey(model, kPatchBankA, p, key, (127 - p) % 5);
            patches.push_back(p);
        }
        sortPatchesByKey(model.banks.image(kPatchBankA), key, patches);
        for (std::size_t i = 1; i < patches.size(); ++i) {
            const int left = (127 - patches[i - 1]) % 5;
            const int right = (127 - patches[i]) % 5;
            ASSERT_LE(left, right) << "key " << key;
            if (left == right) {
                ASSERT_LT(patches[i - 1], patches[i]) << "key " << key;
            }
        }
        for (int p = 0; p < kPatchesPerBank; ++p)
            setPatchKey(model, kPatchBankA, p, key, 0);
    }
}

TEST_F(BankSort, SortBankOnASortedBankMakesOnePassStillMarksTheBankChangedAndTakesAnUndoStep)
{
    std::vector<int> patches(kPatchesPerBank);
    for (int p = 0; p < kPatchesPerBank; ++p)
        patches[static_cast<std::size_t>(p)] = p;
    EXPECT_EQ(sortPatchesByKey(model.banks.image(kPatchBankA), 1, patches), 1);

    const auto before = names();
    sortBank(model, 1);
    EXPECT_EQ(names(), before);
    EXPECT_TRUE(model.flags.changed[kPatchBankA]);
    EXPECT_FALSE(model.banks.undo.empty());
    EXPECT_TRUE(model.bankView.undoItems[kMnuUndoBank].enabled);
}

TEST_F(BankSort, SortSelectionSortsAmongTheSelectedPlacesOnly)
{
    nameBankPatch(model, kPatchBankA, 10, "Zither");
    nameBankPatch(model, kPatchBankA, 20, "Mallet");
    nameBankPatch(model, kPatchBankA, 30, "Accordion");
    selectPatches(model, {10, 20, 30});
    sortSelection(model, 1);
    const auto after = names();
    EXPECT_EQ(after[10], "Accordion");
    EXPECT_EQ(after[20], "Mallet");
    EXPECT_EQ(after[30], "Zither");
    EXPECT_EQ(after[11], "P011");
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBankPopup2].caption, "Undo A Sort (Name)");
    const BankSelection& selection = model.banks.selection(kPatchBankA);
    EXPECT_TRUE(selection.selected(10) && selection.selected(20) && selection.selected(30));
}

TEST_F(BankSort, SortSelectionByCategory)
{
    setPatchKey(model, kPatchBankA, 5, 2, 9);
    setPatchKey(model, kPatchBankA, 6, 2, 3);
    setPatchKey(model, kPatchBankA, 7, 2, 3);
    selectPatches(model, {5, 6, 7});
    sortSelection(model, 2);
    const auto after = names();
    EXPECT_EQ(after[5], "P006");
    EXPECT_EQ(after[6], "P007");
    EXPECT_EQ(after[7], "P005");
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Sort (Prog Cat)");
}

TEST_F(BankSort, SortSelectionNeedsTwoPatches)
{
    selectPatches(model, {5});
    sortSelection(model, 1);
    EXPECT_TRUE(model.banks.undo.empty());
}

TEST_F(BankSort, AKeyOutsideTheTenSortsNothingButTakesAnUndoStep)
{
    nameBankPatch(model, kPatchBankA, 0, "Zzz");
    const auto before = names();
    sortBank(model, 11);
    EXPECT_EQ(names(), before);
    EXPECT_FALSE(model.banks.undo.empty());
}

TEST_F(BankSort, UndoOfASortRestoresTheSelectionFlagsAsWellAsTheOrder)
{
    nameBankPatch(model, kPatchBankA, 3, "Zed");
    nameBankPatch(model, kPatchBankA, 4, "Alpha");
    selectPatches(model, {3, 4, 60});
    const auto before = names();
    sortSelection(model, 1);
    ASSERT_NE(names(), before);
    mnuDeselectAll(model);
    selectPatches(model, {100});
    undoBankOperation(model);
    EXPECT_EQ(names(), before);
    const BankSelection& selection = model.banks.selection(kPatchBankA);
    EXPECT_TRUE(selection.selected(3));
    EXPECT_TRUE(selection.selected(4));
    EXPECT_TRUE(selection.selected(60));
    EXPECT_FALSE(selection.selected(100));
    EXPECT_EQ(selection.selectionCount, 3);
    EXPECT_EQ(model.bankView.labels[60].scheme, kSelectedScheme);
}

TEST_F(BankSort, TheBankMenuRefusesWithoutABankOrOutsideTheBankView)
{
    TestModel empty;
    empty.host.expectMessage("Sort bank", Answer::Ok, "No bank loaded");
    mnuSortBankArray(empty.model, 1);

    model.mode = kPatch;
    t.host.expectMessage("Sort bank", Answer::Ok, "Please select bank first");
    mnuSortBankArray(model, 1);
    EXPECT_TRUE(model.banks.undo.empty());

    showBank(model, kPatchBankB);
    t.host.expectMessage("Sort bank", Answer::Ok, "No bank loaded");
    mnuSortBankArray(model, 1);
    EXPECT_TRUE(model.banks.undo.empty());

    showBank(model, kPatchBankA);
    mnuSortBankArray(model, 4);
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Sort by OSC1 Type");
}

TEST(BankSortKeys, CommandLineWordsNameTheTenKeys)
{
    const char* words[] = {"name", "category", "group", "osc1", "osc2", "fx1", "fx2", "filter1", "filter2", "arp"};
    for (int key = 1; key <= kSortKeys; ++key)
        EXPECT_EQ(sortKeyNamed(words[key - 1]), key);
    EXPECT_EQ(sortKeyNamed("Name"), 0);
    EXPECT_EQ(sortKeyNamed("mfx"), 0);
}

}  // namespace
}  // namespace quillon
