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

// The largest file the program reads: well above an All Data dump in the
// wrapped form, far below what would hurt.
inline constexpr std::uintmax_t kLargestReadableFile = 1024 * 1024;

// Whether `path` names a regular file (after links) of at most
// kLargestReadableFile bytes. A folder, a pipe, a device such as /dev/zero or
// a larger file is none.
bool isReadableFile(const std::filesystem::path& path);

// The whole of a file, or false when it cannot be read or is not a readable
// file as above. Never throws.
bool readWholeFile(const std::filesystem::path& path, std::vector<std::uint8_t>& bytes);

// The lines of a text file without their line ends (CR LF or LF), on the
// same terms.
bool readLines(const std::filesystem::path& path, std::vector<std::string>& lines);

}  // namespace quillon
