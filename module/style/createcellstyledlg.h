// The dialog that names a new cell style.
#pragma once

#include "module/style/stylenamingdlg.h"

class CVqTableCreateCellStyleDlg : public CVqStyleNamingDlg {
public:
    explicit CVqTableCreateCellStyleDlg(CWnd* parent = nullptr);

    /// A name that exists; before DoModal.
    void AddCellStyleNameToArray(const CStdStr<wchar_t>& name) { addName(name); }
    /// The new style's name; after DoModal gave 1.
    void GetCellStyleName(CStdStr<wchar_t>& name) const { name = newName(); }
    /// The chosen start style; after DoModal gave 1.
    void GetFromCellStyleName(CStdStr<wchar_t>& name) const { name = m_strFromName; }
    void SetFromCellStyleName(const CStdStr<wchar_t>& name) { m_strFromName = name; }

    void OnOK() override;

private:
    CStdStr<wchar_t> m_strFromName;
};
