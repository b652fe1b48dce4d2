#include "editors/ArpScreen.h"

#include "editors/ArpCommands.h"
#include "editors/ArpRowEdit.h"
#include "editors/ArpStepTools.h"
#include "editors/PatternScreenFixture.h"
#include "editors/ValueGestures.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(ArpSteps, ToneNineIsTheTopRowAndTonesEightAndNineAreTheToneMsb)
{
    EXPECT_EQ(toneBoxIndex(1, 9), 0);
    EXPECT_EQ(toneBoxIndex(1, 0), 9);
    EXPECT_EQ(toneBoxIndex(36, 0), 359);
    EXPECT_EQ(stepOfToneBox(137), 14);
    EXPECT_EQ(toneOfToneBox(137), 2);
    EXPECT_EQ(stepParam(1, 1), 41);
    EXPECT_EQ(stepParam(36, 6), 256);

    ParamValues pattern = paramTables().arpDefaults;
    arpSetStepMask(pattern, 2, 0b1100000101);
    EXPECT_EQ(pattern[47], 3);    // Tone MSB of step 2
    EXPECT_EQ(pattern[48], 5);    // Tone LSB
    EXPECT_EQ(arpStepMask(pattern, 2), 0b1100000101);
    pattern[48] = -1;             // a word read as the byte it is
    EXPECT_EQ(arpStepMask(pattern, 2), (3 * 256 + 65535) & 0xFFFF);
}

TEST(ArpScreen, FirstEntryMakesTheRowsFromTheTableAndShowsStepOne)
{
    PatternScreen t;
    const ArpScreenView& v = t.view();
    EXPECT_TRUE(v.built);
    EXPECT_TRUE(v.setUp);
    const int params[] = {0, 19, 20, 21, 22, 25, 28, 30, 31, 32, 43, 44, 45, 46};
    for (int row = 1; row <= kArpParamRows; ++row) {
        EXPECT_EQ(v.ArpRowParam[static_cast<std::size_t>(row)], params[row]) << row;
        EXPECT_EQ(v.rowName[static_cast<std::size_t>(row)], paramTables().arp[static_cast<std::size_t>(params[row])].name);
    }
    EXPECT_EQ(v.rowName[1], "Sort");
    EXPECT_EQ(v.rowName[7], "Pattern Length");
    EXPECT_EQ(v.rows[7].text, "36");
    EXPECT_EQ(v.rows[12].text, "128");
    EXPECT_EQ(v.rows[10].decode, "");
    EXPECT_FALSE(v.rows[12].decode.empty());
    EXPECT_TRUE(v.lblStepMarker[1].current);
    EXPECT_EQ(t.state().StepCurrent, 1);
    EXPECT_EQ(v.txtStepNum, "1");
    EXPECT_EQ(v.txtStepCount, "2");
}

TEST(ArpScreen, ShowStepMovesTheYellowMarkerAndTheFourStepRows)
{
    PatternScreen t;
    t.loadMarkedPattern(12);
    clickStepMarker(t.model, 9);
    EXPECT_FALSE(t.view().lblStepMarker[1].current);
    EXPECT_TRUE(t.view().lblStepMarker[9].current);
    EXPECT_EQ(t.view().ArpRowParam[10], (9 - 1) * 6 + 43);
    EXPECT_EQ(t.view().ArpRowParam[13], (9 - 1) * 6 + 46);
    EXPECT_EQ(t.view().rows[10].text, "9");
    EXPECT_EQ(t.view().rows[11].text, "-9");
    EXPECT_EQ(t.view().rows[12].text, "99");
    arpShowStep(t.model, true);
    EXPECT_EQ(t.state().StepCurrent, 1);
    EXPECT_TRUE(t.view().lblStepMarker[1].current);
    EXPECT_FALSE(t.view().lblStepMarker[9].current);
    EXPECT_EQ(t.view().rows[10].text, "1");
}

TEST(ArpScreen, StepsBeyondTheLengthAreGreyedWithTheirTonesStillShown)
{
    PatternScreen t;
    t.loadMarkedPattern(6);
    for (int step = 1; step <= kArpSteps; ++step) {
        const bool inside = step <= 6;
        EXPECT_EQ(t.view().lblStepMarker[static_cast<std::size_t>(step)].enabled, inside) << step;
        for (int tone = 0; tone < kArpTones; ++tone) {
            const ToneBoxView& box = t.view().chkTone[toneBoxIndex(step, tone)];
            EXPECT_EQ(box.enabled, inside);
            EXPECT_EQ(box.checked, (t.mask(step) >> tone & 1) != 0);
        }
    }
    EXPECT_EQ(t.state().ShownLength, 6);
}

