// The grid lines of a cell style's sample: over all combinations of hidden and double edges against the plain model,
// and in worked examples of cells 25 wide and 5 high. The half spacings of the look are 0.1 (top), 0.13 (inside,
// horizontal), 0.17 (bottom), 0.23 (left), 0.31 (inside, vertical) and 0.4 (right).

#include <gtest/gtest.h>

#include <random>

#include "tests/module/preview/previewfixture.h"
#include "tests/module/preview/stylemodel.h"

namespace kdtest::preview {
namespace {

class StyleSampleLines : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        look = fullLook();
    }

    Edge& edge(EdgeName name) { return look.edges.at(static_cast<std::size_t>(name)); }
    void hide(std::initializer_list<EdgeName> names) {
        for (const EdgeName name : names) edge(name).visible = false;
    }
    void makeDouble(std::initializer_list<EdgeName> names) {
        for (const EdgeName name : names) edge(name).isDouble = true;
    }

    std::vector<Line> lines(bool singleColumn = false) {
        StyleSample made(look, singleColumn);
        made.make();
        EXPECT_DOUBLE_EQ(made.sample.GetRowHeight(), 5.0);
        EXPECT_DOUBLE_EQ(made.sample.GetColumnWidth(), 25.0);
        return only<Line>(made.picture());
    }

    /// The sample's lines are exactly these, in their order.
    void expectLines(const std::vector<Line>& expected, bool singleColumn = false) {
        const std::vector<Line> seen = lines(singleColumn);
        EXPECT_EQ(difference(Picture(expected.begin(), expected.end()), Picture(seen.begin(), seen.end())), "");
    }

    /// A line with the looks of that edge, visible or not.
    Line drawn(EdgeName looks, double x1, double y1, double x2, double y2) {
        const Edge& values = edge(looks);
        Line line{{x1, y1, 0.0}, {x2, y2, 0.0}, values.linetype, values.weight, values.color, false};
        if (values.visible) return line;
        line.weight = KdDb::kLnWt000;
        line.color = KdCmColor::fromIndex(8);
        line.screenOnly = true;
        return line;
    }

    void expectAsModelled(int columns) {
        StyleSample made(look, columns == 1);
        made.make();
        const std::vector<Line> seen = only<Line>(made.picture());
        const std::vector<Line> model =
            modelLines(look, columns, {made.sample.GetColumnWidth(), made.sample.GetRowHeight()});
        ASSERT_EQ(difference(Picture(model.begin(), model.end()), Picture(seen.begin(), seen.end())), "")
            << told(look) << " columns " << columns;
    }

