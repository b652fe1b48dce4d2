#include "editors/ModSources.h"

#include "editors/Frames.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

namespace {

// The EG node time source of EG1 to EG4 and of the Amp EG: four time
// intensities follow it.
constexpr int kNodeTimeSources[] = {45, 64, 83, 102, 347};
// Sources followed by something that is no intensity of theirs.
constexpr int kSourcesWithoutIntensity[] = {22, 320, 329, 851, 933, 954, 991, 993, 1243, 1325};

template <std::size_t N>
bool isOneOf(const int (&list)[N], int value)
{
    return std::find(std::begin(list), std::end(list), value) != std::end(list);
}

const ParamDef* patchRow(int param)
{
    const auto& rows = paramTables().patch;
    return param >= 1 && param < static_cast<int>(rows.size()) ? &rows[static_cast<std::size_t>(param)] : nullptr;
}

// Where the blocks of the setting subsections lie in the patch table.
struct SettingBlock {
    int first;
    int last;
    int subsection;
};
constexpr SettingBlock kSettingBlocks[] = {
    {464, 754, 13},    // OSC1 settings
    {800, 1003, 38},   // FX1 settings
    {1004, 1039, 42},  // Master FX settings
    {1040, 1191, 16},  // OSC2 settings
    {755, 799, 40},    // the empty rows go with FX2, as they always have
    {1192, 1343, 40},  // FX2 settings
};

constexpr int kCommonRows = 463;
constexpr int kListedSubsections = 50;

}  // namespace

bool isModSourceTable(int table) { return table == 14 || table == 15 || table == 32 || table == 74; }

bool isModSource(int param)
{
    const ParamDef* def = patchRow(param);
    return def && isModSourceTable(def->table);
}

int intensitiesOfSource(int source)
{
    if (isOneOf(kSourcesWithoutIntensity, source))
        return 0;
    return isOneOf(kNodeTimeSources, source) ? 4 : 1;
}

void zeroIntensity(ParamValues& patch)
{
    const int count = std::min(kPatchParams, static_cast<int>(patch.size()) - 1);
    for (int p = 1; p <= count; ++p) {
        if (!isModSource(p) || patch[static_cast<std::size_t>(p)] != 0)
            continue;
        const int cleared = intensitiesOfSource(p);
        for (int i = 1; i <= cleared && p + i <= count; ++i)
            patch[static_cast<std::size_t>(p + i)] = 0;
    }
}

void zeroIntensity(AppModel& model)
{
    zeroIntensity(model.buffers.of(kPatch).current);
    model.changed(kBuffersChanged);
}

int subsectionOfPatchParam(int param)
{
    if (param >= 1 && param <= kCommonRows) {
        const ParamTables& t = paramTables();
        const int id = t.patch[static_cast<std::size_t>(param)].subSect;
        return id >= 0 && id < static_cast<int>(t.patchSubsectionIndex.size())
                   ? t.patchSubsectionIndex[static_cast<std::size_t>(id)]
                   : 0;
    }
    for (const SettingBlock& block : kSettingBlocks) {
        if (param >= block.first && param <= block.last)
            return block.subsection;
    }
    return 0;
}

void showPatchFrameAgain(AppModel& model, int frame)
{
    if (frame != 1 && frame != 2)
        return;
    const FrameState state = model.layout.patchFrames[static_cast<std::size_t>(frame)];
    if (state.Subsection == 0)
        return;
    AppModel::Batch batch(model);
    if (!overlayCaption(kPatch, state.Subsection).empty()) {
        fraPatchHeaders(model, frame, 0, state.Subsection);
        return;
    }
    refreshParamRows(model, frame, state.SubFirst, state.SubLast);
    if (model.layout.envelopeRule)
        model.layout.envelopeRule(model, frame, state.Subsection);
}

void tidyUpPatch(AppModel& model)
{
    if (model.mode != kPatch)
        return;
    MessageRequest box;
    box.title = kTidyTitle;
    box.text = kTidyQuestion;
    box.icon = MessageIcon::Question;
    box.buttons = MessageButtons::YesNo;
    if (model.host().showMessage(box) != Answer::Yes)
        return;
    AppModel::Batch batch(model);
    zeroIntensity(model);
    showPatchFrameAgain(model, model.layout.CurrentFrame);
}

std::vector<ModRow> collectModRows(const ParamValues& patch, bool selectedOnly)
{
    const ParamTables& t = paramTables();
    std::vector<ModRow> rows;
    for (int s = 1; s <= kListedSubsections; ++s) {
        const std::string_view caption = overlayCaption(kPatch, s);
        std::string section;
        std::string subsection;
        if (!caption.empty()) {
            const int typeSection = sectionOfSubsection(s, patch);
            section = std::string(caption);
            if (typeSection >= 1 && typeSection < static_cast<int>(t.patchSections.size()))
                subsection = t.patchSections[static_cast<std::size_t>(typeSection)].name;
        } else {
            const SubSectionDef& sub = t.patchSubsections[static_cast<std::size_t>(s)];
            subsection = sub.name;
            if (sub.sect >= 1 && sub.sect < static_cast<int>(t.patchSections.size()))
                section = t.patchSections[static_cast<std::size_t>(sub.sect)].name;
        }
        const int first = std::max(1, firstParamOfSubsection(s, patch));
        const int last = std::min(kPatchParams, lastParamOfSubsection(s, patch));
        for (int p = first; p <= last; ++p) {
            const ParamDef& def = t.patch[static_cast<std::size_t>(p)];
            if (!isModSourceTable(def.table))
                continue;
            const int value = patch[static_cast<std::size_t>(p)];
            if (selectedOnly && value == 0)
                continue;
            if (static_cast<int>(rows.size()) >= kModListLimit)
                return rows;
            rows.push_back({section, subsection, def.name, p, def.table, def.max, def.min, value});
        }
    }
    return rows;
}

}  // namespace quillon
