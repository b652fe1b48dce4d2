#include "banks/TakeFromBank.h"

#include "banks/BankView.h"
#include "files/LoadFlow.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

namespace {

bool takeIntoEditor(AppModel& model, int kind, const ByteImage& member, bool fromSelection)
{
    model.saveCancelled = false;
    if (!doPreLoad(model, kind))
        return false;
    AppModel::Batch batch(model);
    // The patch goes into the editor and so leaves the selection of the view.
    if (fromSelection)
        setEditorFromSelection(model, 0);
    ByteImage& image = model.itemImage(kind);
    std::copy(member.begin(), member.end(), image.begin());
    model.buffers.updateCurrentDefaults(kind);
    doPostLoad(model, kind);
    model.buffers.updateLoaded(kind);
    model.buffers.updateLast(kind);
    model.takenFromBank[kind] = true;
    model.itemPath[kind].clear();
    return true;
}

}  // namespace

bool takePatchFromBank(AppModel& model, int position)
{
    const int bank = model.bankTarget;
    if (!takeIntoEditor(model, kPatch, model.banks.readBankPatch(bank, position), true))
        return false;
    model.banks.lastPutPatch = position + (bank == kPatchBankB ? kPatchesPerBank : 0);
    return true;
}

bool takeMultiFromBank(AppModel& model, int bank, int position)
{
    if (!takeIntoEditor(model, kMultiset, model.banks.readBankMulti(bank, position), false))
        return false;
    model.banks.lastPutMulti = position + (bank == kMultiBankB ? kMultisPerBank : 0);
    return true;
}

bool takePatternFromBank(AppModel& model, int position)
{
    if (!takeIntoEditor(model, kPattern, model.banks.readBankPattern(position), false))
        return false;
    model.banks.lastPutPattern = position;
    return true;
}

}  // namespace quillon
