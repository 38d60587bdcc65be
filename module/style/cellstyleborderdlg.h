// The third page of the style edit dialog: the six grid lines of a cell style.
//
// It works like a paint box. Weight, line type, colour, double line and spacing are only picked; one of the buttons
// then gives them to a set of edges. Nothing is written before a button is pressed, and what was picked stays picked
// when another cell style is shown: only the boxes are refreshed.
#pragma once

#include <array>

#include "module/controls/picturebuttons.h"
#include "module/style/cellstylepage.h"
#include "module/style/edgelooks.h"

class CVqTableCellStyleBorderDlg : public CVqTableCellStylePage {
public:
    explicit CVqTableCellStyleBorderDlg(CWnd* parent = nullptr);

    int UpdateFormDatabaseData() override;

    bool PreTranslateMessage(MSG* message) override;
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void bindSingals() override;

    // Nothing calls these two.

    /// Whether the line styles of all six edges agree; they are never gathered, so that it is false.
    bool IsGridLineStyleUnification() const { return m_looks.IsGridLineStyleUnification(); }
    /// Gives the single line to every visible edge.
    void SetInvisibleGridLineData();

private:
    static const std::array<PictureButton<CVqTableCellStyleBorderDlg>, 8> kBorderButtons;

    void OnAllBorderButton() { SetBorderVisible(0); }
    void OnOuterBorderButton() { SetBorderVisible(1); }
    void OnInnerBorderButton() { SetBorderVisible(2); }
    void OnBottomBorderButton() { SetBorderVisible(3); }
    void OnLeftBorderButton() { SetBorderVisible(4); }
    void OnTopBorderButton() { SetBorderVisible(5); }
    void OnRightBorderButton() { SetBorderVisible(6); }
    void OnNoBorderButton() { SetBorderInvisible(); }
    void OnKillfocusSpacingEdit();
    void OnSelLWeightComboBox();
    void OnSelLTypeComboBox();
    void OnSelColorComboBox();
    void OnDoubleLineButton();
    void OnDropDownColorComboBox();
    void OnDropDownLintypeComboBox() {}

    void LoadButtonBitmap();
    void SetButtonToolTip();
    void InitUI();

    /// Draws the edges of a selector with what is picked. Other edges stay as they are: the buttons add to what is
    /// drawn, they don't replace it.
    void SetBorderVisible(int selector);
    void SetVisibleGridLineData(int doubleLine, int selector);
    void SetBorderInvisible();

    void gatherEdges(const KdDbTableStyle& style);
    void showSpacing(const KdDbTableStyle& style);

    LineBoxes m_boxes;
    PictureButtons<CVqTableCellStyleBorderDlg, 8> m_buttons{kBorderButtons};
    CButton m_doubleLineButton;
    CStatic m_infoText;
    CEdit m_spacingEdit;
    CRect m_windowRect;  ///< at the opening; nothing reads it

    /// Follows clicks on the button alone: a refresh that checks or unchecks the button leaves it as it is.
    int m_nDoubleLine = 0;

    /// Of the visible edges. No line styles are gathered; and since spacings are never emptied, agreement of spacings
    /// is as a rule seen only by the first refresh, of a cell style with all edges visible.
    EdgeLooks m_looks;

    // What is picked.
    KdCmColor m_color;
    KdDbObjectId m_idLinetype;
    KdDb::LineWeight m_lineWeight = KdDb::kLnWt000;
    double m_dSpacing = 0.0;
    /// Set by the first valid entry in the spacing edit, for as long as the page lives. Before it the buttons leave
    /// the spacings of the edges alone.
    int m_bSpacingSet = 0;
    int m_droppedRow = -1;  ///< of the colour box; nothing reads it
};