    /// All edges show, single: inner lines look like the outer edges on their far sides.
    std::vector<Line> singleLines() {
        return {
            // the first row's cells
            drawn(kTop, 0, 0, 25, 0),
            drawn(kLeft, 0, 0, 0, -5),
            drawn(kTop, 25, 0, 50, 0),
            drawn(kRight, 25, 0, 25, -5),
            drawn(kRight, 50, 0, 50, -5),
            // the second row's
            drawn(kBottom, 0, -5, 25, -5),
            drawn(kLeft, 0, -5, 0, -10),
            drawn(kBottom, 0, -10, 25, -10),
            drawn(kBottom, 25, -5, 50, -5),
            drawn(kRight, 25, -5, 25, -10),
            drawn(kBottom, 25, -10, 50, -10),
            drawn(kRight, 50, -5, 50, -10),
        };
    }
    /// The same where all outer edges are double.
    std::vector<Line> doubleLines() {
        return {
            drawn(kTop, 0, 0.1, 25, 0.1),
            drawn(kTop, 0.23, -0.1, 24.6, -0.1),
            drawn(kLeft, -0.23, 0.23, -0.23, -5),
            drawn(kLeft, 0.23, -0.23, 0.23, -4.77),
            drawn(kTop, 25, 0.1, 50, 0.1),
            drawn(kTop, 25.23, -0.1, 49.6, -0.1),
            drawn(kRight, 24.77, -0.23, 24.77, -4.77),
            drawn(kRight, 25.23, -0.23, 25.23, -4.77),
            drawn(kRight, 50.23, 0.23, 50.23, -5.23),
            drawn(kRight, 49.77, -0.23, 49.77, -4.77),
            drawn(kBottom, 0.23, -4.9, 24.6, -4.9),
            drawn(kBottom, 0.23, -5.1, 24.6, -5.1),
            drawn(kLeft, -0.23, -4.77, -0.23, -10.23),
            drawn(kLeft, 0.23, -5.23, 0.23, -9.77),
            drawn(kBottom, 0.17, -9.83, 24.83, -9.83),
            drawn(kBottom, -0.17, -10.17, 25.17, -10.17),
            drawn(kBottom, 25.23, -4.9, 49.6, -4.9),
            drawn(kBottom, 25.23, -5.1, 49.6, -5.1),
            drawn(kRight, 24.77, -5.23, 24.77, -9.77),
            drawn(kRight, 25.23, -5.23, 25.23, -9.77),
            drawn(kBottom, 25.17, -9.83, 49.83, -9.83),
            drawn(kBottom, 24.83, -10.17, 50.17, -10.17),
            drawn(kRight, 50.23, -4.77, 50.23, -10.23),
            drawn(kRight, 49.77, -5.23, 49.77, -9.77),
        };
    }
    static std::vector<Line> mirrored(std::vector<Line> lines) {
        for (Line& line : lines) {
            line.from.y = -line.from.y;
            line.to.y = -line.to.y;
        }
        return lines;
    }

    CellLook look;
};

// ---- all combinations

class StyleSampleGrid : public StyleSampleLines, public ::testing::WithParamInterface<int> {};

/// The hidden edges, as a mask.
INSTANTIATE_TEST_SUITE_P(HiddenEdges, StyleSampleGrid, ::testing::Range(0, 64));

TEST_P(StyleSampleGrid, All_double_edges_both_flows_and_merge_all_give_the_lines_of_the_rules) {
    for (int name = 0; name < kEdgeCount; ++name) {
        look.edges.at(static_cast<std::size_t>(name)).visible = (GetParam() >> name & 1) == 0;
    }
    for (int doubles = 0; doubles < 64; ++doubles) {
        for (int name = 0; name < kEdgeCount; ++name) {
            look.edges.at(static_cast<std::size_t>(name)).isDouble = (doubles >> name & 1) != 0;
        }
        for (int shape = 0; shape < 8; ++shape) {
            look.flow = shape & 1;
            look.mergeAll = (shape & 2) != 0;
            ASSERT_NO_FATAL_FAILURE(expectAsModelled(1 + (shape >> 2)));
        }
    }
}

TEST_F(StyleSampleLines, Random_spacings_colours_and_weights_give_the_lines_of_the_rules) {
    std::mt19937 random(17);
    constexpr std::array kWeights{KdDb::kLnWtByLwDefault, KdDb::kLnWtByBlock, KdDb::kLnWtByLayer,
                                  KdDb::kLnWt000,         KdDb::kLnWt030,     KdDb::kLnWt211};
    for (int round = 0; round < 400; ++round) {
        for (Edge& values : look.edges) {
            values.visible = random() % 3 != 0;
            values.isDouble = random() % 2 == 0;
            values.spacing = random() % 5 == 0 ? 0.0 : std::uniform_real_distribution<double>(0.0, 4.0)(random);
            values.weight = kWeights.at(random() % kWeights.size());
            values.color = random() % 4 == 0 ? KdCmColor::byBlock() : KdCmColor::fromRgb(1, 2, int(random() % 256));
        }
        look.flow = static_cast<int>(random() % 2);
        look.mergeAll = random() % 2 == 0;
        ASSERT_NO_FATAL_FAILURE(expectAsModelled(1 + static_cast<int>(random() % 2))) << "round " << round;
    }
}

// ---- single lines

