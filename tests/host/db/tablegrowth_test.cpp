// Layout after changes: only what was written since is looked at, and nothing that was is missed.

#include <gtest/gtest.h>

#include <random>

#include "kd/db/table.h"
#include "tests/support/objects.h"

namespace {

constexpr int columns = 3;

/// A table with the same contents that has never been laid out.
std::unique_ptr<KdDbTable> fresh(const KdDbTable& table) {
    auto made = std::make_unique<KdDbTable>();
    made->setSize(table.numRows(), columns);
    made->setCellStyle(-1, -1, L"_DATA");
    for (int column = 0; column < columns; ++column) made->setColumnWidth(column, table.columnWidth(column));
    for (int row = 0; row < table.numRows(); ++row) {
        for (int column = 0; column < columns; ++column) {
            made->setTextHeight(row, column, table.textHeight(row, column));
            made->setTextString(row, column, table.textString(row, column));
        }
    }
    return made;
}

TEST(TableGrowth, rows_are_high_enough_after_any_changes_and_a_layout) {
    std::mt19937 random(17);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    KdDbTable table;
    table.setSize(400, columns);
    table.setCellStyle(-1, -1, L"_DATA");
    for (int round = 0; round < 60; ++round) {
        for (int change = below(6); change >= 0; --change) {
            const int row = below(table.numRows());
            switch (below(6)) {
                case 0:
                    table.setRowHeight(row, 1.0);
                    break;
                case 1:
                    table.setTextHeight(row, below(columns), 1.0 + below(20));
                    break;
                case 2:
                    table.insertRowsAndInherit(row, row, 1 + below(150));
                    break;
                case 3:
                    table.deleteRows(row, std::min(1 + below(100), table.numRows() - row - (row == 0 ? 1 : 0)));
                    break;
                case 4:
                    if (below(4) == 0) table.setColumnWidth(below(columns), 10.0 + below(100));
                    break;
                default:
                    table.setTextString(row, below(columns),
                                        below(2) == 0 ? L"one\\Ptwo\\Pthree" : L"a b c d e f g h i");
            }
        }
        table.generateLayout();
        const auto model = fresh(table);
        for (int row = 0; row < table.numRows(); ++row) {
            ASSERT_GE(table.rowHeight(row), model->minimumRowHeight(row) - 1e-9)
                << "round " << round << ", row " << row;
        }
    }
}

TEST(TableGrowth, a_row_is_high_enough_for_a_field_as_soon_as_it_stands_there) {
    KdDbDatabase database;
    auto* child = new KdDbField;
    child->setFieldCode(L"a text that is far too long for one line of its column, and for two");
    KdDbField* field = kdtest::fieldAround(child, L"%<\\_FldIdx 0>%");
    ASSERT_EQ(field->postInDatabase(&database), Kdad::eOk);
    const KdDbObjectId fieldId = field->objectId();
    field->close();
    auto made = std::make_unique<KdDbTable>();
    made->setSize(3, columns);
    const KdDbObjectId id = kdtest::append(database, made.release());

    auto* table = kdtest::mustOpen<KdDbTable>(id, KdDb::kForWrite);
    const double before = table->rowHeight(2);
    table->setFieldId(2, 1, fieldId);
    EXPECT_GT(table->rowHeight(2), before);
    EXPECT_DOUBLE_EQ(table->rowHeight(2), table->minimumRowHeight(2));
    table->close();
}

}  // namespace
