#include "editors/Frames.h"

#include "banks/BankView.h"
#include "editors/ArpScreen.h"
#include "editors/ItemStatus.h"
#include "editors/MultiSelect.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"
#include "model/ValueDecoder.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <charconv>

namespace quillon {

namespace {

bool validFrame(int frame) { return frame == 1 || frame == 2; }

template <typename Entry>
const Entry* entryAt(const std::vector<Entry>& entries, int index)
{
    return index >= 1 && index < static_cast<int>(entries.size()) ? &entries[static_cast<std::size_t>(index)]
                                                                    : nullptr;
}

// The tables of the patch or the multiset.
struct KindTables {
    const std::vector<ParamDef>& rows;
    const std::vector<SectionDef>& sections;
    const std::vector<SubSectionDef>& subsections;
    const std::vector<std::int16_t>& subsectionIndex;
};

KindTables tablesOf(int kind)
{
    const ParamTables& t = paramTables();
    if (kind == kMultiset)
        return {t.multi, t.multiSections, t.multiSubsections, t.multiSubsectionIndex};
    return {t.patch, t.patchSections, t.patchSubsections, t.patchSubsectionIndex};
}

std::vector<std::int16_t>& hardOf(AppModel& model, int kind)
{
    return kind == kMultiset ? model.layout.multiHard : model.layout.patchHard;
}

// Step 7 of filling a frame: its labels take their colours once.
void colourFrame(AppModel& model, int frame)
{
    ScreenLayout& layout = model.layout;
    if (layout.FrameColoured[static_cast<std::size_t>(frame)])
        return;
    layout.FrameColoured[static_cast<std::size_t>(frame)] = true;
    layout.parts.fraBackForward = true;
    model.changed(kNavigationChanged);
}

void setCaptionBold(ScreenLayout& layout, int frameMode)
{
    layout.frames[1].captionBold = frameMode != 3;
    layout.frames[2].captionBold = frameMode == 3;
}

// A spin control as the row sets it: a new range pulls the value within it.
void setSpinRange(RowView& row, int min, int max)
{
    row.spinMin = min;
    row.spinMax = std::max(min, max);
    row.value = std::clamp(row.value, row.spinMin, row.spinMax);
}

void fillRow(RowView& row, const ParamDef& def, int value, bool hard)
{
    row.name = def.name;
    setSpinRange(row, kSpinWideMin, kSpinWideMax);
    row.value = std::clamp(value, row.spinMin, row.spinMax);
    setSpinRange(row, def.min, def.max);
    char digits[8];
    const auto end = std::to_chars(digits, digits + sizeof digits, row.value).ptr;
    row.valueText.assign(digits, end);
    row.decode = decodeValue(def.table, row.value);
    row.visible = true;
    row.hard = hard;
}

void refreshRows(AppModel& model, int kind, int frame, int first, int last)
{
    if (!validFrame(frame))
        return;
    ScreenLayout& layout = model.layout;
    FrameState& state = layout.frame(kind, frame);
    FrameView& view = layout.frames[static_cast<std::size_t>(frame)];
    const int base = frame == 2 ? kFrameRows : 0;
    const KindTables tables = tablesOf(kind);
    last = std::min(last, static_cast<int>(tables.rows.size()) - 1);

    const int count = last + 1 - first;
    const int n = count < 1 || first < 1 ? 0 : std::min(count, kFrameRows);
    std::vector<std::int16_t>& hard = hardOf(model, kind);
    std::array<std::int16_t, kFrameRows> saved{};
    if (n > 0) {
        state.RowFirst = static_cast<std::int16_t>(first);
        state.RowLast = static_cast<std::int16_t>(first + n - 1);
        // A Hard parameter must show its value without the refusal that a
        // value box gives when its text changes.
        for (int r = 0; r < n; ++r) {
            saved[static_cast<std::size_t>(r)] = hard[static_cast<std::size_t>(first + r)];
            hard[static_cast<std::size_t>(first + r)] = 0;
        }
        const ParamValues& current = model.buffers.of(kind).current;
        for (int r = 0; r < n; ++r) {
            const int p = first + r;
            layout.RowParam[static_cast<std::size_t>(base + r)] = static_cast<std::int16_t>(p);
            fillRow(layout.rows[static_cast<std::size_t>(base + r)], tables.rows[static_cast<std::size_t>(p)],
                    current[static_cast<std::size_t>(p)], saved[static_cast<std::size_t>(r)] != 0);
        }
        view.upEnabled = state.RowFirst > state.SubFirst;
        view.downEnabled = state.RowLast < state.SubLast;
    } else {
        view.upEnabled = false;
        view.downEnabled = false;
    }
    for (int r = n; r < kFrameRows; ++r)
        layout.rows[static_cast<std::size_t>(base + r)].visible = false;

    colourFrame(model, frame);
    view.visible = true;
    clearStatusMessages(model);
    // Told outside a batch, the screen sets its boxes while the flags are
    // still clear, so that a change procedure run by that finds nothing to
    // refuse.
    model.changed(frameChangedBit(frame));
    for (int r = 0; r < n; ++r)
        hard[static_cast<std::size_t>(first + r)] = saved[static_cast<std::size_t>(r)];
}

// Works out what a frame is to show: captions, range and the subsection it
// then holds. False when the numbers name nothing.
struct Heading {
    std::string caption;
    std::string label;
    int first = 0;
    int last = 0;
    int subsection = 0;
    int section = 0;
};

bool headingOf(const AppModel& model, int kind, int section, int subsection, Heading& h)
{
    const KindTables t = tablesOf(kind);
    const ParamValues& current = model.buffers.of(kind).current;
    const std::string_view overlay = overlayCaption(kind, subsection);

    // A subsection with no rows of its own that stands for its section (a
    // mixer's, a model's) shows that section, as its tree node does.
    if (subsection != 0 && overlay.empty()) {
        const SubSectionDef* sub = entryAt(t.subsections, subsection);
        if (!sub)
            return false;
        const SectionDef* parent = entryAt(t.sections, sub->sect);
        if (sub->firstParam == 0 && parent && parent->id == sub->id) {
            section = sub->sect;
            subsection = 0;
        }
    }

    if (subsection == 0) {
        const SectionDef* sect = entryAt(t.sections, section);
        if (!sect)
            return false;
        const int id = sect->id;
        h.subsection = id >= 0 && id < static_cast<int>(t.subsectionIndex.size())
                           ? t.subsectionIndex[static_cast<std::size_t>(id)]
                           : 0;
        h.section = section;
        h.caption = sect->name;
        h.label = sect->name;
        h.first = sect->firstParam;
        h.last = sect->lastParam;
        // The section's node stands for its subsection of the same
        // identifier, and shows that subsection's rows, as its group and the
        // trail show them; only a section whose subsection has no rows of its
        // own shows all of its rows.
        const SubSectionDef* same = entryAt(t.subsections, h.subsection);
        if (same && same->firstParam != 0) {
            h.first = kind == kMultiset ? firstMultiParamOfSubsection(h.subsection, current)
                                        : firstParamOfSubsection(h.subsection, current);
            h.last = kind == kMultiset ? lastMultiParamOfSubsection(h.subsection, current)
                                       : lastParamOfSubsection(h.subsection, current);
        }
        return true;
    }

    h.subsection = subsection;
    if (!overlay.empty()) {
        const int s = kind == kMultiset ? multiSectionOfSubsection(subsection, current)
                                        : sectionOfSubsection(subsection, current);
        const SectionDef* typeSection = entryAt(t.sections, s);
        h.caption = std::string(overlay);
        h.label = typeSection ? typeSection->name : std::string();
    } else {
        const SubSectionDef* sub = entryAt(t.subsections, subsection);
        const SectionDef* parent = entryAt(t.sections, sub->sect);
        h.caption = parent ? parent->name : std::string();
        h.label = sub->name;
    }
    h.first = kind == kMultiset ? firstMultiParamOfSubsection(subsection, current)
                                : firstParamOfSubsection(subsection, current);
    h.last = kind == kMultiset ? lastMultiParamOfSubsection(subsection, current)
                               : lastParamOfSubsection(subsection, current);
    return true;
}

void showHeaders(AppModel& model, int kind, int frame, int section, int subsection)
{
    if ((section == 0 && subsection == 0) || !validFrame(frame))
        return;
    Heading h;
    if (!headingOf(model, kind, section, subsection, h))
        return;

    AppModel::Batch batch(model);
    ScreenLayout& layout = model.layout;
    setCaptionBold(layout, model.settings.frameMode);
    FrameView& view = layout.frames[static_cast<std::size_t>(frame)];
    view.caption = std::move(h.caption);
    view.label = std::move(h.label);
    if (h.first < 16)
        h.first = kFirstRowParam;

    FrameState& state = layout.frame(kind, frame);
    state.SubFirst = static_cast<std::int16_t>(h.first);
    state.SubLast = static_cast<std::int16_t>(h.last);
    state.Subsection = static_cast<std::int16_t>(h.subsection);
    state.Section = static_cast<std::int16_t>(h.section);

    if (kind == kPatch)
        trailAdd(model, frame);
    layout.menus.mnuCopySpecial = true;
    layout.menus.mnuPasteSpecial = true;
    model.changed(kNavigationChanged);
    if (kind == kPatch && layout.envelopeRule)
        layout.envelopeRule(model, frame, h.subsection);
    refreshRows(model, kind, frame, h.first, h.last);
}

// Shows again in `frame` what a frame state holds: the whole section if the
// frame was given one, else its subsection.
void showAgain(AppModel& model, int kind, int frame, FrameState shown)
{
    if (shown.Section != 0)
        showHeaders(model, kind, frame, shown.Section, 0);
    else
        showHeaders(model, kind, frame, 0, shown.Subsection);
}

void displayRefresh(AppModel& model, int kind)
{
    if (model.mode != kind)
        return;
    AppModel::Batch batch(model);
    for (int frame = 1; frame <= 2; ++frame) {
        const FrameState& state = model.layout.frame(kind, frame);
        if (state.Subsection != 0)
            showAgain(model, kind, frame, state);
    }
}

void refreshShownRows(AppModel& model, int frame)
{
    const int kind = model.mode;
    const FrameState& state = model.layout.frame(kind, frame);
    refreshRows(model, kind, frame, state.RowFirst, state.RowLast);
}

bool showsFrames(int mode) { return mode == kPatch || mode == kMultiset; }

}  // namespace

void fraPatchHeaders(AppModel& model, int frame, int section, int subsection)
{
    showHeaders(model, kPatch, frame, section, subsection);
}

void fraMultiHeaders(AppModel& model, int frame, int section, int subsection)
{
    showHeaders(model, kMultiset, frame, section, subsection);
}

void refreshParamRows(AppModel& model, int frame, int first, int last)
{
    refreshRows(model, kPatch, frame, first, last);
}

void refreshMultiRows(AppModel& model, int frame, int first, int last)
{
    refreshRows(model, kMultiset, frame, first, last);
}

void scrollRowsDown(AppModel& model, int frame, int n)
{
    if (!validFrame(frame) || !showsFrames(model.mode))
        return;
    FrameState& s = model.layout.frame(model.mode, frame);
    if (s.Subsection == 0 || s.RowLast >= s.SubLast)
        return;
    if (s.SubLast - s.RowLast > n) {
        s.RowFirst = static_cast<std::int16_t>(s.RowFirst + n);
        s.RowLast = static_cast<std::int16_t>(s.RowLast + n);
    } else {
        s.RowLast = s.SubLast;
        s.RowFirst = static_cast<std::int16_t>(s.SubLast - (kFrameRows - 1));
    }
    refreshShownRows(model, frame);
}

void scrollRowsUp(AppModel& model, int frame, int n)
{
    if (!validFrame(frame) || !showsFrames(model.mode))
        return;
    FrameState& s = model.layout.frame(model.mode, frame);
    if (s.Subsection == 0 || s.RowFirst <= s.SubFirst)
        return;
    if (s.RowFirst - s.SubFirst > n) {
        s.RowFirst = static_cast<std::int16_t>(s.RowFirst - n);
        s.RowLast = static_cast<std::int16_t>(s.RowLast - n);
    } else {
        s.RowFirst = s.SubFirst;
        s.RowLast = static_cast<std::int16_t>(s.SubFirst + (kFrameRows - 1));
    }
    refreshShownRows(model, frame);
}

int fnFrame(AppModel& model, int kind)
{
    switch (model.settings.frameMode) {
    case 2: return 1;
    case 3: return 2;
    default: break;
    }
    // "Frame change L to R": the new subsection comes in at the left and the
    // one there moves to the right.
    AppModel::Batch batch(model);
    const FrameState left = model.layout.frame(kind, 1);
    if (left.Subsection != 0)
        showAgain(model, kind, 2, left);
    colourFrame(model, 1);
    return 1;
}

void fraPatchDisplayRefresh(AppModel& model) { displayRefresh(model, kPatch); }

void fraMultiDisplayRefresh(AppModel& model) { displayRefresh(model, kMultiset); }

void showTypeChange(AppModel& model, int kind, int frame, int param)
{
    if (model.mode != kind || !validFrame(frame))
        return;
    const int overlay = overlayOfTypeParam(kind, param);
    const int other = frame == 1 ? 2 : 1;
    if (overlay != 0 && model.layout.frame(kind, other).Subsection == overlay)
        showHeaders(model, kind, other, 0, overlay);
}

void setUpScreenContent(AppModel& model, int previousMode)
{
    AppModel::Batch batch(model);
    ScreenLayout& layout = model.layout;
    ScreenParts& parts = layout.parts;
    ScreenMenus& menus = layout.menus;
    const int mode = model.mode;

    if (mode != previousMode) {
        switch (previousMode) {
        case kPatch:
            parts.trvSection = false;
            parts.fraPatchGroup = false;
            break;
        case kPatchBankA: parts.fraBank = mode == kPatchBankB && parts.fraBank; break;
        case kPatchBankB: parts.fraBank = mode == kPatchBankA && parts.fraBank; break;
        case kMultiset: parts.fraMultiSelect = false; break;
        case kPattern:
            parts.fraArpSteps = false;
            parts.fraArpParams = false;
            parts.fraArpSelect = false;
            break;
        default: break;
        }
        if (previousMode == kPatch || previousMode == kMultiset) {
            layout.frames[1].visible = false;
            layout.frames[2].visible = false;
            parts.fraEnvelope = false;
            model.changed(kFrame1Changed | kFrame2Changed);
        }
        if (previousMode == kPatch || previousMode == kMultiset || previousMode == kPattern) {
            menus.mnuCopySpecial = false;
            menus.mnuPasteSpecial = false;
        }
    }

    switch (mode) {
    case kPatch:
    case kMultiset: {
        menus.mnuSubsection = true;
        const bool hasSubsection = layout.frame(mode, layout.CurrentFrame).Subsection != 0;
        menus.mnuCopySpecial = hasSubsection;
        menus.mnuPasteSpecial = hasSubsection;
        if (mode == kPatch) {
            const bool groups = model.settings.showMode[1] == 2;
            parts.trvSection = !groups;
            parts.fraPatchGroup = groups;
        } else {
            parts.fraMultiSelect = true;
            setUpMultiSelect(model);
        }
        for (int frame = 1; frame <= 2; ++frame) {
            const FrameState state = layout.frame(mode, frame);
            if (mode == kPatch && layout.EGShown[static_cast<std::size_t>(frame)]) {
                parts.fraEnvelope = true;
            } else if (state.Subsection == 0) {
                layout.frames[static_cast<std::size_t>(frame)].visible = false;
                model.changed(frameChangedBit(frame));
            } else {
                showAgain(model, mode, frame, state);
            }
        }
        break;
    }
    case kPatchBankA:
    case kPatchBankB:
        menus.mnuSubsection = false;
        // The grid of the bank, with each bank's own selection.
        fraBankSetUp(model);
        fraBankLabelsSetUp(model, mode, 1);
        parts.fraBank = true;
        break;
    case kPattern:
        menus.mnuSubsection = false;
        menus.mnuCopySpecial = false;
        menus.mnuPasteSpecial = false;
        parts.fraArpSelect = true;
        parts.fraArpParams = true;
        parts.fraArpSteps = true;
        setUpPatternScreen(model);
        break;
    default: break;
    }
    model.changed(kNavigationChanged);
}

void setFrameMode(AppModel& model, int frameMode)
{
    if (frameMode < 1 || frameMode > 3)
        return;
    model.settings.frameMode = frameMode;
    model.layout.CurrentFrame = frameMode == 3 ? 2 : 1;
    setCaptionBold(model.layout, frameMode);
    model.changed(kNavigationChanged);
}

void setShowMode(AppModel& model, int showMode)
{
    if (showMode != 1 && showMode != 2)
        return;
    model.settings.showMode[1] = showMode;
    if (model.mode == kPatch) {
        model.layout.parts.trvSection = showMode == 1;
        model.layout.parts.fraPatchGroup = showMode == 2;
    }
    model.changed(kNavigationChanged);
}

bool toolbarButtonDown(const AppModel& model, std::string_view key)
{
    const int frameMode = model.settings.frameMode;
    const bool groups = model.settings.showMode[1] == 2;
    if (key == "flr")
        return frameMode != 2 && frameMode != 3;
    if (key == "fla")
        return frameMode == 2;
    if (key == "fra")
        return frameMode == 3;
    if (key == "spst")
        return !groups;
    if (key == "spsg")
        return groups;
    return false;
}

bool clickFrameToolbarButton(AppModel& model, std::string_view key)
{
    if (key == "flr")
        setFrameMode(model, 1);
    else if (key == "fla")
        setFrameMode(model, 2);
    else if (key == "fra")
        setFrameMode(model, 3);
    else if (key == "spst")
        setShowMode(model, 1);
    else if (key == "spsg")
        setShowMode(model, 2);
    else
        return false;
    return true;
}

}  // namespace quillon
