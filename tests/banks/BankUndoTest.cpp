#include "banks/BankUndo.h"

#include "banks/BankFixtures.h"
#include "banks/BankView.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

// A reordering made by hand: patches a and b of the current bank change
// places, recorded in the ring under the given code.
void exchangeByHand(AppModel& model, int a, int b, int code)
{
    const int bank = model.bankTarget;
    pushUndoSlot(model);
    const ByteImage first = model.banks.readBankPatch(bank, a);
    model.banks.writeBankPatch(bank, a, model.banks.readBankPatch(bank, b));
    model.banks.writeBankPatch(bank, b, first);
    UndoSlot& slot = model.banks.undo.head();
    slot.undoBank = bank;
    updateUndoBankMenu(model, code);
    const int offset = bank == kPatchBankB ? 128 : 0;
    slot.undoMap[static_cast<std::size_t>(a + offset)] = static_cast<std::int16_t>(b + offset);
    slot.undoMap[static_cast<std::size_t>(b + offset)] = static_cast<std::int16_t>(a + offset);
}

void expectUndoItems(const AppModel& model, const std::string& caption, bool enabled)
{
    for (const auto& item : model.bankView.undoItems) {
        EXPECT_EQ(item.caption, caption);
        EXPECT_EQ(item.enabled, enabled);
    }
}

TEST(BankUndo, CaptionsNameTheBankAndTheMenuEntry)
{
    TestModel t;
    showBank(t.model, kPatchBankA);
    const std::pair<int, std::string> cases[] = {
        {1, "Undo A Sort by Name"},   {10, "Undo A Sort by Linked Arp."}, {11, "Undo A Sort (Name)"},
        {20, "Undo A Sort (Arp)"},    {21, "Undo A Rotate (--)"},         {22, "Undo A Rotate (-)"},
        {24, "Undo A Rotate (+)"},    {25, "Undo A Rotate (++)"},         {26, "Undo A Insert First"},
        {27, "Undo A Insert Last"},   {28, "Undo A Swap First"},          {29, "Undo A Swap Last"},
        {30, "Undo Export/Import (bank)"},
    };
    for (const auto& [code, caption] : cases) {
        pushUndoSlot(t.model);
        updateUndoBankMenu(t.model, code);
        expectUndoItems(t.model, caption, true);
        EXPECT_EQ(t.model.banks.undo.head().undoOperation, code);
    }
    showBank(t.model, kPatchBankB);
    pushUndoSlot(t.model);
    updateUndoBankMenu(t.model, 13);
    expectUndoItems(t.model, "Undo B Sort (User Gp)", true);
}

TEST(BankUndo, OperationZeroEmptiesTheRingAndDisablesTheItems)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    showBank(t.model, kPatchBankA);
    pushUndoSlot(t.model);
    updateUndoBankMenu(t.model, 1);
    updateUndoBankMenu(t.model, 0);
    EXPECT_TRUE(t.model.banks.undo.empty());
    EXPECT_EQ(t.model.banks.undo.undoHead, 1);
    expectUndoItems(t.model, "Undo", false);
    EXPECT_TRUE(observer.all & kUndoMenuChanged);
}

TEST(BankUndo, PushKeepsTheSelectionOfBothBanks)
{
    TestModel t;
    t.model.banks.selection(kPatchBankA).selectionFlags[4] = -1;
    t.model.banks.selection(kPatchBankB).selectionFlags[9] = -1;
    pushUndoSlot(t.model);
    const UndoSlot& slot = t.model.banks.undo.head();
    EXPECT_EQ(t.model.banks.undo.undoHead, 2);
    EXPECT_EQ(slot.undoSelection[4], -1);
    EXPECT_EQ(slot.undoSelection[128 + 9], -1);
    EXPECT_EQ(slot.undoSelection[9], 0);
}

TEST(BankUndo, UndoPutsThePatchesBackAndRestoresTheSelection)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    selectPatches(t.model, {2, 7});
    const auto before = bankNames(t.model, kPatchBankA);
    exchangeByHand(t.model, 2, 7, 28);
    mnuDeselectAll(t.model);
    ASSERT_NE(bankNames(t.model, kPatchBankA), before);
    t.model.flags.changed[kPatchBankA] = false;
    undoBankOperation(t.model);
    EXPECT_EQ(bankNames(t.model, kPatchBankA), before);
    EXPECT_TRUE(t.model.flags.changed[kPatchBankA]);
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 2);
    EXPECT_EQ(t.model.bankView.labels[7].scheme, kSelectedScheme);
    EXPECT_EQ(t.model.bankView.labels[7].caption, "P007            ");
    EXPECT_TRUE(t.model.banks.undo.empty());
    expectUndoItems(t.model, "Undo", false);
}

TEST(BankUndo, UndoGoesToTheBankTheStepWasMadeOn)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    loadNumberedBank(t.model, kPatchBankB, "B");
    showBank(t.model, kPatchBankB);
    exchangeByHand(t.model, 0, 1, 29);
    showBank(t.model, kPatchBankA);
    undoBankOperation(t.model);
    EXPECT_EQ(t.model.mode, kPatchBankB);
    EXPECT_EQ(t.model.bankTarget, kPatchBankB);
    EXPECT_EQ(bankNames(t.model, kPatchBankB)[0], "B000");
    EXPECT_TRUE(t.model.labels.label(kPatchBankB).highlighted);
    // Every loaded bank counts as changed, whether the step touched it or not.
    EXPECT_TRUE(t.model.flags.changed[kPatchBankA]);
}

TEST(BankUndo, UndoOutsideTheBankViewDoesNothing)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    exchangeByHand(t.model, 0, 1, 28);
    t.model.mode = kPatch;
    undoBankOperation(t.model);
    EXPECT_EQ(bankNames(t.model, kPatchBankA)[0], "P001");
    EXPECT_FALSE(t.model.banks.undo.empty());
}

TEST(BankUndo, TheMenuItemRefusesWithoutABank)
{
    TestModel t;
    showBank(t.model, kPatchBankA);
    t.host.expectMessage("Undo bank", Answer::Ok, "No bank loaded");
    mnuUndoBank(t.model);
}

TEST(BankUndo, CaptionAfterAnUndoNamesTheStepBeforeIt)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    exchangeByHand(t.model, 0, 1, 26);
    exchangeByHand(t.model, 2, 3, 29);
    expectUndoItems(t.model, "Undo A Swap Last", true);
    mnuUndoBank(t.model);
    expectUndoItems(t.model, "Undo A Insert First", true);
}

TEST(BankUndo, TheEleventhStepDropsTheOldestAndTenUndosEmptyTheRing)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    std::vector<std::vector<std::string>> orders;
    for (int step = 0; step < 11; ++step) {
        orders.push_back(bankNames(t.model, kPatchBankA));
        exchangeByHand(t.model, step, step + 20, 28);
    }
    for (int undo = 10; undo >= 1; --undo) {
        ASSERT_FALSE(t.model.banks.undo.empty());
        undoBankOperation(t.model);
        EXPECT_EQ(bankNames(t.model, kPatchBankA), orders[static_cast<std::size_t>(undo)]);
    }
    EXPECT_TRUE(t.model.banks.undo.empty());
    expectUndoItems(t.model, "Undo", false);
    // The first step is gone for good.
    undoBankOperation(t.model);
    EXPECT_EQ(bankNames(t.model, kPatchBankA), orders[1]);
}

}  // namespace
}  // namespace quillon
