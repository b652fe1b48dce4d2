#pragma once

#include "output/CheckResults.h"

namespace quillon {

class AppModel;

// frmCompare for the patch (Kind 1) or the multiset (Kind 4): every
// parameter whose value in Current differs from PrevLoaded, the item as it
// stood when the latest load began.
InspectionView compareView(const AppModel& model, int kind);

// Writes QuillonCmpPch.txt or QuillonCmpMlt.txt in the "Param" folder: the
// item's file name, an empty line, then the lines of compareView. False, after
// telling the user, when it cannot be written.
bool saveCompareResults(AppModel& model, int kind);

// mnuCompareLast: in Mode 1 and 4 refuses when the item is not loaded, and
// otherwise says that frmCompare opens. Other Modes do nothing.
bool mnuCompareLast(AppModel& model);

}  // namespace quillon
