// References to cells.

#include "host/app/cellreference.h"

#include <algorithm>
#include <tuple>

namespace kdhost {
namespace {

constexpr int kLargest = 10'000'000;

/// One half of a reference; -1 for a part that isn't there.
struct Half {
    int row = -1;
    int column = -1;
};

std::optional<Half> parseHalf(const std::wstring& text) {
    Half half;
    std::size_t at = 0;
    for (; at < text.size(); ++at) {
        const wchar_t letter = text[at] >= L'a' && text[at] <= L'z' ? text[at] - L'a' + L'A' : text[at];
        if (letter < L'A' || letter > L'Z') break;
        half.column = std::min((half.column + 1) * 26 + (letter - L'A'), kLargest);
    }
    int number = 0;
    for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at) {
        number = std::min(number * 10 + (text[at] - L'0'), kLargest);
        half.row = number - 1;
    }
    const bool isRowZero = number == 0 && half.row == -1 && !text.empty() && text.back() == L'0';
    if (text.empty() || at != text.size() || isRowZero) return std::nullopt;
    return half;
}

}  // namespace

std::optional<KdCellRange> parseCells(const std::wstring& text, int rows, int columns) {
    const std::size_t colon = text.find(L':');
    const bool isRange = colon != std::wstring::npos;
    const auto first = parseHalf(text.substr(0, colon));
    const auto second = isRange ? parseHalf(text.substr(colon + 1)) : first;
    if (!first || !second) return std::nullopt;
    const bool hasRows = first->row >= 0;
    const bool hasColumns = first->column >= 0;
    if (hasRows != (second->row >= 0) || hasColumns != (second->column >= 0)) return std::nullopt;
    if (!isRange && !(hasRows && hasColumns)) return std::nullopt;

    KdCellRange range{0, 0, rows - 1, columns - 1};
    if (hasRows) std::tie(range.m_topRow, range.m_bottomRow) = std::minmax(first->row, second->row);
    if (hasColumns) std::tie(range.m_leftColumn, range.m_rightColumn) = std::minmax(first->column, second->column);
    const bool inside = range.m_topRow <= range.m_bottomRow && range.m_bottomRow < rows &&
                        range.m_leftColumn <= range.m_rightColumn && range.m_rightColumn < columns;
    return inside ? std::optional(range) : std::nullopt;
}

}  // namespace kdhost
