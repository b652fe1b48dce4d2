#pragma once

#include "model/DataTypes.h"

#include <string>
#include <string_view>

namespace quillon {

// The column forms of the text lists, dumps and printouts.

// Text right-aligned in a field of the given width, as the "@@@" format
// writes it; a longer text is written whole.
std::string rightAligned(std::string_view text, int width);
std::string rightAligned(int value, int width);

// A number with leading zeros to the given count of digits, as "000" writes it.
std::string zeroPadded(int value, int digits);

// The sixteen characters of the name that parameters 1 to 16 of a patch,
// multiset or pattern hold.
std::string nameFromParams(const ParamValues& values);

}  // namespace quillon
