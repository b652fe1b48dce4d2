#include "editors/ArpRowEdit.h"

#include "editors/ArpScreen.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

bool isArpRow(int row) { return row >= 1 && row <= kArpParamRows; }

}  // namespace

BoxChange editArpRow(AppModel& model, int row, const std::function<BoxChange(AppModel&, ValueBox&)>& gesture)
{
    ArpScreenView& view = model.arpScreen;
    if (!isArpRow(row) || !view.setUp)
        return {};
    AppModel::Batch batch(model);
    ValueBox& box = view.rows[static_cast<std::size_t>(row)];
    const ValueBox before = box;
    const BoxChange change = gesture(model, box);
    if (box.text != before.text || box.decode != before.decode)
        model.changed(kPatternRowsChanged);
    if (change.stored && change.followUp.changesPatternLength())
        arpShowGrid(model, true);
    return change;
}

BoxChange changeArpRow(AppModel& model, int row, const std::string& text)
{
    return editArpRow(model, row, [&text](AppModel& m, ValueBox& box) { return changeValueBox(m, box, text); });
}

void showLengthRow(AppModel& model)
{
    const int length = patternLength(model.buffers.of(kPattern).current);
    changeArpRow(model, kPatternLengthRow, std::to_string(length));
}

}  // namespace quillon
