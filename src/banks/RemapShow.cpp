#include "banks/RemapShow.h"

#include "banks/RemapLists.h"
#include "model/Kind.h"
#include "model/NumberFormat.h"
#include "shell/AppModel.h"

#include <system_error>

namespace quillon {

namespace {

constexpr const char* kNotPresent = "[not present]";
constexpr int kBankBPositions = 128;

void appendLine(std::string& text, int oldPosition, const std::string& oldName, int newPosition,
                const std::string& newName)
{
    if (!text.empty())
        text += '\n';
    text += remapNumberText(oldPosition) + '\t' + oldName + '\t' + remapNumberText(newPosition) + '\t' + newName;
}

// The line of an old patch and where it goes.
void appendOld(std::string& text, const RemapShowData& data, int oldPosition)
{
    const int mapped = data.table[static_cast<std::size_t>(oldPosition)];
    appendLine(text, oldPosition, data.oldNames[static_cast<std::size_t>(oldPosition)], mapped < 0 ? 0 : mapped,
               mapped < 0 ? kNotPresent : data.newNames[static_cast<std::size_t>(mapped)]);
}

// The line of a new patch and where it came from.
void appendNew(std::string& text, const RemapShowData& data, int newPosition)
{
    const int from = data.newToOld[static_cast<std::size_t>(newPosition)];
    appendLine(text, from < 0 ? 0 : from, from < 0 ? kNotPresent : data.oldNames[static_cast<std::size_t>(from)],
               newPosition, data.newNames[static_cast<std::size_t>(newPosition)]);
}

}  // namespace

std::string remapNumberText(int position)
{
    std::string text(1, position >= kBankBPositions ? 'B' : 'A');
    text += formatNumber(position % kBankBPositions, "000");
    return text;
}

RemapTable invertRemapTable(const RemapTable& table)
{
    RemapTable inverse;
    inverse.fill(-1);
    for (std::size_t old = 0; old < table.size(); ++old) {
        if (table[old] >= 0)
            inverse[static_cast<std::size_t>(table[old])] = static_cast<std::int16_t>(old);
    }
    return inverse;
}

bool openShowRemap(AppModel& model, RemapShowData& data)
{
    if (!loadRemapTable(model))
        return false;
    for (const int which : {kOldList, kNewList}) {
        for (const int bank : {kPatchBankA, kPatchBankB}) {
            std::error_code error;
            if (!std::filesystem::exists(bankListPath(model, bank, which), error)) {
                showInformation(model.host(), "Show Remap", "Missing remap text files", kRemapHelpContext);
                return false;
            }
        }
    }
    for (const int which : {kOldList, kNewList}) {
        for (const int bank : {kPatchBankA, kPatchBankB}) {
            if (!readBankList(model, bank, which))
                return false;
        }
    }
    data.oldNames = model.remap.oldNames;
    data.newNames = model.remap.newNames;
    data.table = model.remap.remapTable;
    data.newToOld = invertRemapTable(data.table);
    return true;
}

std::string remapShowText(const RemapShowData& data, int order)
{
    std::string text;
    switch (order) {
    case kByOldName:
        for (const int old : bubbleSortedPositions(data.oldNames))
            appendOld(text, data, old);
        break;
    case kByNewNumber:
        for (int position = 0; position < 256; ++position)
            appendNew(text, data, position);
        break;
    case kByNewName:
        for (const int position : bubbleSortedPositions(data.newNames))
            appendNew(text, data, position);
        break;
    default:
        for (int position = 0; position < 256; ++position)
            appendOld(text, data, position);
        break;
    }
    return text;
}

}  // namespace quillon
