#include "banks/RemapLists.h"

#include "editors/MultiSelect.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/NumberFormat.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <system_error>

namespace quillon {

namespace {

constexpr int kBankBPositions = 128;

bool isPatchBank(int bank) { return bank == kPatchBankA || bank == kPatchBankB; }

std::array<std::string, 256>& namesOf(AppModel& model, int which)
{
    return which == kOldList ? model.remap.oldNames : model.remap.newNames;
}

void showProblem(AppModel& model, const char* title, const char* text)
{
    MessageRequest box;
    box.title = title;
    box.text = text;
    box.icon = MessageIcon::Exclamation;
    model.host().showMessage(box);
}

bool fileExists(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

}  // namespace

std::string bankListFileName(int bank, int which)
{
    return std::string(which == kOldList ? "old" : "new") + (bank == kPatchBankB ? "B" : "A") + ".txt";
}

std::filesystem::path bankListPath(const AppModel& model, int bank, int which)
{
    return model.dataFolder() / bankListFileName(bank, which);
}

std::vector<std::string> formatBankList(const std::array<std::string, 128>& names)
{
    std::vector<std::string> lines;
    lines.reserve(names.size());
    for (std::size_t p = 0; p < names.size(); ++p)
    {
        std::string line(1, '"');
        line += formatNumber(static_cast<double>(p), "000");
        line += "\",\"";
        line += names[p];
        line += '"';
        lines.push_back(std::move(line));
    }
    return lines;
}

bool parseBankList(const std::vector<std::string>& lines, std::array<std::string, 128>& names)
{
    if (lines.size() < names.size())
        return false;
    std::array<std::string, 128> read;
    for (std::size_t p = 0; p < read.size(); ++p) {
        std::string line = lines[p];
        std::erase(line, '"');
        const auto comma = line.find(',');
        if (comma == std::string::npos)
            return false;
        read[p] = line.substr(comma + 1);
    }
    names = std::move(read);
    return true;
}

bool readBankListFile(const std::filesystem::path& path, std::array<std::string, 128>& names)
{
    std::vector<std::string> lines;
    return readLines(path, lines) && parseBankList(lines, names);
}

bool saveBankList(AppModel& model, int bank, int which)
{
    if (!isPatchBank(bank))
        return false;
    std::array<std::string, 128> names;
    for (int p = 0; p < kPatchesPerBank; ++p)
        names[static_cast<std::size_t>(p)] = model.banks.bankPatchName(bank, p);
    if (writeLinesAtomically(bankListPath(model, bank, which), formatBankList(names)))
        return true;
    showProblem(model, "Save Bank Map", "Problem writing to file");
    return false;
}

bool readBankList(AppModel& model, int bank, int which)
{
    if (!isPatchBank(bank))
        return false;
    const auto path = bankListPath(model, bank, which);
    if (!fileExists(path))
        return false;
    std::array<std::string, 128> names;
    if (!readBankListFile(path, names)) {
        showProblem(model, "Open Bank Map", "Problem reading file");
        if (which == kNewList && model.remap.newListsPresent) {
            model.remap.newListsPresent = false;
            refreshTimbres(model);
        }
        return false;
    }
    const int offset = bank == kPatchBankB ? kBankBPositions : 0;
    std::move(names.begin(), names.end(), namesOf(model, which).begin() + offset);
    if (which == kNewList)
        refreshTimbres(model);
    return true;
}

void checkNewLists(AppModel& model)
{
    if (!fileExists(bankListPath(model, kPatchBankA, kNewList)) ||
        !fileExists(bankListPath(model, kPatchBankB, kNewList)))
        return;
    model.remap.newListsPresent = true;
    readBankList(model, kPatchBankA, kNewList);
    readBankList(model, kPatchBankB, kNewList);
}

}  // namespace quillon
