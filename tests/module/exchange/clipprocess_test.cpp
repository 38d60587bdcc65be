// Cells that are copied in one process and pasted in another, and random tables whose parts travel.

#include <random>

#include "tests/module/exchange/clipfixture.h"
#include "tests/support/otherprocess.h"

namespace {

using kdtest::cells;

class TravellingCells : public kdtest::CellClipboard {
protected:
    /// Copies in a process of its own, whose drawing, clipboard and memory end with it, and brings what its clipboard
    /// held over to this one.
    void copyElsewhere(const std::function<int()>& copyThere) {
        const QString carried = folder.filePath(QStringLiteral("clipboard"));
        const int done = kdtest::inOtherProcess([&] {
            if (copyThere() != 1) return 1;
            QFile file(carried);
            return file.open(QIODevice::WriteOnly) && file.write(held(L"CF_ACTABLE_CELLS")) == 4128 ? 0 : 2;
        });
        ASSERT_EQ(done, 0);
        put(L"CF_ACTABLE_CELLS", bytesOf(carried));
    }
};

TEST_F(TravellingCells, arrive_from_a_process_that_has_ended) {
    const KdDbObjectId id = add(table(4, 4));
    copyElsewhere([&] {
        const KdDbObjectId there = add(table(3, 3).fill().merge("B2:C2").align("B2", KdDb::kBottomRight));
        return copy(there, "B2:C3");
    });
    EXPECT_EQ(paste(id, "A3:B4"), 1);
    EXPECT_STREQ(look(id).textString(2, 0), L"B2");
    EXPECT_STREQ(look(id).textString(3, 1), L"C3");
    EXPECT_EQ(look(id).getMergeRange(2, 0), cells("A3:B3"));
    EXPECT_EQ(look(id).alignment(2, 0), KdDb::kBottomRight);
    EXPECT_EQ(paste(id, "C1:D2"), 1) << "and once more";
    EXPECT_STREQ(look(id).textString(0, 2), L"B2");
}

/// A table with random merges and looks.
std::unique_ptr<KdDbTable> randomTable(kdtest::TableBuilder builder, std::mt19937& random) {
    auto table = builder.build();
    const auto below = [&](int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); };
    for (int merge = below(4); merge > 0; --merge) {
        const int top = below(table->numRows());
        const int left = below(table->numColumns());
        table->mergeCells(top, std::min(top + below(3), table->numRows() - 1), left,
                          std::min(left + below(3), table->numColumns() - 1));
    }
    for (int row = 0; row < table->numRows(); ++row) {
        for (int column = 0; column < table->numColumns(); ++column) {
            const KdCellRange merge = table->getMergeRange(row, column);
            if (merge.m_topRow != row || merge.m_leftColumn != column) continue;
            if (below(4) > 0) table->setTextString(row, column, std::to_wstring(row * 100 + column).c_str());
            if (below(3) == 0) table->setAlignment(row, column, static_cast<KdDb::CellAlignment>(1 + below(9)));
            if (below(5) == 0)
                table->setBackgroundColor(row, column, KdCmColor::fromIndex(static_cast<short>(1 + below(200))));
            if (below(5) == 0) table->setCellStyle(row, column, L"_HEADER");
            if (below(5) == 0) table->setTextHeight(row, column, 1.0 + below(7));
        }
    }
    return table;
}

/// The part of a merge that lies in the range, from the range's corner on.
KdCellRange partOf(KdCellRange merge, const KdCellRange& range) {
    return {std::max(merge.m_topRow, range.m_topRow) - range.m_topRow,
            std::max(merge.m_leftColumn, range.m_leftColumn) - range.m_leftColumn,
            std::min(merge.m_bottomRow, range.m_bottomRow) - range.m_topRow,
            std::min(merge.m_rightColumn, range.m_rightColumn) - range.m_leftColumn};
}

TEST_F(TravellingCells, of_random_tables_arrive_as_they_were_seen) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); };
        const int rows = 1 + below(7);
        const int columns = 1 + below(6);
        const KdDbObjectId id = add(randomTable(table(rows, columns), random));
        KdCellRange range{below(rows), below(columns), 0, 0};
        range.m_bottomRow = range.m_topRow + below(rows - range.m_topRow);
        range.m_rightColumn = range.m_leftColumn + below(columns - range.m_leftColumn);
        select(id, range);
        ASSERT_EQ(CVqTableCommon::CopyTableCells(id), 1) << seed;
        const KdDbObjectId target = add(table(9, 8));
        const int down = below(3);
        const int right = below(3);
        select(target, KdCellRange{down, right, down, right});
        ASSERT_EQ(CVqTableCommon::PasteTableCells(target), 1) << seed;
        for (int row = 0; row <= range.m_bottomRow - range.m_topRow; ++row) {
            for (int column = 0; column <= range.m_rightColumn - range.m_leftColumn; ++column) {
                const KdCellRange merge = look(id).getMergeRange(row + range.m_topRow, column + range.m_leftColumn);
                const KdCellRange part = partOf(merge, range);
                EXPECT_EQ(look(target).getMergeRange(row + down, column + right),
                          (KdCellRange{part.m_topRow + down, part.m_leftColumn + right, part.m_bottomRow + down,
                                       part.m_rightColumn + right}))
                    << seed;
                if (part.m_topRow != row || part.m_leftColumn != column) continue;
                const auto same = [&](auto property, const char* what) {
                    EXPECT_EQ(property(look(target), row + down, column + right),
                              property(look(id), merge.m_topRow, merge.m_leftColumn))
                        << what << " of row " << row << ", column " << column << ", seed " << seed;
                };
                using Table = const KdDbTable&;
                same([](Table t, int r, int c) { return std::wstring(t.textString(r, c)); }, "text");
                same([](Table t, int r, int c) { return t.alignment(r, c); }, "alignment");
                same([](Table t, int r, int c) { return t.textHeight(r, c); }, "text height");
                same([](Table t, int r, int c) { return t.backgroundColor(r, c).colorIndex(); }, "fill");
                same([](Table t, int r, int c) { return std::wstring(t.cellStyle(r, c)); }, "cell style");
            }
        }
    }
}

}  // namespace
