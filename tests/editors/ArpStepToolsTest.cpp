#include "editors/ArpStepTools.h"

#include "editors/ArpCommands.h"
#include "editors/ArpRowEdit.h"
#include "editors/ArpScreen.h"
#include "editors/PatternScreenFixture.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

// The block copy buttons by caption.
int blockButton(std::string_view caption)
{
    for (int i = 0; i < kBlockCopyButtons; ++i) {
        if (kBlockCopyTable[static_cast<std::size_t>(i)].caption == caption)
            return i;
    }
    ADD_FAILURE() << "no block copy button " << caption;
    return -1;
}

TEST(ArpClear, SingleToneClearsAllTenTonesAndTheFourParameters)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    t.markStep(3, 1023);
    selectStepCopyMode(t.model, kCopySingleTone);
    clickStepMarker(t.model, 3);
    clickArpClear(t.model);
    EXPECT_EQ(t.mask(3), 0);
    EXPECT_TRUE(t.holdsDefaultParams(3));
    for (int tone = 0; tone < kArpTones; ++tone)
        EXPECT_FALSE(t.view().toneBoxChecked(3, tone)) << tone;
    EXPECT_TRUE(t.holdsMarkedStep(2, 2));
    EXPECT_TRUE(t.holdsMarkedStep(4, 4));
}

TEST(ArpClear, ParamsOnlyLeavesTheTones)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    selectStepCopyMode(t.model, kCopyParamsOnly);
    clickStepMarker(t.model, 5);
    const int tones = t.mask(5);
    clickArpClear(t.model);
    EXPECT_EQ(t.mask(5), tones);
    EXPECT_TRUE(t.holdsDefaultParams(5));
}

TEST(ArpClear, AllAndSingleParamClearBothLikeSingleToneAndTonesOnlyLeavesTheParameters)
{
    for (const int mode : {kCopyAll, kCopySingleParam}) {
        PatternScreen t;
        t.loadMarkedPattern(8);
        selectStepCopyMode(t.model, mode);
        clickStepMarker(t.model, 2);
        clickArpClear(t.model);
        EXPECT_EQ(t.mask(2), 0) << mode;
        EXPECT_TRUE(t.holdsDefaultParams(2)) << mode;
    }
    PatternScreen t;
    t.loadMarkedPattern(8);
    selectStepCopyMode(t.model, kCopyTonesOnly);
    clickStepMarker(t.model, 2);
    clickArpClear(t.model);
    EXPECT_EQ(t.mask(2), 0);
    EXPECT_EQ(t.word(2, 3), 2);
    EXPECT_EQ(t.word(2, 5), 92);
}

TEST(ArpCopy, OntoAStepBeyondTheLengthLengthensThePatternAndEnablesTheNewColumns)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    ASSERT_FALSE(t.view().chkTone[toneBoxIndex(12, 0)].enabled);
    ASSERT_FALSE(t.view().lblStepMarker[12].enabled);
    clickStepMarker(t.model, 2);
    changeStepCount(t.model, "12");
    clickArpCopy(t.model);
    EXPECT_EQ(t.length(), 12);
    EXPECT_TRUE(t.holdsMarkedStep(12, 2));
    for (int step = 9; step <= 12; ++step) {
        EXPECT_TRUE(t.view().lblStepMarker[static_cast<std::size_t>(step)].enabled) << step;
        for (int tone = 0; tone < kArpTones; ++tone)
            EXPECT_TRUE(t.view().chkTone[toneBoxIndex(step, tone)].enabled) << step;
    }
    EXPECT_FALSE(t.view().lblStepMarker[13].enabled);
    EXPECT_EQ(t.view().rows[kPatternLengthRow].text, "12");
}

TEST(ArpCopy, EachModeCopiesWhatItNames)
{
    PatternScreen t;
    t.loadMarkedPattern(16);
    clickStepMarker(t.model, 3);

    selectStepCopyMode(t.model, kCopyTonesOnly);
    changeStepCount(t.model, "4");
    clickArpCopy(t.model);
    EXPECT_EQ(t.mask(4), t.mask(3));
    EXPECT_EQ(t.word(4, 3), 4);

    selectStepCopyMode(t.model, kCopyParamsOnly);
    changeStepCount(t.model, "5");
    clickArpCopy(t.model);
    EXPECT_NE(t.mask(5), t.mask(3));
    for (int column = 3; column <= 6; ++column)
        EXPECT_EQ(t.word(5, column), t.word(3, column)) << column;

    selectStepCopyMode(t.model, kCopySingleParam);
    clickArpParamName(t.model, 12);  // Velocity
    changeStepCount(t.model, "6");
    clickArpCopy(t.model);
    EXPECT_EQ(t.word(6, 5), t.word(3, 5));
    EXPECT_EQ(t.word(6, 3), 6);
    EXPECT_EQ(t.word(6, 6), 6);
    EXPECT_NE(t.mask(6), t.mask(3));

    selectStepCopyMode(t.model, kCopyAll);
    changeStepCount(t.model, "7");
    clickArpCopy(t.model);
    EXPECT_TRUE(t.holdsMarkedStep(7, 3));
}