TEST_F(StyleSampleLines, Each_cell_draws_its_top_and_left_the_last_row_its_bottoms_the_last_column_its_rights) {
    expectLines(singleLines());
}

TEST_F(StyleSampleLines, A_single_column_has_no_lines_between_columns) {
    expectLines(
        {
            drawn(kTop, 0, 0, 25, 0),
            drawn(kLeft, 0, 0, 0, -5),
            drawn(kRight, 25, 0, 25, -5),
            drawn(kBottom, 0, -5, 25, -5),
            drawn(kLeft, 0, -5, 0, -10),
            drawn(kBottom, 0, -10, 25, -10),
            drawn(kRight, 25, -5, 25, -10),
        },
        true);
}

TEST_F(StyleSampleLines, Merge_all_leaves_out_the_lines_between_columns_and_no_others) {
    look.mergeAll = true;
    expectLines({
        drawn(kTop, 0, 0, 25, 0),
        drawn(kLeft, 0, 0, 0, -5),
        drawn(kTop, 25, 0, 50, 0),
        drawn(kRight, 50, 0, 50, -5),
        drawn(kBottom, 0, -5, 25, -5),
        drawn(kLeft, 0, -5, 0, -10),
        drawn(kBottom, 0, -10, 25, -10),
        drawn(kBottom, 25, -5, 50, -5),
        drawn(kBottom, 25, -10, 50, -10),
        drawn(kRight, 50, -5, 50, -10),
    });
}

TEST_F(StyleSampleLines, A_sample_that_grows_upward_is_the_mirror_image) {
    look.flow = 1;
    expectLines(mirrored(singleLines()));
}

// ---- which edge an inner line looks like

struct InnerLooks {
    const char* name;
    std::vector<EdgeName> hidden;
    EdgeName betweenRows;
    EdgeName betweenColumns;
};
void PrintTo(const InnerLooks& looks, std::ostream* out) {
    *out << looks.name;
}

class StyleSampleInnerLines : public StyleSampleLines, public ::testing::WithParamInterface<InnerLooks> {};

INSTANTIATE_TEST_SUITE_P(
    Styles, StyleSampleInnerLines,
    ::testing::Values(InnerLooks{"all_edges_show", {}, kBottom, kRight},
                      InnerLooks{"top_hidden", {kTop}, kInsideHorz, kInsideVert},
                      InnerLooks{"bottom_hidden", {kBottom}, kInsideHorz, kInsideVert},
                      InnerLooks{"left_hidden", {kLeft}, kInsideHorz, kInsideVert},
                      InnerLooks{"right_hidden", {kRight}, kInsideHorz, kInsideVert},
                      InnerLooks{"outside_hidden", {kTop, kBottom, kLeft, kRight}, kInsideHorz, kInsideVert},
                      InnerLooks{"inside_hidden", {kInsideHorz, kInsideVert}, kInsideHorz, kInsideVert},
                      InnerLooks{"one_inside_hidden", {kInsideVert}, kInsideHorz, kInsideVert},
                      InnerLooks{"top_and_inside_hidden", {kTop, kInsideHorz}, kBottom, kRight},
                      InnerLooks{"bottom_and_inside_hidden", {kBottom, kInsideVert}, kTop, kRight},
                      InnerLooks{"right_and_inside_hidden", {kRight, kInsideHorz}, kBottom, kLeft},
                      InnerLooks{"all_hidden", {kTop, kInsideHorz, kBottom, kLeft, kInsideVert, kRight}, kTop, kLeft}),
    [](const auto& info) { return info.param.name; });

TEST_P(StyleSampleInnerLines, Look_like_the_inside_edges_or_like_the_outside_ones) {
    for (const EdgeName name : GetParam().hidden) hide({name});
    const std::vector<Line> seen = lines();
    ASSERT_EQ(seen.size(), 12u);
    const std::vector<Line> expected{drawn(GetParam().betweenColumns, 25, 0, 25, -5),
                                     drawn(GetParam().betweenRows, 0, -5, 25, -5)};
    EXPECT_EQ(difference({expected[0], expected[1]}, {seen[3], seen[5]}), "");
}

