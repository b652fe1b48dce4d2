#include "files/SystemSettingsFile.h"

#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "files/FactoryFiles.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace quillon {

namespace {

constexpr const char* kRecentSection = "Recent files";
constexpr const char* kFoldersSection = "Folders";

// The sound show's four numbers when the file has none.
constexpr std::array<int, 4> kSoundShowDefaults{5, 1, 20, 5};

// Limits of the lists whose places the file keeps: an index beyond them
// cannot be shown and makes the file unreadable.
constexpr int kFileNameFormats = 10;
constexpr int kUserFiles = 6;
constexpr int kChannels = 16;
constexpr int kToneLengths = 51;  // 0.0 to 5.0 seconds
constexpr int kToneValues = 128;  // velocities and key numbers

// Find's settings came later than the rest and live in lines the other
// settings leave empty: the two options, the row of the type list, the text
// and the last ten texts searched. A file without them gives Find's
// defaults quietly.
constexpr std::size_t kFindOptionsLine = 10;
constexpr std::size_t kFindValueLine = 11;
constexpr std::size_t kFindTextLine = 12;
constexpr std::size_t kFindRecentLine = 40;
constexpr std::size_t kFindTextsKept = 10;
constexpr int kFindTextOptions = 5;
constexpr int kFindTypeOptions = 11;
constexpr int kFindTypeValues = 128;

char smallNumber(int value) { return static_cast<char>(std::clamp(value + 32, 0, 255)); }
char flag(bool on) { return on ? '!' : ' '; }

// Character positions count from 1.
int numberAt(const std::string& line, int position)
{
    return static_cast<unsigned char>(line[static_cast<std::size_t>(position - 1)]) - 32;
}
bool flagAt(const std::string& line, int position) { return line[static_cast<std::size_t>(position - 1)] == '!'; }

bool within(int value, int count) { return value >= 0 && value < count; }

std::string generationLine(const GenerationSettings& g)
{
    std::string line;
    for (bool on : g.eg) line += flag(on);
    for (bool on : g.lfo) line += flag(on);
    for (bool on : g.osc) line += flag(on);
    for (bool on : g.fx) line += flag(on);
    for (bool on : g.filter) line += flag(on);
    for (int value : {g.varEG, g.varLFO, g.varOSC, g.varSONO, g.varFX, g.varFilter, g.resetAll})
        line += smallNumber(value);
    return line;
}

std::string generationExtrasLine(const GenerationSettings& g)
{
    return {flag(g.modInt), flag(g.ampEG), flag(g.css), smallNumber(g.varModInt), smallNumber(g.varAmpEG),
            smallNumber(g.varCSS), smallNumber(g.modIntChoice)};
}

void takeGenerationLine(const std::string& line, GenerationSettings& g)
{
    int position = 1;
    for (auto* flags : {g.eg.data(), g.lfo.data(), g.osc.data()})
        for (int k = 0; k < 4; ++k)
            flags[k] = flagAt(line, position++);
    for (auto* flags : {g.fx.data(), g.filter.data()})
        for (int k = 0; k < 2; ++k)
            flags[k] = flagAt(line, position++);
    for (int* value : {&g.varEG, &g.varLFO, &g.varOSC, &g.varSONO, &g.varFX, &g.varFilter, &g.resetAll})
        *value = numberAt(line, position++);
}

void takeGenerationExtrasLine(const std::string& line, GenerationSettings& g)
{
    g.modInt = flagAt(line, 1);
    g.ampEG = flagAt(line, 2);
    g.css = flagAt(line, 3);
    g.varModInt = numberAt(line, 4);
    g.varAmpEG = numberAt(line, 5);
    g.varCSS = numberAt(line, 6);
    g.modIntChoice = numberAt(line, 7);
}

// One line of the file as it is decoded: its number, the length it must
// have, and what it sets. A false answer means a value that the settings
// cannot hold.
struct LineRule {
    int line;
    int length;
    bool (*take)(const std::string& text, SystemSettings& s);
};

const LineRule kRules[] = {
    {1, 13,
     [](const std::string& t, SystemSettings& s) {
         s.takeStoredView = flagAt(t, 1);
         s.storedFrameMode = numberAt(t, 2);
         s.frameMode = numberAt(t, 3);
         for (int k = 1; k <= 5; ++k) {
             s.storedShowMode[static_cast<std::size_t>(k)] = numberAt(t, 2 * k + 2);
             s.showMode[static_cast<std::size_t>(k)] = numberAt(t, 2 * k + 3);
         }
         return true;
     }},
    {2, 8,
     [](const std::string& t, SystemSettings& s) {
         const int subsections = static_cast<int>(paramTables().patchSubsections.size());
         for (int i = 1; i <= 8; ++i)
             if (!within(numberAt(t, i), subsections))
                 return false;
         for (int i = 1; i <= 8; ++i)
             s.favourites[static_cast<std::size_t>(i - 1)] = numberAt(t, i);
         return true;
     }},
    {3, 1,
     [](const std::string& t, SystemSettings& s) {
         s.suggestNames = flagAt(t, 1);
         return true;
     }},
    {4, 1,
     [](const std::string& t, SystemSettings& s) {
         if (!within(numberAt(t, 1), kFileNameFormats))
             return false;
         s.fileNameFormat = numberAt(t, 1);
         return true;
     }},
    {13, 1,
     [](const std::string& t, SystemSettings& s) {
         if (!within(numberAt(t, 1), kUserFiles))
             return false;
         s.userFileNumber = numberAt(t, 1);
         return true;
     }},
    {15, 23,
     [](const std::string& t, SystemSettings& s) {
         takeGenerationLine(t, s.random);
         return true;
     }},
    {16, 23,
     [](const std::string& t, SystemSettings& s) {
         takeGenerationLine(t, s.spread);
         return true;
     }},
    {17, 7,
     [](const std::string& t, SystemSettings& s) {
         takeGenerationExtrasLine(t, s.random);
         return true;
     }},
    {18, 7,
     [](const std::string& t, SystemSettings& s) {
         takeGenerationExtrasLine(t, s.spread);
         return true;
     }},
    {20, 4,
     [](const std::string& t, SystemSettings& s) {
         if (!within(numberAt(t, 3), kChannels) || !within(numberAt(t, 4), kChannels))
             return false;
         s.inputDevice = numberAt(t, 1);
         s.outputDevice = numberAt(t, 2);
         s.inputChannel = numberAt(t, 3) + 1;
         s.outputChannel = numberAt(t, 4) + 1;
         return true;
     }},
    {21, 3,
     [](const std::string& t, SystemSettings& s) {
         if (!within(numberAt(t, 1), kToneLengths) || !within(numberAt(t, 2), kToneValues) ||
             !within(numberAt(t, 3), kToneValues))
             return false;
         s.toneLength = numberAt(t, 1);
         s.toneVelocity = numberAt(t, 2);
         s.tonePitch = numberAt(t, 3);
         return true;
     }},
    {25, 2,
     [](const std::string& t, SystemSettings& s) {
         s.graphicEnvelope = flagAt(t, 1);
         s.modulationShow = flagAt(t, 2);
         return true;
     }},
    {30, 2,
     [](const std::string& t, SystemSettings& s) {
         if (!within(numberAt(t, 1), kRecentMenuSlots + 1) || !within(numberAt(t, 2), kRecentMenuSlots + 1))
             return false;
         s.recentFilesShown = numberAt(t, 1);
         s.recentFilesMax = numberAt(t, 2);
         return true;
     }},
};

const LineRule& ruleFor(int line)
{
    return *std::find_if(std::begin(kRules), std::end(kRules), [line](const LineRule& r) { return r.line == line; });
}

void showReadingProblem(Host& host)
{
    host.showMessage({"Problem reading system settings", "Please check that file Quillonset.dat is in Quillon directory",
                      MessageIcon::Exclamation});
}

std::string key(int number)
{
    char text[3];
    std::snprintf(text, sizeof text, "%02d", number);
    return text;
}

}  // namespace

