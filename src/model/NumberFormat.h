#pragma once

#include <string>
#include <string_view>

namespace quillon {

// Writes a number the way the program shows computed parameter values, after
// the BASIC Format function it was written with. The pattern is made of digit
// places and at most one decimal point:
//   "0"  a digit that is always shown (leading zeros fill it),
//   "#"  a digit that is shown only when it counts,
//   "."  the decimal point.
// So "#0.0" writes 5 as "5.0", "00.0" writes it as "05.0" and "000" as "005".
// The integer part grows beyond the pattern when it must; there is no
// thousands mark. The value is rounded to the decimals of the pattern, half
// away from zero, and it is the exact binary value that is rounded: a float
// passed in shows the digits of that float. A minus sign leads a negative
// number unless every digit shown is zero.
// A NaN or an infinity gives the empty text. A pattern with any other
// character, more than one point, or none at all throws
// std::invalid_argument.
std::string formatNumber(double value, std::string_view pattern);

}  // namespace quillon
