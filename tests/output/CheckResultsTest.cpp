#include "output/CheckResults.h"

#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {
namespace {

void addCorrections(AppModel& model, int count)
{
    for (int i = 1; i <= count; ++i)
        model.report.add("MIDI byte " + std::to_string(i) + " high value 200 changed to 72");
}

std::vector<std::string> linesOf(const std::filesystem::path& path)
{
    std::vector<std::string> lines;
    EXPECT_TRUE(readLines(path, lines)) << path;
    return lines;
}

TEST(CheckResults, FileHoldsTheFileNameAnEmptyLineAndEachCorrection)
{
    TestModel t;
    t.model.itemPath[kPatch] = "/music/z1/Lead.syx";
    t.model.report.add("Patch Category (17) value changed from 40 to 17");
    t.model.report.add("MIDI byte 12 high value 200 changed to 72");

    saveCheckResults(t.model, kPatch);

    const std::vector<std::string> expected{"/music/z1/Lead.syx", "",
                                            "Patch Category (17) value changed from 40 to 17",
                                            "MIDI byte 12 high value 200 changed to 72"};
    EXPECT_EQ(linesOf(t.folder / "Param" / "QuillonChkPch.txt"), expected);
}

TEST(CheckResults, CreatesTheParamFolderWhenMissing)
{
    TestModel t;
    ASSERT_FALSE(std::filesystem::exists(t.folder / "Param"));
    addCorrections(t.model, 1);
    saveCheckResults(t.model, kMultiset);
    EXPECT_TRUE(std::filesystem::is_directory(t.folder / "Param"));
    EXPECT_TRUE(std::filesystem::exists(t.folder / "Param" / "QuillonChkMlt.txt"));
}

TEST(CheckResults, EachKindHasItsOwnFile)
{
    TestModel t;
    addCorrections(t.model, 1);
    saveCheckResults(t.model, kPattern);
    EXPECT_TRUE(std::filesystem::exists(t.folder / "Param" / "QuillonChkArp.txt"));
    EXPECT_FALSE(std::filesystem::exists(t.folder / "Param" / "QuillonChkPch.txt"));
    EXPECT_FALSE(std::filesystem::exists(t.folder / "Param" / "QuillonChkMlt.txt"));
}

TEST(CheckResults, BanksHaveNoCheckFile)
{
    TestModel t;
    addCorrections(t.model, 3);
    saveCheckResults(t.model, kPatchBankA);
    saveCheckResults(t.model, kArpBank);
    EXPECT_FALSE(std::filesystem::exists(t.folder / "Param"));
}

TEST(CheckResults, LoadWith150CorrectionsReports150ButShowsAndSaves100)
{
    TestModel t;
    t.model.itemPath[kPatch] = "Big.syx";
    addCorrections(t.model, 150);

    saveCheckResults(t.model, kPatch);
    const std::vector<std::string> saved = linesOf(t.folder / "Param" / "QuillonChkPch.txt");
    ASSERT_EQ(saved.size(), 102u);
    EXPECT_EQ(saved[2], "MIDI byte 1 high value 200 changed to 72");
    EXPECT_EQ(saved[101], "MIDI byte 100 high value 200 changed to 72");

    const InspectionView view = checkView(t.model, kPatch);
    EXPECT_EQ(view.differences.size(), 100u);
    EXPECT_EQ(view.statement, "System has made 150 changes to loaded patch");
}

TEST(CheckResults, LoadWithoutCorrectionsLeavesThePreviousCheckFileUntouched)
{
    TestModel t;
    t.model.itemPath[kPatch] = "First.syx";
    addCorrections(t.model, 2);
    saveCheckResults(t.model, kPatch);
    const auto before = linesOf(t.folder / "Param" / "QuillonChkPch.txt");
    const auto stamp = std::filesystem::last_write_time(t.folder / "Param" / "QuillonChkPch.txt");

    t.model.report.reset();
    t.model.itemPath[kPatch] = "Second.syx";
    saveCheckResults(t.model, kPatch);

    EXPECT_EQ(linesOf(t.folder / "Param" / "QuillonChkPch.txt"), before);
    EXPECT_EQ(std::filesystem::last_write_time(t.folder / "Param" / "QuillonChkPch.txt"), stamp);
}

TEST(CheckResults, NoCorrectionsWritesNoFileAtAll)
{
    TestModel t;
    saveCheckResults(t.model, kMultiset);
    EXPECT_FALSE(std::filesystem::exists(t.folder / "Param" / "QuillonChkMlt.txt"));
}

TEST(CheckResults, UnwritableFileIsReportedByName)
{
    TestModel t;
    // A folder where the file should be cannot be replaced by a file.
    std::filesystem::create_directories(t.folder / "Param" / "QuillonChkMlt.txt");
    addCorrections(t.model, 1);
    t.host.expectMessage("Problem saving check results", Answer::Ok,
                         "Please check QuillonChkMlt.txt in Param folder is write enabled");
    saveCheckResults(t.model, kMultiset);
    EXPECT_TRUE(t.host.allShown());
}

TEST(CheckResults, UnwritablePatternFileNamesItsOwnFile)
{
    TestModel t;
    std::filesystem::create_directories(t.folder / "Param" / "QuillonChkArp.txt");
    addCorrections(t.model, 1);
    t.host.expectMessage("Problem saving check results", Answer::Ok,
                         "Please check QuillonChkArp.txt in Param folder is write enabled");
    saveCheckResults(t.model, kPattern);
}

TEST(CheckView, ListsTheCorrectionsWithCaptionAndStatement)
{
    TestModel t;
    addCorrections(t.model, 3);
    const InspectionView view = checkView(t.model, kPatch);
    EXPECT_EQ(view.caption, "System changes made to last loaded patch");
    ASSERT_EQ(view.differences.size(), 3u);
    EXPECT_EQ(view.differences[2], "MIDI byte 3 high value 200 changed to 72");
    EXPECT_EQ(view.statement, "System has made 3 changes to loaded patch");
    EXPECT_EQ(view.statementScheme, 10);
}

TEST(CheckView, OneCorrectionIsSingular)
{
    TestModel t;
    addCorrections(t.model, 1);
    const InspectionView view = checkView(t.model, kMultiset);
    EXPECT_EQ(view.caption, "System changes made to last loaded multiset");
    EXPECT_EQ(view.statement, "System has made 1 change to loaded multiset");
    EXPECT_EQ(view.statementScheme, 10);
}

TEST(CheckView, NoCorrectionsSaysTheItemIsOk)
{
    TestModel t;
    const InspectionView patch = checkView(t.model, kPatch);
    EXPECT_TRUE(patch.differences.empty());
    EXPECT_EQ(patch.statement, "The loaded patch is OK - no system changes made");
    EXPECT_EQ(patch.statementScheme, 9);
    EXPECT_EQ(checkView(t.model, kMultiset).statement, "The loaded multiset is OK - no system changes made");
}

TEST(CheckLoadCommand, NoPatchIsRefused)
{
    TestModel t;
    t.model.mode = kPatch;
    t.host.expectMessage("Check Load", Answer::Ok, "No loaded patch to check");
    EXPECT_FALSE(mnuCheckLoad(t.model));
}

TEST(CheckLoadCommand, NoMultisetIsRefused)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.flags.loaded[kPatch] = true;
    t.host.expectMessage("Check Load", Answer::Ok, "No loaded multiset to check");
    EXPECT_FALSE(mnuCheckLoad(t.model));
}

TEST(CheckLoadCommand, LoadedItemOpensTheForm)
{
    TestModel t;
    t.model.flags.loaded[kPatch] = true;
    t.model.flags.loaded[kMultiset] = true;
    t.model.mode = kPatch;
    EXPECT_TRUE(mnuCheckLoad(t.model));
    t.model.mode = kMultiset;
    EXPECT_TRUE(mnuCheckLoad(t.model));
}

TEST(CheckLoadCommand, OtherModesDoNothing)
{
    TestModel t;
    for (int mode : {2, 3, 5}) {
        t.model.mode = mode;
        t.model.flags.loaded[mode] = true;
        EXPECT_FALSE(mnuCheckLoad(t.model)) << mode;
    }
    EXPECT_TRUE(t.host.messages.empty());
}

}  // namespace
}  // namespace quillon
