// The toolbar's rows.

#include "module/edit/toolbar/toolbartable.h"

#include <cstring>

#include "module/edit/toolbar/tableditminiframewnd.h"

namespace {

using Window = CVqTableditMiniFrameWnd;

constexpr ToolbarRow button(const char* name, int image, unsigned tipText, ToolbarHandler handler) {
    return {name, ToolbarItem::Button, image, false, tipText, 0, handler};
}
constexpr ToolbarRow dropdown(const char* name, int image, unsigned tipText, unsigned menu, ToolbarHandler handler) {
    return {name, ToolbarItem::Dropdown, image, false, tipText, menu, handler};
}
constexpr ToolbarRow gap(bool scales = false) {
    return {nullptr, ToolbarItem::Gap, 5, scales, 0, 0, nullptr};
}
constexpr ToolbarRow combo(const char* name, ToolbarItem item, unsigned tipText, ToolbarHandler handler) {
    return {name, item, 90, true, tipText, 0, handler};
}

}  // namespace

// An image's place is that of its row.
const std::array<ToolbarRow, 21> kToolbarRows = {
    button("IDC_TABLEDIT_TOPINSERT", 0, 1401, &Window::OnInsertRowByAbove),
    button("IDC_TABLEDIT_BOTTOMINSERT", 1, 1402, &Window::InsertRowByBelow),
    button("IDC_TABLEDIT_ROWDELETE", 2, 1403, &Window::OnDeleteRows),
    gap(),
    button("IDC_TABLEDIT_LEFTINSERT", 4, 1404, &Window::OnInsertColumnByLeft),
    button("IDC_TABLEDIT_RIGHTINSERT", 5, 1405, &Window::OnInsertColumnByRight),
    button("IDC_TABLEDIT_COLUMNDELETE", 6, 1406, &Window::OnDeleteColumns),
    gap(),
    dropdown("IDC_TABLEDIT_MERGECELL", 8, 1407, kMergeMenu, &Window::OnMergeCells),
    button("IDC_TABLEDIT_UNMERGECELL", 9, 1408, &Window::OnUnmergeCells),
    gap(true),
    combo(kColorComboName, ToolbarItem::ColorCombo, 1421, &Window::OnBackgroundColor),
    gap(),
    button("IDC_TABLEDIT_CELLBORDER", 13, 1409, &Window::OnBorders),
    dropdown(kAlignmentName, 14, 1410, kAlignmentMenu, &Window::OnAlignment),
    dropdown("IDC_TABLEDIT_LOCKING", 15, 1411, kLockingMenu, &Window::OnLocking),
    dropdown("IDC_TABLEDIT_DATAFORMAT", 16, 1412, kDataFormatMenu, &Window::OnDataFormat),
    gap(),
    dropdown("IDC_TABLEDIT_FORMULA", 18, 1422, kFormulaMenu, &Window::OnInsertFormulas),
    gap(),
    combo(kCellStyleComboName, ToolbarItem::CellStyleCombo, 1420, &Window::OnCellStyle),
};

const ToolbarRow* toolbarRow(const char* name) {
    for (const ToolbarRow& row : kToolbarRows) {
        if (row.name != nullptr && std::strcmp(row.name, name) == 0) return &row;
    }
    return nullptr;
}
