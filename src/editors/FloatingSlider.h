#pragma once

#include "editors/ValueBox.h"

#include <array>

namespace quillon {

class AppModel;

// The floating slider, sldFloating(1) for frame 1 and sldFloating(2) for
// frame 2: opened by holding the left button on a row's cmdSliderLink, it
// sets the row's box as the pointer moves along it. Everything is in twips;
// the screen converts.

inline constexpr int kSliderWidth = 1400;
inline constexpr int kSliderHeight = 265;
// The thumb travels 1050 twips from x = 150, whatever the range.
inline constexpr int kSliderTravel = 1050;
inline constexpr int kSliderTrackStart = 150;
// The slider opens 360 below the button's top, with the thumb under the
// button; for the last row of a frame it opens 720 higher, above the button.
inline constexpr int kSliderBelowButton = 360;
inline constexpr int kSliderAboveShift = 720;
inline constexpr int kSliderThumbOffset = 90;
// From 660 up to 690 (not included) the pointer rests at the middle, 675.
inline constexpr int kDetentFrom = 660;
inline constexpr int kDetentTo = 690;
inline constexpr int kDetentAt = 675;

struct SliderGeometry {
    int left = 0;
    int top = 0;
    int width = kSliderWidth;
    int height = kSliderHeight;
};

// One slider as the screen shows it.
struct FloatingSlider {
    bool visible = false;
    bool focused = false;
    int min = 0;
    int max = 0;
    int value = 0;
    int smallChange = 1;
    int largeChange = 1;
    SliderGeometry geometry;
};

// Both sliders with the row they work on.
struct FloatingSliders {
    std::array<FloatingSlider, 3> sldFloating;  // 1 and 2 in use
    int sliderRow = -1;  // SliderRow
    int sliderIndex = 1; // SliderIndex: 1 for rows 0 to 14, 2 for rows 15 to 29

    FloatingSlider& active() { return sldFloating[static_cast<std::size_t>(sliderIndex)]; }
    const FloatingSlider& active() const { return sldFloating[static_cast<std::size_t>(sliderIndex)]; }
};

// The pointer's x on the slider with the detent at the middle of the track.
int sliderDetent(int x);

// The value the pointer at x gives: min + (x - 150) x (max - min) / 1050,
// after the detent, rounded to nearest and kept within min and max.
int sliderValueFromPosition(int x, int min, int max);

// Where value lies on the track: (value - min) x 1050 / (max - min),
// rounded to nearest; 0 for a range of one value.
int sliderPositionFromValue(int value, int min, int max);

// Size and place of the slider for a row whose cmdSliderLink stands at
// buttonLeft, buttonTop, in the same coordinates: its top 360 below the
// button's (720 higher for rows 14 and 29), its left such that the thumb
// of value lies under the button.
SliderGeometry floatingSliderGeometry(int row, int value, int min, int max, int buttonLeft, int buttonTop);

// The left button pressed on cmdSliderLink of the box's row (Mode 1 or 4):
// the slider of its frame opens with the box's limits and number, unless it
// is already visible. True when it opened.
bool pressSliderLink(const AppModel& model, FloatingSliders& sliders, const ValueBox& box, int buttonLeft,
                     int buttonTop);

// The pointer moves over the slider at x. With the left button down the box
// of SliderRow takes the value there, through the change procedure, and the
// slider that value; without it the slider hides.
BoxChange moveOverSlider(AppModel& model, FloatingSliders& sliders, ValueBox& box, int x, bool leftButton);

// The release on the slider or on the button, and the slider's loss of
// focus, hide it.
void hideFloatingSlider(FloatingSliders& sliders);

}  // namespace quillon
