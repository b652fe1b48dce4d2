#pragma once

#include <string>

namespace quillon {

class AppModel;
struct ValueBox;

// lblMessage shows the name of a performance knob's destination in green
// (RGB, 008000).
inline constexpr int kValueNoteColour = 0x008000;

enum class ValueNoteKind {
    None,
    Destination,    // a performance knob's row: lblMessage names what it reaches
    TimbreCaption,  // a timbre's bank, number or reserve: its caption was named again
};

// What a decode label's change or click brought.
struct ValueNote {
    ValueNoteKind kind = ValueNoteKind::None;
    std::string text;  // Destination: the text of lblMessage
    int timbre = 0;    // TimbreCaption: 1 to 6
};

// Runs when a row's decode label changes or is clicked, in Mode 1 or 4, by
// the decode table of the row's parameter: a knob destination (table 11)
// goes to lblMessage through the host; a timbre's patch bank, number or
// reserve (tables 92 to 94) names that timbre's button again; others bring
// nothing.
ValueNote showValueNote(AppModel& model, const ValueBox& box);

// The name of performance knob destination value: "Off" below 1, else the
// record of Quillonpe.dat it names in the current patch, whose oscillator
// and effect types decide the records above 157.
std::string showParamName(const AppModel& model, int value);

}  // namespace quillon
