#include "banks/GenerationRule.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace quillon {

namespace {

constexpr int kLastPatch = 127;

}  // namespace

long roundHalfToEven(double value)
{
    const double below = std::floor(value);
    const double rest = value - below;
    long result = static_cast<long>(below);
    if (rest > 0.5 || (rest == 0.5 && result % 2 != 0))
        ++result;
    return result;
}

std::int16_t rangeTimesPercent(int min, int max, int percent)
{
    constexpr int low = std::numeric_limits<std::int16_t>::min();
    constexpr int high = std::numeric_limits<std::int16_t>::max();
    const int range = max - min;
    const long product = static_cast<long>(range) * percent;
    if (range < low || range > high || product < low || product > high)
        throw std::overflow_error("Overflow");
    return static_cast<std::int16_t>(product);
}

float generationSpan(int min, int max, int percent)
{
    return static_cast<float>(rangeTimesPercent(min, max, percent)) / 100.0F;
}

int randomRuleValue(int base, int min, int max, float d, float r)
{
    long lo = roundHalfToEven(static_cast<float>(base) - d / 2.0F);
    if (lo < min)
        lo = min;
    if (static_cast<float>(lo) + d > static_cast<float>(max))
        lo = roundHalfToEven(static_cast<float>(max) - d);
    long value = roundHalfToEven(static_cast<float>(lo) + r * (d + 1.0F));
    if (value > max)
        value = max;
    return static_cast<int>(value);
}

int spreadRuleValue(int base, int min, int max, float d, int p)
{
    const float low = static_cast<float>(base) - d / 2.0F;
    long value = roundHalfToEven(low + static_cast<float>(p) * d / static_cast<float>(kLastPatch));
    if (value < min)
        value = min;
    if (value > max)
        value = max;
    return static_cast<int>(value);
}

}  // namespace quillon
