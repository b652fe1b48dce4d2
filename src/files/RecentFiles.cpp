#include "files/RecentFiles.h"

#include "shell/AppModel.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace quillon {

namespace {

// A text that no file name equals, so that the duplicate search finds nothing.
constexpr const char* kNoFile = "xxyxxz";

bool sameIgnoringCase(std::string_view a, std::string_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
           });
}

// Removes the first entry from `first` on that names path; the entries
// behind it move up one place and the last is emptied.
void removeFirstMatch(AppModel& model, int first, const std::string& path)
{
    for (int i = first; i <= kRecentFiles; ++i) {
        if (!sameIgnoringCase(model.recentFiles[i], path))
            continue;
        for (int j = i; j < kRecentFiles; ++j)
            model.recentFiles[j] = model.recentFiles[j + 1];
        model.recentFiles[kRecentFiles] = "";
        return;
    }
}

int entriesInUse(const AppModel& model)
{
    int count = 0;
    while (count < kRecentFiles && !model.recentFiles[count + 1].empty())
        ++count;
    return count;
}

// Captions the menu items 1 to `shown` (at most the ten slots) and hides the
// rest; the separator stands above the list whenever the menu shows any.
void captionMenu(AppModel& model, int shown)
{
    for (int slot = 1; slot <= kRecentMenuSlots; ++slot) {
        const bool visible = slot <= shown && !model.recentFiles[slot].empty();
        model.recentMenu[slot] = visible ? shortenPath(model.recentFiles[slot]) : std::string();
    }
    model.recentSeparatorVisible = model.settings.recentFilesShown >= 1;
    model.changed(kRecentFilesChanged);
}

}  // namespace

void recentFilesUpdate(AppModel& model, int action, std::string& path)
{
    int searchFrom = 1;
    int& shown = model.settings.recentFilesShown;
    switch (action) {
    case 0:
        for (int i = 1; i <= kRecentFiles; ++i)
            model.recentFiles[i].clear();
        shown = 0;
        path = kNoFile;
        break;
    case 1:
        if (path.empty())
            return;
        for (int i = kRecentFiles; i > 1; --i)
            model.recentFiles[i] = model.recentFiles[i - 1];
        model.recentFiles[1] = path;
        shown = std::min(shown + 1, model.settings.recentFilesMax);
        searchFrom = 2;
        break;
    case 2: break;
    case 3:
        shown = model.settings.recentFilesMax;
        path = kNoFile;
        break;
    default: return;
    }
    removeFirstMatch(model, searchFrom, path);
    shown = std::min(shown, entriesInUse(model));
    captionMenu(model, shown);
}

void recentFilesSetup(AppModel& model)
{
    int& shown = model.settings.recentFilesShown;
    shown = std::min(shown, model.settings.recentFilesMax);
    captionMenu(model, shown);
}

std::string shortenPath(std::string_view path)
{
    constexpr std::size_t kLongest = 40;
    constexpr std::size_t kTail = 35;
    constexpr std::size_t kLastSeparatorPlace = 19;
    if (path.size() <= kLongest)
        return std::string(path);
    const std::string_view tail = path.substr(path.size() - kTail);
    const std::string head = std::string(path.substr(0, 3)) + "..";
    const std::size_t separator = tail.find(static_cast<char>(std::filesystem::path::preferred_separator));
    if (separator != std::string_view::npos && separator < kLastSeparatorPlace)
        return head + std::string(tail.substr(separator));
    return head + std::string(tail);
}

}  // namespace quillon
