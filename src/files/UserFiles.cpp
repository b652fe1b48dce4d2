#include "files/UserFiles.h"

#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace quillon {

namespace {

// One value a line, as a whole number with blanks allowed around it.
bool parseValue(const std::string& line, std::int16_t& value)
{
    const auto first = line.find_first_not_of(" \t");
    const auto last = line.find_last_not_of(" \t");
    if (first == std::string::npos)
        return false;
    const char* begin = line.data() + first;
    const char* end = line.data() + last + 1;
    if (*begin == '+')
        ++begin;
    int number = 0;
    const auto [rest, error] = std::from_chars(begin, end, number);
    if (error != std::errc() || rest != end || number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max())
        return false;
    value = static_cast<std::int16_t>(number);
    return true;
}

// Reads the user file of a Kind into its User buffer, value by value. A
// line that is no number, or a file that ends early, stops the reading with
// the box; the values read before it are kept and the rest stay as they were.
bool readUserFile(AppModel& model, int kind, const std::string& fileName, const std::string& backupName)
{
    const std::filesystem::path folder = model.dataFolder();
    const int count = paramCount(kind);
    std::vector<std::string> lines;
    ParamValues values = model.buffers.of(kind).user;
    values.resize(static_cast<std::size_t>(count) + 1, 0);
    bool read = restoreFromBackup(folder, fileName, backupName) && readLines(folder / fileName, lines);
    const int available = read ? std::min(count, static_cast<int>(lines.size())) : 0;
    int p = 1;
    for (; read && p <= available; ++p) {
        std::int16_t value = 0;
        read = parseValue(lines[static_cast<std::size_t>(p - 1)], value);
        if (read)
            values[static_cast<std::size_t>(p)] = value;
    }
    read = read && available == count;
    if (p > 1)
        model.buffers.of(kind).user = std::move(values);
    if (!read) {
        model.host().showMessage({"Problem reading user settings",
                                  "Please check that file " + fileName + " is in Quillon directory",
                                  MessageIcon::Exclamation});
        return false;
    }
    return true;
}

bool saveUserFile(AppModel& model, int kind, const std::string& fileName, int source)
{
    ItemBuffers& buffers = model.buffers.of(kind);
    if (source == kUserSourceDefaults)
        buffers.user = buffers.defaults;
    else if (source == kUserSourceCurrent)
        buffers.user = buffers.current;

    std::vector<std::string> lines;
    for (std::size_t p = 1; p < buffers.user.size(); ++p)
        lines.push_back(std::to_string(buffers.user[p]));
    // The file is replaced whole, so a write-protected one is written too.
    if (!writeLinesAtomically(model.dataFolder() / fileName, lines)) {
        model.host().showMessage({"Problem saving user settings",
                                  "Please check that file " + fileName + " is write enabled",
                                  MessageIcon::Exclamation});
        return false;
    }
    return true;
}

bool confirmed(AppModel& model, const std::string& title, const std::string& question, int helpContext)
{
    return askYesNo(model.host(), title, question, helpContext);
}

// The multiset commands need a multiset in the editor.
bool multisetLoaded(AppModel& model, const std::string& title, int helpContext)
{
    if (model.flags.loaded[kMultiset])
        return true;
    model.host().showMessage(
        {title, "No multiset loaded", MessageIcon::Information, MessageButtons::Ok, true, helpContext});
    return false;
}

constexpr int kUserPatchHelp = 345;
constexpr int kCreateUserMultiHelp = 350;
constexpr int kResetUserMultiHelp = 355;

}  // namespace

bool readUserPatchFile(AppModel& model, int number)
{
    return readUserFile(model, kPatch, userPatchFileName(number), kUserPatchBackup);
}

bool readUserMultiFile(AppModel& model) { return readUserFile(model, kMultiset, kUserMultiFile, kUserMultiBackup); }

bool saveUserPatchFile(AppModel& model, int number, int source)
{
    return saveUserFile(model, kPatch, userPatchFileName(number), source);
}

bool saveUserMultiFile(AppModel& model, int source) { return saveUserFile(model, kMultiset, kUserMultiFile, source); }

void mnuCreateUserPatchFile(AppModel& model)
{
    const int number = model.settings.userFileNumber;
    if (confirmed(model, "Create User Patch File",
                  "Generate all settings in User File " + std::to_string(number) +
                      " using current patch. Are you sure?",
                  kUserPatchHelp))
        saveUserPatchFile(model, number, kUserSourceCurrent);
}

void mnuResetUserPatchFile(AppModel& model)
{
    const int number = model.settings.userFileNumber;
    if (confirmed(model, "Reset User Patch File",
                  "Change all settings in User File " + std::to_string(number) + " back to defaults. Are you sure?",
                  kUserPatchHelp))
        saveUserPatchFile(model, number, kUserSourceDefaults);
}

void mnuCreateUserMultiFile(AppModel& model)
{
    const std::string title = "Create User Multi File";
    if (multisetLoaded(model, title, kCreateUserMultiHelp) &&
        confirmed(model, title,
                  std::string("Generate all settings in User Multiset File") + " using current multiset. Are you sure?",
                  kCreateUserMultiHelp))
        saveUserMultiFile(model, kUserSourceCurrent);
}

void mnuResetUserMultiFile(AppModel& model)
{
    const std::string title = "Reset User Multi File";
    if (multisetLoaded(model, title, kResetUserMultiHelp) &&
        confirmed(model, title, std::string("Change all settings in User Multi File") + " back to defaults. Are you sure?",
                  kResetUserMultiHelp))
        saveUserMultiFile(model, kUserSourceDefaults);
}

}  // namespace quillon
