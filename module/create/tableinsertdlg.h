// The dialog of the TABLE command: the style of a new table, whether it begins empty or with the content of a file, its
// figures, and the cell styles of its rows, with a preview.
//
// The dialog never touches the drawing. It fills the jig, which does, and remembers the figures for the next time; only
// OK stores anything.
//
//     CVqTableInsertDlg dialog;
//     dialog.SetDatabase(database);
//     const std::unique_ptr<CVqTableJig> jig(dialog.GetTableJig());
//     if (dialog.DoModal() == IDOK) jig->doJig(dialog.m_bDataLink ? dialog.m_pTable.get() : nullptr);
#pragma once

#include <array>
#include <memory>

#include "kd/db/objectid.h"
#include "kd/db/table.h"
#include "kd/ui/basedialog.h"
#include "kd/ui/comboboxes.h"
#include "mfc/controls.h"
#include "mfc/geometry.h"
#include "module/controls/bitmapbutton.h"
#include "module/preview/previewstatic.h"

class CVqTableJig;
class KdDbDatabase;

class CVqTableInsertDlg : public KdUiBaseDialog {
public:
    explicit CVqTableInsertDlg(CWnd* parent = nullptr);
    ~CVqTableInsertDlg() override;

    /// Before DoModal. 0, with the one before kept, for null.
    int SetDatabase(KdDbDatabase* database);
    /// 1 shows what is taken over from a table that a style comes from; 0 as at first. Before DoModal. Always 1.
    int SetFromTablStyleFlag(int flag);
    /// The jig that OK fills, made at the first call. It is the caller's to delete, not before DoModal has returned.
    CVqTableJig* GetTableJig();

    /// Its preview looks at no table any more when it has ended: the one from a file goes its own way from there.
    int DoModal() override;

    /// Forwards to the base alone.
    bool PreTranslateMessage(MSG* message) override;
    /// Forwards to the base alone.
    void OnDestroy() override;
    void OnCancel() override;
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;
    void OnHelp() override;
    /// The same page as OnHelp. Always 1.
    int OnHelpInfo();
    /// Steps the column width while its edit has the focus. Always 1.
    int OnMouseWheel(int delta) override;

    // There in form only: each has nothing to do, and tells that it is done.
    static int FromDataLinkMode() { return 1; }
    static int FromEmptyTableMode() { return 1; }
    static int InitInsertOptions() { return 1; }
    static int FromDataExtraction() { return 1; }
    static int TableDataToCollect() { return 1; }
    static int SetTableHyperLink() { return 1; }
    static int MoveSpinButtonCtrl() { return 1; }
    static int FillDataLinkComboBox() { return 1; }

private:
    /// The four figures, each an edit with a radio button. In window mode one of columns and column width is fixed by
    /// the user, and one of data rows and row height; the other one follows the window.
    enum Figure : std::size_t { Columns, ColumnWidth, DataRows, RowHeight, Figures };
    enum ManagerButton : std::size_t { StyleManager, DataLinkManager, ManagerButtons };
    static constexpr std::size_t kOptions = 7;

    // Of the controls.
    void OnTableStyleManButton();
    void OnDataLinkManButton();
    void OnInsertButton();
    void OnDataLinkButton();
    void OnDataExtractionButton();
    void OnInsetPointButton();
    void OnWindowButton();
    void OnColumnButton();
    void OnColumnWidthButton();
    void OnDataRowButton();
    void OnRowHeightButton();
    void OnOk();
    void OnKillfocusColumnEdit();
    void OnKillfocusColumnWidthEdit();
    void OnKillfocusDataRowEdit();
    void OnKillfocusRowHeightEdit();
    void OnLabelCheck();
    void OnDataLinkCheck();
    void OnDataCheck();
    void OnFieldsCheck();
    void OnBlockCheck();
    void OnFormulasCheck();
    void OnRetainCellCheck();
    void OnSelStyleNameComboBox();
    /// The box shows the path of the file and is never enabled.
    void OnSelDataLinkComboBox() {}
    void OnSelFirstRowComboBox();
    void OnSelSecondRowComboBox();
    void OnSelOtherRowComboBox();
    void OnDropDownTablestyleCombo();
    void OnDelColumnWidthSpin(NMHDR* header, LRESULT* result);

    // Steps of the opening.
    void InitRadioButton();
    void LoadButtonBitmap();
    int LoadDatabaseData();
    void InitSpinButtonCtrl();
    void InitGroupRadioButton();
    void MoveRowColumnEdit();
    void TableToStartFrom(int fromTableStyle);
    void SetButtonToolTip();
    void showPictures();
    void InitDatalinkCtrls();
    void InitDlgSize();
    void OnSizing();

