#pragma once

#include "model/DataTypes.h"

#include <string_view>
#include <vector>

// Sorting a PatchBank, whole or its selection, by one of ten keys:
// 1 name, 2 patch category, 3 user group, 4 OSC1 type, 5 OSC2 type, 6 FX1
// type, 7 FX2 type, 8 filter 1 type, 9 filter 2 type, 10 linked arpeggiator
// pattern. Always ascending; equal keys keep their bank order.
//
// What the screen calls:
//   sortSelection(model, key)   mnuSortArray(key) of mnuPopup2
//   mnuSortBankArray(model, key) (banks/BankMenus.h) for the Bank menu

namespace quillon {

class AppModel;

inline constexpr int kSortKeys = 10;

// The patches sorted by key: a bubble sort that swaps only a strictly
// greater left neighbour, so it is stable. Names compare without regard to
// case over all 16 stored characters, trailing blanks included; the other
// keys as numbers. A key outside 1..10 leaves the list as it is. Returns
// the passes made, one for a list already in order, 0 for a key outside.
int sortPatchesByKey(const ByteImage& bank, int key, std::vector<int>& patches);

// The number of the key a command-line word names ("name", "category",
// "group", "osc1", "osc2", "fx1", "fx2", "filter1", "filter2", "arp"), or 0.
int sortKeyNamed(std::string_view word);

// The selected patches of the current bank (two or more) sorted among their
// own places; the selection stays on its places.
void sortSelection(AppModel& model, int key);

// The whole current bank sorted. Takes an undo step and marks the bank
// changed even when the order was already right.
void sortBank(AppModel& model, int key);

}  // namespace quillon
