#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace quillon {

// Writes a whole file so that it is either all there or not changed at all:
// the bytes go to a temporary file beside it, which then takes its place. A
// write-protected old file is replaced too, as the program always did. False
// when anything fails; the old file then stands as it was.
bool writeFileAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

// The same for text lines, each ended by the platform's line end.
bool writeLinesAtomically(const std::filesystem::path& path, const std::vector<std::string>& lines);

// The whole of a file, or false when it cannot be read.
bool readWholeFile(const std::filesystem::path& path, std::vector<std::uint8_t>& bytes);

// The lines of a text file without their line ends (CR LF or LF).
bool readLines(const std::filesystem::path& path, std::vector<std::string>& lines);

}  // namespace quillon
