// How references are written, and how they follow their cells.

#include "host/field/reference.h"

#include <algorithm>

#include "kd/db/table.h"

namespace kdhost::field {
namespace {

void writeCell(std::wstring& text, int row, bool fixedRow, int column, bool fixedColumn) {
    KdString letters;
    KdString number;
    kdadConvertIndexToIndicatorString(-1, column, letters);
    kdadConvertIndexToIndicatorString(row, -1, number);
    if (fixedColumn) text += L'$';
    text += letters.str();
    if (fixedRow) text += L'$';
    text += number.str();
}

/// First and last place of a reference along one direction.
struct Span {
    int& first;
    int& last;
};

Span along(KdCellRange& cells, bool rows) {
    return rows ? Span{cells.m_topRow, cells.m_bottomRow} : Span{cells.m_leftColumn, cells.m_rightColumn};
}

}  // namespace

std::wstring written(const Reference& reference) {
    std::wstring text;
    if (reference.foreign) text = L"Table(" + std::to_wstring(reference.table.asInteger()) + L").";
    if (reference.broken) return text.append(kBroken);
    const KdCellRange& cells = reference.cells;
    const FixedPlaces& fixed = reference.fixed;
    writeCell(text, cells.m_topRow, fixed.top, cells.m_leftColumn, fixed.left);
    if (!reference.isRange) return text;
    text += L':';
    writeCell(text, cells.m_bottomRow, fixed.bottom, cells.m_rightColumn, fixed.right);
    return text;
}

Reference after(const Reference& reference, const StructureChange& change) {
    Reference result = reference;
    if (result.broken) return result;
    const auto [first, last] = along(result.cells, change.rows);
    if (change.count > 0) {
        if (first >= change.at) first += change.count;
        if (last >= change.at) last += change.count;
        return result;
    }
    const auto remaining = [&](int place) {
        return place < change.at ? place : std::max(change.at, place + change.count);
    };
    first = remaining(first);
    last = remaining(last + 1) - 1;
    result.broken = last < first;
    return result;
}

Reference moved(const Reference& reference, int rows, int columns) {
    Reference result = reference;
    if (result.broken) return result;
    KdCellRange& cells = result.cells;
    if (!result.fixed.top) cells.m_topRow += rows;
    if (!result.fixed.bottom) cells.m_bottomRow += rows;
    if (!result.fixed.left) cells.m_leftColumn += columns;
    if (!result.fixed.right) cells.m_rightColumn += columns;
    if (cells.m_topRow > cells.m_bottomRow) {
        std::swap(cells.m_topRow, cells.m_bottomRow);
        std::swap(result.fixed.top, result.fixed.bottom);
    }
    if (cells.m_leftColumn > cells.m_rightColumn) {
        std::swap(cells.m_leftColumn, cells.m_rightColumn);
        std::swap(result.fixed.left, result.fixed.right);
    }
    result.broken = cells.m_topRow < 0 || cells.m_leftColumn < 0;
    return result;
}

}  // namespace kdhost::field
