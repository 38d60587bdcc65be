// What the toolbar's buttons and its list of colours do.

#include "kd/db/color.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/toolbar/tableditminiframewnd.h"

/// Cells, whole rows or whole columns are selected.
bool CVqTableditMiniFrameWnd::CheckSelectCellValid() const {
    return CKdTableCellRange(CVqTableCommon::GetSubSelection(m_tableId)).isValid();
}

void CVqTableditMiniFrameWnd::editCheckedSelection(int (*edit)(KdDbObjectId)) {
    if (CheckSelectCellValid()) edit(m_tableId);
}

void CVqTableditMiniFrameWnd::OnInsertRowByAbove() {
    editCheckedSelection(CVqTableCommon::InsertRowByAbove);
}

void CVqTableditMiniFrameWnd::InsertRowByBelow() {
    editCheckedSelection(CVqTableCommon::InsertRowByBelow);
}

void CVqTableditMiniFrameWnd::OnDeleteRows() {
    editCheckedSelection(CVqTableCommon::DeleteRows);
}

void CVqTableditMiniFrameWnd::OnInsertColumnByLeft() {
    editCheckedSelection(CVqTableCommon::InsertColumnByLeft);
}

void CVqTableditMiniFrameWnd::OnInsertColumnByRight() {
    editCheckedSelection(CVqTableCommon::InsertColumnByRight);
}

void CVqTableditMiniFrameWnd::OnDeleteColumns() {
    editCheckedSelection(CVqTableCommon::DeleteColumns);
}

void CVqTableditMiniFrameWnd::OnUnmergeCells() {
    if (!CVqTableCommon::IsTableLocking(m_tableId)) CVqTableCommon::UnmergeCells(m_tableId);
}

void CVqTableditMiniFrameWnd::OnBorders() {
    CVqTableCommon::SetBorders(m_tableId);
}

void CVqTableditMiniFrameWnd::OnDataFormat() {
    CVqTableCommon::SetDataFormat(m_tableId);
}

void CVqTableditMiniFrameWnd::OnAlignment() {
    CVqTableCommon::SetSelectionAlignment(m_tableId, m_alignment);
}

void CVqTableditMiniFrameWnd::OnMergeCells() {
    TrackPopupMenu(kMergeMenu);
}

void CVqTableditMiniFrameWnd::OnLocking() {
    TrackPopupMenu(kLockingMenu);
}

void CVqTableditMiniFrameWnd::OnInsertFormulas() {
    TrackPopupMenu(kFormulaMenu);
}

void CVqTableditMiniFrameWnd::OnBackgroundColor() {
    const ResourceScope resources;
    // Cancelling the colour dialog changes no cell, and the list shows what it showed.
    if (!finishColorChoice(m_colorCombo)) return UpdateToolBar();

    KdCmColor color;
    if (!m_colorCombo.GetCurrentItemColor(color)) return;
    if (color.isNone()) color.setColorMethod(KdCmEntityColor::kNone);
    CVqTableCommon::SetBackgroundColor(m_tableId, color);
}
