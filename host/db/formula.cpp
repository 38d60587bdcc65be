// How formulas name cells and ranges.

#include "kd/db/formula.h"

#include <algorithm>

#include "kd/db/table.h"

namespace {

/// A to Z, then AA, AB and so on; nothing for a negative column.
std::wstring columnLetters(int column) {
    std::wstring letters;
    for (long long rest = column + 1LL; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), static_cast<wchar_t>(L'A' + (rest - 1) % 26));
    }
    return letters;
}

std::wstring cellName(int row, int column) {
    return columnLetters(column) + (row < 0 ? L"" : std::to_wstring(row + 1LL));
}

}  // namespace

bool kdadConvertIndexToIndicatorString(int row, int column, KdString& text) {
    if (row < 0 && column < 0) return false;
    text.assign(cellName(row, column).c_str());
    return true;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the contract takes the name by value.
bool kdadConvertToFormulaExpr(KdCellRange range, KdString name, KdDbObjectId table, KdString& text) {
    const auto [top, bottom] = std::minmax(range.m_topRow, range.m_bottomRow);
    const auto [left, right] = std::minmax(range.m_leftColumn, range.m_rightColumn);
    if (name.isEmpty() || top < 0 || left < 0) return false;
    std::wstring formula = name.str() + L"(";
    if (table.isValid()) formula += L"Table(" + std::to_wstring(table.asInteger()) + L").";
    formula += cellName(top, left) + L":" + cellName(bottom, right) + L")";
    text.append(formula.c_str());
    return true;
}
