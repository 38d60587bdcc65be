// Random changes of a table's grid, beside a plain slow model: each cell of the model names the merge that it
// belongs to, and every change is made by looking at every cell.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "tests/support/tablebuilder.h"

namespace {

struct ModelCell {
    std::wstring text;
    int merge = 0;  ///< 0: none
};

struct PlainGrid {
    std::vector<std::vector<ModelCell>> rows;
    int lastMerge = 0;

    int rowCount() const { return static_cast<int>(rows.size()); }
    int columnCount() const { return rows.empty() ? 0 : static_cast<int>(rows[0].size()); }
    ModelCell& at(int row, int column) { return rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]; }
    const ModelCell& at(int row, int column) const {
        return rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }

    template <class Visit>
    void each(Visit visit) const {
        for (int row = 0; row < rowCount(); ++row) {
            for (int column = 0; column < columnCount(); ++column) visit(row, column);
        }
    }

    KdCellRange rangeOf(int merge) const {
        KdCellRange range{1 << 20, 1 << 20, -1, -1};
        each([&](int row, int column) {
            if (at(row, column).merge != merge) return;
            range.m_topRow = std::min(range.m_topRow, row);
            range.m_leftColumn = std::min(range.m_leftColumn, column);
            range.m_bottomRow = std::max(range.m_bottomRow, row);
            range.m_rightColumn = std::max(range.m_rightColumn, column);
        });
        return range;
    }

    KdCellRange mergeRange(int row, int column) const {
        const int merge = at(row, column).merge;
        return merge == 0 ? KdCellRange{row, column, row, column} : rangeOf(merge);
    }

    void dropSingleMerges() {
        each([&](int row, int column) {
            const KdCellRange range = mergeRange(row, column);
            if (range.m_topRow == range.m_bottomRow && range.m_leftColumn == range.m_rightColumn) {
                at(row, column).merge = 0;
            }
        });
    }

    void merge(KdCellRange range) {
        for (KdCellRange before; before != range;) {
            before = range;
            each([&](int row, int column) {
                const bool inside = row >= range.m_topRow && row <= range.m_bottomRow && column >= range.m_leftColumn &&
                                    column <= range.m_rightColumn;
                if (!inside) return;
                const KdCellRange other = mergeRange(row, column);
                range.m_topRow = std::min(range.m_topRow, other.m_topRow);
                range.m_leftColumn = std::min(range.m_leftColumn, other.m_leftColumn);
                range.m_bottomRow = std::max(range.m_bottomRow, other.m_bottomRow);
                range.m_rightColumn = std::max(range.m_rightColumn, other.m_rightColumn);
            });
        }
        ++lastMerge;
        for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
            for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
                at(row, column).merge = lastMerge;
                if (row != range.m_topRow || column != range.m_leftColumn) at(row, column).text.clear();
            }
        }
        dropSingleMerges();
    }

    void unmerge(const KdCellRange& range) {
        for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
            for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
                const int merge = at(row, column).merge;
                if (merge == 0) continue;
                each([&](int r, int c) {
                    if (at(r, c).merge == merge) at(r, c).merge = 0;
                });
            }
        }
    }

    /// A model with rows and columns exchanged: columns are told as rows of it.
    PlainGrid turned() const {
        PlainGrid result;
        result.lastMerge = lastMerge;
        result.rows.assign(static_cast<std::size_t>(columnCount()),
                           std::vector<ModelCell>(static_cast<std::size_t>(rowCount())));
        each([&](int row, int column) { result.at(column, row) = at(row, column); });
        return result;
    }

    void insertRows(int at_, int count) {
        std::vector<ModelCell> fresh(static_cast<std::size_t>(columnCount()));
        for (int column = 0; at_ > 0 && at_ < rowCount() && column < columnCount(); ++column) {
            const int merge = at(at_, column).merge;
            if (merge != 0 && at(at_ - 1, column).merge == merge) fresh[static_cast<std::size_t>(column)].merge = merge;
        }
        rows.insert(rows.begin() + at_, static_cast<std::size_t>(count), fresh);
    }

    void deleteRows(int first, int count) {
        for (int merge = 1; merge <= lastMerge; ++merge) {
            const KdCellRange range = rangeOf(merge);
            if (range.m_bottomRow < 0) continue;
            const bool ownerGoes = range.m_topRow >= first && range.m_topRow < first + count;
            if (ownerGoes && range.m_bottomRow >= first + count) {
                at(first + count, range.m_leftColumn).text = at(range.m_topRow, range.m_leftColumn).text;
            }
        }
        rows.erase(rows.begin() + first, rows.begin() + first + count);
        dropSingleMerges();
    }
};

std::string rangeText(const KdCellRange& range) {
    return std::to_string(range.m_topRow) + "," + std::to_string(range.m_leftColumn) + "-" +
           std::to_string(range.m_bottomRow) + "," + std::to_string(range.m_rightColumn);
}

