#pragma once

#include <string>
#include <string_view>

namespace quillon {

class AppModel;

// The recent files of the File menu. Action 0 clears the list, 1 puts path
// first, 2 removes path, 3 shows as many entries as the setting allows.
void recentFilesUpdate(AppModel& model, int action, std::string& path);

// Captions the menu from the list, as at start-up.
void recentFilesSetup(AppModel& model);

// A long path shortened for the menu: "C:\..\folder\file.syx".
std::string shortenPath(std::string_view path);

}  // namespace quillon
