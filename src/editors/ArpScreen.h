#pragma once

#include "editors/ArpSteps.h"
#include "editors/ColourSchemes.h"
#include "editors/ValueBox.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class AppModel;

// The arpeggiator screen as data: the grid of tone boxes with its step
// markers and tone numbers, the thirteen parameter rows, the step boxes and
// the pattern list. The screen draws it and hands the user's gestures to the
// functions below and to those of ArpCommands.h; every change tells the
// observers kPatternGridChanged (boxes and markers) or kPatternRowsChanged
// (everything else).

inline constexpr int kArpParamRows = 13;      // ArpRowParam[1..13]
inline constexpr int kPatternLengthRow = 7;   // the row of "Pattern Length"
inline constexpr int kFirstStepRow = 10;      // rows 10 to 13: the step on show

// The captions of the combo boxes and the tool labels.
inline constexpr std::array<std::string_view, 5> kStepCopyModes = {"All", "Params only", "Tones only",
                                                                   "Single param", "Single tone"};
inline constexpr std::array<std::string_view, 3> kBlockOptions = {"Normal", "Reverse", "Rotate"};

// Colours of the screen's labels. Marked (what a COPY takes) is yellow.
inline constexpr ColourScheme kButtonFaceColour{0, 0, SystemColour::ButtonFace, SystemColour::ButtonText};
inline constexpr ColourScheme kCurrentStepColour{0xFFFF00, 0x000000};  // lblStepMarker of StepCurrent
inline constexpr ColourScheme kMarkedToneColour{0xFFFF00, 0x000000};   // lblToneNum
inline constexpr ColourScheme kParamNameColour{0xFFC080, 0x000080};    // lblArpParamName
inline constexpr ColourScheme kMarkedParamNameColour{0xFFFF00, 0x000080};

// chkTone(i).
struct ToneBoxView {
    bool checked = false;
    bool enabled = true;
};

// lblStepMarker(s).
struct StepMarkerView {
    bool enabled = true;
    bool current = false;  // yellow; the others in button face
};

struct ArpScreenView {
    bool built = false;  // the grid and the rows exist: made on the first entry of Mode 5
    bool setUp = false;  // the rows' change procedure runs from the first set-up on

    std::array<ToneBoxView, kToneBoxes> chkTone;
    std::array<StepMarkerView, kArpSteps + 1> lblStepMarker;  // 1 to 36

    std::array<int, kArpParamRows + 1> ArpRowParam{};        // the parameter of each row, 1 to 13
    std::array<std::string, kArpParamRows + 1> rowName;      // lblArpParamName
    std::array<ValueBox, kArpParamRows + 1> rows;            // txtArpParamVal, updArpParamVal, lblArpParamDecode
    std::array<ColourScheme, kArpParamRows + 1> rowNameColour;
    std::array<ColourScheme, kArpTones> toneNumColour;  // lblToneNum(0..9)

    std::string txtStepNum = "1";    // shows updStepNum
    std::string txtStepCount = "2";  // shows updStepCount, StepTarget

    std::vector<std::string> lstArpeggio;  // the ArpBank's names, once it has been selected

    bool toneBoxChecked(int step, int tone) const
    {
        return chkTone[static_cast<std::size_t>(toneBoxIndex(step, tone))].checked;
    }
};

// setUpScreen's part in Mode 5: on the first entry the rows are made, and
// every time lstArpeggio is filled when the ArpBank is selected and loaded,
// step 1 is shown and the whole grid.
void setUpPatternScreen(AppModel& model);

// Shows the rows of the step in updStepNum (with reset, of step 1): its
// marker turns yellow and the old one plain, StepCurrent follows, rows 10
// to 13 take that step's parameters, and each row's spin control takes the
// value of Current, which runs the row's change procedure once the screen
// is set up.
void arpShowStep(AppModel& model, bool reset);

// Shows the grid: the steps up to the pattern length enabled, the others
// greyed with their tones still shown. Partial starts behind the length
// shown last, unless that is not below the length; then it shows all.
void arpShowGrid(AppModel& model, bool partial);

// The colours of the tone numbers and of the step rows' names by the copy
// mode: yellow marks what a COPY takes.
void showCopyModeMarks(AppModel& model);

// Sets chkTone(index), by a click or by a tool: the step's mask is built
// again from its ten boxes and stored. An index outside 0 to 359 does
// nothing.
void setToneBox(AppModel& model, int index, bool checked);

// Empties lstArpeggio and fills it with the ArpBank's 20 names.
void fillArpeggioList(AppModel& model);

}  // namespace quillon