/// Empty when table and model agree.
std::string difference(const KdDbTable& table, const PlainGrid& model) {
    if (table.numRows() != model.rowCount() || table.numColumns() != model.columnCount()) return "sizes";
    std::string result;
    std::map<int, KdCellRange> ranges;
    model.each([&](int row, int column) {
        const int merge = model.at(row, column).merge;
        if (merge != 0 && !ranges.contains(merge)) ranges[merge] = model.rangeOf(merge);
    });
    model.each([&](int row, int column) {
        const int merge = model.at(row, column).merge;
        const KdCellRange expected = merge == 0 ? KdCellRange{row, column, row, column} : ranges[merge];
        const KdCellRange found = table.getMergeRange(row, column);
        const std::string place = std::to_string(row) + "," + std::to_string(column);
        if (found != expected) result += place + " lies in " + rangeText(found) + ", not " + rangeText(expected) + "\n";
        if (table.isMergedCell(row, column) != (model.at(row, column).merge != 0)) result += place + " merged\n";
        if (table.textString(row, column) != model.at(row, column).text) result += place + " text\n";
    });
    return result;
}

/// A table and its model, changed alike at random.
class Pair {
public:
    explicit Pair(unsigned seed) : m_random(seed) {
        const int rows = upTo(6) + 1;
        const int columns = upTo(6) + 1;
        m_table.setSize(rows, columns);
        m_model.rows.assign(static_cast<std::size_t>(rows), std::vector<ModelCell>(static_cast<std::size_t>(columns)));
    }

    std::string step() {
        switch (upTo(7)) {
            case 0:
                return insert(true);
            case 1:
                return insert(false);
            case 2:
                return erase(true);
            case 3:
                return erase(false);
            case 4:
                return unmerge();
            case 5:
            case 6:
                return merge();
            default:
                return write();
        }
    }

    std::string difference() const { return ::difference(m_table, m_model); }

private:
    int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(m_random); }

    KdCellRange range() {
        int top = upTo(m_model.rowCount() - 1), bottom = upTo(m_model.rowCount() - 1);
        int left = upTo(m_model.columnCount() - 1), right = upTo(m_model.columnCount() - 1);
        if (top > bottom) std::swap(top, bottom);
        if (left > right) std::swap(left, right);
        return {top, left, std::min(bottom, top + 3), std::min(right, left + 3)};
    }

    /// The model's row operations serve columns by turning the model.
    template <class Change>
    void alongRows(bool row, Change change) {
        if (!row) m_model = m_model.turned();
        change();
        if (!row) m_model = m_model.turned();
    }

    std::string insert(bool row) {
        const int count = row ? m_model.rowCount() : m_model.columnCount();
        const int at = upTo(count), from = upTo(count - 1), many = upTo(2) + 1;
        if (count + many > 14) return erase(row);
        alongRows(row, [&] { m_model.insertRows(at, many); });
        row ? m_table.insertRowsAndInherit(at, from, many) : m_table.insertColumnsAndInherit(at, from, many);
        return (row ? "insert rows " : "insert columns ") + std::to_string(at) + " x " + std::to_string(many);
    }

    std::string erase(bool row) {
        const int count = row ? m_model.rowCount() : m_model.columnCount();
        if (count < 2) return "nothing";
        const int first = upTo(count - 1);
        const int many = std::min(upTo(2) + 1, std::min(count - first, count - 1));
        alongRows(row, [&] { m_model.deleteRows(first, many); });
        row ? m_table.deleteRows(first, many) : m_table.deleteColumns(first, many);
        return (row ? "delete rows " : "delete columns ") + std::to_string(first) + " x " + std::to_string(many);
    }

    std::string merge() {
        const KdCellRange merged = range();
        m_model.merge(merged);
        m_table.mergeCells(merged.m_topRow, merged.m_bottomRow, merged.m_leftColumn, merged.m_rightColumn);
        return "merge " + rangeText(merged);
    }

    std::string unmerge() {
        const KdCellRange parted = range();
        m_model.unmerge(parted);
        m_table.unmergeCells(parted.m_topRow, parted.m_bottomRow, parted.m_leftColumn, parted.m_rightColumn);
        return "unmerge " + rangeText(parted);
    }

    /// Writes to the owner: what a covered cell holds is told elsewhere.
    std::string write() {
        const KdCellRange at = range();
        const KdCellRange owner = m_model.mergeRange(at.m_topRow, at.m_leftColumn);
        const std::wstring text = std::to_wstring(upTo(999));
        m_model.at(owner.m_topRow, owner.m_leftColumn).text = text;
        m_table.setTextString(owner.m_topRow, owner.m_leftColumn, text.c_str());
        return "write " + rangeText(owner);
    }

    std::mt19937 m_random;
    KdDbTable m_table;
    PlainGrid m_model;
};

}  // namespace

TEST(TableModel, agrees_after_every_step_of_random_changes) {
    int steps = 0;
    for (unsigned seed = 1; seed <= 100; ++seed) {
        Pair pair(seed);
        std::string history;
        for (int step = 0; step < 60; ++step, ++steps) {
            history += pair.step() + "\n";
            ASSERT_EQ(pair.difference(), "") << "seed " << seed << " after\n" << history;
        }
    }
    EXPECT_EQ(steps, 6000);
}
