#pragma once

#include "editors/ModSources.h"

#include <array>
#include <string>
#include <vector>

namespace quillon {

class AppModel;

// frmMod as data: the scrolling list of the patch's modulation sources,
// fifteen screen rows edited in place, with jumps to each entry's
// subsection. The form mirrors a ModList and hands its events here.

inline constexpr int kModScreenRows = 15;

inline constexpr const char* kModSectTip = "Click to go to this section";          // lblSect
inline constexpr const char* kModSubsectTip = "Click to go to this subSection";    // lblSubsect
inline constexpr const char* kModParamNameTip = "Double click for user/default value";  // lblParamName
inline constexpr const char* kModDecodeTip = "Double click to restore loaded value";    // lblParamDecode
inline constexpr const char* kModShowSelected = "Modulation sources selected in current patch";
inline constexpr const char* kModShowAll = "All modulation sources";
inline constexpr const char* kModSourcesTitle = "Edit patch modulation sources";
inline constexpr const char* kResetModTitle = "Reset modulation sources";
inline constexpr const char* kResetModQuestion =
    "This will turn off all modulation sources or reset to minimum values. Are you sure?";
inline constexpr int kModSourcesHelp = 430;  // the help topic of the list and Tidy up patch
inline constexpr int kModHeaderScheme = 2;  // the column headers
inline constexpr int kModLabelScheme = 3;   // the labels of the rows

// One of the fifteen screen rows: lblSect, lblSubsect, lblParamName,
// txtParamVal with updParamVal, lblParamDecode.
struct ModScreenRow {
    bool visible = false;
    std::string sect;
    std::string subsect;
    std::string paramName;
    std::string valueText;  // txtParamVal
    int value = 0;          // updParamVal
    int min = 0;
    int max = 0;
    std::string decode;
};

struct ModList {
    std::vector<ModRow> rows;
    int ModOffset = 0;               // the list row in screen row 0
    std::string title;               // "Modulation sources [name]"
    std::string showHead;            // lblModShowHead
    bool scrollEnabled = false;      // vsbArrayNo
    int scrollMax = 0;
    std::array<ModScreenRow, kModScreenRows> screen;
};

// mnuPatchModSources and the toolbar key "mod": false, with "No patch
// loaded", when there is no patch to list.
bool canOpenModSources(AppModel& model);

// Fills the list from the patch's Current, with the title, the header of
// what is listed and the scroll bar; the scroll position goes back to the
// top if the list no longer reaches it.
void buildModList(const AppModel& model, ModList& list);

// Fills the fifteen screen rows from ModOffset.
void showModRows(const AppModel& model, ModList& list);

// vsbArrayNo moved.
void scrollModList(const AppModel& model, ModList& list, int offset);

// txtParamVal(row)'s text changed: the number, limited to the source's
// range (the box then shows the limit), goes into Current, and the decode
// follows. No Hard test and no change to Last.
void changeModValue(AppModel& model, ModList& list, int row, const std::string& text);

// Double click in the box, as on the main screen's rows; on lblParamName
// the User value, on lblParamDecode the Loaded value, both through the spin
// control; an arrow of the spin control steps by one.
void doubleClickModValue(AppModel& model, ModList& list, int row);
void doubleClickModName(AppModel& model, ModList& list, int row);
void doubleClickModDecode(AppModel& model, ModList& list, int row);
void stepModValue(AppModel& model, ModList& list, int row, bool up);

// A click on lblSect(row) or lblSubsect(row): the patch screen comes up
// (whatever Mode was) and shows the subsection of the row's parameter in
// the frame for a new one. True when the form is to close.
bool goToModSubsection(AppModel& model, const ModList& list, int row);

// cmdDone: the main screen's frames show the edits.
void closeModList(AppModel& model);

// cmdReset: asks, and on Yes every listed source goes to its minimum, the
// intensities of the sources now off are cleared, and the list is built
// again (with "Show selected modulators" it shrinks).
void resetModSources(AppModel& model, ModList& list);

// cmdPrint's text: the patch name, then the header and one line per listed
// source in columns of 20 characters.
inline constexpr int kModPrintColumn = 20;
std::vector<std::string> modListPrintLines(const AppModel& model, const ModList& list);

}  // namespace quillon
