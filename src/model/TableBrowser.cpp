#include "model/TableBrowser.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <optional>

namespace quillon {

namespace {

constexpr int kMultiMode = 10;

struct ParamModeRange {
    int mode;
    const char* title;
    int barMin;
    int barMax;
};

constexpr ParamModeRange kParamModes[] = {
    {0, "Patch-OSC-FX parameters", 1, 1334},  {1, "Patch parameters", 1, 454},
    {2, "OSC1 parameters", 464, 745},         {3, "OSC2 parameters", 1040, 1182},
    {4, "FX1 parameters", 800, 994},          {5, "FX2 parameters", 1192, 1334},
    {6, "Master FX parameters", 1004, 1030},  {10, "Multi parameters", 1, 606},
};

constexpr SearchRule kParamRules[kParamColumnCount] = {
    SearchRule::From,  SearchRule::Text,  SearchRule::Equal, SearchRule::Equal,
    SearchRule::Equal, SearchRule::Equal, SearchRule::Equal, SearchRule::Equal,
    SearchRule::Equal, SearchRule::Flag,  SearchRule::Flag,
};
constexpr SearchRule kSectionRules[kSectionColumnCount] = {
    SearchRule::From, SearchRule::From, SearchRule::Text, SearchRule::Equal, SearchRule::Equal,
};
constexpr SearchRule kSubSectionRules[kSubSectionColumnCount] = {
    SearchRule::From, SearchRule::From, SearchRule::Text, SearchRule::Equal, SearchRule::Equal, SearchRule::Equal,
};

BrowserMode listMode(BrowserTable table, int which, const char* patchTitle, const char* multiTitle,
                     int patchRows, int multiRows)
{
    BrowserMode mode;
    mode.table = table;
    mode.mode = which == 2 ? 2 : 1;
    mode.title = which == 2 ? multiTitle : patchTitle;
    mode.barMin = 1;
    mode.barMax = (which == 2 ? multiRows : patchRows) - (kBrowserLines - 1);
    return mode;
}

const std::vector<ParamDef>& paramRows(const ParamTables& tables, const BrowserMode& mode)
{
    return mode.mode == kMultiMode ? tables.multi : tables.patch;
}

bool flagSet(const std::vector<std::int16_t>& flags, int row)
{
    return row >= 0 && row < static_cast<int>(flags.size()) && flags[row] != 0;
}

// The value of a column as a number, or nothing for the texts and flags.
std::optional<int> numberField(const ParamTables& tables, const BrowserMode& mode, int row, int column)
{
    if (mode.table == BrowserTable::Parameters) {
        const ParamDef& def = paramRows(tables, mode)[row];
        switch (column) {
        case kColID: return def.id;
        case kColSect: return def.sect;
        case kColSubSect: return def.subSect;
        case kColTable: return def.table;
        case kColMin: return def.min;
        case kColMax: return def.max;
        case kColStartB: return def.startB;
        case kColEndB: return def.endB;
        default: return std::nullopt;
        }
    }
    if (mode.table == BrowserTable::Sections) {
        const SectionDef& def = (mode.mode == 2 ? tables.multiSections : tables.patchSections)[row];
        switch (column) {
        case kSectNo: return row;
        case kSectID: return def.id;
        case kSectFirstParam: return def.firstParam;
        case kSectLastParam: return def.lastParam;
        default: return std::nullopt;
        }
    }
    const SubSectionDef& def = (mode.mode == 2 ? tables.multiSubsections : tables.patchSubsections)[row];
    switch (column) {
    case kSubNo: return row;
    case kSubID: return def.id;
    case kSubSect: return def.sect;
    case kSubFirstParam: return def.firstParam;
    case kSubLastParam: return def.lastParam;
    default: return std::nullopt;
    }
}

const std::string& nameField(const ParamTables& tables, const BrowserMode& mode, int row)
{
    switch (mode.table) {
    case BrowserTable::Parameters: return paramRows(tables, mode)[row].name;
    case BrowserTable::Sections: return (mode.mode == 2 ? tables.multiSections : tables.patchSections)[row].name;
    case BrowserTable::SubSections: break;
    }
    return (mode.mode == 2 ? tables.multiSubsections : tables.patchSubsections)[row].name;
}

bool isNameColumn(const BrowserMode& mode, int column)
{
    return mode.table == BrowserTable::Parameters ? column == kColName : column == kSectName;
}

// Firm is a patch flag; the multi rows show none. Hard always comes from the
// patch table by row number, multi rows included.
bool flagField(const ParamTables& tables, const BrowserMode& mode, int row, int column)
{
    if (column == kColFirm)
        return mode.mode != kMultiMode && flagSet(tables.patchFirm, row);
    return flagSet(tables.patchHard, row);
}

int tableRows(const ParamTables& tables, const BrowserMode& mode)
{
    switch (mode.table) {
    case BrowserTable::Parameters: return static_cast<int>(paramRows(tables, mode).size());
    case BrowserTable::Sections:
        return static_cast<int>((mode.mode == 2 ? tables.multiSections : tables.patchSections).size());
    case BrowserTable::SubSections: break;
    }
    return static_cast<int>((mode.mode == 2 ? tables.multiSubsections : tables.patchSubsections).size());
}

bool rowExists(const ParamTables& tables, const BrowserMode& mode, int row)
{
    return row >= 1 && row < tableRows(tables, mode);
}

// The number typed in a box: blanks around it allowed, a sign allowed, and
// nothing else.
std::optional<int> typedNumber(const std::string& box)
{
    std::size_t first = box.find_first_not_of(' ');
    std::size_t last = box.find_last_not_of(' ');
    if (first == std::string::npos)
        return std::nullopt;
    const char* begin = box.data() + first;
    const char* end = box.data() + last + 1;
    if (*begin == '+')
        ++begin;
    int value = 0;
    auto [ptr, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || ptr != end)
        return std::nullopt;
    return value;
}

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

}  // namespace

const std::array<ParamModeItem, 8>& paramModeItems()
{
    static const std::array<ParamModeItem, 8> items = {{
        {"mnuPatchOSCFXParameters", "Patch-OSC-FX parameters", 0},
        {"mnuPatchParam", "Patch parameters", 1},
        {"mnuOSC1Param", "OSC1 parameters", 2},
        {"mnuOSC2Param", "OSC2 parameters", 3},
        {"mnuFX1Param", "FX1 parameters", 4},
        {"mnuFX2Param", "FX2 parameters", 5},
        {"mnuMFXParam", "Master FX parameters", 6},
        {"mnuMultiParam", "Multi parameters", 10},
    }};
    return items;
}

BrowserMode paramBrowserMode(int mode)
{
    const ParamModeRange* range = &kParamModes[0];
    for (const ParamModeRange& candidate : kParamModes)
        if (candidate.mode == mode)
            range = &candidate;
    BrowserMode result;
    result.table = BrowserTable::Parameters;
    result.mode = range->mode;
    result.title = range->title;
    result.barMin = range->barMin;
    result.barMax = range->barMax;
    return result;
}

BrowserMode sectionBrowserMode(int which)
{
    return listMode(BrowserTable::Sections, which, "Patch: Sections", "Multi: Sections", kPatchSectionRows,
                    kMultiSectionRows);
}

BrowserMode subSectionBrowserMode(int which)
{
    return listMode(BrowserTable::SubSections, which, "Patch: SubSections", "Multi: SubSections",
                    kPatchSubsectionRows, kMultiSubsectionRows);
}

int browserColumnCount(BrowserTable table)
{
    switch (table) {
    case BrowserTable::Parameters: return kParamColumnCount;
    case BrowserTable::Sections: return kSectionColumnCount;
    case BrowserTable::SubSections: break;
    }
    return kSubSectionColumnCount;
}

SearchRule browserSearchRule(BrowserTable table, int column)
{
    if (column < 0 || column >= browserColumnCount(table))
        return SearchRule::Equal;
    switch (table) {
    case BrowserTable::Parameters: return kParamRules[column];
    case BrowserTable::Sections: return kSectionRules[column];
    case BrowserTable::SubSections: break;
    }
    return kSubSectionRules[column];
}

std::string browserCell(const ParamTables& tables, const BrowserMode& mode, int row, int column)
{
    if (!rowExists(tables, mode, row) || column < 0 || column >= browserColumnCount(mode.table))
        return {};
    if (isNameColumn(mode, column))
        return nameField(tables, mode, row);
    if (browserSearchRule(mode.table, column) == SearchRule::Flag)
        return flagField(tables, mode, row, column) ? "Y" : "";
    return std::to_string(numberField(tables, mode, row, column).value_or(0));
}

bool anySearchBoxFilled(const std::vector<std::string>& boxes)
{
    return std::any_of(boxes.begin(), boxes.end(), [](const std::string& box) { return !box.empty(); });
}

bool boxMatches(const ParamTables& tables, const BrowserMode& mode, int row, int column, const std::string& box)
{
    if (box.empty() || !rowExists(tables, mode, row) || column < 0 || column >= browserColumnCount(mode.table))
        return false;
    switch (browserSearchRule(mode.table, column)) {
    case SearchRule::Text: {
        std::string wanted = box;
        wanted.erase(wanted.find_last_not_of(' ') + 1);
        return lowerCase(nameField(tables, mode, row)).find(lowerCase(wanted)) != std::string::npos;
    }
    case SearchRule::Flag: return (box == "Y" || box == "y") && flagField(tables, mode, row, column);
    case SearchRule::From: {
        std::optional<int> typed = typedNumber(box);
        return typed && *typed <= *numberField(tables, mode, row, column);
    }
    case SearchRule::Equal: break;
    }
    std::optional<int> typed = typedNumber(box);
    return typed && *typed == *numberField(tables, mode, row, column);
}

std::vector<int> searchBrowser(const ParamTables& tables, const BrowserMode& mode,
                               const std::vector<std::string>& boxes)
{
    std::vector<int> hits;
    const int columns = std::min(browserColumnCount(mode.table), static_cast<int>(boxes.size()));
    for (int row = mode.firstRow(); row <= mode.lastRow(); ++row) {
        for (int column = 0; column < columns; ++column) {
            if (boxMatches(tables, mode, row, column, boxes[column])) {
                hits.push_back(row);
                break;
            }
        }
    }
    return hits;
}

ScrollRange hitListRange(int hits)
{
    if (hits < kBrowserLines)
        return {1, 1, 1};
    return {1, hits - (kBrowserLines - 1), kBrowserLines};
}

ScrollRange modeRange(const BrowserMode& mode) { return {mode.barMin, mode.barMax, kBrowserLines}; }

std::array<int, kBrowserLines> shownRows(const BrowserMode& mode, bool searched, const std::vector<int>& hits,
                                         int position)
{
    std::array<int, kBrowserLines> rows{};
    for (int line = 0; line < kBrowserLines; ++line) {
        if (searched) {
            const int index = position - 1 + line;
            rows[line] = index >= 0 && index < static_cast<int>(hits.size()) ? hits[index] : 0;
        } else {
            const int row = position + line;
            rows[line] = row >= mode.firstRow() && row <= mode.lastRow() ? row : 0;
        }
    }
    return rows;
}

}  // namespace quillon
