#pragma once

// What Show Remap lists: for every old patch its number and name beside the
// number and name of the new patch it goes to, in one of four orders.

#include "banks/RemapTable.h"

#include <array>
#include <string>

namespace quillon {

class AppModel;

struct RemapShowData {
    RemapNames oldNames;
    RemapNames newNames;
    RemapTable table{};
    // The inverse of the table: for each new position the old one that goes
    // to it (the last of several), -1 when none does.
    RemapTable newToOld{};
};

// The orders of the four sort buttons.
enum RemapShowOrder { kByOldNumber = 0, kByOldName = 1, kByNewNumber = 2, kByNewName = 3 };

// "A000" .. "A127", "B000" .. "B127" for a combined position.
std::string remapNumberText(int position);

// Reads the table and the four lists for the form. False, after saying why,
// when the table cannot be read or a list file is missing ("Missing remap
// text files" under "Show Remap"): the form then stays closed.
bool openShowRemap(AppModel& model, RemapShowData& data);

// The inverse table of a remap table.
RemapTable invertRemapTable(const RemapTable& table);

// The 256 lines of txtShowRemap in an order, each "old number, old name, new
// number, new name" separated by tabs, joined by line ends. A side with no
// patch shows the number of position 0 and "[not present]".
std::string remapShowText(const RemapShowData& data, int order);

}  // namespace quillon
