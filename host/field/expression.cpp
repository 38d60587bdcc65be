// The expression parser: operands and operators meet in one loop, brackets and pending operators wait on a stack
// of its own.

#include "host/field/expression.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "host/field/characters.h"
#include "host/rx/numbertext.h"

namespace kdhost::field {
namespace {

constexpr std::array<std::pair<std::wstring_view, Function>, 3> kFunctions{{
    {L"Sum", Function::sum},
    {L"Average", Function::average},
    {L"Count", Function::count},
}};
constexpr std::wstring_view kTable = L"Table";
constexpr std::wstring_view kNested = L"\\AcExpr";

/// Rows and columns of a reference stay well below what a number holds.
constexpr int kMostPlaces = 1'000'000'000;

struct Operator {
    wchar_t sign;
    Operation operation;
    int strength;
};
constexpr std::array<Operator, 5> kOperators{{
    {L'+', Operation::add, 1},
    {L'-', Operation::subtract, 1},
    {L'*', Operation::multiply, 2},
    {L'/', Operation::divide, 2},
    {L'^', Operation::power, 3},
}};
constexpr Operator kSign{L'-', Operation::negate, 4};

/// One end of a reference.
struct CellName {
    int row = 0;
    int column = 0;
    bool fixedRow = false;
    bool fixedColumn = false;
};

class Parser {
public:
    explicit Parser(std::wstring_view text) : m_text(text) {}

    Expression parse() {
        m_result.valid = readAll();
        return std::move(m_result);
    }

private:
    /// A bracket or an operator that waits for its last operand.
    struct Waiting {
        enum class Kind { binding, bracket, call } kind;
        Operator binding = kSign;
        Function function = Function::sum;
        int operands = 0;
    };

    bool readAll();
    bool readOperand();
    bool readBehindOperand();
    bool readNumber();
    bool readChild();
    bool readName();
    bool readReference(std::size_t begin, Reference reference);
    bool readCell(CellName& cell);
    bool readForeign(std::size_t begin);
    bool readCall(std::size_t begin, std::wstring_view name);
    bool closeBracket();
    bool nextArgument();
    void applyDownTo(int strength);

