// The dialog that lists the cell styles of one table style and creates, renames and deletes them.
//
// It runs within a transaction that its caller has opened, and does all its work through it: what stands in the end
// is the caller's decision. It works in display names throughout; the three default cell styles are protected by
// those.
#pragma once

#include <memory>

#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "kd/ui/basedialog.h"
#include "mfc/collections.h"
#include "mfc/listctrl.h"
#include "module/preview/previewstatic.h"

class CVqTableCellFromTableStyle;
class KdDbTableStyle;
class KdDbTransaction;

class CVqTableManagerCellStyleDlg : public KdUiBaseDialog {
public:
    explicit CVqTableManagerCellStyleDlg(CWnd* parent = nullptr);
    ~CVqTableManagerCellStyleDlg() override;

    // Before DoModal. The names are replaced by those of the drawing when the dialog opens, if it finds them.

    void AddCellStyleName(const CStdStr<wchar_t>& name);
    void RemoveAll();
    void SetTableStyleId(const KdDbObjectId& style);
    void SetTableStyleName(const CStdStr<wchar_t>& name);

    /// Forwards to the base alone.
    bool PreTranslateMessage(MSG* message) override;
    /// The preview goes before what it shows.
    void OnDestroy() override;
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;
    void OnListNotify(const char* control, NMHDR* header, LRESULT* result) override;
    void OnHelp() override;

private:
    void OnOk();
    void OnNewButton();
    void OnRenameButton();
    void OnDeleteButton();
    void OnNMRclickCellstyleList(NMHDR* header, LRESULT* result);
    void OnItemchangList(NMHDR* header, LRESULT* result);
    void OnNMClickCellstyleList(NMHDR* header, LRESULT* result);
    void OnLvnKeydownCellstyleList(NMHDR* header, LRESULT* result);
    void OnLvnBeginlabeleditCellstyleList(NMHDR* header, LRESULT* result);
    void OnLvnEndlabeleditCellstyleList(NMHDR* header, LRESULT* result);

    int LoadCellStyleFromDatabase();
    void FillCellStyleItem();
    void LoadCellStyle();
    int SetButtonState(const CStdStr<wchar_t>& name);
    void ShowRButtonMenu(const CStdStr<wchar_t>& name);

    /// One of the three, by the name that the user reads.
    static bool IsDefaultCellStyle(const CStdStr<wchar_t>& name);
    bool IsExistCellStyle(const CStdStr<wchar_t>& name) const;
    /// A default, or the style of a cell of a table of this table style.
    bool IsUseCellStyle(const CStdStr<wchar_t>& name) const;

    void CreateNewCellStyle();
    void CreateCellStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& start);
    void RenameCellStyle();
    void RenameCellStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& renamed);
    void DeleteCellStyle();
    void DeleteCellStyle(const CStdStr<wchar_t>& name);
    void DelCellStyleName(const CStdStr<wchar_t>& name);

    int ShowPreviewPicture(const CStdStr<wchar_t>& name);
    void initializeCellPreviewer(const CStdStr<wchar_t>& name);
    int CreatePreviewCell(const CStdStr<wchar_t>& name);

    KdDbTableStyle* style(KdDb::OpenMode mode) const;
    CStdStr<wchar_t> rowText(int row) const;
    void refuse(unsigned textNumber);

    CListCtrl m_ctrlList;
    CVqPreviewStatic m_ctrlPreview;
    CStringArray m_names;           ///< display names of all cell styles
    CStdStr<wchar_t> m_strOldName;  ///< of the row whose label is edited
    CStdStr<wchar_t> m_strRenamed;  ///< what was typed there
    CStdStr<wchar_t> m_strTableStyle;
    KdDbObjectId m_idStyle;
    KdDbTransaction* m_pTransaction = nullptr;  ///< the one that was innermost when the dialog opened
    std::unique_ptr<CVqTableCellFromTableStyle> m_pPreviewCell;
    CRect m_windowRect;
};
