// The lines of a range's sample: the four shapes in worked examples, where each value is read, and everything together
// against the plain model. Cells are 42 wide and 28 high.

#include <gtest/gtest.h>

#include <random>

#include "tests/module/preview/rangefixture.h"
#include "tests/module/preview/rangemodel.h"

namespace kdtest::preview {
namespace {

class RangeSampleLines : public RangePreviewTest {
protected:
    void SetUp() override {
        RangePreviewTest::SetUp();
        for (int row = 0; row < 6; ++row) {
            for (int column = 0; column < 6; ++column) table->setTextHeight(row, column, 3.0);
        }
    }

    std::vector<Line> lines(const CVqTableCellRange& range) {
        return only<Line>(RangeSample(*table, range).make().picture());
    }

    /// Edge by the colour that `colourEdges` gave it, and where it runs.
    struct Run {
        EdgeName name;
        double x1, y1, x2, y2;
    };
    /// At the cell that the looks are read from.
    void colourEdges(int row, int column) { dressCell(row, column, CellLook().edges); }
    void expectRuns(const CVqTableCellRange& range, const std::vector<Run>& expected) {
        const std::vector<Line> seen = lines(range);
        ASSERT_EQ(seen.size(), expected.size());
        for (std::size_t place = 0; place < expected.size(); ++place) {
            const Run& run = expected[place];
            EXPECT_EQ(seen[place].color.colorIndex(), 11 + run.name) << "line " << place;
            SCOPED_TRACE("line " + std::to_string(place));
            expectRun(seen[place], run.x1, run.y1, run.x2, run.y2);
        }
    }

    static void expectRun(const Line& line, double x1, double y1, double x2, double y2) {
        EXPECT_TRUE(line.from.isEqualTo({x1, y1, 0.0}, 1e-9)) << line.from.x << ", " << line.from.y;
        EXPECT_TRUE(line.to.isEqualTo({x2, y2, 0.0}, 1e-9)) << line.to.x << ", " << line.to.y;
    }

