#pragma once

namespace quillon {

// The thirteen colour schemes of the program's labels. Colours are RGB; the
// last two schemes take the system's own colours, which only the screen knows.
enum class SystemColour { None, ButtonFace, ButtonText, Highlight, HighlightText };

struct ColourScheme {
    int background;  // RGB, unless backgroundSystem says otherwise
    int text;
    SystemColour backgroundSystem = SystemColour::None;
    SystemColour textSystem = SystemColour::None;
};

inline constexpr int kColourSchemes = 13;

// Scheme 1 to 13; nullptr for any other number, which leaves a label as it is.
const ColourScheme* colourScheme(int scheme);

}  // namespace quillon
