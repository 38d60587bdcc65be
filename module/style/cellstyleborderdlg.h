// The third page of the style edit dialog: the six grid lines of a cell style.
//
// It works like a paint box. Weight, line type, colour, double line and spacing are only picked; one of the buttons
// then gives them to a set of edges. Nothing is written before a button is pressed, and what was picked stays picked
// when another cell style is shown: only the boxes are refreshed.
#pragma once

#include <array>

#include "kd/ui/comboboxes.h"
#include "mfc/collections.h"
#include "module/style/cellstylepage.h"
#include "module/style/controls/bitmapbutton.h"

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
    bool IsGridLineStyleUnification() const;
    /// Gives the single line to every visible edge.
    void SetInvisibleGridLineData();

private:
    struct BorderButton {
        const char* control;
        const char* bitmap;
        unsigned toolTip;  ///< number of its text
        void (CVqTableCellStyleBorderDlg::*handler)();
    };
    static const std::array<BorderButton, 8> kBorderButtons;

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
    void showWeight();
    void showLinetype();
    void showColor();
    void showSpacing(const KdDbTableStyle& style);

    bool IsLineWeightUnification() const;
    bool IsLineTypeUnification() const;
    bool IsCmColorUnification() const;
    bool IsSpacingUnification() const;

    CKdUiLineWeightComboBox m_weightBox;
    CKdUiLineTypeComboBox m_typeBox;
    CKdUiTrueColorComboBox m_colorBox;
    std::array<CVqBitmapButton, 8> m_buttons;
    CToolTipCtrl m_toolTips;
    CButton m_doubleLineButton;
    CStatic m_infoText;
    CEdit m_spacingEdit;
    CRect m_windowRect;

    /// Follows clicks on the button alone: a refresh that checks or unchecks the button leaves it as it is.
    int m_nDoubleLine = 0;

    // Of the visible edges, in the order of the edges.
    CArray<KdDb::LineWeight, KdDb::LineWeight> m_lineWeights;
    CArray<KdDbObjectId, KdDbObjectId> m_linetypes;
    CArray<KdCmColor, KdCmColor> m_colors;
    CArray<KdDb::GridLineStyle, KdDb::GridLineStyle> m_lineStyles;  ///< never filled
    /// Never emptied: it goes on growing from one refresh to the next. So agreement is seen only by a refresh that
    /// leaves exactly six spacings, which as a rule is the first one of a cell style with all edges visible.
    CArray<double, double> m_spacings;

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