TEST(ArpCopy, SingleToneCopiesOneBoxOfTheGridThroughTheClickRule)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    arpSetStepMask(t.current(), 1, 0b1000000000);  // tone 9 only
    arpSetStepMask(t.current(), 2, 0b0000000011);  // tones 0 and 1
    arpShowGrid(t.model, false);
    selectStepCopyMode(t.model, kCopySingleTone);
    clickToneNum(t.model, 9);
    clickStepMarker(t.model, 1);
    changeStepCount(t.model, "2");
    clickArpCopy(t.model);
    EXPECT_EQ(t.mask(2), 0b1000000011);
    EXPECT_TRUE(t.view().toneBoxChecked(2, 9));
    EXPECT_EQ(t.word(2, 3), 2);
}

TEST(ArpCopy, OntoTheSameStepDoesNothingAndTheTargetMovesOnUpTo36)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    clickStepMarker(t.model, 4);
    changeStepCount(t.model, "4");
    const ParamValues before = t.current();
    clickArpCopy(t.model);
    EXPECT_EQ(t.current(), before);
    EXPECT_EQ(t.state().StepTarget, 5);
    EXPECT_EQ(t.view().txtStepCount, "5");
    changeStepCount(t.model, "36");
    clickArpCopy(t.model);
    EXPECT_EQ(t.state().StepTarget, 36);
    EXPECT_EQ(t.length(), 36);
}

TEST(ArpInsert, AtStep36DoesNothing)
{
    PatternScreen t;
    t.loadMarkedPattern(36);
    clickStepMarker(t.model, 36);
    const ParamValues before = t.current();
    clickArpInsert(t.model);
    EXPECT_EQ(t.current(), before);
}

TEST(ArpInsert, InAFullPatternAtStep10LosesStep36)
{
    PatternScreen t;
    t.loadMarkedPattern(36);
    clickStepMarker(t.model, 10);
    clickArpInsert(t.model);
    for (int step = 1; step <= 9; ++step)
        EXPECT_TRUE(t.holdsMarkedStep(step, step)) << step;
    EXPECT_EQ(t.mask(10), 0);
    EXPECT_TRUE(t.holdsDefaultParams(10));
    for (int step = 11; step <= 36; ++step)
        EXPECT_TRUE(t.holdsMarkedStep(step, step - 1)) << step;
    // The length went to 37 and the length row brought it back to 36.
    EXPECT_EQ(t.length(), 36);
    EXPECT_EQ(t.view().rows[kPatternLengthRow].text, "36");
}

TEST(ArpInsert, TheLengthGrowsByOneWithoutALimitUntilTheLengthRowShowsIt)
{
    PatternScreen t;
    t.loadMarkedPattern(36);
    t.state().StepCurrent = 1;
    arpInsertStep(t.model);
    EXPECT_EQ(t.length(), 37);
    showLengthRow(t.model);
    EXPECT_EQ(t.length(), 36);
}

TEST(ArpInsert, ShortPatternMovesItsStepsOnAndGrows)
{
    PatternScreen t;
    t.loadMarkedPattern(5);
    clickStepMarker(t.model, 2);
    clickArpInsert(t.model);
    EXPECT_EQ(t.length(), 6);
    EXPECT_TRUE(t.holdsMarkedStep(1, 1));
    EXPECT_EQ(t.mask(2), 0);
    for (int step = 3; step <= 6; ++step)
        EXPECT_TRUE(t.holdsMarkedStep(step, step - 1)) << step;
    EXPECT_TRUE(t.holdsMarkedStep(7, 7));  // beyond the old length + 1 nothing moved
    EXPECT_TRUE(t.view().lblStepMarker[6].enabled);
}

