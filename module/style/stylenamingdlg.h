// The dialog that asks for the name of a new style and for the style to start from: what the one for table
// styles and the one for cell styles share. It touches no drawing: its caller hands it the existing names, and
// reads the new name and the start style after DoModal.
#pragma once

#include "kd/ui/basedialog.h"
#include "kd/ui/comboboxes.h"
#include "mfc/collections.h"
#include "mfc/controls.h"

/// In what the two dialogs differ.
struct StyleNaming {
    const char* dialog;
    const char* nameEdit;
    const char* startBox;
    unsigned emptyText;  ///< numbers of the messages
    unsigned existsText;
    unsigned invalidText;
    unsigned tooLongText;
    std::size_t longestName;   ///< in characters; 0: any length
    const wchar_t* helpTopic;  ///< null: no help
    /// The proposal starts from the start box's selected row, which then counts as the start style; otherwise
    /// from the box's text.
    bool startsFromRow;
};

class CVqStyleNamingDlg : public KdUiBaseDialog {
public:
    CVqStyleNamingDlg(const StyleNaming& naming, CWnd* parent);

    /// The style that the start box shows first.
    void SetStartWithName(const CStdStr<wchar_t>& name) { m_strStartWith = name; }

    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;
    void OnHelp() override;

protected:
    void addName(const CStdStr<wchar_t>& name) { m_names.Add(name); }
    const CStdStr<wchar_t>& newName() const { return m_strNewName; }
    const CStdStr<wchar_t>& startWith() const { return m_strStartWith; }
    CStdStr<wchar_t> startBoxText() const;

private:
    void OnOk();
    void OnSelStartwithComboBox();
    void OnChangeNewNameEdit();

    void FillStartWithComboBox();
    /// Number of the message about what is wrong with a name; 0 when nothing is.
    unsigned objectionTo(const CStdStr<wchar_t>& name) const;
    void refuse(unsigned textNumber);
    /// The first free name for a copy of the start style.
    CStdStr<wchar_t> BuildNewStyleName(const CStdStr<wchar_t>& start) const;
    /// Whether a row of the start box is that name, regardless of case. Only what the caller listed is known.
    bool FindStyleName(const CStdStr<wchar_t>& name) const;
    /// Proposes a name; `show` writes it to the edit.
    void SetNewStyleName(bool show);
    /// Takes the edit's text, without blanks around it, as the new name.
    CStdStr<wchar_t> GetNewStyleName();
    CStdStr<wchar_t> selectedRowText() const;

    const StyleNaming& m_naming;
    CEdit m_nameEdit;
    CKdUiStringComboBox m_startBox;
    CStdStr<wchar_t> m_strNewName;
    CStdStr<wchar_t> m_strStartWith;
    CStringArray m_names;
    bool m_bNameEdited = false;  ///< by the user
    bool m_bTrackEdit = false;   ///< off while the program itself writes the edit
    CRect m_windowRect;
};
