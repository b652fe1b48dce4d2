#pragma once

// The bank lists of Remap: a PatchBank's 128 names written to "oldA.txt",
// "oldB.txt", "newA.txt" or "newB.txt" in the data folder, and read back into
// the names Remap matches. A line holds two fields in double quotes, the
// number in three digits and the 16-character name with its blanks:
//   "012","Warm Pad        "

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon {

class AppModel;

inline constexpr int kOldList = 1;
inline constexpr int kNewList = 2;

// "oldA.txt" for bank A (2) as old (1), "newB.txt" for bank B (3) as new (2).
std::string bankListFileName(int bank, int which);
std::filesystem::path bankListPath(const AppModel& model, int bank, int which);

// The 128 lines of a list of these names.
std::vector<std::string> formatBankList(const std::array<std::string, 128>& names);

// The 128 names of a list's lines: the quotes removed, the name the text
// after the number's comma. False when a line is missing or has no comma.
bool parseBankList(const std::vector<std::string>& lines, std::array<std::string, 128>& names);

// The 128 names of a list file; false when it cannot be read or parsed.
bool readBankListFile(const std::filesystem::path& path, std::array<std::string, 128>& names);

// Writes the list of a loaded bank anew; "Problem writing to file" under
// "Save Bank Map" when that fails.
bool saveBankList(AppModel& model, int bank, int which);

// When the list file exists, its names go to oldNames or newNames at their
// positions (+128 for B). A file that cannot be read gives "Problem reading
// file" under "Open Bank Map", and for a new list clears newListsPresent.
// True when the names were read.
bool readBankList(AppModel& model, int bank, int which);

// Both new lists present: newListsPresent is set and both are read, so that
// the multiset screen can name timbres whose bank is not loaded.
void checkNewLists(AppModel& model);

}  // namespace quillon