    // What is fixed, and what is enabled and shown for it.
    void UpdateInsetMode(int mode);
    void InitRowColSelState();
    /// The user has fixed a figure of a pair, or the other one of it.
    void setFixed(bool& isFixed, bool fixed);
    void SetSpecifiWindowMode();
    void EnableTableInsetWindow(int mode);
    void EnableInsertMode(int index, bool state);
    void enableSettings(bool enable);
    void enableFigures(bool enable);
    void enableManager(ManagerButton button, bool enable);
    void showFigures();
    /// Follows the window, in window mode.
    bool isAutomatic(Figure figure) const;

    // The figures.
    void leaveInteger(Figure figure);
    /// Takes a good text over from the edit that the focus has left; what becomes of a bad one is told there.
    void leaveFigure(Figure figure, const CStdStr<wchar_t>& text, bool isLegal, bool isAboveZero);
    void exchangeFigure(CDataExchange* exchange, Figure figure);
    void DDV_Real(CDataExchange* exchange) const;
    void SpinMasterReal(CEdit& edit, int delta) const;
    int integerOf(Figure figure) const;
    double columnWidth() const;
    double shownColumnWidth() const;
    /// Hands the figures to the jig. 0 without one.
    int CreateTable();

    // The stored settings.
    int ReadRegedit();
    void readAutoOptions();
    void readInteger(const wchar_t* name, Figure figure);
    void readColumnWidth();
    int WriteRegedit();
    void InitSetting();

    // Styles.
    void FillTableStyleComboBox();
    void FillCellComboBox();
    KdDbObjectId FindTableStyleFromDictionary(const CStdStr<wchar_t>& name) const;
    CStdStr<wchar_t> GetFirstCellText() const;
    CStdStr<wchar_t> GetSecondCellText() const;
    CStdStr<wchar_t> GetOtherCellText() const;

    // The preview.
    int ShowPreviewPicture(int show, int rebuild);
    bool showSample(bool rebuild);
    bool showImported();
    void initializeTablePreviewer();
    void initializeTablePreviewer(KdDbTable* table);
    int CreatePreviewTable(const KdDbObjectId& style, const CStdStr<wchar_t>& first, const CStdStr<wchar_t>& second,
                           const CStdStr<wchar_t>& other);

    void noteCheck(std::size_t option);
    void enableControl(const char* control, bool enable) const;
    void showControl(const char* control, bool show) const;

    CKdUiStringComboBox m_ctrlStyleName;
    CKdUiStringComboBox m_ctrlDataLink;
    CVqPreviewStatic m_ctrlPreview;
    std::array<CEdit, Figures> m_edits;
    CKdUiStringComboBox m_ctrlFirstRow;
    CKdUiStringComboBox m_ctrlSecondRow;
    CKdUiStringComboBox m_ctrlOtherRow;
    std::array<CVqBitmapButton, ManagerButtons> m_managers;
    std::array<CButton, kOptions> m_options;
    std::array<CSpinButtonCtrl, Figures> m_spins;  ///< attached to nothing: the edits have arrows of their own
    CToolTipCtrl m_toolTips;
    std::array<CButton, Figures> m_fixed;  ///< the radio buttons of the figures
    CButton m_fromEmpty;
    CButton m_fromFile;
    CButton m_atPoint;
    CButton m_inWindow;

    int m_nWindowType = 0;  ///< the jig's
    int m_nMetric = 0;      ///< 1: the stored column width is in metric units
    bool m_bPointMode = false;
    bool m_bDataRowsFixed = false;  ///< else the row height is
    bool m_bColumnsFixed = false;   ///< else the column width is
    int m_nFromTableStyle = 0;
    std::array<CStdStr<wchar_t>, Figures> m_texts;  ///< numbers, also of a figure that is automatic
    int m_nCheck = 0;                               ///< state of the option clicked last; nothing reads it
    KdDbObjectId m_idDictionary;
    KdDbDatabase* m_pDatabase = nullptr;
    KdDbObjectId m_idStyle;
    CVqTableJig* m_pJig = nullptr;  ///< its caller's

public:
    /// The table read from a file, in no drawing; null without one. It is there too when the user went back to the
    /// empty table. Who takes it moves it out.
    std::unique_ptr<KdDbTable> m_pTable;

private:
    std::unique_ptr<KdDbTable> m_pPreviewTable;
    // As the dialog opened. The layout stretches the controls, so that nothing reads the client's size.
    CRect m_rcWindow;
    int m_nClientWidth = 0;
    int m_nClientHeight = 0;
    bool m_bSizeKnown = false;

public:
    /// Whether the table is to come from the file.
    bool m_bDataLink = false;
};
