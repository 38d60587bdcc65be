// What stands in the toolbar, as a table: its buttons, lists and gaps from left to right.
#pragma once

#include <array>
#include <cstddef>

class CVqTableditMiniFrameWnd;

enum class ToolbarItem {
    Button,         ///< an image, pressed
    Dropdown,       ///< an image, pressed, with an arrow that opens a menu
    Gap,            ///< empty space
    ColorCombo,     ///< the list of background colours
    CellStyleCombo  ///< the list of cell styles
};

/// The controls from left to right.
enum class ToolbarControl : std::size_t {
    TopInsert,
    BottomInsert,
    RowDelete,
    LeftInsert,
    RightInsert,
    ColumnDelete,
    MergeCell,
    UnmergeCell,
    Color,
    CellBorder,
    Alignment,
    Locking,
    DataFormat,
    Formula,
    CellStyle,
    None  ///< of a gap; as many controls come before it
};
inline constexpr auto kToolbarControls = static_cast<std::size_t>(ToolbarControl::None);

using ToolbarHandler = void (CVqTableditMiniFrameWnd::*)();

struct ToolbarRow {
    ToolbarControl control;
    const char* name;  ///< of the control; null for a gap
    ToolbarItem item;
    int imageOrWidth;  ///< place in the strip of images, or width in pixels
    bool scales;       ///< whether the width is one of a plain screen
    unsigned tipText;  ///< number of the tool tip's text
    unsigned menu;     ///< number of the menu behind the arrow, 0 without one
    ToolbarHandler handler;

    /// The width on a screen of that scale.
    int widthAt(double scale) const { return scales ? static_cast<int>(imageOrWidth * scale) : imageOrWidth; }
};

inline constexpr const char* kColorComboName = "IDC_TABLEDIT_COLORCOMBO";
inline constexpr const char* kCellStyleComboName = "IDC_TABLEDIT_CELLSTYLECOMBO";
inline constexpr const char* kAlignmentName = "IDC_TABLEDIT_ALIGNMENT";

/// The drop-down menus by their numbers.
enum ToolbarMenu : unsigned {
    kDataFormatMenu = 6'201,
    kLockingMenu = 6'202,
    kMergeMenu = 6'203,
    kFormulaMenu = 6'204,
    kAlignmentMenu = 6'205
};
inline constexpr std::size_t kToolbarMenus = 5;

extern const std::array<ToolbarRow, 21> kToolbarRows;

/// Null for a name that no control has.
const ToolbarRow* toolbarRow(const char* name);
