// What modules that were built elsewhere rely on: the order of the table's virtual operations, the numbers of
// enumerators, which lists and files hold, the fields of records, and the tree of classes.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>

#include "kd/ad/doclock.h"
#include "kd/db/field.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "tests/support/virtualslots.h"

namespace {

/// Of several operations of a name the one that takes these arguments.
template <class... Arguments>
struct Taking {
    template <class Result>
    static auto getter(Result (KdDbTable::*operation)(Arguments...) const) {
        return operation;
    }
    static auto setter(void (KdDbTable::*operation)(Arguments...)) { return operation; }
};

/// The numbers of enumerators, in the order given.
template <class... Enumerators>
std::vector<int> numbers(Enumerators... enumerators) {
    return {static_cast<int>(enumerators)...};
}

using Numbers = std::vector<int>;

}  // namespace

TEST(TableContract, virtual_operations_stand_in_the_order_of_the_hosts_class) {
    using Output = int*;
    const std::vector<std::ptrdiff_t> places = kdtest::slotsOf(
        &KdDbTable::setNormal, &KdDbTable::position, &KdDbTable::setPosition, &KdDbTable::tableStyle,
        &KdDbTable::setTableStyle, &KdDbTable::direction, &KdDbTable::setDirection, &KdDbTable::numRows,
        &KdDbTable::setNumRows, &KdDbTable::numColumns, &KdDbTable::setNumColumns, &KdDbTable::width,
        &KdDbTable::columnWidth, Taking<int, double>::setter(&KdDbTable::setColumnWidth),
        Taking<double>::setter(&KdDbTable::setColumnWidth), &KdDbTable::rowHeight,
        Taking<int, double>::setter(&KdDbTable::setRowHeight), Taking<double>::setter(&KdDbTable::setRowHeight),
        &KdDbTable::minimumColumnWidth, &KdDbTable::minimumRowHeight, &KdDbTable::flowDirection,
        &KdDbTable::setFlowDirection, &KdDbTable::isTitleSuppressed, &KdDbTable::isHeaderSuppressed,
        &KdDbTable::suppressHeaderRow, &KdDbTable::setTableOption,
        Taking<KdDb::RowType>::getter(&KdDbTable::textHeight), &KdDbTable::clearTableStyleOverrides,
        &KdDbTable::cellType, &KdDbTable::setCellType, &KdDbTable::getCellExtents, &KdDbTable::alignment,
        &KdDbTable::setAlignment, &KdDbTable::backgroundColor, &KdDbTable::setBackgroundColor, &KdDbTable::contentColor,
        &KdDbTable::setContentColor, &KdDbTable::rowType, Taking<int, int>::getter(&KdDbTable::textString),
        &KdDbTable::setTextString, &KdDbTable::fieldId, &KdDbTable::setFieldId, &KdDbTable::textStyle,
        &KdDbTable::setTextStyle, Taking<int, int>::getter(&KdDbTable::textHeight), &KdDbTable::setTextHeight,
        Taking<int, int>::getter(&KdDbTable::blockTableRecordId), &KdDbTable::blockScale, &KdDbTable::setBlockScale,
        &KdDbTable::blockRotation, &KdDbTable::setBlockRotation, &KdDbTable::deleteColumns, &KdDbTable::deleteRows,
        &KdDbTable::mergeCells, &KdDbTable::unmergeCells,
        Taking<int, int, Output, Output, Output, Output>::getter(&KdDbTable::isMergedCell), &KdDbTable::generateLayout,
        &KdDbTable::recomputeTableBlock, &KdDbTable::hitTestCell,
        Taking<int&, int&, int&, int&>::getter(&KdDbTable::getSubSelection),
        Taking<int, int, int, int>::setter(&KdDbTable::setSubSelection), &KdDbTable::clearSubSelection,
        &KdDbTable::hasSubSelection);
    EXPECT_EQ(std::adjacent_find(places.begin(), places.end(), std::greater_equal<>()), places.end())
        << "each stands behind the one before it";
}

