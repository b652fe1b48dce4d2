#pragma once

#include "editors/ScreenLayout.h"

#include <string_view>

namespace quillon {

class AppModel;

// The two frames of the patch and multi screens: what each shows, how its
// rows are filled and scrolled, and which frame takes a new subsection.
// Every operation keeps model.layout and tells the observers which frame
// changed (kFrame1Changed, kFrame2Changed) and kNavigationChanged for what
// lies around the frames.

// Shows a patch subsection in a frame (1 or 2): a section with subsection 0,
// or a subsection with section 0; both 0 does nothing. A section is shown
// whole under its own name. A setting subsection (OSC1, OSC2, FX1, FX2,
// Master FX) shows the block of the type in force under its fixed caption.
// The frame joins the trail, the Copy/Paste Special menus come on, the
// envelope rule runs, and the rows are filled.
void fraPatchHeaders(AppModel& model, int frame, int section, int subsection);

// The same for the multiset, without trail and envelope.
void fraMultiHeaders(AppModel& model, int frame, int section, int subsection);

// Fills up to 15 rows of a frame from `first` on with the patch's (or the
// multiset's) Current, and enables the scroll buttons by what lies above and
// below. An empty range hides every row of the frame. Only that frame is
// touched.
void refreshParamRows(AppModel& model, int frame, int first, int last);
void refreshMultiRows(AppModel& model, int frame, int first, int last);

// cmdDown (1), cmdFastDown (10), cmdUp (1), cmdFastUp (10) of a frame on the
// screen on show. The last step down aligns the bottom row with the
// subsection's last parameter, the last step up the top row with its first.
// A frame that cannot scroll that way is left alone, as its buttons are off.
void scrollRowsDown(AppModel& model, int frame, int n);
void scrollRowsUp(AppModel& model, int frame, int n);

// The frame that takes a new subsection of the patch (kind 1) or multiset
// (kind 4). In "Frame change L to R" the subsection of frame 1 first moves
// to frame 2 and the answer is 1; "Frame left active" answers 1 and "Frame
// right active" 2, leaving the other frame alone.
int fnFrame(AppModel& model, int kind);

// In Mode 1 (Mode 4) both frames show their subsections again from Current,
// after a load or New.
void fraPatchDisplayRefresh(AppModel& model);
void fraMultiDisplayRefresh(AppModel& model);

// After a value box of `frame` changed a type parameter of the patch (174,
// 188, 359, 360, 361) or multiset (179, 180, 181) in its own Mode: the other
// frame shows its setting subsection again when it holds the one of that
// type, as its rows have changed. The edited frame is not refreshed.
void showTypeChange(AppModel& model, int kind, int frame, int param);

// The frames' side of setUpScreen, once Mode holds the new screen: hides
// what the screen left (`previousMode`) showed, then shows the new one's
// parts, menus and frames, each frame's subsection again from Current.
void setUpScreenContent(AppModel& model, int previousMode);

// The frame mode buttons "flr" (1), "fla" (2), "fra" (3): CurrentFrame and
// the bold caption follow.
void setFrameMode(AppModel& model, int frameMode);

// How patch sections are picked: 1 the tree ("spst", mnuShowPatchSectionsTree),
// 2 the group buttons ("spsg", mnuShowPatchSectionsGroup).
void setShowMode(AppModel& model, int showMode);

// Whether the toolbar button of one of these five keys is down (and the
// matching menu item checked); false for any other key.
bool toolbarButtonDown(const AppModel& model, std::string_view key);

// A click on one of the five buttons; false for a key that is not theirs.
bool clickFrameToolbarButton(AppModel& model, std::string_view key);

}  // namespace quillon
