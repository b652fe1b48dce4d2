#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace quillon {

class AppModel;

// How far start-up got: the number is set before each step, so that a
// failure can say where it happened.
enum StartUpProgress : int {
    kStartInitialState = 0,
    kStartTables = 100,
    kStartSystemSettings = 300,
    kStartUserPatchFile = 400,
    kStartUserMultiFile = 500,
    kStartScreenSettings = 600,
    kStartDefaultItems = 700,
    kStartRecentFiles = 900,
    kStartMidi = 1000,
    kStartFinished = 5000,
};

// What start-up needs from around the core.
struct StartUpSurroundings {
    // The user's Music folder, the work folder's fallback; empty: the
    // user's own.
    std::filesystem::path musicFolder;
    // Opens the MIDI ports; false ends the program (it has shown its own
    // "MIDI Error" box). Without it there is no MIDI to open.
    std::function<bool(AppModel&)> initMidi;
};

// The remembered lists of the per-user store, read before the main form
// loads: the recent files and the folders.
void readRememberedLists(AppModel& model);

// Builds everything before the user can work: the data folder and its
// factory files, the tables, the settings and user files, the screen
// settings, the three default items (a pattern, a multiset, then the patch
// that shows), the recent files and MIDI. A failure shows "Startup Error"
// with the progress number; the caller then ends the program. Returns
// whether start-up finished.
bool doFormLoadMain(AppModel& model, const StartUpSurroundings& surroundings = {});

// The two lines of the "Startup Error" box.
std::string startUpErrorText(const std::string& number, const std::string& description, int progress);

// The save checks when the main form closes, Kind by Kind with the title
// "Exit Quillon". False when the user cancels one: closing is refused and the
// rest are not asked.
bool confirmClose(AppModel& model);

// What happens as the main form unloads: the MIDI ports are reset and
// closed, and the settings and the remembered lists are written.
void shutDown(AppModel& model);

}  // namespace quillon
