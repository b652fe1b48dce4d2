#include "editors/ValueNote.h"

#include "editors/MultiSelect.h"
#include "editors/TimbreCaption.h"
#include "editors/ValueBox.h"
#include "files/PeFile.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

constexpr int kDestinationTable = 11;
constexpr int kFirstTimbreTable = 92;  // patch bank, patch number, reserve voice
constexpr int kLastTimbreTable = 94;

}  // namespace

std::string showParamName(const AppModel& model, int value)
{
    return peParamName(model, value);
}

ValueNote showValueNote(AppModel& model, const ValueBox& box)
{
    ValueNote note;
    if (model.mode != kPatch && model.mode != kMultiset)
        return note;
    if (box.kind != kPatch && box.kind != kMultiset)
        return note;
    const auto& t = paramTables();
    const auto& rows = box.kind == kPatch ? t.patch : t.multi;
    if (box.param < 1 || box.param >= static_cast<int>(rows.size()))
        return note;
    const int table = rows[static_cast<std::size_t>(box.param)].table;
    if (table == kDestinationTable) {
        note.kind = ValueNoteKind::Destination;
        note.text = showParamName(model, boxNumber(box.text));
        model.host().setMessage(note.text, StatusColour::Destination);
    } else if (table >= kFirstTimbreTable && table <= kLastTimbreTable && box.kind == kMultiset) {
        note.timbre = timbreOfParam(box.param);
        if (refreshTimbreOfParam(model, box.param))
            note.kind = ValueNoteKind::TimbreCaption;
    }
    return note;
}

}  // namespace quillon
