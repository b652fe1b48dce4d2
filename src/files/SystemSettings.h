#pragma once

#include <array>
#include <string>
#include <vector>

namespace quillon {

// The choices of Random or Spread generation in the settings dialog.
struct GenerationSettings {
    std::array<bool, 4> eg{};
    std::array<bool, 4> lfo{};
    std::array<bool, 4> osc{};
    std::array<bool, 2> fx{};
    std::array<bool, 2> filter{};
    int varEG = 0;
    int varLFO = 0;
    int varOSC = 0;
    int varSONO = 0;
    int varFX = 0;
    int varFilter = 0;
    int resetAll = 0;
    bool modInt = false;
    bool ampEG = false;
    bool css = false;
    int varModInt = 0;
    int varAmpEG = 0;
    int varCSS = 0;
    int modIntChoice = 0;  // cmbModInt

    bool operator==(const GenerationSettings&) const = default;
};

// What frmFind shows when it opens again: the text search's option and the
// last ten texts searched (newest first), the text in lower case, and the
// type search's option and the row chosen in its list.
struct FindSettings {
    int textOption = 0;  // 0 to 4
    std::vector<std::string> recentTexts;
    std::string text;
    int typeOption = 0;  // 0 to 10
    int typeValue = 0;

    bool operator==(const FindSettings&) const = default;
};

// The program's system settings, kept in Quillonset.dat, and the folders
// kept in the per-user store.
struct SystemSettings {
    // Screen state at start-up.
    bool takeStoredView = false;
    int storedFrameMode = 0;
    int frameMode = 0;
    std::array<int, 6> storedShowMode{};  // by frame mode 1 to 5
    std::array<int, 6> showMode{};
    std::array<int, 8> favourites{};  // subsection index of each favourite, 0 for none

    // Saving.
    bool suggestNames = false;
    int fileNameFormat = 0;              // cmbFormat, 0 to 9
    std::array<std::string, 6> prefixes;  // 1 patch, 2 bank, 3 multi, 4 pattern, 5 other dumps

    int userFileNumber = 0;  // cmbUserFileNum, 0 to 5

    GenerationSettings random;
    GenerationSettings spread;

    // MIDI: device numbers of the MIDI layer, and channels 1 to 16 (the
    // settings file keeps a channel as its place in the list, channel - 1).
    int inputDevice = 0;
    int outputDevice = 0;
    int inputChannel = 1;
    int outputChannel = 1;

    // Test tone: length in tenths of a second (0 to 50), velocity 0 to 127,
    // pitch as a key number of the key names.
    int toneLength = 0;
    int toneVelocity = 0;
    int tonePitch = 0;

    // Sound show.
    std::array<int, 4> soundShow{5, 1, 20, 5};

    bool graphicEnvelope = false;
    bool modulationShow = false;  // true: "Show selected modulators", false: "Show all modulators"

    FindSettings find;

    int recentFilesShown = 0;
    int recentFilesMax = 10;

    // From the per-user store; "Folders" 01 is the work folder of the
    // program's state.
    std::string extractFolder;  // "Folders" 02
    std::string listFolder;     // "Folders" 03
    std::string helpFolder;     // "Folders" 04

    bool operator==(const SystemSettings&) const = default;
};

}  // namespace quillon
