#include "banks/PutInBank.h"

#include "banks/BankView.h"
#include "banks/PatternSlots.h"
#include "editors/ItemStatus.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/NumberFormat.h"
#include "model/ParamImage.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr int kNameBytes = 16;

// The editor's item packed as it would go into the bank, without touching
// the item's own image.
ByteImage packedItem(AppModel& model, int kind)
{
    ByteImage image = model.itemImage(kind);
    paramsToImage(kind, model.buffers.of(kind).current, image);
    return image;
}

std::string nameOf(const ByteImage& image)
{
    return trimmedRight(std::string(image.begin(), image.begin() + kNameBytes));
}

// Packs the editor's item into its image, and gives that image.
const ByteImage& packItem(AppModel& model, int kind)
{
    ByteImage& image = model.itemImage(kind);
    paramsToImage(kind, model.buffers.of(kind).current, image);
    return image;
}

std::string letter(bool bankB) { return bankB ? "B" : "A"; }

}  // namespace

void putPatchInBank(AppModel& model, int combined)
{
    const std::string title = "Put patch in bank";
    Host& host = model.host();
    if (!model.flags.loaded[kPatch]) {
        showInformation(host, title, "No patch loaded", kPutPatchHelpContext);
        return;
    }
    if (!model.flags.loaded[kPatchBankA] && !model.flags.loaded[kPatchBankB]) {
        showInformation(host, title, "No bank loaded", kPutPatchHelpContext);
        return;
    }
    clearStatusMessages(model);
    BankDialogRequest request;
    request.mode = 1;
    request.nameAt = [&model](int place) {
        return model.banks.bankPatchName(place / kPatchesPerBank + kPatchBankA, place % kPatchesPerBank);
    };
    request.bankLoaded = [&model](int kind) { return model.flags.loaded[kind]; };
    request.selectedPlace = std::clamp(combined, 0, 2 * kPatchesPerBank - 1);
    request.newName = nameOf(packedItem(model, kPatch));
    const int value = host.chooseBankPlace(request);
    if (value < 0)
        return;
    const int bank = value / kPatchesPerBank + kPatchBankA;
    const int place = value % kPatchesPerBank;
    const bool bankB = bank == kPatchBankB;
    if (!model.flags.loaded[bank]) {
        showInformation(host, title, "Bank " + letter(bankB) + " is not loaded", kPutPatchHelpContext);
        return;
    }
    AppModel::Batch batch(model);
    const std::string oldName = trimmedRight(model.banks.bankPatchName(bank, place));
    const ByteImage& image = packItem(model, kPatch);
    model.banks.writeBankPatch(bank, place, image);
    fraBankSetUp(model);
    fraBankLabelsSetUp(model, bank, 0);
    host.setStatus(nameOf(image) + (bankB ? " has replaced B" : " has replaced A") + formatNumber(place, "000") + " " +
                       oldName +
                       " in loaded Bank " + letter(bankB),
                   StatusColour::Done);
    host.setMessage("");
    model.banks.lastPutPatch = value;
    model.changed(kBanksChanged | kLabelsChanged);
}

void putMultiInBank(AppModel& model, int combined)
{
    const std::string title = "Put Multiset in Multi Bank";
    Host& host = model.host();
    if (!model.flags.loaded[kMultiset]) {
        showInformation(host, title, "No multiset loaded", kPutMultiHelpContext);
        return;
    }
    if (!model.flags.loaded[kMultiBankA] && !model.flags.loaded[kMultiBankB]) {
        showInformation(host, title, "No multibank loaded", kPutMultiHelpContext);
        return;
    }
    clearStatusMessages(model);
    BankDialogRequest request;
    request.mode = 4;
    request.nameAt = [&model](int place) {
        return model.banks.bankMultiName(place / kMultisPerBank + kMultiBankA, place % kMultisPerBank);
    };
    request.bankLoaded = [&model](int kind) { return model.flags.loaded[kind]; };
    request.selectedPlace = std::clamp(combined, 0, 2 * kMultisPerBank - 1);
    request.newName = nameOf(packedItem(model, kMultiset));
    const int value = host.chooseBankPlace(request);
    if (value < 0)
        return;
    const int bank = value / kMultisPerBank + kMultiBankA;
    const int place = value % kMultisPerBank;
    const bool bankB = bank == kMultiBankB;
    if (!model.flags.loaded[bank]) {
        showInformation(host, "Put Multi in Multi Bank", "Multi Bank " + letter(bankB) + " is not loaded",
                        kPutMultiHelpContext);
        return;
    }
    AppModel::Batch batch(model);
    const std::string oldName = trimmedRight(model.banks.bankMultiName(bank, place));
    const ByteImage& image = packItem(model, kMultiset);
    model.banks.writeBankMulti(bank, place, image);
    host.setStatus(nameOf(image) + (bankB ? " has replaced B" : " has replaced A") + formatNumber(place, "00") + " " +
                       oldName +
                       " in loaded multibank " + letter(bankB),
                   StatusColour::Done);
    host.setMessage("");
    model.banks.lastPutMulti = value;
    model.changed(kBanksChanged | kLabelsChanged | kMultiSelectChanged);
}

void putPatternInBank(AppModel& model, int position)
{
    const std::string title = "Put Pattern in Arpeggiator Bank";
    Host& host = model.host();
    if (!model.flags.loaded[kPattern]) {
        showInformation(host, title, "No arpeggiator pattern loaded", kPutPatternHelpContext);
        return;
    }
    if (!model.flags.loaded[kArpBank]) {
        showInformation(host, title, "No arpeggiator bank loaded", kPutPatternHelpContext);
        return;
    }
    clearStatusMessages(model);
    BankDialogRequest request;
    request.mode = 5;
    request.nameAt = [&model](int place) { return model.banks.bankPatternName(place); };
    request.bankLoaded = [&model](int kind) { return model.flags.loaded[kind]; };
    request.selectedPlace = std::clamp(position, kPresetPatterns, kPatternsPerBank - 1);
    request.newName = nameOf(packedItem(model, kPattern));
    const int value = host.chooseBankPlace(request);
    if (value < 0)
        return;
    // The presets are never replaced.
    const int place = std::clamp(value, kPresetPatterns, kPatternsPerBank - 1);
    AppModel::Batch batch(model);
    const std::string oldName = trimmedRight(model.banks.bankPatternName(place));
    const ByteImage& image = packItem(model, kPattern);
    model.banks.writeBankPattern(place, image);
    host.setStatus(nameOf(image) + " has replaced " + patternSlotName(place) + " " + oldName +
                       " in loaded Arp Bank (All Patterns)",
                   StatusColour::Done);
    host.setMessage("");
    model.banks.lastPutPattern = place;
    model.changed(kBanksChanged | kLabelsChanged);
}

void mnuPutPatchInBank(AppModel& model) { putPatchInBank(model, model.banks.lastPutPatch); }
void mnuPutMultiInBank(AppModel& model) { putMultiInBank(model, model.banks.lastPutMulti); }
void mnuPutArpInBank(AppModel& model) { putPatternInBank(model, model.banks.lastPutPattern); }

void putCurrentInBank(AppModel& model)
{
    switch (model.mode) {
    case kPatch: mnuPutPatchInBank(model); break;
    case kMultiset: mnuPutMultiInBank(model); break;
    case kPattern: mnuPutArpInBank(model); break;
    default: break;
    }
}

}  // namespace quillon
