// References to cells: a scan of letters, digits and colons, and the rules by which two halves make a range.

#include "module/edit/cellreference.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <locale>

#include "module/valuetext/digits.h"

namespace {

/// A row or column that has come this far takes no further digit or letter. It lies behind the end of every
/// table, which is all that matters of it.
constexpr int saturation = 0x7FFFFFF;

/// What stands on one side of a colon; -1 for what is missing.
struct Half {
    int row = -1;
    int column = -1;

    bool isEmpty() const { return row < 0 && column < 0; }
    bool isCell() const { return row >= 0 && column >= 0; }
    bool hasFormOf(const Half& other) const {
        return (row < 0) == (other.row < 0) && (column < 0) == (other.column < 0);
    }
};

bool isLetter(wchar_t character) {
    return character >= L'A' && character <= L'Z';
}

std::wstring upperCase(std::wstring text) {
    const std::locale current;
    const auto& letters = std::use_facet<std::ctype<wchar_t>>(current);
    for (wchar_t& character : text) character = letters.toupper(character);
    return text;
}

/// Consumes a reference from the left.
class Scanner {
public:
    explicit Scanner(const std::wstring& text) : m_text(text) {}

    /// False where the text is no reference; the halves are worth nothing then.
    bool scan() {
        while (m_at < m_text.size()) {
            if (!takeToken(m_text[m_at])) return false;
        }
        return true;
    }

    const Half& first() const { return m_first; }
    /// The half behind the colon; without a colon all there is.
    const Half& second() const { return m_running; }

private:
    bool takeToken(wchar_t character) {
        if (isLetter(character)) return takeColumn();
        if (isDigit(character)) return takeRow();
        return character == L':' && takeColon();
    }

    /// A is 0, Z is 25, AA is 26. No letters follow a number.
    bool takeColumn() {
        if (m_running.row >= 0) return false;
        while (m_at < m_text.size() && isLetter(m_text[m_at])) {
            const int letter = m_text[m_at++] - L'A';
            if (m_running.column >= saturation) continue;
            const std::int64_t next = (std::int64_t(m_running.column) + 1) * 26 + letter;
            m_running.column = int(std::min<std::int64_t>(next, std::numeric_limits<int>::max()));
        }
        return true;
    }

    /// Rows are counted from 1; row 0 is the first one, too.
    bool takeRow() {
        int number = 0;
        while (m_at < m_text.size() && isDigit(m_text[m_at])) {
            const int digit = m_text[m_at++] - L'0';
            if (number < saturation) number = number * 10 + digit;
        }
        m_running.row = std::max(number - 1, 0);
        return true;
    }

    bool takeColon() {
        if (m_colonSeen) return false;
        m_colonSeen = true;
        m_first = m_running;
        m_running = {};
        ++m_at;
        return true;
    }

    const std::wstring& m_text;
    std::size_t m_at = 0;
    bool m_colonSeen = false;
    Half m_first;
    Half m_running;
};

/// With nothing ahead of a colon the second half is all; a row or column with nothing behind the colon stands
/// for both ends. Otherwise both halves are cells, both rows or both columns.
std::optional<KdCellRange> join(const Half& first, Half second) {
    if (first.isEmpty()) return KdCellRange{second.row, second.column, second.row, second.column};
    if (second.isEmpty() && !first.isCell()) second = first;
    if (!first.hasFormOf(second)) return std::nullopt;
    const auto [top, bottom] = std::minmax(first.row, second.row);
    const auto [left, right] = std::minmax(first.column, second.column);
    return KdCellRange{top, left, bottom, right};
}

}  // namespace

std::optional<KdCellRange> parseCellReference(const std::wstring& text) {
    if (text.empty()) return std::nullopt;
    const std::wstring capitals = upperCase(text);
    Scanner scanner(capitals);
    if (!scanner.scan()) return std::nullopt;
    return join(scanner.first(), scanner.second());
}
