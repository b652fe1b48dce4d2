#include "banks/BankReorder.h"

#include "banks/BankFixtures.h"
#include "banks/BankUndo.h"
#include "banks/BankView.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

std::string name(int p)
{
    char text[8];
    std::snprintf(text, sizeof text, "P%03d", p);
    return text;
}

struct BankReorder : BankAOnShow {
    int undoSteps()
    {
        const BankUndoRing& ring = model.banks.undo;
        return (ring.undoHead - ring.undoTail + kUndoSlots) % kUndoSlots;
    }
};

TEST_F(BankReorder, SwapFirstWithTheSelectionAllInsideTheFirstNChangesNothingButTakesAnUndoStep)
{
    selectPatches(model, {0, 1, 2});
    const auto before = names();
    swapSelection(model, 1);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Swap First");
    EXPECT_TRUE(model.flags.changed[kPatchBankA]);
}

TEST_F(BankReorder, SwapFirstExchangesASelectedPatchStandingAtTheTargetPlace)
{
    selectPatches(model, {0, 5});
    swapSelection(model, 1);
    EXPECT_EQ(names()[0], name(5));
    EXPECT_EQ(names()[5], name(0));
    // The selection stays on its places.
    EXPECT_EQ(selected(), (std::vector<int>{0, 5}));
}

TEST_F(BankReorder, SwapFirstBringsTheSelectionToTheFront)
{
    selectPatches(model, {10, 20, 30});
    swapSelection(model, 1);
    const auto after = names();
    EXPECT_EQ(after[0], name(10));
    EXPECT_EQ(after[1], name(20));
    EXPECT_EQ(after[2], name(30));
    EXPECT_EQ(after[10], name(0));
    EXPECT_EQ(after[20], name(1));
    EXPECT_EQ(after[30], name(2));
    EXPECT_EQ(selected(), (std::vector<int>{10, 20, 30}));
    EXPECT_EQ(model.bankView.labels[0].caption.substr(0, 4), name(10));
}

TEST_F(BankReorder, SwapLastFillsFromTheEndDownward)
{
    selectPatches(model, {3, 4});
    swapSelection(model, 2);
    const auto after = names();
    EXPECT_EQ(after[127], name(3));
    EXPECT_EQ(after[126], name(4));
    EXPECT_EQ(after[3], name(127));
    EXPECT_EQ(after[4], name(126));
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBankPopup1].caption, "Undo A Swap Last");
}

