#pragma once

#include "shell/AppModel.h"
#include "shell/Host.h"

#include <array>
#include <cstdint>

// Reordering the patches of the current PatchBank: each command moves whole
// patch images, takes one step of the undo ring and redraws the view. Each
// silently does nothing while the current bank is not loaded or too few
// patches are selected (one for swap and insert, two for rotation).
//
// What the screen calls:
//   swapSelection(model, 1 or 2)     mnuSwapFirst1/2 (1), mnuSwapLast1/2 (2)
//   insertSelection(model, 1 or 2)   mnuInsertFirst1/2 (1), mnuInsertLast1/2 (2)
//   rotateSelection(model, step)     mnuRotateMinusMinus (-2), mnuRotateMinus (-1),
//                                    mnuRotatePlus (1), mnuRotatePlusPlus (2)

namespace quillon {

// Where each patch of a bank stands after a reordering, by its old place.
using BankPlaces = std::array<std::int16_t, 128>;

// The selected patches go to the first (1) or last (2) places in exchange
// for the patches there. A selected patch already in the target area is
// exchanged too when it stands at the place being filled; the selection
// stays on its places.
void swapSelection(AppModel& model, int where);

// The selected patches go to the start (1) or end (2) of the bank, both
// groups keeping their order; the selection moves with the patches.
void insertSelection(AppModel& model, int where);

// The selected patches move among their own places: -2 reverses them, -1
// moves each to the place of the one before it, 1 to the place of the one
// after it, 2 by half their count. The selection stays on its places.
void rotateSelection(AppModel& model, int step);

// The common end of every reordering of a bank, after pushUndoSlot: records
// the step with its code, writes the patches to their new places, marks
// the bank changed and redraws the view.
void finishReordering(AppModel& model, int bank, int code, const BankPlaces& newPlace);

// The identity: every patch where it stands.
BankPlaces unmovedPlaces();

// The current bank when it is loaded and at least least patches are
// selected in it; otherwise 0.
int bankToReorder(AppModel& model, int least);

// The start every reordering shares once its checks have passed: the
// hourglass and one notification for all its changes while it lives, and
// the undo step taken before anything moves.
class ReorderingStep {
public:
    explicit ReorderingStep(AppModel& model);

private:
    BusyPointer busy_;
    AppModel::Batch batch_;
};

}  // namespace quillon