std::vector<std::string> systemSettingsLines(const SystemSettings& s)
{
    std::vector<std::string> lines(kSystemSettingsLines + 1);  // from 1
    std::string& view = lines[1];
    view = {flag(s.takeStoredView), smallNumber(s.storedFrameMode), smallNumber(s.frameMode)};
    for (std::size_t k = 1; k <= 5; ++k) {
        view += smallNumber(s.storedShowMode[k]);
        view += smallNumber(s.showMode[k]);
    }
    for (int favourite : s.favourites)
        lines[2] += smallNumber(favourite);
    lines[3] = std::string(1, flag(s.suggestNames));
    lines[4] = std::string(1, smallNumber(s.fileNameFormat));
    for (std::size_t k = 1; k <= 5; ++k)
        lines[4 + k] = s.prefixes[k];
    lines[13] = std::string(1, smallNumber(s.userFileNumber));
    lines[15] = generationLine(s.random);
    lines[16] = generationLine(s.spread);
    lines[17] = generationExtrasLine(s.random);
    lines[18] = generationExtrasLine(s.spread);
    lines[20] = {smallNumber(s.inputDevice), smallNumber(s.outputDevice), smallNumber(s.inputChannel - 1),
                 smallNumber(s.outputChannel - 1)};
    lines[21] = {smallNumber(s.toneLength), smallNumber(s.toneVelocity), smallNumber(s.tonePitch)};
    for (int value : s.soundShow)
        lines[22] += smallNumber(value);
    lines[25] = {flag(s.graphicEnvelope), flag(s.modulationShow)};
    lines[30] = {smallNumber(s.recentFilesShown), smallNumber(s.recentFilesMax)};
    lines[kFindOptionsLine] = {smallNumber(s.find.textOption), smallNumber(s.find.typeOption)};
    lines[kFindValueLine] = std::to_string(s.find.typeValue);
    lines[kFindTextLine] = s.find.text;
    for (std::size_t k = 0; k < s.find.recentTexts.size() && k < kFindTextsKept; ++k)
        lines[kFindRecentLine + k] = s.find.recentTexts[k];
    lines.erase(lines.begin());
    return lines;
}

