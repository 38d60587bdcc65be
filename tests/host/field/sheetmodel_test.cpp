// Random tables with formulas beside a plain slow model of them: what cells show, how references follow inserted and
// deleted rows and columns, and each change undone to the start.

#include <memory>

#include "host/db/access.h"
#include "tests/host/field/formulafixture.h"
#include "tests/host/field/slowsheets.h"

namespace {

using kdtest::narrow;
using kdtest::slow::Author;
using kdtest::slow::Cell;
using kdtest::slow::Place;
using kdtest::slow::Sheet;
using kdtest::slow::Sheets;
using kdtest::slow::Tree;

class RandomSheets : public kdtest::FormulaTest {
protected:
    static constexpr int tableCount = 3;

    /// New tables, in the drawing and in the model, with random cells.
    void begin(unsigned seed) {
        m_author = Author(seed);
        m_ids.clear();
        m_sheets = {};
        for (int table = 0; table < tableCount; ++table) {
            Sheet sheet;
            sheet.rows.assign(1 + static_cast<std::size_t>(m_author.below(5)),
                              std::vector<Cell>(1 + static_cast<std::size_t>(m_author.below(4))));
            m_ids.push_back(makeTable(sheet.rowCount(), sheet.columnCount()));
            m_sheets.tables.push_back(sheet);
            m_sheets.ids.push_back(static_cast<std::uint64_t>(m_ids.back().asInteger()));
        }
        for (int table = 0; table < tableCount; ++table) {
            edit(id(table), [&](KdDbTable& open) {
                eachCell(table, [&](const Place& place) {
                    if (!m_author.oneIn(4)) write(open, place);
                });
            });
        }
    }

    /// A random text or formula into one cell.
    void write(KdDbTable& open, const Place& place) {
        Cell& cell = m_sheets.at(place);
        cell = {};
        if (m_author.oneIn(2)) {
            cell.typed = m_author.typed();
            open.setTextString(place.row, place.column, cell.typed.contents.c_str());
            return;
        }
        cell.formula = std::make_shared<const Tree>(m_author.formula(m_sheets, place.table));
        kdtest::putFormula(open, place.row, place.column, m_sheets.written(*cell.formula));
    }

    /// One random change, as one step of undo.
    void change() {
        const int table = m_author.below(tableCount);
        Sheet& sheet = m_sheets.tables[static_cast<std::size_t>(table)];
        if (sheet.erased) return;
        m_before.push_back(m_sheets);
        edit(id(table), [&](KdDbTable& open) {
            const int rows = sheet.rowCount();
            const int columns = sheet.columnCount();
            switch (m_author.below(12)) {
                case 0:
                case 1:
                    insertRows(open, table, m_author.below(rows + 1), 1 + m_author.below(2));
                    break;
                case 2:
                case 3:
                    if (rows > 1) deleteRows(open, table, m_author.below(rows - 1), 1 + m_author.below(rows - 1));
                    break;
                case 4:
                    insertColumns(open, table, m_author.below(columns + 1), 1 + m_author.below(2));
                    break;
                case 5:
                    if (columns > 1) deleteColumns(open, table, m_author.below(columns - 1), 1);
                    break;
                case 6:
                    if (!m_author.oneIn(3)) break;
                    open.erase();
                    sheet.erased = true;
                    break;
                case 7:
                    insertRows(open, table, 0, 1);
                    write(open, {table, 0, 0});
                    if (rows > 1) deleteRows(open, table, m_author.below(rows), 1);
                    break;
                default:
                    write(open, {table, m_author.below(rows), m_author.below(columns)});
            }
            // So that there is a step in any case.
            open.setColumnWidth(0, open.columnWidth(0) + 1.0);
        });
    }

    void insertRows(KdDbTable& open, int table, int at, int count) {
        open.insertRowsAndInherit(at, 0, count);
        m_sheets.insertRows(table, at, count);
    }
    void deleteRows(KdDbTable& open, int table, int at, int count) {
        const int fits = std::min(count, open.numRows() - at);
        open.deleteRows(at, fits);
        m_sheets.deleteRows(table, at, fits);
    }
    void insertColumns(KdDbTable& open, int table, int at, int count) {
        open.insertColumnsAndInherit(at, 0, count);
        m_sheets.insertColumns(table, at, count);
    }
    void deleteColumns(KdDbTable& open, int table, int at, int count) {
        open.deleteColumns(at, count);
        m_sheets.deleteColumns(table, at, count);
    }