    void expectAsModelled(const CVqTableCellRange& range) {
        RangeSample made(*table, range);
        made.make();
        const CellSize size = modelRangeSize(*table, range);
        ASSERT_NEAR(made.sample.GetRowHeight(), size.height, 1e-9);
        ASSERT_NEAR(made.sample.GetColumnWidth(), size.width, 1e-9);
        const Picture model = modelRangePicture(*table, range, loadText(2040).c_str(), size);
        ASSERT_EQ(difference(model, made.picture()), "") << ::testing::PrintToString(range);
    }
};

// ---- shapes

TEST_F(RangeSampleLines, One_cell_has_its_four_edges) {
    colourEdges(2, 2);
    expectRuns({2, 2, 2, 2},
               {{kTop, 0, 0, 42, 0}, {kLeft, 0, 0, 0, -28}, {kRight, 42, 0, 42, -28}, {kBottom, 0, -28, 42, -28}});
}

TEST_F(RangeSampleLines, A_row_of_two_has_an_inside_edge_between_them) {
    colourEdges(2, 2);
    expectRuns({2, 2, 2, 3}, {{kLeft, 0, 0, 0, -28},
                              {kInsideVert, 42, 0, 42, -28},
                              {kRight, 84, 0, 84, -28},
                              {kTop, 0, 0, 42, 0},
                              {kTop, 42, 0, 84, 0},
                              {kBottom, 0, -28, 42, -28},
                              {kBottom, 42, -28, 84, -28}});
}

TEST_F(RangeSampleLines, A_column_of_two_has_an_inside_edge_between_them) {
    colourEdges(2, 2);
    expectRuns({2, 2, 3, 2}, {{kTop, 0, 0, 42, 0},
                              {kInsideHorz, 0, -28, 42, -28},
                              {kBottom, 0, -56, 42, -56},
                              {kLeft, 0, 0, 0, -28},
                              {kRight, 42, 0, 42, -28},
                              {kLeft, 0, -28, 0, -56},
                              {kRight, 42, -28, 42, -56}});
}

TEST_F(RangeSampleLines, Two_by_two_have_inside_edges_both_ways) {
    colourEdges(2, 2);
    expectRuns({2, 2, 3, 3}, {{kTop, 0, 0, 42, 0},
                              {kInsideHorz, 0, -28, 42, -28},
                              {kBottom, 0, -56, 42, -56},
                              {kTop, 42, 0, 84, 0},
                              {kInsideHorz, 42, -28, 84, -28},
                              {kBottom, 42, -56, 84, -56},
                              {kInsideVert, 42, 0, 42, -28},
                              {kLeft, 0, 0, 0, -28},
                              {kRight, 84, 0, 84, -28},
                              {kInsideVert, 42, -28, 42, -56},
                              {kLeft, 0, -28, 0, -56},
                              {kRight, 84, -28, 84, -56}});
}

TEST_F(RangeSampleLines, Of_a_table_that_grows_upward_lines_go_up) {
    colourEdges(2, 2);
    table->setFlowDirection(1);
    expectRuns({2, 2, 3, 2}, {{kTop, 0, 0, 42, 0},
                              {kInsideHorz, 0, 28, 42, 28},
                              {kBottom, 0, 56, 42, 56},
                              {kLeft, 0, 0, 0, 28},
                              {kRight, 42, 0, 42, 28},
                              {kLeft, 0, 28, 0, 56},
                              {kRight, 42, 28, 42, 56}});
}

// ---- looks

TEST_F(RangeSampleLines, All_looks_are_read_at_the_first_cell_of_the_range) {
    colourEdges(2, 2);
    Edge other;
    other.color = KdCmColor::fromIndex(99);
    dressCell(3, 3, {other, other, other, other, other, other});
    for (const Line& line : lines({2, 2, 3, 3})) EXPECT_NE(line.color.colorIndex(), 99);
    int otherLines = 0;
    for (const Line& line : lines({3, 3, 2, 2})) otherLines += line.color.colorIndex() == 99 ? 1 : 0;
    EXPECT_EQ(otherLines, 12) << "a reversed range begins at its lower right cell";
}

TEST_F(RangeSampleLines, Visible_edges_have_their_colour_weight_and_line_type) {
    Edge edge;
    edge.color = KdCmColor::fromRgb(7, 77, 177);
    edge.weight = KdDb::kLnWt140;
    edge.linetype = linetype(L"DASHED");
    dressEdge(1, 1, kInsideVert, edge);
    const Line inside = lines({1, 1, 1, 2})[1];
    EXPECT_EQ(inside.color, edge.color);
    EXPECT_EQ(inside.weight, edge.weight);
    EXPECT_EQ(inside.linetype, edge.linetype);
    EXPECT_FALSE(inside.screenOnly);
}

TEST_F(RangeSampleLines, Hidden_edges_are_drawn_grey_and_thin_on_the_layer_that_is_not_plotted) {
    for (int name = 0; name < kEdgeCount; ++name) {
        table = makeTable(6, 6);
        Edge hidden;
        hidden.visible = false;
        dressEdge(1, 1, name, hidden);
        int grey = 0;
        for (const Line& line : lines({1, 1, 2, 2})) {
            if (!line.screenOnly) continue;
            ++grey;
            EXPECT_EQ(line.color, KdCmColor::fromIndex(8));
            EXPECT_EQ(line.weight, KdDb::kLnWt000);
        }
        EXPECT_EQ(grey, 2) << "edge " << name;
    }
}

// ---- double lines

TEST_F(RangeSampleLines, Half_spacings_are_read_at_the_samples_own_row_and_column_whatever_the_range) {
    // The range's first cell says that the top is double; how far apart its lines lie, and by how much the inner one is
    // cut, is read at row 0 and columns 0 and 1 of the table.
    std::array<Edge, kEdgeCount> edges = CellLook().edges;
    edges[kTop].isDouble = true;
    edges[kTop].spacing = 90.0;
    dressCell(3, 3, edges);
    table->setGridDoubleLineSpacing(0, 0, KdDb::kHorzTop, 2.0);
    table->setGridDoubleLineSpacing(0, 0, KdDb::kVertLeft, 4.0);
    table->setGridDoubleLineSpacing(0, 0, KdDb::kVertRight, 6.0);  // which is the left of its neighbour
    table->setGridDoubleLineSpacing(0, 1, KdDb::kHorzTop, 8.0);
    table->setGridDoubleLineSpacing(0, 1, KdDb::kVertRight, 10.0);
    const std::vector<Line> seen = lines({3, 3, 4, 4});
    ASSERT_EQ(seen.size(), 14u);
    expectRun(seen[0], 0, 1, 42, 1);
    expectRun(seen[1], 2, -1, 39, -1);
    expectRun(seen[4], 42, 4, 84, 4);
    expectRun(seen[5], 45, -4, 79, -4);
}

TEST_F(RangeSampleLines, Double_inside_edges_stop_short_of_the_edges_around_them) {
    std::array<Edge, kEdgeCount> edges = CellLook().edges;
    edges[kInsideHorz].isDouble = true;
    edges[kInsideVert].isDouble = true;
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            dressCell(row, column, edges);
            // A neighbour's right edge is one line with this cell's left.
            table->setGridDoubleLineSpacing(row, column, KdDb::kVertLeft, 0.8);
            table->setGridDoubleLineSpacing(row, column, KdDb::kVertRight, 0.8);
        }
    }
    const std::vector<Line> seen = lines({0, 0, 1, 1});
    ASSERT_EQ(seen.size(), 16u);
    expectRun(seen[1], 0.4, -27.87, 41.6, -27.87);  // inside, horizontal: 0.13 apart from the middle
    expectRun(seen[2], 0.4, -28.13, 41.6, -28.13);
    expectRun(seen[8], 41.69, -0.31, 41.69, -27.69);  // inside, vertical: 0.31
    expectRun(seen[9], 42.31, -0.31, 42.31, -27.69);
}

