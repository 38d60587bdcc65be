// The previews of the style edit dialog: a sample table of the style, and the sample of one cell style.

#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/tablestyle.h"
#include "module/style/lineweightsshown.h"
#include "module/style/styletablepreview.h"
#include "module/style/tablestyleeditdlg.h"

namespace {

/// The place of a table that grows upwards is empty: the one preview shows tables of either direction.
constexpr const char* kUnusedPreview = "IDC_TABLESTYLEEDIT_TABLEDOWN_STATIC";

}  // namespace

int CVqTableStyleEditDlg::ShowTableStylePreview(int rebuild) {
    if (CWnd* unused = GetDlgItem(kUnusedPreview)) unused->ShowWindow(SW_HIDE);
    const LineWeightsShown weights;
    if (m_tablePreview.isNeedInitialize()) return 1;
    if (rebuild != 0) {
        m_tablePreview.uninitPreviewer();
        m_pPreviewTable.reset();
        initializeTablePreviewer();
    } else if (m_pPreviewTable == nullptr) {
        CreatePreviewTable();
    }
    if (m_pPreviewTable == nullptr) return 1;
    m_pPreviewTable->setTableStyle(m_idStyle);
    m_pPreviewTable->recomputeTableBlock(true);
    m_tablePreview.invalidate(true);
    m_tablePreview.update();
    return 1;
}

int CVqTableStyleEditDlg::CreatePreviewTable() {
    m_pPreviewTable = makeStyleTablePreview(m_pDatabase, m_idStyle);
    return m_pPreviewTable != nullptr ? 1 : 0;
}

void CVqTableStyleEditDlg::initializeTablePreviewer() {
    if (!m_tablePreview.isNeedInitialize() || CreatePreviewTable() == 0) return;
    m_tablePreview.initialPreviewer(m_tablePreview.GetSafeHwnd(), m_pDatabase, {m_pPreviewTable.get()});
}

int CVqTableStyleEditDlg::ShowCellStylePreview(const CStdStr<wchar_t>& name) {
    m_strPreviewCellStyle = name;
    const LineWeightsShown weights;
    if (m_cellPreview.isNeedInitialize()) return 1;
    m_cellPreview.uninitPreviewer();
    m_pPreviewCell.reset();
    initializeCellPreviewer(name);
    m_cellPreview.invalidate(true);
    m_cellPreview.update();
    return 1;
}

void CVqTableStyleEditDlg::initializeCellPreviewer(const CStdStr<wchar_t>& name) {
    if (!m_cellPreview.isNeedInitialize() || CreatePreviewCell(name) == 0) return;
    m_cellPreview.initialPreviewer(m_cellPreview.GetSafeHwnd(), m_pPreviewCell->GetDatabase(),
                                   {m_pPreviewCell->GetTableCell()});
}

int CVqTableStyleEditDlg::CreatePreviewCell(const CStdStr<wchar_t>& name) {
    m_pPreviewCell = makeCellStylePreview(style(KdDb::kForRead), name);
    return m_pPreviewCell != nullptr ? 1 : 0;
}

void CVqTableStyleEditDlg::OnDestroy() {
    m_tablePreview.uninitPreviewer();
    m_cellPreview.uninitPreviewer();
    m_pPreviewTable.reset();
    m_pPreviewCell.reset();
    KdUiBaseDialog::OnDestroy();
}