TEST(ArpDelete, OfTheLastStepMovesTheCurrentStepBackByOne)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    clickStepMarker(t.model, 8);
    clickArpDelete(t.model);
    EXPECT_EQ(t.length(), 7);
    EXPECT_EQ(t.state().StepCurrent, 7);
    EXPECT_TRUE(t.view().lblStepMarker[7].current);
    EXPECT_FALSE(t.view().lblStepMarker[8].current);
    EXPECT_FALSE(t.view().lblStepMarker[8].enabled);
    EXPECT_EQ(t.mask(8), 0);
    EXPECT_TRUE(t.holdsDefaultParams(8));
}

TEST(ArpDelete, MovesTheStepsBehindBackAndEmptiesTheLastOne)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    clickStepMarker(t.model, 3);
    clickArpDelete(t.model);
    EXPECT_EQ(t.length(), 7);
    EXPECT_EQ(t.state().StepCurrent, 3);
    EXPECT_TRUE(t.holdsMarkedStep(2, 2));
    for (int step = 3; step <= 7; ++step)
        EXPECT_TRUE(t.holdsMarkedStep(step, step + 1)) << step;
    EXPECT_EQ(t.mask(8), 0);
    EXPECT_TRUE(t.holdsMarkedStep(9, 9));
}

TEST(ArpDelete, InAOneStepPatternDoesNothing)
{
    PatternScreen t;
    t.loadMarkedPattern(1);
    const ParamValues before = t.current();
    clickArpDelete(t.model);
    EXPECT_EQ(t.current(), before);
}

TEST(ArpBlockCopy, OneToPlOnLengthEightFillsStepsTwoToEightWithStepOneAndKeepsTheLength)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    clickArpBlockCopy(t.model, blockButton("1---PL"));
    for (int step = 1; step <= 8; ++step)
        EXPECT_TRUE(t.holdsMarkedStep(step, 1)) << step;
    EXPECT_TRUE(t.holdsMarkedStep(9, 9));
    EXPECT_EQ(t.length(), 8);
}

TEST(ArpBlockCopy, FourToSixteenReverseGivesFourThreeTwoOneThenOneTwoThreeFourThenFourThreeTwoOne)
{
    PatternScreen t;
    t.loadMarkedPattern(4);
    selectBlockOption(t.model, kBlockReverse);
    clickArpBlockCopy(t.model, blockButton("4---16"));
    const int expected[] = {4, 3, 2, 1, 1, 2, 3, 4, 4, 3, 2, 1};
    for (int i = 0; i < 12; ++i)
        EXPECT_TRUE(t.holdsMarkedStep(5 + i, expected[i])) << "step " << 5 + i;
    EXPECT_EQ(t.length(), 16);
}

TEST(ArpBlockCopy, FourToSixteenRotateTurnsEachRepeatByOneMoreStep)
{
    PatternScreen t;
    t.loadMarkedPattern(4);
    selectBlockOption(t.model, kBlockRotate);
    clickArpBlockCopy(t.model, blockButton("4---16"));
    const int expected[] = {4, 1, 2, 3, 3, 4, 1, 2, 2, 3, 4, 1};
    for (int i = 0; i < 12; ++i)
        EXPECT_TRUE(t.holdsMarkedStep(5 + i, expected[i])) << "step " << 5 + i;
}

TEST(ArpBlockCopy, NineToThirtySixOnLengthOneSetsTheLengthTo36)
{
    PatternScreen t;
    t.loadMarkedPattern(1);
    clickArpBlockCopy(t.model, blockButton("9---36"));
    EXPECT_EQ(t.length(), 36);
    for (int step = 10; step <= 36; ++step)
        EXPECT_TRUE(t.holdsMarkedStep(step, (step - 1) % 9 + 1)) << step;
    EXPECT_TRUE(t.view().lblStepMarker[36].enabled);
}

TEST(ArpBlockCopy, OneToPlOnLengthOneDoesNothing)
{
    PatternScreen t;
    t.loadMarkedPattern(1);
    const ParamValues before = t.current();
    clickArpBlockCopy(t.model, blockButton("1---PL"));
    EXPECT_EQ(t.current(), before);
}

TEST(ArpBlockCopy, ParamsOnlyLeavesTheGridUnchangedAndDoesNotRefreshIt)
{
    PatternScreen t;
    t.loadMarkedPattern(16);
    selectStepCopyMode(t.model, kCopyParamsOnly);
    const auto grid = t.view().chkTone;
    std::array<int, kArpSteps + 1> masks{};
    for (int step = 1; step <= kArpSteps; ++step)
        masks[static_cast<std::size_t>(step)] = t.mask(step);
    RecordingObserver observer;
    t.model.addObserver(&observer);
    clickArpBlockCopy(t.model, blockButton("4---16"));
    t.model.removeObserver(&observer);
    for (int step = 5; step <= 16; ++step) {
        EXPECT_EQ(t.word(step, 3), (step - 1) % 4 + 1) << step;
        EXPECT_EQ(t.mask(step), masks[static_cast<std::size_t>(step)]) << step;
    }
    for (int i = 0; i < kToneBoxes; ++i)
        EXPECT_EQ(t.view().chkTone[i].checked, grid[i].checked) << i;
    EXPECT_EQ(observer.all & kPatternGridChanged, 0u);
    EXPECT_NE(observer.all & kPatternRowsChanged, 0u);
}

