#include "editors/ValueBox.h"

#include "editors/ArpScreen.h"
#include "editors/EnvelopeGraph.h"
#include "editors/Frames.h"
#include "editors/ScreenLayout.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"
#include "shell/AppModel.h"
#include "shell/AppObserver.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quillon {

namespace {

const std::vector<ParamDef>& rowsOf(int kind)
{
    const ParamTables& t = paramTables();
    switch (kind) {
    case kMultiset: return t.multi;
    case kPattern: return t.arp;
    default: return t.patch;
    }
}

bool holdsParam(int kind, int param)
{
    return (kind == kPatch || kind == kMultiset || kind == kPattern) && param >= 1 &&
           param < static_cast<int>(rowsOf(kind).size());
}

const ParamDef& defOf(int kind, int param) { return rowsOf(kind)[static_cast<std::size_t>(param)]; }

bool equalIgnoringCase(const std::string& a, const std::string& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
           });
}

// A decode label's change event: a new caption runs showValueNote.
void setDecode(AppModel& model, ValueBox& box, std::string caption, StoreFollowUp& followUp)
{
    if (caption == box.decode)
        return;
    box.decode = std::move(caption);
    followUp.note = showValueNote(model, box);
}

void runChangeProcedure(AppModel& model, ValueBox& box, BoxChange& change);

// Setting the box's text is a change event of its own, as it is on screen.
void setBoxText(AppModel& model, ValueBox& box, std::string text, BoxChange& change)
{
    if (text == box.text)
        return;
    box.text = std::move(text);
    runChangeProcedure(model, box, change);
}

// The row acts only on its own screen: patch rows in Mode 1, multiset rows
// in Mode 4, the pattern's rows in Mode 5.
bool onItsScreen(const AppModel& model, const ValueBox& box)
{
    return model.mode == box.kind && holdsParam(box.kind, box.param);
}

void runChangeProcedure(AppModel& model, ValueBox& box, BoxChange& change)
{
    const int pass = ++change.passes;
    if (!onItsScreen(model, box))
        return;
    const ParamDef& def = defOf(box.kind, box.param);
    const int value = boxNumber(box.text);
    // Out of range the box is corrected, and the correction, a change of its
    // own, stores; this pass does not.
    if (value > def.max) {
        setBoxText(model, box, std::to_string(def.max), change);
        return;
    }
    if (value < def.min) {
        setBoxText(model, box, std::to_string(def.min), change);
        return;
    }
    if (!isHardNow(model, box.kind, box.param)) {
        switch (box.kind) {
        case kPatch: change.followUp = storePatchValue(model, box); break;
        case kMultiset: change.followUp = storeMultiValue(model, box); break;
        default: change.followUp = storeArpValue(model, box); break;
        }
        change.stored = true;
        change.storedValue = change.followUp.value;
        change.storedOnPass = pass;
        return;
    }
    // A parameter the editor may not change goes back to what was loaded,
    // not to Current.
    const std::string loadedText =
        std::to_string(model.buffers.of(box.kind).loaded[static_cast<std::size_t>(box.param)]);
    if (equalIgnoringCase(box.text, loadedText))
        return;
    model.host().showMessage({kMainFormTitle, kHardRefusal, MessageIcon::Information});
    change.refused = true;
    setBoxText(model, box, loadedText, change);
}

// Steps 1 and 2 of every store: the box's number into Current, its decode.
StoreFollowUp storeValue(AppModel& model, ValueBox& box, int kind)
{
    StoreFollowUp followUp;
    followUp.kind = kind;
    followUp.param = box.param;
    if (!holdsParam(kind, box.param))
        return followUp;
    const ParamDef& def = defOf(kind, box.param);
    followUp.value = boxNumber(box.text);
    model.buffers.of(kind).current[static_cast<std::size_t>(box.param)] = static_cast<std::int16_t>(followUp.value);
    if (box.hasDecode())
        setDecode(model, box, decodeValue(def.table, followUp.value), followUp);
    return followUp;
}

