#include "editors/SubsectionActions.h"

#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/ModSources.h"
#include "files/UserFiles.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

namespace quillon {

namespace {

constexpr SubsectionItem kItems[] = {
    {"mnuSubSLoaded", "Restore Loaded", kSubSLoaded, "Subsection: Restore Loaded Settings"},
    {"mnuSubSPrevious", "Restore Previous", kSubSPrevious, "Subsection: Restore Previous Settings"},
    {"mnuSubSDefault", "Default", kSubSDefault, "Subsection: Apply Default Settings"},
    {"mnuSubSZero", "Zero", kSubSZero, "Subsection: Apply Zero Settings"},
    {"mnuSubSRandom", "Random", kSubSRandom, "Subsection: Apply Random Settings"},
    {"mnuSubSUserApply", "User", kSubSUserApply, "Subsection: Apply User Settings"},
    {"mnuSubSUserSave", "Save Setting", kSubSUserSave, "Subsection: Save User Settings"},
};

constexpr int kSubsectionHelp = 400;
constexpr int kNoUserSource = 0;  // saving writes the User buffer as it stands

// The type parameter behind a setting subsection of the patch (kind 1) or
// multiset (kind 4); 0 for any other subsection.
int typeParamOf(int kind, int subsection)
{
    struct Pair {
        int subsection;
        int param;
    };
    static constexpr Pair kPatchPairs[] = {{13, 174}, {16, 188}, {38, 359}, {40, 360}, {42, 361}};
    static constexpr Pair kMultiPairs[] = {{3, 179}, {5, 180}, {7, 181}};
    const std::span<const Pair> pairs = kind == kMultiset ? std::span<const Pair>(kMultiPairs)
                                                          : std::span<const Pair>(kPatchPairs);
    for (const Pair& p : pairs) {
        if (p.subsection == subsection)
            return p.param;
    }
    return 0;
}

std::size_t at(int param) { return static_cast<std::size_t>(param); }

void copyRange(const ParamValues& from, ParamValues& to, int first, int last)
{
    for (int p = first; p <= last; ++p)
        to[at(p)] = from[at(p)];
}

bool anyFrameShows(const AppModel& model, int kind)
{
    return model.layout.frame(kind, 1).Subsection != 0 || model.layout.frame(kind, 2).Subsection != 0;
}

void showMultiFrameAgain(AppModel& model, int frame)
{
    const FrameState state = model.layout.multiFrames[at(frame)];
    if (state.Subsection == 0)
        return;
    if (typeParamOf(kMultiset, state.Subsection) != 0)
        fraMultiHeaders(model, frame, 0, state.Subsection);
    else
        refreshMultiRows(model, frame, state.SubFirst, state.SubLast);
}

// The action on one kind's buffers; false when the frame is empty.
bool applyAction(AppModel& model, int kind, int number)
{
    const int frame = model.layout.CurrentFrame;
    const FrameState state = model.layout.frame(kind, frame);
    if (state.Subsection == 0)
        return false;
    ItemBuffers& b = model.buffers.of(kind);
    const int typeParam = typeParamOf(kind, state.Subsection);
    const int keptFirst = state.SubFirst;
    const int keptLast = state.SubLast;
    const std::vector<std::int16_t> kept(b.current.begin() + keptFirst, b.current.begin() + keptLast + 1);
    const std::int16_t keptType = typeParam != 0 ? b.current[at(typeParam)] : 0;
    int first = keptFirst;
    int last = keptLast;

    // Restoring a setting subsection brings back its type first, and with it
    // the rows of that type.
    auto restoreType = [&](const ParamValues& from) {
        if (typeParam == 0)
            return;
        b.current[at(typeParam)] = from[at(typeParam)];
        if (kind == kMultiset) {
            first = firstMultiParamOfSubsection(state.Subsection, b.current);
            last = lastMultiParamOfSubsection(state.Subsection, b.current);
        } else {
            first = firstParamOfSubsection(state.Subsection, b.current);
            last = lastParamOfSubsection(state.Subsection, b.current);
        }
    };

    switch (number) {
    case kSubSLoaded:
        restoreType(b.loaded);
        copyRange(b.loaded, b.current, first, last);
        break;
    case kSubSPrevious:
        restoreType(b.last);
        copyRange(b.last, b.current, first, last);
        break;
    case kSubSDefault: copyRange(b.defaults, b.current, first, last); break;
    case kSubSZero: {
        const auto& rows = kind == kMultiset ? paramTables().multi : paramTables().patch;
        for (int p = first; p <= last; ++p) {
            if (!isHardNow(model, kind, p))
                b.current[at(p)] = static_cast<std::int16_t>(std::max(0, static_cast<int>(rows[at(p)].min)));
        }
        break;
    }
    case kSubSRandom: {
        if (kind != kPatch)
            return false;
        std::mt19937 generator(static_cast<std::mt19937::result_type>(
            std::chrono::system_clock::now().time_since_epoch().count()));
        randomizePatchRange(b.current, first, last, model.settings.random.resetAll, generator);
        zeroIntensity(b.current);
        break;
    }
    case kSubSUserApply: copyRange(b.user, b.current, first, last); break;
    case kSubSUserSave:
        copyRange(b.current, b.user, first, last);
        if (kind == kMultiset)
            saveUserMultiFile(model, kNoUserSource);
        else
            saveUserPatchFile(model, model.settings.userFileNumber, kNoUserSource);
        break;
    default: return false;
    }

    std::copy(kept.begin(), kept.end(), b.last.begin() + keptFirst);
    if (typeParam != 0)
        b.last[at(typeParam)] = keptType;
    model.changed(kBuffersChanged);
    return true;
}

}  // namespace

std::span<const SubsectionItem> subsectionItems() { return kItems; }

std::string_view subsectionTitle(int number)
{
    for (const SubsectionItem& item : kItems) {
        if (item.number == number)
            return item.title;
    }
    return {};
}

void subsectionCommand(AppModel& model, int number)
{
    const int mode = model.mode;
    if (mode != kPatch && mode != kMultiset)
        return;
    const std::string title(subsectionTitle(number));
    if (title.empty())
        return;
    if (!anyFrameShows(model, mode)) {
        showInformation(model.host(), title, kNoCurrentSubsection, kSubsectionHelp);
        return;
    }
    if (mode == kMultiset && number == kSubSRandom) {
        showInformation(model.host(), title, kOnlyInPatchEditor, kSubsectionHelp);
        return;
    }
    AppModel::Batch batch(model);
    setUpScreen(model, mode);
    setUpSendMenu(model, mode);
    if (mode == kPatch)
        applySubsectionAction(model, number);
    else
        applyMultiSubsectionAction(model, number);
}

void applySubsectionAction(AppModel& model, int number)
{
    AppModel::Batch batch(model);
    if (applyAction(model, kPatch, number))
        showPatchFrameAgain(model, model.layout.CurrentFrame);
}

void applyMultiSubsectionAction(AppModel& model, int number)
{
    AppModel::Batch batch(model);
    if (applyAction(model, kMultiset, number))
        showMultiFrameAgain(model, model.layout.CurrentFrame);
}

int randomSubsectionValue(int value, int min, int max, int percent, double r)
{
    const double span = static_cast<double>(max - min) * percent / 100.0;
    long low = std::lround(value - span / 2.0);
    if (low < min)
        low = min;
    if (low + span > max)
        low = std::lround(max - span);
    const long chosen = std::lround(static_cast<double>(low) + (span + 1.0) * r);
    return static_cast<int>(std::min<long>(chosen, max));
}

void randomizePatchRange(ParamValues& patch, int first, int last, int percent, std::mt19937& generator)
{
    const ParamTables& t = paramTables();
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    for (int p = std::max(1, first); p <= last && p < static_cast<int>(patch.size()); ++p) {
        if (t.patchFirm[at(p)] != 0)
            continue;
        const ParamDef& def = t.patch[at(p)];
        patch[at(p)] =
            static_cast<std::int16_t>(randomSubsectionValue(patch[at(p)], def.min, def.max, percent, uniform(generator)));
    }
}

}  // namespace quillon
