// How samples of styles are made, and sample tables laid out.

#include "module/style/styletablepreview.h"

#include <algorithm>
#include <array>

#include "module/core/resources.h"
#include "module/core/ssicmp.h"
#include "module/core/tablecommon.h"
#include "win32/widenumbers.h"

namespace {

constexpr unsigned kRowCountText = 2067;
constexpr unsigned kColumnCountText = 2068;
constexpr double kWidthOfHeight = 5.0;

int numberText(unsigned number) {
    return _wtoi(loadText(number).c_str());
}

/// The cell style of a row, by its internal name and by the one that its cells show.
struct RowStyle {
    CStdStr<wchar_t> cellStyle;
    CStdStr<wchar_t> shown;
};

/// Of the first row, of the second, and of all others.
using RowStyles = std::array<RowStyle, 3>;

const RowStyle& styleOfRow(const RowStyles& styles, int row) {
    return styles[static_cast<std::size_t>(std::min(row, 2))];
}

RowStyle ofCellStyle(const wchar_t* cellStyle) {
    RowStyle row{cellStyle, cellStyle};
    CVqTableCommon::DefaultCellStyleReverseConvert(row.shown);
    return row;
}

RowStyle ofShownName(const CStdStr<wchar_t>& name) {
    RowStyle row{name, name};
    CVqTableCommon::DefaultCellStyleConvert(row.cellStyle);
    return row;
}

void setCellStyles(KdDbTable& table, const RowStyles& styles, int rows) {
    for (int row = 0; row < rows; ++row) table.setCellStyle(row, -1, styleOfRow(styles, row).cellStyle);
}

void mergeAsTheStyleHasIt(KdDbTable& table, int row, int columns) {
    if (table.isMergeAllEnabled(row, 0)) {
        table.mergeCells(row, row, 0, columns - 1);
    } else {
        table.unmergeCells(row, row, 0, columns - 1);
    }
}

/// The cells show what their cell styles are called.
void writeNames(KdDbTable& table, int row, int columns, const CStdStr<wchar_t>& name) {
    for (int column = 0; column < columns; ++column) {
        table.setCellType(row, column, KdDb::kTextCell);
        table.setTextString(row, column, name);
    }
}

/// A line of text with a third of its height as room, and the margins. The columns are as wide as the height says, so
/// that in the end the last row's height settles all widths.
void size(KdDbTable& table, int row) {
    const double text = table.textHeight(table.rowType(row));
    const double height = text + text / 3.0 + 2 * CVqTableCommon::GetVertCellMarginFromTable(&table, row, 0);
    table.setRowHeight(row, height);
    table.setColumnWidth(kWidthOfHeight * height);
}

std::unique_ptr<KdDbTable> makeTable(KdDbDatabase* database, KdDbObjectId style, const RowStyles& styles) {
    if (style.isNull()) return nullptr;
    const int rows = numberText(kRowCountText);
    const int columns = numberText(kColumnCountText);

    auto table = std::make_unique<KdDbTable>();
    table->setDatabaseDefaults(database);
    table->setTableStyle(style);
    table->setPosition(KdGePoint3d());
    table->setNumColumns(columns);
    table->setNumRows(rows);
    setCellStyles(*table, styles, rows);
    table->generateLayout();
    for (int row = 0; row < rows; ++row) {
        mergeAsTheStyleHasIt(*table, row, columns);
        writeNames(*table, row, columns, styleOfRow(styles, row).shown);
        size(*table, row);
    }
    return table;
}

/// A first row that isn't one of titles is written in the size of the last row.
void writeFirstRowAsTheLast(KdDbTable& table) {
    const int last = table.numRows() - 1;
    for (int column = 0; column < table.numColumns(); ++column) {
        table.setTextHeight(0, column, table.textHeight(last, column));
    }
}

}  // namespace

std::unique_ptr<KdDbTable> makeStyleTablePreview(KdDbDatabase* database, KdDbObjectId style) {
    auto table = makeTable(database, style, {ofCellStyle(L"_TITLE"), ofCellStyle(L"_HEADER"), ofCellStyle(L"_DATA")});
    if (table != nullptr) table->recomputeTableBlock(true);
    return table;
}

std::unique_ptr<KdDbTable> makeTablePreview(KdDbDatabase* database, KdDbObjectId style, const CStdStr<wchar_t>& first,
                                            const CStdStr<wchar_t>& second, const CStdStr<wchar_t>& other) {
    const RowStyles styles = {ofShownName(first), ofShownName(second), ofShownName(other)};
    auto table = makeTable(database, style, styles);
    if (table == nullptr) return nullptr;
    if (ssicmp(styles.front().cellStyle, L"_TITLE") != 0) writeFirstRowAsTheLast(*table);
    table->recomputeTableBlock(true);
    return table;
}

std::unique_ptr<CVqTableCellFromTableStyle> makeCellStylePreview(KdDbTableStyle* style,
                                                                 const CStdStr<wchar_t>& cellStyle) {
    if (style == nullptr) return nullptr;
    auto sample = std::make_unique<CVqTableCellFromTableStyle>(style, KdString(cellStyle), false);
    sample->CreateTableCell();
    if (sample->GetTableCell() == nullptr) return nullptr;
    return sample;
}
