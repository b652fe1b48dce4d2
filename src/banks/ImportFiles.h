#pragma once

// Import to Bank: single-patch .syx files from a folder written into
// consecutive places of a PatchBank, with a result line for every file.
//
// What frmImport calls:
//   importBankChoice(model)            which of OptA / OptB can be chosen
//   startPatchRows(model, bank)        the 128 rows of cmbStartPatch
//   filesSelectedText(n)               lblNumPatchesSelected
//   importFiles(model, state, ...)     cmdImport
//   state.stopRequested = true         cmdStop, while a run goes
//   state.results.clear()              cmdClear
//   finishImport(model, state, folder) cmdDone

#include "model/DataTypes.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace quillon {

class AppModel;

// The help topic of Import to Bank and Extract to Files.
inline constexpr int kImportHelpContext = 185;

// The lengths of a file that may hold one patch dump: the dump alone (666
// or 668 bytes) with up to 200 bytes around it, or the container form.
inline constexpr std::uintmax_t kShortestImportFile = 666;
inline constexpr std::uintmax_t kLongestImportFile = 866;

// What the decoding of one file gave.
enum class ImportVerdict {
    Loaded,    // a clean patch dump: image holds its 576 bytes
    Doubtful,  // no dump of 666 or 668 bytes, or data that had to be changed
    Unreadable,  // a container whose block table runs past its end
};

struct ImportDecoded {
    ImportVerdict verdict = ImportVerdict::Doubtful;
    ByteImage image;
    // What the unpacking reported, every text of it.
    std::vector<std::string> reports;
};

// Decodes the bytes of a file of 666 to 866 bytes. Up to 785 bytes the file
// is a raw dump: the first span from the latest F0 to the latest F7 of 666
// or 668 bytes is the dump. From 786 bytes it is a container: the block
// count at bytes 115 and 116, at most ten blocks with four-byte lengths, and
// of the blocks of 666 or 668 bytes the last is the dump. The dump's header
// (6 or 8 bytes) is skipped and its 659 packed bytes unpacked; a high bit
// the unpacking must report, or any packed byte above 7F, makes the file
// doubtful. A file of any other length is doubtful.
ImportDecoded decodeImportFile(std::span<const std::uint8_t> file);

// The state of frmImport between its buttons.
struct ImportState {
    int targetBank = 2;     // OptA 2, OptB 3
    int position = 0;       // the next place written, 0 to 127
    bool running = false;   // a run is under way
    bool done = false;      // the last run came to its end
    bool stopRequested = false;
    std::vector<std::string> results;
    int written = 0;        // patches written since the form opened
};

// Which bank options frmImport offers: an option is enabled when its bank
// is loaded; the preselected bank is the current one when it is loaded, else
// the one loaded (2 or 3), else 0.
struct ImportBankChoice {
    bool aEnabled = false;
    bool bEnabled = false;
    int preselected = 0;
};
ImportBankChoice importBankChoice(const AppModel& model);

// The 128 rows of cmbStartPatch for a bank: the bank letter, the place in
// three digits, a blank and the name, from "A000" or "B000" on.
std::vector<std::string> startPatchRows(const AppModel& model, int bank);

// "3 files selected".
std::string filesSelectedText(int count);

// The .syx files of a folder (any case of the extension), sorted by name;
// empty when the folder cannot be read.
std::vector<std::filesystem::path> importFilesInFolder(const std::filesystem::path& folder);

// cmdImport: the files in order into the target bank from startPosition (or,
// when the result list still holds a run's lines, from where that run
// stopped). Before each file allowUpdate runs, in which the screen handles
// its events (a click on cmdStop sets stopRequested). Nothing happens while
// a run goes or when the target bank is not loaded; with no file the user is
// asked to select some.
void importFiles(AppModel& model, ImportState& state, const std::vector<std::filesystem::path>& files,
                 int startPosition, const std::function<void()>& allowUpdate);

// cmdDone: the bank view shows the target bank; when anything was written
// the bank counts as changed and the undo ring is emptied. The folder
// becomes the work folder. With the target bank not loaded (no bank was
// there to import into) nothing changes.
void finishImport(AppModel& model, const ImportState& state, const std::string& folder);

}  // namespace quillon
