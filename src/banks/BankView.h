#pragma once

#include <array>
#include <string>

// The bank view as the core keeps it: what each of the 128 name labels shows,
// whether the grid has been made, whether the selection tools show, and the
// three Undo items. The screen draws this state when it is told
// kBankViewChanged (labels, selection tools) or kUndoMenuChanged (Undo items).
//
// What the screen calls:
//   fraBankSetUp(model)                   before the grid is first shown
//   fraBankLabelsSetUp(model, bank, state) when a bank comes on show
//   mnuSelectAll(model), mnuDeselectAll(model)      the items of mnuPopup2
//   setEditorFromSelection(model, 0 or -1)
// and reads model.bankView.

namespace quillon {

class AppModel;

inline constexpr int kBankLabels = 128;

// The colour schemes of the name labels.
inline constexpr int kUnloadedScheme = 7;    // grey, black text
inline constexpr int kUnselectedScheme = 12;  // olive, black text
inline constexpr int kSelectedScheme = 13;    // yellow, dark red text

struct BankLabelState {
    std::string caption;
    int scheme = kUnloadedScheme;
};

// One of mnuUndoBank, mnuUndoBankPopup1 and mnuUndoBankPopup2.
struct UndoMenuItemState {
    std::string caption = "Undo";
    bool enabled = false;
};

enum UndoMenuItem { kMnuUndoBank = 0, kMnuUndoBankPopup1 = 1, kMnuUndoBankPopup2 = 2 };

struct BankViewState {
    // The labels lblBkPatch(0..127) exist; they are made once.
    bool gridMade = false;
    std::array<BankLabelState, kBankLabels> labels{};
    // Toolbar buttons 17, 18, 19, 21, 22, 23 and the controls
    // txtBankPatchSelGroup, updBankPatchSelGroup, txtBankPatchSelSS and
    // updBankPatchSelSS show and are enabled: exactly one patch is selected.
    bool selectionToolsShown = false;
    // The mouse button of the last MouseDown on a label (1 left, 2 right,
    // 4 middle).
    int lastButton = 0;
    // The six reorder items of mnuPopup1 (mnuInsertFirst1, mnuInsertLast1,
    // mnuSwapFirst1, mnuSwapLast1, mnuExportImport1, mnuAutoSend1) are
    // enabled: set by the right click that shows the popup.
    bool popup1ReorderItemsEnabled = false;
    std::array<UndoMenuItemState, 3> undoItems{};
};

// Makes the grid of labels, once; later calls change nothing.
void fraBankSetUp(AppModel& model);

// Sets the captions and colours of the labels for a PatchBank, and clears or
// fills its selection, by state:
//   0  new names, selection cleared, all unselected
//   1  new names, colours from the flags
//   2  colours from the flags
//   3  selection cleared, all unselected
//   4  everything selected
// A bank that is not loaded is drawn in the unloaded colours.
void fraBankLabelsSetUp(AppModel& model, int bank, int state);

// Rebuilds the selection sequence of the current bank from its flags, in
// ascending order, and shows the selection tools for exactly one patch.
void bankSelectSequence(AppModel& model);
void showSelectionTools(AppModel& model);
void hideSelectionTools(AppModel& model);

// Draws one label of the grid in a scheme.
void setBankLabelScheme(AppModel& model, int index, int scheme);

// The items Select All and Deselect All of mnuPopup2.
void mnuSelectAll(AppModel& model);
void mnuDeselectAll(AppModel& model);

// 0: the patch in element 1 of the sequence is no longer selected (it went
// into the editor). -1: it is the one selected patch again.
void setEditorFromSelection(AppModel& model, int value);

}  // namespace quillon
