#pragma once

#include <span>

namespace quillon {

// The compiled-in row data of the parameter tables, as the program reads it at
// start-up: row strings of nine comma-separated fields, section strings of ID
// and name, and default values as row/value pairs.

struct DefaultPair {
    int row;
    int value;
};

std::span<const char* const> patchRowStrings();      // rows 1-754, then 800-1039
std::span<const char* const> multiRowStrings();      // rows 1-223
std::span<const char* const> arpRowStrings();        // rows 1-256
std::span<const char* const> patchSectionStrings();  // rows 1-63
std::span<const char* const> patchSubsectionStrings();  // rows 1-103
std::span<const char* const> multiSectionStrings();  // rows 1-29
std::span<const char* const> multiSubsectionStrings();  // rows 1-40
std::span<const DefaultPair> patchDefaultPairs();
std::span<const DefaultPair> multiDefaultPairs();    // rows 1-223
std::span<const DefaultPair> arpDefaultPairs();

}  // namespace quillon
