#pragma once

#include <cstdint>
#include <string>

namespace quillon {

// One row of a parameter table: where a parameter's bits lie in the item's
// data, its range, how its value is shown and where it stands on the screen.
// The row's number in its table is the parameter number and equals its ID.
struct ParamDef {
    std::int16_t id = 0;
    std::string name;          // may end in a blank, which belongs to it
    std::int16_t sect = 0;     // section ID, 0 for rows that belong nowhere
    std::int16_t subSect = 0;  // subsection ID; 0 and 1 mean none
    std::int16_t table = 0;    // decode table of decodeValue
    std::int16_t min = 0;
    std::int16_t max = 0;
    std::int16_t startB = 0;   // lowest bit: byte StartB div 8, bit StartB mod 8
    std::int16_t endB = 0;     // highest bit
};

// A section of the screen's tree (OSC1, Filter 1, an effect type...). Its
// index in the section table is ID div 10.
struct SectionDef {
    std::int16_t id = 0;
    std::string name;
    std::int16_t firstParam = 0;
    std::int16_t lastParam = 0;
};

// A subsection within a section; sect is the index of the parent section.
struct SubSectionDef {
    std::int16_t id = 0;
    std::string name;
    std::int16_t sect = 0;
    std::int16_t firstParam = 0;
    std::int16_t lastParam = 0;
};

}  // namespace quillon
