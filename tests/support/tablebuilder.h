// Tables for tests: built in one readable expression, and described in one readable text.
#pragma once

#include <memory>
#include <string>

#include "kd/db/table.h"

namespace kdtest {

/// Builds a table in memory: `TableBuilder(3, 4).merge("A1:D1").text("B2", L"x").lock("C3").build()`. Cells are
/// named as in formulas. A name that can't be read, or a place outside, fails the running test.
class TableBuilder {
public:
    TableBuilder(int rows, int columns);

    TableBuilder& style(KdDbObjectId tableStyle);
    TableBuilder& merge(const char* range);
    TableBuilder& text(const char* cell, const std::wstring& text);
    /// Fills every cell that isn't covered with its own name.
    TableBuilder& fill();
    TableBuilder& lock(const char* range, KdDb::CellState state = KdDb::kCellStateContentLocked);
    TableBuilder& align(const char* range, KdDb::CellAlignment alignment);
    TableBuilder& cellStyle(const char* range, const std::wstring& name);
    TableBuilder& rowStyle(int row, const std::wstring& name);
    TableBuilder& rowHeight(int row, double height);
    TableBuilder& columnWidth(int column, double width);
    TableBuilder& select(const char* range);

    std::unique_ptr<KdDbTable> build();

private:
    std::unique_ptr<KdDbTable> m_table;
};

/// The range that a text such as "B2" or "A1:C3" names; fails the running test when it names none.
KdCellRange cells(const char* range);

/// The table in plain lines, to compare: size and sizes of rows and columns, the merges, then each cell with
/// content, its own style, overrides or locks. Equal tables have equal descriptions.
std::string describe(const KdDbTable& table);

/// Content alone, a line for each row, cells between bars: "|a|b|". A covered cell shows a dot.
std::string texts(const KdDbTable& table);

}  // namespace kdtest
