#pragma once

#include <string>

namespace quillon {

// The text shown beside a parameter value: the value as the decode table of
// its parameter names it (a label, a key name, a time, a frequency, a level).
// Table and value are the signed 16-bit numbers of the parameter tables. A
// table that does not exist, or a value outside the range of its table, gives
// the empty text.
std::string decodeValue(int table, int value);

}  // namespace quillon
