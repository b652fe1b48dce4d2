#pragma once

#include "model/DataTypes.h"

#include <string>
#include <vector>

namespace quillon {

class AppModel;

// The modulation sources of a patch: the parameters that choose what
// modulates something (an LFO, an EG, a controller), scattered over every
// section. A source is a parameter whose decode table is one of the
// source tables; the intensity it drives is stored right after it.

bool isModSourceTable(int table);
bool isModSource(int param);  // a patch parameter

// How many intensities follow a source parameter and belong to it: four
// after the EG node time sources, none after the few sources followed by
// something else, one after every other.
int intensitiesOfSource(int source);

// Clears every intensity whose source is off (0), in a patch's values: an
// intensity with nothing to drive it is pointless. The EG node time source
// of EG1 to EG4 and the Amp EG drives four intensities, all cleared; a few
// sources are followed by something that is no intensity and clear nothing.
void zeroIntensity(ParamValues& patch);
// The same on the patch in the editor; observers hear of the new values.
void zeroIntensity(AppModel& model);

// The patch subsection a parameter belongs to, for the jumps of the list:
// the common part by its subsection column, the setting blocks by the
// setting subsection of their oscillator or effect. 0 for none.
int subsectionOfPatchParam(int param);

// Shows the subsection of a frame again from Current after a command changed
// its values: a setting subsection through fraPatchHeaders (its type may
// have changed), any other by refilling its rows, then the envelope rule.
// An empty frame is left alone.
void showPatchFrameAgain(AppModel& model, int frame);

// Ctrl+T on the main form, on the patch screen only: "Tidy up patch" asks,
// and on Yes clears the unnecessary intensities and shows the current
// frame again.
inline constexpr const char* kTidyTitle = "Tidy up patch";
inline constexpr const char* kTidyQuestion = "Clear unnecessary intensity values";
void tidyUpPatch(AppModel& model);

// One listed source.
struct ModRow {
    std::string Section;     // section name, or a setting's caption such as "OSC1 Setting "
    std::string Subsection;  // subsection name, or the name of the setting's type section
    std::string ParamName;
    int Param = 0;
    int Table = 0;
    int Max = 0;
    int Min = 0;
    int Value = 0;  // when the list was built
};

inline constexpr int kModListLimit = 200;

// The sources of the patch in the editor, subsection by subsection (1 to
// 50, the setting subsections for the types in force). With "Show selected
// modulators" only those whose value is not 0; with "Show all modulators"
// every one. At most kModListLimit rows.
std::vector<ModRow> collectModRows(const ParamValues& patch, bool selectedOnly);

}  // namespace quillon
