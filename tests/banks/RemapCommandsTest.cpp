#include "banks/RemapCommands.h"

#include "BankFixtures.h"
#include "RemapFixtures.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

RemapTable shiftedTable()
{
    RemapTable table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::int16_t>((i + 1) % 256);
    return table;
}

TEST(RemapCommands, MapOldAndNewNeedBankAOrBOnShow)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.host.expectMessage("Map Bank As Old", Answer::Ok, "Please select bank A or B");
    mnuMapOld(t.model);
    t.host.expectMessage("Map Bank As New", Answer::Ok, "Please select bank A or B");
    mnuMapNew(t.model);
    EXPECT_TRUE(std::filesystem::is_empty(t.folder.path()));
}

TEST(RemapCommands, MapOldAndNewNeedTheBankLoaded)
{
    TestModel t;
    showBank(t.model, kPatchBankA);
    t.host.expectMessage("Map Bank A As Old (oldA)", Answer::Ok, "No Bank A loaded");
    mnuMapOld(t.model);
    t.host.expectMessage("Map Bank A As New (newA)", Answer::Ok, "No Bank A loaded");
    mnuMapNew(t.model);
    showBank(t.model, kPatchBankB);
    t.host.expectMessage("Map Bank B As Old (oldB)", Answer::Ok, "No Bank B loaded");
    mnuMapOld(t.model);
    t.host.expectMessage("Map Bank B As New (newB)", Answer::Ok, "No Bank B loaded");
    mnuMapNew(t.model);
    EXPECT_TRUE(std::filesystem::is_empty(t.folder.path()));
}

TEST(RemapCommands, MapOldWritesTheListOfTheBankOnShow)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankB, "Old");
    showBank(t.model, kPatchBankB);
    mnuMapOld(t.model);
    std::array<std::string, 128> names;
    ASSERT_TRUE(readBankListFile(t.folder / "oldB.txt", names));
    EXPECT_EQ(names[12], "Old012          ");
    EXPECT_FALSE(std::filesystem::exists(t.folder / "oldA.txt"));
}

TEST(RemapCommands, MapNewOfTheSecondBankMakesTheNewListsPresent)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA, "NA");
    loadNumberedBank(t.model, kPatchBankB, "NB");
    showBank(t.model, kPatchBankA);
    mnuMapNew(t.model);
    EXPECT_FALSE(t.model.remap.newListsPresent);
    showBank(t.model, kPatchBankB);
    mnuMapNew(t.model);
    EXPECT_TRUE(t.model.remap.newListsPresent);
    EXPECT_EQ(t.model.remap.newNames[130], "NB002           ");
}

TEST(RemapCommands, RemapMultisetNeedsTheRemapFirst)
{
    TestModel t;
    t.model.flags.loaded[kMultiset] = true;
    t.host.expectMessage("Remap Multiset", Answer::Ok, "You need to create remap first (Bank menu)");
    mnuRemapMultiset(t.model);
    t.host.expectMessage("Remap Multiset", Answer::Ok, "You need to create remap first (Bank menu)");
    mnuRemapMultiBank(t.model);
}

TEST(RemapCommands, RemapMultisetNeedsAMultiset)
{
    TestModel t;
    writeRemapFile(t.model, shiftedTable());
    t.host.expectMessage("Remap Multiset", Answer::Ok, "No multiset loaded");
    mnuRemapMultiset(t.model);
}

TEST(RemapCommands, RemapMultisetRemapsTheEditMultisetAndSaysCompleted)
{
    TestModel t;
    writeRemapFile(t.model, shiftedTable());
    t.model.flags.loaded[kMultiset] = true;
    setEditTimbre(t.model, 2, 200);
    t.host.expectMessage("Remap Multiset", Answer::Ok, "Completed");
    mnuRemapMultiset(t.model);
    EXPECT_EQ(editTimbre(t.model, 2), 201);
}

TEST(RemapCommands, RemapMultiBankNeedsASelectedAndLoadedMultiBank)
{
    TestModel t;
    writeRemapFile(t.model, shiftedTable());
    t.model.multiMode = 0;
    t.host.expectMessage("Remap Multi Bank", Answer::Ok, "No multi bank selected");
    mnuRemapMultiBank(t.model);
    t.model.multiMode = 1;
    t.host.expectMessage("Remap Multi Bank A", Answer::Ok, "Multi bank A is not loaded");
    mnuRemapMultiBank(t.model);
    t.model.multiMode = 2;
    t.host.expectMessage("Remap Multi Bank B", Answer::Ok, "Multi bank B is not loaded");
    mnuRemapMultiBank(t.model);
    EXPECT_FALSE(t.model.flags.changed[kMultiBankA]);
    EXPECT_FALSE(t.model.flags.changed[kMultiBankB]);
}

TEST(RemapCommands, RemapMultiBankRemapsAllSixteenMultisets)
{
    TestModel t;
    writeRemapFile(t.model, shiftedTable());
    t.model.flags.loaded[kMultiBankB] = true;
    t.model.multiMode = 2;
    for (int position = 0; position < kMultisPerBank; ++position)
        bankTimbre(t.model, kMultiBankB, position, 1) = static_cast<std::uint8_t>(position * 10);
    t.host.expectMessage("Remap Multi Bank B", Answer::Ok, "Completed");
    mnuRemapMultiBank(t.model);
    for (int position = 0; position < kMultisPerBank; ++position)
        EXPECT_EQ(bankTimbre(t.model, kMultiBankB, position, 1), position * 10 + 1);
    EXPECT_FALSE(t.model.flags.clean[kMultiBankB]);
}

TEST(RemapCommands, AnUnreadableRemapChangesNoMultiset)
{
    TestModel t;
    writeLinesAtomically(remapTablePath(t.model), {"1", "2"});
    t.model.flags.loaded[kMultiBankA] = true;
    t.model.multiMode = 1;
    bankTimbre(t.model, kMultiBankA, 3, 3) = 9;
    t.host.expectMessage("Loading Remap", Answer::Ok, "Problem reading file Quillonrmp.dat");
    mnuRemapMultiBank(t.model);
    EXPECT_EQ(bankTimbre(t.model, kMultiBankA, 3, 3), 9);
    EXPECT_FALSE(t.model.flags.changed[kMultiBankA]);
}

}  // namespace
}  // namespace quillon
