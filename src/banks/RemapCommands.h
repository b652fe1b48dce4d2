#pragma once

// The Remap commands of the Bank and Multi menus. Each refuses with a box
// that says why and changes nothing, or runs:
//   mnuMapOld(model)          the bank on show written as "oldA.txt"/"oldB.txt"
//   mnuMapNew(model)          ... as "newA.txt"/"newB.txt", then the new lists read
//   mnuCreateRemap(model)     the four-step dialogue
//   mnuRemapMultiset(model)   the edit multiset through the remap table
//   mnuRemapMultiBank(model)  the 16 multisets of the selected MultiBank

namespace quillon {

class AppModel;

void mnuMapOld(AppModel& model);
void mnuMapNew(AppModel& model);
void mnuCreateRemap(AppModel& model);
void mnuRemapMultiset(AppModel& model);
void mnuRemapMultiBank(AppModel& model);

}  // namespace quillon
