#include "banks/BankFind.h"

#include "banks/BankView.h"
#include "banks/PatternSlots.h"
#include "files/SystemSettings.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/NumberFormat.h"
#include "model/ValueDecoder.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace quillon {

namespace {

// A type search: the attribute it compares (0: the place itself), how far
// its list starts into the stored values, and the decode table and values
// its list shows.
struct TypeSearch {
    const char* caption;
    int key;
    int offset;
    int table;
    int first;
    int last;
};

constexpr std::array<TypeSearch, kFindTypeSearches> kTypeSearches{{
    {"Bank Num", 0, 0, 0, 0, 127},
    {"Patch Cat", 2, 0, 1, 0, 17},
    {"User Group", 3, 0, 35, 0, 15},
    {"OSC1", 4, 0, 4, 0, 12},
    {"OSC2", 5, 0, 4, 0, 12},
    {"FX1", 6, 0, 5, 0, 14},
    {"FX2", 7, 0, 5, 0, 14},
    {"MFX", 1, 0, 6, 0, 2},
    // The filter lists start at the first filter type, one past the lowest
    // stored value.
    {"Filt1", 8, 1, 40, 1, 5},
    {"Filt2", 9, 1, 40, 1, 5},
    {"Link Arp", 10, 0, 49, 0, 19},
}};

const TypeSearch* typeSearch(int code)
{
    const int index = code - kFindTypeCodeBase;
    if (index < 0 || index >= kFindTypeSearches)
        return nullptr;
    return &kTypeSearches[static_cast<std::size_t>(index)];
}

std::string lowered(std::string_view text)
{
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

bool startsAt(std::string_view name, std::size_t at, std::string_view text)
{
    return name.substr(at, text.size()) == text;
}

}  // namespace

const std::vector<std::string>& findTextOptionCaptions()
{
    static const std::vector<std::string> captions{"Name contains", "Name starts with", "Any part starts with",
                                                   "Last part starts with", "Name does not contain"};
    return captions;
}

const std::vector<std::string>& findTypeOptionCaptions()
{
    static const std::vector<std::string> captions = [] {
        std::vector<std::string> all;
        for (const TypeSearch& search : kTypeSearches)
            all.emplace_back(search.caption);
        return all;
    }();
    return captions;
}

std::string findTextOf(std::string_view typed) { return lowered(typed); }

bool findTextHit(int code, std::string_view rawName, std::string_view text)
{
    const std::string name = lowered(trimmedRight(rawName));
    const std::string_view n(name);
    switch (code) {
    case 0: return n.find(text) != std::string_view::npos;
    case 1: return startsAt(n, 0, text);
    case 2: {
        if (startsAt(n, 0, text))
            return true;
        for (std::size_t blank = n.find(' '); blank != std::string_view::npos; blank = n.find(' ', blank + 1))
            if (startsAt(n, blank + 1, text))
                return true;
        return false;
    }
    case 3: {
        const std::size_t blank = n.rfind(' ');
        return blank != std::string_view::npos && startsAt(n, blank + 1, text);
    }
    case 4: return n.find(text) == std::string_view::npos;
    default: return false;
    }
}

bool findTypeHit(int code, const ByteImage& bank, int position, int value)
{
    const TypeSearch* search = typeSearch(code);
    if (search == nullptr)
        return false;
    if (search->key == 0)
        return position == value;
    return bankPatchAttribute(bank, position, search->key) - search->offset == value;
}

bool findPatchHit(const FindCriterion& criterion, std::string_view name, const ByteImage& image, int position)
{
    return criterion.code < kFindTypeCodeBase ? findTextHit(criterion.code, name, criterion.text)
                                              : findTypeHit(criterion.code, image, position, criterion.value);
}

std::vector<std::string> findTypeNames(const AppModel& model, int code)
{
    const TypeSearch* search = typeSearch(code);
    std::vector<std::string> rows;
    if (search == nullptr)
        return rows;
    if (search->key == 0) {
        for (int place = search->first; place <= search->last; ++place)
            rows.push_back(formatNumber(place, "000"));
        return rows;
    }
    if (search->key == 10) {
        // The five presets, then the user patterns of the arpeggiator bank.
        rows = {"UP", "DOWN", "ALTERNATE1", "ALTERNATE2", "RANDOM"};
        const bool arpBank = model.flags.loaded[kArpBank];
        for (int position = kPresetPatterns; position < kPatternsPerBank; ++position)
            rows.push_back(arpBank ? patternSlotName(position) + " " + model.banks.bankPatternName(position)
                                   : std::string("User pattern"));
        return rows;
    }
    for (int value = search->first; value <= search->last; ++value)
        rows.push_back(decodeValue(search->table, value));
    return rows;
}

void runFind(AppModel& model, int code, FindScope scope)
{
    const FindSettings& settings = model.settings.find;
    if (settings.text.empty() && code < kFindTypeCodeBase)
        return;
    const int bank = model.bankTarget;
    BankSelection& selection = model.banks.selection(bank);
    const ByteImage& image = model.banks.image(bank);
    std::array<bool, kBankPatches> hits{};
    for (int patch = 0; patch < kBankPatches; ++patch) {
        if (scope.withinSelection && !selection.selected(patch))
            continue;
        hits[static_cast<std::size_t>(patch)] =
            findPatchHit({code, settings.text, settings.typeValue}, model.banks.bankPatchName(bank, patch), image, patch);
    }
    AppModel::Batch batch(model);
    if (!scope.keepSelection)
        selection.selectionFlags.fill(0);
    for (int patch = 0; patch < kBankPatches; ++patch)
        if (hits[static_cast<std::size_t>(patch)])
            selection.selectionFlags[static_cast<std::size_t>(patch)] = -1;
    bankSelectSequence(model);
    fraBankLabelsSetUp(model, bank, 2);
}

void rememberFindText(FindSettings& settings, const std::string& text)
{
    auto& list = settings.recentTexts;
    const auto firstTen = list.begin() + std::min<std::ptrdiff_t>(kFindRecentTexts, std::ssize(list));
    if (std::find(list.begin(), firstTen, text) != firstTen)
        return;
    list.insert(list.begin(), text);
    if (std::ssize(list) > kFindRecentTexts)
        list.resize(kFindRecentTexts);
}

void cmdSwitch(AppModel& model)
{
    const int bank = model.bankTarget;
    BankSelection& selection = model.banks.selection(bank);
    AppModel::Batch batch(model);
    for (auto& flag : selection.selectionFlags)
        flag = flag != 0 ? 0 : -1;
    bankSelectSequence(model);
    fraBankLabelsSetUp(model, bank, 2);
}

bool mnuFind(AppModel& model)
{
    const std::string title = "Find patch in bank";
    if (!model.flags.loaded[kPatchBankA] && !model.flags.loaded[kPatchBankB]) {
        showInformation(model.host(), title, "No bank loaded", kFindHelpContext);
        return false;
    }
    if (model.mode != kPatchBankA && model.mode != kPatchBankB) {
        showInformation(model.host(), title, "Please select bank", kFindHelpContext);
        return false;
    }
    return true;
}

}  // namespace quillon
