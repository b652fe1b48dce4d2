#pragma once

#include "model/DataTypes.h"
#include "model/ParamDef.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillon {

// Every table that describes the instrument's data, filled once at start-up
// and never changed afterwards. All arrays count from 1; entry 0 is unused.
struct ParamTables {
    std::vector<ParamDef> patch;                 // rows 1-1343
    std::vector<ParamDef> multi;                 // rows 1-615
    std::vector<ParamDef> arp;                   // rows 1-256
    std::vector<SectionDef> patchSections;       // rows 1-83
    std::vector<SubSectionDef> patchSubsections; // rows 1-138
    std::vector<SectionDef> multiSections;       // rows 1-40
    std::vector<SubSectionDef> multiSubsections; // rows 1-51

    // Subsection ID to its index in the subsection table (0 for no such ID).
    std::vector<std::int16_t> patchSubsectionIndex;
    std::vector<std::int16_t> multiSubsectionIndex;

    // Firm: not changed by random generation. Hard: cannot be changed by the
    // editor. True is -1, false 0. The multi has no Firm array.
    std::vector<std::int16_t> patchFirm;
    std::vector<std::int16_t> patchHard;
    std::vector<std::int16_t> multiHard;

    ParamValues patchDefaults;
    ParamValues multiDefaults;
    ParamValues arpDefaults;

    // Texts such as "2 errors loading Patch data" for rows whose ID is not
    // their row number. Shown nowhere; the tables are used as they stand.
    std::vector<std::string> errorTexts;
};

// What the Firm and Hard flags mean, as the table browser explains them.
inline constexpr const char* kFirmDescription = "Firm status - not changed by random feature";
inline constexpr const char* kHardDescription = "Hard status - cannot be changed by editor";

inline constexpr int kPatchSectionRows = 83;
inline constexpr int kPatchSubsectionRows = 138;
inline constexpr int kMultiSectionRows = 40;
inline constexpr int kMultiSubsectionRows = 51;

// Builds all tables from the compiled-in row data.
ParamTables setUpTables();

// The program's one set of tables, built on first use.
const ParamTables& paramTables();

}  // namespace quillon
