#include "banks/BankMenuCaptions.h"

namespace quillon {

namespace {

constexpr const char* kSortBankCaptions[] = {
    "Sort by Name",      "Sort by Patch Category", "Sort by User Group", "Sort by OSC1 Type",
    "Sort by OSC2 Type", "Sort by FX1 Type",       "Sort by FX2 Type",   "Sort by Filt1 Type",
    "Sort by Filt2 Type", "Sort by Linked Arp.",
};

constexpr const char* kSortSelectionCaptions[] = {
    "Sort (Name)", "Sort (Prog Cat)", "Sort (User Gp)", "Sort (OSC1)",  "Sort (OSC2)",
    "Sort (FX1)",  "Sort (FX2)",      "Sort (Filt1)",   "Sort (Filt2)", "Sort (Arp)",
};

}  // namespace

std::string sortBankCaption(int key) { return key >= 1 && key <= 10 ? kSortBankCaptions[key - 1] : ""; }

std::string sortSelectionCaption(int key) { return key >= 1 && key <= 10 ? kSortSelectionCaptions[key - 1] : ""; }

std::string undoOperationCaption(int operation)
{
    if (operation >= 1 && operation <= 10)
        return sortBankCaption(operation);
    if (operation >= 11 && operation <= 20)
        return sortSelectionCaption(operation - 10);
    switch (operation) {
    case 21: return kRotateMinusMinusCaption;
    case 22: return kRotateMinusCaption;
    case 24: return kRotatePlusCaption;
    case 25: return kRotatePlusPlusCaption;
    case 26: return kInsertFirstCaption;
    case 27: return kInsertLastCaption;
    case 28: return kSwapFirstCaption;
    case 29: return kSwapLastCaption;
    case 30: return kExportImportCaption;
    default: return {};
    }
}

}  // namespace quillon
