#pragma once

#include "model/DataTypes.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class AppModel;
struct FindSettings;

// Finding patches in a PatchBank by name or by type, so that the hits become
// the selection of the bank view.
//
// Text searches, codes 0 to 4: the name contains the text, starts with it,
// has a part (after a blank) starting with it, has a last part starting
// with it, or does not contain it. Type searches, codes 10 to 20: the place
// itself (10) or one attribute byte of the patch compared with the row of
// the type list.

inline constexpr int kFindTextSearches = 5;
inline constexpr int kFindTypeSearches = 11;
inline constexpr int kFindTypeCodeBase = 10;
inline constexpr int kFindRecentTexts = 10;
inline constexpr int kFindHelpContext = 175;

// The captions of cmbFindTextOptions and cmbFindTypeOptions, by list index.
const std::vector<std::string>& findTextOptionCaptions();
const std::vector<std::string>& findTypeOptionCaptions();

// Whether a patch name is a hit of text search code 0 to 4. The name is
// lower-cased and trimmed on the right; the text is taken as given (Find
// lower-cases it when it reads it).
bool findTextHit(int code, std::string_view name, std::string_view text);

// Whether the patch at position of a bank image is a hit of type search code
// 10 to 20 for the list row value.
bool findTypeHit(int code, const ByteImage& bank, int position, int value);

// One condition of a search: a text search (code 0 to 4) with its text in
// lower case, or a type search (10 to 20) with its list row.
struct FindCriterion {
    int code = 0;
    std::string text;
    int value = 0;
};

// Whether the patch at position of an image of patches, named name, meets
// the condition. An image of one patch has the position 0.
bool findPatchHit(const FindCriterion& criterion, std::string_view name, const ByteImage& image, int position);

// The rows of cmbTypeName for type search code 10 to 20; the linked pattern
// rows name the user patterns of the arpeggiator bank when one is loaded.
std::vector<std::string> findTypeNames(const AppModel& model, int code);

// Which search a button runs on the selection: the plain buttons start a new
// selection, Plus adds the hits to it, Minus tests only the selected patches.
struct FindScope {
    bool keepSelection = false;
    bool withinSelection = false;
};

// Runs a search over the bank on show with the text or the type row of the
// find settings, and makes the hits its selection; the labels are repainted.
// A text search with an empty text does nothing.
void runFind(AppModel& model, int code, FindScope scope);

// Puts a text at the top of the last ten searches unless it is among them
// already (compared exactly); the oldest falls off.
void rememberFindText(FindSettings& settings, const std::string& text);

// The text as Find reads it: lower case.
std::string findTextOf(std::string_view typed);

// Inverts the selection of the bank on show and repaints its labels.
void cmdSwitch(AppModel& model);

// mnuFind: true when frmFind may open; otherwise the reason was shown.
bool mnuFind(AppModel& model);

}  // namespace quillon
