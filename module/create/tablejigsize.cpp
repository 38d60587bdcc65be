// The size of the table that is placed: its rows, columns, widths and heights from the dialog's figures and from the
// window that the user drags.
//
// A row of n lines of text is (t + t/3) * n + 2m high, with t the height of the text and m a margin. Which margin is
// part of the rule of each place: rows of the table at its start, and rows of fixed height, take the horizontal one;
// the number of rows that a window holds is told with the vertical one.

#include <algorithm>
#include <cmath>

#include "kd/db/table.h"
#include "module/core/tablecommon.h"
#include "module/create/tablejig.h"

namespace {

constexpr int kTopRows = 2;
constexpr int kLeastRows = 3;  ///< the two top rows, and one of data

/// More cells than anybody places: a window at the wrong zoom, or a digit too many, must not eat the memory.
constexpr int kMostCells = 1'000'000;

/// How often `part` goes into `whole`, cut to a whole number.
int quotient(double whole, double part) {
    if (!(part > 0.0)) return 0;
    return static_cast<int>(std::min(whole / part, double(kMostCells)));
}

/// `count` rows or columns beside `others` of the other kind, as many as a table may have.
int withinMost(int count, int others) {
    return std::min(count, std::max(kMostCells / std::max(others, 1), 1));
}

void mergeRowByStyle(KdDbTable& table, int row, int columns) {
    if (columns <= 1) return;
    if (table.isMergeAllEnabled(row, 0)) {
        table.mergeCells(row, row, 0, columns - 1);
    } else {
        table.unmergeCells(row, row, 0, columns - 1);
    }
}

CStdStr<wchar_t> internalName(CStdStr<wchar_t> style) {
    CVqTableCommon::DefaultCellStyleConvert(style);
    return style;
}

}  // namespace

const CStdStr<wchar_t>& CVqTableJig::chosenStyle(int row) const {
    if (row == 0) return m_firstCellText;
    return row == 1 ? m_secondCellText : m_otherCellText;
}

double CVqTableJig::heightOfLines(double textHeight, double margin) const {
    return (textHeight + textHeight / 3.0) * m_rowHeightLines + 2.0 * margin;
}

double CVqTableJig::heightOfType(int rowType, int marginRow) const {
    const double textHeight = m_table->textHeight(static_cast<KdDb::RowType>(rowType));
    return heightOfLines(textHeight, CVqTableCommon::GetVertCellMarginFromTable(m_table, marginRow, 0));
}

void CVqTableJig::SetDefaultCelltype() {
    for (int row = 0; row < m_table->numRows(); ++row) {
        for (int column = 0; column < m_table->numColumns(); ++column) {
            m_table->setCellType(row, column, KdDb::kTextCell);
        }
    }
}

void CVqTableJig::generateLayout() {
    for (int row = 0; row < m_table->numRows(); ++row) {
        m_table->setCellStyle(row, -1, internalName(chosenStyle(row)));
    }
}

/// As in a window, columns leave room for the least rows, and rows give way to columns.
void CVqTableJig::boundCounts() {
    m_columnCount = withinMost(m_columnCount, kLeastRows);
    m_dataRows = std::min(m_dataRows, withinMost(kMostCells, m_columnCount) - kTopRows);
}

void CVqTableJig::setTableDefaults() {
    boundCounts();
    m_table->setSize(m_dataRows + kTopRows, m_columnCount);
    generateLayout();
    double leastWidth = 0.0;
    CVqTableCommon::GetCellFirstRowMinWidth(m_table, leastWidth);
    m_columnWidth = std::max(m_columnWidth, leastWidth);
    m_table->setColumnWidth(m_columnWidth);
    setOtherCell(m_dataRows, m_columnCount, false);
    setFirstCell(m_columnCount, false);
    setSecondCell(m_columnCount, false);
    if (!m_pointMode) setMinima();
    m_tableHeight = m_minimumHeight;
    m_tableWidth = m_minimumWidth;
    m_columns = m_columnCount;
    m_rows = m_dataRows + kTopRows;
}

/// A window has the least width of one column, and the least height of one row, or of the smallest table where rows
/// have a fixed height.
void CVqTableJig::setMinima() {
    if (m_windowType < 0 || m_windowType > 3) return;
    const bool columnsFollow = m_windowType == 1 || m_windowType == 3;
    const bool rowsFollow = m_windowType == 2 || m_windowType == 3;
    if (columnsFollow) {
        CVqTableCommon::GetTableMinWidth(m_table, 1, m_minimumWidth);
    } else {
        m_minimumWidth = m_table->minimumColumnWidth(0);
    }
    if (rowsFollow) {
        m_minimumHeight = 0.0;
        CVqTableCommon::GetTableMinHeight(m_table, kLeastRows, m_rowHeightLines, m_minimumHeight);
    } else {
        m_minimumHeight = m_table->minimumRowHeight(0);
    }
}

