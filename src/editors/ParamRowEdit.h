#pragma once

#include "editors/ValueBox.h"

#include <functional>
#include <string>

namespace quillon {

class AppModel;

// The rows 0 to 29 of the patch and multi screens as the screen layout holds
// them (RowParam, and the row's text, spin value and decode): the screen
// hands a row's events here by the row's number, and the row in the layout
// follows, with the observers told of its frame.

// The value box of a row: the parameter RowParam[row] of the Kind on show
// (the multiset in Mode 4, else the patch), with the row's text, limits and
// decode.
ValueBox paramRowBox(const AppModel& model, int row);

// Runs one of the value box's gestures (a change of text, a spin click, a
// double click, a slider move...) on the row's box and puts the box back
// into the row.
BoxChange editParamRow(AppModel& model, int row, const std::function<BoxChange(AppModel&, ValueBox&)>& gesture);

// txtParamVal(row)'s text changed.
BoxChange changeParamRow(AppModel& model, int row, const std::string& text);

}  // namespace quillon
