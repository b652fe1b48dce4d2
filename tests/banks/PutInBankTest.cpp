#include "banks/PutInBank.h"

#include "banks/BankFixtures.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

// Names the item in an editor and marks it loaded.
void loadItemNamed(AppModel& model, int kind, const std::string& name)
{
    ParamValues& values = model.buffers.of(kind).current;
    for (int i = 0; i < 16; ++i)
        values[static_cast<std::size_t>(i + 1)] =
            static_cast<std::int16_t>(i < static_cast<int>(name.size()) ? name[static_cast<std::size_t>(i)] : ' ');
    model.flags.loaded[kind] = true;
}

void nameMember(AppModel& model, int bank, int position, int bytes, const std::string& name)
{
    ByteImage& image = model.banks.image(bank);
    for (int i = 0; i < 16; ++i)
        image[static_cast<std::size_t>(position * bytes + i)] =
            static_cast<std::uint8_t>(i < static_cast<int>(name.size()) ? name[static_cast<std::size_t>(i)] : ' ');
    model.flags.loaded[bank] = true;
}

TEST(PutPatchInBank, WithoutAPatchSaysSoAndChangesNothing)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    t.host.expectMessage("Put patch in bank", Answer::Ok, "No patch loaded");
    putPatchInBank(t.model, 0);
    EXPECT_FALSE(t.model.flags.changed[kPatchBankA]);
    EXPECT_TRUE(t.host.bankDialogs.empty());
}

TEST(PutPatchInBank, WithoutABankSaysSo)
{
    TestModel t;
    loadItemNamed(t.model, kPatch, "Lead");
    t.host.expectMessage("Put patch in bank", Answer::Ok, "No bank loaded");
    putPatchInBank(t.model, 0);
    EXPECT_EQ(t.host.messages.at(0).helpContext, kPutPatchHelpContext);
    EXPECT_TRUE(t.host.messages.at(0).help);
}

TEST(PutPatchInBank, CancelChangesNothing)
{
    TestModel t;
    loadItemNamed(t.model, kPatch, "Lead");
    loadNumberedBank(t.model, kPatchBankA);
    t.host.status = "old";
    t.host.expectBankDialog(1, -1);
    putPatchInBank(t.model, 3);
    EXPECT_EQ(bankNames(t.model, kPatchBankA)[3], "P003");
    EXPECT_FALSE(t.model.flags.changed[kPatchBankA]);
    EXPECT_EQ(t.host.status, "") << "the status lines are cleared before the dialog";
}

TEST(PutPatchInBank, TheDialogStartsOnThePlaceAndShowsBothNames)
{
    TestModel t;
    loadItemNamed(t.model, kPatch, "Lead");
    loadNumberedBank(t.model, kPatchBankA);
    loadNumberedBank(t.model, kPatchBankB, "Q");
    t.host.expectBankDialog(1, -1);
    putPatchInBank(t.model, 130);
    const BankDialogRequest& request = t.host.bankDialogs.at(0);
    EXPECT_EQ(request.selectedPlace, 130);
    EXPECT_EQ(request.newName, "Lead");
    EXPECT_EQ(request.nameAt(5), "P005            ");
    EXPECT_EQ(request.nameAt(128 + 7), "Q007            ");
    EXPECT_TRUE(request.bankLoaded(kPatchBankB));
}

TEST(PutPatchInBank, ReplacesThePatchAndReportsTheOldName)
{
    TestModel t;
    loadItemNamed(t.model, kPatch, "Lead Synth");
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    selectPatches(t.model, {1, 2});
    t.host.expectBankDialog(1, 5);
    putPatchInBank(t.model, 0);
    EXPECT_EQ(bankNames(t.model, kPatchBankA)[5], "Lead Synth");
    EXPECT_EQ(t.host.status, "Lead Synth has replaced A005 P005 in loaded Bank A");
    EXPECT_EQ(t.host.statusColour, StatusColour::Done);
    EXPECT_EQ(t.model.banks.lastPutPatch, 5);
    EXPECT_TRUE(t.model.flags.changed[kPatchBankA]);
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 0) << "the labels are set up anew";
    EXPECT_EQ(t.model.bankView.labels[5].caption, "Lead Synth      ");
}

