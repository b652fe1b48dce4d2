#pragma once

#include "shell/AppObserver.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class AppModel;

// The bit of frame 1 or 2.
constexpr unsigned frameChangedBit(int frame) { return frame == 2 ? kFrame2Changed : kFrame1Changed; }

// Rows per frame: rows 0 to 14 are frame 1, rows 15 to 29 frame 2.
inline constexpr int kFrameRows = 15;
inline constexpr int kScreenRows = 2 * kFrameRows;

// While a row is filled its spin control is first opened wide, then given
// the value, then narrowed to the parameter's range, so that the range of
// the parameter the row showed before cannot clamp the new value.
inline constexpr int kSpinWideMin = -500;
inline constexpr int kSpinWideMax = 500;

// Colour schemes a frame's labels take the first time it is filled.
inline constexpr int kSubsectLabelScheme = 2;  // lblSubsect(frame)
inline constexpr int kParamNameScheme = 3;     // lblParamName
inline constexpr int kParamValueScheme = 4;    // txtParamVal
inline constexpr int kParamDecodeScheme = 5;   // lblParamDecode

// The first 16 parameters of a patch or multiset are the characters of its
// name: a frame never shows them as rows.
inline constexpr int kFirstRowParam = 17;

// The history of patch subsections holds this many.
inline constexpr int kTrailLimit = 100;

inline constexpr int kFavouriteSlots = 8;

// Tooltips of the navigation controls.
inline constexpr std::string_view kSubSectionUpTip = "Next subsection in this group";        // cmdSubSectionUp
inline constexpr std::string_view kSubSectionDownTip = "Previous subsection in this group";  // cmdSubSectionDown
inline constexpr std::string_view kTrailTip = "History trail (previously visited subsections)";  // cmdBack, cmdForward
inline constexpr std::string_view kFavouriteTip = "Press shift key & click to remove";           // lblFavSubSect

// The part of a patch or multiset that one frame shows.
struct FrameState {
    std::int16_t Subsection = 0;  // subsection shown; 0 none
    std::int16_t SubFirst = 0;    // first parameter of the subsection
    std::int16_t SubLast = 0;     // last parameter of the subsection
    std::int16_t RowFirst = 0;    // parameter in the top row
    std::int16_t RowLast = 0;     // parameter in the bottom row in use
    // The section shown whole when the frame was given a section (a tree
    // root) rather than a subsection; 0 otherwise. Showing the frame again
    // shows the whole section again, not just its first subsection.
    std::int16_t Section = 0;
};

// A frame's own controls: fraParams(frame), its caption, lblSubsect(frame)
// and the four scroll buttons.
struct FrameView {
    std::string caption;       // fraParams(frame)
    std::string label;         // lblSubsect(frame)
    bool captionBold = false;  // the frame that takes new subsections
    bool visible = false;      // fraParams(frame)
    bool upEnabled = false;    // cmdUp and cmdFastUp
    bool downEnabled = false;  // cmdDown and cmdFastDown
};

// One parameter row: lblParamName, txtParamVal with updParamVal,
// cmdSliderLink and lblParamDecode, all shown or hidden together.
// The parameter behind the row is RowParam of the layout.
struct RowView {
    std::string name;        // lblParamName
    int value = 0;           // updParamVal's value; txtParamVal shows it
    std::string valueText;   // txtParamVal
    std::string decode;      // lblParamDecode
    int spinMin = 0;         // updParamVal's range: the parameter's own
    int spinMax = 0;
    bool visible = false;    // the row is in use
    bool hard = false;       // the editor may not change the parameter
};

// The containers of frmMain that the screens share out; the frames'
// fraParams are in FrameView.
struct ScreenParts {
    bool trvSection = false;
    bool fraPatchGroup = false;
    bool fraEnvelope = false;
    bool fraBank = false;
    bool fraMultiSelect = false;
    bool fraArpSelect = false;
    bool fraArpParams = false;
    bool fraArpSteps = false;
    bool fraBackForward = false;  // cmdBack and cmdForward, shown once a frame has been filled
};

