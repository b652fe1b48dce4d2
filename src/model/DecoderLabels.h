#pragma once

#include <optional>
#include <string_view>

namespace quillon {

// The decode tables that name each of their values with a fixed label: patch
// categories, LFO waves, oscillator types, switch functions and the like. A
// table's range is exactly the values it names; some start above 0 and one
// (the effect modulation source) leaves a gap. The labels are the texts the
// program has always shown, blanks and case included.

// Whether the table names its values with labels.
bool hasLabels(int table);

// The label of a value, or nothing when the table is not a label table or
// does not name that value.
std::optional<std::string_view> findLabel(int table, int value);

}  // namespace quillon
