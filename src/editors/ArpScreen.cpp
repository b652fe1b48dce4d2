#include "editors/ArpScreen.h"

#include "editors/ArpRowEdit.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

namespace {

// Rows 1 to 9: Sort, the two scan zone limits, Velocity, Gate, Swing,
// Pattern Length, Arpeggio Type, Octave Motion.
constexpr int kPatternRowParams[] = {19, 20, 21, 22, 25, 28, 30, 31, 32};

ParamValues& current(AppModel& model) { return model.buffers.of(kPattern).current; }

StepMarkerView& marker(ArpScreenView& view, int step)
{
    return view.lblStepMarker[static_cast<std::size_t>(std::clamp(step, 0, kArpSteps))];
}

// The rows as they are made: names from the table, rows 1 to 9 fixed,
// 10 to 13 on step 1 until a step is shown.
void buildRows(AppModel& model)
{
    ArpScreenView& view = model.arpScreen;
    const auto& rows = paramTables().arp;
    for (int row = 1; row <= kArpParamRows; ++row) {
        const int param = row < kFirstStepRow ? kPatternRowParams[row - 1]
                                              : stepParam(1, row - kFirstStepRow + kFirstStepParamColumn);
        view.ArpRowParam[static_cast<std::size_t>(row)] = param;
        view.rowName[static_cast<std::size_t>(row)] = rows[static_cast<std::size_t>(param)].name;
        view.rows[static_cast<std::size_t>(row)] = fillValueBox(model, kPattern, row, param);
    }
    view.built = true;
}

// Step 4 of arpShowStep for one row: the spin control takes Current's
// value, and its box follows. Before the first set-up the change procedure
// does not run and the box is simply filled.
void showRow(AppModel& model, int row)
{
    ArpScreenView& view = model.arpScreen;
    ValueBox& box = view.rows[static_cast<std::size_t>(row)];
    const int param = view.ArpRowParam[static_cast<std::size_t>(row)];
    if (!view.setUp) {
        box = fillValueBox(model, kPattern, row, param);
        return;
    }
    box.param = param;
    const int value = current(model)[static_cast<std::size_t>(param)];
    editArpRow(model, row, [value](AppModel& m, ValueBox& b) { return setSpinValue(m, b, value); });
}

void showGridStep(AppModel& model, int step, bool enabled)
{
    ArpScreenView& view = model.arpScreen;
    marker(view, step).enabled = enabled;
    const int mask = arpStepMask(current(model), step);
    for (int tone = 0; tone < kArpTones; ++tone) {
        ToneBoxView& box = view.chkTone[static_cast<std::size_t>(toneBoxIndex(step, tone))];
        box.checked = (mask >> tone & 1) != 0;
        box.enabled = enabled;
    }
}

}  // namespace

void setUpPatternScreen(AppModel& model)
{
    AppModel::Batch batch(model);
    ArpScreenView& view = model.arpScreen;
    if (!view.built) {
        buildRows(model);
        showCopyModeMarks(model);
    }
    if (model.arpMode == 1 && model.flags.loaded[kArpBank])
        fillArpeggioList(model);
    arpShowStep(model, true);
    arpShowGrid(model, false);
    view.setUp = true;
    model.changed(kPatternRowsChanged | kPatternGridChanged);
}

void arpShowStep(AppModel& model, bool reset)
{
    AppModel::Batch batch(model);
    ArpEditorState& state = model.buffers.arpEditor;
    ArpScreenView& view = model.arpScreen;
    if (reset)
        state.StepNum = 1;
    state.StepNum = std::clamp(state.StepNum, 1, kArpSteps);
    view.txtStepNum = std::to_string(state.StepNum);
    if (!marker(view, state.StepNum).current || state.StepCurrent != state.StepNum) {
        marker(view, state.StepCurrent).current = false;
        marker(view, state.StepNum).current = true;
        model.changed(kPatternGridChanged);
    }
    state.StepCurrent = state.StepNum;
    for (int row = kFirstStepRow; row <= kArpParamRows; ++row)
        view.ArpRowParam[static_cast<std::size_t>(row)] =
            stepParam(state.StepCurrent, row - kFirstStepRow + kFirstStepParamColumn);
    for (int row = 1; row <= kArpParamRows; ++row)
        showRow(model, row);
    model.changed(kPatternRowsChanged);
}

void arpShowGrid(AppModel& model, bool partial)
{
    ArpEditorState& state = model.buffers.arpEditor;
    // A length of 37, which INS can leave for a moment, shows as 36.
    const int length = std::clamp(patternLength(current(model)), 0, kArpSteps);
    if (state.ShownLength == 0)
        state.ShownLength = length;
    int start = partial ? state.ShownLength + 1 : 1;
    if (start >= length)
        start = 1;
    for (int step = start; step <= length; ++step)
        showGridStep(model, step, true);
    for (int step = length + 1; step <= kArpSteps; ++step)
        showGridStep(model, step, false);
    state.ShownLength = length;
    model.changed(kPatternGridChanged);
}

void showCopyModeMarks(AppModel& model)
{
    const ArpEditorState& state = model.buffers.arpEditor;
    ArpScreenView& view = model.arpScreen;
    const int mode = state.StepCopyMode;
    for (int tone = 0; tone < kArpTones; ++tone) {
        const bool marked = mode == kCopyTonesOnly || (mode == kCopySingleTone && tone == state.SingleTone);
        view.toneNumColour[static_cast<std::size_t>(tone)] = marked ? kMarkedToneColour : kButtonFaceColour;
    }
    for (int row = 1; row <= kArpParamRows; ++row) {
        const bool marked = row >= kFirstStepRow && (mode == kCopyParamsOnly ||
                                                     (mode == kCopySingleParam && row == state.SingleParamRow));
        view.rowNameColour[static_cast<std::size_t>(row)] = marked ? kMarkedParamNameColour : kParamNameColour;
    }
    model.changed(kPatternRowsChanged);
}

void setToneBox(AppModel& model, int index, bool checked)
{
    if (index < 0 || index >= kToneBoxes)
        return;
    ArpScreenView& view = model.arpScreen;
    view.chkTone[static_cast<std::size_t>(index)].checked = checked;
    const int step = stepOfToneBox(index);
    int mask = 0;
    for (int tone = 0; tone < kArpTones; ++tone) {
        if (view.toneBoxChecked(step, tone))
            mask |= 1 << tone;
    }
    arpSetStepMask(current(model), step, mask);
    model.changed(kPatternGridChanged | kBuffersChanged);
}

void fillArpeggioList(AppModel& model)
{
    std::vector<std::string>& list = model.arpScreen.lstArpeggio;
    list.clear();
    for (int position = 0; position < kPatternsPerBank; ++position)
        list.push_back(model.banks.bankPatternName(position));
    model.changed(kPatternRowsChanged);
}

}  // namespace quillon