TEST(ArpScreen, PartialGridStartsBehindTheLengthShownLastOrElseAtStepOne)
{
    PatternScreen t;
    t.loadMarkedPattern(4);
    // Changed behind the grid's back: a partial refresh to a longer pattern
    // shows only the steps behind the old length.
    arpSetStepMask(t.current(), 2, 0);
    t.current()[kPatternLengthParam] = 10;
    arpShowGrid(t.model, true);
    EXPECT_TRUE(t.view().toneBoxChecked(2, 3));  // 2 x 7 + 1 = 15 has tone 3
    EXPECT_TRUE(t.view().chkTone[toneBoxIndex(10, 0)].enabled);
    EXPECT_EQ(t.state().ShownLength, 10);
    // Not below the length: everything.
    t.current()[kPatternLengthParam] = 9;
    arpShowGrid(t.model, true);
    EXPECT_FALSE(t.view().toneBoxChecked(2, 3));
    EXPECT_FALSE(t.view().chkTone[toneBoxIndex(10, 0)].enabled);
}

TEST(ArpScreen, TheLengthRowShowsTheStepsAddedOrRemoved)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    changeArpRow(t.model, kPatternLengthRow, "12");
    EXPECT_EQ(t.length(), 12);
    EXPECT_TRUE(t.view().lblStepMarker[12].enabled);
    editArpRow(t.model, kPatternLengthRow, [](AppModel& m, ValueBox& b) { return clickSpin(m, b, false); });
    EXPECT_EQ(t.length(), 11);
    EXPECT_FALSE(t.view().lblStepMarker[12].enabled);
    EXPECT_EQ(t.view().rows[kPatternLengthRow].text, "11");
}

TEST(ArpScreen, ClickingAGridBoxStoresTheStepsTonesAndItsReleaseShowsTheStep)
{
    PatternScreen t;
    const int index = toneBoxIndex(5, 8);
    EXPECT_EQ(index, 41);
    clickToneBox(t.model, index, true);
    EXPECT_EQ(t.mask(5), 1 << 8);
    EXPECT_EQ(t.word(5, 1), 1);
    EXPECT_EQ(t.word(5, 2), 0);
    clickToneBox(t.model, toneBoxIndex(5, 0), true);
    EXPECT_EQ(t.mask(5), (1 << 8) | 1);
    EXPECT_EQ(t.state().StepCurrent, 1);
    releaseToneBox(t.model, index);
    EXPECT_EQ(t.state().StepCurrent, 5);
    clickToneBox(t.model, index, false);
    EXPECT_EQ(t.mask(5), 1);
}

TEST(ArpScreen, CopyModeMarksWhatACopyTakes)
{
    PatternScreen t;
    const auto tones = [&t](int tone) { return t.view().toneNumColour[static_cast<std::size_t>(tone)].background; };
    const auto yellowTone = [&t](int tone) {
        return t.view().toneNumColour[static_cast<std::size_t>(tone)].background == 0xFFFF00;
    };
    const auto nameOf = [&t](int row) { return t.view().rowNameColour[static_cast<std::size_t>(row)].background; };

    selectStepCopyMode(t.model, kCopyAll);
    EXPECT_EQ(t.view().toneNumColour[0].backgroundSystem, SystemColour::ButtonFace);
    EXPECT_EQ(nameOf(10), 0xFFC080);
    selectStepCopyMode(t.model, kCopyParamsOnly);
    for (int row = 10; row <= 13; ++row)
        EXPECT_EQ(nameOf(row), 0xFFFF00);
    EXPECT_EQ(nameOf(9), 0xFFC080);
    EXPECT_FALSE(yellowTone(0));
    selectStepCopyMode(t.model, kCopyTonesOnly);
    for (int tone = 0; tone < kArpTones; ++tone)
        EXPECT_EQ(tones(tone), 0xFFFF00);
    EXPECT_EQ(nameOf(13), 0xFFC080);
    selectStepCopyMode(t.model, kCopySingleParam);
    EXPECT_EQ(nameOf(10), 0xFFFF00);  // SingleParamRow starts at 10
    EXPECT_EQ(nameOf(11), 0xFFC080);
    clickArpParamName(t.model, 12);
    EXPECT_EQ(t.state().SingleParamRow, 12);
    EXPECT_EQ(nameOf(10), 0xFFC080);
    EXPECT_EQ(nameOf(12), 0xFFFF00);
    clickArpParamName(t.model, 9);  // not a step row
    EXPECT_EQ(t.state().SingleParamRow, 12);
    clickToneNum(t.model, 3);       // not this mode's choice
    EXPECT_EQ(t.state().SingleTone, 0);
    selectStepCopyMode(t.model, kCopySingleTone);
    EXPECT_TRUE(yellowTone(0));
    EXPECT_FALSE(yellowTone(1));
    clickToneNum(t.model, 7);
    EXPECT_EQ(t.state().SingleTone, 7);
    EXPECT_TRUE(yellowTone(7));
    EXPECT_FALSE(yellowTone(0));
    EXPECT_EQ(nameOf(12), 0xFFC080);
    clickArpParamName(t.model, 13);
    EXPECT_EQ(t.state().SingleParamRow, 12);
}

