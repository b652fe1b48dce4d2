#pragma once

#include <string>
#include <vector>

namespace quillon {

class AppModel;
struct ParamDef;

// The lines of the parameter dumps of the edit buffers: the item's file name,
// an empty line, then every parameter of Current with its number, value,
// decoded text and name.
//
// The patch and the multiset list first the values of their type parameters,
// then the rows that are always in force, then one block for each type
// overlay with the rows of the type in force. A row belongs to an overlay when
// its section is one that a type parameter selects for some value of its
// range; such rows appear only in their overlay's block. Rows named
// "reserved" are left out. The pattern lists its common rows and then each
// step's rows, "reserved" rows included.
std::vector<std::string> patchDumpLines(const AppModel& model);
std::vector<std::string> multiDumpLines(const AppModel& model);
std::vector<std::string> arpDumpLines(const AppModel& model);

// One parameter line: "Param no " and the number in "@@@@", " = ", the value
// in "@@@", a blank, the decoded text in brackets, and the name.
std::string paramDumpLine(int number, int value, const ParamDef& row);

}  // namespace quillon