TEST_F(BankReorder, InsertFirstMovesTheSelectionAndItsFlagsToTheStartKeepingBothOrders)
{
    selectPatches(model, {7, 3, 100});
    insertSelection(model, 1);
    const auto after = names();
    EXPECT_EQ(after[0], name(3));
    EXPECT_EQ(after[1], name(7));
    EXPECT_EQ(after[2], name(100));
    EXPECT_EQ(after[3], name(0));
    EXPECT_EQ(after[6], name(4));
    EXPECT_EQ(after[7], name(5));
    EXPECT_EQ(after[127], name(127));
    EXPECT_EQ(selected(), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(model.banks.selection(kPatchBankA).selectionSequence[3], 2);
    EXPECT_EQ(model.bankView.labels[1].scheme, kSelectedScheme);
    EXPECT_EQ(model.bankView.labels[7].scheme, kUnselectedScheme);
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Insert First");
}

TEST_F(BankReorder, InsertLastMovesTheSelectionToTheEnd)
{
    selectPatches(model, {0, 50});
    insertSelection(model, 2);
    const auto after = names();
    EXPECT_EQ(after[0], name(1));
    EXPECT_EQ(after[126], name(0));
    EXPECT_EQ(after[127], name(50));
    EXPECT_EQ(selected(), (std::vector<int>{126, 127}));
}

TEST_F(BankReorder, InsertLastWithAll128SelectedKeepsTheOrder)
{
    mnuSelectAll(model);
    const auto before = names();
    insertSelection(model, 2);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(selected().size(), 128u);
    EXPECT_EQ(undoSteps(), 1);
}

TEST_F(BankReorder, RotateMinusMovesEachPatchToThePlaceBefore)
{
    selectPatches(model, {2, 5, 9, 11});
    rotateSelection(model, -1);
    const auto after = names();
    EXPECT_EQ(after[2], name(5));
    EXPECT_EQ(after[5], name(9));
    EXPECT_EQ(after[9], name(11));
    EXPECT_EQ(after[11], name(2));
    EXPECT_EQ(selected(), (std::vector<int>{2, 5, 9, 11}));
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Rotate (-)");
}

TEST_F(BankReorder, RotatePlusMovesEachPatchToThePlaceAfter)
{
    selectPatches(model, {2, 5, 9, 11});
    rotateSelection(model, 1);
    const auto after = names();
    EXPECT_EQ(after[2], name(11));
    EXPECT_EQ(after[5], name(2));
    EXPECT_EQ(after[9], name(5));
    EXPECT_EQ(after[11], name(9));
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Rotate (+)");
}

TEST_F(BankReorder, RotateMinusMinusReversesTheSelectedPatches)
{
    selectPatches(model, {1, 4, 6, 8, 20});
    rotateSelection(model, -2);
    const auto after = names();
    EXPECT_EQ(after[1], name(20));
    EXPECT_EQ(after[4], name(8));
    EXPECT_EQ(after[6], name(6));
    EXPECT_EQ(after[8], name(4));
    EXPECT_EQ(after[20], name(1));
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Rotate (--)");
}

TEST_F(BankReorder, RotatePlusPlusWithThreeSelectedRotatesByOneLikeRotateMinus)
{
    selectPatches(model, {10, 20, 30});
    rotateSelection(model, 2);
    const auto byPlusPlus = names();
    EXPECT_EQ(byPlusPlus[10], name(20));
    EXPECT_EQ(byPlusPlus[20], name(30));
    EXPECT_EQ(byPlusPlus[30], name(10));
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo A Rotate (++)");

    TestModel other;
    loadNumberedBank(other.model, kPatchBankA);
    showBank(other.model, kPatchBankA);
    selectPatches(other.model, {10, 20, 30});
    rotateSelection(other.model, -1);
    EXPECT_EQ(bankNames(other.model, kPatchBankA), byPlusPlus);
}

TEST_F(BankReorder, RotatePlusPlusMovesByHalfTheCount)
{
    selectPatches(model, {0, 1, 2, 3, 4, 5});
    rotateSelection(model, 2);
    const auto after = names();
    EXPECT_EQ(after[0], name(3));
    EXPECT_EQ(after[2], name(5));
    EXPECT_EQ(after[3], name(0));
}

TEST_F(BankReorder, TooSmallASelectionOrAnUnloadedBankDoesNothing)
{
    selectPatches(model, {4});
    rotateSelection(model, 1);
    EXPECT_EQ(undoSteps(), 0);
    mnuDeselectAll(model);
    swapSelection(model, 1);
    insertSelection(model, 2);
    EXPECT_EQ(undoSteps(), 0);
    selectPatches(model, {4, 90});
    model.flags.loaded[kPatchBankA] = false;
    rotateSelection(model, 1);
    swapSelection(model, 2);
    EXPECT_EQ(undoSteps(), 0);
    EXPECT_FALSE(model.flags.changed[kPatchBankA]);
}

TEST_F(BankReorder, AReorderingShowsTheHourglassAndTellsTheScreensOnce)
{
    RecordingObserver observer;
    model.addObserver(&observer);
    selectPatches(model, {1, 2});
    observer.calls = 0;
    rotateSelection(model, 1);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_TRUE(observer.all & kBankViewChanged);
    EXPECT_TRUE(observer.all & kUndoMenuChanged);
    EXPECT_EQ(t.host.busyDepth, 0);
}

TEST_F(BankReorder, BankBKeepsItsPlacesInTheUndoMap)
{
    loadNumberedBank(model, kPatchBankB, "B");
    showBank(model, kPatchBankB);
    selectPatches(model, {0, 1});
    rotateSelection(model, 1);
    const UndoSlot& slot = model.banks.undo.head();
    EXPECT_EQ(slot.undoBank, kPatchBankB);
    EXPECT_EQ(slot.undoMap[128], 129);
    EXPECT_EQ(slot.undoMap[129], 128);
    EXPECT_EQ(slot.undoMap[0], 0);
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo B Rotate (+)");
}

}  // namespace
}  // namespace quillon
