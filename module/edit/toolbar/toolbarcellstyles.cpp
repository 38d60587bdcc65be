// The toolbar's list of cell styles. A choice in it changes no cell: it is there for the two entries at its end, which
// make a cell style of the table's style and manage them.

#include "kd/ad/doclock.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "module/core/cellstylewalk.h"
#include "module/core/editframe.h"
#include "module/core/tablecommon.h"
#include "module/edit/toolbar/tableditminiframewnd.h"
#include "module/style/createcellstyledlg.h"
#include "module/style/managecellstyles.h"

int CVqTableditMiniFrameWnd::m_nComboBoxIndex = 0;

namespace {

constexpr unsigned kFirstText = 2224;
constexpr unsigned kCreateText = 2128;
constexpr unsigned kManageText = 2132;
constexpr EditMark kCreateMark{.name = L"CreateCellStyle", .titleText = kCreateText, .updatesDisplay = false};
constexpr EditMark kManageMark{.name = L"ManCellStyle", .titleText = kManageText, .updatesDisplay = false};

/// What a row is, as its item data.
enum RowKind : int { kFirstRow = 0, kStyleRow = 1 };

// Rows counted from the end. The list is parted by a line at the last style, which is hence no choice.
constexpr int kRowsBehindLine = 3;
constexpr int kCreateFromEnd = 2;
constexpr int kManageFromEnd = 1;

void CreateCellStyle(KdDbObjectId styleId, const CStdStr<wchar_t>& name, CStdStr<wchar_t> start) {
    const OpenObject<KdDbTableStyle> style(styleId, KdDb::kForWrite);
    CVqTableCommon::DefaultCellStyleConvert(start);
    if (style) style->createCellStyle(name, start);
}

}  // namespace

KdDbObjectId CVqTableditMiniFrameWnd::tableStyleId() const {
    const OpenObject<KdDbTable> table(m_tableId, KdDb::kForRead);
    return table ? table->tableStyle() : KdDbObjectId::kNull;
}

void CVqTableditMiniFrameWnd::followTableStyle(const KdDbTable& table) {
    if (table.tableStyle() != m_shownStyleId) LoadCellStyleFromDatabase();
}

void CVqTableditMiniFrameWnd::AddCellStyleName(const CStdStr<wchar_t>& name) {
    m_cellStyleNames.Add(name);
}

void CVqTableditMiniFrameWnd::LoadCellStyleFromDatabase() {
    const ResourceScope resources;
    m_cellStyleNames.RemoveAll();
    m_shownStyleId = tableStyleId();
    const OpenObject<KdDbTableStyle> style(m_shownStyleId, KdDb::kForRead);
    if (style) {
        for (const CStdStr<wchar_t>& name : cellStyleDisplayNames(*style)) AddCellStyleName(name);
    }
    FillCellStyleComboBox();
}

void CVqTableditMiniFrameWnd::FillCellStyleComboBox() {
    for (int row = m_cellStyleCombo.GetCount() - 1; row >= 0; --row) {
        if (row == m_cellStyleCombo.GetCurSel()) showRow(m_cellStyleCombo, 0);
        m_cellStyleCombo.DeleteString(row);
    }
    m_cellStyleCombo.SetItemData(m_cellStyleCombo.AddString(loadText(kFirstText), false), kFirstRow);
    AddCellStyle();
    AddCellStyleManager();
    const int lineRow = m_cellStyleCombo.GetCount() - kRowsBehindLine;
    m_cellStyleCombo.SetCompartIndex(lineRow);
    if (m_nComboBoxIndex >= 0 && m_nComboBoxIndex < lineRow) showRow(m_cellStyleCombo, m_nComboBoxIndex);
}

void CVqTableditMiniFrameWnd::AddCellStyle() {
    for (const CStdStr<wchar_t>& name : m_cellStyleNames) {
        m_cellStyleCombo.SetItemData(m_cellStyleCombo.AddString(name, false), kStyleRow);
    }
}

void CVqTableditMiniFrameWnd::AddCellStyleManager() {
    for (const unsigned text : {kCreateText, kManageText}) m_cellStyleCombo.AddString(loadText(text), false);
}

void CVqTableditMiniFrameWnd::OnCellStyle() {
    const ResourceScope resources;
    m_nComboBoxIndex = m_cellStyleCombo.GetCurSel();
    const int fromEnd = m_cellStyleCombo.GetCount() - m_nComboBoxIndex;
    if (fromEnd == kRowsBehindLine) {
        m_cellStyleCombo.ShowDropDown(true);
    } else if (fromEnd == kCreateFromEnd || fromEnd == kManageFromEnd) {
        m_nComboBoxIndex = 0;
        showRow(m_cellStyleCombo, 0);
        fromEnd == kCreateFromEnd ? LaunchCreateCellStyleDlg() : LaunchManageCellStyleDlg();
    }
}

void CVqTableditMiniFrameWnd::LaunchCreateCellStyleDlg() {
    const KdDbObjectId styleId = tableStyleId();
    if (styleId.isNull()) return;
    CVqTableCreateCellStyleDlg dialog;
    for (const CStdStr<wchar_t>& name : m_cellStyleNames) dialog.AddCellStyleNameToArray(name);
    if (!m_cellStyleNames.IsEmpty()) dialog.SetStartWithName(m_cellStyleNames[0]);
    if (dialog.DoModal() != IDOK) return;

    CStdStr<wchar_t> name;
    CStdStr<wchar_t> start;
    dialog.GetCellStyleName(name);
    dialog.GetFromCellStyleName(start);
    AddCellStyleName(name);
    FillCellStyleComboBox();
    markedEdit(kCreateMark, [&] { CreateCellStyle(styleId, name, start); });
}

void CVqTableditMiniFrameWnd::LaunchManageCellStyleDlg() {
    const KdAxDocLock lock(m_tableId);
    if (lock.lockStatus() != 0) return;
    markedEdit(kManageMark, [&] { manageCellStylesOf(tableStyleId()); });
    LoadCellStyleFromDatabase();
}
