#include "editors/Navigation.h"

#include "editors/Frames.h"
#include "editors/ScreenLayout.h"
#include "files/SystemSettingsFile.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

#include <charconv>

namespace quillon {

namespace {

constexpr int kTreeSections = 32;
constexpr int kTreeSubsections = 50;
constexpr int kLastFixedMultiGroup = 4;  // groups above it are the timbres

// The setting subsections, whose node and favourite follow the type in force.
bool isPatchOverlay(int subsection) { return !overlayCaption(kPatch, subsection).empty(); }

// "S" and a section number, "SS" and a subsection number.
std::string nodeKey(std::string_view prefix, int number)
{
    std::string key(prefix);
    key += std::to_string(number);
    return key;
}

std::vector<TreeNode> buildTree()
{
    const ParamTables& t = paramTables();
    std::vector<TreeNode> nodes;
    for (int s = 1; s <= kTreeSections; ++s)
        nodes.push_back({nodeKey("S", s), "", t.patchSections[static_cast<std::size_t>(s)].name, true});
    for (int ss = 1; ss <= kTreeSubsections; ++ss) {
        const SubSectionDef& sub = t.patchSubsections[static_cast<std::size_t>(ss)];
        const SectionDef& sect = t.patchSections[static_cast<std::size_t>(sub.sect)];
        if (!isPatchOverlay(ss) && (sub.id == sect.id || sub.firstParam == 0))
            continue;
        nodes.push_back({nodeKey("SS", ss), nodeKey("S", sub.sect), sub.name, false});
    }
    return nodes;
}

// The number behind a prefix such as "SS12"; 0 when there is none.
int numberAfter(std::string_view key, std::string_view prefix)
{
    if (key.substr(0, prefix.size()) != prefix)
        return 0;
    const std::string_view digits = key.substr(prefix.size());
    int n = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), n);
    return error == std::errc() && end == digits.data() + digits.size() ? n : 0;
}

// Positions of a group, wrapped at both ends.
int stepPosition(int& position, const GroupDef& group, int delta)
{
    if (position < 1)
        position = group.first;
    position += delta;
    if (position < group.first)
        position = group.last;
    else if (position > group.last)
        position = group.first;
    return position;
}

void storeFavourites(AppModel& model)
{
    const auto& slots = model.layout.nav.favourites;
    for (std::size_t i = 0; i < slots.size(); ++i)
        model.settings.favourites[i] = slots[i].subsection;
    model.changed(kNavigationChanged);
}

bool validSlot(int slot) { return slot >= 0 && slot < kFavouriteSlots; }

}  // namespace

const std::vector<TreeNode>& sectionTree()
{
    static const std::vector<TreeNode> tree = buildTree();
    return tree;
}

void clickTreeNode(AppModel& model, std::string_view key)
{
    const int subsection = numberAfter(key, "SS");
    const int section = subsection == 0 ? numberAfter(key, "S") : 0;
    if (subsection < 1 && section < 1)
        return;
    AppModel::Batch batch(model);
    const int frame = fnFrame(model, kPatch);
    fraPatchHeaders(model, frame, section, subsection);
}

void clickGroup(AppModel& model, int group)
{
    const GroupDef def = patchGroup(group);
    if (def.first == 0)
        return;
    AppModel::Batch batch(model);
    NavigationState& nav = model.layout.nav;
    nav.fraSubSections = def.first != def.last;
    nav.lblGroupSelected = std::string(def.caption);
    model.changed(kNavigationChanged);
    stepGroup(model, group, 0);
}

void stepGroup(AppModel& model, int group, int delta)
{
    NavigationState& nav = model.layout.nav;
    if (group == -1)
        group = nav.GroupSelected;
    const GroupDef def = patchGroup(group);
    if (def.first == 0)
        return;
    AppModel::Batch batch(model);
    nav.GroupSelected = group;
    const int position = stepPosition(nav.GroupPos[static_cast<std::size_t>(group)], def, delta);
    nav.boldGroup = group;
    model.changed(kNavigationChanged);
    const int frame = fnFrame(model, kPatch);
    fraPatchHeaders(model, frame, 0, patchGroupTarget(group, position));
}

void clickSubSectionArrow(AppModel& model, int delta)
{
    if (model.layout.parts.fraPatchGroup)
        stepGroup(model, -1, delta);
}

void stepMultiGroup(AppModel& model, int group, int delta)
{
    NavigationState& nav = model.layout.nav;
    if (group == -1)
        group = nav.MultiGroupSelected;
    const GroupDef def = multiGroup(group);
    if (def.first == 0)
        return;
    AppModel::Batch batch(model);
    nav.MultiGroupSelected = group;
    const int position = stepPosition(nav.MultiGroupPos[static_cast<std::size_t>(group)], def, delta);
    if (group > kLastFixedMultiGroup) {
        const bool onFirstPage = position == def.first;
        for (int timbre = kLastFixedMultiGroup + 1; timbre < kMultiGroups; ++timbre) {
            const GroupDef pages = multiGroup(timbre);
            nav.MultiGroupPos[static_cast<std::size_t>(timbre)] = onFirstPage ? pages.first : pages.last;
        }
    }
    nav.boldMultiGroup = group;
    model.changed(kNavigationChanged);
    const int frame = fnFrame(model, kMultiset);
    fraMultiHeaders(model, frame, 0, position);
}

