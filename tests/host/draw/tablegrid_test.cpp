// The grid lines of drawn tables: each once, joined, opened where double lines meet.

#include <algorithm>
#include <array>
#include <random>

#include "kd/db/table.h"
#include "tests/host/draw/drawing.h"

using namespace kdhost::draw;
using kdtest::only;

namespace {

/// A piece of a line by its two ends, smaller end first.
using Piece = std::array<double, 4>;

Piece piece(double x0, double y0, double x1, double y1) {
    const auto rounded = [](double value) { return std::round(value * 1e6) / 1e6 + 0.0; };
    Piece forward{rounded(x0), rounded(y0), rounded(x1), rounded(y1)};
    const Piece back{forward[2], forward[3], forward[0], forward[1]};
    return std::min(forward, back);
}

std::vector<Piece> gridOf(const KdDbTable& table) {
    std::vector<Piece> pieces;
    for (const Polyline& line : only<Polyline>(primitivesOf(table, {}))) {
        EXPECT_EQ(line.points.size(), 2U);
        pieces.push_back(piece(line.points[0].x, line.points[0].y, line.points[1].x, line.points[1].y));
    }
    std::sort(pieces.begin(), pieces.end());
    return pieces;
}

std::vector<Piece> sorted(std::vector<Piece> pieces) {
    std::sort(pieces.begin(), pieces.end());
    return pieces;
}

constexpr std::array<KdDb::GridLineType, 4> kSides = {KdDb::kHorzTop, KdDb::kHorzBottom, KdDb::kVertLeft,
                                                      KdDb::kVertRight};

/// Columns of 10, rows of 6 units, at the origin.
class DrawnGrid : public ::testing::Test {
protected:
    void make(int rows, int columns) {
        table.setSize(rows, columns);
        table.setColumnWidth(10.0);
        table.setRowHeight(6.0);
    }
    void makeDouble(int row, int column, double spacing) {
        for (const KdDb::GridLineType side : kSides) {
            table.setGridLineStyle(row, column, side, KdDb::kGridLineStyleDouble);
            table.setGridDoubleLineSpacing(row, column, side, spacing);
        }
    }

