#include "sysex/HexText.h"

#include <cstddef>

namespace quillon {

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

int hexDigitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

// A pair of hex digits read as far as it goes: reading stops at the first
// character that is no hex digit, and nothing read gives 0.
int readHexPair(std::string_view pair)
{
    int value = 0;
    for (const char c : pair) {
        const int digit = hexDigitValue(c);
        if (digit < 0)
            break;
        value = value * 16 + digit;
    }
    return value;
}

std::string_view pairAt(std::string_view text, std::size_t position)
{
    if (position >= text.size())
        return {};
    return text.substr(position, 2);
}

}  // namespace

HexByteText hexByte(int value)
{
    if (value < 0 || value > 0xFF)
        return {"00", "Error in formatting as hex"};
    const auto byte = static_cast<unsigned>(value);
    return {std::string{kDigits[byte >> 4], kDigits[byte & 0x0F]}, {}};
}

LsbMsbValue lsbMsbToInteger(std::string_view text)
{
    LsbMsbValue result;
    if (text.size() != 4)
        result.error = "Error in converting LSB/MSB to integer";
    result.value = readHexPair(pairAt(text, 0)) + 256 * readHexPair(pairAt(text, 2));
    return result;
}

}  // namespace quillon
