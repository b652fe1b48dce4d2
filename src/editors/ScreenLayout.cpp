#include "editors/ScreenLayout.h"

#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

constexpr GroupDef kPatchGroupTable[kPatchGroups] = {
    {"Common", 1, 1},     {"EG", 2, 5},        {"LFO", 6, 9}, {"OSC", 10, 18},     {"Mixer", 19, 26},
    {"Filter", 27, 31},   {"Amplitude", 32, 35}, {"FX", 36, 43}, {"Controls", 44, 50}, {"Type", 1, 5},
};

// Group 9 counts 1 to 5 over the five type subsections.
constexpr int kTypeSubsections[] = {11, 14, 37, 39, 41};  // OSC1, OSC2, FX1, FX2, Master FX Type

// The timbres' buttons are named from the multiset, so their captions are
// not fixed here.
constexpr GroupDef kMultiFixedGroups[] = {
    {"Common", 1, 1}, {"FX", 2, 7}, {"2 Band EQ", 8, 8}, {"Controller", 9, 9}, {"Link Arpeggio", 10, 10},
};

struct Overlay {
    int param;
    int subsection;
    std::string_view caption;
};

constexpr Overlay kPatchOverlays[] = {
    {174, 13, "OSC1 Setting "},
    {188, 16, "OSC2 Setting "},
    {359, 38, "FX1 Setting "},
    {360, 40, "FX2 Setting "},
    {361, 42, "Master FX Setting "},
};

constexpr Overlay kMultiOverlays[] = {
    {179, 3, "FX1 Setting "},
    {180, 5, "FX2 Setting "},
    {181, 7, "Master FX Setting "},
};

template <std::size_t N>
const Overlay* findOverlay(const Overlay (&list)[N], int param, int subsection)
{
    for (const Overlay& o : list) {
        if ((param != 0 && o.param == param) || (subsection != 0 && o.subsection == subsection))
            return &o;
    }
    return nullptr;
}

const Overlay* overlayOf(int kind, int param, int subsection)
{
    if (kind == kPatch)
        return findOverlay(kPatchOverlays, param, subsection);
    if (kind == kMultiset)
        return findOverlay(kMultiOverlays, param, subsection);
    return nullptr;
}

}  // namespace

ScreenLayout::ScreenLayout() : patchHard(paramTables().patchHard), multiHard(paramTables().multiHard) {}

FrameState& ScreenLayout::frame(int kind, int frame)
{
    auto& set = kind == kMultiset ? multiFrames : patchFrames;
    return set[frame == 2 ? 2 : 1];
}

const FrameState& ScreenLayout::frame(int kind, int frame) const
{
    const auto& set = kind == kMultiset ? multiFrames : patchFrames;
    return set[frame == 2 ? 2 : 1];
}

bool isHardNow(const AppModel& model, int kind, int param)
{
    const std::vector<std::int16_t>* flags = kind == kPatch      ? &model.layout.patchHard
                                             : kind == kMultiset ? &model.layout.multiHard
                                                                 : nullptr;
    return flags && param >= 1 && param < static_cast<int>(flags->size()) &&
           (*flags)[static_cast<std::size_t>(param)] != 0;
}

GroupDef patchGroup(int index)
{
    if (index < 0 || index >= kPatchGroups)
        return {};
    return kPatchGroupTable[index];
}

GroupDef multiGroup(int index)
{
    if (index < 0 || index >= kMultiGroups)
        return {};
    if (index < 5)
        return kMultiFixedGroups[index];
    const int i = index - 5;
    return {"", 11 + 2 * i, 12 + 2 * i};
}

int patchGroupTarget(int group, int position)
{
    if (group != kTypeGroup)
        return position;
    return position >= 1 && position <= 5 ? kTypeSubsections[position - 1] : 0;
}

int overlayOfTypeParam(int kind, int param)
{
    const Overlay* o = param != 0 ? overlayOf(kind, param, 0) : nullptr;
    return o ? o->subsection : 0;
}

std::string_view overlayCaption(int kind, int subsection)
{
    const Overlay* o = subsection != 0 ? overlayOf(kind, 0, subsection) : nullptr;
    return o ? o->caption : std::string_view{};
}

}  // namespace quillon
