// What the edits of cell properties share: their marks, and the change of each selected cell within one of them.
#pragma once

#include "module/core/editframe.h"

namespace propertymark {

inline constexpr EditMark kBackground{.name = L"BackgroundFill", .titleText = 1421, .updatesDisplay = true};
inline constexpr EditMark kAlignment{.name = L"ChangeCellAlignment", .titleText = 2073, .updatesDisplay = true};
inline constexpr EditMark kLock{.name = L"EditCellLock", .titleText = 2187, .updatesDisplay = true};
inline constexpr EditMark kDataFormatMenu{.name = L"DataFormat", .titleText = 2233, .updatesDisplay = true};
inline constexpr EditMark kDataFormat{.name = L"SetDataFormat", .titleText = 2233, .updatesDisplay = false};
inline constexpr EditMark kClearCell{.name = L"ClearCellOverride", .titleText = 2111, .updatesDisplay = false};
inline constexpr EditMark kClearTable{.name = L"ClearTableOverride", .titleText = 2076, .updatesDisplay = false};
inline constexpr EditMark kDeleteContent{.name = L"DeleteContent", .titleText = 2084, .updatesDisplay = false};
inline constexpr EditMark kCellStyle{.name = L"SetCellStyle", .titleText = 2154, .updatesDisplay = false};
inline constexpr EditMark kInsertField{.name = L"InsertField", .titleText = 2249, .updatesDisplay = false};
inline constexpr EditMark kInsertBlock{.name = L"InsertBlock", .titleText = 2077, .updatesDisplay = false};
inline constexpr EditMark kCurrentStyle{.name = L"SetCurTableStyle", .titleText = 2161, .updatesDisplay = false};
inline constexpr EditMark kManageContent{.name = L"ManCellContent", .titleText = 2218, .updatesDisplay = false};

}  // namespace propertymark

/// Calls `change(table, row, column)` for each selected cell within the mark.
template <class Change>
bool editSelectedCells(KdDbObjectId id, const EditMark& mark, Change change) {
    return editSelection(id, mark, [&](KdDbTable& table, const SelectedCells& cells) {
        forEachSelected(table, cells, [&](int row, int column) { change(table, row, column); });
    });
}
