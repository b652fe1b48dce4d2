#include "files/SuggestedNames.h"

#include "model/BankImage.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <array>
#include <cstdio>
#include <filesystem>

namespace quillon {

namespace {

constexpr int kNameChars = 16;  // parameters 1 to 16 of every item hold its name

// The patch parameters that name a patch's place in the instrument's
// ordering, for the parts of the file-name formats.
constexpr int kPatchCategoryParam = 17;
constexpr int kUserGroupParam = 18;
constexpr int kOsc1TypeParam = 174;
constexpr int kFx1TypeParam = 359;
constexpr int kLinkArpPatternParam = 374;  // the first row of Link Arpeggio: the pattern

constexpr std::array<const char*, 10> kFormatCaptions{
    "patch name",     "pxx patch name",   "uxx patch name",   "oxx patch name",   "fxx patch name",
    "lxx patch name", "axxx patch name",  "pxxuxx patch name", "pxxoxx patch name", "uxxoxx patch name",
};

// A number with at least `digits` digits, zeros in front, the sign before them.
std::string padded(int value, int digits)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, value < 0 ? "-%0*d" : "%0*d", digits, value < 0 ? -value : value);
    return buffer;
}

std::string joined(const std::string& folder, const std::string& file)
{
    return (std::filesystem::path(folder) / file).string();
}

}  // namespace

std::string nameFromValues(const ParamValues& values)
{
    std::string name;
    for (int p = 1; p <= kNameChars && p < static_cast<int>(values.size()); ++p) {
        const char c = static_cast<char>(values[p]);
        if (c == '\0')
            break;
        name += c;
    }
    return name;
}

std::span<const char* const> patchFileNameFormats()
{
    return kFormatCaptions;
}

void doLabelFileName(AppModel& model, int kind)
{
    if (kind != kPatch && kind != kMultiset && kind != kPattern)
        return;
    auto& label = model.labels.label(kind);
    label.text = nameFromValues(model.buffers.of(kind).current);
    const std::string name = trimmedRight(label.text);
    model.itemName[kind] = name;

    const auto& prefixes = model.settings.prefixes;
    switch (kind) {
    case kPatch:
        // The bank place is that of the patch last taken from or put in a
        // bank.
        model.suggestedPath[kind] = doBuildPatchFileName(model, model.workFolder, name, model.settings.fileNameFormat,
                                                         model.banks.lastPutPatch);
        break;
    case kMultiset:
        model.suggestedPath[kind] = joined(model.workFolder, prefixes[3] + fileNameFromName(name));
        break;
    default:
        model.suggestedPath[kind] = joined(model.workFolder, prefixes[4] + fileNameFromName(name));
        break;
    }
    model.changed(kLabelsChanged);
}

std::string doBuildPatchFileName(const AppModel& model, const std::string& folder, const std::string& name,
                                 int format, int selectedPlace)
{
    return doBuildPatchFileName(model, model.buffers.of(kPatch).current, folder, name, format, selectedPlace);
}

std::string doBuildPatchFileName(const AppModel& model, const ParamValues& patch, const std::string& folder,
                                 const std::string& name, int format, int selectedPlace)
{
    if (format < 0 || format > 9)
        return {};
    const std::string fileName = trimmedRight(fileNameFromName(name));
    const auto part = [&patch](char letter, int param) { return letter + padded(patch[param], 2); };
    const std::string p = part('p', kPatchCategoryParam);
    const std::string u = part('u', kUserGroupParam);
    const std::string o = part('o', kOsc1TypeParam);
    const std::string f = part('f', kFx1TypeParam);
    const std::string l = part('l', kLinkArpPatternParam);
    std::string place = "a000";
    if (model.bankTarget == kPatchBankA)
        place = 'a' + padded(selectedPlace, 3);
    else if (model.bankTarget == kPatchBankB)
        place = 'b' + padded(selectedPlace - kPatchesPerBank, 3);

    std::string parts;
    switch (format) {
    case 0: break;
    case 1: parts = p; break;
    case 2: parts = u; break;
    case 3: parts = o; break;
    case 4: parts = f; break;
    case 5: parts = l; break;
    case 6: parts = place; break;
    case 7: parts = p + u; break;
    case 8: parts = p + o; break;
    default: parts = u + o; break;
    }
    const std::string& prefix = model.settings.prefixes[1];
    const std::string file = parts.empty() ? prefix + fileName + ".syx" : prefix + parts + " " + fileName + ".syx";
    return joined(folder, file);
}

}  // namespace quillon
