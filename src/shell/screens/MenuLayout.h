#pragma once

#include <span>
#include <string_view>

namespace quillon {

// The menu bar of frmMain as data: every menu and item with the name the
// program gives it (its objectName) and its caption, in order. An item
// whose name ends in "_N" is one of a control array. Separators are marked
// by an empty name.
struct MenuItemLayout {
    std::string_view name;
    std::string_view caption;
};

struct MenuLayout {
    std::string_view name;
    std::string_view caption;
    std::span<const MenuItemLayout> items;
};

std::span<const MenuLayout> mainMenuLayout();

// The keys of the toolbar tlbMain, in order, with their tooltips.
struct ToolKeyLayout {
    std::string_view key;          // the action's name behind "tlbMain_"
    std::string_view tooltip;
    std::string_view text;         // the short text under the icon
    std::string_view themeIcon;    // the platform theme's icon, or empty for our own
};

std::span<const ToolKeyLayout> toolbarLayout();

// The place in the File menu where the recent files stand (mnuFileArray_0,
// the separator, then mnuFileArray_1 to _10).
inline constexpr std::string_view kRecentFilesMarker = "mnuFileArray";

}  // namespace quillon