TEST(ArpBlockCopy, TonesOnlyRefreshesTheGridAndLeavesTheStepRows)
{
    PatternScreen t;
    t.loadMarkedPattern(4);
    selectStepCopyMode(t.model, kCopyTonesOnly);
    RecordingObserver observer;
    t.model.addObserver(&observer);
    clickArpBlockCopy(t.model, blockButton("2---8"));
    t.model.removeObserver(&observer);
    EXPECT_NE(observer.all & kPatternGridChanged, 0u);
    EXPECT_EQ(t.length(), 8);
    for (int step = 3; step <= 8; ++step) {
        EXPECT_EQ(t.mask(step), t.mask((step - 1) % 2 + 1)) << step;
        EXPECT_EQ(t.word(step, 3), step) << step;
    }
    // The refresh is partial: it shows the steps behind the length shown last.
    for (int step = 5; step <= 8; ++step) {
        EXPECT_TRUE(t.view().lblStepMarker[static_cast<std::size_t>(step)].enabled) << step;
        for (int tone = 0; tone < kArpTones; ++tone)
            EXPECT_EQ(t.view().toneBoxChecked(step, tone), (t.mask(step) >> tone & 1) != 0) << step;
    }
}

TEST(ArpBlockCopy, SingleParamAndSingleToneCopyOneColumnAndOneBox)
{
    PatternScreen t;
    t.loadMarkedPattern(2);
    selectStepCopyMode(t.model, kCopySingleParam);
    clickArpParamName(t.model, 13);  // Gate
    clickArpBlockCopy(t.model, blockButton("2---8"));
    for (int step = 3; step <= 8; ++step) {
        EXPECT_EQ(t.word(step, 6), (step - 1) % 2 + 1) << step;
        EXPECT_EQ(t.word(step, 3), step) << step;
    }

    PatternScreen u;
    u.loadMarkedPattern(2);
    arpSetStepMask(u.current(), 1, 1 << 4);
    arpSetStepMask(u.current(), 2, 0);
    for (int step = 3; step <= 8; ++step)
        arpSetStepMask(u.current(), step, 1 << 7);
    arpShowGrid(u.model, false);
    selectStepCopyMode(u.model, kCopySingleTone);
    clickToneNum(u.model, 4);
    clickArpBlockCopy(u.model, blockButton("2---8"));
    for (int step = 3; step <= 8; ++step)
        EXPECT_EQ(u.mask(step), step % 2 == 1 ? (1 << 7 | 1 << 4) : 1 << 7) << step;
    EXPECT_EQ(u.length(), 8);
}

TEST(ArpBlockCopy, StepsPast36AllLandOnStep36)
{
    PatternScreen t;
    t.loadMarkedPattern(10);
    t.model.buffers.updateLast(kPattern);
    arpBlockCopy(t.model, 10, 4);  // 40 steps: the last four land on 36
    EXPECT_TRUE(t.holdsMarkedStep(35, 5));
    EXPECT_TRUE(t.holdsMarkedStep(36, 10));
    EXPECT_EQ(t.length(), 36);
}

TEST(ArpBlockCopy, TheButtonsCarryTheirCaptionsAndArguments)
{
    EXPECT_EQ(kBlockCopyTable[0].caption, "2---8");
    EXPECT_EQ(kBlockCopyTable[7].caption, "16---32");
    EXPECT_EQ(kBlockCopyTable[7].length * kBlockCopyTable[7].repeats, 32);
    for (int i = 8; i < kBlockCopyButtons; ++i) {
        EXPECT_EQ(kBlockCopyTable[static_cast<std::size_t>(i)].length, i - 7);
        EXPECT_EQ(kBlockCopyTable[static_cast<std::size_t>(i)].repeats, 0);
        EXPECT_EQ(kBlockCopyTable[static_cast<std::size_t>(i)].caption, std::to_string(i - 7) + "---PL");
    }
}

}  // namespace
}  // namespace quillon