    /// Compares one in so many cells; results that nobody has asked for stay to be worked out later.
    void compare(int oneIn, const char* when) {
        for (int table = 0; table < tableCount; ++table) {
            const Sheet& sheet = m_sheets.tables[static_cast<std::size_t>(table)];
            const auto* open = kdhost::peek<KdDbTable>(id(table));
            ASSERT_EQ(open == nullptr, sheet.erased) << when;
            if (open == nullptr) continue;
            ASSERT_EQ(open->numRows(), sheet.rowCount()) << when;
            ASSERT_EQ(open->numColumns(), sheet.columnCount()) << when;
            eachCell(table, [&](const Place& place) {
                if (m_author.oneIn(oneIn)) compareCell(*open, place, when);
            });
        }
    }

    void compareCell(const KdDbTable& open, const Place& place, const char* when) {
        const Cell& cell = m_sheets.at(place);
        const std::wstring expected = cell.formula == nullptr ? L"" : m_sheets.written(*cell.formula);
        const std::string where = std::string(when) + ", table " + std::to_string(place.table) + ", row " +
                                  std::to_string(place.row) + ", column " + std::to_string(place.column) + ", " +
                                  narrow(expected);
        EXPECT_EQ(narrow(open.textString(place.row, place.column)), narrow(m_sheets.shown(place))) << where;
        const auto* field = kdhost::peek<KdDbField>(open.fieldId(place.row, place.column));
        ASSERT_EQ(field != nullptr, cell.formula != nullptr) << where;
        if (field == nullptr) return;
        EXPECT_EQ(narrow(field->getFieldCode(KdDbField::kAddChildren).str()), narrow(L"\\AcExpr (" + expected + L")"))
            << where;
    }

    void goBack() {
        undo();
        m_sheets = m_before.back();
        m_before.pop_back();
    }

    KdDbObjectId id(int table) const { return m_ids[static_cast<std::size_t>(table)]; }
    template <class Visit>
    void eachCell(int table, Visit visit) const {
        const Sheet& sheet = m_sheets.tables[static_cast<std::size_t>(table)];
        for (int row = 0; row < sheet.rowCount(); ++row) {
            for (int column = 0; column < sheet.columnCount(); ++column) visit(Place{table, row, column});
        }
    }

    Author m_author{0};
    Sheets m_sheets;
    std::vector<Sheets> m_before;  ///< each change
    std::vector<KdDbObjectId> m_ids;
};

TEST_F(RandomSheets, a_thousand_agree_with_a_plain_evaluator_through_changes_and_back) {
    constexpr unsigned sheets = 1000;
    constexpr int changes = 8;
    for (unsigned seed = 1; seed <= sheets && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        begin(seed);
        compare(seed % 2 == 0 ? 1 : 3, "new");
        for (int step = 0; step < changes && !HasFailure(); ++step) {
            change();
            compare(3, "changed");
        }
        compare(1, "at the end");
        const Sheets end = m_sheets;
        const std::size_t steps = m_before.size();
        while (!m_before.empty() && !HasFailure()) {
            goBack();
            compare(m_before.empty() ? 1 : 3, "undone");
        }
        if (seed % 4 != 0) continue;
        for (std::size_t step = 0; step < steps; ++step) redo();
        m_sheets = end;
        compare(1, "done again");
    }
}

/// The same in larger tables with more of everything.
TEST_F(RandomSheets, agree_through_long_runs_of_changes) {
    for (unsigned seed = 5001; seed <= 5020 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        begin(seed);
        for (int step = 0; step < 100 && !HasFailure(); ++step) {
            change();
            compare(5, "changed");
            while (!m_before.empty() && m_author.oneIn(4)) {
                goBack();
                compare(5, "undone");
            }
        }
        compare(1, "at the end");
        while (!m_before.empty()) goBack();
        compare(1, "undone to the start");
    }
}

}  // namespace
