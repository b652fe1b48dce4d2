#include "files/LoadFlow.h"

#include "editors/ItemStatus.h"
#include "files/SuggestedNames.h"
#include "files/SysExSaving.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "output/CheckResults.h"
#include "shell/AppModel.h"
#include "sysex/SysExPacking.h"

#include <string>

namespace quillon {

namespace {

bool isSingleKind(int kind) { return kind == kPatch || kind == kMultiset || kind == kPattern; }

std::string newTitle(int kind)
{
    switch (kind) {
    case kPatch: return "New Patch";
    case kPatchBankA:
    case kPatchBankB: return "New Bank";
    case kMultiset: return "New Multiset";
    case kPattern: return "New Arp Pattern";
    case kMultiBankA:
    case kMultiBankB: return "New Multi Bank";
    case kArpBank: return "New Arpeggiator Bank";
    default: return {};
    }
}

std::string saveFirstText(const AppModel& model, int kind)
{
    switch (kind) {
    case kPatch:
    case kMultiset:
    case kPattern: return "Save " + model.itemName[kind] + " first?";
    case kPatchBankA: return "Save current Bank A first?";
    case kPatchBankB: return "Save current Bank B first?";
    case kMultiBankA: return "Save current Multi Bank A first?";
    case kMultiBankB: return "Save current Multi Bank B first?";
    case kArpBank: return "Save current arpeggiator bank first?";
    default: return {};
    }
}

// The flags of an item that now stands as it came: it exists, it has no
// changes, and Loaded is a valid reference for finding them.
void setLoadedFlags(AppModel& model, int kind)
{
    model.flags.loaded[kind] = true;
    model.flags.changed[kind] = false;
    model.flags.clean[kind] = true;
}

// Patch, multiset and pattern: the image into Current, the name into the
// label, and the label coloured by whether the load had to correct anything.
void postLoadItem(AppModel& model, int kind)
{
    if (kind == kMultiset)
        model.multiMode = 0;
    else if (kind == kPattern)
        model.arpMode = 0;
    imageToParams(kind, model.itemImage(kind), model.buffers.of(kind).current, model.report);
    doLabelFileName(model, kind);
    if (model.report.changeCount() == 0) {
        model.labels.doLoadedStatusColour(kind, 0);
    } else {
        saveCheckResults(model, kind);
        model.labels.doLoadedStatusColour(kind, 1);
    }
    setLoadedFlags(model, kind);
    model.labels.showLabelHighlight(kind);
    model.changed(kLabelsChanged | kBuffersChanged);
    setUpScreen(model, kind);
    setUpSendMenu(model, kind);
}

// The bank's packed data into its image in the bank store. The packed
// buffer is changed on the way (its high bits are put into the data bytes).
void unpackBank(AppModel& model, int bank)
{
    model.banks.image(bank) = MIDItoDATA(bank, model.packed[bank], model.report);
    model.changed(kBanksChanged);
}

// The bank in the bank store marked as present and unchanged.
void showLoadedPatchBank(AppModel& model, int bank)
{
    model.labels.doLoadedStatusColour(bank, 1);
    setLoadedFlags(model, bank);
    model.bankMenuEnabled = true;
    model.labels.showLabelHighlight(bank);
    model.changed(kLabelsChanged | kBankMenuChanged);
    setUpScreen(model, bank);
    setUpSendMenu(model, bank);
    // The undo steps of reorderings belong to the bank that was replaced.
    updateUndoBankMenu(model, 0);
}

// A multi bank or the arpeggiator bank shows on the multi or arpeggiator
// screen, highlighted there, with the single item's label painted present.
void showLoadedSubBank(AppModel& model, int bank)
{
    const int screen = bank == kArpBank ? kPattern : kMultiset;
    if (bank == kArpBank)
        model.arpMode = 1;
    else
        model.multiMode = bank == kMultiBankB ? 2 : 1;
    model.labels.doLoadedStatusColour(bank, 1);
    model.labels.doLoadedStatusColour(screen, 0);
    setLoadedFlags(model, bank);
    model.labels.showLabelHighlight(bank);
    model.changed(kLabelsChanged);
    setUpScreen(model, screen);
    setUpSendMenu(model, bank);
}

void postLoadBank(AppModel& model, int bank)
{
    BusyPointer busy(model.host());
    unpackBank(model, bank);
    showLoadedBank(model, bank);
}

}  // namespace

bool doPreLoad(AppModel& model, int kind)
{
    if (kind < kPatch || kind > kArpBank)
        return true;
    AppModel::Batch batch(model);
    if (isSingleKind(kind)) {
        model.report.reset();
        if (model.flags.loaded[kind]) {
            model.buffers.updatePrevLoaded(kind);
            model.changed(kBuffersChanged);
            checkChanged(model, kind);
        }
    }
    if (model.flags.changed[kind])
        doSaveFirstPrompt(model, kind, 0);
    return !model.saveCancelled;
}

void doPostLoad(AppModel& model, int kind)
{
    if (kind < kPatch || kind > kArpBank)
        return;
    AppModel::Batch batch(model);
    switch (kind) {
    case kPatch:
    case kMultiset:
    case kPattern:
        // Whatever brought the item, it is no longer the one a bank gave;
        // taking one from a bank says so again after this.
        model.takenFromBank[kind] = false;
        postLoadItem(model, kind);
        break;
    case kPatchBankA:
    case kPatchBankB: postLoadBank(model, model.bankTarget); break;
    case kMultiBankA:
    case kMultiBankB: postLoadBank(model, model.multiBankTarget); break;
    case kArpBank: postLoadBank(model, kArpBank); break;
    default: break;
    }
    clearStatusMessages(model);
}

void showLoadedBank(AppModel& model, int bank)
{
    AppModel::Batch batch(model);
    if (bank == kPatchBankA || bank == kPatchBankB)
        showLoadedPatchBank(model, bank);
    else if (bank == kMultiBankA || bank == kMultiBankB || bank == kArpBank)
        showLoadedSubBank(model, bank);
}

void doSaveFirstPrompt(AppModel& model, int kind, int context)
{
    if (kind < kPatch || kind > kArpBank)
        return;
    MessageRequest request;
    request.title = context == 1 ? "Exit Quillon" : newTitle(kind);
    request.text = saveFirstText(model, kind);
    request.icon = MessageIcon::Question;
    request.buttons = MessageButtons::YesNoCancel;
    switch (model.host().showMessage(request)) {
    case Answer::Yes:
        // A save that is cancelled or fails keeps the edits, as Cancel does.
        if (!saveKind(model, kind, 2))
            model.saveCancelled = true;
        break;
    case Answer::No:
        model.flags.changed[kind] = false;
        model.changed(kLabelsChanged);
        break;
    case Answer::Cancel: model.saveCancelled = true; break;
    case Answer::Ok: break;
    }
}

void takeSingleItem(AppModel& model, int kind)
{
    AppModel::Batch batch(model);
    model.itemImage(kind) = MIDItoDATA(kind, model.packed[kind], model.report);
    model.buffers.updateCurrentDefaults(kind);
    doPostLoad(model, kind);
    model.buffers.updateLoaded(kind);
    model.buffers.updateLast(kind);
    model.changed(kBuffersChanged);
}

}  // namespace quillon
