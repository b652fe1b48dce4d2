#include "editors/ItemStatus.h"

#include "editors/ArpSteps.h"
#include "editors/Frames.h"
#include "files/LoadFlow.h"
#include "files/SuggestedNames.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

void checkChanged(AppModel& model, int kind)
{
    if (!EditBuffers::hasBuffers(kind))
        return;
    if (!model.flags.clean[kind]) {
        model.flags.changed[kind] = true;
        return;
    }
    const ItemBuffers& b = model.buffers.of(kind);
    if (b.current != b.loaded)
        model.flags.changed[kind] = true;
}

void checkPatchChanged(AppModel& model) { checkChanged(model, kPatch); }
void checkMultiChanged(AppModel& model) { checkChanged(model, kMultiset); }
void checkArpChanged(AppModel& model) { checkChanged(model, kPattern); }

bool arpHasTones(AppModel& model)
{
    const ParamValues& pattern = model.buffers.of(kPattern).current;
    const int length = std::clamp(patternLength(pattern), 0, kArpSteps);
    for (int step = 1; step <= length; ++step) {
        if (arpStepMask(pattern, step) != 0) {
            model.flags.loaded[kPattern] = true;
            return true;
        }
    }
    return false;
}

void setUpScreen(AppModel& model, int mode)
{
    if (mode < kPatch || mode > kPattern)
        return;
    // Filling the frames is the slowest thing the editor does while the user
    // waits.
    BusyPointer busy(model.host());
    AppModel::Batch batch(model);
    const int previousMode = model.mode;
    model.mode = mode;
    if (mode == kPatchBankA || mode == kPatchBankB)
        model.bankTarget = mode;
    setUpScreenContent(model, previousMode);
    model.changed(kScreenChanged);
}

void setUpSendMenu(AppModel& model, int kind)
{
    if (kind < kPatch || kind > kArpBank)
        return;
    model.sendMenuEnabled = model.flags.loaded[kind];
    model.sendMenuCaption = model.labels.label(kind).text;
    model.changed(kSendMenuChanged);
}

void clearStatusMessages(AppModel& model)
{
    model.host().setStatus("", StatusColour::Done);
    model.host().setMessage("");
}

void newItemReady(AppModel& model, int kind, bool startingUp)
{
    AppModel::Batch batch(model);
    paramsToImage(kind, model.buffers.of(kind).current, model.itemImage(kind));
    doLabelFileName(model, kind);
    model.labels.doLoadedStatusColour(kind, 0);
    model.flags.loaded[kind] = true;
    model.flags.changed[kind] = false;
    model.flags.clean[kind] = true;
    model.labels.showLabelHighlight(kind);
    model.changed(kLabelsChanged | kBuffersChanged);
    // While the program starts, the multiset and the pattern are made before
    // the patch, whose screen is the one that shows.
    if (startingUp && kind != kPatch)
        return;
    setUpScreen(model, kind);
    setUpSendMenu(model, kind);
}

void newPatchReady(AppModel& model, bool startingUp) { newItemReady(model, kPatch, startingUp); }
void newMultiReady(AppModel& model, bool startingUp) { newItemReady(model, kMultiset, startingUp); }
void newArpReady(AppModel& model, bool startingUp) { newItemReady(model, kPattern, startingUp); }

void newItem(AppModel& model)
{
    const int kind = model.mode;
    if (!EditBuffers::hasBuffers(kind))
        return;
    AppModel::Batch batch(model);
    model.saveCancelled = false;
    if (!doPreLoad(model, kind))
        return;
    model.buffers.updateCurrentDefaults(kind);
    newItemReady(model, kind, false);
    model.buffers.updateLoaded(kind);
    model.buffers.updateLast(kind);
}

int clickLoadedLabel(AppModel& model, int kind, bool rightButton)
{
    AppModel::Batch batch(model);
    if (kind >= kMultiBankA && kind <= kArpBank) {
        if (kind == kArpBank)
            model.arpMode = 1;
        else
            model.multiMode = kind == kMultiBankA ? 1 : 2;
        model.labels.showLabelHighlight(kind);
        model.changed(kLabelsChanged | kScreenChanged);
        setUpSendMenu(model, kind);
        return 0;
    }
    if (kind < kPatch || kind > kPattern)
        return 0;

    const bool leaveBank = (kind == kMultiset && model.multiMode >= 1) || (kind == kPattern && model.arpMode == 1);
    if (model.mode != kind || leaveBank) {
        if (model.mode == kind) {
            model.multiMode = kind == kMultiset ? 0 : model.multiMode;
            model.arpMode = kind == kPattern ? 0 : model.arpMode;
        }
        model.labels.showLabelHighlight(kind);
        model.changed(kLabelsChanged);
        setUpSendMenu(model, kind);
        setUpScreen(model, kind);
    }

    if (!rightButton)
        return 0;
    if (kind == kPatch && !model.flags.loaded[kPatch]) {
        model.host().showMessage({"Edit Patch Name", "No patch loaded", MessageIcon::Information});
        return 0;
    }
    if (kind == kMultiset && !model.flags.loaded[kMultiset]) {
        model.host().showMessage({"Edit (Single) Multiset Name", "No multiset loaded", MessageIcon::Information});
        return 0;
    }
    return kind == kPatch || kind == kMultiset || kind == kPattern ? kind : 0;
}

}  // namespace quillon
