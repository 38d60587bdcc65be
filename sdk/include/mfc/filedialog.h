// CFileDialog: asks for a file under the framework's name.
#pragma once

#include "mfc/wnd.h"

/// Bits of the flags; others are of the platform's dialog and mean nothing here.
enum FileDialogFlag : UINT {
    OFN_OVERWRITEPROMPT = 0x0002,  ///< for writing: a file that would be replaced is asked about, as it always is
    OFN_HIDEREADONLY = 0x0004,     ///< no check box for opening read-only, as there is none
    OFN_FILEMUSTEXIST = 0x1000,    ///< for opening: no name of a file that isn't there is taken
};

class CFileDialog : public CWnd {
public:
    /// `open` tells whether a file is opened or written. `defaultExtension`, without its dot, is given to names typed
    /// without any. `filter` lists what is shown, as "Name|*.a;*.b|Name|*.c||"; a filter without bars is pattern and
    /// name in one. Null for none. `parent` is the window that the dialog stands over; null for the active one.
    explicit CFileDialog(bool open, const wchar_t* defaultExtension = nullptr, const wchar_t* fileName = nullptr,
                         UINT flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, const wchar_t* filter = nullptr,
                         CWnd* parent = nullptr);

    /// Runs the dialog. 1 for OK, 2 for Cancel.
    virtual int DoModal();

    /// The whole path of the file chosen; empty before that and after Cancel.
    CStdStr<wchar_t> GetPathName() const { return m_path; }
    /// What stands behind the last dot of its name; empty without one.
    CStdStr<wchar_t> GetFileExt() const;

private:
    bool m_open;
    UINT m_flags;
    CStdStr<wchar_t> m_defaultExtension;
    CStdStr<wchar_t> m_fileName;
    CStdStr<wchar_t> m_filter;
    CWnd* m_parent;
    CStdStr<wchar_t> m_path;
};
