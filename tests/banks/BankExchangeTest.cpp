#include "banks/BankExchange.h"

#include "banks/BankFixtures.h"
#include "banks/BankMenus.h"
#include "banks/BankUndo.h"
#include "banks/BankView.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

constexpr const char* kExchangeTitle = "Export/import patches between banks";

struct BankExchange : ::testing::Test {
    TestModel t;
    AppModel& model = t.model;

    void SetUp() override
    {
        loadNumberedBank(model, kPatchBankA, "A");
        loadNumberedBank(model, kPatchBankB, "B");
        showBank(model, kPatchBankA);
        fraBankLabelsSetUp(model, kPatchBankA, 0);
    }
};

TEST_F(BankExchange, OnePatchChangesPlacesWithTheLastOfTheOtherBank)
{
    selectPatches(model, {9});
    t.host.expectMessage(kExchangeTitle, Answer::Yes, "Swap this patch with the last patch\n in Bank B. Are you sure?");
    mnuExportImport1(model);
    EXPECT_EQ(bankNames(model, kPatchBankA)[9], "B127");
    EXPECT_EQ(bankNames(model, kPatchBankB)[127], "A009");
    EXPECT_EQ(t.host.status, "1 patches exported/imported");
    EXPECT_EQ(t.host.statusColour, StatusColour::Done);
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo Export/Import (bank)");
    EXPECT_EQ(model.bankView.labels[9].caption.substr(0, 4), "B127");
}

TEST_F(BankExchange, SeveralPatchesPairInOrderWithTheLastPlaces)
{
    showBank(model, kPatchBankB);
    selectPatches(model, {1, 40, 3});
    t.host.expectMessage(kExchangeTitle, Answer::Yes, "Swap these 3 patches with the last 3 patches\n in Bank A. Are you sure?");
    mnuExportImport2(model);
    const auto a = bankNames(model, kPatchBankA);
    const auto b = bankNames(model, kPatchBankB);
    EXPECT_EQ(a[125], "B001");
    EXPECT_EQ(a[126], "B003");
    EXPECT_EQ(a[127], "B040");
    EXPECT_EQ(b[1], "A125");
    EXPECT_EQ(b[3], "A126");
    EXPECT_EQ(b[40], "A127");
    EXPECT_EQ(a[124], "A124");
}

TEST_F(BankExchange, TheRunIsShownInTheBusyColourAsItGoes)
{
    struct WatchingHost : ScriptedHost {
        std::vector<std::pair<std::string, StatusColour>> lines;
        void setStatus(const std::string& text, StatusColour colour) override
        {
            lines.emplace_back(text, colour);
            ScriptedHost::setStatus(text, colour);
        }
    } host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel watched(host, store, folder.path());
    loadNumberedBank(watched, kPatchBankA, "A");
    loadNumberedBank(watched, kPatchBankB, "B");
    showBank(watched, kPatchBankA);
    selectPatches(watched, {0, 1});
    host.expectMessage(kExchangeTitle, Answer::Yes);
    exportImportSelection(watched);
    ASSERT_EQ(host.lines.size(), 3u);
    EXPECT_EQ(host.lines[0].first, "Exporting A000 to Bank B");
    EXPECT_EQ(static_cast<int>(host.lines[0].second), 0x40C0);
    EXPECT_EQ(host.lines[1].first, "Exporting A001 to Bank B");
    EXPECT_EQ(host.lines[2].first, "2 patches exported/imported");
    EXPECT_EQ(host.lines[2].second, StatusColour::Done);
}

TEST_F(BankExchange, NoInTheExportImportQuestionLeavesTheBankUntouched)
{
    selectPatches(model, {9});
    const auto a = bankNames(model, kPatchBankA);
    const auto b = bankNames(model, kPatchBankB);
    const int headBefore = model.banks.undo.undoHead;
    t.host.expectMessage(kExchangeTitle, Answer::No);
    mnuExportImport1(model);
    EXPECT_EQ(bankNames(model, kPatchBankA), a);
    EXPECT_EQ(bankNames(model, kPatchBankB), b);
    EXPECT_FALSE(model.flags.changed[kPatchBankA]);
    EXPECT_FALSE(model.flags.changed[kPatchBankB]);
    // The question came after the undo step was taken: the head stays moved
    // on, and its slot takes nothing back.
    EXPECT_EQ(model.banks.undo.undoHead, headBefore + 1);
    EXPECT_FALSE(model.bankView.undoItems[kMnuUndoBank].enabled);
    undoBankOperation(model);
    EXPECT_EQ(bankNames(model, kPatchBankA), a);
}

