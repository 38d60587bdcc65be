// Tables for tests.

#include "tests/support/tablebuilder.h"

#include <gtest/gtest.h>

#include <QString>
#include <cctype>
#include <sstream>

#include "host/db/tableaccess.h"

namespace kdtest {
namespace {

/// Reads "B12" and steps behind it.
bool readCell(const char*& at, int& row, int& column) {
    int letters = 0;
    while (std::isupper(static_cast<unsigned char>(*at)) != 0) letters = letters * 26 + (*at++ - 'A' + 1);
    int digits = 0;
    while (std::isdigit(static_cast<unsigned char>(*at)) != 0) digits = digits * 10 + (*at++ - '0');
    row = digits - 1;
    column = letters - 1;
    return row >= 0 && column >= 0;
}

std::string nameOf(int row, int column) {
    std::string letters;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
    }
    return letters + std::to_string(row + 1);
}

std::string narrow(const wchar_t* text) {
    return QString::fromWCharArray(text).toStdString();
}

template <class Value>
std::string shown(const Value& value) {
    std::ostringstream out;
    if constexpr (std::is_same_v<Value, std::wstring>) {
        out << '"' << narrow(value.c_str()) << '"';
    } else if constexpr (std::is_same_v<Value, KdCmColor>) {
        out << value.colorMethod() << ':' << value.red() << ',' << value.green() << ',' << value.blue();
    } else if constexpr (std::is_same_v<Value, KdDbObjectId>) {
        out << '#' << value.asInteger();
    } else {
        out << value;
    }
    return out.str();
}

/// The properties that a cell overrides itself.
std::string ownProperties(const kdhost::CellLook& cell) {
    std::string list;
    kdhost::forEachProperty([&](const auto& property) {
        if ((cell.own() & property.bit) == 0) return;
        list += std::string(" ") + property.name;
        if (property.edge >= 0) list += "[" + std::to_string(1 << property.edge) + "]";
        list += "=" + shown(property.in(cell.overrides->format));
    });
    return list;
}

void describeCell(const KdDbTable& table, int row, int column, std::ostream& out) {
    const kdhost::TableState& state = kdhost::tableState(table);
    const kdhost::CellLook& look = state.look(row, column);
    const kdhost::CellContent& cell = state.content(row, column);
    out << nameOf(row, column) << ' ' << narrow(state.styles.name(look.style).c_str());
    if (cell.type() != KdDb::kTextCell) out << " type=" << int(cell.type());
    if (!cell.text.empty()) out << " \"" << narrow(cell.text.c_str()) << '"';
    if (!cell.field().isNull()) out << " field=\"" << narrow(table.textString(row, column)) << '"';
    if (!cell.block().isNull()) {
        out << " block=#" << cell.block().asInteger() << " scale=" << cell.objects->blockScale
            << " turn=" << cell.objects->blockRotation << " fit=" << cell.objects->autoFit;
    }
    if (look.state != 0) out << " locks=" << int(look.state);
    out << ownProperties(look) << '\n';
}

}  // namespace

KdCellRange cells(const char* range) {
    const char* at = range;
    KdCellRange result;
    bool read = readCell(at, result.m_topRow, result.m_leftColumn);
    result.m_bottomRow = result.m_topRow;
    result.m_rightColumn = result.m_leftColumn;
    if (read && *at == ':') {
        ++at;
        read = readCell(at, result.m_bottomRow, result.m_rightColumn);
    }
    if (!read || *at != '\0') ADD_FAILURE() << "no range of cells: " << range;
    return result;
}

TableBuilder::TableBuilder(int rows, int columns) : m_table(std::make_unique<KdDbTable>()) {
    m_table->setSize(rows, columns);
}

namespace {

template <class Change>
void forEachCell(const KdDbTable& table, const char* range, Change change) {
    const KdCellRange named = cells(range);
    if (named.m_bottomRow >= table.numRows() || named.m_rightColumn >= table.numColumns()) {
        ADD_FAILURE() << "outside the table: " << range;
    }
    for (int row = named.m_topRow; row <= named.m_bottomRow; ++row) {
        for (int column = named.m_leftColumn; column <= named.m_rightColumn; ++column) change(row, column);
    }
}

}  // namespace

