#pragma once

#include <array>

namespace quillon {

// The three flags of every item, by Kind 1 to 8 (entry 0 unused), all false
// at start-up.
struct KindFlags {
    // The item exists in memory: Send, Save, name editing and Check Load
    // refuse while it is false.
    std::array<bool, 9> loaded{};
    // The item differs from its file, so save prompts apply.
    std::array<bool, 9> changed{};
    // The item came from a file, the instrument or New, and Loaded is a valid
    // reference: changes are found by comparing Current with Loaded.
    std::array<bool, 9> clean{};
};

}  // namespace quillon