    KdDbTable table;
};

TEST_F(DrawnGrid, runs_through_in_one_piece_for_each_line) {
    make(2, 3);
    EXPECT_EQ(gridOf(table),
              sorted({piece(0, 0, 30, 0), piece(0, -6, 30, -6), piece(0, -12, 30, -12), piece(0, 0, 0, -12),
                      piece(10, 0, 10, -12), piece(20, 0, 20, -12), piece(30, 0, 30, -12)}));
}

TEST_F(DrawnGrid, follows_position_direction_and_flow) {
    make(1, 2);
    table.setPosition({100, 100, 0});
    table.setDirection({0, 1, 0});
    table.setFlowDirection(1);
    EXPECT_EQ(gridOf(table), sorted({piece(100, 100, 100, 120), piece(94, 100, 94, 120), piece(94, 100, 100, 100),
                                     piece(94, 110, 100, 110), piece(94, 120, 100, 120)}));
}

TEST_F(DrawnGrid, has_no_lines_inside_a_merge) {
    make(3, 3);
    table.mergeCells(0, 1, 1, 2);
    EXPECT_EQ(gridOf(table),
              sorted({piece(0, 0, 30, 0), piece(0, -6, 10, -6), piece(0, -12, 30, -12), piece(0, -18, 30, -18),
                      piece(0, 0, 0, -18), piece(10, 0, 10, -18), piece(20, -12, 20, -18), piece(30, 0, 30, -18)}));
}

TEST_F(DrawnGrid, leaves_invisible_edges_out) {
    make(1, 3);
    table.setGridVisibility(0, 1, KdDb::kHorzTop, KdDb::kInvisible);
    table.setGridVisibility(0, 1, KdDb::kVertLeft, KdDb::kInvisible);
    EXPECT_EQ(gridOf(table), sorted({piece(0, 0, 10, 0), piece(20, 0, 30, 0), piece(0, -6, 30, -6), piece(0, 0, 0, -6),
                                     piece(20, 0, 20, -6), piece(30, 0, 30, -6)}));
}

TEST_F(DrawnGrid, an_edge_hidden_from_either_side_is_hidden) {
    make(2, 2);
    for (const auto& [row, side] : {std::pair{0, KdDb::kHorzBottom}, std::pair{1, KdDb::kHorzTop}}) {
        table.setGridVisibility(row, 0, side, KdDb::kInvisible);
        const auto grid = gridOf(table);
        EXPECT_EQ(std::count(grid.begin(), grid.end(), piece(0, -6, 20, -6)), 0);
        EXPECT_EQ(std::count(grid.begin(), grid.end(), piece(10, -6, 20, -6)), 1);
        table.setGridVisibility(row, 0, side, KdDb::kVisible);
    }
}

TEST_F(DrawnGrid, an_edge_beside_a_merge_can_be_hidden_cell_by_cell) {
    make(3, 2);
    table.mergeCells(1, 1, 0, 1);
    table.setGridVisibility(2, 1, KdDb::kHorzTop, KdDb::kInvisible);
    table.setGridVisibility(0, 1, KdDb::kHorzBottom, KdDb::kInvisible);
    const auto grid = gridOf(table);
    for (const double y : {-6.0, -12.0}) {
        EXPECT_EQ(std::count(grid.begin(), grid.end(), piece(0, y, 10, y)), 1) << y;
        EXPECT_EQ(std::count(grid.begin(), grid.end(), piece(0, y, 20, y)), 0) << y;
    }
}

TEST_F(DrawnGrid, an_edge_of_a_merge_hidden_on_the_merge_is_hidden_on_its_whole_length) {
    make(3, 2);
    table.mergeCells(1, 1, 0, 1);
    table.setGridVisibility(1, 0, KdDb::kHorzTop, KdDb::kInvisible);
    table.setGridVisibility(1, 0, KdDb::kHorzBottom, KdDb::kInvisible);
    EXPECT_EQ(gridOf(table), sorted({piece(0, 0, 20, 0), piece(0, -18, 20, -18), piece(0, 0, 0, -18),
                                     piece(10, 0, 10, -6), piece(10, -12, 10, -18), piece(20, 0, 20, -18)}));
}

TEST_F(DrawnGrid, breaks_where_the_looks_change) {
    make(1, 3);
    table.setGridColor(0, 1, KdDb::kHorzTop, KdCmColor::fromIndex(1));
    const auto grid = gridOf(table);
    for (const double x : {0.0, 10.0, 20.0}) {
        EXPECT_EQ(std::count(grid.begin(), grid.end(), piece(x, 0, x + 10, 0)), 1);
    }
    const auto lines = only<Polyline>(primitivesOf(table, {}));
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const Polyline& line) {
                                return line.color == Color{255, 0, 0, false};
                            }),
              1);
}

TEST_F(DrawnGrid, has_line_weights_when_they_are_shown) {
    make(1, 1);
    for (const KdDb::GridLineType side : kSides) table.setGridLineWeight(0, 0, side, KdDb::kLnWt070);
    for (const Polyline& line : only<Polyline>(primitivesOf(table, {false, false}))) EXPECT_EQ(line.lineWeight, 0);
    for (const Polyline& line : only<Polyline>(primitivesOf(table, {true, false}))) EXPECT_EQ(line.lineWeight, 70);
}

TEST_F(DrawnGrid, by_block_looks_are_the_tables) {
    make(1, 1);
    table.setColor(KdCmColor::fromRgb(4, 5, 6));
    table.setLineWeight(KdDb::kLnWt100);
    for (const KdDb::GridLineType side : kSides) {
        table.setGridColor(0, 0, side, KdCmColor::byBlock());
        table.setGridLineWeight(0, 0, side, KdDb::kLnWtByBlock);
    }
    for (const Polyline& line : only<Polyline>(primitivesOf(table, {true, false}))) {
        EXPECT_EQ(line.color, (Color{4, 5, 6, false}));
        EXPECT_EQ(line.lineWeight, 100);
    }
}