void clickMultiSectArrow(AppModel& model, int delta)
{
    if (model.layout.parts.fraMultiSelect)
        stepMultiGroup(model, -1, delta);
}

void trailAdd(AppModel& model, int frame)
{
    NavigationState& nav = model.layout.nav;
    const int subsection = model.layout.frame(kPatch, frame).Subsection;
    if (nav.TrailSkip) {
        nav.TrailSkip = false;
        return;
    }
    const bool current = frame == model.layout.CurrentFrame;
    if (current && nav.Trail[static_cast<std::size_t>(nav.TrailCount)] == subsection) {
        nav.TrailPos = nav.TrailCount;
        model.changed(kNavigationChanged);
        return;
    }
    if (!current)
        return;
    if (nav.TrailCount >= kTrailLimit) {
        for (int i = 1; i < kTrailLimit; ++i)
            nav.Trail[static_cast<std::size_t>(i)] = nav.Trail[static_cast<std::size_t>(i + 1)];
    } else {
        ++nav.TrailCount;
    }
    nav.Trail[static_cast<std::size_t>(nav.TrailCount)] = subsection;
    nav.TrailPos = nav.TrailCount;
    model.changed(kNavigationChanged);
}

void trailMove(AppModel& model, int direction)
{
    ScreenLayout& layout = model.layout;
    NavigationState& nav = layout.nav;
    // The trail holds places of the patch screen: on another screen back and
    // forward would put patch subsections into its frames.
    if (model.mode != kPatch)
        return;
    if (layout.patchFrames[1].Subsection == 0 && layout.patchFrames[2].Subsection == 0)
        return;
    if (direction == -1) {
        if (nav.TrailPos < 2)
            return;
        --nav.TrailPos;
    } else if (direction == 1) {
        if (nav.TrailPos >= nav.TrailCount)
            return;
        ++nav.TrailPos;
    } else {
        return;
    }
    AppModel::Batch batch(model);
    model.changed(kNavigationChanged);
    const int frame = fnFrame(model, kPatch);
    // Set only now: the move of frame 1 to frame 2 in "Frame change L to R"
    // must not use it up.
    nav.TrailSkip = true;
    fraPatchHeaders(model, frame, 0, nav.Trail[static_cast<std::size_t>(nav.TrailPos)]);
}

bool dropOnFavourite(AppModel& model, int slot, std::string_view sourceCaption)
{
    if (!validSlot(slot) || model.mode != kPatch)
        return false;
    const ScreenLayout& layout = model.layout;
    int frame = 0;
    if (sourceCaption == layout.frames[1].label)
        frame = 1;
    else if (sourceCaption == layout.frames[2].label)
        frame = 2;
    const int subsection = frame != 0 ? layout.patchFrames[static_cast<std::size_t>(frame)].Subsection : 0;
    if (subsection == 0)
        return false;
    Favourite& favourite = model.layout.nav.favourites[static_cast<std::size_t>(slot)];
    // A setting subsection keeps its fixed caption, so that the favourite
    // still fits when the type changes.
    favourite.caption = isPatchOverlay(subsection) ? favouriteCaption(subsection)
                                                   : layout.frames[static_cast<std::size_t>(frame)].label;
    favourite.subsection = subsection;
    storeFavourites(model);
    return true;
}

void clickFavourite(AppModel& model, int slot, SlotClick click)
{
    if (!validSlot(slot) || !click.left || click.ctrl || click.alt)
        return;
    auto& slots = model.layout.nav.favourites;
    if (!click.shift) {
        const int subsection = slots[static_cast<std::size_t>(slot)].subsection;
        if (subsection <= 0)
            return;
        AppModel::Batch batch(model);
        const int frame = fnFrame(model, kPatch);
        fraPatchHeaders(model, frame, 0, subsection);
        return;
    }
    slots[static_cast<std::size_t>(slot)] = {};
    for (std::size_t i = 0; i + 1 < slots.size(); ++i) {
        if (slots[i].subsection == 0) {
            slots[i] = slots[i + 1];
            slots[i + 1] = {};
        }
    }
    storeFavourites(model);
}

void applyStartUpView(AppModel& model)
{
    SystemSettings& s = model.settings;
    const bool stored = s.takeStoredView;
    const int frameMode = stored ? s.storedFrameMode : 1;
    setFrameMode(model, frameMode >= 1 && frameMode <= 3 ? frameMode : 1);
    for (int k = 1; k <= 5; ++k) {
        const int showMode = stored ? s.storedShowMode[static_cast<std::size_t>(k)] : 1;
        s.showMode[static_cast<std::size_t>(k)] = showMode == 2 ? 2 : 1;
    }
    setShowMode(model, s.showMode[1]);
    auto& slots = model.layout.nav.favourites;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const int subsection = s.favourites[i];
        slots[i] = subsection > 0 ? Favourite{favouriteCaption(subsection), subsection} : Favourite{};
    }
    storeFavourites(model);
}

}  // namespace quillon
