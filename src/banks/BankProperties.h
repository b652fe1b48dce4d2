#pragma once

#include <string>

namespace quillon {

class AppModel;

inline constexpr int kBankViewHelpContext = 160;

// The lines of the Properties box of a patch of the bank on show, joined by
// carriage return and line feed: name, size, bank, place, and its types,
// each with its number and its text in brackets.
std::string bankPatchProperties(const AppModel& model, int position);

// mnuProperties: the box titled "Properties" for the patch at position of
// the bank on show.
void showBankPatchProperties(AppModel& model, int position);

// Writes user group 1 to 16 into every selected patch of the bank on show
// after the user says Yes; nothing without a loaded bank on show, a
// selection, or a group in range.
void changeUserGroup(AppModel& model, int group);

}  // namespace quillon