TableBuilder& TableBuilder::style(KdDbObjectId tableStyle) {
    m_table->setTableStyle(tableStyle);
    return *this;
}

TableBuilder& TableBuilder::merge(const char* range) {
    const KdCellRange merged = cells(range);
    m_table->mergeCells(merged.m_topRow, merged.m_bottomRow, merged.m_leftColumn, merged.m_rightColumn);
    EXPECT_EQ(m_table->getMergeRange(merged.m_topRow, merged.m_leftColumn), merged) << "not merged: " << range;
    return *this;
}

TableBuilder& TableBuilder::text(const char* cell, const std::wstring& text) {
    forEachCell(*m_table, cell, [&](int row, int column) { m_table->setTextString(row, column, text.c_str()); });
    return *this;
}

TableBuilder& TableBuilder::fill() {
    for (int row = 0; row < m_table->numRows(); ++row) {
        for (int column = 0; column < m_table->numColumns(); ++column) {
            const KdCellRange merge = m_table->getMergeRange(row, column);
            if (merge.m_topRow != row || merge.m_leftColumn != column) continue;
            m_table->setTextString(row, column, QString::fromStdString(nameOf(row, column)).toStdWString().c_str());
        }
    }
    return *this;
}

TableBuilder& TableBuilder::lock(const char* range, KdDb::CellState state) {
    forEachCell(*m_table, range, [&](int row, int column) { m_table->setCellState(row, column, state); });
    return *this;
}

TableBuilder& TableBuilder::align(const char* range, KdDb::CellAlignment alignment) {
    forEachCell(*m_table, range, [&](int row, int column) { m_table->setAlignment(row, column, alignment); });
    return *this;
}

TableBuilder& TableBuilder::cellStyle(const char* range, const std::wstring& name) {
    forEachCell(*m_table, range, [&](int row, int column) { m_table->setCellStyle(row, column, name.c_str()); });
    return *this;
}

TableBuilder& TableBuilder::rowStyle(int row, const std::wstring& name) {
    m_table->setCellStyle(row, -1, name.c_str());
    return *this;
}

TableBuilder& TableBuilder::rowHeight(int row, double height) {
    m_table->setRowHeight(row, height);
    return *this;
}

TableBuilder& TableBuilder::columnWidth(int column, double width) {
    m_table->setColumnWidth(column, width);
    return *this;
}

TableBuilder& TableBuilder::select(const char* range) {
    m_table->setSubSelection(cells(range));
    return *this;
}

std::unique_ptr<KdDbTable> TableBuilder::build() {
    return std::move(m_table);
}

std::string describe(const KdDbTable& table) {
    std::ostringstream out;
    out << table.numRows() << " x " << table.numColumns() << "\nheights";
    for (int row = 0; row < table.numRows(); ++row) out << ' ' << table.rowHeight(row);
    out << "\nwidths";
    for (int column = 0; column < table.numColumns(); ++column) out << ' ' << table.columnWidth(column);
    out << "\nrow types";
    for (int row = 0; row < table.numRows(); ++row) out << ' ' << table.rowType(row);
    out << "\nmerges";
    const kdhost::TableState& state = kdhost::tableState(table);
    if (table.numRows() > 0 && table.numColumns() > 0) {
        for (const KdCellRange& merge : state.mergesIn(state.whole())) {
            out << ' ' << nameOf(merge.m_topRow, merge.m_leftColumn) << ':'
                << nameOf(merge.m_bottomRow, merge.m_rightColumn);
        }
    }
    out << '\n';
    for (int row = 0; row < table.numRows(); ++row) {
        for (int column = 0; column < table.numColumns(); ++column) describeCell(table, row, column, out);
    }
    return out.str();
}

std::string texts(const KdDbTable& table) {
    std::string result;
    for (int row = 0; row < table.numRows(); ++row) {
        for (int column = 0; column < table.numColumns(); ++column) {
            const KdCellRange merge = table.getMergeRange(row, column);
            const bool covered = merge.m_topRow != row || merge.m_leftColumn != column;
            result += '|' + (covered ? std::string(".") : narrow(table.textString(row, column)));
        }
        result += "|\n";
    }
    return result;
}

}  // namespace kdtest
