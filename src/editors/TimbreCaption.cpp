#include "editors/TimbreCaption.h"

#include "model/Kind.h"
#include "model/NumberFormat.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

constexpr int kTimbreParams = 27;
constexpr int kFirstTimbreParam = 17;
// Timbre t's combined patch position is byte (t - 1) x 16 + 17 of the
// multiset, counted from 1 as the instrument does; Reserve Voice follows.
constexpr int kTimbreBytes = 16;
constexpr int kFirstTimbreByte = 17;
constexpr int kBankBPositions = 128;
// The decode tables of "Patch Bank", "Patch Number" and "Reserve Voice".
constexpr int kFirstTimbreTable = 92;
constexpr int kLastTimbreTable = 94;

bool isTimbre(int t) { return t >= 1 && t <= kMultiTimbreCount; }

// The caption from what a timbre plays: bank B or A, the patch number and
// the Reserve Voice, 0 meaning the timbre is off.
std::string captionOf(const AppModel& model, int t, bool bankB, int number, int reserveVoice)
{
    if (reserveVoice == 0)
        return "Patch " + std::to_string(t);
    std::string place(bankB ? "B" : "A");
    place += formatNumber(number, "000");
    const int bank = bankB ? kPatchBankB : kPatchBankA;
    if (model.flags.loaded[bank])
        return model.banks.bankPatchName(bank, number) + " " + place;
    if (model.remap.newListsPresent) {
        const int position = number + (bankB ? kBankBPositions : 0);
        if (position >= 0 && position < static_cast<int>(model.remap.newNames.size()))
            return model.remap.newNames[position] + " " + place;
    }
    return place;
}

}  // namespace

int timbreFirstParam(int t)
{
    return (t - 1) * kTimbreParams + kFirstTimbreParam;
}

int timbreOfParam(int param)
{
    const auto& rows = paramTables().multi;
    if (param < kFirstTimbreParam || param >= static_cast<int>(rows.size()))
        return 0;
    const int table = rows[param].table;
    if (table < kFirstTimbreTable || table > kLastTimbreTable)
        return 0;
    const int t = (param - kFirstTimbreParam) / kTimbreParams + 1;
    return isTimbre(t) ? t : 0;
}

std::string timbreCaption(const AppModel& model, int t)
{
    if (!isTimbre(t))
        return {};
    const ParamValues& current = model.buffers.of(kMultiset).current;
    const int first = timbreFirstParam(t);
    return captionOf(model, t, current[first] != 0, current[first + 1], current[first + 2]);
}

std::string timbreCaption(const AppModel& model, std::span<const std::uint8_t> multiImage, int t)
{
    if (!isTimbre(t))
        return {};
    const std::size_t at = static_cast<std::size_t>((t - 1) * kTimbreBytes + kFirstTimbreByte - 1);
    if (at + 1 >= multiImage.size())
        return {};
    const int position = multiImage[at];
    return captionOf(model, t, position >= kBankBPositions, position % kBankBPositions, multiImage[at + 1]);
}

}  // namespace quillon
