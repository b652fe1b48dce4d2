#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class AppModel;

// How the user picks what the frames show: the tree of patch sections, the
// group buttons of both screens, the trail of visited patch subsections and
// the favourite slots. The state is model.layout.nav; every operation tells
// the observers kNavigationChanged and the bits of the frames it filled.

// One node of trvSection. Roots have the key "S" and the section number and
// no parent; children "SS" and the subsection number under their section's
// root. Roots come first, all expanded; children follow in subsection order.
struct TreeNode {
    std::string key;
    std::string parentKey;  // empty for a root
    std::string text;
    bool expanded = false;
};

// The tree, built once: sections 1 to 32, and those of subsections 1 to 50
// that are not stood for by their section's node and have rows of their
// own, with the five setting subsections always.
const std::vector<TreeNode>& sectionTree();

// A click on a node: the frame for a new subsection, then the section or
// subsection in it. An unknown key does nothing.
void clickTreeNode(AppModel& model, std::string_view key);

// A click on lblGroup(group): the arrows show unless the group has one
// member, lblGroupSelected takes its caption, and the group opens at the
// subsection where the user left it.
void clickGroup(AppModel& model, int group);

// Moves within a patch group by delta (0 shows the position reached),
// wrapping at both ends; group -1 means the group last used.
void stepGroup(AppModel& model, int group, int delta);

// cmdSubSectionUp (+1, "Next subsection in this group") and
// cmdSubSectionDown (-1): only while the group panel shows.
void clickSubSectionArrow(AppModel& model, int delta);

// The same for the multi screen's lblMultiSect groups. The six timbres move
// together between their two pages: reaching a timbre's "MIDI" page puts
// every timbre on it, reaching "Pitch-Mix-Zone" puts every timbre there.
void stepMultiGroup(AppModel& model, int group, int delta);

// cmdMultiSectUp (+1) and cmdMultiSectDown (-1): only while fraMultiSelect
// shows.
void clickMultiSectArrow(AppModel& model, int delta);

// Records the subsection of `frame` in the history when it is the frame
// that takes new subsections; a move along the trail is not recorded again.
void trailAdd(AppModel& model, int frame);

// cmdBack (-1) and cmdForward (+1): shows the previous or next subsection of
// the history in the frame for a new subsection.
void trailMove(AppModel& model, int direction);

// lblSubsect(frame) dragged onto lblFavSubSect(slot): the source is known by
// its caption, which must be that of lblSubsect(1) or lblSubsect(2) of the
// patch screen; anything else is ignored. The slot takes the frame's
// subsection, and Quillonset.dat keeps it. Returns whether it was taken.
bool dropOnFavourite(AppModel& model, int slot, std::string_view sourceCaption);

// The mouse button and keys of a click on a favourite slot.
struct SlotClick {
    bool left = true;
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
};

// Left click: opens the slot's subsection in the frame for a new one. Shift
// and left click: empties the slot, and the favourites close up towards
// slot 0. Other buttons and keys do nothing.
void clickFavourite(AppModel& model, int slot, SlotClick click);

// Start-up: the frame mode and the way sections are picked (the stored
// start-up view when the settings ask for it, else frame mode 1 and the
// tree), and the favourites as Quillonset.dat kept them.
void applyStartUpView(AppModel& model);

}  // namespace quillon