namespace {

void takeFindLines(const std::vector<std::string>& lines, FindSettings& find)
{
    const auto text = [&lines](std::size_t line) -> const std::string& { return lines[line - 1]; };
    const std::string& options = text(kFindOptionsLine);
    if (options.size() == 2 && within(numberAt(options, 1), kFindTextOptions) &&
        within(numberAt(options, 2), kFindTypeOptions)) {
        find.textOption = numberAt(options, 1);
        find.typeOption = numberAt(options, 2);
    }
    const std::string& value = text(kFindValueLine);
    if (!value.empty() && value.size() <= 3 && std::all_of(value.begin(), value.end(), ::isdigit) &&
        within(std::stoi(value), kFindTypeValues))
        find.typeValue = std::stoi(value);
    find.text = text(kFindTextLine);
    find.recentTexts.clear();
    for (std::size_t k = 0; k < kFindTextsKept && !text(kFindRecentLine + k).empty(); ++k)
        find.recentTexts.push_back(text(kFindRecentLine + k));
}

// Decodes the 50 lines in their fixed order; a line of the wrong length or
// with a value the settings cannot hold ends it, and what came before stands.
bool decodeSystemSettings(Host* host, const std::vector<std::string>& lines, SystemSettings& s)
{
    const auto text = [&lines](int line) -> const std::string& { return lines[static_cast<std::size_t>(line - 1)]; };
    const auto takeLine = [&](int line) {
        const LineRule& rule = ruleFor(line);
        const int found = static_cast<int>(text(line).size());
        if (found != rule.length) {
            if (host != nullptr)
                host->showMessage({"Quillon",
                              "Error reading user settings. Line " + std::to_string(line) + " " +
                                  std::to_string(found) + " [" + std::to_string(rule.length) + "]",
                              MessageIcon::Exclamation});
            return false;
        }
        if (!rule.take(text(line), s)) {
            if (host != nullptr)
                showReadingProblem(*host);
            return false;
        }
        return true;
    };

    for (int line : {1, 2, 3, 4})
        if (!takeLine(line))
            return false;
    for (std::size_t k = 1; k <= 5; ++k)
        s.prefixes[k] = text(4 + static_cast<int>(k));
    for (int line : {13, 15, 16, 17, 18, 20, 21})
        if (!takeLine(line))
            return false;
    // The sound show came later than the rest: a file without it takes the
    // defaults quietly.
    if (text(22).size() == 4) {
        for (int k = 1; k <= 4; ++k)
            s.soundShow[static_cast<std::size_t>(k - 1)] = numberAt(text(22), k);
    } else {
        s.soundShow = kSoundShowDefaults;
    }
    for (int line : {25, 30})
        if (!takeLine(line))
            return false;
    takeFindLines(lines, s.find);
    return true;
}

}  // namespace

