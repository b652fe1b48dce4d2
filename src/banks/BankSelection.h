#pragma once

#include <array>
#include <cstdint>

namespace quillon {

inline constexpr int kBankPatches = 128;

// The patches picked in one PatchBank of the bank view. Flags are -1 for a
// selected patch and 0 otherwise. After bankSelectSequence the sequence
// lists the flagged patches in ascending order from element 1; element 1
// also carries the patch under the pointer of a right click while nothing
// is selected, so that the single-patch popup always reads element 1.
struct BankSelection {
    std::array<std::int16_t, kBankPatches> selectionFlags{};
    std::int16_t selectionCount = 0;
    std::array<std::int16_t, kBankPatches + 1> selectionSequence{};  // element 0 unused

    bool selected(int patch) const { return selectionFlags[patch] != 0; }
};

}  // namespace quillon
