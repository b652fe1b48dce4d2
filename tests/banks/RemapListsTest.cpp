#include "banks/RemapLists.h"

#include "BankFixtures.h"
#include "RemapFixtures.h"
#include "files/AtomicFile.h"
#include "shell/StartUp.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

TEST(RemapLists, TheFourListsAreNamedByWhichAndLetter)
{
    EXPECT_EQ(bankListFileName(kPatchBankA, kOldList), "oldA.txt");
    EXPECT_EQ(bankListFileName(kPatchBankB, kOldList), "oldB.txt");
    EXPECT_EQ(bankListFileName(kPatchBankA, kNewList), "newA.txt");
    EXPECT_EQ(bankListFileName(kPatchBankB, kNewList), "newB.txt");
}

TEST(RemapLists, ASavedListHas128QuotedLinesOfNumberAndNameWithItsBlanks)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankB, "Pad ");
    ASSERT_TRUE(saveBankList(t.model, kPatchBankB, kOldList));
    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(t.folder / "oldB.txt", lines));
    ASSERT_EQ(lines.size(), 128u);
    EXPECT_EQ(lines[0], "\"000\",\"Pad 000         \"");
    EXPECT_EQ(lines[127], "\"127\",\"Pad 127         \"");
}

TEST(RemapLists, AReadListFillsItsHalfOfTheNames)
{
    TestModel t;
    writeBankListFile(t.model, kPatchBankB, kNewList, numberedNames("New B "));
    writeBankListFile(t.model, kPatchBankA, kOldList, numberedNames("Old A "));
    ASSERT_TRUE(readBankList(t.model, kPatchBankB, kNewList));
    ASSERT_TRUE(readBankList(t.model, kPatchBankA, kOldList));
    EXPECT_EQ(t.model.remap.newNames[128], "New B 000       ");
    EXPECT_EQ(t.model.remap.newNames[255], "New B 127       ");
    EXPECT_EQ(t.model.remap.newNames[0], "");
    EXPECT_EQ(t.model.remap.oldNames[5], "Old A 005       ");
}

TEST(RemapLists, AMissingListReadsNothingAndSaysNothing)
{
    TestModel t;
    EXPECT_FALSE(readBankList(t.model, kPatchBankA, kOldList));
    EXPECT_EQ(t.model.remap.oldNames[0], "");
}

TEST(RemapLists, ABadNewListSaysProblemReadingFileAndClearsTheNewListsFlag)
{
    TestModel t;
    writeLinesAtomically(t.folder / "newA.txt", {"\"000\",\"only one line\""});
    t.model.remap.newListsPresent = true;
    t.model.remap.newNames[0] = "Before";
    t.host.expectMessage("Open Bank Map", Answer::Ok, "Problem reading file");
    EXPECT_FALSE(readBankList(t.model, kPatchBankA, kNewList));
    EXPECT_FALSE(t.model.remap.newListsPresent);
    EXPECT_EQ(t.model.remap.newNames[0], "Before");
}

TEST(RemapLists, ABadOldListLeavesTheNewListsFlag)
{
    TestModel t;
    std::filesystem::create_directory(t.folder / "oldB.txt");
    t.model.remap.newListsPresent = true;
    t.host.expectMessage("Open Bank Map", Answer::Ok, "Problem reading file");
    EXPECT_FALSE(readBankList(t.model, kPatchBankB, kOldList));
    EXPECT_TRUE(t.model.remap.newListsPresent);
}

TEST(RemapLists, CheckNewListsNeedsBothNewLists)
{
    TestModel t;
    writeBankListFile(t.model, kPatchBankA, kNewList, numberedNames("A"));
    checkNewLists(t.model);
    EXPECT_FALSE(t.model.remap.newListsPresent);
    writeBankListFile(t.model, kPatchBankB, kNewList, numberedNames("B"));
    checkNewLists(t.model);
    EXPECT_TRUE(t.model.remap.newListsPresent);
    EXPECT_EQ(t.model.remap.newNames[3], "A003            ");
    EXPECT_EQ(t.model.remap.newNames[131], "B003            ");
}

TEST(RemapLists, NewListsReadNameTheTimbresWhoseBankIsNotLoadedAtOnce)
{
    TestModel t;
    setEditTimbre(t.model, 2, 128 + 5);
    writeBankListFile(t.model, kPatchBankA, kNewList, numberedNames("NA"));
    writeBankListFile(t.model, kPatchBankB, kNewList, numberedNames("NB"));
    RecordingObserver observer;
    t.model.addObserver(&observer);
    checkNewLists(t.model);
    t.model.removeObserver(&observer);
    EXPECT_EQ(t.model.multiSelect.sect[2 + 4].caption, "NB005            B005");
    EXPECT_TRUE(observer.all & kMultiSelectChanged);
}

TEST(RemapLists, StartUpReadsTheNewListsWhenBothAreThere)
{
    TestModel t;
    writeBankListFile(t.model, kPatchBankA, kNewList, numberedNames("NA"));
    writeBankListFile(t.model, kPatchBankB, kNewList, numberedNames("NB"));
    ASSERT_TRUE(doFormLoadMain(t.model));
    EXPECT_TRUE(t.model.remap.newListsPresent);
    EXPECT_EQ(t.model.remap.newNames[255], "NB127           ");
}

TEST(RemapLists, ListNamesWithoutTheirQuotesAreTheTextAfterTheComma)
{
    std::vector<std::string> lines(128, "\"001\",\"A, B\"");
    std::array<std::string, 128> names;
    ASSERT_TRUE(parseBankList(lines, names));
    EXPECT_EQ(names[0], "A, B");
    lines[50] = "no comma";
    EXPECT_FALSE(parseBankList(lines, names));
}

TEST(RemapLists, AListThatCannotBeWrittenSaysSo)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    std::filesystem::create_directory(t.folder / "newA.txt");
    std::filesystem::create_directory(t.folder / "newA.txt" / "inside");
    t.host.expectMessage("Save Bank Map", Answer::Ok, "Problem writing to file");
    EXPECT_FALSE(saveBankList(t.model, kPatchBankA, kNewList));
}

}  // namespace
}  // namespace quillon
