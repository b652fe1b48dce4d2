#include "editors/ArpSteps.h"

#include <cstdint>

namespace quillon {

namespace {

constexpr int kToneMsbBits = 768;  // tones 8 and 9
constexpr int kToneLsbBits = 255;

std::int16_t& word(ParamValues& pattern, int step, int column)
{
    return pattern[static_cast<std::size_t>(stepParam(step, column))];
}

int word(const ParamValues& pattern, int step, int column)
{
    return pattern[static_cast<std::size_t>(stepParam(step, column))];
}

}  // namespace

int arpStepMask(const ParamValues& pattern, int step)
{
    // Unsigned: the words are read as the bytes they are.
    const auto msb = static_cast<std::uint16_t>(word(pattern, step, kToneMsbColumn));
    const auto lsb = static_cast<std::uint16_t>(word(pattern, step, kToneLsbColumn));
    return static_cast<std::uint16_t>(msb * 256 + lsb);
}

void arpSetStepMask(ParamValues& pattern, int step, int mask)
{
    word(pattern, step, kToneMsbColumn) = static_cast<std::int16_t>((mask & kToneMsbBits) / 256);
    word(pattern, step, kToneLsbColumn) = static_cast<std::int16_t>(mask & kToneLsbBits);
}

int patternLength(const ParamValues& pattern) { return pattern[kPatternLengthParam]; }

}  // namespace quillon
