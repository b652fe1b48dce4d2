#include "editors/MultiSelect.h"

#include "banks/TakeFromBank.h"
#include "editors/Navigation.h"
#include "editors/TimbreCaption.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <cctype>

namespace quillon {

namespace {

// Scheme 1 for a button whose caption begins with "patch" in any case: a
// timbre that is off reads "Patch 3", and a patch so named looks the same.
// Scheme 6 for a timbre that plays a patch.
constexpr int kOffScheme = 1;
constexpr int kOnScheme = 6;

bool beginsWithPatch(const std::string& caption)
{
    static constexpr std::string_view kPatchWord = "patch";
    if (caption.size() < kPatchWord.size())
        return false;
    return std::equal(kPatchWord.begin(), kPatchWord.end(), caption.begin(), [](char word, char c) {
        return word == static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
}

std::string timbreNumberText(int t) { return "Patch " + std::to_string(t); }

// Names one timbre's button without telling anyone.
void nameTimbreButton(AppModel& model, int t)
{
    MultiSectLabel& button = model.multiSelect.sect[t + kFirstTimbreButton - 1];
    button.caption = timbreCaption(model, t);
    button.scheme = beginsWithPatch(button.caption) ? kOffScheme : kOnScheme;
}

}  // namespace

MultiSelectState::MultiSelectState()
{
    for (int i = 0; i < kFirstTimbreButton; ++i)
        sect[i].caption = std::string(multiGroup(i).caption);
    for (int t = 1; t <= kMultiTimbreCount; ++t)
        sect[t + kFirstTimbreButton - 1].caption = timbreNumberText(t);
}

MultiBankList* MultiSelectState::list(int kind)
{
    return kind == kMultiBankA ? &bankA : kind == kMultiBankB ? &bankB : nullptr;
}

const MultiBankList* MultiSelectState::list(int kind) const
{
    return kind == kMultiBankA ? &bankA : kind == kMultiBankB ? &bankB : nullptr;
}

void refreshTimbre(AppModel& model, int t)
{
    if (t < 1 || t > kMultiTimbreCount)
        return;
    nameTimbreButton(model, t);
    model.changed(kMultiSelectChanged);
}

void refreshTimbres(AppModel& model)
{
    for (int t = 1; t <= kMultiTimbreCount; ++t)
        nameTimbreButton(model, t);
    model.changed(kMultiSelectChanged);
}

bool refreshTimbreOfParam(AppModel& model, int param)
{
    const int t = timbreOfParam(param);
    if (t == 0)
        return false;
    refreshTimbre(model, t);
    return true;
}

void fillMultiBankList(AppModel& model, int kind)
{
    MultiBankList* list = model.multiSelect.list(kind);
    if (list == nullptr)
        return;
    list->names.clear();
    for (int m = 0; m < kMultisPerBank; ++m)
        list->names.push_back(model.banks.bankMultiName(kind, m));
    showMultiBankChoices(model);
}

void showMultiBankChoices(AppModel& model)
{
    const bool taken = model.takenFromBank[kMultiset];
    const int place = model.banks.lastPutMulti;
    for (const int kind : {kMultiBankA, kMultiBankB}) {
        MultiBankList* list = model.multiSelect.list(kind);
        const int first = kind == kMultiBankA ? 0 : kMultisPerBank;
        const bool fromHere = taken && place >= first && place < first + kMultisPerBank &&
                              place - first < static_cast<int>(list->names.size());
        list->listIndex = fromHere ? place - first : -1;
    }
    model.changed(kMultiSelectChanged);
}

void setUpMultiSelect(AppModel& model)
{
    AppModel::Batch batch(model);
    const int selected = model.multiMode == 1 ? kMultiBankA : model.multiMode == 2 ? kMultiBankB : 0;
    if (selected != 0 && model.flags.loaded[selected])
        fillMultiBankList(model, selected);
    showMultiBankChoices(model);
    refreshTimbres(model);
}

void clickMultiSect(AppModel& model, int index)
{
    if (index < 0 || index >= kMultiGroups)
        return;
    AppModel::Batch batch(model);
    model.labels.showLabelHighlight(kMultiset);
    model.changed(kLabelsChanged);
    MultiSelectState& state = model.multiSelect;
    const GroupDef group = multiGroup(index);
    state.sectionsVisible = group.first != group.last;
    state.sectSel.caption =
        index < kFirstTimbreButton ? state.sect[index].caption : timbreNumberText(index - kFirstTimbreButton + 1);
    model.changed(kMultiSelectChanged);
    stepMultiGroup(model, index, 0);
}

bool clickMultiBankList(AppModel& model, int kind, int listIndex)
{
    MultiBankList* list = model.multiSelect.list(kind);
    if (list == nullptr || listIndex < 0 || listIndex >= static_cast<int>(list->names.size()))
        return false;
    AppModel::Batch batch(model);
    // Taking it into the editor sets up the multi screen, which names the
    // new multiset's timbres. The lists then show where the multiset in the
    // editor came from, also after a cancel at the save prompt.
    const bool taken = takeMultiFromBank(model, kind, listIndex);
    showMultiBankChoices(model);
    return taken;
}

}  // namespace quillon
