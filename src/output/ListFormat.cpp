#include "output/ListFormat.h"

#include <cstdio>

namespace quillon {

namespace {

constexpr int kNameLength = 16;

}  // namespace

std::string rightAligned(std::string_view text, int width)
{
    const int pad = width - static_cast<int>(text.size());
    return std::string(pad > 0 ? pad : 0, ' ') + std::string(text);
}

std::string rightAligned(int value, int width)
{
    return rightAligned(std::to_string(value), width);
}

std::string zeroPadded(int value, int digits)
{
    char text[16];
    std::snprintf(text, sizeof text, "%0*d", digits, value);
    return text;
}

std::string nameFromParams(const ParamValues& values)
{
    std::string name;
    for (int p = 1; p <= kNameLength && p < static_cast<int>(values.size()); ++p)
        name += static_cast<char>(values[p]);
    return name;
}

}  // namespace quillon
