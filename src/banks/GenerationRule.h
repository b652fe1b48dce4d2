#pragma once

#include <cstdint>

namespace quillon {

// The arithmetic of Random and Spread for one parameter. It is kept as the
// instrument's librarian has always done it: the width of the span in a
// 32-bit float, the product of range and percentage in signed 16 bits, and
// rounding to the nearest whole number with halves going to the even one.

// The nearest whole number, a half going to the even neighbour (2.5 gives 2,
// 3.5 gives 4, -2.5 gives -2).
long roundHalfToEven(double value);

// (max - min) * percent in signed 16 bits. A result outside that range
// throws std::overflow_error with the text "Overflow", which ends the
// command that asked for it.
std::int16_t rangeTimesPercent(int min, int max, int percent);

// The width d of the span: (max - min) * percent / 100 as a 32-bit float.
float generationSpan(int min, int max, int percent);

// Random: the span of width d around the base value, moved inside min..max,
// widened by one, and a place in it chosen by r (0 <= r < 1).
int randomRuleValue(int base, int min, int max, float d, float r);

// Spread: patch p of 128 takes its place along the span of width d centred
// on the base value, held within min..max; patch 0 lies at the low end.
int spreadRuleValue(int base, int min, int max, float d, int p);

}  // namespace quillon
