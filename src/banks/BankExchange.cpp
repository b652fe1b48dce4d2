#include "banks/BankExchange.h"

#include "banks/BankUndo.h"
#include "banks/BankView.h"
#include "editors/ItemStatus.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <string>

namespace quillon {

namespace {

constexpr int kExportImportCode = 30;

const char* bankTitle(int bank) { return bank == kPatchBankA ? "Bank A" : "Bank B"; }

int otherBank(int bank) { return bank == kPatchBankA ? kPatchBankB : kPatchBankA; }

std::string exportImportQuestion(int n, int other)
{
    const std::string count = std::to_string(n);
    return "Swap " + (n == 1 ? std::string("this patch") : "these " + count + " patches") + " with the last " +
           (n == 1 ? std::string("patch") : count + " patches") + "\n" + " in " + bankTitle(other) +
           ". Are you sure?";
}

}  // namespace

void exportImportSelection(AppModel& model)
{
    const int bank = model.bankTarget;
    if (bank != kPatchBankA && bank != kPatchBankB)
        return;
    const int other = otherBank(bank);
    const BankSelection& selection = model.banks.selection(bank);
    const int n = selection.selectionCount;
    if (!model.flags.loaded[bank] || !model.flags.loaded[other] || n < 1)
        return;

    pushUndoSlot(model);
    if (!askYesNo(model.host(), "Export/import patches between banks", exportImportQuestion(n, other),
                  kBankReorderHelpContext))
        return;

    BusyPointer busy(model.host());
    AppModel::Batch batch(model);
    BankStore& banks = model.banks;
    UndoSlot& slot = banks.undo.head();
    slot.undoBank = bank;
    updateUndoBankMenu(model, kExportImportCode);
    const int here = bank == kPatchBankB ? kPatchesPerBank : 0;
    const int there = other == kPatchBankB ? kPatchesPerBank : 0;
    for (int i = 1; i <= n; ++i) {
        const int p = selection.selectionSequence[static_cast<std::size_t>(i)];
        const int q = 127 - n + i;
        slot.undoMap[static_cast<std::size_t>(p + here)] = static_cast<std::int16_t>(q + there);
        slot.undoMap[static_cast<std::size_t>(q + there)] = static_cast<std::int16_t>(p + here);
        const ByteImage exported = banks.readBankPatch(bank, p);
        const ByteImage imported = banks.readBankPatch(other, q);
        banks.writeBankPatch(bank, p, imported);
        banks.writeBankPatch(other, q, exported);
        model.host().setStatus("Exporting " + trimmedRight(std::string(exported.begin(), exported.begin() + 16)) + " to " +
                                   bankTitle(other),
                               StatusColour::Busy);
    }
    model.host().setStatus(std::to_string(n) + " patches exported/imported", StatusColour::Done);
    fraBankSetUp(model);
    fraBankLabelsSetUp(model, bank, 1);
    model.changed(kBanksChanged | kLabelsChanged);
}

void swapBanks(AppModel& model)
{
    KindFlags& flags = model.flags;
    const bool aLoaded = flags.loaded[kPatchBankA];
    const bool bLoaded = flags.loaded[kPatchBankB];
    if (!aLoaded && !bLoaded) {
        showInformation(model.host(), "Swap banks", "No banks loaded", kBankReorderHelpContext);
        return;
    }
    if (!askYesNo(model.host(), "Swap banks", "This will change bank status for saving and sending. Is this OK?",
                  kBankReorderHelpContext))
        return;

    BusyPointer busy(model.host());
    AppModel::Batch batch(model);
    ByteImage& a = model.banks.image(kPatchBankA);
    ByteImage& b = model.banks.image(kPatchBankB);
    if (aLoaded && bLoaded) {
        a.swap(b);
    } else if (aLoaded) {
        b = a;
        std::fill(a.begin(), a.end(), 0);
    } else {
        a = b;
        std::fill(b.begin(), b.end(), 0);
    }
    flags.loaded[kPatchBankA] = bLoaded;
    flags.loaded[kPatchBankB] = aLoaded;
    flags.changed[kPatchBankA] = bLoaded;
    flags.changed[kPatchBankB] = aLoaded;
    for (int bank : {kPatchBankA, kPatchBankB}) {
        model.labels.doLoadedStatusColour(bank, flags.loaded[bank] ? 1 : 2);
        model.itemPath[bank].clear();
        model.banks.selection(bank).selectionCount = 0;
        flags.clean[bank] = false;
    }

    const int shown = otherBank(model.bankTarget);
    model.bankTarget = shown;
    model.labels.showLabelHighlight(shown);
    setUpScreen(model, shown);
    setUpSendMenu(model, shown);
    // The grid shows the same patches under the other letter.
    fraBankLabelsSetUp(model, shown, 1);
    model.changed(kBanksChanged | kLabelsChanged | kBankMenuChanged);
    updateUndoBankMenu(model, 0);
}

}  // namespace quillon
