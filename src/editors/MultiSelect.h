#pragma once

#include "editors/ScreenLayout.h"
#include "shell/AppObserver.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class AppModel;


// The first of the six timbre buttons among lblMultiSect(0..10): timbre t
// is lblMultiSect(t + 4). What each button stands for is multiGroup(index).
inline constexpr int kFirstTimbreButton = 5;

inline constexpr std::string_view kMultiSectSelTooltip = "Click arrows to select subsections in this section";

// A label of fraMultiSet: caption and colour scheme.
struct MultiSectLabel {
    std::string caption;
    int scheme = 1;
};

// cmbMultiBankA or cmbMultiBankB: the names of the 16 multisets of its bank
// and the entry picked in it, -1 for none.
struct MultiBankList {
    std::vector<std::string> names;
    int listIndex = -1;
};

// What fraMultiSelect shows, kept in the model so that every command that
// changes a timbre or a multi bank can bring it up to date.
struct MultiSelectState {
    MultiSelectState();

    std::array<MultiSectLabel, kMultiGroups> sect;  // lblMultiSect(0..10)
    MultiSectLabel sectSel;                          // lblMultiSectSel
    bool sectionsVisible = false;                    // fraMultiSections, with its two arrows
    MultiBankList bankA;                             // cmbMultiBankA
    MultiBankList bankB;                             // cmbMultiBankB

    // The list of multi bank Kind 6 or 7; nullptr for any other Kind.
    MultiBankList* list(int kind);
    const MultiBankList* list(int kind) const;
};

// Names the button of timbre t (1 to 6), lblMultiSect(t + 4), with
// timbreCaption, in scheme 1 when the caption begins with "patch" in any
// case (a timbre that is off, or a patch so named) and scheme 6 otherwise.
void refreshTimbre(AppModel& model, int t);
void refreshTimbres(AppModel& model);

// After a value of the multiset changed in a row: a timbre's bank, number or
// Reserve Voice renames its button at once. Returns whether it did.
bool refreshTimbreOfParam(AppModel& model, int param);

// Empties the list of multi bank Kind 6 or 7 and fills it with the names of
// the bank's 16 multisets in bank order. Other kinds are ignored.
void fillMultiBankList(AppModel& model, int kind);

// Each multi bank list shows the entry the multiset in the editor was taken
// from, and no entry when it came from elsewhere (a file, the instrument,
// the other bank).
void showMultiBankChoices(AppModel& model);

// What the multi screen does to fraMultiSelect whenever it is set up: the
// list of the highlighted multi bank is filled when that bank is loaded, and
// the six timbre buttons are named again.
void setUpMultiSelect(AppModel& model);

// A click on lblMultiSect(index): the highlight moves to lblLoaded(4)
// (MultiMode stays as it is), the arrows show unless the button stands for
// one subsection, lblMultiSectSel takes the caption of a fixed button or
// "Patch " and the number of a timbre, whatever its button says, and the
// button's group opens where the user left it (stepMultiGroup). An index
// outside 0 to 10 does nothing.
void clickMultiSect(AppModel& model, int index);

// A click on cmbMultiBankA (Kind 6) or cmbMultiBankB (Kind 7) at a list
// index: with an index of 0 or more the multiset there comes into the editor,
// after the save prompt for the one in it, clean and without a file name,
// and its timbres are named. Returns false when nothing was taken (no entry
// or a cancel at the prompt).
bool clickMultiBankList(AppModel& model, int kind, int listIndex);

}  // namespace quillon