TEST(TableContract, the_numbers_of_cells_stay) {
    EXPECT_EQ(numbers(KdDb::kTopLeft, KdDb::kTopCenter, KdDb::kTopRight, KdDb::kMiddleLeft, KdDb::kMiddleCenter,
                      KdDb::kMiddleRight, KdDb::kBottomLeft, KdDb::kBottomCenter, KdDb::kBottomRight),
              (Numbers{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(numbers(KdDb::kCellStateContentLocked, KdDb::kCellStateContentReadOnly, KdDb::kCellStateFormatLocked,
                      KdDb::kCellStateFormatReadOnly),
              (Numbers{1, 2, 16, 32}));
    EXPECT_EQ(numbers(KdDb::kCellClassLabel, KdDb::kCellClassData), (Numbers{1, 2}));
    EXPECT_EQ(numbers(KdDb::kCellMarginTop, KdDb::kCellMarginLeft), (Numbers{1, 2}));
    EXPECT_EQ(numbers(KdDb::kDataRow, KdDb::kTitleRow, KdDb::kHeaderRow), (Numbers{1, 2, 4}));
    EXPECT_EQ(numbers(KdDb::kTextCell, KdDb::kBlockCell, KdDb::kMultipleContentCell), (Numbers{1, 2, 3}));
    EXPECT_EQ(numbers(KdDb::kCellContentTypeValue, KdDb::kCellContentTypeField), (Numbers{1, 2}));
}

TEST(TableContract, the_numbers_of_edges_stay) {
    EXPECT_EQ(numbers(KdDb::kHorzTop, KdDb::kHorzInside, KdDb::kHorzBottom, KdDb::kVertLeft, KdDb::kVertInside,
                      KdDb::kVertRight),
              (Numbers{1, 2, 4, 8, 16, 32}));
    EXPECT_EQ(numbers(KdDb::kGridLineStyleSingle, KdDb::kGridLineStyleDouble), (Numbers{1, 2}));
    EXPECT_EQ(numbers(KdDb::kVisible, KdDb::kInvisible), (Numbers{0, 1}));
}

TEST(TableContract, the_numbers_of_values_and_fields_stay) {
    EXPECT_EQ(numbers(KdValue::kUnknown, KdValue::kLong, KdValue::kDouble, KdValue::kString, KdValue::kDate,
                      KdValue::kPoint, KdValue::kGeneral),
              (Numbers{0, 1, 2, 4, 8, 32, 512}));
    EXPECT_EQ(numbers(KdValue::kUnitless, KdValue::kAngle, KdValue::kCurrency, KdValue::kPercentage),
              (Numbers{0, 2, 16, 32}));
    EXPECT_EQ(numbers(KdDbField::kFieldCode, KdDbField::kEvaluatedText, KdDbField::kTextField, KdDbField::kAddChildren),
              (Numbers{0, 2, 256, 4096}));
    EXPECT_EQ(numbers(KdDbField::kAutomatic), Numbers{63});
}

TEST(TableContract, the_numbers_of_opens_locks_and_hits_stay) {
    EXPECT_EQ(numbers(KdDb::kForRead, KdDb::kForWrite), (Numbers{0, 1}));
    EXPECT_EQ(numbers(KdDb::kTableHitRowIndicator, KdDb::kTableHitColumnIndicator), (Numbers{2, 4}));
    EXPECT_EQ(numbers(KdAxDocLock::kNormal), Numbers{0});
    EXPECT_EQ(numbers(Kdad::eOk), Numbers{0});
}

TEST(TableContract, records_have_their_fields_in_order) {
    EXPECT_EQ(offsetof(KdCellRange, m_topRow), 0U);
    EXPECT_EQ(offsetof(KdCellRange, m_leftColumn), 4U);
    EXPECT_EQ(offsetof(KdCellRange, m_bottomRow), 8U);
    EXPECT_EQ(offsetof(KdCellRange, m_rightColumn), 12U);
    EXPECT_EQ(sizeof(KdCellRange), 16U);
    EXPECT_EQ(offsetof(KdCell, m_row), 0U);
    EXPECT_EQ(offsetof(KdCell, m_column), 4U);
    EXPECT_EQ(sizeof(KdCell), 8U);
    EXPECT_EQ(sizeof(KdDbObjectId), 8U);
    EXPECT_EQ(KdDbObjectId::kNull.asInteger(), 0);
    EXPECT_FALSE(KdDbObjectId::kNull.isValid());
}

TEST(TableContract, a_table_is_a_block_reference_and_so_an_entity) {
    EXPECT_EQ(KdDbTable::desc()->myParent(), KdDbBlockReference::desc());
    EXPECT_EQ(KdDbBlockReference::desc()->myParent(), KdDbEntity::desc());
    EXPECT_EQ(KdDbEntity::desc()->myParent(), KdDbObject::desc());
    EXPECT_TRUE(KdDbObject::desc()->isDerivedFrom(KdRxObject::desc()));
    EXPECT_EQ(KdDbTableStyle::desc()->myParent(), KdDbObject::desc());
    EXPECT_EQ(KdDbField::desc()->myParent(), KdDbObject::desc());
}
