// The dialog of cell borders: which grid lines of the selected cells show, and how they look.
//
// It works like a paint box, and at once: weight, line type, colour, double line and spacing are only picked; one of
// the buttons then gives them to lines of the selected cells, in the table itself. Closing the dialog takes nothing
// back, whichever button closes it; that is the undo of the group that the dialog runs in.
//
// Each cell counts for itself: "outside" is all four sides of every selected cell, not the outline of the selection.
#pragma once

#include <array>
#include <memory>

#include "kd/db/cellrange.h"
#include "module/controls/picturebuttons.h"
#include "module/preview/previewstatic.h"
#include "module/style/edgelooks.h"

class CVqTableCellFromTable;
class KdDbDatabase;
class KdDbTable;

class CVqTableCellBorderPropDlg : public KdUiBaseDialog {
public:
    explicit CVqTableCellBorderPropDlg(CWnd* parent = nullptr);
    ~CVqTableCellBorderPropDlg() override;

    /// Before DoModal. Without a table that opens, the dialog shows no preview and changes nothing.
    void SetTableObjectId(KdDbObjectId id) { m_tableId = id; }

    void OnOK() override;
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    bool PreTranslateMessage(MSG* message) override;
    void bindSingals() override;
    void OnHelp() override {}

    /// Gives the single line to every line of the selected cells that isn't hidden. Nothing calls it.
    void SetInvisibleGridLineData();
    /// What the selection is: 1 one cell, 2 cells of which none is merged, 3 a single cell that isn't merged beside
    /// merges, 4 anything else; 0 when the table can't be opened. It is the selection that the dialog opened with.
    int GetCellSeledStatus() const;
    /// The number that the text begins with, whatever the drawing's units; 0 without one. Nothing calls it.
    static double GetSpacingValue(const CStdStr<wchar_t>& text);

private:
    /// What a button does to the lines of each cell; the buttons stand in this order, the one for none behind them.
    enum Mode : int { All, Outside, Inside, Bottom, Left, Top, Right, HorizontalInside, VerticalInside };
    /// The lines of a mode: those it makes visible, and those that get what is picked.
    struct ModeLines {
        int shown;
        int painted;
    };
    static const std::array<ModeLines, 9> kModes;
    static const ModeLines& linesOf(Mode mode) { return kModes[static_cast<std::size_t>(mode)]; }

    static const std::array<PictureButton<CVqTableCellBorderPropDlg>, 10> kBorderButtons;

    void OnAllBorderButton() { SetBorderVisible(All); }
    void OnOuterBorderButton() { SetBorderVisible(Outside); }
    void OnInnerBorderButton() { SetBorderVisible(Inside); }
    void OnOnlyBottomBorderButton() { SetBorderVisible(Bottom); }
    void OnOnlyLeftBorderButton() { SetBorderVisible(Left); }
    void OnOnlyTopBorderButton() { SetBorderVisible(Top); }
    void OnOnlyRightBorderButton() { SetBorderVisible(Right); }
    void OnHorzinSideBorderButton() { SetBorderVisible(HorizontalInside); }
    void OnVertinSideBorderButton() { SetBorderVisible(VerticalInside); }
    void OnNoBorderButton() { SetBorderInvisible(); }
    void OnDoublelineButton();
    void OnSelchangeColorComboBox();
    void OnSelchangeLineTypeComBobox();
    void OnSelchangeLineWeightComboBox();
    void OnDropDownColorComboBox();
    void OnDropDownLintypeComboBox();
    void OnKillfocusSpacingEdit();

    void LoadButtonBitmap();
    void SetButtonToolTip();
    void InitCtrlsStatus();
    bool UpdateFormDatabaseData();
    void gatherEdges(const KdDbTable& table);
    void showDoubleLine();
    void SetSpacingValue(double value);
    /// The drawing that the table is in; null without one.
    KdDbDatabase* database() const;

    void SetBorderVisible(Mode mode);
    void SetVisibleGridLineData(int doubleLine, Mode mode);
    void SetBorderInvisible();
    void pickFromBoxes();
    void paintLine(KdDbTable& table, int row, int column, KdDb::GridLineType edge, int doubleLine) const;

    void ShowCellPreview();
    bool initializeCellPreviewer();
    bool CreatePreviewCell(KdDbObjectId id);

    LineBoxes m_boxes;
    PictureButtons<CVqTableCellBorderPropDlg, 10> m_buttons{kBorderButtons};
    CVqPreviewStatic m_preview;
    CButton m_doubleLineButton;
    CEdit m_spacingEdit;

    KdCellRange m_selection;  ///< as it was when the dialog opened
    KdDbObjectId m_tableId;
    std::unique_ptr<CVqTableCellFromTable> m_previewCell;
    int m_doubleLine = 0;  ///< the check state of its button
    EdgeLooks m_looks;     ///< of the visible lines of the selected cells; spacings of the double ones
    int m_selectionStatus = 0;
    // The rows chosen when the lists opened; nothing asks for them.
    int m_colorIndexAtDrop = 0;
    int m_lineTypeIndexAtDrop = 0;

    // What is picked.
    KdCmColor m_color;
    KdDbObjectId m_lineTypeId;
    KdDb::LineWeight m_lineWeight = KdDb::kLnWt000;
    double m_spacing = 0.0;
    /// Set by the first valid entry in the spacing edit. Before it the buttons leave the spacings of lines alone.
    bool m_spacingChanged = false;
};
