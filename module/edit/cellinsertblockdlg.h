// The dialog of a block in a cell: the block's name, a file, scale, rotation, alignment and whether the block is fitted
// to the cell.
//
// It shows what it is given. What the user enters changes the texts, never the values that the caller reads when
// DoModal has returned 1: those stay what they were given.
#pragma once

#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "kd/ui/basedialog.h"
#include "mfc/combobox.h"
#include "mfc/controls.h"

class KdDbDatabase;

class CVqTableCellInsertBlockDlg : public KdUiBaseDialog {
public:
    /// No block, unscaled and not turned, at the top left.
    explicit CVqTableCellInsertBlockDlg(KdDbDatabase* database, CWnd* parent = nullptr);
    /// `rotation` is in radians.
    CVqTableCellInsertBlockDlg(KdDbDatabase* database, bool autofit, double scale, double rotation,
                               KdDb::CellAlignment alignment, KdDbObjectId blockId, CWnd* parent = nullptr);

    /// Nothing: the tree's own OK button closes the dialog.
    void OnOK() override {}
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    /// Once: controls that are connected are passed over.
    void bindSingals() override;

    // The texts. A text that is no number above 0 isn't taken over from its edit.

    CStdStr<wchar_t> m_pathName;
    CStdStr<wchar_t> m_scaleText;
    CStdStr<wchar_t> m_rotationText;

    // The values, as given.

    KdDbDatabase* m_database;
    double m_scale;
    double m_rotation;
    bool m_autofit;
    KdDb::CellAlignment m_alignment;
    KdDbObjectId m_blockId;

private:
    void OnBnClickedCellinsertblockBrowseButton();
    void OnCbnSelchangeCellinsertblockAlignmentCombobox() {}
    void OnCbnSelchangeCellinsertblockBlocknameCombobox() {}
    void OnBnClickedCellinsertblockAutofitButton() {}
    void OnKillfocusScaleEdit();
    /// A rotation of 0 can't be entered either.
    void OnKillfocusRotateEdit();

    void FillAlignmentComboBox();

    CComboBox m_blockNameCombo;  ///< as the tree has it
    CComboBox m_alignmentCombo;
    CEdit m_scaleEdit;
    CEdit m_rotationEdit;
    CButton m_autofitButton;
    bool m_connected = false;
};
