// The table jig: turns the figures of the insert dialog into a table that the user places in the drawing.
//
// In point mode one pick places a table of fixed size. In window mode two picks give a rectangle; the window type says
// what of the table follows it.
#pragma once

#include "kd/ed/jig.h"
#include "kd/ge/point3d.h"
#include "mfc/stdstr.h"

class KdDbDatabase;
class KdDbEntity;
class KdDbTable;

class CVqTableJig : public KdEdJig {
public:
    /// For the host's working database.
    CVqTableJig();
    explicit CVqTableJig(KdDbDatabase* database);
    ~CVqTableJig() override;

    DragStatus sampler() override;
    bool update() override;
    KdDbEntity* entity() const override;

    /// The style of a new table; a null id stands for "Standard".
    void setTableStyleId(const KdDbObjectId& style);
    /// The rows below the two top rows.
    void setTableDataRows(int rows) { m_dataRows = rows; }
    void setTableColumns(int columns) { m_columnCount = columns; }
    /// In lines of text.
    void setTableRowHeight(int lines) { m_rowHeightLines = lines; }
    /// In drawing units.
    void setTableColumnWidth(double width) { m_columnWidth = width; }
    /// What of the table the rectangle changes: 0 widths and heights, 1 the number of columns and the heights,
    /// 2 widths and the number of rows, 3 the numbers of columns and rows. Any other value works as 3, but without a
    /// least size.
    void setSpecifyWindowType(int type) { m_windowType = type; }
    /// True: one pick places a table of fixed size. False: two picks give a rectangle.
    void setPointMode(bool pointMode) { m_pointMode = pointMode; }
    // The names of the cell styles of the first row, the second, and the others.
    void setFirstCellText(const CStdStr<wchar_t>& style) { m_firstCellText = style; }
    void setSecondCellText(const CStdStr<wchar_t>& style) { m_secondCellText = style; }
    void setOtherCellText(const CStdStr<wchar_t>& style) { m_otherCellText = style; }

    /// Lets the user place a new table, or `source` where it isn't null. 1 when a table reached the drawing, which
    /// owns it then; else 0, and a source is the caller's as before.
    int doJig(const KdDbTable* source);
    int crateTable(const KdDbTable* source);
    /// 0 when the points were given; -4 on cancel, and the table under drag is gone.
    int startDrag();

    /// Lays the table along the axes of the current coordinate system.
    void setNormalAndDir();
    /// Makes every cell a text cell.
    void SetDefaultCelltype();
    /// Sum of the heights of the first `rows` rows.
    double getTableHeight(int rows) const;
    /// Sum of the widths of the first `columns` columns.
    double getTableWidth(int columns) const;
    /// Height of a row that takes its share of what the window is higher than the table was.
    double computerRowHeightFromRow(int row, int rows) const;
    /// Height of a row by its lines of text.
    double computerRowHeightFromRowHeight(int row) const;
    /// Gives all rows one height and merges the rows whose style asks for it. Always 1.
    int setCellData(int rows, bool fromRow);
    /// Selects the first cell of the table and sends it to the cell editor. 0 when the table can't be had.
    int setMText(const KdDbObjectId& id);
    void getCellCenterPoint(int row, int column, KdGePoint3d& point) const;
    /// False for a window lower or narrower than the smallest table.
    bool isReasonableInput(const KdGePoint3d& point) const;
    /// Makes rows rows of that cell style: cell types, merging and height. With `setText` the style's name is written
    /// into them.
    void setCellText(const CStdStr<wchar_t>& style, int firstRow, int rows, int columns, bool setText);
    void setFirstCell(int columns, bool setText);
    void setSecondCell(int columns, bool setText);
    void setOtherCell(int rows, int columns, bool setText);
    /// Gives each row its cell style.
    void generateLayout();
    /// The table at its start, and the least size of a window.
    void setTableDefaults();
    /// The table by the window. Always 0.
    int updateTableData();

private:
    struct Size {
        int columns;
        int rows;
        double columnWidth;
    };

    int placeNew();
    int placeSource(KdDbTable* source);
    void fillPreview(const KdDbTable& source);
    int cancelDrag();
    bool isCancel(DragStatus status) const { return status == kCancel || status == kModeless; }
    DragStatus askForPoint(unsigned prompt);
    /// Cuts counts that would make more cells than a table may have.
    void boundCounts();
    void setMinima();
    /// Name of the cell style that was chosen for a row.
    const CStdStr<wchar_t>& chosenStyle(int row) const;
    /// Height of a row of so many lines of text, with a margin above and below.
    double heightOfLines(double textHeight, double margin) const;
    double heightOfType(int rowType, int marginRow) const;
    Size sizeInWindow(double width, double height) const;
    int rowsInWindow(double height) const;

    KdDbDatabase* m_database;
    KdDbTable* m_table = nullptr;  ///< the jig's own until it is appended
    bool m_pointMode = false;
    bool m_keywordMode = false;  ///< nothing turns it on
    int m_stage = 0;             ///< 0: the first point is sought; 1: the second; above: nothing more changes
    KdGePoint3d m_firstPoint;
    KdGePoint3d m_secondPoint;
    KdGePoint3d m_previousSecondPoint;
    double m_windowWidth = 0.0;
    double m_windowHeight = 0.0;
    double m_tableWidth = 0.0;   ///< after the last update
    double m_tableHeight = 0.0;  ///< after the last update
    double m_minimumHeight = 0.0;
    double m_minimumWidth = 0.0;
    int m_rows = 0;     ///< of the table at the last update
    int m_columns = 0;  ///< of the table at the last update
    KdDbObjectId m_tableStyle;
    int m_rowHeightLines = 0;
    double m_columnWidth = 0.0;
    int m_dataRows = 0;
    int m_columnCount = 0;
    int m_windowType = 0;
    CStdStr<wchar_t> m_firstCellText;
    CStdStr<wchar_t> m_secondCellText;
    CStdStr<wchar_t> m_otherCellText;
    CStdStr<wchar_t> m_keywords;
};
