#pragma once

#include "model/ParamTables.h"

#include <array>
#include <string>
#include <vector>

namespace quillon {

// The read-only browsers of the parameter, section and subsection tables
// (frmParam, frmSection, frmSubSection): which rows a mode lists, the text
// of each column of a row, the search through the boxes above the columns,
// and the rows that ten lines show for a position of the scroll bar.

enum class BrowserTable { Parameters, Sections, SubSections };

inline constexpr int kBrowserLines = 10;

// frmParam's columns, in their order on the screen and in the search.
enum ParamColumn { kColID, kColName, kColSect, kColSubSect, kColTable, kColMin, kColMax,
                   kColStartB, kColEndB, kColFirm, kColHard, kParamColumnCount };
// frmSection's columns.
enum SectionColumn { kSectNo, kSectID, kSectName, kSectFirstParam, kSectLastParam, kSectionColumnCount };
// frmSubSection's columns.
enum SubSectionColumn { kSubNo, kSubID, kSubName, kSubSect, kSubFirstParam, kSubLastParam,
                        kSubSectionColumnCount };

// How a search box matches the field of its column.
enum class SearchRule {
    From,   // the number typed is at most the field
    Text,   // the text typed, right-trimmed, occurs in the field, case aside
    Equal,  // the number typed equals the field
    Flag,   // "Y" or "y" typed and the flag is set
};

// One mode of a browser: the table it lists, its title, and the range of the
// scroll bar over its rows. The rows listed are barMin to barMax + 9.
struct BrowserMode {
    BrowserTable table = BrowserTable::Parameters;
    // frmParam: 0-6 for the patch table, 10 for the multi table.
    // frmSection, frmSubSection: 1 patch, 2 multi.
    int mode = 0;
    std::string title;
    int barMin = 1;
    int barMax = 1;
    int firstRow() const { return barMin; }
    int lastRow() const { return barMax + kBrowserLines - 1; }
};

// An item of frmParam's mnuSelect menu.
struct ParamModeItem {
    const char* menuName;  // the menu item's name
    const char* caption;   // the menu item's text
    int mode;
};

// The eight items of mnuSelect ("Select mode") in menu order.
const std::array<ParamModeItem, 8>& paramModeItems();

// frmParam's mode 0-6 or 10; any other number gives mode 0.
BrowserMode paramBrowserMode(int mode);
// frmSection with 1 for the patch and 2 for the multi sections; any other
// number gives the patch sections.
BrowserMode sectionBrowserMode(int which);
// frmSubSection with 1 for the patch and 2 for the multi subsections.
BrowserMode subSectionBrowserMode(int which);

int browserColumnCount(BrowserTable table);
SearchRule browserSearchRule(BrowserTable table, int column);

// The text of a column of a row: numbers in decimal, flags as "Y" or
// nothing. In mode 10 the Firm column is empty; the Hard column of every
// mode shows the patch table's Hard flag of the row with that number, also
// for multi rows. A row outside the table gives empty texts.
std::string browserCell(const ParamTables& tables, const BrowserMode& mode, int row, int column);

// True when some search box holds text.
bool anySearchBoxFilled(const std::vector<std::string>& boxes);

// cmdSearch: the rows of the mode, first to last, that a filled box matches.
// `boxes` holds the search boxes in column order; missing boxes count as
// empty.
std::vector<int> searchBrowser(const ParamTables& tables, const BrowserMode& mode,
                               const std::vector<std::string>& boxes);

// Whether one box's text matches the field of one column of a row. An empty
// box never matches; neither does a number box whose text is not a number.
bool boxMatches(const ParamTables& tables, const BrowserMode& mode, int row, int column, const std::string& box);

struct ScrollRange {
    int min = 1;
    int max = 1;
    int largeChange = 10;
};

// The scroll bar over a list of hits: Min 1, Max hits - 9, large change 10;
// with fewer than ten hits Max 1 and large change 1.
ScrollRange hitListRange(int hits);

// The scroll bar over the whole mode.
ScrollRange modeRange(const BrowserMode& mode);

// The rows of the ten lines for a position of the scroll bar: the mode's rows
// from the position on, or, after a search, the hits from the position-th on.
// Lines past the end hold 0 and are shown blank.
std::array<int, kBrowserLines> shownRows(const BrowserMode& mode, bool searched, const std::vector<int>& hits,
                                         int position);

}  // namespace quillon