void CVqTableJig::setCellText(const CStdStr<wchar_t>& style, int firstRow, int rows, int columns, bool setText) {
    for (int row = firstRow; row < firstRow + rows; ++row) {
        for (int column = 0; column < columns; ++column) m_table->setCellType(row, column, KdDb::kTextCell);
        mergeRowByStyle(*m_table, row, columns);
        if (setText) m_table->setTextString(row, 0, style);
        const double margin = CVqTableCommon::GetHorzCellMarginFromTable(m_table, row, 0);
        m_table->setRowHeight(row, heightOfLines(m_table->textHeight(m_table->rowType(row)), margin));
    }
}

void CVqTableJig::setFirstCell(int columns, bool setText) {
    setCellText(m_firstCellText, 0, 1, columns, setText);
}

void CVqTableJig::setSecondCell(int columns, bool setText) {
    setCellText(m_secondCellText, 1, 1, columns, setText);
}

void CVqTableJig::setOtherCell(int rows, int columns, bool setText) {
    setCellText(m_otherCellText, kTopRows, rows, columns, setText);
}

double CVqTableJig::getTableHeight(int rows) const {
    return CVqTableCommon::GetCellRangeHeight(m_table, {0, 0, rows - 1, 0});
}

double CVqTableJig::getTableWidth(int columns) const {
    return CVqTableCommon::GetCellRangeWidth(m_table, {0, 0, 0, columns - 1});
}

double CVqTableJig::computerRowHeightFromRow(int row, int rows) const {
    return m_table->rowHeight(row) + (m_windowHeight - m_tableHeight) / rows;
}

double CVqTableJig::computerRowHeightFromRowHeight(int row) const {
    const double margin = CVqTableCommon::GetHorzCellMarginFromTable(m_table, row, 0);
    return heightOfLines(m_table->textHeight(m_table->rowType(row)), margin);
}

/// All rows get the height that is computed for the last one: one height for the whole table is wanted.
int CVqTableJig::setCellData(int rows, bool fromRow) {
    double height = 0.0;
    for (int row = 0; row < rows; ++row) {
        height = fromRow ? computerRowHeightFromRow(row, rows) : computerRowHeightFromRowHeight(row);
        mergeRowByStyle(*m_table, row, m_table->numColumns());
    }
    m_table->setRowHeight(height);
    return 1;
}

int CVqTableJig::rowsInWindow(double height) const {
    if (m_windowType == 2)
        return std::max(quotient(height, heightOfType(m_table->rowType(m_rows - 1), m_rows - 1)), kLeastRows);
    const double title = heightOfType(KdDb::kTitleRow, 0);
    const double header = heightOfType(KdDb::kHeaderRow, 1);
    const double data = heightOfType(KdDb::kDataRow, m_rows - 1);
    return std::max(quotient(std::max(0.0, height - title - header), data), 1) + kTopRows;
}

/// Every quotient is cut to a whole number, that of the window's width by the columns too.
CVqTableJig::Size CVqTableJig::sizeInWindow(double width, double height) const {
    const bool columnsFixed = m_windowType == 0 || m_windowType == 2;
    const bool rowsFixed = m_windowType == 0 || m_windowType == 1;
    Size size{m_columnCount, m_dataRows + kTopRows, m_columnWidth};
    if (columnsFixed) {
        size.columnWidth = std::trunc(width / m_columnCount);
    } else {
        size.columns = withinMost(std::max(quotient(width, m_columnWidth), 1), rowsFixed ? size.rows : kLeastRows);
    }
    if (!rowsFixed) size.rows = withinMost(rowsInWindow(height), size.columns);
    return size;
}

int CVqTableJig::updateTableData() {
    m_windowWidth = std::abs(m_secondPoint.x - m_firstPoint.x);
    m_windowHeight = std::abs(m_secondPoint.y - m_firstPoint.y);
    // A window too small in one direction only stays as it is.
    if (m_minimumHeight > m_windowHeight && m_minimumWidth > m_windowWidth) {
        m_windowHeight = m_minimumHeight;
        m_windowWidth = m_minimumWidth;
    }
    const Size size = sizeInWindow(m_windowWidth, m_windowHeight);
    const int columns = m_table->numColumns();
    if (columns != 1) m_table->unmergeCells(0, 0, 0, columns - 1);
    m_table->setNumColumns(size.columns);
    m_table->setNumRows(size.rows);
    generateLayout();
    m_table->setColumnWidth(size.columnWidth);
    setCellData(size.rows, m_windowType == 0 || m_windowType == 1);

    m_columns = m_table->numColumns();
    m_rows = m_table->numRows();
    m_dataRows = m_rows - kTopRows;
    m_columnCount = m_columns;
    m_tableWidth = getTableWidth(m_columns);
    m_tableHeight = getTableHeight(m_rows);
    return 0;
}

bool CVqTableJig::isReasonableInput(const KdGePoint3d& point) const {
    double width = 0.0;
    double height = 0.0;
    CVqTableCommon::GetTableMinWidth(m_table, 1, width);
    CVqTableCommon::GetTableMinHeight(m_table, kLeastRows, m_rowHeightLines, height);
    return width <= std::abs(point.x - m_firstPoint.x) && height <= std::abs(point.y - m_firstPoint.y);
}

void CVqTableJig::getCellCenterPoint(int row, int column, KdGePoint3d& point) const {
    CVqTableCommon::GetCellCenterPoint(m_table, row, column, point);
}
