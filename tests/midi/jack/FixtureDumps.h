#pragma once

#include "sysex/SysExBytes.h"

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {

// The dumps z1sim is started with in the JACK tests, by request index 0 to
// 7: its factory memory with banks A and B and multi banks A and B swapped,
// so that a test sees the loaded data and not the factory's.
std::vector<SysExMessage> fixtureDumps(int channel);

// The file of request index i in the fixture's data folder.
std::string fixtureFileName(int requestIndex);

// Writes the eight files; false when one cannot be written.
bool writeFixtureDumps(const std::filesystem::path& folder);

}  // namespace quillon
