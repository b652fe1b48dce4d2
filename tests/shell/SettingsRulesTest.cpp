#include "shell/SettingsRules.h"

#include "files/AtomicFile.h"
#include "files/FactoryFiles.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {
namespace {

TEST(SettingsRules, PercentageTextTakesItsLeadingNumberWithinLimits)
{
    EXPECT_EQ(percentageOfText("42"), 42);
    EXPECT_EQ(percentageOfText(" 7x"), 7);
    EXPECT_EQ(percentageOfText(""), 0);
    EXPECT_EQ(percentageOfText("-"), 0);
    EXPECT_EQ(percentageOfText("abc"), 0);
    EXPECT_EQ(percentageOfText("-12"), 0);
    EXPECT_EQ(percentageOfText("101"), 100);
    EXPECT_EQ(percentageOfText("99999999999999999999"), 100);
}

TEST(SettingsRules, PercentageTextOutsideTheLimitsIsReplaced)
{
    EXPECT_EQ(limitedPercentageText("-1"), "0");
    EXPECT_EQ(limitedPercentageText("101"), "100");
    EXPECT_EQ(limitedPercentageText("100"), "100");
    EXPECT_EQ(limitedPercentageText("0"), "0");
    EXPECT_EQ(limitedPercentageText("5"), "5");
    EXPECT_EQ(limitedPercentageText(""), "");
    EXPECT_EQ(limitedPercentageText("-"), "-");
}

TEST(SettingsRules, ResetTakesTheResetValueIntoEveryPercentage)
{
    GenerationSettings g;
    g.resetAll = 61;
    g.varEG = 3;
    resetAllPercentages(g);
    for (int value : {g.varEG, g.varLFO, g.varOSC, g.varSONO, g.varFX, g.varFilter, g.varModInt, g.varAmpEG, g.varCSS})
        EXPECT_EQ(value, 61);
    EXPECT_EQ(g.resetAll, 61);
}

TEST(SettingsRules, OnlyRandomAndSpreadTabsHaveABlock)
{
    SystemSettings s;
    EXPECT_EQ(generationSettingsOfTab(s, kSettingsTabRandom), &s.random);
    EXPECT_EQ(generationSettingsOfTab(s, kSettingsTabSpread), &s.spread);
    for (int tab : {0, 1, 2, 3, 4, 7, 8})
        EXPECT_EQ(generationSettingsOfTab(s, tab), nullptr) << tab;
}

TEST(SettingsRules, ToneLengthsReadInSecondsWithOneDecimal)
{
    EXPECT_EQ(toneLengthCaption(0), "0.0");
    EXPECT_EQ(toneLengthCaption(9), "0.9");
    EXPECT_EQ(toneLengthCaption(10), "1.0");
    EXPECT_EQ(toneLengthCaption(50), "5.0");
}

TEST(SettingsRules, SelectMainTakesTheFiveGroupsAndLeavesOutTheOtherThree)
{
    GenerationSettings g;
    selectAllGroups(g);
    selectMainGroups(g);
    GenerationSettings expected;
    selectAllGroups(expected);
    expected.modInt = expected.ampEG = expected.css = false;
    EXPECT_TRUE(g == expected);
    selectNoGroups(g);
    EXPECT_TRUE(g == GenerationSettings{});
}

TEST(SettingsRules, SelectingKeepsThePercentages)
{
    GenerationSettings g;
    g.varLFO = 12;
    g.varCSS = 80;
    g.modIntChoice = 7;
    selectAllGroups(g);
    selectNoGroups(g);
    EXPECT_EQ(g.varLFO, 12);
    EXPECT_EQ(g.varCSS, 80);
    EXPECT_EQ(g.modIntChoice, 7);
}

TEST(SettingsRules, ChoosingAUserFileMakesItCurrentAndReadsIt)
{
    TestModel t;
    ASSERT_TRUE(installFactoryFiles(t.folder.path()));
    ParamValues marked = paramTables().patchDefaults;
    marked[2] = 33;
    std::vector<std::string> lines;
    for (std::size_t p = 1; p < marked.size(); ++p)
        lines.push_back(std::to_string(marked[p]));
    ASSERT_TRUE(writeLinesAtomically(t.folder / "Quillonusr3.dat", lines));
    RecordingObserver observer;
    t.model.addObserver(&observer);

    chooseUserPatchFile(t.model, 3);

    EXPECT_EQ(t.model.settings.userFileNumber, 3);
    EXPECT_EQ(t.model.buffers.of(kPatch).user, marked);
    EXPECT_NE(observer.all & kSettingsChanged, 0u);
    t.model.removeObserver(&observer);
}

TEST(SettingsRules, ThereIsNoSeventhUserFile)
{
    TestModel t;
    t.model.settings.userFileNumber = 1;
    chooseUserPatchFile(t.model, 6);
    chooseUserPatchFile(t.model, -1);
    EXPECT_EQ(t.model.settings.userFileNumber, 1);
}

TEST(SettingsRules, FewerRecentFilesShownCutsTheMenuAndMoreShowsWhatTheListHolds)
{
    TestModel t;
    for (int i = 1; i <= 4; ++i)
        t.model.recentFiles[static_cast<std::size_t>(i)] = "/songs/bank" + std::to_string(i) + ".syx";
    t.model.settings.recentFilesShown = 4;

    chooseRecentFilesMax(t.model, 1);
    EXPECT_EQ(t.model.settings.recentFilesMax, 1);
    EXPECT_EQ(t.model.settings.recentFilesShown, 1);

    chooseRecentFilesMax(t.model, 10);
    EXPECT_EQ(t.model.settings.recentFilesMax, 10);
    EXPECT_EQ(t.model.settings.recentFilesShown, 4);
}

}  // namespace
}  // namespace quillon
