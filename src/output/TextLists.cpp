#include "output/TextLists.h"

#include "banks/PatternSlots.h"
#include "editors/LoadedLabels.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "output/ListFormat.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

constexpr int kTimbres = 6;
constexpr int kTimbreRows = 27;
constexpr int kFirstTimbreRow = 17;  // "Patch Bank" of timbre 1; "Patch Number" follows

std::vector<std::string> headed(int kind)
{
    return {LoadedLabels::caption(kind), std::string()};
}

// The bank letter is the last character of the bank's name, "Bank A" or
// "Multi Bank B".
std::string bankLetter(int kind)
{
    const std::string caption = LoadedLabels::caption(kind);
    return caption.empty() ? std::string() : caption.substr(caption.size() - 1);
}

// The patch a timbre plays, read from the multiset's values: bank 0 is
// PatchBank A, 1 PatchBank B.
std::string timbreLine(const AppModel& model, int bankValue, int patchNumber)
{
    const int bank = bankValue == 0 ? kPatchBankA : kPatchBankB;
    return "  patch " + bankLetter(bank) + zeroPadded(patchNumber, 3) + " " +
           model.banks.bankPatchName(bank, patchNumber);
}

template <typename ValueOf>
void addTimbres(const AppModel& model, std::vector<std::string>& lines, ValueOf valueOf)
{
    for (int t = 1; t <= kTimbres; ++t) {
        const int first = (t - 1) * kTimbreRows + kFirstTimbreRow;
        lines.push_back(timbreLine(model, valueOf(first), valueOf(first + 1)));
    }
    lines.emplace_back();
}

}  // namespace

std::string arpListSlotName(int position)
{
    if (position >= 0 && position < kPresetPatterns)
        return "PRESET:";
    return patternSlotName(position);
}

std::vector<std::string> bankListLines(const AppModel& model, int bank)
{
    if (bank != kPatchBankA && bank != kPatchBankB)
        return {};
    std::vector<std::string> lines = headed(bank);
    const std::string letter = bankLetter(bank);
    for (int p = 0; p < kPatchesPerBank; ++p)
        lines.push_back(letter + zeroPadded(p, 3) + " " + model.banks.bankPatchName(bank, p));
    return lines;
}

std::vector<std::string> multiBankListLines(const AppModel& model, int kind)
{
    const auto& rows = paramTables().multi;
    if (kind == kMultiset) {
        const ParamValues& values = model.buffers.of(kMultiset).current;
        std::vector<std::string> lines = headed(kind);
        lines.push_back(nameFromParams(values));
        addTimbres(model, lines, [&](int row) { return values[row]; });
        return lines;
    }
    if (kind != kMultiBankA && kind != kMultiBankB)
        return {};

    std::vector<std::string> lines = headed(kind);
    const std::string letter = bankLetter(kind);
    for (int m = 0; m < kMultisPerBank; ++m) {
        lines.push_back(letter + zeroPadded(m, 2) + " " + model.banks.bankMultiName(kind, m));
        const ByteImage image = model.banks.readBankMulti(kind, m);
        // The list reads the bank as it stands; what it would correct is no
        // business of the load report.
        LoadReport unused;
        addTimbres(model, lines, [&](int row) { return readParam(rows[row], image, unused); });
    }
    return lines;
}

std::vector<std::string> arpBankListLines(const AppModel& model, int kind)
{
    if (kind == kPattern) {
        std::vector<std::string> lines = headed(kind);
        lines.push_back(nameFromParams(model.buffers.of(kPattern).current));
        return lines;
    }
    if (kind != kArpBank)
        return {};
    std::vector<std::string> lines = headed(kind);
    for (int p = 0; p < kPatternsPerBank; ++p)
        lines.push_back(arpListSlotName(p) + " " + model.banks.bankPatternName(p));
    return lines;
}

}  // namespace quillon