// ---- hidden lines

TEST_F(StyleSampleLines, Hidden_edges_are_drawn_grey_and_thin_on_the_layer_that_is_not_plotted) {
    hide({kTop, kLeft});
    StyleSample made(look);
    made.make();
    const std::vector<Line> seen = only<Line>(made.picture());
    for (const std::size_t place : {0u, 1u, 2u, 6u}) {
        EXPECT_TRUE(seen[place].screenOnly) << place;
        EXPECT_EQ(seen[place].color.colorIndex(), 8) << place;
        EXPECT_TRUE(seen[place].color.isByACI()) << place;
        EXPECT_EQ(seen[place].weight, KdDb::kLnWt000) << place;
    }
    for (const std::size_t place : {3u, 4u, 5u, 7u}) EXPECT_FALSE(seen[place].screenOnly) << place;

    const auto* layer = kdhost::peek<KdDbLayerTableRecord>(screenOnlyLayer(made.sample.GetDatabase()));
    ASSERT_NE(layer, nullptr);
    EXPECT_EQ(layer->database(), made.sample.GetDatabase());
    EXPECT_FALSE(layer->isPlottable());
}

TEST_F(StyleSampleLines, A_hidden_edge_that_is_double_is_two_grey_lines) {
    hide({kTop});
    makeDouble({kTop});
    const std::vector<Line> seen = lines(true);
    ASSERT_EQ(seen.size(), 9u);
    EXPECT_EQ(difference({drawn(kTop, 0, 0.1, 25, 0.1), drawn(kTop, 0.23, -0.1, 24.6, -0.1)}, {seen[0], seen[1]}), "");
    EXPECT_TRUE(seen[0].screenOnly && seen[1].screenOnly);
}

TEST_F(StyleSampleLines, Visible_edges_have_their_own_colour_weight_and_line_type) {
    edge(kTop).color = KdCmColor::fromRgb(200, 100, 50);
    edge(kTop).weight = KdDb::kLnWt211;
    edge(kTop).linetype = linetype(L"DASHED");
    const Line top = lines().front();
    EXPECT_EQ(top.color, KdCmColor::fromRgb(200, 100, 50));
    EXPECT_EQ(top.weight, KdDb::kLnWt211);
    EXPECT_EQ(top.linetype, linetype(L"DASHED"));
    EXPECT_FALSE(top.screenOnly);
}

// ---- double lines

TEST_F(StyleSampleLines, A_double_top_keeps_its_outer_line_to_the_corners_in_the_first_row_alone) {
    makeDouble({kTop});
    expectLines(
        {
            drawn(kTop, 0, 0.1, 25, 0.1),
            drawn(kTop, 0.23, -0.1, 24.6, -0.1),
            drawn(kLeft, 0, 0, 0, -5),
            drawn(kRight, 25, 0, 25, -5),
            drawn(kBottom, 0.23, -4.9, 24.6, -4.9),
            drawn(kBottom, 0.23, -5.1, 24.6, -5.1),
            drawn(kLeft, 0, -5, 0, -10),
            drawn(kBottom, 0, -10, 25, -10),
            drawn(kRight, 25, -5, 25, -10),
        },
        true);
}

TEST_F(StyleSampleLines, A_double_left_edge_doubles_the_lines_between_columns_too) {
    makeDouble({kLeft});
    expectLines({
        drawn(kTop, 0, 0, 25, 0),
        drawn(kLeft, -0.23, 0.23, -0.23, -5),
        drawn(kLeft, 0.23, -0.23, 0.23, -4.77),
        drawn(kTop, 25, 0, 50, 0),
        drawn(kRight, 24.77, -0.23, 24.77, -4.77),
        drawn(kRight, 25.23, -0.23, 25.23, -4.77),
        drawn(kRight, 50, 0, 50, -5),
        drawn(kBottom, 0, -5, 25, -5),
        drawn(kLeft, -0.23, -4.77, -0.23, -10.23),
        drawn(kLeft, 0.23, -5.23, 0.23, -9.77),
        drawn(kBottom, 0, -10, 25, -10),
        drawn(kBottom, 25, -5, 50, -5),
        drawn(kRight, 24.77, -5.23, 24.77, -9.77),
        drawn(kRight, 25.23, -5.23, 25.23, -9.77),
        drawn(kBottom, 25, -10, 50, -10),
        drawn(kRight, 50, -5, 50, -10),
    });
}

