#include "files/UserFolders.h"

#include <cstdlib>

namespace quillon {

std::filesystem::path userHomeFolder()
{
#ifdef _WIN32
    const char* home = std::getenv("USERPROFILE");
#else
    const char* home = std::getenv("HOME");
#endif
    if (home == nullptr || *home == '\0')
        return {};
    return home;
}

std::filesystem::path userMusicFolder()
{
    const auto home = userHomeFolder();
    return home.empty() ? home : home / "Music";
}

std::filesystem::path userDocumentsFolder()
{
    const auto home = userHomeFolder();
    return home.empty() ? home : home / "Documents";
}

}  // namespace quillon
