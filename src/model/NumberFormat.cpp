#include "model/NumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <system_error>

namespace quillon {

namespace {

// What a pattern asks for: how many integer digits are always shown, and how
// many decimals at most and at least.
struct Layout {
    int requiredIntegerDigits = 0;
    bool hasPoint = false;
    int maxDecimals = 0;
    int requiredDecimals = 0;
};

Layout readPattern(std::string_view pattern)
{
    if (pattern.empty())
        throw std::invalid_argument("empty number pattern");
    Layout layout;
    int integerPlaces = 0;
    int firstZero = -1;  // among the integer places
    for (char c : pattern) {
        if (c == '.') {
            if (layout.hasPoint)
                throw std::invalid_argument("number pattern with two points");
            layout.hasPoint = true;
        } else if (c == '0' || c == '#') {
            if (layout.hasPoint) {
                ++layout.maxDecimals;
                if (c == '0')
                    layout.requiredDecimals = layout.maxDecimals;
            } else {
                if (c == '0' && firstZero < 0)
                    firstZero = integerPlaces;
                ++integerPlaces;
            }
        } else {
            throw std::invalid_argument("number pattern with a character other than 0, # or .");
        }
    }
    // Once a "0" stands in the integer part, every place after it is shown too.
    layout.requiredIntegerDigits = firstZero < 0 ? 0 : integerPlaces - firstZero;
    return layout;
}

// Every decimal digit of a finite, non-negative double, with no rounding at
// all: a double is an integer times a power of two, so its expansion ends,
// after at most 53 - exponent decimals.
std::string writeExactly(double magnitude)
{
    int exponent = 0;
    std::frexp(magnitude, &exponent);
    const int decimals = exponent < 53 ? 53 - exponent : 0;
    // Up to 309 integer digits, the point, and at most 1126 decimals.
    std::array<char, 1500> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                      std::chars_format::fixed, decimals);
    if (result.ec != std::errc{})
        throw std::logic_error("number too long to write");
    return std::string(buffer.data(), result.ptr);
}

// Adds one to the last digit of a string of decimal digits, carrying left.
void addOneToLastDigit(std::string& digits)
{
    for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
        if (*it != '9') {
            ++*it;
            return;
        }
        *it = '0';
    }
    digits.insert(digits.begin(), '1');
}

}  // namespace

std::string formatNumber(double value, std::string_view pattern)
{
    const Layout layout = readPattern(pattern);
    if (!std::isfinite(value))
        return {};

    const std::string exact = writeExactly(std::fabs(value));
    const std::size_t point = std::min(exact.find('.'), exact.size());
    std::string integerDigits = exact.substr(0, point);
    std::string fraction = point < exact.size() ? exact.substr(point + 1) : std::string();

    // Keep the decimals the pattern shows; a first dropped digit of 5 or more
    // means the rest is at least half a unit, and a half rounds away from zero.
    fraction.resize(std::max<std::size_t>(fraction.size(), layout.maxDecimals + 1), '0');
    const bool roundUp = fraction[layout.maxDecimals] >= '5';
    std::string digits = integerDigits + fraction.substr(0, layout.maxDecimals);
    if (roundUp)
        addOneToLastDigit(digits);
    integerDigits = digits.substr(0, digits.size() - layout.maxDecimals);
    fraction = digits.substr(digits.size() - layout.maxDecimals);

    const bool showsNonZero = digits.find_first_not_of('0') != std::string::npos;

    integerDigits.erase(0, std::min(integerDigits.find_first_not_of('0'), integerDigits.size()));
    if (static_cast<int>(integerDigits.size()) < layout.requiredIntegerDigits)
        integerDigits.insert(0, layout.requiredIntegerDigits - integerDigits.size(), '0');
    while (static_cast<int>(fraction.size()) > layout.requiredDecimals && fraction.back() == '0')
        fraction.pop_back();

    std::string text;
    if (std::signbit(value) && showsNonZero)
        text += '-';
    text += integerDigits;
    if (layout.hasPoint) {
        text += '.';
        text += fraction;
    }
    return text;
}

}  // namespace quillon
