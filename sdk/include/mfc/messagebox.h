// Message boxes.
#pragma once

#include "win32/types.h"

class QWidget;

/// Bits: buttons in the lowest four (0 OK, 1 OK and Cancel, 3 Yes, No and Cancel, 4 Yes and No), the icon in
/// the next four (16 stop, 32 question, 48 warning, 64 information).
enum MessageBoxType : UINT {
    MB_OK = 0,
    MB_OKCANCEL = 1,
    MB_YESNOCANCEL = 3,
    MB_YESNO = 4,
    MB_ICONSTOP = 16,
    MB_ICONQUESTION = 32,
    MB_ICONWARNING = 48,
    MB_ICONINFORMATION = 64,
};
enum MessageBoxResult : int { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };

/// Shows a box with the product's name as its caption, over the active window. Returns the pressed button.
int AfxMessageBox(const wchar_t* text, UINT type = MB_OK, UINT helpId = 0);

/// The same over a parent and with a caption.
int kdMessageBox(QWidget* parent, const wchar_t* text, const wchar_t* caption, UINT type);

/// The product's name, as captions show it. Valid as long as the process.
const wchar_t* GetOemProductName();
