#include "banks/BankMouse.h"

#include "banks/BankView.h"
#include "shell/AppModel.h"

#include <cstdlib>

namespace quillon {

int findSelectionAnchor(const BankSelection& selection, int index)
{
    if (selection.selectionCount == 1)
        return selection.selectionSequence[1];
    int anchor = 0;
    int nearest = 127;
    for (int k = 1; k <= selection.selectionCount && k <= kBankPatches; ++k) {
        const int patch = selection.selectionSequence[static_cast<std::size_t>(k)];
        const int distance = std::abs(patch - index);
        if (distance < nearest) {
            nearest = distance;
            anchor = patch;
        }
    }
    return anchor;
}

void bankLabelMouseDown(AppModel& model, int index, int button, int shift)
{
    if (index < 0 || index >= kBankLabels)
        return;
    AppModel::Batch batch(model);
    model.bankView.lastButton = button;
    BankSelection& selection = model.banks.selection(model.bankTarget);

    if (button == kLeftButton)
        setBankLabelScheme(model, index, kSelectedScheme);
    else if (selection.selectionCount > 0)
        return;

    if ((shift & kAltKey) != 0) {
        fraBankLabelsSetUp(model, model.bankTarget, 3);
        return;
    }
    if (shift != kShiftKey || selection.selectionCount == 0)
        return;

    const int anchor = findSelectionAnchor(selection, index);
    if (anchor == index)
        return;
    if (anchor > index) {
        for (int p = index + 1; p < kBankPatches && !selection.selected(p); ++p) {
            selection.selectionFlags[static_cast<std::size_t>(p)] = -1;
            setBankLabelScheme(model, p, kSelectedScheme);
        }
    } else {
        for (int p = index - 1; p >= 0 && !selection.selected(p); --p) {
            selection.selectionFlags[static_cast<std::size_t>(p)] = -1;
            setBankLabelScheme(model, p, kSelectedScheme);
        }
    }
    bankSelectSequence(model);
}

BankClickResult bankLabelClick(AppModel& model, int index)
{
    BankClickResult result;
    if (index < 0 || index >= kBankLabels || model.mode < 0 || model.mode > 8 || !model.flags.loaded[model.mode])
        return result;
    AppModel::Batch batch(model);
    BankSelection& selection = model.banks.selection(model.bankTarget);
    auto& flag = selection.selectionFlags[static_cast<std::size_t>(index)];

    if (model.bankView.lastButton == kLeftButton) {
        flag = flag != 0 ? 0 : -1;
        setBankLabelScheme(model, index, flag != 0 ? kSelectedScheme : kUnselectedScheme);
        bankSelectSequence(model);
        return result;
    }
    if (model.bankView.lastButton != kRightButton)
        return result;

    if (selection.selectionCount == 0) {
        selection.selectionSequence[1] = static_cast<std::int16_t>(index);
        result.popup = BankPopup::Popup1;
        result.reorderItemsEnabled = false;
    } else if (selection.selectionCount == 1) {
        const int old = selection.selectionSequence[1];
        if (old != index) {
            if (old >= 0 && old < kBankPatches) {
                selection.selectionFlags[static_cast<std::size_t>(old)] = 0;
                setBankLabelScheme(model, old, kUnselectedScheme);
            }
            selection.selectionSequence[1] = static_cast<std::int16_t>(index);
        }
        result.popup = BankPopup::Popup1;
        result.reorderItemsEnabled = true;
    } else {
        hideSelectionTools(model);
        result.popup = BankPopup::Popup2;
    }
    model.bankView.popup1ReorderItemsEnabled = result.reorderItemsEnabled;
    return result;
}

}  // namespace quillon