TEST_F(StyleSampleLines, A_double_right_edge_is_spaced_by_the_left_edges_spacing) {
    makeDouble({kRight});
    expectLines(
        {
            drawn(kTop, 0, 0, 25, 0),
            drawn(kLeft, 0, 0, 0, -5),
            drawn(kRight, 25.23, 0.23, 25.23, -5.23),
            drawn(kRight, 24.77, -0.23, 24.77, -4.77),
            drawn(kBottom, 0, -5, 25, -5),
            drawn(kLeft, 0, -5, 0, -10),
            drawn(kBottom, 0, -10, 25, -10),
            drawn(kRight, 25.23, -4.77, 25.23, -10.23),
            drawn(kRight, 24.77, -5.23, 24.77, -9.77),
        },
        true);
}

TEST_F(StyleSampleLines, A_double_right_edge_that_shows_doubles_the_lines_between_columns_in_its_own_looks) {
    makeDouble({kRight});
    hide({kTop});  // so that a single line between columns would look like the inside edge
    const std::vector<Line> seen = lines();
    ASSERT_EQ(seen.size(), 16u);
    EXPECT_EQ(difference({drawn(kRight, 24.77, -0.23, 24.77, -4.77), drawn(kRight, 25.23, -0.23, 25.23, -4.77)},
                         {seen[3], seen[4]}),
              "");
}

TEST_F(StyleSampleLines, A_double_right_edge_that_is_hidden_leaves_the_lines_between_columns_single) {
    makeDouble({kRight});
    hide({kRight});
    const std::vector<Line> seen = lines();
    ASSERT_EQ(seen.size(), 14u);
    EXPECT_EQ(
        difference({drawn(kInsideVert, 25, 0, 25, -5), drawn(kRight, 50.23, 0.23, 50.23, -5.23)}, {seen[3], seen[4]}),
        "");
}

TEST_F(StyleSampleLines, A_double_bottom_edge_is_doubled_in_the_last_row) {
    makeDouble({kBottom});
    const std::vector<Line> seen = lines();
    ASSERT_EQ(seen.size(), 14u);
    EXPECT_EQ(difference({drawn(kBottom, 0.17, -9.83, 24.83, -9.83), drawn(kBottom, -0.17, -10.17, 25.17, -10.17)},
                         {seen[7], seen[8]}),
              "");
    EXPECT_EQ(difference({drawn(kBottom, 25.17, -9.83, 49.83, -9.83), drawn(kBottom, 24.83, -10.17, 50.17, -10.17)},
                         {seen[11], seen[12]}),
              "");
}

TEST_F(StyleSampleLines, Double_inside_edges_double_nothing) {
    makeDouble({kInsideHorz, kInsideVert});
    expectLines(singleLines());
    hide({kTop});  // inner lines look like the inside edges now
    EXPECT_EQ(lines().size(), 12u);
}

TEST_F(StyleSampleLines, Double_outer_edges_meet_at_the_corners_of_each_cell) {
    makeDouble({kTop, kBottom, kLeft, kRight});
    expectLines(doubleLines());
}

TEST_F(StyleSampleLines, Double_lines_of_a_sample_that_grows_upward_are_the_mirror_image) {
    makeDouble({kTop, kBottom, kLeft, kRight});
    look.flow = 1;
    expectLines(mirrored(doubleLines()));
}

}  // namespace
}  // namespace kdtest::preview
