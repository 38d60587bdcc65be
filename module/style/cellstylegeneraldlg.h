// The first page of the style edit dialog: fill, alignment, class, data format, margins and merging of a cell style.
#pragma once

#include "module/controls/tablecolorcombobox.h"
#include "module/style/cellstylepage.h"

class CVqTableCellStyleGeneralDlg : public CVqTableCellStylePage {
public:
    explicit CVqTableCellStyleGeneralDlg(CWnd* parent = nullptr);

    int UpdateFormDatabaseData() override;

    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;

private:
    void OnMergeCellButton();
    void OnFormatButton();
    void OnSelFillColorComboBox();
    void OnDropDownColorComboBox();
    void OnSelAlignmentComboBox();
    void OnSelTypeComboBox();
    void OnKillfocusHorizontalEdit();
    void OnKillfocusVerticalEdit();

    void FillColorComboBox();
    void FillAlignmentComboBox();
    void FillTypeComboBox();
    void InitUI();

    int fillColorRow(const KdCmColor& color) const;
    void showFormat(const KdDbTableStyle& style);
    /// False when the box doesn't list the class.
    bool showType(const KdDbTableStyle& style);
    void commitMargin(CEdit& edit, KdDb::CellMargin margin);

    CVqTableColorComboBox m_fillColorBox;
    CKdUiStringComboBox m_alignmentBox;
    CKdUiStringComboBox m_typeBox;
    CStatic m_formatText;
    CEdit m_horizontalEdit;
    CEdit m_verticalEdit;
    CButton m_mergeButton;
    int m_droppedRow = -1;  ///< of the colour box; nothing reads it
};
