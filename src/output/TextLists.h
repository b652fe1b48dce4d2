#pragma once

#include <string>
#include <vector>

namespace quillon {

class AppModel;

// The lines of the name lists that Save List writes: a heading with the
// bank's name, an empty line, then the members.

// PatchBank A or B (Kind 2 or 3): 128 lines of letter, place "000" and name.
std::vector<std::string> bankListLines(const AppModel& model, int bank);

// MultiBank A or B (Kind 6 or 7): each multiset with its letter, place "00"
// and name, then a line for each of its six timbres with the word "patch", the
// patch it plays and that patch's name in its PatchBank, then an empty line.
// Kind 4 gives the same block once for the multiset in the editor.
std::vector<std::string> multiBankListLines(const AppModel& model, int kind);

// The ArpBank (Kind 8): the five presets as "PRESET:", the user patterns by
// their slot names "U1-1" to "U3-5". Kind 5 gives the name of the pattern in
// the editor.
std::vector<std::string> arpBankListLines(const AppModel& model, int kind);

// The slot name of an ArpBank place: "PRESET:" for 0 to 4, "U1-1" to "U3-5"
// for 5 to 19, the empty text for any other.
std::string arpListSlotName(int position);

}  // namespace quillon
