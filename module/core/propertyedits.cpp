// Edits of what the selected cells look like and hold, each one step of undo. The host refuses where a cell is
// locked.

#include "module/core/propertyedits.h"

#include "module/core/tablecommon.h"

namespace {

/// The mark, and the table opened for write and closed at once: the place of an edit that isn't carried out.
bool holdPlace(KdDbObjectId id, const EditMark& mark) {
    return markedTableEdit(id, mark, [](KdDbTable&) {});
}

}  // namespace

int CVqTableCommon::SetBackgroundColor(KdDbObjectId table, const KdCmColor& color) {
    return editSelectedCells(table, propertymark::kBackground, [&](KdDbTable& open, int row, int column) {
        open.setBackgroundColor(row, column, color);
    });
}

int CVqTableCommon::SetSelectionAlignment(KdDbObjectId table, KdDb::CellAlignment alignment) {
    return editSelectedCells(table, propertymark::kAlignment,
                             [&](KdDbTable& open, int row, int column) { open.setAlignment(row, column, alignment); });
}

int CVqTableCommon::ClearCellOverrides(KdDbObjectId table) {
    return editSelectedCells(table, propertymark::kClearCell,
                             [](KdDbTable& open, int row, int column) { open.clearCellOverrides(row, column); });
}

int CVqTableCommon::ClearTableStyleOverrides(KdDbObjectId table) {
    return markedTableEdit(table, propertymark::kClearTable, [](KdDbTable& open) { open.clearTableStyleOverrides(0); });
}

int CVqTableCommon::DeleteContent(KdDbObjectId table) {
    return markedTableEdit(table, propertymark::kDeleteContent,
                           [](KdDbTable& open) { open.deleteContent(open.getSubSelection()); });
}

int CVqTableCommon::SetCellStyleByName(KdDbObjectId table, CStdStr<wchar_t>& name) {
    return editSelection(table, propertymark::kCellStyle, [&](KdDbTable& open, const SelectedCells& cells) {
        CStdStr<wchar_t> internal = name;
        DefaultCellStyleConvert(internal);
        forEachSelected(open, cells, [&](int row, int column) { open.setCellStyle(row, column, internal); });
    });
}

int CVqTableCommon::InsertField(KdDbObjectId) {
    return markedEdit(propertymark::kInsertField, [] {});
}

int CVqTableCommon::InsertBlock(KdDbObjectId table) {
    return holdPlace(table, propertymark::kInsertBlock);
}

int CVqTableCommon::SetCurrentTableStyleAsTable(KdDbObjectId table) {
    return holdPlace(table, propertymark::kCurrentStyle);
}

int CVqTableCommon::ManageCellContent(KdDbObjectId table) {
    return holdPlace(table, propertymark::kManageContent);
}
