// A drawing with tables and formulas for one test.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/db/undo.h"
#include "kd/db/database.h"
#include "kd/db/field.h"
#include "kd/db/table.h"
#include "tests/support/tablebuilder.h"

namespace kdtest {

/// Posts a formula as cells hold it, a field that stands for its one child, and gives its id; not yet in a cell.
KdDbObjectId postFormula(KdDbDatabase& database, const std::wstring& code, KdDbObjectId owner);

/// Puts a formula, written without its equals sign, into a cell of a table that is open for write.
void putFormula(KdDbTable& table, int row, int column, const std::wstring& expression, const std::wstring& tail = {});

class FormulaTest : public ::testing::Test {
protected:
    /// In the model space, closed; of data cells only.
    KdDbObjectId makeTable(int rows, int columns);
    KdDbObjectId makeTableIn(KdDbObjectId block, int rows, int columns);
    /// Opens the table for write, calls `change(table)` and closes it, as one step of undo.
    template <class Change>
    void edit(KdDbObjectId table, Change change) {
        const kdhost::UndoCommandScope step(&m_database, L"STEP");
        KdDbTable* open = openTable(table);
        if (open == nullptr) return;
        change(*open);
        open->close();
    }
    void type(KdDbObjectId table, const char* cell, const std::wstring& text);
    /// Puts the formula into each cell of the range.
    void formula(KdDbObjectId table, const char* cells, const std::wstring& expression, const std::wstring& tail = {});

    /// What a cell shows.
    static std::string shown(KdDbObjectId table, const char* cell);
    /// The code of a cell's formula, without what is around the expression.
    static std::string code(KdDbObjectId table, const char* cell);
    /// What the expression shows in a table of 6 by 6 cells, in F6. A1 and A2 hold 5 and 7, A3 a text, B1 -2.5,
    /// B3 50%, C1 an 8 of another size, D1 an error, D2 the formula A1+A2; all else is empty.
    std::string result(const std::wstring& expression);

    void undo();
    void redo();

    KdDbDatabase m_database;

private:
    static KdDbTable* openTable(KdDbObjectId table);
};

std::string narrow(const std::wstring& text);

}  // namespace kdtest
