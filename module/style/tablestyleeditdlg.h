// The dialog that edits one table style: its direction, the three pages of one cell style after another, and the
// previews of the table and of a cell.
//
// It has no working copy: every control writes at once to the style, through the transaction that its caller has
// opened. OK and Cancel only close it; the caller ends or aborts the transaction.
#pragma once

#include <array>
#include <memory>

#include "kd/db/objectid.h"
#include "kd/db/table.h"
#include "kd/ui/basedialog.h"
#include "kd/ui/comboboxes.h"
#include "mfc/collections.h"
#include "mfc/controls.h"
#include "module/controls/bitmapbutton.h"
#include "module/controls/comboboxes.h"
#include "module/controls/tabsheet.h"
#include "module/preview/previewstatic.h"
#include "module/preview/tablecellfromtablestyle.h"
#include "module/style/cellstyleborderdlg.h"
#include "module/style/cellstylegeneraldlg.h"
#include "module/style/cellstyletextdlg.h"

class KdDbTransaction;

class CVqTableStyleEditDlg : public KdUiBaseDialog {
public:
    /// The form without `modify`, and 0, are for a new style; 1 is for a changed one. It settles the title.
    explicit CVqTableStyleEditDlg(CWnd* parent = nullptr, int modify = 0);
    ~CVqTableStyleEditDlg() override;

    /// For the title; before DoModal.
    void SetTableStyleName(const CStdStr<wchar_t>& name) { m_strStyleName = name; }
    /// The style to edit; before DoModal. Always 1.
    int SetTableStyleId(const KdDbObjectId& id);

    /// The table's preview anew; with `rebuild` the table itself is made again. Always 1.
    int ShowTableStylePreview(int rebuild);
    /// The sample of a cell style, by its internal name. Always 1.
    int ShowCellStylePreview(const CStdStr<wchar_t>& name);
    int GetCurSelCellPage() const { return m_nPageIndex; }
    /// Appends a display name. Always 1.
    int AddCellStyleName(const CStdStr<wchar_t>& name);
    /// Always 0: no style is ever taken from a table of the drawing.
    int SelectTable() { return 0; }

    /// The style's drawing, which the pages read and write numbers for; null before the style was found.
    KdDbDatabase* database() const { return m_pDatabase; }

    /// Shows the tool tips on its way to the base.
    bool PreTranslateMessage(MSG* message) override;
    /// The previews go before what they show.
    void OnDestroy() override;
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;
    void OnHelp() override;
    /// The same page as OnHelp. Always 1.
    int OnHelpInfo();

    // These survive from one opening to the next.

    /// The page shown at the last OK. It is set to the first page before it is read, so that the dialog always opens
    /// there.
    static int m_nPageIndex;
    /// The row of the cell style box, also for another table style.
    static int m_nComboBoxIndex;

private:
    enum ToolButton : std::size_t { SelectButton, RemoveButton, CreateButton, ManageButton, ToolButtons };

    void OnOk();
    void OnSelDirectionComboBox();
    void OnSelCellStyleComboBox();
    void OnCreateCellStyleButton();
    void OnManageCellStyleButton();
    void OnSelectButton();
    void OnRemoveButton();

    // Steps of the opening. The dialog's size is fixed by its layout.
    void LoadButtonBitmap();
    int LoadCellStyleFromDatabase();
    void SetButtonToolTip();
    void FillDirectionComboBox();
    void FillCellStyleComboBox();
    void InitCellStyleTabContrl();
    void SetTableStartState(int state);
    void setTitle();
    void hideStartTable();

    void AddCellStyle();
    void AddCellStyleManager();
    int GetCurSelTableDirectionIndex() const;

    /// The pages take one size, that of the first, in which each of them has room.
    void sizePages();
    void movePages();
    std::array<CVqTableCellStylePage*, 3> pages() { return {&m_generalPage, &m_textPage, &m_borderPage}; }
    /// The pages and the sample show that cell style.
    void showCellStyle(const CStdStr<wchar_t>& internalName);
    void selectFirstCellStyle();
    /// Text of the cell style box, without blanks around it.
    CStdStr<wchar_t> boxText() const;

    /// 1 when a cell style was made.
    int LaunchCreateCellStyleDlg();
    void CreateCellStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& from);
    /// 1 when the cell styles were managed and kept.
    int LaunchManageCellStyleDlg();

    /// The style, through a transaction; null on failure.
    KdDbTableStyle* style(KdDb::OpenMode mode) const;

    void initializeTablePreviewer();
    void initializeCellPreviewer(const CStdStr<wchar_t>& name);
    int CreatePreviewTable();
    int CreatePreviewCell(const CStdStr<wchar_t>& name);

    CVqTabSheet m_tabs;
    CVqTableCellStyleGeneralDlg m_generalPage;
    CVqTableCellStyleTextDlg m_textPage;
    CVqTableCellStyleBorderDlg m_borderPage;
    CKdUiStringComboBox m_directionBox;
    CVqSpecialComboBox m_cellStyleBox;
    std::array<CVqBitmapButton, ToolButtons> m_buttons;
    CToolTipCtrl m_toolTips;
    CVqPreviewStatic m_tablePreview;
    CVqPreviewStatic m_cellPreview;

    CStdStr<wchar_t> m_strStyleName;
    int m_bModify = 0;
    CStringArray m_cellStyleNames;  ///< as shown, in the database's order
    KdDbObjectId m_idStyle;
    KdDbDatabase* m_pDatabase = nullptr;
    KdDbTransaction* m_pTransaction = nullptr;  ///< the top one at the opening
    std::unique_ptr<KdDbTable> m_pPreviewTable;
    std::unique_ptr<CVqTableCellFromTableStyle> m_pPreviewCell;
    CStdStr<wchar_t> m_strPreviewCellStyle;  ///< internal name
};
