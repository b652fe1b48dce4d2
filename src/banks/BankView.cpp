#include "banks/BankView.h"

#include "model/Kind.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

bool isPatchBank(int bank) { return bank == kPatchBankA || bank == kPatchBankB; }

}  // namespace

void fraBankSetUp(AppModel& model)
{
    if (model.bankView.gridMade)
        return;
    model.bankView.gridMade = true;
    model.changed(kBankViewChanged);
}

void setBankLabelScheme(AppModel& model, int index, int scheme)
{
    if (index < 0 || index >= kBankLabels)
        return;
    model.bankView.labels[static_cast<std::size_t>(index)].scheme = scheme;
    model.changed(kBankViewChanged);
}

void fraBankLabelsSetUp(AppModel& model, int bank, int state)
{
    if (!isPatchBank(bank) || state < 0 || state > 4)
        return;
    AppModel::Batch batch(model);
    BankSelection& selection = model.banks.selection(bank);
    auto& labels = model.bankView.labels;
    const bool loaded = model.flags.loaded[bank];

    if (state == 0 || state == 3)
        selection.selectionCount = 0;
    if (selection.selectionCount == 0)
        selection.selectionFlags.fill(0);
    if (state == 0 || state == 1) {
        for (int i = 0; i < kBankLabels; ++i)
            labels[static_cast<std::size_t>(i)].caption = model.banks.bankPatchName(bank, i);
    }
    if (state == 1 || state == 2) {
        for (int i = 0; i < kBankLabels; ++i) {
            const int scheme = !loaded                 ? kUnloadedScheme
                               : selection.selected(i) ? kSelectedScheme
                                                       : kUnselectedScheme;
            labels[static_cast<std::size_t>(i)].scheme = scheme;
        }
    }
    if (state == 0 || state == 3) {
        for (int i = 0; i < kBankLabels; ++i) {
            if (loaded)
                selection.selectionFlags[static_cast<std::size_t>(i)] = 0;
            labels[static_cast<std::size_t>(i)].scheme = loaded ? kUnselectedScheme : kUnloadedScheme;
        }
    }
    if (state == 4) {
        selection.selectionFlags.fill(-1);
        for (auto& label : labels)
            label.scheme = kSelectedScheme;
    }
    model.changed(kBankViewChanged);
}

void showSelectionTools(AppModel& model)
{
    model.bankView.selectionToolsShown = true;
    model.changed(kBankViewChanged);
}

void hideSelectionTools(AppModel& model)
{
    model.bankView.selectionToolsShown = false;
    model.changed(kBankViewChanged);
}

void bankSelectSequence(AppModel& model)
{
    BankSelection& selection = model.banks.selection(model.bankTarget);
    selection.selectionCount = 0;
    for (int patch = 0; patch < kBankPatches; ++patch) {
        if (selection.selected(patch)) {
            ++selection.selectionCount;
            selection.selectionSequence[static_cast<std::size_t>(selection.selectionCount)] =
                static_cast<std::int16_t>(patch);
        }
    }
    if (selection.selectionCount == 1)
        showSelectionTools(model);
    else
        hideSelectionTools(model);
}

void mnuSelectAll(AppModel& model)
{
    AppModel::Batch batch(model);
    fraBankLabelsSetUp(model, model.bankTarget, 4);
    bankSelectSequence(model);
}

void mnuDeselectAll(AppModel& model)
{
    AppModel::Batch batch(model);
    fraBankLabelsSetUp(model, model.bankTarget, 3);
    bankSelectSequence(model);
}

void setEditorFromSelection(AppModel& model, int value)
{
    AppModel::Batch batch(model);
    BankSelection& selection = model.banks.selection(model.bankTarget);
    const int patch = selection.selectionSequence[1];
    if (patch < 0 || patch >= kBankPatches)
        return;
    if (value == 0) {
        selection.selectionCount = 0;
        selection.selectionFlags[static_cast<std::size_t>(patch)] = 0;
        setBankLabelScheme(model, patch, kUnselectedScheme);
        hideSelectionTools(model);
    } else {
        selection.selectionCount = 1;
        selection.selectionFlags[static_cast<std::size_t>(patch)] = -1;
        setBankLabelScheme(model, patch, kSelectedScheme);
        showSelectionTools(model);
    }
}

}  // namespace quillon
