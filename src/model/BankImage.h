#pragma once

#include "model/DataTypes.h"

#include <string>
#include <string_view>

namespace quillon {

// Names and sort keys of the members of a bank, read straight from the bank's
// unpacked data. A bank that holds nothing yet names its members
// "No patch (007)" and the like.

// bank is the kind number; anything outside 0 to 8, or a member number past
// the bank's end, gives the empty text.
std::string bankPatchName(const ByteImage& bank, bool bankLoaded, int bankKind, int patch);
std::string bankMultiName(const ByteImage& bank, bool bankLoaded, int bankKind, int multi);
std::string bankPatternName(const ByteImage& bank, bool bankLoaded, int pattern);

// A name without the blanks that pad it at the end.
std::string trimmedRight(std::string_view name);

// A patch, multiset or pattern name made safe to be a file name.
std::string fileNameFromName(std::string_view name);

// One byte of a patch in a bank, for sorting and finding without unpacking:
// field 1 Master FX type, 2 category, 3 user group, 4 OSC1 type, 5 OSC2
// type, 6 FX1 type, 7 FX2 type, 8 Filter 1 type, 9 Filter 2 type,
// 10 arpeggio pattern. Any other field gives 0.
int bankPatchAttribute(const ByteImage& bank, int patch, int field);

}  // namespace quillon