TEST_F(DrawnGrid, a_double_frame_is_two_closed_rectangles) {
    make(1, 1);
    makeDouble(0, 0, 2.0);
    EXPECT_EQ(gridOf(table),
              sorted({piece(-1, 1, 11, 1), piece(-1, -7, 11, -7), piece(-1, 1, -1, -7), piece(11, 1, 11, -7),
                      piece(1, -1, 9, -1), piece(1, -5, 9, -5), piece(1, -1, 1, -5), piece(9, -1, 9, -5)}));
}

TEST_F(DrawnGrid, double_lines_open_where_they_meet) {
    make(1, 2);
    makeDouble(0, 0, 2.0);
    makeDouble(0, 1, 2.0);
    EXPECT_EQ(gridOf(table), sorted({piece(-1, 1, 21, 1), piece(-1, -7, 21, -7), piece(-1, 1, -1, -7),
                                     piece(21, 1, 21, -7),  // the outer frame
                                     piece(1, -1, 9, -1), piece(1, -5, 9, -5), piece(1, -1, 1, -5), piece(9, -1, 9, -5),
                                     piece(11, -1, 19, -1), piece(11, -5, 19, -5), piece(11, -1, 11, -5),
                                     piece(19, -1, 19, -5)}));  // each cell's own
}

TEST_F(DrawnGrid, a_double_frame_within_a_table_is_closed_and_single_lines_stay_outside) {
    make(3, 3);
    makeDouble(1, 1, 2.0);
    EXPECT_EQ(gridOf(table),
              sorted({piece(9, -5, 21, -5), piece(9, -13, 21, -13), piece(9, -5, 9, -13), piece(21, -5, 21, -13),
                      piece(11, -7, 19, -7), piece(11, -11, 19, -11), piece(11, -7, 11, -11), piece(19, -7, 19, -11),
                      // what leads up to it
                      piece(0, -6, 9, -6), piece(21, -6, 30, -6), piece(0, -12, 9, -12), piece(21, -12, 30, -12),
                      piece(10, 0, 10, -5), piece(10, -13, 10, -18), piece(20, 0, 20, -5), piece(20, -13, 20, -18),
                      // the table's own frame
                      piece(0, 0, 30, 0), piece(0, -18, 30, -18), piece(0, 0, 0, -18), piece(30, 0, 30, -18)}));
}

TEST_F(DrawnGrid, single_lines_close_a_double_bottom_at_its_ends_and_end_at_its_near_line_between) {
    make(1, 2);
    for (const int column : {0, 1}) {
        table.setGridLineStyle(0, column, KdDb::kHorzBottom, KdDb::kGridLineStyleDouble);
        table.setGridDoubleLineSpacing(0, column, KdDb::kHorzBottom, 2.0);
    }
    EXPECT_EQ(gridOf(table), sorted({piece(0, 0, 20, 0), piece(0, -5, 20, -5), piece(0, -7, 20, -7), piece(0, 0, 0, -7),
                                     piece(10, 0, 10, -5), piece(20, 0, 20, -7)}));
}

TEST_F(DrawnGrid, a_single_line_is_broken_by_a_double_one_that_it_crosses) {
    make(2, 2);
    for (const int row : {0, 1}) {
        table.setGridLineStyle(row, 0, KdDb::kVertRight, KdDb::kGridLineStyleDouble);
        table.setGridDoubleLineSpacing(row, 0, KdDb::kVertRight, 2.0);
    }
    EXPECT_EQ(gridOf(table),
              sorted({piece(0, 0, 20, 0), piece(0, -12, 20, -12), piece(0, 0, 0, -12), piece(20, 0, 20, -12),
                      piece(9, 0, 9, -12), piece(11, 0, 11, -12), piece(0, -6, 9, -6), piece(11, -6, 20, -6)}));
}

