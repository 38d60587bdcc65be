// The toolbar's rows.

#include "module/edit/toolbar/toolbartable.h"

#include <cstring>

#include "module/edit/toolbar/tableditminiframewnd.h"

namespace {

using Window = CVqTableditMiniFrameWnd;
using Control = ToolbarControl;

constexpr ToolbarRow button(Control control, const char* name, int image, unsigned tipText, ToolbarHandler handler) {
    return {control, name, ToolbarItem::Button, image, false, tipText, 0, handler};
}
constexpr ToolbarRow dropdown(Control control, const char* name, int image, unsigned tipText, unsigned menu,
                              ToolbarHandler handler) {
    return {control, name, ToolbarItem::Dropdown, image, false, tipText, menu, handler};
}
constexpr ToolbarRow gap(bool scales = false) {
    return {Control::None, nullptr, ToolbarItem::Gap, 5, scales, 0, 0, nullptr};
}
constexpr ToolbarRow combo(Control control, const char* name, ToolbarItem item, unsigned tipText,
                           ToolbarHandler handler) {
    return {control, name, item, 90, true, tipText, 0, handler};
}

}  // namespace

// An image's place is that of its row.
const std::array<ToolbarRow, 21> kToolbarRows = {
    button(Control::TopInsert, "IDC_TABLEDIT_TOPINSERT", 0, 1401, &Window::OnInsertRowByAbove),
    button(Control::BottomInsert, "IDC_TABLEDIT_BOTTOMINSERT", 1, 1402, &Window::InsertRowByBelow),
    button(Control::RowDelete, "IDC_TABLEDIT_ROWDELETE", 2, 1403, &Window::OnDeleteRows),
    gap(),
    button(Control::LeftInsert, "IDC_TABLEDIT_LEFTINSERT", 4, 1404, &Window::OnInsertColumnByLeft),
    button(Control::RightInsert, "IDC_TABLEDIT_RIGHTINSERT", 5, 1405, &Window::OnInsertColumnByRight),
    button(Control::ColumnDelete, "IDC_TABLEDIT_COLUMNDELETE", 6, 1406, &Window::OnDeleteColumns),
    gap(),
    dropdown(Control::MergeCell, "IDC_TABLEDIT_MERGECELL", 8, 1407, kMergeMenu, &Window::OnMergeCells),
    button(Control::UnmergeCell, "IDC_TABLEDIT_UNMERGECELL", 9, 1408, &Window::OnUnmergeCells),
    gap(true),
    combo(Control::Color, kColorComboName, ToolbarItem::ColorCombo, 1421, &Window::OnBackgroundColor),
    gap(),
    button(Control::CellBorder, "IDC_TABLEDIT_CELLBORDER", 13, 1409, &Window::OnBorders),
    dropdown(Control::Alignment, kAlignmentName, 14, 1410, kAlignmentMenu, &Window::OnAlignment),
    dropdown(Control::Locking, "IDC_TABLEDIT_LOCKING", 15, 1411, kLockingMenu, &Window::OnLocking),
    dropdown(Control::DataFormat, "IDC_TABLEDIT_DATAFORMAT", 16, 1412, kDataFormatMenu, &Window::OnDataFormat),
    gap(),
    dropdown(Control::Formula, "IDC_TABLEDIT_FORMULA", 18, 1422, kFormulaMenu, &Window::OnInsertFormulas),
    gap(),
    combo(Control::CellStyle, kCellStyleComboName, ToolbarItem::CellStyleCombo, 1420, &Window::OnCellStyle),
};

const ToolbarRow* toolbarRow(const char* name) {
    for (const ToolbarRow& row : kToolbarRows) {
        if (row.name != nullptr && std::strcmp(row.name, name) == 0) return &row;
    }
    return nullptr;
}