    bool atEnd() const { return m_at == m_text.size(); }
    void skipBlanks() {
        while (!atEnd() && isBlank(m_text[m_at])) ++m_at;
    }
    bool take(wchar_t character) {
        if (atEnd() || m_text[m_at] != character) return false;
        ++m_at;
        return true;
    }
    bool takeBehindBlanks(wchar_t character) {
        skipBlanks();
        return take(character);
    }
    template <class Test>
    std::wstring_view takeWhile(Test test) {
        const std::size_t begin = m_at;
        while (!atEnd() && test(m_text[m_at])) ++m_at;
        return m_text.substr(begin, m_at - begin);
    }
    void addStep(Operation operation, int index = 0) {
        m_result.steps.push_back({operation, Function::sum, index, 0.0});
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    bool m_wantsOperand = true;
    std::vector<Waiting> m_waiting;
    Expression m_result;
};

bool Parser::readAll() {
    for (skipBlanks(); !atEnd(); skipBlanks()) {
        if (!(m_wantsOperand ? readOperand() : readBehindOperand())) return false;
    }
    if (m_wantsOperand) return false;
    applyDownTo(0);
    return m_waiting.empty();
}

bool Parser::readOperand() {
    const std::size_t begin = m_at;
    if (take(L'+')) return true;
    if (take(L'-')) {
        m_waiting.push_back({Waiting::Kind::binding});
        return true;
    }
    if (m_text.substr(m_at).starts_with(kNested)) {
        m_at += kNested.size();
        skipBlanks();
        if (atEnd() || m_text[m_at] != L'(') return false;
    }
    if (take(L'(')) {
        m_waiting.push_back({Waiting::Kind::bracket});
        return true;
    }
    m_wantsOperand = false;
    const wchar_t first = m_text[m_at];
    if (isDigit(first) || first == L'.') return readNumber();
    if (first == L'%') return readChild();
    if (first == L'#') return readReference(begin, {});
    return readName();
}

bool Parser::readNumber() {
    const std::size_t begin = m_at;
    takeWhile(isDigit);
    if (take(L'.')) takeWhile(isDigit);
    if (m_at == begin + 1 && m_text[begin] == L'.') return false;
    const std::size_t behind = m_at;
    if (take(L'e') || take(L'E')) {
        if (!take(L'-')) take(L'+');
        if (takeWhile(isDigit).empty()) m_at = behind;
    }
    const std::optional<double> number = numberFrom(m_text.substr(begin, m_at - begin));
    if (!number) return false;
    addStep(Operation::number);
    m_result.steps.back().number = *number;
    return true;
}

bool Parser::readChild() {
    ChildMark mark;
    if (!nextChildMark(m_text, m_at, mark) || mark.at != m_at) return false;
    m_at += mark.length;
    addStep(Operation::child, mark.child);
    return true;
}

bool Parser::readName() {
    const std::size_t begin = m_at;
    const std::wstring_view letters = takeWhile(isLetter);
    const std::size_t behind = m_at;
    if (!letters.empty() && takeBehindBlanks(L'(')) {
        return sameWord(letters, kTable) ? readForeign(begin) : readCall(begin, letters);
    }
    m_at = letters.empty() ? begin : behind - letters.size();
    return readReference(begin, {});
}

bool Parser::readForeign(std::size_t begin) {
    skipBlanks();
    const std::wstring_view digits = takeWhile(isDigit);
    std::uint64_t number = 0;
    if (digits.empty() || digits.size() > 19) return false;
    for (const wchar_t digit : digits) number = number * 10 + static_cast<std::uint64_t>(digit - L'0');
    if (!takeBehindBlanks(L')') || !takeBehindBlanks(L'.')) return false;
    skipBlanks();
    Reference reference;
    reference.foreign = true;
    reference.table = KdDbObjectId(number);
    return readReference(begin, reference);
}

bool Parser::readReference(std::size_t begin, Reference reference) {
    if (m_text.substr(m_at).starts_with(kBroken)) {
        m_at += kBroken.size();
        reference.broken = true;
    } else {
        CellName first;
        if (!readCell(first)) return false;
        CellName last = first;
        const std::size_t behind = m_at;
        reference.isRange = takeBehindBlanks(L':');
        if (!reference.isRange) m_at = behind;
        if (reference.isRange) skipBlanks();
        if (reference.isRange && !readCell(last)) return false;
        if (last.row < first.row) {
            std::swap(last.row, first.row);
            std::swap(last.fixedRow, first.fixedRow);
        }
        if (last.column < first.column) {
            std::swap(last.column, first.column);
            std::swap(last.fixedColumn, first.fixedColumn);
        }
        reference.cells = {first.row, first.column, last.row, last.column};
        reference.fixed = {first.fixedRow, first.fixedColumn, last.fixedRow, last.fixedColumn};
    }
    addStep(Operation::cells, static_cast<int>(m_result.references.size()));
    m_result.references.push_back({reference, {begin, m_at - begin}});
    return true;
}

bool Parser::readCell(CellName& cell) {
    cell.fixedColumn = take(L'$');
    const std::wstring_view letters = takeWhile(isLetter);
    cell.fixedRow = take(L'$');
    const std::wstring_view digits = takeWhile(isDigit);
    if (letters.empty() || digits.empty()) return false;
    long long column = 0;
    for (const wchar_t letter : letters) {
        column = column * 26 + (inUpperCase(letter) - L'A' + 1);
        if (column > kMostPlaces) return false;
    }
    long long row = 0;
    for (const wchar_t digit : digits) {
        row = row * 10 + (digit - L'0');
        if (row > kMostPlaces) return false;
    }
    cell.row = static_cast<int>(row - 1);
    cell.column = static_cast<int>(column - 1);
    return row > 0;
}

bool Parser::readCall(std::size_t begin, std::wstring_view name) {
    const auto known = std::find_if(kFunctions.begin(), kFunctions.end(),
                                    [&](const auto& function) { return sameWord(function.first, name); });
    if (known == kFunctions.end()) return false;
    m_result.functions.push_back({known->second, {begin, name.size()}});
    m_waiting.push_back({Waiting::Kind::call, kSign, known->second, 1});
    m_wantsOperand = true;
    return true;
}

bool Parser::readBehindOperand() {
    if (take(L')')) return closeBracket();
    if (take(L',')) return nextArgument();
    const auto found = std::find_if(kOperators.begin(), kOperators.end(),
                                    [&](const Operator& known) { return known.sign == m_text[m_at]; });
    if (found == kOperators.end()) return false;
    ++m_at;
    applyDownTo(found->strength);
    m_waiting.push_back({Waiting::Kind::binding, *found});
    m_wantsOperand = true;
    return true;
}

/// Carries out the operators that wait above the last bracket and are at least that strong.
void Parser::applyDownTo(int strength) {
    while (!m_waiting.empty()) {
        const Waiting& last = m_waiting.back();
        if (last.kind != Waiting::Kind::binding || last.binding.strength < strength) return;
        addStep(last.binding.operation);
        m_waiting.pop_back();
    }
}

bool Parser::closeBracket() {
    applyDownTo(0);
    if (m_waiting.empty()) return false;
    const Waiting closed = m_waiting.back();
    m_waiting.pop_back();
    if (closed.kind != Waiting::Kind::call) return true;
    addStep(Operation::call, closed.operands);
    m_result.steps.back().function = closed.function;
    return true;
}

bool Parser::nextArgument() {
    applyDownTo(0);
    if (m_waiting.empty() || m_waiting.back().kind != Waiting::Kind::call) return false;
    ++m_waiting.back().operands;
    m_wantsOperand = true;
    return true;
}

}  // namespace

Expression parseExpression(std::wstring_view text) {
    return Parser(text).parse();
}

std::wstring rewritten(std::wstring_view text, const Expression& expression) {
    std::vector<std::pair<Piece, std::wstring>> pieces;
    for (const auto& [reference, piece] : expression.references) pieces.emplace_back(piece, written(reference));
    for (const auto& [function, piece] : expression.functions) {
        pieces.emplace_back(piece, kFunctions[static_cast<std::size_t>(function)].first);
    }
    std::sort(pieces.begin(), pieces.end(), [](const auto& a, const auto& b) { return a.first.at < b.first.at; });
    std::wstring result;
    std::size_t done = 0;
    for (const auto& [piece, now] : pieces) {
        result.append(text.substr(done, piece.at - done)).append(now);
        done = piece.at + piece.length;
    }
    return result.append(text.substr(done));
}

// ---- field codes

namespace {

/// Switches as `\f "%lu2"`, one after another; false for anything else.
bool readSwitches(std::wstring_view text, FormulaCode& code) {
    for (std::size_t at = 0;;) {
        while (at < text.size() && isBlank(text[at])) ++at;
        if (at == text.size()) return true;
        if (text[at++] != L'\\') return false;
        const std::size_t name = at;
        while (at < text.size() && isLetter(text[at])) ++at;
        const std::wstring_view letters = text.substr(name, at - name);
        if (letters.empty()) return false;
        while (at < text.size() && isBlank(text[at])) ++at;
        if (at == text.size() || text[at] != L'"') continue;
        const std::size_t end = text.find(L'"', at + 1);
        if (end == text.npos) return false;
        if (letters == L"f") {
            code.hasFormat = true;
            code.format = text.substr(at + 1, end - at - 1);
        }
        at = end + 1;
    }
}

/// Whether switches begin at a backslash: it belongs neither to a mark of a child nor to a formula within.
bool beginsSwitches(std::wstring_view code, std::size_t at) {
    const bool inMark = at >= 2 && code[at - 1] == L'<' && code[at - 2] == L'%';
    return !inMark && !code.substr(at).starts_with(kNested);
}

}  // namespace

FormulaCode takeApart(std::wstring_view code) {
    FormulaCode result;
    if (!isFormulaCode(code)) return result;
    std::size_t at = kNested.size();
    while (at < code.size() && isBlank(code[at])) ++at;
    if (at == code.size() || code[at] != L'(') return result;
    const std::size_t begin = ++at;
    std::size_t switches = code.npos;
    bool quoted = false;
    for (int depth = 1; at < code.size(); ++at) {
        const wchar_t character = code[at];
        if (character == L'"') quoted = !quoted;
        if (quoted) continue;
        if (character == L'\\' && switches == code.npos && beginsSwitches(code, at)) switches = at;
        if (character == L'(') ++depth;
        if (character == L')' && --depth == 0) break;
    }
    if (at >= code.size()) return result;
    const std::size_t end = std::min(switches, at);
    result.expression = {begin, end - begin};
    result.valid = readSwitches(code.substr(end, at - end), result) && readSwitches(code.substr(at + 1), result);
    return result;
}

}  // namespace kdhost::field
