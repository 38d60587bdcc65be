// What the selected cells have in common: on small tables by example, on random tables against naive loops.

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <set>

#include "module/core/tablecommon.h"
#include "tests/module/core/sampletables.h"

namespace kdtest {
namespace {

using Common = CVqTableCommon;

struct Pair {
    int type = 0;
    int unit = 0;
    friend bool operator==(const Pair&, const Pair&) = default;
};
void PrintTo(const Pair& pair, std::ostream* out) {
    *out << pair.type << " and " << pair.unit;
}

void setPair(KdDbTable& table, int row, int column, const Pair& pair) {
    table.setDataType(row, column, static_cast<KdValue::DataType>(pair.type),
                      static_cast<KdValue::UnitType>(pair.unit));
}

/// None when the test answers false.
std::optional<Pair> dataType(const KdDbTable& table) {
    auto type = KdValue::kPoint;
    auto unit = KdValue::kPercentage;
    if (!Common::GetDataType(&table, type, unit)) return std::nullopt;
    return Pair{type, unit};
}

/// One selected row of cells with these pairs.
std::optional<Pair> dataTypeOf(const std::vector<Pair>& pairs) {
    const auto table = makeTable(1, static_cast<int>(pairs.size()));
    for (std::size_t column = 0; column < pairs.size(); ++column) {
        setPair(*table, 0, static_cast<int>(column), pairs[column]);
    }
    table->setSubSelection({0, 0, 0, static_cast<int>(pairs.size()) - 1});
    return dataType(*table);
}

TEST(CommonDataType, Is_the_pair_of_cells_that_are_alike) {
    EXPECT_EQ(dataTypeOf({{2, 16}}), (Pair{2, 16}));
    EXPECT_EQ(dataTypeOf({{2, 16}, {2, 16}, {2, 16}}), (Pair{2, 16}));
    EXPECT_EQ(dataTypeOf({{0, 0}, {0, 0}}), (Pair{0, 0}));
}

TEST(CommonDataType, Is_unknown_but_found_for_cells_that_differ) {
    EXPECT_EQ(dataTypeOf({{2, 16}, {4, 0}, {512, 0}})->type, 0);
    EXPECT_EQ(dataTypeOf({{4, 0}, {512, 0}})->type, 0);
    EXPECT_EQ(dataTypeOf({{2, 16}, {2, 32}})->type, 0);
    EXPECT_EQ(dataTypeOf({{4, 0}, {512, 0}, {512, 0}, {4, 0}})->type, 0);
    EXPECT_EQ(dataTypeOf({{2, 0}, {0, 0}})->type, 0);
}

TEST(CommonDataType, Of_cells_that_differ_keeps_the_unit_of_the_cell_that_showed_it) {
    EXPECT_EQ(dataTypeOf({{2, 16}, {2, 32}}), (Pair{0, 32}));
    EXPECT_EQ(dataTypeOf({{4, 0}, {2, 2}, {2, 16}}), (Pair{0, 2})) << "no cell behind it is read";
}

TEST(CommonDataType, Tolerates_the_first_change_from_nothing_wherever_it_comes) {
    EXPECT_EQ(dataTypeOf({{0, 0}, {0, 0}, {4, 0}}), (Pair{4, 0}));
    EXPECT_EQ(dataTypeOf({{0, 0}, {2, 2}, {2, 2}}), (Pair{2, 2}));
    EXPECT_EQ(dataTypeOf({{0, 0}, {2, 2}, {0, 0}})->type, 0);
}

TEST(CommonDataType, Is_not_told_without_a_selection_or_a_table) {
    EXPECT_EQ(dataType(*makeTable(2, 2)), std::nullopt);
    auto type = KdValue::kPoint;
    auto unit = KdValue::kAngle;
    EXPECT_FALSE(Common::GetDataType(nullptr, type, unit));
}

TEST(CommonDataType, Of_a_whole_row_or_a_reversed_selection_reads_no_further_than_the_first_cell) {
    const auto table = makeTable(3, 3);
    for (int row = 0; row < 3; ++row) setPair(*table, row, -1, {4, 0});
    table->setSubSelection({1, -1, 1, -1});
    EXPECT_EQ(dataType(*table), (Pair{4, 0}));
    table->setSubSelection({2, 2, 0, 0});
    EXPECT_EQ(dataType(*table), Pair{}) << "no cell was read";
}

TEST(CommonDataType, Of_covered_cells_is_that_of_their_owner) {
    const auto table = makeTable(2, 2);
    for (int row = 0; row < 2; ++row) setPair(*table, row, -1, {4, 0});
    setPair(*table, 1, 1, {8, 0});
    table->mergeCells(0, 1, 0, 1);
    table->setSubSelection({0, 0, 1, 1});
    EXPECT_EQ(dataType(*table), (Pair{4, 0}));
}

std::optional<int> alignment(const KdDbTable& table) {
    auto value = static_cast<KdDb::CellAlignment>(0);
    if (!Common::GetCellAlignment(&table, value)) return std::nullopt;
    return value;
}

TEST(CommonAlignment, Is_told_when_all_cells_have_it) {
    const auto table = makeTable(3, 3);
    for (int row = 0; row < 3; ++row) table->setAlignment(row, -1, KdDb::kBottomRight);
    table->setSubSelection({0, 0, 2, 2});
    EXPECT_EQ(alignment(*table), KdDb::kBottomRight);
    table->setAlignment(2, 2, KdDb::kTopLeft);
    EXPECT_EQ(alignment(*table), std::nullopt);
    table->setSubSelection({0, 0, 2, 1});
    EXPECT_EQ(alignment(*table), KdDb::kBottomRight);
}

TEST(CommonAlignment, Leaves_the_first_cells_in_the_output_where_cells_differ) {
    const auto table = makeTable(1, 2);
    table->setAlignment(0, 0, KdDb::kMiddleLeft);
    table->setAlignment(0, 1, KdDb::kMiddleRight);
    table->setSubSelection({0, 0, 0, 1});
    auto value = KdDb::kTopLeft;
    EXPECT_FALSE(Common::GetCellAlignment(table.get(), value));
    EXPECT_EQ(value, KdDb::kMiddleLeft);
}

std::optional<int> state(const KdDbTable& table) {
    auto value = static_cast<KdDb::CellState>(7);
    if (Common::GetCellState(&table, value)) return value;
    EXPECT_EQ(value, 7) << "the output of a failure stays";
    return std::nullopt;
}

TEST(CommonState, Is_compared_and_told_under_the_four_bits_of_locks) {
    const auto table = makeTable(1, 2);
    table->setSubSelection({0, 0, 0, 1});
    for (int first = 0; first < 256; ++first) {
        for (const int second : {first, first ^ 4, first ^ 200, first ^ 1, first ^ 2, first ^ 16, first ^ 32}) {
            table->setCellState(0, 0, static_cast<KdDb::CellState>(first));
            table->setCellState(0, 1, static_cast<KdDb::CellState>(second));
            const bool alike = (first & 51) == (second & 51);
            EXPECT_EQ(state(*table), alike ? std::optional(first & 51) : std::nullopt) << first << ", " << second;
        }
    }
}

std::optional<KdCmColor> background(const KdDbTable& table) {
    KdCmColor color;
    if (!Common::GetBackgroundColor(&table, color)) return std::nullopt;
    return color;
}

TEST(CommonValues, Are_not_told_without_a_table) {
    auto alignmentValue = KdDb::kTopLeft;
    auto stateValue = KdDb::kCellStateNone;
    KdCmColor color;
    EXPECT_FALSE(Common::GetCellAlignment(nullptr, alignmentValue));
    EXPECT_FALSE(Common::GetCellState(nullptr, stateValue));
    EXPECT_FALSE(Common::GetBackgroundColor(nullptr, color));
}

TEST(CommonValues, Without_a_selection_are_those_of_the_first_cell) {
    const auto table = makeTable(2, 2);
    table->setAlignment(0, 0, KdDb::kMiddleRight);
    table->setBackgroundColor(0, 0, KdCmColor::fromIndex(5));
    table->setCellState(0, 0, KdDb::kCellStateFormatLocked);
    ASSERT_FALSE(table->hasSubSelection());
    EXPECT_EQ(alignment(*table), KdDb::kMiddleRight);
    EXPECT_EQ(state(*table), KdDb::kCellStateFormatLocked);
    EXPECT_EQ(background(*table), KdCmColor::fromIndex(5));
    const auto empty = makeTable(0, 0);
    EXPECT_EQ(alignment(*empty), KdDb::kTopCenter) << "a cell that isn't there looks like data";
    EXPECT_EQ(state(*empty), KdDb::kCellStateNone);
    EXPECT_EQ(background(*empty), KdCmColor::none());
}

TEST(CommonBackground, Is_the_first_cells_when_no_cell_differs) {
    const auto table = makeTable(2, 2);
    table->setSubSelection({0, 0, 1, 1});
    EXPECT_EQ(background(*table), KdCmColor::none());
    for (int row = 0; row < 2; ++row) table->setBackgroundColor(row, -1, KdCmColor::fromIndex(3));
    EXPECT_EQ(background(*table), KdCmColor::fromIndex(3));
    table->setBackgroundColor(1, 1, KdCmColor::fromRgb(0, 255, 0));
    EXPECT_EQ(background(*table), std::nullopt) << "a true colour that looks alike is another colour";
    KdCmColor color;
    EXPECT_FALSE(Common::GetBackgroundColor(table.get(), color));
    EXPECT_EQ(color, KdCmColor::fromIndex(3)) << "the first cell's stands in the output";
}

TEST(CommonBackground, Judges_a_merge_by_its_top_left_cell) {
    const auto table = makeTable(3, 3);
    for (int row = 0; row < 3; ++row) table->setBackgroundColor(row, -1, KdCmColor::fromIndex(3));
    table->setBackgroundColor(1, 1, KdCmColor::fromIndex(5));
    table->mergeCells(0, 1, 0, 1);
    table->setSubSelection({0, 0, 2, 2});
    EXPECT_EQ(background(*table), KdCmColor::fromIndex(3));
    table->setBackgroundColor(0, 0, KdCmColor::fromIndex(5));
    EXPECT_EQ(background(*table), std::nullopt);
    // A merge whose top left cell lies outside isn't looked at.
    table->setSubSelection({1, 2, 2, 2});
    EXPECT_EQ(background(*table), KdCmColor::fromIndex(3));
    table->setSubSelection({2, 0, 2, 2});
    EXPECT_EQ(background(*table), KdCmColor::fromIndex(3));
}

/// Each property of random tables by the plainest loops over their cells.
class RandomTables : public ::testing::Test {
protected:
    void make() {
        m_rows = 1 + static_cast<int>(m_random() % 5);
        m_columns = 1 + static_cast<int>(m_random() % 5);
        table = makeTable(m_rows, m_columns);
        for (int row = 0; row < m_rows; ++row) {
            for (int column = 0; column < m_columns; ++column) dress(row, column);
        }
        for (auto merge = m_random() % 3; merge > 0; --merge) {
            const Range range = within();
            table->mergeCells(range.m_topRow, range.m_bottomRow, range.m_leftColumn, range.m_rightColumn);
        }
        selection = m_random() % 20 == 0 ? noCell : within();
        table->setSubSelection(hostRange(selection));
    }