TEST_F(DrawnGrid, cells_narrower_than_the_bands_beside_them_have_no_lines_there) {
    make(1, 1);
    makeDouble(0, 0, 7.0);
    EXPECT_EQ(gridOf(table),
              sorted({piece(-3.5, 3.5, 13.5, 3.5), piece(-3.5, -9.5, 13.5, -9.5), piece(-3.5, 3.5, -3.5, -9.5),
                      piece(13.5, 3.5, 13.5, -9.5), piece(3.5, -3.5, 6.5, -3.5), piece(3.5, -2.5, 6.5, -2.5)}));
}

TEST_F(DrawnGrid, a_double_line_ends_at_the_single_one_that_it_meets) {
    make(1, 2);
    table.setGridLineStyle(0, 0, KdDb::kVertRight, KdDb::kGridLineStyleDouble);
    table.setGridDoubleLineSpacing(0, 0, KdDb::kVertRight, 2.0);
    const auto grid = gridOf(table);
    EXPECT_EQ(grid, sorted({piece(0, 0, 20, 0), piece(0, -6, 20, -6), piece(0, 0, 0, -6), piece(20, 0, 20, -6),
                            piece(9, 0, 9, -6), piece(11, 0, 11, -6)}));
}

TEST_F(DrawnGrid, covers_exactly_the_visible_edges_outside_merges_and_none_twice) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        const int rows = static_cast<int>(random() % 6) + 1;
        const int columns = static_cast<int>(random() % 6) + 1;
        KdDbTable other;
        other.setSize(rows, columns);
        other.setColumnWidth(10.0);
        other.setRowHeight(6.0);
        for (int merges = 0; merges < 2; ++merges) {
            const int top = static_cast<int>(random() % static_cast<unsigned>(rows));
            const int left = static_cast<int>(random() % static_cast<unsigned>(columns));
            other.mergeCells(top, std::min(top + 1, rows - 1), left, std::min(left + 2, columns - 1));
        }
        for (int changes = 0; changes < 4; ++changes) {
            const int row = static_cast<int>(random() % static_cast<unsigned>(rows));
            const int column = static_cast<int>(random() % static_cast<unsigned>(columns));
            other.setGridColor(row, column, kSides[random() % 4], KdCmColor::fromIndex(1));
        }
        // Every edge as unit pieces, by walking the cells.
        std::vector<Piece> expected;
        for (int row = 0; row <= rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                const bool inside =
                    row > 0 && row < rows && other.getMergeRange(row, column) == other.getMergeRange(row - 1, column);
                if (!inside) expected.push_back(piece(column * 10.0, row * -6.0, column * 10.0 + 10.0, row * -6.0));
            }
        }
        for (int column = 0; column <= columns; ++column) {
            for (int row = 0; row < rows; ++row) {
                const bool inside = column > 0 && column < columns &&
                                    other.getMergeRange(row, column) == other.getMergeRange(row, column - 1);
                if (!inside) expected.push_back(piece(column * 10.0, row * -6.0, column * 10.0, row * -6.0 - 6.0));
            }
        }
        std::vector<Piece> drawn;
        for (const Piece& line : gridOf(other)) {
            const bool level = line[1] == line[3];
            const int count =
                static_cast<int>(std::lround(level ? (line[2] - line[0]) / 10.0 : (line[3] - line[1]) / 6.0));
            for (int i = 0; i < count; ++i) {
                drawn.push_back(level ? piece(line[0] + 10.0 * i, line[1], line[0] + 10.0 * (i + 1), line[1])
                                      : piece(line[0], line[1] + 6.0 * i, line[0], line[1] + 6.0 * (i + 1)));
            }
        }
        ASSERT_EQ(sorted(drawn), sorted(expected)) << "round " << round;
    }
}

}  // namespace
