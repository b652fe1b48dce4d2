#pragma once

#include "files/SystemSettings.h"

#include <filesystem>
#include <span>

namespace quillon {

// The factory files that ship with the program, compiled into it and
// written into the data folder on first start: Quillonset.bkp,
// Quillonusr0.bkp, QuillonusrM.bkp and Quillonpe.bkp.

// The settings of a fresh installation.
SystemSettings factorySystemSettings();

// The names of the performance knob destinations, records 1 to 952 at
// index 0 to 951.
std::span<const char* const> peDestinationNames();

// The length of a record of Quillonpe.dat.
inline constexpr int kPeRecordLength = 60;

// Writes every factory file that is missing from the folder. False when one
// could not be written.
bool installFactoryFiles(const std::filesystem::path& dataFolder);

}  // namespace quillon