bool readSystemSettings(AppModel& model)
{
    const std::filesystem::path folder = model.dataFolder();
    std::vector<std::string> lines;
    if (!restoreFromBackup(folder, kSystemSettingsFile, kSystemSettingsBackup) ||
        !readLines(folder / kSystemSettingsFile, lines) || lines.size() < kSystemSettingsLines) {
        showReadingProblem(model.host());
        return false;
    }
    lines.resize(kSystemSettingsLines);
    // What a bad line stops short of comes from the factory file, so that
    // the next exit does not write devices 0, velocity 0 and every box off.
    SystemSettings settings = model.settings;
    decodeSystemSettings(nullptr, systemSettingsLines(factorySystemSettings()), settings);
    std::vector<std::string> factory;
    if (readLines(folder / kSystemSettingsBackup, factory)) {
        factory.resize(kSystemSettingsLines);
        decodeSystemSettings(nullptr, factory, settings);
    }
    const bool whole = decodeSystemSettings(&model.host(), lines, settings);
    model.settings = settings;
    return whole;
}

bool saveSystemSettings(AppModel& model)
{
    // The file is replaced whole, so a write-protected one is written too.
    const bool written = writeLinesAtomically(model.dataFolder() / kSystemSettingsFile,
                                              systemSettingsLines(model.settings));
    if (!written)
        model.host().showMessage({"Problem saving system settings",
                                  "Please check that file Quillonset.dat is write enabled", MessageIcon::Exclamation});
    // The lists are the user's own and are kept even when the file fails.
    savePersistentLists(model);
    return written;
}

void readPersistentLists(AppModel& model)
{
    const SettingsStore& store = model.store();
    for (int i = 1; i <= kRecentFiles; ++i)
        model.recentFiles[static_cast<std::size_t>(i)] = store.read(kRecentSection, key(i));
    model.workFolder = store.read(kFoldersSection, key(1));
    model.settings.extractFolder = store.read(kFoldersSection, key(2));
    model.settings.listFolder = store.read(kFoldersSection, key(3));
    model.settings.helpFolder = store.read(kFoldersSection, key(4));
    if (model.settings.helpFolder.empty())
        model.settings.helpFolder = folderWithSeparator(model.dataFolder());
}

void savePersistentLists(AppModel& model)
{
    SettingsStore& store = model.store();
    for (int i = 1; i <= kRecentFiles; ++i)
        store.write(kRecentSection, key(i), model.recentFiles[static_cast<std::size_t>(i)]);
    store.write(kFoldersSection, key(1), model.workFolder);
    store.write(kFoldersSection, key(2), model.settings.extractFolder);
    store.write(kFoldersSection, key(3), model.settings.listFolder);
    store.write(kFoldersSection, key(4), model.settings.helpFolder);
}

std::string favouriteCaption(int subsectionIndex)
{
    switch (subsectionIndex) {
    case 13: return "OSC1 Setting";
    case 16: return "OSC2 Setting";
    case 38: return "FX1 Setting";
    case 40: return "FX2 Setting";
    case 42: return "Master FX Setting";
    default: break;
    }
    const auto& subsections = paramTables().patchSubsections;
    if (subsectionIndex < 1 || subsectionIndex >= static_cast<int>(subsections.size()))
        return {};
    return subsections[static_cast<std::size_t>(subsectionIndex)].name;
}

}  // namespace quillon
