#pragma once

#include "files/SystemSettings.h"
#include "model/DataTypes.h"

#include <random>
#include <vector>

namespace quillon {

class AppModel;

// Random 128 and Spread 128: a whole PatchBank of variations of the patch in
// the editor. Random scatters each chosen parameter at random around its
// value; Spread walks it evenly from low to high over the 128 patches. The
// groups to vary and their percentages are the Random or Spread block of the
// settings. Rows marked Firm are never touched.

enum class Generation { Random, Spread };

// The titles of the refusals and the captions of the bank Dialog.
inline constexpr const char* kRandomBankTitle = "New Bank - 128 Random Patches";
inline constexpr const char* kSpreadBankTitle = "New Bank - 128 Spread Patches";
inline constexpr const char* kRandomSameText =
    "Please check settings. Quillon thinks all random patches will be the same";
inline constexpr const char* kSpreadSameText =
    "Please check settings. Quillon thinks all spread patches will be the same";
inline constexpr int kRandomBankHelpContext = 145;
inline constexpr int kSpreadBankHelpContext = 150;

// Whether a block of settings can give patches that differ, for this patch:
// a flag of EG, LFO, OSC, Filter or FX with its percentage above 0; Mod
// Intensity on at 1 % or more with a modulation source of the patch set to
// the chosen source; AmpEG or CSS on at 1 % or more. The Sub OSC Noise
// percentage counts for nothing: those flags vary by the OSC percentage.
bool generationSettingsUseful(const GenerationSettings& settings, const ParamValues& patch);
bool randomSettingsUseful(const AppModel& model);
bool spreadSettingsUseful(const AppModel& model);

// What one run needs besides the patch: the block of settings, the
// parameters of the subsection in the editor's active frame for the CSS
// group (first above last for none) and, for Random, the generator.
struct GenerationRun {
    Generation how = Generation::Spread;
    GenerationSettings settings;
    int cssFirst = 1;
    int cssLast = 0;
    std::mt19937* generator = nullptr;
};

// The 128 patches' values as the generator leaves them, each with its name
// tag " R000" or " S000" on in characters 12 to 16 and its needless
// intensities cleared. A percentage whose product with a range leaves
// signed 16 bits throws std::overflow_error.
std::vector<ParamValues> generatePatchValues(const ParamValues& base, const GenerationRun& run);

// The generators on the model: bank 2 or 3 becomes the new bank, loaded,
// changed and on show, with no file and no selection; the patch in the
// editor is as it was. Random seeds its generator from the clock; the tests
// hand one in. An overflow throws before anything has changed.
void generateRandomBank(AppModel& model, int bank);
void generateRandomBank(AppModel& model, int bank, std::mt19937& generator);
void generateSpreadBank(AppModel& model, int bank);

// The menu items: the settings test, then the bank Dialog, then the
// generator on the bank chosen.
void mnuRandomBank(AppModel& model);
void mnuRandomBank(AppModel& model, std::mt19937& generator);
void mnuSpreadBank(AppModel& model);

}  // namespace quillon
