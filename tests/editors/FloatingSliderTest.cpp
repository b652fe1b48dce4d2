#include "editors/FloatingSlider.h"

#include "editors/Frames.h"
#include "editors/ParamRowEdit.h"
#include "editors/ScreenLayout.h"

#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

constexpr int kStartLevel = 31;      // EG1, -99 to 99
constexpr int kCenterKey = 179;      // 0 to 127
constexpr int kReservedPatch = 321;  // "reserved", 0 to 255: Hard

ParamValues& current(TestModel& t, int kind) { return t.model.buffers.of(kind).current; }

TEST(FloatingSlider, MiddleOfTheTrackGivesZeroAndTheDetentHoldsItFor30Twips)
{
    EXPECT_EQ(sliderValueFromPosition(675, -99, 99), 0);
    for (int x = 660; x < 690; ++x)
        EXPECT_EQ(sliderValueFromPosition(x, -99, 99), 0) << x;
    EXPECT_EQ(sliderValueFromPosition(659, -99, 99), -3);
    EXPECT_EQ(sliderValueFromPosition(690, -99, 99), 3);

    TestModel t;
    current(t, kPatch)[kStartLevel] = 50;
    ValueBox box = fillValueBox(t.model, kPatch, 3, kStartLevel);
    FloatingSliders sliders;
    ASSERT_TRUE(pressSliderLink(t.model, sliders, box, 4000, 1000));
    moveOverSlider(t.model, sliders, box, 665, true);
    EXPECT_EQ(box.text, "0");
    EXPECT_EQ(current(t, kPatch)[kStartLevel], 0);
    EXPECT_EQ(sliders.active().value, 0);
}

TEST(FloatingSlider, SliderForRow29OpensAboveTheButton)
{
    TestModel t;
    ValueBox box = fillValueBox(t.model, kPatch, 29, kCenterKey);
    FloatingSliders sliders;
    ASSERT_TRUE(pressSliderLink(t.model, sliders, box, 5000, 4200));
    EXPECT_EQ(sliders.sliderIndex, 2);
    EXPECT_EQ(sliders.sliderRow, 29);
    const SliderGeometry& g = sliders.sldFloating[2].geometry;
    EXPECT_EQ(g.top, 4200 - 360);
    EXPECT_LT(g.top + g.height, 4200);
    EXPECT_FALSE(sliders.sldFloating[1].visible);

    ValueBox middle = fillValueBox(t.model, kPatch, 28, kCenterKey);
    EXPECT_EQ(floatingSliderGeometry(middle.row, 0, 0, 127, 5000, 4000).top, 4360);
    EXPECT_EQ(floatingSliderGeometry(14, 0, 0, 127, 5000, 4000).top, 3640);
}

TEST(FloatingSlider, OpensWithTheThumbUnderTheButton)
{
    TestModel t;
    current(t, kPatch)[kCenterKey] = 30;
    ValueBox box = fillValueBox(t.model, kPatch, 2, kCenterKey);
    FloatingSliders sliders;
    ASSERT_TRUE(pressSliderLink(t.model, sliders, box, 3000, 900));
    const FloatingSlider& s = sliders.sldFloating[1];
    EXPECT_TRUE(s.visible);
    EXPECT_TRUE(s.focused);
    EXPECT_EQ(s.min, 0);
    EXPECT_EQ(s.max, 127);
    EXPECT_EQ(s.value, 30);
    EXPECT_EQ(s.smallChange, 1);
    EXPECT_EQ(s.largeChange, 1);
    EXPECT_EQ(s.geometry.width, 1400);
    EXPECT_EQ(s.geometry.height, 265);
    EXPECT_EQ(s.geometry.top, 1260);
    const int pos = sliderPositionFromValue(30, 0, 127);
    EXPECT_EQ(pos, 248);  // 30 x 1050 / 127 = 248.03
    EXPECT_EQ(s.geometry.left, 3000 - 90 - pos);
    // The pointer over the button, 60 twips into it, gives the box's value.
    EXPECT_EQ(sliderValueFromPosition(3000 + 60 - s.geometry.left, 0, 127), 30);
}

TEST(FloatingSlider, PositionAndValueAreEachOthersInverse)
{
    // Values next to 0 lie within the detent, which gives 0 for them.
    for (int v = -99; v <= 99; ++v)
        EXPECT_EQ(sliderValueFromPosition(150 + sliderPositionFromValue(v, -99, 99), -99, 99),
                  v >= -2 && v <= 2 ? 0 : v)
            << v;
    EXPECT_EQ(sliderPositionFromValue(0, 0, 127), 0);
    EXPECT_EQ(sliderPositionFromValue(127, 0, 127), 1050);
    EXPECT_EQ(sliderPositionFromValue(5, 5, 5), 0);
}