    template <class Visit>
    void eachCell(Visit visit) const {
        for (int row = selection.m_topRow; row <= selection.m_bottomRow; ++row) {
            for (int column = selection.m_leftColumn; column <= selection.m_rightColumn; ++column) visit(row, column);
        }
    }

    std::unique_ptr<KdDbTable> table;
    Range selection;

private:
    /// Mostly alike, so that both answers come often.
    void dress(int row, int column) {
        if (m_random() % 6 != 0) return;
        switch (m_random() % 4) {
            case 0:
                setPair(*table, row, column, m_random() % 2 == 0 ? Pair{0, 0} : Pair{2, 16});
                break;
            case 1:
                table->setAlignment(row, column, KdDb::kBottomLeft);
                break;
            case 2:
                table->setBackgroundColor(row, column, KdCmColor::fromIndex(2));
                break;
            default:
                table->setCellState(row, column, static_cast<KdDb::CellState>(m_random() % 64));
                break;
        }
    }
    Range within() {
        int rows[] = {static_cast<int>(m_random() % static_cast<unsigned>(m_rows)),
                      static_cast<int>(m_random() % static_cast<unsigned>(m_rows))};
        int columns[] = {static_cast<int>(m_random() % static_cast<unsigned>(m_columns)),
                         static_cast<int>(m_random() % static_cast<unsigned>(m_columns))};
        return {std::min(rows[0], rows[1]), std::min(columns[0], columns[1]), std::max(rows[0], rows[1]),
                std::max(columns[0], columns[1])};
    }

