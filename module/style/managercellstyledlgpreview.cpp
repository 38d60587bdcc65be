// The sample of the selected cell style.

#include "kd/db/blockreference.h"
#include "kd/db/tablestyle.h"
#include "module/core/tablecommon.h"
#include "module/core/transactions.h"
#include "module/style/lineweightsshown.h"
#include "module/style/managercellstyledlg.h"
#include "module/style/styletablepreview.h"

int CVqTableManagerCellStyleDlg::ShowPreviewPicture(const CStdStr<wchar_t>& name) {
    if (getObject<KdDbTableStyle>(topTransaction(), m_idStyle, KdDb::kForRead) == nullptr) return 0;
    const LineWeightsShown scope;
    // While the dialog opens there is no preview yet; the opening makes the first one itself, and where it can't, no
    // selection does.
    if (m_ctrlPreview.isNeedInitialize()) return 1;
    m_ctrlPreview.uninitPreviewer();
    m_pPreviewCell.reset();
    initializeCellPreviewer(name);
    m_ctrlPreview.invalidate(true);
    m_ctrlPreview.update();
    return 1;
}

void CVqTableManagerCellStyleDlg::initializeCellPreviewer(const CStdStr<wchar_t>& name) {
    if (!m_ctrlPreview.isNeedInitialize() || CreatePreviewCell(name) == 0) return;
    m_ctrlPreview.initialPreviewer(m_ctrlPreview.GetSafeHwnd(), m_pPreviewCell->GetDatabase(),
                                   {m_pPreviewCell->GetTableCell()});
}

int CVqTableManagerCellStyleDlg::CreatePreviewCell(const CStdStr<wchar_t>& name) {
    CStdStr<wchar_t> internalName = name;
    CVqTableCommon::DefaultCellStyleConvert(internalName);
    m_pPreviewCell = makeCellStylePreview(style(KdDb::kForRead), internalName);
    return m_pPreviewCell != nullptr ? 1 : 0;
}

void CVqTableManagerCellStyleDlg::OnDestroy() {
    m_ctrlPreview.uninitPreviewer();
    m_pPreviewCell.reset();
    KdUiBaseDialog::OnDestroy();
}
