#include "banks/BankView.h"

#include "banks/BankFixtures.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {

void selectPatches(AppModel& model, std::initializer_list<int> patches)
{
    BankSelection& selection = model.banks.selection(model.bankTarget);
    for (int p : patches)
        selection.selectionFlags[static_cast<std::size_t>(p)] = -1;
    bankSelectSequence(model);
}

namespace {

TEST(BankView, GridIsMadeOnceAndSaysSo)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    fraBankSetUp(t.model);
    EXPECT_TRUE(t.model.bankView.gridMade);
    EXPECT_TRUE(observer.all & kBankViewChanged);
    observer.calls = 0;
    fraBankSetUp(t.model);
    EXPECT_EQ(observer.calls, 0);
}

TEST(BankView, StateZeroNamesTheLabelsAndClearsTheSelection)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    selectPatches(t.model, {3, 9});
    fraBankLabelsSetUp(t.model, kPatchBankA, 0);
    EXPECT_EQ(t.model.bankView.labels[9].caption, "P009            ");
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 0);
    EXPECT_FALSE(t.model.banks.selection(kPatchBankA).selected(3));
    EXPECT_EQ(t.model.bankView.labels[3].scheme, kUnselectedScheme);
}

TEST(BankView, UnloadedBankShowsNoPatchInGrey)
{
    TestModel t;
    fraBankLabelsSetUp(t.model, kPatchBankB, 0);
    EXPECT_EQ(t.model.bankView.labels[7].caption, "No patch (007)");
    EXPECT_EQ(t.model.bankView.labels[7].scheme, kUnloadedScheme);
    fraBankLabelsSetUp(t.model, kPatchBankB, 1);
    EXPECT_EQ(t.model.bankView.labels[100].scheme, kUnloadedScheme);
}

TEST(BankView, StateOneRedrawsNamesAndColoursKeepingTheSelection)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    selectPatches(t.model, {5, 6});
    nameBankPatch(t.model, kPatchBankA, 5, "Renamed");
    fraBankLabelsSetUp(t.model, kPatchBankA, 1);
    EXPECT_EQ(t.model.bankView.labels[5].caption, "Renamed         ");
    EXPECT_EQ(t.model.bankView.labels[5].scheme, kSelectedScheme);
    EXPECT_EQ(t.model.bankView.labels[7].scheme, kUnselectedScheme);
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 2);
}

TEST(BankView, StateTwoColoursWithoutRenaming)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    fraBankLabelsSetUp(t.model, kPatchBankA, 0);
    selectPatches(t.model, {1});
    nameBankPatch(t.model, kPatchBankA, 1, "Renamed");
    fraBankLabelsSetUp(t.model, kPatchBankA, 2);
    EXPECT_EQ(t.model.bankView.labels[1].caption, "P001            ");
    EXPECT_EQ(t.model.bankView.labels[1].scheme, kSelectedScheme);
}

TEST(BankView, SelectAllAndDeselectAll)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankB);
    showBank(t.model, kPatchBankB);
    mnuSelectAll(t.model);
    const BankSelection& selection = t.model.banks.selection(kPatchBankB);
    EXPECT_EQ(selection.selectionCount, 128);
    EXPECT_EQ(selection.selectionSequence[128], 127);
    EXPECT_EQ(t.model.bankView.labels[127].scheme, kSelectedScheme);
    EXPECT_FALSE(t.model.bankView.selectionToolsShown);
    mnuDeselectAll(t.model);
    EXPECT_EQ(selection.selectionCount, 0);
    EXPECT_FALSE(selection.selected(64));
    EXPECT_EQ(t.model.bankView.labels[64].scheme, kUnselectedScheme);
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 0);
}

TEST(BankView, SequenceListsSelectedPatchesInOrderAndToolsShowForOne)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    selectPatches(t.model, {40});
    EXPECT_TRUE(t.model.bankView.selectionToolsShown);
    selectPatches(t.model, {2});
    const BankSelection& selection = t.model.banks.selection(kPatchBankA);
    EXPECT_EQ(selection.selectionCount, 2);
    EXPECT_EQ(selection.selectionSequence[1], 2);
    EXPECT_EQ(selection.selectionSequence[2], 40);
    EXPECT_FALSE(t.model.bankView.selectionToolsShown);
}

TEST(BankView, SelectionIsKeptPerBank)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    loadNumberedBank(t.model, kPatchBankB);
    showBank(t.model, kPatchBankA);
    selectPatches(t.model, {1, 2});
    showBank(t.model, kPatchBankB);
    selectPatches(t.model, {100});
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 2);
    EXPECT_EQ(t.model.banks.selection(kPatchBankB).selectionCount, 1);
}

TEST(BankView, EditorFromSelectionClearsAndRestoresElementOne)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    selectPatches(t.model, {12});
    setEditorFromSelection(t.model, 0);
    const BankSelection& selection = t.model.banks.selection(kPatchBankA);
    EXPECT_EQ(selection.selectionCount, 0);
    EXPECT_FALSE(selection.selected(12));
    EXPECT_EQ(t.model.bankView.labels[12].scheme, kUnselectedScheme);
    EXPECT_FALSE(t.model.bankView.selectionToolsShown);
    setEditorFromSelection(t.model, -1);
    EXPECT_EQ(selection.selectionCount, 1);
    EXPECT_TRUE(selection.selected(12));
    EXPECT_EQ(t.model.bankView.labels[12].scheme, kSelectedScheme);
    EXPECT_TRUE(t.model.bankView.selectionToolsShown);
}

TEST(BankView, ChangesOfOneCommandArriveAsOneNotification)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    RecordingObserver observer;
    t.model.addObserver(&observer);
    mnuSelectAll(t.model);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_TRUE(observer.all & kBankViewChanged);
}

}  // namespace
}  // namespace quillon