TEST(ArpScreen, TypedStepsAreLimitedAndDoubleClicksJump)
{
    PatternScreen t;
    changeStepNum(t.model, "50");
    EXPECT_EQ(t.view().txtStepNum, "36");
    EXPECT_EQ(t.state().StepCurrent, 36);
    changeStepNum(t.model, "");
    EXPECT_EQ(t.view().txtStepNum, "1");
    changeStepNum(t.model, "7");
    EXPECT_EQ(t.state().StepCurrent, 7);
    spinStepNum(t.model, true);
    EXPECT_EQ(t.state().StepCurrent, 8);
    doubleClickStepNum(t.model);
    EXPECT_EQ(t.state().StepCurrent, 1);
    spinStepNum(t.model, false);
    EXPECT_EQ(t.state().StepCurrent, 1);

    changeStepCount(t.model, "0");
    EXPECT_EQ(t.view().txtStepCount, "1");
    EXPECT_EQ(t.state().StepTarget, 1);
    changeStepCount(t.model, "99");
    EXPECT_EQ(t.state().StepTarget, 36);
    changeStepNum(t.model, "7");
    doubleClickStepCount(t.model);
    EXPECT_EQ(t.state().StepTarget, 8);
    doubleClickStepCount(t.model);  // standing there already
    EXPECT_EQ(t.state().StepTarget, 1);
    changeStepNum(t.model, "36");
    doubleClickStepCount(t.model);  // 37 exceeds the maximum
    EXPECT_EQ(t.state().StepTarget, 1);
    spinStepCount(t.model, true);
    EXPECT_EQ(t.state().StepTarget, 2);
    EXPECT_EQ(t.view().txtStepCount, "2");
}

TEST(ArpScreen, ToolChoicesAndTheTargetSurviveLoadingAPattern)
{
    PatternScreen t;
    selectStepCopyMode(t.model, kCopySingleTone);
    selectBlockOption(t.model, kBlockRotate);
    clickToneNum(t.model, 4);
    changeStepCount(t.model, "17");
    changeStepNum(t.model, "9");
    t.loadMarkedPattern(20);
    EXPECT_EQ(t.state().StepCopyMode, kCopySingleTone);
    EXPECT_EQ(t.state().BlockOption, kBlockRotate);
    EXPECT_EQ(t.state().SingleTone, 4);
    EXPECT_EQ(t.state().StepTarget, 17);
    EXPECT_EQ(t.state().StepCurrent, 1);
}

TEST(ArpUndo, TakesBackExactlyOneToolAndASecondUndoDoesNothingNew)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    clickStepMarker(t.model, 3);
    const ParamValues beforeClear = t.current();
    clickArpClear(t.model);
    const ParamValues afterClear = t.current();
    clickStepMarker(t.model, 5);
    clickArpDelete(t.model);
    EXPECT_EQ(t.length(), 7);
    clickArpUndo(t.model);
    EXPECT_EQ(t.current(), afterClear);
    EXPECT_EQ(t.state().StepCurrent, 5);
    EXPECT_TRUE(t.view().lblStepMarker[8].enabled);
    EXPECT_EQ(t.view().rows[kPatternLengthRow].text, "8");
    clickArpUndo(t.model);
    EXPECT_EQ(t.current(), afterClear);
    EXPECT_NE(t.current(), beforeClear);
}