TEST_F(BankExchange, UndoAfterAnExportImportRestoresBothBanksAndMarksBothAsChanged)
{
    selectPatches(model, {0, 64});
    const auto a = bankNames(model, kPatchBankA);
    const auto b = bankNames(model, kPatchBankB);
    t.host.expectMessage(kExchangeTitle, Answer::Yes);
    mnuExportImport2(model);
    ASSERT_NE(bankNames(model, kPatchBankA), a);
    ASSERT_NE(bankNames(model, kPatchBankB), b);
    model.flags.changed[kPatchBankA] = false;
    model.flags.changed[kPatchBankB] = false;
    showBank(model, kPatchBankB);
    mnuUndoBank(model);
    EXPECT_EQ(bankNames(model, kPatchBankA), a);
    EXPECT_EQ(bankNames(model, kPatchBankB), b);
    EXPECT_TRUE(model.flags.changed[kPatchBankA]);
    EXPECT_TRUE(model.flags.changed[kPatchBankB]);
    EXPECT_EQ(model.mode, kPatchBankA);
}

TEST_F(BankExchange, BothMenuItemsRefuseWithoutBothBanks)
{
    model.flags.loaded[kPatchBankB] = false;
    selectPatches(model, {2});
    t.host.expectMessage("Export/import patch between banks", Answer::Ok, "Banks A and B should both be loaded");
    mnuExportImport1(model);
    t.host.expectMessage("Export/import patches between banks", Answer::Ok, "Banks A and B should both be loaded");
    mnuExportImport2(model);
    EXPECT_TRUE(model.banks.undo.empty());
}

TEST_F(BankExchange, IdenticalPatchesLeaveTheBanksUnchanged)
{
    const ByteImage same = model.banks.readBankPatch(kPatchBankA, 5);
    model.banks.writeBankPatch(kPatchBankB, 127, same);
    model.flags.changed[kPatchBankB] = false;
    selectPatches(model, {5});
    t.host.expectMessage(kExchangeTitle, Answer::Yes);
    exportImportSelection(model);
    EXPECT_FALSE(model.flags.changed[kPatchBankA]);
    EXPECT_FALSE(model.flags.changed[kPatchBankB]);
}

TEST_F(BankExchange, SwapBanksExchangesTheBanksAndFollowsThePatches)
{
    selectPatches(model, {1, 2});
    pushUndoSlot(model);
    updateUndoBankMenu(model, 1);
    model.itemPath[kPatchBankA] = "/a.syx";
    model.flags.clean[kPatchBankA] = true;
    t.host.expectMessage("Swap banks", Answer::Yes, "This will change bank status for saving and sending. Is this OK?");
    swapBanks(model);
    EXPECT_EQ(bankNames(model, kPatchBankA)[0], "B000");
    EXPECT_EQ(bankNames(model, kPatchBankB)[0], "A000");
    EXPECT_TRUE(model.flags.changed[kPatchBankA] && model.flags.changed[kPatchBankB]);
    EXPECT_FALSE(model.flags.clean[kPatchBankA]);
    EXPECT_TRUE(model.itemPath[kPatchBankA].empty());
    EXPECT_EQ(model.banks.selection(kPatchBankA).selectionCount, 0);
    EXPECT_EQ(model.bankTarget, kPatchBankB);
    EXPECT_EQ(model.mode, kPatchBankB);
    EXPECT_TRUE(model.labels.label(kPatchBankB).highlighted);
    EXPECT_EQ(model.bankView.labels[0].caption.substr(0, 4), "A000");
    EXPECT_TRUE(model.banks.undo.empty());
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo");
}

TEST_F(BankExchange, SwapBanksWithOnlyBankAMovesItToB)
{
    model.flags.loaded[kPatchBankB] = false;
    t.host.expectMessage("Swap banks", Answer::Yes);
    swapBanks(model);
    EXPECT_FALSE(model.flags.loaded[kPatchBankA]);
    EXPECT_FALSE(model.flags.changed[kPatchBankA]);
    EXPECT_TRUE(model.flags.loaded[kPatchBankB]);
    EXPECT_TRUE(model.flags.changed[kPatchBankB]);
    EXPECT_EQ(bankNames(model, kPatchBankB)[7], "A007");
    EXPECT_EQ(model.banks.image(kPatchBankA)[0], 0);
    EXPECT_EQ(model.labels.label(kPatchBankA).scheme, 7);
}

TEST_F(BankExchange, SwapBanksRefusesWithoutBanksAndAsksFirst)
{
    TestModel empty;
    empty.host.expectMessage("Swap banks", Answer::Ok, "No banks loaded");
    swapBanks(empty.model);

    t.host.expectMessage("Swap banks", Answer::No);
    swapBanks(model);
    EXPECT_EQ(bankNames(model, kPatchBankA)[0], "A000");
    EXPECT_FALSE(model.flags.changed[kPatchBankA]);
}

}  // namespace
}  // namespace quillon