TEST_F(RangeSampleLines, A_double_left_edge_in_the_second_row_begins_and_ends_further_out) {
    for (int row = 0; row < 2; ++row) {
        Edge edge;
        edge.isDouble = true;
        edge.spacing = 2.0;
        dressEdge(row, 0, kLeft, edge);
    }
    const std::vector<Line> seen = lines({0, 0, 1, 0});
    ASSERT_EQ(seen.size(), 9u);
    expectRun(seen[3], -1, 1, -1, -28);
    expectRun(seen[4], 1, -1, 1, -27);
    expectRun(seen[6], -1, -27, -1, -57);
    expectRun(seen[7], 1, -29, 1, -55);
}

TEST_F(RangeSampleLines, Double_bottoms_and_right_edges_are_spaced_by_the_first_row_and_by_the_left_edges) {
    std::array<Edge, kEdgeCount> edges = CellLook().edges;
    for (Edge& edge : edges) edge.spacing = 90.0;  // of the range's first cell, where no spacing is read
    edges[kBottom].isDouble = true;
    edges[kRight].isDouble = true;
    dressCell(3, 3, edges);
    table->setGridDoubleLineSpacing(0, 0, KdDb::kHorzBottom, 6.0);
    table->setGridDoubleLineSpacing(0, 1, KdDb::kHorzBottom, 8.0);
    table->setGridDoubleLineSpacing(0, 0, KdDb::kVertLeft, 2.0);
    table->setGridDoubleLineSpacing(1, 0, KdDb::kVertLeft, 4.0);
    const std::vector<Line> seen = lines({3, 3, 4, 4});
    ASSERT_EQ(seen.size(), 16u);
    expectRun(seen[2], 3, -53, 39, -53);
    expectRun(seen[3], -3, -59, 45, -59);
    expectRun(seen[6], 46, -52, 80, -52);
    expectRun(seen[7], 38, -60, 88, -60);
    expectRun(seen[10], 85, 1, 85, -29);
    expectRun(seen[11], 83, -1, 83, -27);
    expectRun(seen[14], 86, -26, 86, -58);
    expectRun(seen[15], 82, -30, 82, -54);
}

// ---- against the model

TEST_F(RangeSampleLines, Random_tables_and_ranges_give_what_the_rules_say) {
    std::mt19937 random(42);
    const auto upTo = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    for (int round = 0; round < 300; ++round) {
        const int rows = 1 + upTo(5);
        const int columns = 1 + upTo(5);
        table = makeTable(rows, columns);
        table->setFlowDirection(upTo(2));
        if (upTo(2) == 0) {
            const int top = upTo(rows);
            const int left = upTo(columns);
            table->mergeCells(top, top + upTo(rows - top), left, left + upTo(columns - left));
        }
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                table->setTextHeight(row, column, 0.5 + upTo(20) / 4.0);
                table->setContentColor(row, column, KdCmColor::fromIndex(1 + upTo(200)));
                for (int name = 0; name < kEdgeCount; ++name) {
                    Edge edge;
                    edge.visible = upTo(3) != 0;
                    edge.isDouble = upTo(2) == 0;
                    edge.spacing = upTo(40) / 8.0;
                    edge.color = KdCmColor::fromIndex(1 + upTo(255));
                    dressEdge(row, column, name, edge);
                }
            }
        }
        KdCellRange range = table->getMergeRange(upTo(rows), upTo(columns));
        if (upTo(3) != 0) range = {upTo(rows), upTo(columns), upTo(rows), upTo(columns)};
        ASSERT_NO_FATAL_FAILURE(
            expectAsModelled({range.m_topRow, range.m_leftColumn, range.m_bottomRow, range.m_rightColumn}))
            << "round " << round;
    }
}

}  // namespace
}  // namespace kdtest::preview
