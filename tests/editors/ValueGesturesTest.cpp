#include "editors/ValueGestures.h"

#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

constexpr int kCenterKey = 179;      // 0 to 127
constexpr int kSemiTone = 176;       // -12 to 12
constexpr int kReservedPatch = 321;  // "reserved", 0 to 255: Hard
constexpr int kBankOfTimbre1 = 17;   // multiset, 0 to 1

ParamValues& current(TestModel& t, int kind) { return t.model.buffers.of(kind).current; }

ValueBox boxAt(TestModel& t, int param, int value)
{
    current(t, kPatch)[param] = static_cast<std::int16_t>(value);
    return fillValueBox(t.model, kPatch, 5, param);
}

TEST(ValueGestures, RightPressInTheUpperHalfAt120Of0To127Gives125)
{
    TestModel t;
    ValueBox box = boxAt(t, kCenterKey, 120);
    BoxChange change = rightPressSpin(t.model, box, 60);
    EXPECT_EQ(box.text, "125");
    EXPECT_EQ(change.storedValue, 125);
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 125);
}

TEST(ValueGestures, BigStepTakesTheLargestStepThatStaysWithinTheLimits)
{
    EXPECT_EQ(bigStep(60, 0, 127, true), 80);
    EXPECT_EQ(bigStep(110, 0, 127, true), 120);
    EXPECT_EQ(bigStep(125, 0, 127, true), 126);
    EXPECT_EQ(bigStep(127, 0, 127, true), 127);
    EXPECT_EQ(bigStep(60, 0, 127, false), 40);
    EXPECT_EQ(bigStep(7, 0, 127, false), 2);
    EXPECT_EQ(bigStep(0, 0, 127, false), 0);
    EXPECT_EQ(bigStep(-5, -12, 12, false), -10);
}

TEST(ValueGestures, RightPressInTheLowerHalfStepsDown)
{
    EXPECT_TRUE(bigStepGoesUp(0));
    EXPECT_TRUE(bigStepGoesUp(127));
    EXPECT_FALSE(bigStepGoesUp(128));
    EXPECT_FALSE(bigStepGoesUp(250));
    TestModel t;
    ValueBox box = boxAt(t, kCenterKey, 120);
    rightPressSpin(t.model, box, 200);
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 100);
}

TEST(ValueGestures, DoubleClickAtTheMaximumJumpsToTheMinimum)
{
    TestModel t;
    ValueBox box = boxAt(t, kCenterKey, 127);
    doubleClickValueBox(t.model, box);
    EXPECT_EQ(box.text, "0");
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 0);
    doubleClickValueBox(t.model, box);
    EXPECT_EQ(box.text, "127");
}

TEST(ValueGestures, DoubleClickOnANegativeValueGoesToZeroThenMaximumThenMinimum)
{
    TestModel t;
    ValueBox box = boxAt(t, kSemiTone, -7);
    doubleClickValueBox(t.model, box);
    EXPECT_EQ(box.text, "0");
    doubleClickValueBox(t.model, box);
    EXPECT_EQ(box.text, "12");
    doubleClickValueBox(t.model, box);
    EXPECT_EQ(box.text, "-12");
    EXPECT_EQ(current(t, kPatch)[kSemiTone], -12);
    EXPECT_EQ(doubleClickedValue(3, -12, 12), 12);
}

TEST(ValueGestures, DoubleClickOnTheNameTakesTheUserValue)
{
    TestModel t;
    t.model.buffers.of(kPatch).user[kCenterKey] = 48;
    ValueBox box = boxAt(t, kCenterKey, 60);
    doubleClickParamName(t.model, box);
    EXPECT_EQ(box.text, "48");
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 48);
}

TEST(ValueGestures, DoubleClickOnTheDecodeTakesTheLoadedValue)
{
    TestModel t;
    t.model.buffers.of(kPatch).loaded[kCenterKey] = 36;
    ValueBox box = boxAt(t, kCenterKey, 60);
    doubleClickParamDecode(t.model, box);
    EXPECT_EQ(box.text, "36");
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 36);
}

TEST(ValueGestures, DoubleClickOnTheNameOfAHardRowIsRefused)
{
    TestModel t;
    t.model.buffers.of(kPatch).user[kReservedPatch] = 200;
    ValueBox box = boxAt(t, kReservedPatch, 0);
    t.host.expectMessage("Quillon", Answer::Ok, "Sorry - this parameter cannot be changed");
    BoxChange change = doubleClickParamName(t.model, box);
    EXPECT_TRUE(change.refused);
    EXPECT_EQ(box.text, "0");
    EXPECT_EQ(current(t, kPatch)[kReservedPatch], 0);
}

TEST(ValueGestures, LabelDoubleClicksDoNothingOutsideThePatchAndMultiScreens)
{
    TestModel t;
    t.model.buffers.of(kPatch).user[kCenterKey] = 48;
    ValueBox box = boxAt(t, kCenterKey, 60);
    t.model.mode = 3;
    EXPECT_EQ(doubleClickParamName(t.model, box).passes, 0);
    EXPECT_EQ(doubleClickParamDecode(t.model, box).passes, 0);
    EXPECT_EQ(box.text, "60");
}

TEST(ValueGestures, PatternRowsTakeTheLoadedValueButHaveNoNameDoubleClick)
{
    TestModel t;
    t.model.mode = kPattern;
    t.model.buffers.of(kPattern).loaded[22] = 100;  // Velocity, row 4
    ValueBox box = fillValueBox(t.model, kPattern, 4, 22);
    EXPECT_EQ(doubleClickParamName(t.model, box).passes, 0);
    doubleClickParamDecode(t.model, box);
    EXPECT_EQ(current(t, kPattern)[22], 100);
    // Rows 10 and 11 have no decode label to click.
    t.model.buffers.of(kPattern).loaded[43] = 5;
    ValueBox pitch = fillValueBox(t.model, kPattern, 10, 43);
    EXPECT_EQ(doubleClickParamDecode(t.model, pitch).passes, 0);
}

TEST(ValueGestures, MultisetNameDoubleClickWorksInMode4)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.buffers.of(kMultiset).user[kBankOfTimbre1] = 1;
    ValueBox box = fillValueBox(t.model, kMultiset, 0, kBankOfTimbre1);
    doubleClickParamName(t.model, box);
    EXPECT_EQ(current(t, kMultiset)[kBankOfTimbre1], 1);
}

TEST(ValueGestures, SpinClicksStepByOneWithinTheLimits)
{
    EXPECT_EQ(spinStep(5, 0, 127, true), 6);
    EXPECT_EQ(spinStep(127, 0, 127, true), 127);
    EXPECT_EQ(spinStep(0, 0, 127, false), 0);
    TestModel t;
    ValueBox box = boxAt(t, kCenterKey, 126);
    clickSpin(t.model, box, true);
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 127);
    BoxChange atTop = clickSpin(t.model, box, true);
    EXPECT_EQ(atTop.passes, 0);
    clickSpin(t.model, box, false);
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 126);
}

TEST(ValueGestures, FocusSelectsTheWholeText)
{
    ValueBox box;
    box.text = "-42";
    TextSelection s = focusSelection(box);
    EXPECT_EQ(s.start, 0);
    EXPECT_EQ(s.length, 3);
}

}  // namespace
}  // namespace quillon
