#pragma once

#include <string>

// The captions of the bank menu entries that the core also needs, for the
// Undo items: the screens caption their menus from here.

namespace quillon {

// mnuSortBankArray(1..10), the Bank menu: "Sort by Name" ...
std::string sortBankCaption(int key);
// mnuSortArray(1..10), mnuPopup2: "Sort (Name)" ...
std::string sortSelectionCaption(int key);

inline constexpr const char* kRotateMinusMinusCaption = "Rotate (--)";
inline constexpr const char* kRotateMinusCaption = "Rotate (-)";
inline constexpr const char* kRotatePlusCaption = "Rotate (+)";
inline constexpr const char* kRotatePlusPlusCaption = "Rotate (++)";
inline constexpr const char* kInsertFirstCaption = "Insert First";
inline constexpr const char* kInsertLastCaption = "Insert Last";
inline constexpr const char* kSwapFirstCaption = "Swap First";
inline constexpr const char* kSwapLastCaption = "Swap Last";
inline constexpr const char* kExportImportCaption = "Export/Import (bank)";

// The caption of the menu entry whose operation an undo code names (1..30);
// empty for any other code.
std::string undoOperationCaption(int operation);

}  // namespace quillon
