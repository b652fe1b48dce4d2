#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quillon {

class AppModel;

// Parts of a patch of the bank on show merged into the patch editor, byte
// by byte in the patch's unpacked data (the sixteen name bytes never): the
// bank popup's Copy items, and the toolbar keys "bpg" (Quick Merge, group
// by group) and "bps" (Slow Merge, subsection by subsection), so that the
// user can hear each stage.

// Where the merges by key go next: BankGroupNext is a group of lblGroup
// (0 "Common" to 8 "Controls"), BankSubsectionNext a subsection (1 to 50).
struct MergeState {
    int BankGroupNext = 0;
    int BankSubsectionNext = 1;
    int sourcePosition = -1;  // the bank patch merged last: combined, bank B from 128
};

// Codes of mergeFromBank: 1 to 9 everything but a group, 10 everything but
// the current subsection, 11 to 19 one group, 20 the current subsection.
inline constexpr int kMergeAllExceptCss = 10;
inline constexpr int kMergeFirstGroup = 11;
inline constexpr int kMergeCss = 20;
inline constexpr int kMergeGroups = 9;
inline constexpr int kLastMergedSubsection = 50;

inline constexpr const char* kNoSubsectionSelected = "No subsection selected";
inline constexpr const char* kCopyToCssTitle = "Copy to current subsection";

// The bytes of the patch data, numbered from 1, that a group (1 Comm to
// 9 Ctrls) or a patch subsection covers, and the type byte that goes with
// a setting subsection or its type subsection (0 for none). An empty range
// has first above last.
struct MergeBytes {
    int first = 1;
    int last = 0;
    int typeByte = 0;
};
MergeBytes groupBytes(int group);
MergeBytes subsectionBytes(int subsection);

// The Copy items of the bank patch popup (mnuPopup1), each with its code
// for mergeFromBank: under mnuCopyAllExcept ("Copy All except..") the nine
// groups, then mnuCopyAllXCSS, mnuCopyCSS and the nine mnuCopyArray items.
struct MergeMenuItem {
    std::string_view name;  // objectName
    std::string_view caption;
    int code = 0;
};
std::span<const MergeMenuItem> mergeMenuItems();
inline constexpr const char* kCopyAllExceptCaption = "Copy All except..";  // mnuCopyAllExcept

// Merges part of the patch at `place` of the bank on show into the patch
// editor: Last takes the patch first, the result counts as changed, and the
// group or subsection the keys merge next moves on after a merge of one.
void mergeFromBank(AppModel& model, int place, int code);

// A Copy item of the bank patch popup: the patch under the popup is element
// 1 of the selection sequence of the bank on show, as for every command of
// that popup.
void mergeFromBankPopup(AppModel& model, int code);

// "bpg": the next group of the patch selected in the bank on show, the
// patch screen, and a name ending in the group's number and "Q". With no
// patch selected the bank's selection is gathered again instead.
void mergeNextGroup(AppModel& model);
// "bps": the next subsection, with a name ending in its number and "S".
void mergeNextSubsection(AppModel& model);

// The copy tools beside the bank: txtBankPatchSelGroup shows the name of
// the group the next Quick Merge takes (from the captions of lblGroup) and
// txtBankPatchSelSS the subsection of the next Slow Merge; their spin
// controls set them within 0 to 8 and 1 to 50, and a double click on a box
// sets it back to the start.
std::string bankPatchSelGroupText(const AppModel& model);
std::string bankPatchSelSSText(const AppModel& model);
void setBankGroupNext(AppModel& model, int group);
void setBankSubsectionNext(AppModel& model, int subsection);
void doubleClickBankPatchSelGroup(AppModel& model);
void doubleClickBankPatchSelSS(AppModel& model);

// Marks the merged patch: the first 12 characters of its name, a blank,
// the number in two digits and the tag letter, shown and used for the
// suggested file name. An empty tag does nothing.
void tagMergedName(AppModel& model, std::string_view tag, int number);

}  // namespace quillon
