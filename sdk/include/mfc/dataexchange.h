// The exchange of texts and states between a dialog's controls and its fields.
#pragma once

#include "mfc/stdstr.h"

class CWnd;
class KdUiBaseDialog;

/// One exchange. The functions below read a field from its control when `m_bSaveAndValidate` is set, and
/// write it otherwise.
class CDataExchange {
public:
    CDataExchange(KdUiBaseDialog* dialog, bool saveAndValidate) : m_bSaveAndValidate(saveAndValidate), m_pDlg(dialog) {}

    bool m_bSaveAndValidate;
    KdUiBaseDialog* m_pDlg;

    /// Ends the exchange as failed, with the focus in the control that was exchanged last.
    [[noreturn]] void Fail();
    const char* m_lastControl = nullptr;
};

/// What CDataExchange::Fail throws; UpdateData catches it and returns false.
struct CDataExchangeFailed {};

/// Binds a wrapper to the control of that name; a name without a control leaves it without a widget.
void DDX_Control(CDataExchange* exchange, const char* control, CWnd& wnd);
void DDX_Text(CDataExchange* exchange, const char* control, CStdStr<wchar_t>& text);
void DDX_Check(CDataExchange* exchange, const char* control, int& checked);
