#include "editors/ColourSchemes.h"

namespace quillon {

namespace {

// Schemes 6 and 12 are the same pair and stay two entries: screens name them
// by number.
constexpr ColourScheme kSchemes[kColourSchemes] = {
    {0x00C0C0, 0x000000},
    {0x000080, 0xFFC080},
    {0xFFC080, 0x000080},
    {0xFFFFFF, 0x000000},
    {0xFFC080, 0x800000},
    {0xC0C000, 0x000000},
    {0x808080, 0x000000},
    {0x000000, 0xFFFFFF},
    {0x800000, 0xFFFF00},
    {0, 0, SystemColour::ButtonFace, SystemColour::ButtonText},
    {0, 0, SystemColour::Highlight, SystemColour::HighlightText},
    {0xC0C000, 0x000000},
    {0xFFFF00, 0x800000},
};

}  // namespace

const ColourScheme* colourScheme(int scheme)
{
    if (scheme < 1 || scheme > kColourSchemes)
        return nullptr;
    return &kSchemes[scheme - 1];
}

}  // namespace quillon