struct ScreenMenus {
    bool mnuSubsection = false;
    bool mnuCopySpecial = false;
    bool mnuPasteSpecial = false;
};

// A favourite slot, lblFavSubSect(slot).
struct Favourite {
    std::string caption;
    int subsection = 0;  // 0: empty
};

// How the user got around: groups, trail and favourites.
struct NavigationState {
    int GroupSelected = 0;                 // lblGroup last used
    std::array<int, 10> GroupPos{};        // position reached in each group; 0 until first used
    int MultiGroupSelected = 0;            // lblMultiSect last used
    std::array<int, 11> MultiGroupPos{};
    int boldGroup = -1;                    // lblGroup(i) shown bold; -1 none yet
    int boldMultiGroup = -1;               // lblMultiSect(i) shown bold; -1 none yet
    bool fraSubSections = false;           // the group arrows, hidden for a group of one
    std::string lblGroupSelected;          // the caption of the group in use

    std::array<int, kTrailLimit + 1> Trail{};  // 1 to TrailCount; entry 0 unused
    int TrailCount = 0;
    int TrailPos = 0;
    bool TrailSkip = false;

    std::array<Favourite, kFavouriteSlots> favourites;
};

// Everything the patch and multi screens show besides the values: which
// subsection each frame holds (the patch and the multi screen each keep
// their own pair), the rows, which containers and menus are on, and how the
// user navigates. The screen mirrors it.
struct ScreenLayout {
    ScreenLayout();

    std::array<FrameState, 3> patchFrames;  // frames 1 and 2 of the patch screen; entry 0 unused
    std::array<FrameState, 3> multiFrames;  // frames 1 and 2 of the multi screen

    // Shared by both screens, whose rows are the same controls.
    std::array<std::int16_t, kScreenRows> RowParam{};  // the parameter behind each row
    std::array<RowView, kScreenRows> rows;
    std::array<FrameView, 3> frames;         // entry 0 unused
    std::array<bool, 3> EGShown{};           // the envelope graph stands in frame i's place (patch only)
    std::array<bool, 3> FrameColoured{};     // frame i's labels have their colours
    int CurrentFrame = 1;                    // the frame whose subsection the menus act on

    ScreenParts parts;
    ScreenMenus menus;
    NavigationState nav;

    // The editor's Hard flags of patch and multiset, by parameter (true -1):
    // the refusal of a value box asks these. Filling a frame clears the
    // flags of its rows for the time it takes and puts them back.
    std::vector<std::int16_t> patchHard;
    std::vector<std::int16_t> multiHard;

    // The envelope graph's rule, run for the frame just given a patch
    // subsection: it keeps EGShown, parts.fraEnvelope and the other frame's
    // FrameView::visible. Empty: the graph never shows.
    std::function<void(AppModel& model, int frame, int subsection)> envelopeRule;

    FrameState& frame(int kind, int frame);
    const FrameState& frame(int kind, int frame) const;
};

// Whether the editor may not change a parameter of the patch (Kind 1) or
// multiset (Kind 4) just now. Other kinds have no Hard flags.
bool isHardNow(const AppModel& model, int kind, int param);

// The patch screen's groups, lblGroup(0..9), and the multi screen's,
// lblMultiSect(0..10): first and last position. The positions of a patch
// group are subsection numbers, except in group 9 ("Type"), whose positions
// 1 to 5 stand for the type subsections.
struct GroupDef {
    std::string_view caption;
    int first = 0;
    int last = 0;
};

inline constexpr int kPatchGroups = 10;
inline constexpr int kMultiGroups = 11;
inline constexpr int kTypeGroup = 9;

// Any index out of range gives an empty group.
GroupDef patchGroup(int index);
GroupDef multiGroup(int index);

// The subsection a position of a patch group stands for.
int patchGroupTarget(int group, int position);

// The setting subsection that follows a type parameter (174 OSC1 Setting,
// 188 OSC2, 359 FX1, 360 FX2, 361 Master FX; multi 179, 180, 181), and the
// fixed frame caption of a setting subsection; 0 and empty for others.
int overlayOfTypeParam(int kind, int param);
std::string_view overlayCaption(int kind, int subsection);

}  // namespace quillon
