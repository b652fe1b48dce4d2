#pragma once

namespace quillon {

// The arpeggiator screen's tools: the step on show, where COPY goes, what
// the step tools copy and how a block is repeated. The tool choices live as
// long as the program runs; loading a pattern does not reset them.
struct ArpEditorState {
    int StepCurrent = 1;      // the step on show, 1 to 36
    int StepTarget = 2;       // where COPY goes, 1 to 36 (txtStepCount)
    int StepCopyMode = 0;     // index in cmbStepCopyMode
    int BlockOption = 0;      // index in cmbBlockOptions
    int SingleTone = 0;       // the tone copy mode 4 copies, 0 to 9
    int SingleParamRow = 10;  // the row copy mode 3 copies, 10 to 13
    int ShownLength = 0;      // the pattern length at the last grid refresh; 0 at start
    int UndoStep = 1;         // StepCurrent when the pattern's Last was taken
    int StepNum = 1;          // updStepNum's value: the step to show next
};

// cmbStepCopyMode.
enum StepCopyMode : int {
    kCopyAll = 0,
    kCopyParamsOnly = 1,
    kCopyTonesOnly = 2,
    kCopySingleParam = 3,
    kCopySingleTone = 4,
};

// cmbBlockOptions.
enum BlockOption : int {
    kBlockNormal = 0,
    kBlockReverse = 1,
    kBlockRotate = 2,
};

}  // namespace quillon
