#include "editors/ParamRowEdit.h"

#include "editors/ScreenLayout.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

bool isScreenRow(int row) { return row >= 0 && row < kScreenRows; }

}  // namespace

ValueBox paramRowBox(const AppModel& model, int row)
{
    ValueBox box;
    if (!isScreenRow(row))
        return box;
    const RowView& view = model.layout.rows[static_cast<std::size_t>(row)];
    box.kind = model.mode == kMultiset ? kMultiset : kPatch;
    box.row = row;
    box.param = model.layout.RowParam[static_cast<std::size_t>(row)];
    box.text = view.valueText;
    box.min = view.spinMin;
    box.max = view.spinMax;
    box.decode = view.decode;
    return box;
}

BoxChange editParamRow(AppModel& model, int row, const std::function<BoxChange(AppModel&, ValueBox&)>& gesture)
{
    if (!isScreenRow(row))
        return {};
    AppModel::Batch batch(model);
    ValueBox box = paramRowBox(model, row);
    const BoxChange change = gesture(model, box);
    RowView& view = model.layout.rows[static_cast<std::size_t>(row)];
    if (view.valueText != box.text || view.decode != box.decode) {
        view.valueText = box.text;
        view.value = spinValue(box);
        view.decode = box.decode;
        model.changed(frameChangedBit(box.frame()));
    }
    return change;
}

BoxChange changeParamRow(AppModel& model, int row, const std::string& text)
{
    return editParamRow(model, row, [&text](AppModel& m, ValueBox& box) { return changeValueBox(m, box, text); });
}

}  // namespace quillon
