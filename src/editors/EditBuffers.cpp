#include "editors/EditBuffers.h"

#include "model/Kind.h"
#include "model/ParamTables.h"

#include <stdexcept>

namespace quillon {

namespace {

int slotOf(int kind)
{
    switch (kind) {
    case kPatch: return 0;
    case kMultiset: return 1;
    case kPattern: return 2;
    default: return -1;
    }
}

ItemBuffers buffersWith(const ParamValues& defaults)
{
    return ItemBuffers{defaults, defaults, defaults, defaults, defaults, defaults};
}

}  // namespace

EditBuffers::EditBuffers()
{
    const auto& t = paramTables();
    items_ = {buffersWith(t.patchDefaults), buffersWith(t.multiDefaults), buffersWith(t.arpDefaults)};
}

bool EditBuffers::hasBuffers(int kind) { return slotOf(kind) >= 0; }

ItemBuffers& EditBuffers::of(int kind)
{
    const int slot = slotOf(kind);
    if (slot < 0)
        throw std::out_of_range("no edit buffers for kind " + std::to_string(kind));
    return items_[slot];
}

const ItemBuffers& EditBuffers::of(int kind) const { return const_cast<EditBuffers*>(this)->of(kind); }

void EditBuffers::updateLoaded(int kind)
{
    if (hasBuffers(kind))
        of(kind).loaded = of(kind).current;
}

void EditBuffers::updatePrevLoaded(int kind)
{
    if (hasBuffers(kind))
        of(kind).prevLoaded = of(kind).current;
}

void EditBuffers::updateLast(int kind)
{
    if (!hasBuffers(kind))
        return;
    of(kind).last = of(kind).current;
    if (kind == kPattern)
        arpEditor.UndoStep = arpEditor.StepCurrent;
}

void EditBuffers::updateCurrentLast(int kind)
{
    if (!hasBuffers(kind))
        return;
    of(kind).current = of(kind).last;
    if (kind == kPattern)
        arpEditor.StepNum = arpEditor.UndoStep;
}

void EditBuffers::updateCurrentDefaults(int kind)
{
    if (hasBuffers(kind))
        of(kind).current = of(kind).defaults;
}

}  // namespace quillon
