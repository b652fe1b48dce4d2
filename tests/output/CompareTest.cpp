#include "output/CompareLast.h"

#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {
namespace {

// The buffer steps of a load of one item, as every load path takes them: the
// item in the editor is kept in PrevLoaded when there was one, then the new
// values become Current, Loaded and Last.
void simulateLoad(AppModel& model, int kind, const ParamValues& values)
{
    if (model.flags.loaded[kind])
        model.buffers.updatePrevLoaded(kind);
    model.buffers.of(kind).current = values;
    model.flags.loaded[kind] = true;
    model.buffers.updateLoaded(kind);
    model.buffers.updateLast(kind);
}

TEST(CompareLast, LineShowsNumberValueWordPreviousValueAndName)
{
    TestModel t;
    ItemBuffers& b = t.model.buffers.of(kPatch);
    b.prevLoaded = b.current;
    b.current[17] = 5;
    b.prevLoaded[17] = 3;
    b.current[22] = -4;  // written as it is, without a leading blank
    b.prevLoaded[22] = 12;

    const InspectionView view = compareView(t.model, kPatch);
    EXPECT_EQ(view.caption, "Compare loaded patch to last loaded");
    ASSERT_EQ(view.differences.size(), 2u);
    EXPECT_EQ(view.differences[0], "param(17) = 5  last patch 3 [Patch Category]");
    EXPECT_EQ(view.differences[1], "param(22) = -4  last patch 12 [Retrigger Controller]");
    EXPECT_EQ(view.statement, "Currently loaded patch has 2 changes");
    EXPECT_EQ(view.statementScheme, 10);
}

TEST(CompareLast, OneDifferenceIsSingular)
{
    TestModel t;
    ItemBuffers& b = t.model.buffers.of(kMultiset);
    b.prevLoaded = b.current;
    b.current[615] = static_cast<std::int16_t>(b.prevLoaded[615] + 1);
    const InspectionView view = compareView(t.model, kMultiset);
    EXPECT_EQ(view.caption, "Compare loaded multiset to last loaded");
    ASSERT_EQ(view.differences.size(), 1u);
    EXPECT_EQ(view.differences[0].rfind("param(615) = ", 0), 0u);
    EXPECT_NE(view.differences[0].find(" last multiset "), std::string::npos);
    EXPECT_EQ(view.statement, "Currently loaded multiset has 1 change");
}

TEST(CompareLast, NoDifferenceLeavesTheListEmpty)
{
    TestModel t;
    ItemBuffers& b = t.model.buffers.of(kMultiset);
    b.prevLoaded = b.current;
    const InspectionView view = compareView(t.model, kMultiset);
    EXPECT_TRUE(view.differences.empty());
    EXPECT_EQ(view.statement, "Currently loaded multiset is same as last multiset loaded");
    EXPECT_EQ(view.statementScheme, 9);
}

TEST(CompareLast, AfterALoadShowsHowTheNewItemDiffersFromTheOneBefore)
{
    TestModel t;
    ParamValues first = t.model.buffers.of(kPatch).defaults;
    first[18] = 3;
    simulateLoad(t.model, kPatch, first);
    t.model.buffers.of(kPatch).current[19] = 1;  // edited before the next load

    ParamValues second = first;
    second[18] = 7;
    simulateLoad(t.model, kPatch, second);

    const InspectionView view = compareView(t.model, kPatch);
    ASSERT_EQ(view.differences.size(), 2u);
    EXPECT_EQ(view.differences[0], "param(18) = 7  last patch 3 [User Group]");
    EXPECT_EQ(view.differences[1], "param(19) = 0  last patch 1 [Hold]");
}

TEST(CompareLast, TwoLoadsOfTheSameFileGiveAnEmptyList)
{
    TestModel t;
    ParamValues file = t.model.buffers.of(kPatch).defaults;
    file[17] = 9;
    file[500] = 42;
    simulateLoad(t.model, kPatch, file);
    simulateLoad(t.model, kPatch, file);
    const InspectionView view = compareView(t.model, kPatch);
    EXPECT_TRUE(view.differences.empty());
    EXPECT_EQ(view.statement, "Currently loaded patch is same as last patch loaded");
}

TEST(CompareLast, ResultsFileHoldsFileNameEmptyLineAndTheLines)
{
    TestModel t;
    t.model.itemPath[kPatch] = "Pad.syx";
    ItemBuffers& b = t.model.buffers.of(kPatch);
    b.prevLoaded = b.current;
    b.current[17] = 5;
    b.prevLoaded[17] = 3;
    EXPECT_TRUE(saveCompareResults(t.model, kPatch));

    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(t.folder / "Param" / "QuillonCmpPch.txt", lines));
    const std::vector<std::string> expected{"Pad.syx", "", "param(17) = 5  last patch 3 [Patch Category]"};
    EXPECT_EQ(lines, expected);
}

TEST(CompareLast, MultisetResultsGoToTheirOwnFile)
{
    TestModel t;
    t.model.itemPath[kMultiset] = "Split.syx";
    EXPECT_TRUE(saveCompareResults(t.model, kMultiset));
    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(t.folder / "Param" / "QuillonCmpMlt.txt", lines));
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[0], "Split.syx");
    EXPECT_EQ(lines[1], "");
}

TEST(CompareLast, UnwritableResultsAreReportedByName)
{
    TestModel t;
    std::filesystem::create_directories(t.folder / "Param" / "QuillonCmpPch.txt");
    t.host.expectMessage("Problem Saving Compare Data", Answer::Ok,
                         "Please check that QuillonCmpPch.txt in Param folder is write enabled");
    EXPECT_FALSE(saveCompareResults(t.model, kPatch));

    std::filesystem::create_directories(t.folder / "Param" / "QuillonCmpMlt.txt");
    t.host.expectMessage("Problem Saving Compare Data", Answer::Ok,
                         "Please check that QuillonCmpMlt.txt in Param folder is write enabled");
    EXPECT_FALSE(saveCompareResults(t.model, kMultiset));
}

TEST(CompareLastCommand, NoPatchIsRefused)
{
    TestModel t;
    t.model.mode = kPatch;
    t.host.expectMessage("Compare Last", Answer::Ok, "No loaded patch to compare");
    EXPECT_FALSE(mnuCompareLast(t.model));
}

TEST(CompareLastCommand, NoMultisetIsRefused)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.host.expectMessage("Compare Last", Answer::Ok, "No loaded multiset to compare");
    EXPECT_FALSE(mnuCompareLast(t.model));
}

TEST(CompareLastCommand, LoadedItemOpensTheForm)
{
    TestModel t;
    t.model.flags.loaded[kMultiset] = true;
    t.model.mode = kMultiset;
    EXPECT_TRUE(mnuCompareLast(t.model));
}

TEST(CompareLastCommand, OtherModesDoNothing)
{
    TestModel t;
    for (int mode : {2, 3, 5}) {
        t.model.mode = mode;
        EXPECT_FALSE(mnuCompareLast(t.model)) << mode;
    }
    EXPECT_TRUE(t.host.messages.empty());
}

}  // namespace
}  // namespace quillon
