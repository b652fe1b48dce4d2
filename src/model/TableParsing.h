#pragma once

#include "model/ParamDef.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// A row string: ID, Name, Sect, SubSect, Table, Min, Max, StartB, EndB, split
// at commas into at most nine fields (the ninth takes any rest). Numeric
// fields become signed 16-bit integers.
ParamDef parseParamRow(std::string_view row);

// A section or subsection string: ID and Name, split at the first comma. The
// row bounds start at 0.
SectionDef parseSectionRow(std::string_view row);
SubSectionDef parseSubSectionRow(std::string_view row);

// Number of rows from..to whose ID is not their row number.
int countIdMismatches(const std::vector<ParamDef>& rows, int from, int to);

// What is said of a table that loaded with mismatched IDs.
inline constexpr std::string_view kPatchTableErrors = " errors loading Patch data";
inline constexpr std::string_view kMultiTableErrors = " errors loading Multi data";
inline constexpr std::string_view kArpTableErrors = " errors loading Arpeggiator data";

// The count followed by one of the texts above, such as "3 errors loading
// Patch data"; empty when the count is 0.
std::string tableErrorText(int count, std::string_view errorsText);

}  // namespace quillon
