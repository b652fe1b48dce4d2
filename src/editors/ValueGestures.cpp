#include "editors/ValueGestures.h"

#include "model/Kind.h"
#include "shell/AppModel.h"

#include <string>

namespace quillon {

namespace {

constexpr int kBigSteps[] = {20, 10, 5, 1};

bool onPatchOrMultiScreen(const AppModel& model, const ValueBox& box)
{
    return (model.mode == kPatch || model.mode == kMultiset) && box.kind == model.mode;
}

bool holdsValue(const ValueBox& box, int kind)
{
    return box.param >= 1 && box.param <= paramCount(kind);
}

}  // namespace

TextSelection focusSelection(const ValueBox& box)
{
    return {0, static_cast<int>(box.text.size())};
}

int doubleClickedValue(int value, int min, int max)
{
    if (value < 0)
        return 0;
    return value < max ? max : min;
}

BoxChange doubleClickValueBox(AppModel& model, ValueBox& box)
{
    return changeValueBox(model, box, std::to_string(doubleClickedValue(boxNumber(box.text), box.min, box.max)));
}

BoxChange doubleClickParamName(AppModel& model, ValueBox& box)
{
    if (!onPatchOrMultiScreen(model, box) || !holdsValue(box, box.kind))
        return {};
    return setSpinValue(model, box, model.buffers.of(box.kind).user[static_cast<std::size_t>(box.param)]);
}

BoxChange doubleClickParamDecode(AppModel& model, ValueBox& box)
{
    const bool patternRow = box.kind == kPattern && model.mode == kPattern && box.hasDecode();
    if ((!onPatchOrMultiScreen(model, box) && !patternRow) || !holdsValue(box, box.kind))
        return {};
    return setSpinValue(model, box, model.buffers.of(box.kind).loaded[static_cast<std::size_t>(box.param)]);
}

int spinStep(int value, int min, int max, bool up)
{
    if (up)
        return value < max ? value + 1 : value;
    return value > min ? value - 1 : value;
}

BoxChange clickSpin(AppModel& model, ValueBox& box, bool up)
{
    return setSpinValue(model, box, spinStep(spinValue(box), box.min, box.max, up));
}

bool bigStepGoesUp(int yTwips)
{
    return yTwips < kSpinArrowHeight;
}

int bigStep(int value, int min, int max, bool up)
{
    for (const int step : kBigSteps) {
        if (up && value + step <= max)
            return value + step;
        if (!up && value - step >= min)
            return value - step;
    }
    return value;
}

BoxChange rightPressSpin(AppModel& model, ValueBox& box, int yTwips)
{
    return setSpinValue(model, box, bigStep(spinValue(box), box.min, box.max, bigStepGoesUp(yTwips)));
}

}  // namespace quillon
