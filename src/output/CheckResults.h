#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {

class AppModel;

// Writes the corrections of the last load of Kind 1, 4 or 5 to its file in
// the "Param" folder (QuillonChkPch.txt, QuillonChkMlt.txt, QuillonChkArp.txt).
void saveCheckResults(AppModel& model, int kind);

// The "Param" folder below the data folder, where the check and compare
// results and the parameter dumps are kept.
std::filesystem::path paramFolder(const AppModel& model);

// What frmCheck and frmCompare show: the form's caption, the lines of
// cmbDifferences, and lblCompareStatement with its colour scheme.
struct InspectionView {
    std::string caption;
    std::vector<std::string> differences;
    std::string statement;
    int statementScheme = 0;
};

// frmCheck for the patch (Kind 1) or the multiset (Kind 4): the corrections
// that the last load made, as many as were kept.
InspectionView checkView(const AppModel& model, int kind);

// mnuCheckLoad: in Mode 1 and 4 refuses when the item is not loaded, and
// otherwise says that frmCheck opens. Other Modes do nothing.
bool mnuCheckLoad(AppModel& model);

}  // namespace quillon
