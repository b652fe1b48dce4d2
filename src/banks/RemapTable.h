#pragma once

// The remap table: for each old combined patch position 0..255 the new
// position of the patch with the same name, or -1, kept in Quillonrmp.dat in
// the data folder, and the rewriting of a multiset's six timbre patch numbers
// through it.

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace quillon {

class AppModel;

using RemapNames = std::array<std::string, 256>;
using RemapTable = std::array<std::int16_t, 256>;

inline constexpr const char* kRemapFile = "Quillonrmp.dat";

// The help topic of Remap's boxes.
inline constexpr int kRemapHelpContext = 220;

std::filesystem::path remapTablePath(const AppModel& model);

// A name as the match compares it: capitals made small, so that names
// differing only in case compare equal.
std::string nameIgnoringCase(const std::string& name);

// Positions 0..255 in the order of their names by character code, as the
// bubble sort gives it (passes over adjacent pairs, swapping when the left
// name is greater, until a pass swaps nothing): equal names keep their
// order.
std::array<int, 256> bubbleSortedPositions(const RemapNames& names);

// Every old position to the first new position (in sorted order, so the
// lowest) whose name is the same, blanks included and case ignored; -1 when
// none is.
RemapTable matchNames(const RemapNames& oldNames, const RemapNames& newNames);

// matchNames on the model's lists into its table, with the hourglass.
void matchNames(AppModel& model);

// The table as the 256 lines of Quillonrmp.dat, and back. Parsing fails on a
// missing line, a line that is not a whole number, or a number outside
// -1..255.
std::vector<std::string> formatRemapTable(const RemapTable& table);
bool parseRemapTable(const std::vector<std::string>& lines, RemapTable& table);

// Writes the model's table; "Problem Saving Remap" when that fails.
bool saveRemapTable(AppModel& model);

// Reads Quillonrmp.dat into the model's table; "No remap created. Could not
// find file Quillonrmp.dat" or "Problem reading file Quillonrmp.dat" under
// "Loading Remap" when it cannot.
bool loadRemapTable(AppModel& model);

// The six timbre patch numbers of a 208-byte multiset image rewritten through
// the table; an unmatched patch (-1) becomes 0, A000.
void remapMultiImage(const RemapTable& table, std::span<std::uint8_t> multiImage);

// Kind 0: the edit multiset, packed, remapped and shown again, no longer
// clean. Kinds 6 and 7: the multiset at position 0..15 of that MultiBank,
// which is then no longer clean.
void remapMultiset(AppModel& model, int kind, int position);

}  // namespace quillon