TEST(FloatingSlider, PositionsOffTheTrackAreKeptWithinTheLimits)
{
    EXPECT_EQ(sliderValueFromPosition(0, 0, 127), 0);
    EXPECT_EQ(sliderValueFromPosition(1400, 0, 127), 127);
    EXPECT_EQ(sliderValueFromPosition(150, 1, 5), 1);
    EXPECT_EQ(sliderDetent(659), 659);
    EXPECT_EQ(sliderDetent(689), 675);
    EXPECT_EQ(sliderDetent(690), 690);
}

TEST(FloatingSlider, MoveWithoutTheLeftButtonHidesIt)
{
    TestModel t;
    ValueBox box = fillValueBox(t.model, kPatch, 2, kCenterKey);
    FloatingSliders sliders;
    pressSliderLink(t.model, sliders, box, 3000, 900);
    const int before = current(t, kPatch)[kCenterKey];
    BoxChange change = moveOverSlider(t.model, sliders, box, 1000, false);
    EXPECT_EQ(change.passes, 0);
    EXPECT_FALSE(sliders.active().visible);
    EXPECT_EQ(current(t, kPatch)[kCenterKey], before);
}

TEST(FloatingSlider, SecondPressWhileVisibleLeavesItAsItIs)
{
    TestModel t;
    ValueBox box = fillValueBox(t.model, kPatch, 2, kCenterKey);
    FloatingSliders sliders;
    ASSERT_TRUE(pressSliderLink(t.model, sliders, box, 3000, 900));
    const int left = sliders.active().geometry.left;
    EXPECT_FALSE(pressSliderLink(t.model, sliders, box, 3500, 900));
    EXPECT_EQ(sliders.active().geometry.left, left);
    hideFloatingSlider(sliders);
    EXPECT_FALSE(sliders.active().visible);
    EXPECT_TRUE(pressSliderLink(t.model, sliders, box, 3500, 900));
}

TEST(FloatingSlider, HardParameterRefusesTheSliderAtEachMove)
{
    TestModel t;
    ValueBox box = fillValueBox(t.model, kPatch, 6, kReservedPatch);
    FloatingSliders sliders;
    pressSliderLink(t.model, sliders, box, 3000, 900);
    t.host.expectMessage("Quillon", Answer::Ok, "Sorry - this parameter cannot be changed");
    t.host.expectMessage("Quillon", Answer::Ok, "Sorry - this parameter cannot be changed");
    EXPECT_TRUE(moveOverSlider(t.model, sliders, box, 700, true).refused);
    EXPECT_TRUE(moveOverSlider(t.model, sliders, box, 800, true).refused);
    EXPECT_EQ(box.text, "0");
    EXPECT_EQ(current(t, kPatch)[kReservedPatch], 0);
}

TEST(FloatingSlider, OnlyThePatchAndMultiScreensOpenIt)
{
    TestModel t;
    t.model.mode = kPattern;
    ValueBox box = fillValueBox(t.model, kPattern, 4, 22);
    FloatingSliders sliders;
    EXPECT_FALSE(pressSliderLink(t.model, sliders, box, 3000, 900));
    EXPECT_FALSE(sliders.active().visible);
}

TEST(FloatingSlider, MovesTheRowOfTheScreenLayout)
{
    TestModel t;
    refreshParamRows(t.model, 2, kStartLevel, kStartLevel + 8);
    const int row = kFrameRows;  // the first row of frame 2
    ASSERT_EQ(t.model.layout.RowParam[row], kStartLevel);
    FloatingSliders sliders;
    ASSERT_TRUE(pressSliderLink(t.model, sliders, paramRowBox(t.model, row), 4000, 1000));
    EXPECT_EQ(sliders.sliderIndex, 2);
    BoxChange change = editParamRow(t.model, sliders.sliderRow, [&sliders](AppModel& model, ValueBox& box) {
        return moveOverSlider(model, sliders, box, 150 + 1050, true);
    });
    EXPECT_TRUE(change.stored);
    EXPECT_EQ(t.model.layout.rows[row].valueText, "99");
    EXPECT_EQ(t.model.layout.rows[row].value, 99);
    EXPECT_EQ(current(t, kPatch)[kStartLevel], 99);
}

}  // namespace
}  // namespace quillon