TEST(PutPatchInBank, AnUnloadedBankChosenOnTheDialogIsRefused)
{
    TestModel t;
    loadItemNamed(t.model, kPatch, "Lead");
    loadNumberedBank(t.model, kPatchBankA);
    t.host.expectBankDialog(1, 128 + 4).expectMessage("Put patch in bank", Answer::Ok, "Bank B is not loaded");
    putPatchInBank(t.model, 0);
    EXPECT_FALSE(t.model.flags.changed[kPatchBankB]);
    EXPECT_EQ(t.model.banks.lastPutPatch, 0);
}

TEST(PutPatchInBank, InBankBTheStatusNamesB)
{
    TestModel t;
    loadItemNamed(t.model, kPatch, "Pad");
    loadNumberedBank(t.model, kPatchBankB, "Q");
    t.host.expectBankDialog(1, 128 + 127);
    putPatchInBank(t.model, 0);
    EXPECT_EQ(t.host.status, "Pad has replaced B127 Q127 in loaded Bank B");
    EXPECT_EQ(t.model.banks.lastPutPatch, 255);
}

TEST(PutMultiInBank, RefusalsAndTheStatusOfAPut)
{
    TestModel t;
    t.host.expectMessage("Put Multiset in Multi Bank", Answer::Ok, "No multiset loaded");
    putMultiInBank(t.model, 0);
    loadItemNamed(t.model, kMultiset, "Split");
    t.host.expectMessage("Put Multiset in Multi Bank", Answer::Ok, "No multibank loaded");
    putMultiInBank(t.model, 0);
    nameMember(t.model, kMultiBankB, 3, kMultiBytes, "Old Multi");
    t.host.expectBankDialog(4, 2).expectMessage("Put Multi in Multi Bank", Answer::Ok, "Multi Bank A is not loaded");
    putMultiInBank(t.model, 0);
    t.host.expectBankDialog(4, 16 + 3);
    putMultiInBank(t.model, 0);
    EXPECT_EQ(t.host.status, "Split has replaced B03 Old Multi in loaded multibank B");
    EXPECT_EQ(trimmedRight(t.model.banks.bankMultiName(kMultiBankB, 3)), "Split");
    EXPECT_EQ(t.model.banks.lastPutMulti, 19);
}

TEST(PutPatternInBank, RefusalsAndTheStatusNamesTheSlot)
{
    TestModel t;
    t.host.expectMessage("Put Pattern in Arpeggiator Bank", Answer::Ok, "No arpeggiator pattern loaded");
    putPatternInBank(t.model, 5);
    loadItemNamed(t.model, kPattern, "Run Up");
    t.host.expectMessage("Put Pattern in Arpeggiator Bank", Answer::Ok, "No arpeggiator bank loaded");
    putPatternInBank(t.model, 5);
    nameMember(t.model, kArpBank, 10, kPatternBytes, "Old Arp");
    t.host.expectBankDialog(5, 10);
    putPatternInBank(t.model, 0);
    EXPECT_EQ(t.host.bankDialogs.at(0).selectedPlace, 5) << "the presets are never offered";
    EXPECT_EQ(t.host.status, "Run Up has replaced U2-1 Old Arp in loaded Arp Bank (All Patterns)");
    EXPECT_EQ(t.model.banks.lastPutPattern, 10);
}

TEST(PutInBank, TheToolbarKeyPutsTheItemOfTheModeOnShow)
{
    TestModel t;
    loadItemNamed(t.model, kMultiset, "Split");
    nameMember(t.model, kMultiBankA, 0, kMultiBytes, "Old");
    t.model.mode = kMultiset;
    t.model.banks.lastPutMulti = 7;
    t.host.expectBankDialog(4, -1);
    putCurrentInBank(t.model);
    EXPECT_EQ(t.host.bankDialogs.at(0).selectedPlace, 7);
}

}  // namespace
}  // namespace quillon
