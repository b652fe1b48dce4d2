#pragma once

#include "model/DataTypes.h"

#include <random>
#include <span>
#include <string_view>

namespace quillon {

class AppModel;

// The Subsection menu: stored, default, zero, random or user values for the
// whole subsection of the current frame at once, on the patch or the
// multiset screen. Each action first keeps the subsection's values in Last,
// so that "Restore Previous" undoes it.

enum SubsectionNumber : int {
    kSubSLoaded = 1,    // "Restore Loaded"
    kSubSPrevious = 2,  // "Restore Previous"
    kSubSDefault = 3,
    kSubSZero = 4,
    kSubSRandom = 5,
    kSubSUserApply = 6,
    kSubSUserSave = 7,
};

struct SubsectionItem {
    std::string_view name;     // the menu item
    std::string_view caption;
    int number = 0;
    std::string_view title;    // of the messages the item gives
};

// The seven items in the order of their numbers.
std::span<const SubsectionItem> subsectionItems();
// The title of an item's messages; empty for a number without item.
std::string_view subsectionTitle(int number);

inline constexpr const char* kNoCurrentSubsection = "No current subsection";
inline constexpr const char* kOnlyInPatchEditor = "This function is only available in patch editor";

// The entry of every item: on the patch or multi screen with a subsection
// on show, the screen is set up again and the action applied; otherwise a
// message under the item's title. Random is for the patch only.
void subsectionCommand(AppModel& model, int number);

// The action on the subsection of the current frame of the patch screen,
// and of the multi screen. An empty current frame does nothing, though the
// other frame may show a subsection.
void applySubsectionAction(AppModel& model, int number);
void applyMultiSubsectionAction(AppModel& model, int number);

// The random rule for one value: a range of `percent` of the parameter's
// span, centred on the value and shifted to lie within min..max, and a
// place in it chosen by r (0 up to but not including 1).
int randomSubsectionValue(int value, int min, int max, int percent, double r);

// Random values for the parameters first..last of a patch whose Firm flag is
// clear, with the generator given. The menu's Random seeds one from the
// clock each time.
void randomizePatchRange(ParamValues& patch, int first, int last, int percent, std::mt19937& generator);

}  // namespace quillon
