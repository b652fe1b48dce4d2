#pragma once

#include "editors/ScreenLayout.h"
#include "editors/ValueNote.h"
#include "model/Kind.h"

#include <string>
#include <string_view>

namespace quillon {

class AppModel;

// The message of a refused edit, under the title of the main form.
inline constexpr const char* kMainFormTitle = "Quillon";
inline constexpr const char* kHardRefusal = "Sorry - this parameter cannot be changed";

// Tooltips of a parameter row's two labels.
inline constexpr const char* kParamNameTip = "Parameter name: double click for user/default value";
inline constexpr const char* kParamDecodeTip = "Decode: double click for loaded value";

// The value box of one parameter row with its spin control and decode label:
// txtParamVal(row), updParamVal(row), lblParamDecode(row) on the patch and
// multi screens, txtArpParamVal(row) and its kin on the pattern screen. The
// screen mirrors it: it shows text and decode, and gives the spin control
// min and max. A change of the text is the box's change event; the Hard
// flags it asks are those of the screen layout, which filling a frame
// clears for the time it takes.
struct ValueBox {
    int kind = 0;       // kPatch or kMultiset; kPattern for the pattern's rows
    int row = 0;        // 0 to 29 (patch, multiset), 1 to 13 (pattern)
    int param = 0;      // the parameter behind the row (RowParam, ArpRowParam)
    std::string text;   // the box
    int min = 0;        // the spin control's limits: the parameter's range
    int max = 0;
    std::string decode; // the decode label's caption
    // The pattern's rows 10 and 11 have no decode label.
    bool hasDecode() const { return kind != kPattern || (row != 10 && row != 11); }
    // 1 for rows 0 to 14, 2 for rows 15 to 29.
    int frame() const { return row / kFrameRows + 1; }
};

// What a store did beyond Current and the decode label, for the screen and
// for tests: the other frame shown again for a new type, the envelope graph
// redrawn, the pattern grid's steps to follow a new length, and what the
// decode label's change brought (a destination's name in lblMessage, a
// timbre's button named again).
struct StoreFollowUp {
    int kind = 0;
    int param = 0;
    int value = 0;
    int frame = 0;              // the frame of the edited row (patch, multiset)
    int overlaySubsection = 0;  // the setting subsection of the type just changed; 0 for other parameters
    bool envelopeRedrawn = false;
    ValueNote note;
    int lengthBefore = 0;       // the pattern length row: the grid's steps before and after
    int lengthAfter = 0;

    bool changesPatternLength() const { return lengthBefore != lengthAfter; }
};

// What one change of a box's text led to.
struct BoxChange {
    int passes = 0;        // runs of the change procedure, the repeat passes included
    bool stored = false;   // a value went into Current
    int storedValue = 0;
    int storedOnPass = 0;  // the pass that stored it
    bool refused = false;  // the refusal of a Hard parameter was shown
    StoreFollowUp followUp;
};

// The leading number of a box's text as a 16-bit value, rounded to nearest
// (halves away from zero): blanks before it are skipped, and a text without
// a number (empty, a lone "-") gives 0.
int boxNumber(std::string_view text);

// A box filled from Current: the value, the parameter's range and its
// decode, without running the change procedure. The pattern screen fills its
// rows so; the rows of the patch and multi screens are filled into the
// screen layout by refreshParamRows, and paramRowBox reads them.
ValueBox fillValueBox(const AppModel& model, int kind, int row, int param);

// The box's text has changed, by typing, by the spin control, a double click,
// the slider or the program: the change procedure runs, and again after each
// correction it makes to the text. A text equal to what the box holds is no
// change and runs nothing.
BoxChange changeValueBox(AppModel& model, ValueBox& box, const std::string& text);

// The box's number into Current and the decode label's new caption, which
// runs showValueNote. A type parameter then shows the other frame again when
// it holds that type's setting subsection (the edited frame stays as it is);
// a patch row of a frame that shows an envelope runs the envelope rule
// again, which redraws the graph. Observers hear of the new value.
StoreFollowUp storePatchValue(AppModel& model, ValueBox& box);
// The same for the multiset, with its three type parameters and no envelope.
StoreFollowUp storeMultiValue(AppModel& model, ValueBox& box);
// Into the pattern's Current; the pattern length row (7) reports the steps
// before and after for the grid.
StoreFollowUp storeArpValue(AppModel& model, ValueBox& box);

// The spin control's value: the box's number within the spin's limits.
int spinValue(const ValueBox& box);

// The spin control takes a value (a step, a double click on a label): the
// box follows with the value's text, and the change procedure runs.
BoxChange setSpinValue(AppModel& model, ValueBox& box, int value);

}  // namespace quillon
