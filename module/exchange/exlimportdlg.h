// The dialog that reads a table from a file: the user picks a file of comma-separated text, sees it as a table, and
// accepts it. Its name and the box of sheets are those of a reader of spreadsheets, which there is none of: a file of
// text is a sheet itself, so that the box stays empty.
//
//     CExlImportDlg dialog(this);
//     if (dialog.DoModal() != IDOK) return;
//     m_imported = std::move(dialog.m_pTable);
//     m_box.AddString(dialog.m_strPath);
//
// The user may choose again at will; each file that is read takes the place of the one before. Only with a table read
// from the file chosen last can the dialog be accepted.
#pragma once

#include <memory>
#include <vector>

#include "kd/db/table.h"
#include "kd/ui/basedialog.h"
#include "mfc/combobox.h"
#include "mfc/geometry.h"
#include "module/preview/previewstatic.h"
#include "tvx/tableio.h"

class CExlImportDlg : public KdUiBaseDialog {
public:
    explicit CExlImportDlg(CWnd* parent = nullptr);
    ~CExlImportDlg() override;

    void OnOK() override;
    void OnCancel() override;
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;
    void OnHelp() override {}

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    // Of the controls.
    void OnBnClickedBtnSelpath();
    void OnBnClickedCheckPreview();
    void OnCbnSelchangeCombSheet();
    void OnSizing();
    void OnSize();

    void notePlaceOfPreview();
    void InitCtrls();
    void SetWndOriginal();
    void ResizeCtrls();
    /// Text files have no sheets.
    void GetSheetsName() {}

    /// 1 for comma-separated text, -1, after a warning, for anything else.
    static int kindOfFile(const CStdStr<wchar_t>& extension);
    void takeReader(int kind);
    struTableIoInfo readAndShow();
    struTableIoInfo readFile() const;
    void dropTable();
    void ShowPreview(KdDbTable* table);
    void initializeTablePreviewer();
    /// In the one place for both: the preview, or the words that there is none. Neither shows an empty place.
    void showPreviewPlace(bool preview, bool words);
    void setImported(bool imported);

    struct Releaser {
        void operator()(CVqTableIOHandle* reader) const { reader->Release(); }
    };

    CRect m_rcInitial;
    CRect m_rcWindow;
    // How the group of the preview lies in the window at first; the layout keeps it so, and nothing reads it.
    int m_nPreviewLeft = 0;
    int m_nPreviewBottomGap = 0;
    bool m_bImported = false;  ///< the file gave a table
    bool m_bReady = false;
    int m_nShowPreview = 1;

public:
    /// The file chosen last.
    CStdStr<wchar_t> m_strPath;

private:
    CStdStr<wchar_t> m_strSheet;
    CComboBox m_ctrlSheet;
    CVqPreviewStatic m_ctrlPreview;
    std::vector<CStdStr<wchar_t>> m_sheetNames;  ///< stays empty

public:
    /// The table read, in no drawing; null without one. Who takes it moves it out once the dialog has ended with 1.
    std::unique_ptr<KdDbTable> m_pTable;

private:
    /// Of each choice one, all kept until the dialog goes; the last one is in use while the kind is 1.
    std::vector<std::unique_ptr<CVqTableIOHandle, Releaser>> m_readers;
    int m_nKind = 0;
    QSize m_refusedSize;  ///< of a sizing that was refused; when it comes again nobody will change it
};
