#include "editors/FloatingSlider.h"

#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace quillon {

namespace {

constexpr int kLastRowOfFrame1 = 14;
constexpr int kLastRowOfFrame2 = 29;

}  // namespace

int sliderDetent(int x)
{
    return x >= kDetentFrom && x < kDetentTo ? kDetentAt : x;
}

int sliderValueFromPosition(int x, int min, int max)
{
    const double exact =
        min + static_cast<double>(sliderDetent(x) - kSliderTrackStart) * (max - min) / kSliderTravel;
    const int value = static_cast<int>(std::lround(exact));
    return std::clamp(value, std::min(min, max), std::max(min, max));
}

int sliderPositionFromValue(int value, int min, int max)
{
    if (max == min)
        return 0;
    return static_cast<int>(std::lround(static_cast<double>(value - min) * kSliderTravel / (max - min)));
}

SliderGeometry floatingSliderGeometry(int row, int value, int min, int max, int buttonLeft, int buttonTop)
{
    SliderGeometry g;
    g.top = buttonTop + kSliderBelowButton;
    if (row == kLastRowOfFrame1 || row == kLastRowOfFrame2)
        g.top -= kSliderAboveShift;
    g.left = buttonLeft - kSliderThumbOffset - sliderPositionFromValue(value, min, max);
    return g;
}

bool pressSliderLink(const AppModel& model, FloatingSliders& sliders, const ValueBox& box, int buttonLeft,
                     int buttonTop)
{
    if ((model.mode != kPatch && model.mode != kMultiset) || box.kind != model.mode)
        return false;
    sliders.sliderRow = box.row;
    sliders.sliderIndex = box.frame();
    FloatingSlider& slider = sliders.active();
    if (slider.visible)
        return false;
    slider.smallChange = 1;
    slider.largeChange = 1;
    slider.min = box.min;
    slider.max = box.max;
    // A slider holds no value outside its limits.
    slider.value = spinValue(box);
    slider.geometry = floatingSliderGeometry(box.row, slider.value, slider.min, slider.max, buttonLeft, buttonTop);
    slider.visible = true;
    slider.focused = true;
    return true;
}

BoxChange moveOverSlider(AppModel& model, FloatingSliders& sliders, ValueBox& box, int x, bool leftButton)
{
    FloatingSlider& slider = sliders.active();
    if (!slider.visible)
        return {};
    if (!leftButton) {
        hideFloatingSlider(sliders);
        return {};
    }
    if (box.row != sliders.sliderRow)
        return {};
    const int value = sliderValueFromPosition(x, slider.min, slider.max);
    BoxChange change = changeValueBox(model, box, std::to_string(value));
    slider.value = value;
    return change;
}

void hideFloatingSlider(FloatingSliders& sliders)
{
    for (FloatingSlider& slider : sliders.sldFloating) {
        slider.visible = false;
        slider.focused = false;
    }
}

}  // namespace quillon
