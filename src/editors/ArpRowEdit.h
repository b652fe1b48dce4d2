#pragma once

#include "editors/ValueBox.h"

#include <functional>
#include <string>

namespace quillon {

class AppModel;

// The arpeggiator screen's thirteen rows, txtArpParamVal(1..13) with their
// spin controls and decode labels, twins of the patch screen's rows: the
// screen hands a row's gestures here by the row's number (the gestures of
// ValueGestures.h), and the row in model.arpScreen follows. The change
// procedure runs only once the pattern screen has been set up; a new
// pattern length shows the grid's added or removed steps.
BoxChange editArpRow(AppModel& model, int row, const std::function<BoxChange(AppModel&, ValueBox&)>& gesture);

// txtArpParamVal(row)'s text changed.
BoxChange changeArpRow(AppModel& model, int row, const std::string& text);

// The length row shows the pattern length of Current, as every step tool
// ends: a length of 37, left by INS in a full pattern, shows 36 and is
// stored so.
void showLengthRow(AppModel& model);

}  // namespace quillon
