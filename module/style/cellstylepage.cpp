// What the pages of a cell style share.

#include "module/style/cellstylepage.h"

#include "kd/db/tablestyle.h"
#include "module/core/transactions.h"
#include "module/style/tablestyleeditdlg.h"

CVqTableStyleEditDlg* CVqTableCellStylePage::editDialog() const {
    return dynamic_cast<CVqTableStyleEditDlg*>(GetParent());
}

KdDbDatabase* CVqTableCellStylePage::database() const {
    const CVqTableStyleEditDlg* dialog = editDialog();
    return dialog == nullptr ? nullptr : dialog->database();
}

const KdDbTableStyle* CVqTableCellStylePage::styleForRead() {
    m_pTransaction = topTransaction();
    return getObject<KdDbTableStyle>(m_pTransaction, m_idStyle, KdDb::kForRead);
}

KdDbTableStyle* CVqTableCellStylePage::styleForWrite() const {
    return getObject<KdDbTableStyle>(m_pTransaction, m_idStyle, KdDb::kForWrite);
}

bool CVqTableCellStylePage::isLeftToDialog(const MSG& message) const {
    const bool isEnterOrEsc =
        message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE);
    return isEnterOrEsc && GetParent() != nullptr;
}

bool CVqTableCellStylePage::PreTranslateMessage(MSG* message) {
    return !isLeftToDialog(*message) && KdUiBaseDialog::PreTranslateMessage(message);
}

int CVqTableCellStylePage::UpdatePreview(int rebuild) const {
    CVqTableStyleEditDlg* dialog = editDialog();
    if (dialog == nullptr) return 0;
    dialog->ShowTableStylePreview(rebuild);
    return dialog->ShowCellStylePreview(m_strCellStyle);
}

void CVqTableCellStylePage::initPageWindow() {
    ModifyStyleEx(WS_EX_CONTROLPARENT, 0);
}
