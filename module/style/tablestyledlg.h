// The dialog of the table styles of a drawing: lists them, previews the selected one, sets the current one, creates,
// changes, deletes and renames.
//
// The life of a style that is made or changed here is guarded by a transaction, within which the dialogs that name and
// edit it run: OK there ends it, Cancel aborts it. All else takes effect at once and outlasts this dialog's own Cancel:
// deletions, renames, and the change of the current style.
#pragma once

#include <memory>
#include <vector>

#include "kd/db/objectid.h"
#include "kd/rx/array.h"
#include "kd/ui/basedialog.h"
#include "kd/ui/comboboxes.h"
#include "mfc/listctrl.h"
#include "module/preview/previewstatic.h"

class CVqTableCreateTableStyleDlg;
class KdDbDatabase;
class KdDbTable;

class CVqTableStyleDlg : public KdUiBaseDialog {
public:
    explicit CVqTableStyleDlg(CWnd* parent = nullptr);
    ~CVqTableStyleDlg() override;

    /// Before DoModal. 0, with the one before kept, for null.
    int SetDatabase(KdDbDatabase* database);
    /// Name of the current table style as the dialog knows it; read it after DoModal too.
    CStdStr<wchar_t> GetCurrentTableStyleName() const { return m_strCurrentStyle; }
    /// Tells the dialog alone.
    void SetCurrentTableStyleName(const CStdStr<wchar_t>& name) { m_strCurrentStyle = name; }
    /// Makes the style the drawing's current one, at once and for good: Cancel doesn't bring the former one back. A
    /// name that the drawing doesn't have gives "Standard". Always 1.
    int SetCurrentTableStyle(const CStdStr<wchar_t>& name);
    /// Of the name above; null when the drawing doesn't have it.
    KdDbObjectId getCurrentTableStyleId() const;
    /// Always 1: what is previewed follows the selection alone.
    static int SetStylePreviewName(const CStdStr<wchar_t>&) { return 1; }

    // There in form only: the filter is never remembered, and the dialog has a fixed size. Each tells that it is done.
    static int ReadRegedit() { return 1; }
    static int WriteRegedit() { return 1; }
    static int InitDlgSize() { return 1; }
    static int OnSize() { return 1; }
    static int OnSizing() { return 1; }

    /// Forwards to the base alone.
    bool PreTranslateMessage(MSG* message) override;
    /// The preview goes before what it shows.
    void OnDestroy() override;
    void OnCancel() override;
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;
    void OnListNotify(const char* control, NMHDR* header, LRESULT* result) override;
    void OnHelp() override;

private:
    // Of the controls.
    void OnCurrentStyleButton();
    void OnNewStyleButton();
    void OnModifyStyleButton();
    void OnDeleteStyleButton();
    void OnClose();
    void OnSelchangeListComboBox();
    void OnNMRclickTablestyleList(NMHDR* header, LRESULT* result);
    void OnItemchangedList(NMHDR* header, LRESULT* result);
    void OnNMClickTablestyleList(NMHDR* header, LRESULT* result);
    void OnNMDblclkTablestyleList(NMHDR* header, LRESULT* result);
    void OnLvnBeginlabeleditTablestyleList(NMHDR* header, LRESULT* result);
    void OnLvnEndlabeleditTablestyleList(NMHDR* header, LRESULT* result);
    void OnLvnKeydownTablestyleList(NMHDR* header, LRESULT* result);
    void ShowRButtonMenu(const CStdStr<wchar_t>& name);

    using Names = std::vector<CStdStr<wchar_t>>;

    // The list.
    void fillFilterCombo();
    int LoadTableStyleFromDatabase();
    void FillTableStyleNameList(bool inUseAlone);
    void fillList(bool inUseAlone);
    int FindTableStyleNameItem(const CStdStr<wchar_t>& name) const;
    void ListSort();
    /// Of the row at the selection mark; empty without one.
    CStdStr<wchar_t> markedName() const;
    int SetButtonState(const CStdStr<wchar_t>& name);
    int SetCurrentTableStyleTip();

    // What the drawing says of a style.
    KdDbObjectId FindTableStyleFromDictionary(const CStdStr<wchar_t>& name) const;
    bool IsUseTableStyle(const CStdStr<wchar_t>& name) const;
    bool isAlwaysUsed(const CStdStr<wchar_t>& name) const;
    Names namesUsedByTables() const;

    // What is done to styles.
    void CurrentTableStyle();
    /// Hands the names of all styles over. False when they can't be read.
    bool listNames(CVqTableCreateTableStyleDlg& naming) const;
    /// Whether there is a new style now. Its row comes before the last one of `rowCount`.
    bool editNewStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& start, int rowCount);
    static bool editStyle(const CStdStr<wchar_t>& name, KdDbObjectId id, int modify);
    void RenameTableStyle();
    void RenameTableStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& renamed);
    int DeleteTableStyle();
    bool eraseStyle(KdDbObjectId id) const;

    // The preview.
    int ShowPreviewPicture(const CStdStr<wchar_t>& name);
    /// With the style of m_idPreviewStyle, unless there is a previewer already.
    void initializeTablePreviewer();

    CListCtrl m_ctrlList;
    CKdUiStringComboBox m_ctrlFilterCombo;
    CVqPreviewStatic m_ctrlPreview;
    /// By the last click: false when it met empty space. Nothing is deleted meanwhile.
    bool m_bItemHit = true;
    bool m_nListFilter = false;  ///< the dialog opens on all styles, whatever it was left on
    bool m_bHasTables = false;   ///< there is a table in the drawing
    CStdStr<wchar_t> m_strCurrentStyle;
    KdDbObjectId m_idPreviewStyle;  ///< the style that the preview was last asked for; null when there is none
    KdDbObjectId m_idDictionary;
    KdDbDatabase* m_pDatabase = nullptr;
    KdArray<KdDbObjectId> m_tableIds{0, 8};      ///< every table of the drawing, gathered once
    std::unique_ptr<KdDbTable> m_pPreviewTable;  ///< in no database
};
