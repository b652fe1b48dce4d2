#pragma once

#include "banks/BankSelection.h"

// The mouse on a name label of the bank view. The screen passes each
// MouseDown and the Click that follows it, and shows what the Click asks for.
//
// What the screen calls:
//   bankLabelMouseDown(model, index, button, shift)   on every press
//   bankLabelClick(model, index)                        on the click after it;
//       shows mnuPopup1 (with the six reorder items enabled as told) or
//       mnuPopup2 as the result says.

namespace quillon {

class AppModel;

// Buttons and modifier bits as the program has always numbered them.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;
inline constexpr int kShiftKey = 1;
inline constexpr int kCtrlKey = 2;
inline constexpr int kAltKey = 4;

enum class BankPopup { None, Popup1, Popup2 };

struct BankClickResult {
    BankPopup popup = BankPopup::None;
    // mnuInsertFirst1, mnuInsertLast1, mnuSwapFirst1, mnuSwapLast1,
    // mnuExportImport1 and mnuAutoSend1, when mnuPopup1 shows.
    bool reorderItemsEnabled = false;
};

// A press on label index: the left button draws it selected at once; ALT
// clears the selection so that the Click selects this patch alone; SHIFT
// fills the gap between the nearest selected patch and this one.
void bankLabelMouseDown(AppModel& model, int index, int button, int shift);

// The click after a press, when the Mode's bank is loaded: the left button
// toggles the patch; the right button asks for a popup.
BankClickResult bankLabelClick(AppModel& model, int index);

// The selected patch a SHIFT-click extends from: the only one, or of several
// the nearest to index (the lowest of two as near); 0 when none is nearer
// than 127.
int findSelectionAnchor(const BankSelection& selection, int index);

}  // namespace quillon
