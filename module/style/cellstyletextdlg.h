// The second page of the style edit dialog: text style, height, colour and angle of a cell style.
#pragma once

#include "kd/ui/comboboxes.h"
#include "mfc/collections.h"
#include "module/style/cellstylepage.h"

class CVqTableCellStyleTextDlg : public CVqTableCellStylePage {
public:
    explicit CVqTableCellStyleTextDlg(CWnd* parent = nullptr);

    int UpdateFormDatabaseData() override;

    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;

private:
    void OnKillfocusAngleEdit();
    void OnKillfocusTextHeightEdit();
    void OnSelTextstyleComboBox();
    void OnSelTextcolorComboBox();
    void OnDropDownColorComboBox();
    void OnTextStyleButton();

    /// All names of the drawing's text styles that can be read, in their order. 0 without a drawing.
    int FillTextStyleNameArray();
    void FillTextStyleComboBox();
    void FillColorComboBox() {}  // the box fills itself
    void InitUI();

    /// Name of the text style that the page shows: the cell style's own, or the first of the drawing where that one
    /// can't be opened. Empty when there is none either.
    CStdStr<wchar_t> shownTextStyle(const KdDbTableStyle& style) const;
    void SetTextHeightValue(double height);
    void SetTextAngleValue(double angle);

    CKdUiStringComboBox m_textStyleBox;
    CKdUiTrueColorComboBox m_colorBox;
    CEdit m_heightEdit;
    CEdit m_angleEdit;
    CStringArray m_textStyleNames;
    int m_droppedRow = -1;  ///< of the colour box; nothing reads it
};
