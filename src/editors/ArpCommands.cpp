#include "editors/ArpCommands.h"

#include "banks/TakeFromBank.h"
#include "editors/ArpRowEdit.h"
#include "editors/ArpScreen.h"
#include "editors/ArpStepTools.h"
#include "editors/ValueBox.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <functional>

namespace quillon {

namespace {

constexpr int kFirstStep = 1;

ArpEditorState& stateOf(AppModel& model) { return model.buffers.arpEditor; }

bool copiesTones(int mode) { return mode == kCopyAll || mode == kCopyTonesOnly; }
bool copiesParams(int mode) { return mode == kCopyAll || mode == kCopyParamsOnly; }

// CLR, INS and DEL: Last first, so that UNDO takes the tool back.
void runStepTool(AppModel& model, const std::function<void(AppModel&)>& tool)
{
    AppModel::Batch batch(model);
    model.buffers.updateLast(kPattern);
    tool(model);
    showLengthRow(model);
    arpShowGrid(model, true);
    arpShowStep(model, false);
}

// COPY and the block copies show the grid and the rows again only where the
// copy mode may have changed them.
void showAfterCopy(AppModel& model)
{
    const int mode = stateOf(model).StepCopyMode;
    showLengthRow(model);
    if (copiesTones(mode))
        arpShowGrid(model, true);
    if (copiesParams(mode))
        arpShowStep(model, false);
}

// A number typed into txtStepNum or txtStepCount, with the limits of the
// spin control beside it: outside them the box takes the limit.
int limitedStep(std::string& text)
{
    const int value = boxNumber(text);
    const int limited = std::clamp(value, kFirstStep, kArpSteps);
    if (limited != value)
        text = std::to_string(limited);
    return limited;
}

void showStep(AppModel& model, int step)
{
    stateOf(model).StepNum = std::clamp(step, kFirstStep, kArpSteps);
    arpShowStep(model, false);
}

void setStepTarget(AppModel& model, int step)
{
    ArpEditorState& state = stateOf(model);
    state.StepTarget = std::clamp(step, kFirstStep, kArpSteps);
    model.arpScreen.txtStepCount = std::to_string(state.StepTarget);
    model.changed(kPatternRowsChanged);
}

}  // namespace

void clickArpClear(AppModel& model) { runStepTool(model, arpClearStep); }
void clickArpInsert(AppModel& model) { runStepTool(model, arpInsertStep); }
void clickArpDelete(AppModel& model) { runStepTool(model, arpDeleteStep); }

void clickArpCopy(AppModel& model)
{
    AppModel::Batch batch(model);
    model.buffers.updateLast(kPattern);
    arpCopyStep(model);
    showAfterCopy(model);
    setStepTarget(model, std::min(stateOf(model).StepTarget + 1, kArpSteps));
}

void clickArpBlockCopy(AppModel& model, int index)
{
    if (index < 0 || index >= kBlockCopyButtons)
        return;
    AppModel::Batch batch(model);
    model.buffers.updateLast(kPattern);
    const BlockCopyButton& button = kBlockCopyTable[static_cast<std::size_t>(index)];
    arpBlockCopy(model, button.length, button.repeats);
    showAfterCopy(model);
}

void clickArpUndo(AppModel& model)
{
    AppModel::Batch batch(model);
    model.buffers.updateCurrentLast(kPattern);
    model.changed(kBuffersChanged);
    showLengthRow(model);
    arpShowGrid(model, true);
    arpShowStep(model, false);
}

void clickToneBox(AppModel& model, int index, bool checked) { setToneBox(model, index, checked); }

void releaseToneBox(AppModel& model, int index)
{
    if (index < 0 || index >= kToneBoxes)
        return;
    showStep(model, stepOfToneBox(index));
}

void clickStepMarker(AppModel& model, int step)
{
    if (step < kFirstStep || step > kArpSteps)
        return;
    showStep(model, step);
}

void changeStepNum(AppModel& model, const std::string& text)
{
    std::string shown = text;
    const int step = limitedStep(shown);
    model.arpScreen.txtStepNum = shown;
    showStep(model, step);
}

void spinStepNum(AppModel& model, bool up)
{
    const int step = stateOf(model).StepNum + (up ? 1 : -1);
    if (step >= kFirstStep && step <= kArpSteps)
        showStep(model, step);
}

void doubleClickStepNum(AppModel& model) { showStep(model, kFirstStep); }

void changeStepCount(AppModel& model, const std::string& text)
{
    std::string shown = text;
    const int step = limitedStep(shown);
    setStepTarget(model, step);
    model.arpScreen.txtStepCount = shown;
}

void spinStepCount(AppModel& model, bool up)
{
    const int step = stateOf(model).StepTarget + (up ? 1 : -1);
    if (step >= kFirstStep && step <= kArpSteps)
        setStepTarget(model, step);
}

void doubleClickStepCount(AppModel& model)
{
    const ArpEditorState& state = stateOf(model);
    const int next = state.StepCurrent + 1;
    setStepTarget(model, state.StepTarget == next || next > kArpSteps ? kFirstStep : next);
}

void selectStepCopyMode(AppModel& model, int index)
{
    if (index < 0 || index >= static_cast<int>(kStepCopyModes.size()))
        return;
    stateOf(model).StepCopyMode = index;
    showCopyModeMarks(model);
}

void selectBlockOption(AppModel& model, int index)
{
    if (index < 0 || index >= static_cast<int>(kBlockOptions.size()))
        return;
    stateOf(model).BlockOption = index;
    model.changed(kPatternRowsChanged);
}

void clickArpParamName(AppModel& model, int row)
{
    ArpEditorState& state = stateOf(model);
    if (state.StepCopyMode != kCopySingleParam || row < kFirstStepRow || row > kArpParamRows)
        return;
    state.SingleParamRow = row;
    showCopyModeMarks(model);
}

void clickToneNum(AppModel& model, int tone)
{
    ArpEditorState& state = stateOf(model);
    if (state.StepCopyMode != kCopySingleTone || tone < 0 || tone >= kArpTones)
        return;
    state.SingleTone = tone;
    showCopyModeMarks(model);
}

bool clickArpeggioList(AppModel& model, int index)
{
    if (index < 0 || index >= static_cast<int>(model.arpScreen.lstArpeggio.size()))
        return false;
    return takePatternFromBank(model, index);
}

}  // namespace quillon