    std::mt19937 m_random{34};
    int m_rows = 0;
    int m_columns = 0;
};

TEST_F(RandomTables, Have_in_common_what_plain_loops_find) {
    std::set<int> answers;
    for (int round = 0; round < 4000; ++round) {
        make();
        std::vector<Pair> pairs = {{0, 0}};
        std::set<int> alignments;
        std::set<int> states;
        std::vector<KdCmColor> colors;
        eachCell([&](int row, int column) {
            auto type = KdValue::kUnknown;
            auto unit = KdValue::kUnitless;
            table->getDataType(row, column, type, unit);
            if (pairs.back() != Pair{type, unit}) pairs.push_back({type, unit});
            alignments.insert(table->alignment(row, column));
            states.insert(table->cellState(row, column) & 51);
            const KdCellRange merge = table->getMergeRange(row, column);
            const bool owner = merge.m_topRow == row && merge.m_leftColumn == column;
            if (owner) colors.push_back(table->backgroundColor(row, column));
        });
        const std::optional<Pair> type = dataType(*table);
        ASSERT_EQ(type.has_value(), selection != noCell);
        if (type) {
            ASSERT_EQ(type->type, pairs.size() > 2 ? 0 : pairs.back().type);
        }
        ASSERT_EQ(alignment(*table).has_value(), alignments.size() == 1);
        ASSERT_EQ(state(*table).has_value(), states.size() == 1);
        const KdCmColor first = table->backgroundColor(selection.m_topRow, selection.m_leftColumn);
        const bool oneColor = std::count(colors.begin(), colors.end(), first) == static_cast<long>(colors.size());
        ASSERT_EQ(background(*table).has_value(), oneColor);
        answers.insert((pairs.size() > 2 ? 1 : 0) + (alignments.size() == 1 ? 2 : 0) + (states.size() == 1 ? 4 : 0) +
                       (oneColor ? 8 : 0));
    }
    EXPECT_GE(answers.size(), 14U) << "the tables are too much alike to show anything";
}

}  // namespace
}  // namespace kdtest
