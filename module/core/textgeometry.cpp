// What texts need: where they stand in a cell, and the sizes that a table must have for them.

#include <algorithm>

#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"

namespace {

enum class Horizontal { Left, Center, Right };
enum class Vertical { Top, Middle, Bottom };

struct TextPlace {
    Horizontal horizontal;
    Vertical vertical;
};

/// The nine alignments are numbered row by row. What is none of them counts as top left.
TextPlace placeOf(KdDb::CellAlignment alignment) {
    const bool known = alignment >= KdDb::kTopLeft && alignment <= KdDb::kBottomRight;
    const int index = known ? alignment - KdDb::kTopLeft : 0;
    return {static_cast<Horizontal>(index % 3), static_cast<Vertical>(index / 3)};
}

double acrossCell(Horizontal place, double width, double margin) {
    switch (place) {
        case Horizontal::Center:
            return width / 2.0;
        case Horizontal::Right:
            return width - margin;
        default:
            return margin;
    }
}

/// Distance of the text from the cell's upper edge.
double downCell(Vertical place, double height, double margin) {
    switch (place) {
        case Vertical::Middle:
            return height / 2.0;
        case Vertical::Bottom:
            return height - margin;
        default:
            return margin;
    }
}

/// The cell style that measures the first row. That the name of the headers' is misspelt is wanted: it finds no
/// style of its own, and a header row is measured as data.
const wchar_t* measuringStyle(KdDb::RowType firstRow) {
    switch (firstRow) {
        case KdDb::kTitleRow:
            return L"_TITLE";
        case KdDb::kHeaderRow:
            return L"_HERDER";
        default:
            return L"_DATA";
    }
}

}  // namespace

KdGePoint3d CVqTableCommon::CalcTextPoint(const KdDbTable* table, int row, int column, double width, double height,
                                          KdDb::CellAlignment alignment) {
    if (table == nullptr) return {};
    const TextPlace place = placeOf(alignment);
    const double x = acrossCell(place.horizontal, width, GetHorzCellMarginFromTable(table, row, column));
    const double down = downCell(place.vertical, height, GetVertCellMarginFromTable(table, row, column));
    // Cells of a table that grows upwards have their first corner at the bottom.
    return {x, table->flowDirection() == 1 ? height - down : -down, 0.0};
}

void CVqTableCommon::GetCellFirstRowMinWidth(const KdDbTable* table, double& width) {
    width = 0.0;
    if (table == nullptr) return;
    const OpenObject<KdDbTableStyle> style(table->tableStyle(), KdDb::kForRead);
    if (!style) return;
    const wchar_t* name = measuringStyle(table->rowType(0));
    width = style->textHeight(name) + GetHorzCellMarginFromTableStyle(style.get(), name);
}

void CVqTableCommon::GetTableMinWidth(const KdDbTable* table, int columns, double& width) {
    GetCellFirstRowMinWidth(table, width);
    width *= columns;
}

/// The text height is the largest so far, over all columns and all earlier rows: it is not begun anew with each
/// row, and that is wanted.
void CVqTableCommon::GetTableMinHeight(const KdDbTable* table, int rows, int lines, double& height) {
    if (table == nullptr) return;
    double textHeight = 0.0;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < table->numColumns(); ++column) {
            textHeight = std::max(textHeight, table->textHeight(row, column));
        }
        const double margin = GetVertCellMarginFromTable(table, row, 0);
        height += 2.0 * margin + (textHeight / 3.0 + textHeight) * lines;
    }
}
