#pragma once

#include "model/DataTypes.h"

namespace quillon {

// The layout of a pattern's values: 36 steps of six words each behind the
// pattern-wide parameters, and the grid of ten tones a step that shows them.

inline constexpr int kArpSteps = 36;
inline constexpr int kArpTones = 10;
inline constexpr int kToneBoxes = kArpSteps * kArpTones;  // chkTone(0..359)
inline constexpr int kStepWords = 6;

inline constexpr int kPatternLengthParam = 30;  // "Pattern Length", 1 to 36

// The words of a step, by column 1 to 6.
inline constexpr int kToneMsbColumn = 1;
inline constexpr int kToneLsbColumn = 2;
inline constexpr int kFirstStepParamColumn = 3;  // Pitch Offset, Flam, Velocity, Gate
inline constexpr int kLastStepParamColumn = 6;

// The parameter of column 1 to 6 of step 1 to 36.
constexpr int stepParam(int step, int column) { return (step - 1) * kStepWords + 40 + column; }

// The grid: box (step - 1) x 10 + (9 - tone) is tone `tone` of `step`, so
// that tone 9 is the top row.
constexpr int toneBoxIndex(int step, int tone) { return (step - 1) * kArpTones + (kArpTones - 1 - tone); }
constexpr int stepOfToneBox(int index) { return index / kArpTones + 1; }
constexpr int toneOfToneBox(int index) { return kArpTones - 1 - index % kArpTones; }

// The ten tones of a step: tone t is bit t of Tone MSB x 256 + Tone LSB.
int arpStepMask(const ParamValues& pattern, int step);
// Stores a mask as Tone MSB (bits 8 and 9) and Tone LSB (bits 0 to 7).
void arpSetStepMask(ParamValues& pattern, int step, int mask);

// The pattern length as it stands in the values (which INS may have taken
// one past 36).
int patternLength(const ParamValues& pattern);

}  // namespace quillon
