// Messages and notifications in the shape of the platform that the framework's names come from.
#pragma once

#include "mfc/geometry.h"
#include "win32/types.h"

class QWidget;

using HWND = QWidget*;
using LRESULT = long;
using WPARAM = unsigned long;
using LPARAM = long;

/// What PreTranslateMessage is given: 256 is a key that goes down, its key code in wParam (digits, letters and
/// the blank bear their ASCII code).
struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

enum : UINT { WM_KEYDOWN = 256 };
/// Key codes.
enum : WPARAM { VK_TAB = 9, VK_RETURN = 13, VK_ESCAPE = 27, VK_DELETE = 46, VK_F2 = 113 };

/// Notifications of lists, tabs and spin boxes.
enum NotifyCode : int {
    NM_CLICK = -2,
    NM_DBLCLK = -3,
    NM_RCLICK = -5,
    NM_CUSTOMDRAW = -12,
    LVN_ITEMCHANGED = -101,
    LVN_KEYDOWN = -155,
    LVN_BEGINLABELEDIT = -175,
    LVN_ENDLABELEDIT = -176,
    TCN_SELCHANGE = -551,
    UDN_DELTAPOS = -722,
    TVN_SELCHANGED = -402,
    TVN_ENDLABELEDIT = -411,
};

struct tagNMHDR {
    HWND hwndFrom = nullptr;
    int code = 0;
};
using NMHDR = tagNMHDR;

/// LVN_ITEMCHANGED, NM_CLICK, NM_DBLCLK, NM_RCLICK of a list. iItem is -1 for empty space.
struct NMLISTVIEW {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    UINT uNewState = 0;
    UINT uOldState = 0;
    CPoint ptAction;
};

/// LVN_KEYDOWN.
struct NMLVKEYDOWN {
    NMHDR hdr;
    WORD wVKey = 0;
};

/// LVN_BEGINLABELEDIT and LVN_ENDLABELEDIT. pszText is the typed text; null when the edit was given up.
struct NMLVDISPINFO {
    NMHDR hdr;
    int iItem = -1;
    const wchar_t* pszText = nullptr;
};

/// UDN_DELTAPOS: a step of a spin box, negative for up. A result other than 0 keeps the box from stepping.
struct NMUPDOWN {
    NMHDR hdr;
    int iPos = 0;  ///< before the step
    int iDelta = 0;
};

/// States of a list's row.
enum ListItemState : UINT { LVIS_FOCUSED = 1, LVIS_SELECTED = 2 };
