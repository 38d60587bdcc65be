// The exchange between controls and fields.

#include "mfc/dataexchange.h"

#include <QAbstractButton>

#include "kd/ui/basedialog.h"

void CDataExchange::Fail() {
    throw CDataExchangeFailed();
}

void DDX_Control(CDataExchange* exchange, const char* control, CWnd& wnd) {
    exchange->m_lastControl = control;
    QWidget* widget = exchange->m_pDlg->getWidgetsFromOrignal(control);
    if (wnd.widget() != widget) wnd.Attach(widget);
}

void DDX_Text(CDataExchange* exchange, const char* control, CStdStr<wchar_t>& text) {
    exchange->m_lastControl = control;
    CWnd* wnd = exchange->m_pDlg->GetDlgItem(control);
    if (wnd == nullptr) return;
    if (exchange->m_bSaveAndValidate) {
        wnd->GetWindowTextW(text);
    } else {
        wnd->SetWindowTextW(text);
    }
}

void DDX_Check(CDataExchange* exchange, const char* control, int& checked) {
    exchange->m_lastControl = control;
    auto* button = qobject_cast<QAbstractButton*>(exchange->m_pDlg->getWidgetsFromOrignal(control));
    if (button == nullptr) return;
    if (exchange->m_bSaveAndValidate) {
        checked = button->isChecked() ? 1 : 0;
    } else {
        button->setChecked(checked != 0);
    }
}
