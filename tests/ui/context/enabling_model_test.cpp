// The enabling of the menu of cells against a plain slow model, on random tables and selections: whole rows and
// columns, reversed ones and ones with one end missing among them.

#include <cstdlib>
#include <random>

#include "tests/ui/context/fixture.h"

namespace kdtest {
namespace {

class EnablingModel : public ContextMenus {
protected:
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(m_random); }

    KdDbObjectId randomTable() {
        const int rows = 1 + upTo(4);
        const int columns = 1 + upTo(4);
        const KdDbObjectId id = put(TableBuilder(rows, columns));
        const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
        for (int merges = upTo(2); merges > 0; --merges) {
            const int top = upTo(rows - 1);
            const int left = upTo(columns - 1);
            table->mergeCells(top, std::min(rows - 1, top + upTo(2)), left, std::min(columns - 1, left + upTo(2)));
        }
        constexpr int states[] = {0, 0, 0, 1, 2, 16, 32, 17, 51};
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                table->setCellState(row, column, static_cast<KdDb::CellState>(states[upTo(8)]));
            }
        }
        return id;
    }

    KdCellRange randomSelection(const KdDbTable& table) {
        const int rows = table.numRows();
        const int columns = table.numColumns();
        if (upTo(9) == 0) return {upTo(rows - 1), -1, upTo(rows - 1), -1};
        if (upTo(9) == 0) return {-1, upTo(columns - 1), -1, upTo(columns - 1)};
        KdCellRange range{upTo(rows - 1), upTo(columns - 1), upTo(rows - 1), upTo(columns - 1)};
        if (upTo(4) != 0) {
            if (range.m_topRow > range.m_bottomRow) std::swap(range.m_topRow, range.m_bottomRow);
            if (range.m_leftColumn > range.m_rightColumn) std::swap(range.m_leftColumn, range.m_rightColumn);
        }
        if (upTo(4) == 0) {
            int* const ends[] = {&range.m_topRow, &range.m_leftColumn, &range.m_bottomRow, &range.m_rightColumn};
            *ends[upTo(3)] = -1;
        }
        return range;
    }

    std::mt19937 m_random{20'261'121};
};

/// The rules, item by item.
class Model {
public:
    Model(const KdDbTable& table, const KdCellRange& range) : m_table(table), m_range(range) {}

    ItemNames disabled() {
        const bool content = any([&](int r, int c) { return m_table.isContentEditable(r, c); });
        const bool format = any([&](int r, int c) { return m_table.isFormatEditable(r, c); });
        for (const char* item : {"IDR_TABLECELL_CUT", "IDR_TABLECELL_EDITTEXT", "IDR_TABLECELL_DELETEALLCONTENT"}) {
            allow(item, content);
        }
        for (const char* item : {"IDR_TABLECELL_MATCHCELL", "IDR_TABLECELL_BACKGROUNDFILL", "IDR_TABLECELL_BORDERS",
                                 "IDR_TABLECELL_DATAFORMAT"}) {
            allow(item, format);
        }
        const int rows = count(m_range.m_topRow, m_range.m_bottomRow);
        const int columns = count(m_range.m_leftColumn, m_range.m_rightColumn);
        allow("IDR_BYROW_SIZEEQUALLY", rows != 1);
        allow("IDR_BYCOLUMN_SIZEEQUALLY", columns != 1);
        allow("IDR_BYCOLUMN_LEFTINSERT", m_range.m_leftColumn >= 0);
        allow("IDR_BYCOLUMN_RIGHTINSERT", m_range.m_leftColumn >= 0);
        allow("IDR_BYCOLUMN_DELETE", m_table.canDelete(m_range.m_leftColumn, columns, false));
        allow("IDR_BYROW_ABOVEINSERT", m_range.m_topRow >= 0);
        allow("IDR_BYROW_BELOWINSERT", m_range.m_topRow >= 0);
        allow("IDR_BYROW_DELETE", m_table.canDelete(m_range.m_topRow, rows, true));
        allow("IDR_TABLECELL_MERGE", isRange() && canMerge(rows, columns));
        allow("IDR_TABLECELL_PASTE", isRange());
        allow("IDR_TABLECELL_UNMERGE", content && any([&](int r, int c) { return m_table.isMergedCell(r, c); }));
        allowLocks();
        return m_disabled;
    }

private:
    void allow(const char* item, bool allowed) {
        if (!allowed) m_disabled.insert(item);
    }
    static int count(int first, int last) { return first < 0 || last < 0 ? 0 : std::abs(last - first) + 1; }

    template <class Test>
    bool any(Test test) {
        for (int row = m_range.m_topRow; row <= m_range.m_bottomRow; ++row) {
            for (int column = m_range.m_leftColumn; column <= m_range.m_rightColumn; ++column) {
                if (test(row, column)) return true;
            }
        }
        return false;
    }

    /// Not where one end of the rows or of the columns is missing. Nothing on the clipboard goes into any range.
    bool isRange() const {
        return (m_range.m_topRow < 0) == (m_range.m_bottomRow < 0) &&
               (m_range.m_leftColumn < 0) == (m_range.m_rightColumn < 0);
    }

    /// Whole rows count as so many cells, and so do whole columns.
    bool canMerge(int rows, int columns) {
        const int cellCount = std::max(rows, 1) * std::max(columns, 1);
        if (cellCount < 2) return false;
        if (m_range == m_table.getMergeRange(m_range.m_topRow, m_range.m_leftColumn)) return false;
        return !any([&](int r, int c) { return !m_table.isContentEditable(r, c); });
    }

    /// A read-only bit that all cells have; of a reversed selection the first cell is asked alone.
    void allowLocks() {
        constexpr int mask = 51;
        const int state = m_table.cellState(m_range.m_topRow, m_range.m_leftColumn) & mask;
        if (any([&](int r, int c) { return (m_table.cellState(r, c) & mask) != state; })) return;
        allow("IDR_LOCKING_CONTENTLOCKED", (state & 2) == 0);
        allow("IDR_LOCKING_FORMATLOCKED", (state & 2) != 0 || (state & 32) == 0);
    }

    const KdDbTable& m_table;
    const KdCellRange m_range;
    ItemNames m_disabled;
};

TEST_F(EnablingModel, Items_are_enabled_as_the_plain_rules_say) {
    for (int round = 0; round < 400; ++round) {
        const KdDbObjectId id = randomTable();
        const KdCellRange range = randomSelection(look(id));
        select(id, range);
        const QMenu* menu = ask(id);
        ASSERT_NE(menu, nullptr);
        ASSERT_EQ(disabledIn(*menu), Model(look(id), range).disabled())
            << "round " << round << ": " << describe(look(id)) << testing::PrintToString(range);
    }
}

}  // namespace
}  // namespace kdtest
