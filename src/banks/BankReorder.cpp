#include "banks/BankReorder.h"

#include "banks/BankUndo.h"
#include "banks/BankView.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace quillon {

namespace {

constexpr int kSwapCode = 27;
constexpr int kInsertCode = 25;
constexpr int kRotateCode = 23;

}  // namespace

int bankToReorder(AppModel& model, int least)
{
    const int bank = model.bankTarget;
    if ((bank != kPatchBankA && bank != kPatchBankB) || !model.flags.loaded[bank])
        return 0;
    return model.banks.selection(bank).selectionCount >= least ? bank : 0;
}

ReorderingStep::ReorderingStep(AppModel& model) : busy_(model.host()), batch_(model) { pushUndoSlot(model); }

BankPlaces unmovedPlaces()
{
    BankPlaces places{};
    std::iota(places.begin(), places.end(), std::int16_t{0});
    return places;
}

void finishReordering(AppModel& model, int bank, int code, const BankPlaces& newPlace)
{
    UndoSlot& slot = model.banks.undo.head();
    slot.undoBank = bank;
    updateUndoBankMenu(model, code);
    const int offset = bank == kPatchBankB ? kPatchesPerBank : 0;
    for (int p = 0; p < kPatchesPerBank; ++p)
        slot.undoMap[static_cast<std::size_t>(p + offset)] = static_cast<std::int16_t>(newPlace[p] + offset);

    ByteImage& image = model.banks.image(bank);
    ByteImage temporary(image.size());
    for (int p = 0; p < kPatchesPerBank; ++p) {
        const auto from = image.begin() + static_cast<std::ptrdiff_t>(p) * kPatchBytes;
        std::copy(from, from + kPatchBytes, temporary.begin() + static_cast<std::ptrdiff_t>(newPlace[p]) * kPatchBytes);
    }
    image.swap(temporary);

    model.flags.changed[bank] = true;
    fraBankSetUp(model);
    fraBankLabelsSetUp(model, bank, 1);
    model.changed(kBanksChanged | kLabelsChanged);
}

void swapSelection(AppModel& model, int where)
{
    const int bank = bankToReorder(model, 1);
    if (bank == 0 || (where != 1 && where != 2))
        return;
    ReorderingStep reordering(model);
    const BankSelection& selection = model.banks.selection(bank);
    const int n = selection.selectionCount;
    BankPlaces perm = unmovedPlaces();
    int s = 0;
    for (int k = 1; k <= n; ++k) {
        const int p = selection.selectionSequence[static_cast<std::size_t>(k)];
        const bool outside = where == 1 ? p >= n : p <= 127 - n;
        if (!outside)
            continue;
        const int target = where == 1 ? s : 127 - s;
        perm[static_cast<std::size_t>(p)] = static_cast<std::int16_t>(target);
        perm[static_cast<std::size_t>(target)] = static_cast<std::int16_t>(p);
        ++s;
    }
    bankSelectSequence(model);
    finishReordering(model, bank, kSwapCode + where, perm);
}

void insertSelection(AppModel& model, int where)
{
    const int bank = bankToReorder(model, 1);
    if (bank == 0 || (where != 1 && where != 2))
        return;
    ReorderingStep reordering(model);
    BankSelection& selection = model.banks.selection(bank);
    const auto marks = selection.selectionFlags;
    BankPlaces perm{};
    int s = 0;
    const bool selectedFirst = where == 1;
    for (const bool takeSelected : {selectedFirst, !selectedFirst}) {
        for (int p = 0; p < kPatchesPerBank; ++p) {
            if ((marks[static_cast<std::size_t>(p)] != 0) != takeSelected)
                continue;
            perm[static_cast<std::size_t>(p)] = static_cast<std::int16_t>(s);
            selection.selectionFlags[static_cast<std::size_t>(s)] = marks[static_cast<std::size_t>(p)];
            ++s;
        }
    }
    bankSelectSequence(model);
    finishReordering(model, bank, kInsertCode + where, perm);
}

void rotateSelection(AppModel& model, int step)
{
    const int bank = bankToReorder(model, 2);
    if (bank == 0 || step < -2 || step > 2 || step == 0)
        return;
    ReorderingStep reordering(model);
    const BankSelection& selection = model.banks.selection(bank);
    const int n = selection.selectionCount;
    // Places 1..n of the selection, doubled so that each rule reads ahead of
    // what it has already written.
    std::vector<int> m(static_cast<std::size_t>(2 * n + 1));
    for (int i = 1; i <= n; ++i) {
        m[static_cast<std::size_t>(i)] = i;
        m[static_cast<std::size_t>(n + i)] = i;
    }
    for (int i = 1; i <= n; ++i) {
        auto& here = m[static_cast<std::size_t>(i)];
        switch (step) {
        case -2: here = n + 1 - i; break;
        case -1: here = m[static_cast<std::size_t>(i + 1)]; break;
        case 1: here = m[static_cast<std::size_t>(i + n - 1)]; break;
        case 2: here = m[static_cast<std::size_t>(i + n / 2)]; break;
        default: break;
        }
    }
    BankPlaces newPlace = unmovedPlaces();
    const auto& sequence = selection.selectionSequence;
    for (int i = 1; i <= n; ++i)
        newPlace[static_cast<std::size_t>(sequence[static_cast<std::size_t>(m[static_cast<std::size_t>(i)])])] =
            sequence[static_cast<std::size_t>(i)];
    finishReordering(model, bank, kRotateCode + step, newPlace);
}

}  // namespace quillon