// A type parameter, found by the identifier column of its row, shows the
// other frame again when that frame holds the type's setting subsection.
void showTypeOfRow(AppModel& model, int kind, StoreFollowUp& followUp)
{
    const int id = defOf(kind, followUp.param).id;
    followUp.overlaySubsection = overlayOfTypeParam(kind, id);
    if (followUp.overlaySubsection != 0)
        showTypeChange(model, kind, followUp.frame, id);
}

}  // namespace

int boxNumber(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
        ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        negative = text[at++] == '-';
    double number = 0;
    for (; at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0; ++at)
        number = std::min(number * 10 + (text[at] - '0'), 1e6);
    if (at < text.size() && text[at] == '.') {
        double scale = 0.1;
        for (++at; at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0; ++at) {
            number += (text[at] - '0') * scale;
            scale /= 10;
        }
    }
    const long rounded = std::lround(negative ? -number : number);
    return static_cast<int>(std::clamp<long>(rounded, std::numeric_limits<std::int16_t>::min(),
                                             std::numeric_limits<std::int16_t>::max()));
}

ValueBox fillValueBox(const AppModel& model, int kind, int row, int param)
{
    ValueBox box;
    box.kind = kind;
    box.row = row;
    box.param = param;
    if (!holdsParam(kind, param))
        return box;
    const ParamDef& def = defOf(kind, param);
    const int value = model.buffers.of(kind).current[static_cast<std::size_t>(param)];
    box.text = std::to_string(value);
    box.min = def.min;
    box.max = def.max;
    if (box.hasDecode())
        box.decode = decodeValue(def.table, value);
    return box;
}

BoxChange changeValueBox(AppModel& model, ValueBox& box, const std::string& text)
{
    BoxChange change;
    setBoxText(model, box, text, change);
    return change;
}

StoreFollowUp storePatchValue(AppModel& model, ValueBox& box)
{
    AppModel::Batch batch(model);
    StoreFollowUp followUp = storeValue(model, box, kPatch);
    if (!holdsParam(kPatch, box.param))
        return followUp;
    model.changed(kBuffersChanged);
    followUp.frame = box.frame();
    showTypeOfRow(model, kPatch, followUp);
    const int shown = model.layout.frame(kPatch, followUp.frame).Subsection;
    if (isEnvelopeSubsection(shown) && model.layout.envelopeRule) {
        model.layout.envelopeRule(model, followUp.frame, shown);
        followUp.envelopeRedrawn = true;
    }
    return followUp;
}

StoreFollowUp storeMultiValue(AppModel& model, ValueBox& box)
{
    AppModel::Batch batch(model);
    StoreFollowUp followUp = storeValue(model, box, kMultiset);
    if (!holdsParam(kMultiset, box.param))
        return followUp;
    model.changed(kBuffersChanged);
    followUp.frame = box.frame();
    showTypeOfRow(model, kMultiset, followUp);
    return followUp;
}

StoreFollowUp storeArpValue(AppModel& model, ValueBox& box)
{
    const bool lengthRow = box.row == kPatternLengthRow && holdsParam(kPattern, box.param);
    const int before = lengthRow ? model.buffers.of(kPattern).current[static_cast<std::size_t>(box.param)] : 0;
    AppModel::Batch batch(model);
    StoreFollowUp followUp = storeValue(model, box, kPattern);
    if (!holdsParam(kPattern, box.param))
        return followUp;
    if (lengthRow) {
        followUp.lengthBefore = before;
        followUp.lengthAfter = followUp.value;
    }
    model.changed(kBuffersChanged);
    return followUp;
}

int spinValue(const ValueBox& box)
{
    return std::clamp(boxNumber(box.text), std::min(box.min, box.max), std::max(box.min, box.max));
}

BoxChange setSpinValue(AppModel& model, ValueBox& box, int value)
{
    // A spin control holds no value outside its limits.
    const int held = std::clamp(value, std::min(box.min, box.max), std::max(box.min, box.max));
    return changeValueBox(model, box, std::to_string(held));
}

}  // namespace quillon
