// The dialog that names a new table style.
#pragma once

#include "module/style/stylenamingdlg.h"

class CVqTableCreateTableStyleDlg : public CVqStyleNamingDlg {
public:
    explicit CVqTableCreateTableStyleDlg(CWnd* parent = nullptr);

    /// A name that exists; before DoModal.
    void AddTableStyleNameToArray(const CStdStr<wchar_t>& name) { addName(name); }
    /// The new style's name; after DoModal gave 1.
    void GetTableStyleName(CStdStr<wchar_t>& name) const { name = newName(); }
    /// The chosen start style.
    CStdStr<wchar_t> StartWithName() const { return startWith(); }
};
