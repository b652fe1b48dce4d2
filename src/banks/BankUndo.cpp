#include "banks/BankUndo.h"

#include "banks/BankMenuCaptions.h"
#include "banks/BankView.h"
#include "editors/ItemStatus.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <numeric>

namespace quillon {

namespace {

constexpr int kCombinedPatches = 2 * kPatchesPerBank;

void setUndoItems(AppModel& model, const std::string& caption, bool enabled)
{
    for (auto& item : model.bankView.undoItems) {
        item.caption = caption;
        item.enabled = enabled;
    }
}

}  // namespace

void pushUndoSlot(AppModel& model)
{
    BankUndoRing& ring = model.banks.undo;
    ring.undoHead = ring.undoHead % kUndoSlots + 1;
    if (ring.undoHead == ring.undoTail)
        ring.undoTail = ring.undoTail % kUndoSlots + 1;
    UndoSlot& slot = ring.head();
    std::iota(slot.undoMap.begin(), slot.undoMap.end(), std::int16_t{0});
    for (int i = 0; i < kCombinedPatches; ++i) {
        const BankSelection& selection = model.banks.selection(i < kPatchesPerBank ? kPatchBankA : kPatchBankB);
        slot.undoSelection[static_cast<std::size_t>(i)] =
            selection.selectionFlags[static_cast<std::size_t>(i % kPatchesPerBank)];
    }
    slot.undoOperation = 0;
    slot.undoBank = model.bankTarget;
}

void updateUndoBankMenu(AppModel& model, int operation)
{
    BankUndoRing& ring = model.banks.undo;
    if (operation == 0) {
        ring.clear();
        setUndoItems(model, "Undo", false);
        model.changed(kUndoMenuChanged);
        return;
    }
    if (operation < 0)
        return;
    ring.head().undoOperation = operation;
    const std::string entry = undoOperationCaption(operation);
    if (entry.empty())
        return;
    const std::string start =
        operation == 30 ? "Undo " : (ring.head().undoBank == kPatchBankB ? "Undo B " : "Undo A ");
    setUndoItems(model, start + entry, true);
    model.changed(kUndoMenuChanged);
}

void undoBankOperation(AppModel& model)
{
    BankUndoRing& ring = model.banks.undo;
    if ((model.mode != kPatchBankA && model.mode != kPatchBankB) || ring.empty())
        return;
    BusyPointer busy(model.host());
    AppModel::Batch batch(model);
    BankStore& banks = model.banks;
    const UndoSlot& slot = ring.head();

    // The patches are read from the live banks into copies, so that no patch
    // is read from a place already written.
    ByteImage temporary[2] = {banks.image(kPatchBankA), banks.image(kPatchBankB)};
    for (int i = 0; i < kCombinedPatches; ++i) {
        const int from = slot.undoMap[static_cast<std::size_t>(i)];
        if (from < 0 || from >= kCombinedPatches || from == i)
            continue;
        const ByteImage& source = banks.image(from < kPatchesPerBank ? kPatchBankA : kPatchBankB);
        const auto first = source.begin() + static_cast<std::ptrdiff_t>(from % kPatchesPerBank) * kPatchBytes;
        std::copy(first, first + kPatchBytes,
                  temporary[i / kPatchesPerBank].begin() +
                      static_cast<std::ptrdiff_t>(i % kPatchesPerBank) * kPatchBytes);
    }
    for (int bank : {kPatchBankA, kPatchBankB}) {
        if (!model.flags.loaded[bank])
            continue;
        banks.image(bank) = std::move(temporary[bank - kPatchBankA]);
        model.flags.changed[bank] = true;
    }

    const int bank = slot.undoBank;
    model.mode = bank;
    model.bankTarget = bank;
    for (int i = 0; i < kCombinedPatches; ++i) {
        BankSelection& selection = banks.selection(i < kPatchesPerBank ? kPatchBankA : kPatchBankB);
        selection.selectionFlags[static_cast<std::size_t>(i % kPatchesPerBank)] =
            slot.undoSelection[static_cast<std::size_t>(i)];
    }
    fraBankSetUp(model);
    bankSelectSequence(model);
    fraBankLabelsSetUp(model, bank, 1);
    model.labels.showLabelHighlight(bank);
    setUpSendMenu(model, bank);
    model.changed(kScreenChanged | kLabelsChanged | kBanksChanged);

    ring.undoHead = (ring.undoHead + 9) % kUndoSlots + 1;
    if (ring.undoHead == ring.undoTail)
        updateUndoBankMenu(model, 0);
    else
        updateUndoBankMenu(model, ring.head().undoOperation);
}

void mnuUndoBank(AppModel& model)
{
    if (!model.flags.loaded[kPatchBankA] && !model.flags.loaded[kPatchBankB]) {
        showInformation(model.host(), "Undo bank", "No bank loaded", kBankReorderHelpContext);
        return;
    }
    undoBankOperation(model);
}

}  // namespace quillon
