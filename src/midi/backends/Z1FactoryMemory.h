#pragma once

#include "midi/backends/SimulatedZ1.h"

#include <string>

namespace quillon {

// The memory a simulated Z1 starts with: two banks of named patches with
// values spread within each parameter's range, two banks of multisets whose
// timbres play those patches, an arpeggiator bank whose patterns have tones,
// and Global and MIDI data. The same on every call, so that tests and users
// see one believable instrument.
const Z1Memory& z1FactoryMemory();

// The name the seeded memory gives a patch (combined position 0 to 255),
// multiset (0 to 31) or pattern (0 to 19), without the padding blanks.
std::string factoryPatchName(int position);
std::string factoryMultiName(int position);
std::string factoryPatternName(int position);

}  // namespace quillon
