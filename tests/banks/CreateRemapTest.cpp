#include "banks/CreateRemap.h"

#include "BankFixtures.h"
#include "RemapFixtures.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace quillon {
namespace {

constexpr const char* kTitle = "Create Remap";
const std::string kStep1 = "Step 1: Read Old Bank A\n";
const std::string kStep2 = "Step 2: Read Old Bank B\n";
const std::string kStep3 = "Step 3: Read New Bank A\n";
const std::string kStep4 = "Step 4: Read New Bank B\n";
const std::string kDone = "New Bank Remap created successfully. It can be applied to \nmultisets and multi banks";

// The names of a bank in reverse order.
std::array<std::string, 128> reversed(std::array<std::string, 128> names)
{
    std::reverse(names.begin(), names.end());
    return names;
}

void writeAllLists(TestModel& t)
{
    writeBankListFile(t.model, kPatchBankA, kOldList, numberedNames("A"));
    writeBankListFile(t.model, kPatchBankB, kOldList, numberedNames("B"));
    writeBankListFile(t.model, kPatchBankA, kNewList, reversed(numberedNames("A")));
    writeBankListFile(t.model, kPatchBankB, kNewList, numberedNames("B"));
}

std::array<std::string, 128> listOnDisk(TestModel& t, int bank, int which)
{
    std::array<std::string, 128> names;
    EXPECT_TRUE(readBankListFile(bankListPath(t.model, bank, which), names));
    return names;
}

TEST(CreateRemap, TheStepCodeCountsTheListFileOneAndTheLoadedBankTwo)
{
    EXPECT_EQ(remapStepCode(false, false), 0);
    EXPECT_EQ(remapStepCode(true, false), 1);
    EXPECT_EQ(remapStepCode(false, true), 2);
    EXPECT_EQ(remapStepCode(true, true), 3);
}

TEST(CreateRemap, Code0CancelEndsTheDialogueWithNothingWritten)
{
    TestModel t;
    t.host.expectMessage(kTitle, Answer::Cancel, kStep1 + "No bank loaded.\nYou will need to select from file list");
    EXPECT_FALSE(createRemap(t.model));
    EXPECT_TRUE(std::filesystem::is_empty(t.folder.path()));
}

TEST(CreateRemap, Code0OkPicksAFileForEachStepAndTheMatchFollowsTheMovedPatches)
{
    TestModel t;
    TempFolder files;
    writeBankSyx(files / "oldA.syx", kPatchBankA, numberedNames("A"));
    writeBankSyx(files / "oldB.syx", kPatchBankB, numberedNames("B"));
    writeBankSyx(files / "newA.syx", kPatchBankA, reversed(numberedNames("A")));
    auto newB = numberedNames("B");
    newB[4] = "Renamed         ";
    writeBankSyx(files / "newB.syx", kPatchBankB, newB);

    const std::string pick = "No bank loaded.\nYou will need to select from file list";
    t.host.expectMessage(kTitle, Answer::Ok, kStep1 + pick)
        .expectOpenFile("Open Old Bank A File", (files / "oldA.syx").string())
        .expectMessage(kTitle, Answer::Ok, kStep2 + pick)
        .expectOpenFile("Open Old Bank B File", (files / "oldB.syx").string())
        // The banks in memory are the ones the old steps listed: no question
        // about them, straight to the file list.
        .expectMessage(kTitle, Answer::Ok, kStep3 + "New bank needs to be selected from file list")
        .expectOpenFile("Open New Bank A File", (files / "newA.syx").string())
        .expectMessage(kTitle, Answer::Ok, kStep4 + "New bank needs to be selected from file list")
        .expectOpenFile("Open New Bank B File", (files / "newB.syx").string())
        .expectMessage(kTitle, Answer::Ok, kDone);
    ASSERT_TRUE(createRemap(t.model));

    EXPECT_EQ(listOnDisk(t, kPatchBankA, kOldList), numberedNames("A"));
    EXPECT_EQ(listOnDisk(t, kPatchBankB, kNewList), newB);
    const RemapTable& table = t.model.remap.remapTable;
    EXPECT_EQ(table[0], 127);
    EXPECT_EQ(table[127], 0);
    EXPECT_EQ(table[128 + 4], -1);
    EXPECT_EQ(table[128 + 5], 128 + 5);
    EXPECT_TRUE(t.model.remap.newListsPresent);
    RemapTable saved{};
    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(remapTablePath(t.model), lines));
    ASSERT_TRUE(parseRemapTable(lines, saved));
    EXPECT_EQ(saved, table);
}

TEST(CreateRemap, Code1YesUsesTheExistingListsOfEveryStep)
{
    TestModel t;
    writeAllLists(t);
    for (const std::string& step : {kStep1, kStep2, kStep3, kStep4})
        t.host.expectMessage(kTitle, Answer::Yes, step + "Use existing bank map?");
    t.host.expectMessage(kTitle, Answer::Ok, kDone);
    ASSERT_TRUE(createRemap(t.model));
    EXPECT_EQ(t.model.remap.remapTable[3], 124);
    EXPECT_EQ(t.model.remap.remapTable[200], 200);
    EXPECT_TRUE(std::filesystem::exists(remapTablePath(t.model)));
}