TEST(ArpUndo, GoesBackToTheStepShownWhenTheToolRan)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    clickStepMarker(t.model, 4);
    clickArpInsert(t.model);
    clickStepMarker(t.model, 2);
    clickArpUndo(t.model);
    EXPECT_EQ(t.state().StepCurrent, 4);
    EXPECT_TRUE(t.view().lblStepMarker[4].current);
    EXPECT_FALSE(t.view().lblStepMarker[2].current);
    EXPECT_EQ(t.view().txtStepNum, "4");
}

TEST(ArpUndo, AfterAnEditOfARowOrABoxReturnsToBeforeTheLastToolAndTakesTheEditWithIt)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    clickStepMarker(t.model, 2);
    clickArpClear(t.model);
    const ParamValues afterClear = t.current();
    changeArpRow(t.model, 10, "-20");
    clickToneBox(t.model, toneBoxIndex(6, 9), true);
    EXPECT_EQ(t.word(2, 3), -20);
    clickArpUndo(t.model);
    const ParamValues beforeClear = t.model.buffers.of(kPattern).last;
    EXPECT_NE(t.word(2, 3), -20);
    EXPECT_TRUE(t.holdsMarkedStep(2, 2));
    EXPECT_TRUE(t.holdsMarkedStep(6, 6));
    EXPECT_NE(t.current(), afterClear);
    EXPECT_EQ(t.current(), beforeClear);
}

TEST(ArpUndo, AnIgnoredToolStillTakesLastSoUndoIsANoOp)
{
    PatternScreen t;
    t.loadMarkedPattern(8);
    changeArpRow(t.model, 1, "0");  // Sort
    clickStepMarker(t.model, 4);
    changeStepCount(t.model, "4");
    clickArpCopy(t.model);          // onto itself: ignored
    const ParamValues edited = t.current();
    clickArpUndo(t.model);
    EXPECT_EQ(t.current(), edited);
    EXPECT_EQ(t.current()[19], 0);
}

TEST(ArpScreen, TheRowsWaitForTheFirstSetUp)
{
    TestModel t;
    t.model.mode = kPattern;
    EXPECT_FALSE(changeArpRow(t.model, kPatternLengthRow, "5").stored);
    EXPECT_EQ(patternLength(t.model.buffers.of(kPattern).current), 36);
}

TEST(ArpeggioList, FilledWithTheArpBanksNamesWhenTheBankIsSelected)
{
    PatternScreen t;
    EXPECT_TRUE(t.view().lstArpeggio.empty());
    ParamValues named = paramTables().arpDefaults;
    const std::string name = "Up And Down     ";
    for (int i = 0; i < 16; ++i)
        named[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(name[static_cast<std::size_t>(i)]);
    named[kPatternLengthParam] = 5;
    arpSetStepMask(named, 3, 0b101);
    ByteImage image(kPatternBytes, 0);
    arpParamsToImage(named, image);
    t.model.flags.loaded[kArpBank] = true;
    t.model.banks.writeBankPattern(6, image);
    clickLoadedLabel(t.model, kArpBank, false);
    setUpScreen(t.model, kPattern);
    ASSERT_EQ(t.view().lstArpeggio.size(), 20u);
    EXPECT_EQ(t.view().lstArpeggio[6], t.model.banks.bankPatternName(6));
    EXPECT_EQ(t.view().lstArpeggio[6].substr(0, 11), "Up And Down");

    t.model.itemPath[kPattern] = "/some/pattern.syx";
    ASSERT_TRUE(clickArpeggioList(t.model, 6));
    EXPECT_EQ(t.length(), 5);
    EXPECT_EQ(t.mask(3), 0b101);
    EXPECT_TRUE(t.model.itemPath[kPattern].empty());
    EXPECT_EQ(t.model.buffers.of(kPattern).loaded, t.current());
    EXPECT_TRUE(t.view().lblStepMarker[5].enabled);
    EXPECT_FALSE(t.view().lblStepMarker[6].enabled);
    EXPECT_TRUE(t.view().toneBoxChecked(3, 2));
    EXPECT_EQ(t.view().rows[kPatternLengthRow].text, "5");
    EXPECT_FALSE(clickArpeggioList(t.model, -1));
}

}  // namespace
}  // namespace quillon
