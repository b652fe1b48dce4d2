#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillon {

class AppModel;

// Print: what the current view shows, sent to the printer as text lines in
// the forms of the text lists.

// The title of every refusal of Print.
inline constexpr const char* kPrintRefusalTitle = "Send to printer";

struct Printout {
    std::string title;  // the name of the print job
    std::vector<std::string> lines;
};

// What Print sends for the view on screen, by Mode: the parameter rows of the
// current subsection (patch, multiset with no multi bank chosen), the bank
// list, the multi bank list with its timbres, the ArpBank list, or the
// pattern's parameters after the user agreed to a text printout. Nothing when
// Print refuses (with its box) or the user says No.
std::optional<Printout> printoutOfView(AppModel& model);

// mnuPrint: the printout of the view, given to the model's printer. True
// when it was printed; a printer that fails says so in a box.
bool mnuPrint(AppModel& model);

// The rows of the subsection in the current frame of the patch (Kind 1) or
// multi (Kind 4) screen: the value right-aligned in three places, four
// blanks, the decoded text and the parameter's name. Empty with no
// subsection on show.
std::vector<std::string> subsectionPrintLines(const AppModel& model, int kind);

// The pattern's parameters: the heading "Pattern parameters" and its common
// rows, then each step under "Step n parameters" with that step's rows.
std::vector<std::string> patternPrintLines(const AppModel& model);

// The printout of a whole item as it would come from the window: a patch
// subsection by subsection in the order of the section tree, a multiset group
// by group, each under its name and closed by an empty line; a pattern as
// Print gives it; a bank, multi bank or ArpBank as its list. The frames are
// left showing the last subsection. Empty for Kinds that have no printout.
Printout wholeItemPrintout(AppModel& model, int kind);

}  // namespace quillon
