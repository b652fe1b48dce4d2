#pragma once

#include <filesystem>
#include <string>

namespace quillon {

// The settings files of the data folder, each beside its factory copy.
inline constexpr const char* kSystemSettingsFile = "Quillonset.dat";
inline constexpr const char* kSystemSettingsBackup = "Quillonset.bkp";
inline constexpr const char* kUserPatchBackup = "Quillonusr0.bkp";  // the source of all six patch files
inline constexpr const char* kUserMultiFile = "QuillonusrM.dat";
inline constexpr const char* kUserMultiBackup = "QuillonusrM.bkp";
inline constexpr const char* kPeFile = "Quillonpe.dat";
inline constexpr const char* kPeBackup = "Quillonpe.bkp";

// The environment variable that names a data folder of the user's choice.
inline constexpr const char* kDataFolderVariable = "QUILLON_HOME";

// "Quillonusr3.dat": the user patch file of a number 0 to 5.
std::string userPatchFileName(int number);

// The folder named by QUILLON_HOME when it is set and not empty, else the
// platform's folder for the program's data, which the caller supplies (the
// core knows no platform).
std::filesystem::path chooseDataFolder(const std::filesystem::path& platformFolder);

// Makes the data folder if need be and writes the factory files that are
// missing there. False when the folder cannot be made or a file not written.
bool prepareDataFolder(const std::filesystem::path& folder);

// A missing settings file is restored from its backup, as on a first start.
// False when the file is still missing afterwards.
bool restoreFromBackup(const std::filesystem::path& folder, const std::string& fileName,
                       const std::string& backupName);

// The folder as text with a separator behind it, as folders are kept in the
// settings ("C:\Quillon\" on Windows, "/home/me/.local/share/Quillon/"
// elsewhere).
std::string folderWithSeparator(const std::filesystem::path& folder);

}  // namespace quillon
