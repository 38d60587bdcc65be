// The plain slow model of tables with formulas.

#include "tests/host/field/slowsheets.h"

#include <QString>
#include <algorithm>
#include <cmath>

namespace kdtest::slow {
namespace {

const Value anError{Value::Kind::error, 0.0, {}};

Value numberOrError(double number) {
    return std::isfinite(number) ? Value{Value::Kind::number, number, {}} : anError;
}

bool countsAsNumber(const Value& value) {
    return value.kind == Value::Kind::number || value.kind == Value::Kind::empty;
}

double carriedOut(wchar_t sign, double a, double b) {
    switch (sign) {
        case L'+':
            return a + b;
        case L'-':
            return a - b;
        case L'*':
            return a * b;
        case L'/':
            return a / b;
        default:
            return std::pow(a, b);
    }
}

int strength(const Tree& tree) {
    if (tree.kind != Tree::Kind::binary) return 4;
    return tree.sign == L'^' ? 3 : tree.sign == L'*' || tree.sign == L'/' ? 2 : 1;
}

std::wstring writtenCell(const Cells& cells, int end) {
    std::wstring letters;
    for (int rest = cells.column[end]; rest >= 0; rest = rest / 26 - 1) {
        letters.insert(letters.begin(), static_cast<wchar_t>(L'A' + rest % 26));
    }
    return (cells.fixedColumn[end] ? L"$" : L"") + letters + (cells.fixedRow[end] ? L"$" : L"") +
           std::to_wstring(cells.row[end] + 1);
}

template <class Visit>
void eachReference(Tree& tree, Visit visit) {
    if (tree.kind == Tree::Kind::cells) visit(tree.cells);
    for (Tree& part : tree.parts) eachReference(part, visit);
}

}  // namespace

// ---- looking

Cell& Sheets::at(const Place& place) {
    return tables[static_cast<std::size_t>(place.table)]
        .rows[static_cast<std::size_t>(place.row)][static_cast<std::size_t>(place.column)];
}

const Cell& Sheets::at(const Place& place) const {
    return const_cast<Sheets&>(*this).at(place);
}

std::wstring Sheets::written(const Tree& tree) const {
    std::wstring text = tree.blanks;
    switch (tree.kind) {
        case Tree::Kind::number:
            return text + tree.written;
        case Tree::Kind::cells: {
            const Cells& cells = tree.cells;
            if (cells.table >= 0) {
                text += L"Table(" + std::to_wstring(ids[static_cast<std::size_t>(cells.table)]) + L").";
            }
            if (cells.broken) return text + L"#REF!";
            text += writtenCell(cells, 0);
            return cells.isRange ? text + L":" + writtenCell(cells, 1) : text;
        }
        case Tree::Kind::minus:
            return text + L"-" + written(tree.parts[0]);
        case Tree::Kind::plus:
            return text + L"+" + written(tree.parts[0]);
        case Tree::Kind::binary:
            return text + written(tree.parts[0]) + tree.sign + written(tree.parts[1]);
        case Tree::Kind::brackets:
            return text + L"(" + written(tree.parts[0]) + L")";
        case Tree::Kind::call:
            break;
    }
    text += tree.function + L"(";
    for (std::size_t i = 0; i < tree.parts.size(); ++i) text += (i == 0 ? L"" : L",") + written(tree.parts[i]);
    return text + L")";
}

bool Sheets::leadsToCells(const Cells& cells, int own) const {
    const Sheet& sheet = tables[static_cast<std::size_t>(cells.table < 0 ? own : cells.table)];
    if (cells.broken || (cells.table >= 0 && sheet.erased)) return false;
    return cells.row[1] < sheet.rowCount() && cells.column[1] < sheet.columnCount();
}

std::vector<Place> Sheets::placesOf(const Cells& cells, int own) const {
    std::vector<Place> places;
    for (int row = cells.row[0]; row <= cells.row[1]; ++row) {
        for (int column = cells.column[0]; column <= cells.column[1]; ++column) {
            places.push_back({cells.table < 0 ? own : cells.table, row, column});
        }
    }
    return places;
}

void Sheets::collectReads(const Tree& tree, int own, std::set<Place>& reads) const {
    if (tree.kind == Tree::Kind::cells && leadsToCells(tree.cells, own)) {
        for (const Place& place : placesOf(tree.cells, own)) {
            if (at(place).formula != nullptr) reads.insert(place);
        }
    }
    for (const Tree& part : tree.parts) collectReads(part, own, reads);
}

bool Sheets::allLeadToCells(const Tree& tree, int own) const {
    if (tree.kind == Tree::Kind::cells && !leadsToCells(tree.cells, own)) return false;
    return std::all_of(tree.parts.begin(), tree.parts.end(),
                       [&](const Tree& part) { return allLeadToCells(part, own); });
}

/// Follows all that the formula reads, until it comes back or there is no more.
bool Sheets::readsItself(const Place& place) const {
    std::set<Place> seen;
    std::vector<Place> ahead{place};
    while (!ahead.empty()) {
        const Place next = ahead.back();
        ahead.pop_back();
        if (!m_reads.contains(next)) collectReads(*at(next).formula, next.table, m_reads[next]);
        for (const Place& read : m_reads[next]) {
            if (read == place) return true;
            if (seen.insert(read).second) ahead.push_back(read);
        }
    }
    return false;
}

// ---- values

Value Sheets::valueAt(const Place& place) const {
    const Cell& cell = at(place);
    if (cell.formula == nullptr) return cell.typed.value;
    if (const auto known = m_known.find(place); known != m_known.end()) return known->second;
    Value value = anError;
    if (allLeadToCells(*cell.formula, place.table) && !readsItself(place)) value = valueOf(*cell.formula, place.table);
    if (value.kind == Value::Kind::empty) value = numberOrError(0.0);
    return m_known[place] = value;
}

Value Sheets::valueOf(const Tree& tree, int own) const {
    switch (tree.kind) {
        case Tree::Kind::number:
            return numberOrError(tree.number);
        case Tree::Kind::cells: {
            const std::vector<Place> places = placesOf(tree.cells, own);
            return places.size() == 1 ? valueAt(places.front()) : anError;
        }
        case Tree::Kind::minus: {
            const Value value = valueOf(tree.parts[0], own);
            return countsAsNumber(value) ? numberOrError(0.0 - value.number) : anError;
        }
        case Tree::Kind::binary: {
            const Value left = valueOf(tree.parts[0], own);
            const Value right = valueOf(tree.parts[1], own);
            if (!countsAsNumber(left) || !countsAsNumber(right)) return anError;
            return numberOrError(carriedOut(tree.sign, left.number, right.number));
        }
        case Tree::Kind::plus:
        case Tree::Kind::brackets:
            return valueOf(tree.parts[0], own);
        case Tree::Kind::call:
            return valueOfCall(tree, own);
    }
    return anError;
}

Value Sheets::valueOfCall(const Tree& tree, int own) const {
    std::vector<Value> values;
    for (const Tree& part : tree.parts) {
        const Tree* inside = &part;
        while (inside->kind == Tree::Kind::brackets || inside->kind == Tree::Kind::plus) inside = &inside->parts[0];
        if (inside->kind == Tree::Kind::cells) {
            for (const Place& place : placesOf(inside->cells, own)) values.push_back(valueAt(place));
        } else {
            values.push_back(valueOf(*inside, own));
        }
    }
    const auto isNumber = [](const Value& value) { return value.kind == Value::Kind::number; };
    const auto count = static_cast<double>(std::count_if(values.begin(), values.end(), isNumber));
    if (tree.function == L"Count") return numberOrError(count);
    double sum = 0.0;
    for (const Value& value : values) {
        if (value.kind == Value::Kind::error) return anError;
        if (isNumber(value)) sum += value.number;
    }
    return numberOrError(tree.function == L"Sum" ? sum : sum / count);
}

std::wstring Sheets::shown(const Place& place) const {
    const Cell& cell = at(place);
    if (cell.formula == nullptr) return cell.typed.contents;
    m_known.clear();
    m_reads.clear();
    const Value value = valueAt(place);
    if (value.kind == Value::Kind::error) return L"####";
    if (value.kind == Value::Kind::text) return value.text;
    return QString::number(value.number == 0.0 ? 0.0 : value.number, 'g', 15).toStdWString();
}

// ---- changes of structure

/// Gives every line of the table that formulas name the number `newLine(line)`, -1 for one that goes. A range then
/// reaches from the first to the last of its lines that are left.
template <class NewLine>
void Sheets::renumber(int table, bool rows, NewLine newLine) {
    for (std::size_t number = 0; number < tables.size(); ++number) {
        const auto follow = [&](Cells& cells) {
            const int meant = cells.table < 0 ? static_cast<int>(number) : cells.table;
            if (meant != table || cells.broken) return;
            int(&ends)[2] = rows ? cells.row : cells.column;
            std::vector<int> left;
            for (int line = ends[0]; line <= ends[1]; ++line) {
                if (newLine(line) >= 0) left.push_back(newLine(line));
            }
            cells.broken = left.empty();
            if (left.empty()) return;
            ends[0] = left.front();
            ends[1] = left.back();
        };
        for (std::vector<Cell>& row : tables[number].rows) {
            for (Cell& cell : row) {
                if (cell.formula == nullptr) continue;
                Tree tree = *cell.formula;
                eachReference(tree, follow);
                cell.formula = std::make_shared<const Tree>(std::move(tree));
            }
        }
    }
}

void Sheets::insertRows(int table, int at, int count) {
    Sheet& sheet = tables[static_cast<std::size_t>(table)];
    // What is added at the end comes between no lines.
    const bool between = at < sheet.rowCount();
    if (between) renumber(table, true, [=](int line) { return line < at ? line : line + count; });
    const std::vector<Cell> fresh(static_cast<std::size_t>(sheet.columnCount()));
    sheet.rows.insert(sheet.rows.begin() + at, static_cast<std::size_t>(count), fresh);
}

void Sheets::deleteRows(int table, int at, int count) {
    Sheet& sheet = tables[static_cast<std::size_t>(table)];
    sheet.rows.erase(sheet.rows.begin() + at, sheet.rows.begin() + at + count);
    renumber(table, true, [=](int line) { return line < at ? line : line < at + count ? -1 : line - count; });
}

void Sheets::insertColumns(int table, int at, int count) {
    Sheet& sheet = tables[static_cast<std::size_t>(table)];
    const bool between = at < sheet.columnCount();
    if (between) renumber(table, false, [=](int line) { return line < at ? line : line + count; });
    for (std::vector<Cell>& row : sheet.rows) row.insert(row.begin() + at, static_cast<std::size_t>(count), Cell());
}

void Sheets::deleteColumns(int table, int at, int count) {
    Sheet& sheet = tables[static_cast<std::size_t>(table)];
    for (std::vector<Cell>& row : sheet.rows) row.erase(row.begin() + at, row.begin() + at + count);
    renumber(table, false, [=](int line) { return line < at ? line : line < at + count ? -1 : line - count; });
}

// ---- what authors write

Typed Author::typed() {
    const auto number = [](std::wstring text, double value) {
        return Typed{std::move(text), {Value::Kind::number, value, {}}};
    };
    const auto text = [](const std::wstring& contents, const std::wstring& read) {
        return Typed{contents, {Value::Kind::text, 0.0, read}};
    };
    const Typed known[] = {
        {},
        {L"  ", {}},
        {L"{\\H2; }", {}},
        number(L"0", 0.0),
        number(L"5", 5.0),
        number(L"-2.5", -2.5),
        number(L" 12\t", 12.0),
        number(L"50%", 0.5),
        number(L".25", 0.25),
        number(L"+3", 3.0),
        number(L"1e2", 100.0),
        number(L"1e300", 1e300),
        number(L"{\\C1;\\L8\\l}", 8.0),
        text(L"text", L"text"),
        text(L"5'", L"5'"),
        text(L"1,5", L"1,5"),
        text(L"\\Lline\\l", L"line"),
        text(L"=A1", L"=A1"),
        text(L"\u0661", L"\u0661"),
        {L"####", anError},
        {L" #### ", anError},
    };
    if (oneIn(3)) {
        const int whole = below(200) - 100;
        return number(std::to_wstring(whole), whole);
    }
    return known[static_cast<std::size_t>(below(static_cast<int>(std::size(known))))];
}

Tree Author::number() {
    const std::pair<const wchar_t*, double> known[] = {{L"0", 0.0},   {L"1", 1.0},    {L"2", 2.0},
                                                       {L"0.5", 0.5}, {L".25", 0.25}, {L"3.", 3.0},
                                                       {L"1e3", 1e3}, {L"2E-1", 0.2}, {L"7e+2", 7e2}};
    Tree tree;
    std::tie(tree.written, tree.number) = known[static_cast<std::size_t>(below(static_cast<int>(std::size(known))))];
    return tree;
}

Tree Author::reference(const Sheets& sheets, int table, bool mayBeRange) {
    Tree tree;
    tree.kind = Tree::Kind::cells;
    Cells& cells = tree.cells;
    if (oneIn(4)) cells.table = below(static_cast<int>(sheets.tables.size()));
    if (oneIn(40)) {
        cells.broken = true;
        return tree;
    }
    const Sheet& sheet = sheets.tables[static_cast<std::size_t>(cells.table < 0 ? table : cells.table)];
    // Now and then a cell that the table hasn't.
    const int rows = sheet.rowCount() + (oneIn(12) ? 3 : 0);
    const int columns = sheet.columnCount() + (oneIn(12) ? 3 : 0);
    cells.isRange = mayBeRange && !oneIn(4);
    cells.row[0] = cells.row[1] = below(rows);
    cells.column[0] = cells.column[1] = below(columns);
    if (cells.isRange) {
        cells.row[1] = cells.row[0] + below(rows - cells.row[0]);
        cells.column[1] = cells.column[0] + below(columns - cells.column[0]);
    }
    for (int end = 0; end < 2; ++end) {
        cells.fixedRow[end] = oneIn(6);
        cells.fixedColumn[end] = oneIn(6);
    }
    return tree;
}

Tree Author::bracketed(Tree inside) {
    Tree tree;
    tree.kind = Tree::Kind::brackets;
    tree.parts.push_back(std::move(inside));
    return tree;
}

Tree Author::call(const Sheets& sheets, int table, int depth) {
    const wchar_t* const functions[] = {L"Sum", L"Average", L"Count"};
    Tree tree;
    tree.kind = Tree::Kind::call;
    tree.function = functions[below(3)];
    for (int count = 1 + below(3); count > 0; --count) {
        tree.parts.push_back(oneIn(3) ? expression(sheets, table, depth - 1) : reference(sheets, table, true));
    }
    return tree;
}

Tree Author::operand(const Sheets& sheets, int table, int depth) {
    Tree tree;
    const int choice = below(depth > 0 ? 10 : 5);
    if (choice < 2) tree = number();
    if (choice >= 2 && choice < 5) tree = reference(sheets, table, oneIn(15));
    if (choice == 5) tree = bracketed(expression(sheets, table, depth - 1));
    if (choice == 6 || choice == 7) {
        tree.kind = oneIn(5) ? Tree::Kind::plus : Tree::Kind::minus;
        tree.parts.push_back(operand(sheets, table, depth - 1));
    }
    if (choice > 7) tree = call(sheets, table, depth);
    if (oneIn(6)) tree.blanks = oneIn(2) ? L" " : L"\t ";
    return tree;
}

Tree Author::expression(const Sheets& sheets, int table, int depth) {
    if (depth <= 0 || oneIn(3)) return operand(sheets, table, depth);
    Tree tree;
    tree.kind = Tree::Kind::binary;
    tree.sign = L"+-*/^"[below(5)];
    Tree left = expression(sheets, table, depth - 1);
    Tree right = expression(sheets, table, depth - 1);
    // Equals work from the left.
    if (strength(left) < strength(tree) || oneIn(8)) left = bracketed(std::move(left));
    if (strength(right) <= strength(tree) || oneIn(8)) right = bracketed(std::move(right));
    tree.parts.push_back(std::move(left));
    tree.parts.push_back(std::move(right));
    return tree;
}

}  // namespace kdtest::slow
