#include "model/BitFields.h"

namespace quillon {

int getBits(std::uint8_t byte, int start, int end)
{
    if (end < start)
        return 0;
    const int width = end - start + 1;
    return (byte >> start) & ((1 << width) - 1);
}

std::uint8_t setBits(std::uint8_t byte, int start, int end, int value)
{
    if (end < start)
        return byte;
    const int width = end - start + 1;
    const int mask = ((1 << width) - 1) << start;
    return static_cast<std::uint8_t>((byte & ~mask) | ((value << start) & mask));
}

}  // namespace quillon
