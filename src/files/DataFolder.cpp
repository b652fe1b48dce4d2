#include "files/DataFolder.h"

#include "files/FactoryFiles.h"

#include <cstdlib>
#include <system_error>

namespace quillon {

std::string userPatchFileName(int number) { return "Quillonusr" + std::to_string(number) + ".dat"; }

std::filesystem::path chooseDataFolder(const std::filesystem::path& platformFolder)
{
    const char* chosen = std::getenv(kDataFolderVariable);
    if (chosen != nullptr && *chosen != '\0')
        return std::filesystem::path(chosen);
    return platformFolder;
}

bool prepareDataFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        return false;
    return installFactoryFiles(folder);
}

bool restoreFromBackup(const std::filesystem::path& folder, const std::string& fileName,
                       const std::string& backupName)
{
    const std::filesystem::path file = folder / fileName;
    std::error_code error;
    if (std::filesystem::exists(file, error))
        return true;
    std::filesystem::copy_file(folder / backupName, file, error);
    return !error;
}

std::string folderWithSeparator(const std::filesystem::path& folder)
{
    std::string text = folder.string();
    if (text.empty() || text.back() != static_cast<char>(std::filesystem::path::preferred_separator))
        text += static_cast<char>(std::filesystem::path::preferred_separator);
    return text;
}

}  // namespace quillon
