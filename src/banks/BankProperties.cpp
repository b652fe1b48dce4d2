#include "banks/BankProperties.h"

#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/ValueDecoder.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

// The type lines: caption, attribute key and decode table.
struct TypeLine {
    const char* caption;
    int key;
    int table;
};

constexpr TypeLine kTypeLines[] = {
    {"OSC1 type: ", 4, 4},  {"OSC2 type: ", 5, 4},  {"FX1 type: ", 6, 5},   {"FX2 type: ", 7, 5},
    {"MFX type: ", 1, 6},   {"Filt1 type: ", 8, 40}, {"Filt2 type: ", 9, 40}, {"Arp pattern: ", 10, 49},
};

constexpr int kUserGroupByte = 18;
constexpr int kUserGroups = 16;

std::string decodedLine(const char* caption, int value, int table)
{
    return caption + std::to_string(value) + " [" + decodeValue(table, value) + "]";
}

}  // namespace

std::string bankPatchProperties(const AppModel& model, int position)
{
    const int bank = model.bankTarget;
    const BankStore& banks = model.banks;
    const auto key = [&](int k) { return banks.bankPatchAttribute(bank, position, k); };
    std::vector<std::string> lines{
        "Patch name: " + banks.bankPatchName(bank, position),
        "Size: " + std::to_string(kPatchBytes) + " bytes",
        bank == kPatchBankB ? "Bank: B" : "Bank: A",
        "Position: " + std::to_string(position),
        decodedLine("Patch Category: ", key(2), 1),
        "User Group: " + std::to_string(key(3)) + " [User Group " + std::to_string(key(3) + 1) + "]",
    };
    for (const TypeLine& line : kTypeLines)
        lines.push_back(decodedLine(line.caption, key(line.key), line.table));
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\r\n") + line;
    return text;
}

void showBankPatchProperties(AppModel& model, int position)
{
    if (position < 0 || position >= kPatchesPerBank)
        return;
    showInformation(model.host(), "Properties", bankPatchProperties(model, position), kBankViewHelpContext);
}

void changeUserGroup(AppModel& model, int group)
{
    const int bank = model.bankTarget;
    if (!model.flags.loaded[kPatchBankA] && !model.flags.loaded[kPatchBankB])
        return;
    if (model.mode != kPatchBankA && model.mode != kPatchBankB)
        return;
    BankSelection& selection = model.banks.selection(bank);
    if (selection.selectionCount < 1 || group < 1 || group > kUserGroups)
        return;
    if (!askYesNo(model.host(), "Change User Group",
                  "Change selected patches to USER GROUP " + std::to_string(group) + "?", kBankViewHelpContext))
        return;
    ByteImage& image = model.banks.image(bank);
    for (int patch = 0; patch < kPatchesPerBank; ++patch)
        if (selection.selected(patch))
            image[static_cast<std::size_t>(patch * kPatchBytes + kUserGroupByte - 1)] =
                static_cast<std::uint8_t>(group - 1);
    model.flags.changed[bank] = true;
    model.changed(kBanksChanged | kLabelsChanged);
}

}  // namespace quillon
