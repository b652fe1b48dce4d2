#pragma once

#include <filesystem>

namespace quillon {

// The user's own folders that the program suggests when nothing better is
// known: Music for .syx files, Documents for text lists. Empty when the
// system names no home folder. The window may later ask the platform; the
// core knows only the home folder.
std::filesystem::path userHomeFolder();
std::filesystem::path userMusicFolder();
std::filesystem::path userDocumentsFolder();

}  // namespace quillon
