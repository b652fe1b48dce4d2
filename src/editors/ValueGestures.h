#pragma once

#include "editors/ValueBox.h"

namespace quillon {

class AppModel;

// The other ways a row's value changes besides typing: the spin control's
// clicks, its right-button big step, and double clicks on the box and the
// row's two labels. Each goes through the box, so the change procedure, the
// limits and the refusal of Hard parameters apply to all of them.

// The part of the text selected when a value box receives the focus: all of
// it, so that typing replaces it.
struct TextSelection {
    int start = 0;
    int length = 0;
};
TextSelection focusSelection(const ValueBox& box);

// A double click in a box holding value: from 0 up, a value below the
// maximum jumps to the maximum and the maximum to the minimum; a negative
// value jumps to 0.
int doubleClickedValue(int value, int min, int max);
BoxChange doubleClickValueBox(AppModel& model, ValueBox& box);

// A double click on lblParamName: the spin control takes the User value.
// Only on the patch and multi screens; the pattern's names have none.
BoxChange doubleClickParamName(AppModel& model, ValueBox& box);

// A double click on lblParamDecode (lblArpParamDecode): the spin control
// takes the Loaded value.
BoxChange doubleClickParamDecode(AppModel& model, ValueBox& box);

// A left click on the spin control: one step up or down, within the limits.
int spinStep(int value, int min, int max, bool up);
BoxChange clickSpin(AppModel& model, ValueBox& box, bool up);

// A right press on the spin control: in its upper half (y below 128 twips)
// a big step up, else down. The step is the largest of 20, 10, 5 and 1 that
// stays within the limits; when none does, the value stays.
inline constexpr int kSpinArrowHeight = 128;
bool bigStepGoesUp(int yTwips);
int bigStep(int value, int min, int max, bool up);
BoxChange rightPressSpin(AppModel& model, ValueBox& box, int yTwips);

}  // namespace quillon