TEST(CreateRemap, Code1NoGoesToTheFilePickerAndACancelledPickAborts)
{
    TestModel t;
    writeAllLists(t);
    t.host.expectMessage(kTitle, Answer::No, kStep1 + "Use existing bank map?")
        .expectOpenFile("Open Old Bank A File", std::nullopt)
        .expectMessage(kTitle, Answer::Ok, kStep1 + "Expected bank not loaded.\nAction aborted");
    EXPECT_FALSE(createRemap(t.model));
    EXPECT_FALSE(std::filesystem::exists(remapTablePath(t.model)));
}

TEST(CreateRemap, Code1CancelEndsTheDialogue)
{
    TestModel t;
    writeAllLists(t);
    t.host.expectMessage(kTitle, Answer::Yes, kStep1 + "Use existing bank map?")
        .expectMessage(kTitle, Answer::Cancel, kStep2 + "Use existing bank map?");
    EXPECT_FALSE(createRemap(t.model));
    EXPECT_FALSE(std::filesystem::exists(remapTablePath(t.model)));
}

TEST(CreateRemap, APickedFileOfTheOtherBankIsNotTheExpectedBank)
{
    TestModel t;
    TempFolder files;
    writeBankSyx(files / "b.syx", kPatchBankB, numberedNames("B"));
    t.host.expectMessage(kTitle, Answer::Ok, kStep1 + "No bank loaded.\nYou will need to select from file list")
        .expectOpenFile("Open Old Bank A File", (files / "b.syx").string())
        .expectMessage(kTitle, Answer::Ok, kStep1 + "Expected bank not loaded.\nAction aborted");
    EXPECT_FALSE(createRemap(t.model));
    EXPECT_FALSE(std::filesystem::exists(bankListPath(t.model, kPatchBankA, kOldList)));
}

TEST(CreateRemap, AFileThatIsNoBankIsNotTheExpectedBank)
{
    TestModel t;
    TempFolder files;
    writeLinesAtomically(files / "notes.syx", {"not a bank"});
    t.host.expectMessage(kTitle, Answer::Ok, kStep1 + "No bank loaded.\nYou will need to select from file list")
        .expectOpenFile("Open Old Bank A File", (files / "notes.syx").string())
        .expectMessage(kTitle, Answer::Ok, kStep1 + "Expected bank not loaded.\nAction aborted");
    EXPECT_FALSE(createRemap(t.model));
}

TEST(CreateRemap, Code3YesTakesTheBankInMemoryAndNoTheExistingList)
{
    TestModel t;
    writeAllLists(t);
    loadNumberedBank(t.model, kPatchBankA, "Mem A ");
    loadNumberedBank(t.model, kPatchBankB, "Mem B ");
    t.host.expectMessage(kTitle, Answer::No, kStep1 + "Use currently loaded bank?")
        .expectMessage(kTitle, Answer::No, kStep2 + "Use currently loaded bank?")
        .expectMessage(kTitle, Answer::Yes, kStep3 + "Use currently loaded bank?")
        .expectMessage(kTitle, Answer::No, kStep4 + "Use currently loaded bank?")
        .expectMessage(kTitle, Answer::Ok, kDone);
    ASSERT_TRUE(createRemap(t.model));
    EXPECT_EQ(listOnDisk(t, kPatchBankA, kOldList), numberedNames("A"));
    EXPECT_EQ(listOnDisk(t, kPatchBankA, kNewList)[7], "Mem A 007       ");
    EXPECT_EQ(listOnDisk(t, kPatchBankB, kNewList), numberedNames("B"));
    // Old A names are not in the new bank A.
    EXPECT_EQ(t.model.remap.remapTable[7], -1);
    EXPECT_EQ(t.model.remap.remapTable[135], 135);
}

TEST(CreateRemap, ANewStepDoesNotOfferTheBankItsOldStepListedAndCode3ThenUsesTheList)
{
    TestModel t;
    writeAllLists(t);
    loadNumberedBank(t.model, kPatchBankA, "Mem A ");
    t.host.expectMessage(kTitle, Answer::Yes, kStep1 + "Use currently loaded bank?")
        .expectMessage(kTitle, Answer::Yes, kStep2 + "Use existing bank map?")
        .expectMessage(kTitle, Answer::Yes, kStep4 + "Use existing bank map?")
        .expectMessage(kTitle, Answer::Ok, kDone);
    ASSERT_TRUE(createRemap(t.model));
    EXPECT_EQ(listOnDisk(t, kPatchBankA, kOldList)[0], "Mem A 000       ");
    EXPECT_EQ(listOnDisk(t, kPatchBankA, kNewList), reversed(numberedNames("A")));
}

TEST(CreateRemap, Code2NoAsksForABankFromTheFileListAndCancelEnds)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    t.host.expectMessage(kTitle, Answer::No, kStep1 + "Use currently loaded bank?")
        .expectMessage(kTitle, Answer::Cancel, kStep1 + "New bank needs to be selected from file list");
    EXPECT_FALSE(createRemap(t.model));
    EXPECT_TRUE(std::filesystem::is_empty(t.folder.path()));
}

TEST(CreateRemap, Code2CancelEndsTheDialogue)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    t.host.expectMessage(kTitle, Answer::Cancel, kStep1 + "Use currently loaded bank?");
    EXPECT_FALSE(createRemap(t.model));
    EXPECT_TRUE(std::filesystem::is_empty(t.folder.path()));
}

}  // namespace
}  // namespace quillon
