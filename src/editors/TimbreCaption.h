#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quillon {

class AppModel;

// A multiset plays six timbres. Each has 27 parameters, beginning at
// (t - 1) x 27 + 17 with "Patch Bank" (0 A, 1 B), "Patch Number" (0 to 127)
// and "Reserve Voice" (0 to 12, 0 being off).
inline constexpr int kMultiTimbreCount = 6;

// The parameter "Patch Bank" of timbre t (1 to 6); "Patch Number" and
// "Reserve Voice" follow it.
int timbreFirstParam(int t);

// The timbre whose bank, number or Reserve Voice a multiset parameter is
// (its decode table is 92, 93 or 94), or 0 for any other parameter.
int timbreOfParam(int param);

// The text of a timbre's button, from the multiset in Current: "Patch " and
// t for a timbre whose Reserve Voice is 0; otherwise the bank letter and the
// number in three digits ("A012"), after the patch's name and a blank when
// that patch bank is loaded, or after the name the new bank lists of a remap
// give for it when the bank is not loaded but the lists are there.
std::string timbreCaption(const AppModel& model, int t);

// The same for a multiset held as a 208-byte image, such as a member of a
// multi bank: timbre t's combined patch position lies in byte
// (t - 1) x 16 + 17 (128 and above is bank B, the low seven bits the number)
// and its Reserve Voice in the byte after.
std::string timbreCaption(const AppModel& model, std::span<const std::uint8_t> multiImage, int t);

}  // namespace quillon
