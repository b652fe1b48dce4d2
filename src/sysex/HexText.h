#pragma once

#include <string>
#include <string_view>

namespace quillon {

// A byte as two upper-case hexadecimal digits, as the wrapped .syx files use
// them for their counts and lengths. error is empty, or the text of the
// message box the caller shows when the value was no byte (text then "00").
struct HexByteText {
    std::string text;
    std::string_view error;
};

HexByteText hexByte(int value);

// The number written as four hexadecimal digits, low byte first, then high
// byte. A text of another length is read all the same, pair by pair, and
// error holds the text of the message box the caller shows.
struct LsbMsbValue {
    int value = 0;
    std::string_view error;
};

LsbMsbValue lsbMsbToInteger(std::string_view text);

}  // namespace quillon
