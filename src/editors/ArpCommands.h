#pragma once

#include <string>

namespace quillon {

class AppModel;

// What the arpeggiator screen's controls do when the user works them. The
// step tools first keep the pattern in Last (with the step on show), so
// that UNDO takes back exactly the last tool; a value row or a grid box
// keeps nothing, and UNDO after them goes back to before the last tool.

// lblArpClear "CLR", lblArpInsert "INS", lblArpDelete "DEL": the tool, the
// length row, the grid's new steps, the step's rows.
void clickArpClear(AppModel& model);
void clickArpInsert(AppModel& model);
void clickArpDelete(AppModel& model);

// lblArpCopy "COPY": the grid and the rows are shown again as far as the
// copy mode touched them, and StepTarget moves on by one, up to 36.
void clickArpCopy(AppModel& model);

// lblArpStepBlockCopy(index), 0 to 15; another index does nothing.
void clickArpBlockCopy(AppModel& model, int index);

// lblArpUndo "UNDO": the pattern as it stood before the last tool, and the
// step then on show.
void clickArpUndo(AppModel& model);

// A click on chkTone(index) that leaves it checked or not: the step's tones
// are stored. The mouse's release on it then makes its step the current.
void clickToneBox(AppModel& model, int index, bool checked);
void releaseToneBox(AppModel& model, int index);

// lblStepMarker(step).
void clickStepMarker(AppModel& model, int step);

// txtStepNum and updStepNum: the step on show, 1 to 36. A typed value
// outside is set to the nearer limit; a double click goes to step 1.
void changeStepNum(AppModel& model, const std::string& text);
void spinStepNum(AppModel& model, bool up);
void doubleClickStepNum(AppModel& model);

// txtStepCount and updStepCount: StepTarget, 1 to 36. A double click goes
// to the step behind the current one, or to 1 when it stands there already
// or there is none.
void changeStepCount(AppModel& model, const std::string& text);
void spinStepCount(AppModel& model, bool up);
void doubleClickStepCount(AppModel& model);

// cmbStepCopyMode and cmbBlockOptions; an index outside their items does
// nothing.
void selectStepCopyMode(AppModel& model, int index);
void selectBlockOption(AppModel& model, int index);

// lblArpParamName(row) in "Single param" (rows 10 to 13) and lblToneNum(tone)
// in "Single tone" choose what those modes copy; otherwise nothing.
void clickArpParamName(AppModel& model, int row);
void clickToneNum(AppModel& model, int tone);

// lstArpeggio at an index of 0 or more: that pattern of the ArpBank comes
// into the editor, after the save prompt for the one in it, clean and
// without a file name. Returns false when nothing was taken.
bool clickArpeggioList(AppModel& model, int index);

}  // namespace quillon
