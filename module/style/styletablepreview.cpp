// How the sample table is laid out.

#include "module/style/styletablepreview.h"

#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "win32/widenumbers.h"

namespace {

constexpr unsigned kRowCountText = 2067;
constexpr unsigned kColumnCountText = 2068;
constexpr double kWidthOfHeight = 5.0;

int numberText(unsigned number) {
    return _wtoi(loadText(number).c_str());
}

const wchar_t* defaultCellStyleOfRow(int row) {
    switch (row) {
        case 0:
            return L"_TITLE";
        case 1:
            return L"_HEADER";
        default:
            return L"_DATA";
    }
}

void setDefaultCellStyle(KdDbTable& table, int rows) {
    for (int row = 0; row < rows; ++row) table.setCellStyle(row, -1, defaultCellStyleOfRow(row));
}

void mergeAsTheStyleHasIt(KdDbTable& table, int row, int columns) {
    if (table.isMergeAllEnabled(row, 0)) {
        table.mergeCells(row, row, 0, columns - 1);
    } else {
        table.unmergeCells(row, row, 0, columns - 1);
    }
}

/// The cells show what their cell styles are called.
void writeNames(KdDbTable& table, int row, int columns) {
    for (int column = 0; column < columns; ++column) {
        table.setCellType(row, column, KdDb::kTextCell);
        CStdStr<wchar_t> name = table.cellStyle(row, column);
        CVqTableCommon::DefaultCellStyleReverseConvert(name);
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

}  // namespace

std::unique_ptr<KdDbTable> makeStyleTablePreview(KdDbDatabase* database, KdDbObjectId style) {
    if (style.isNull()) return nullptr;
    const int rows = numberText(kRowCountText);
    const int columns = numberText(kColumnCountText);

    auto table = std::make_unique<KdDbTable>();
    table->setDatabaseDefaults(database);
    table->setTableStyle(style);
    table->setPosition(KdGePoint3d());
    table->setNumColumns(columns);
    table->setNumRows(rows);
    setDefaultCellStyle(*table, rows);
    table->generateLayout();
    for (int row = 0; row < rows; ++row) {
        mergeAsTheStyleHasIt(*table, row, columns);
        writeNames(*table, row, columns);
        size(*table, row);
    }
    table->recomputeTableBlock(true);
    return table;
}
