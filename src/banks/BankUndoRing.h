#pragma once

#include <array>
#include <cstdint>

namespace quillon {

inline constexpr int kUndoSlots = 11;  // so at most ten undoable steps

// One undoable reordering: where the patch that stood at each combined
// position (bank B from 128) stands afterwards, the selection flags before
// it, the operation's code and the bank it was made on. Only the
// permutation is kept, never patch data.
struct UndoSlot {
    std::array<std::int16_t, 256> undoMap{};
    std::array<std::int16_t, 256> undoSelection{};
    int undoOperation = 0;  // 0..30
    int undoBank = 2;       // 2 or 3
};

// The ring of bank reorderings shared by both PatchBanks. Head and tail run
// 1..11 and are both 1 when the ring is empty; a push that would reach the
// tail moves the tail on.
struct BankUndoRing {
    int undoHead = 1;
    int undoTail = 1;
    std::array<UndoSlot, kUndoSlots + 1> ring{};  // indices 1..11 used

    bool empty() const { return undoHead == undoTail; }
    void clear() { undoHead = undoTail = 1; }
    UndoSlot& head() { return ring[undoHead]; }
    const UndoSlot& head() const { return ring[undoHead]; }
};

}  // namespace quillon
