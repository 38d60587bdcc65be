// Texts of a cell style's sample in worked examples: a text 3 high with margins of 1 and 0.5, so that cells start 5
// high (2 * 0.5 + 3 + 3 / 3) and 25 wide (5 * 5). The extents of the text are the text engine's.

#include <gtest/gtest.h>

#include <cmath>

#include "tests/module/preview/previewfixture.h"

namespace kdtest::preview {
namespace {

/// One line of text is exactly as high as its capitals.
constexpr double kLine = 3.0;

class StyleTextExamples : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        look = fullLook();
        ASSERT_DOUBLE_EQ(measured(look, 23.0).height, kLine);
    }

    /// Where the first cell's text lies.
    KdGePoint3d placeOf(int alignment, double rotation, int flow) {
        look.alignment = alignment;
        look.rotation = rotation;
        look.flow = flow;
        return textsOf(StyleSample(look).make()).front().place;
    }
    static std::vector<Text> textsOf(const StyleSample& made) { return only<Text>(made.picture()); }

    static void expectPlace(const KdGePoint3d& seen, double x, double y) {
        EXPECT_NEAR(seen.x, x, 1e-9);
        EXPECT_NEAR(seen.y, y, 1e-9);
        EXPECT_EQ(seen.z, 0.0);
    }

    void useWords(const std::wstring& words) { look.name = look.shownName = words; }

    CellLook look;
};

TEST_F(StyleTextExamples, Cells_start_as_high_as_text_and_a_third_with_both_margins_and_five_times_as_wide) {
    const StyleSample small(look);
    EXPECT_DOUBLE_EQ(small.sample.GetRowHeight(), 5.0);
    EXPECT_DOUBLE_EQ(small.sample.GetColumnWidth(), 25.0);

    look.textHeight = 4.5;
    look.marginVert = 1.5;
    const StyleSample large(look);
    EXPECT_DOUBLE_EQ(large.sample.GetRowHeight(), 9.0);
    EXPECT_DOUBLE_EQ(large.sample.GetColumnWidth(), 45.0);
}

TEST_F(StyleTextExamples, Level_text_stands_off_its_cells_edges_by_the_margins) {
    expectPlace(placeOf(KdDb::kTopLeft, 0.0, 0), 1.0, -0.5);
    expectPlace(placeOf(KdDb::kTopCenter, 0.0, 0), 12.5, -0.5);
    expectPlace(placeOf(KdDb::kMiddleCenter, 0.0, 0), 12.5, -2.5);
    expectPlace(placeOf(KdDb::kBottomRight, 0.0, 0), 24.0, -4.5);
}

TEST_F(StyleTextExamples, Level_text_of_a_sample_that_grows_upward_has_its_top_at_the_far_edge) {
    expectPlace(placeOf(KdDb::kTopLeft, 0.0, 1), 1.0, 4.5);
    expectPlace(placeOf(KdDb::kMiddleRight, 0.0, 1), 24.0, 2.5);
    expectPlace(placeOf(KdDb::kBottomCenter, 0.0, 1), 12.5, 0.5);
}

TEST_F(StyleTextExamples, Each_cell_has_its_text_in_the_same_place) {
    look.alignment = KdDb::kTopLeft;
    for (const auto& [flow, y1, y2] : {std::tuple{0, -0.5, -5.5}, std::tuple{1, 4.5, 9.5}}) {
        look.flow = flow;
        const std::vector<Text> texts = textsOf(StyleSample(look).make());
        ASSERT_EQ(texts.size(), 4u);
        expectPlace(texts[0].place, 1.0, y1);
        expectPlace(texts[1].place, 26.0, y1);
        expectPlace(texts[2].place, 1.0, y2);
        expectPlace(texts[3].place, 26.0, y2);
    }
}

TEST_F(StyleTextExamples, Text_upside_down_stands_off_by_its_own_width_and_a_tenth_of_a_unit_whatever_its_height) {
    const double width = measured(look, 23.0).width;
    expectPlace(placeOf(KdDb::kTopLeft, kPi, 0), 1.1 + width, -3.5);
    expectPlace(placeOf(KdDb::kBottomRight, kPi, 0), 23.9 - width, -1.5);
    expectPlace(placeOf(KdDb::kMiddleCenter, kPi, 0), 12.5, -2.5);
    expectPlace(placeOf(KdDb::kTopLeft, kPi, 1), 1.1 + width, 1.5);
    expectPlace(placeOf(KdDb::kBottomRight, kPi, 1), 23.9 - width, 3.5);

    // Ten times as large, in cells of 50 (2 * 5 + 30 + 10) by 250: still a tenth.
    look.textHeight = 30.0;
    look.marginHorz = 10.0;
    look.marginVert = 5.0;
    expectPlace(placeOf(KdDb::kTopLeft, kPi, 0), 10.1 + measured(look, 230.0).width, -35.0);
}

TEST_F(StyleTextExamples, Text_that_runs_up_is_placed_across_by_its_vertical_alignment) {
    expectPlace(placeOf(KdDb::kTopLeft, kPi / 2, 0), 1.0, -4.5);
    expectPlace(placeOf(KdDb::kMiddleLeft, kPi / 2, 0), 2.5, -4.5);
    expectPlace(placeOf(KdDb::kBottomLeft, kPi / 2, 0), 4.0, -4.5);
    expectPlace(placeOf(KdDb::kTopCenter, kPi / 2, 0), 11.0, -2.5);
    expectPlace(placeOf(KdDb::kBottomCenter, kPi / 2, 0), 14.0, -2.5);
    expectPlace(placeOf(KdDb::kTopRight, kPi / 2, 0), 21.0, -0.5);
    expectPlace(placeOf(KdDb::kBottomRight, kPi / 2, 0), 24.0, -0.5);
    expectPlace(placeOf(KdDb::kTopLeft, kPi / 2, 1), 1.0, 0.5);
    expectPlace(placeOf(KdDb::kBottomRight, kPi / 2, 1), 24.0, 4.5);
}

TEST_F(StyleTextExamples, Text_that_runs_down_is_placed_the_other_way_round) {
    expectPlace(placeOf(KdDb::kTopLeft, 3 * kPi / 2, 0), 4.0, -0.5);
    expectPlace(placeOf(KdDb::kMiddleCenter, 3 * kPi / 2, 0), 12.5, -2.5);
    expectPlace(placeOf(KdDb::kTopCenter, 3 * kPi / 2, 0), 14.0, -2.5);
    expectPlace(placeOf(KdDb::kBottomRight, 3 * kPi / 2, 0), 21.0, -4.5);
    expectPlace(placeOf(KdDb::kMiddleRight, 3 * kPi / 2, 1), 22.5, 0.5);
    expectPlace(placeOf(KdDb::kBottomLeft, 3 * kPi / 2, 1), 1.0, 4.5);
}

TEST_F(StyleTextExamples, Text_that_runs_up_or_down_is_wrapped_at_the_cells_height) {
    for (const double rotation : {kPi / 2, 3 * kPi / 2, -kPi / 2}) {
        look.rotation = rotation;
        for (const Text& text : textsOf(StyleSample(look).make())) EXPECT_DOUBLE_EQ(text.wrapWidth, 4.0);
    }
    // 4 is too short for two words: two lines, 5 apart, which with margins of 1 need 10 across.
    useWords(L"Two words");
    StyleSample narrow(look);
    narrow.sample.SetColumnWidth(6.0);
    narrow.make();
    EXPECT_DOUBLE_EQ(narrow.sample.GetColumnWidth(), 10.0);
    EXPECT_DOUBLE_EQ(narrow.sample.GetRowHeight(), 5.0);
}

// ---- growth

TEST_F(StyleTextExamples, A_text_that_wraps_makes_its_row_grow_and_is_then_placed_by_the_larger_size) {
    useWords(L"Two words");
    look.alignment = KdDb::kMiddleLeft;
    StyleSample made(look);
    made.sample.SetColumnWidth(12.0);  // 10 for the text: each word has a line
    made.make();
    ASSERT_DOUBLE_EQ(measured(look, 10.0).height, 8.0);
    EXPECT_DOUBLE_EQ(made.sample.GetRowHeight(), 9.0);
    EXPECT_DOUBLE_EQ(made.sample.GetColumnWidth(), 12.0);
    const std::vector<Text> texts = textsOf(made);
    ASSERT_EQ(texts.size(), 4u);
    expectPlace(texts[0].place, 1.0, -4.5);
    expectPlace(texts[3].place, 13.0, -13.5);
}

TEST_F(StyleTextExamples, The_second_measuring_wraps_at_the_width_that_the_first_made) {
    StyleSample made(look);
    made.sample.SetColumnWidth(4.0);  // 5 are needed: 3 for the text's height, 2 for margins
    made.make();
    EXPECT_DOUBLE_EQ(made.sample.GetColumnWidth(), 5.0);
    for (const Text& text : textsOf(made)) EXPECT_DOUBLE_EQ(text.wrapWidth, 3.0);
}

TEST_F(StyleTextExamples, The_second_measuring_of_text_that_runs_up_wraps_at_the_height_that_the_first_made) {
    look.rotation = kPi / 2;
    StyleSample made(look);
    made.sample.SetRowHeight(2.0);  // 4 are needed
    made.make();
    EXPECT_DOUBLE_EQ(made.sample.GetRowHeight(), 4.0);
    for (const Text& text : textsOf(made)) EXPECT_DOUBLE_EQ(text.wrapWidth, 3.0);
}

TEST_F(StyleTextExamples, Sizes_that_the_text_fits_in_stay) {
    StyleSample made(look);
    made.sample.SetRowHeight(40.0);
    made.sample.SetColumnWidth(70.0);
    made.make();
    EXPECT_DOUBLE_EQ(made.sample.GetRowHeight(), 40.0);
    EXPECT_DOUBLE_EQ(made.sample.GetColumnWidth(), 70.0);
    expectPlace(textsOf(made)[3].place, 71.0, -40.5);
}

// ---- merge all

TEST_F(StyleTextExamples, With_merge_all_a_row_has_one_text_measured_over_both_columns) {
    look.mergeAll = true;
    look.alignment = KdDb::kTopCenter;
    const std::vector<Text> texts = textsOf(StyleSample(look).make());
    ASSERT_EQ(texts.size(), 2u);
    for (const Text& text : texts) EXPECT_DOUBLE_EQ(text.wrapWidth, 48.0);
    expectPlace(texts[0].place, 25.0, -0.5);
    expectPlace(texts[1].place, 25.0, -5.5);
}

TEST_F(StyleTextExamples, With_merge_all_the_fill_is_two_columns_wide_even_where_there_is_one) {
    look.mergeAll = true;
    look.background = KdCmColor::fromRgb(10, 20, 30);
    for (const bool singleColumn : {false, true}) {
        StyleSample made(look, singleColumn);
        made.make();
        const std::vector<Solid> solids = only<Solid>(made.picture());
        ASSERT_EQ(solids.size(), 2u);
        EXPECT_EQ(solids[0].corners, (std::array<KdGePoint3d, 4>{{{0, 0, 0}, {50, 0, 0}, {0, -5, 0}, {50, -5, 0}}}));
        EXPECT_EQ(solids[1].corners,
                  (std::array<KdGePoint3d, 4>{{{0, -5, 0}, {50, -5, 0}, {0, -10, 0}, {50, -10, 0}}}));
        for (const Text& text : textsOf(made)) EXPECT_DOUBLE_EQ(text.wrapWidth, singleColumn ? 23.0 : 48.0);
    }
}

// ---- at a slant

class SlantedTextExamples : public StyleTextExamples {
protected:
    void SetUp() override {
        StyleTextExamples::SetUp();
        width = measured(look, 23.0).width;
        // At 30, 150, 210 and 330 degrees: half the text's width, and most of its height.
        need = 0.5 * width + kCosine * kLine + 1.0;
    }

    static constexpr double kCosine = 0.86602540378443864676;
    /// What capitals rise at that slant.
    static constexpr double kRise = 2.59807621135331594029;
    static constexpr double kFirst = kPi / 6;
    static constexpr double kSecond = 5 * kPi / 6;
    static constexpr double kThird = 7 * kPi / 6;
    static constexpr double kFourth = 11 * kPi / 6;

    double width = 0.0;
    double need = 0.0;
};

TEST_F(SlantedTextExamples, A_slant_makes_rows_as_high_as_the_text_needs_and_leaves_the_columns_alone) {
    look.rotation = kPi / 4;
    StyleSample made(look);
    made.sample.SetColumnWidth(2.5);  // level text would want 5
    made.make();
    const TextExtent text = measured(look, 0.5);
    EXPECT_NEAR(made.sample.GetRowHeight(), (text.width + text.height) * std::sqrt(0.5) + 1.0, 1e-9);
    EXPECT_DOUBLE_EQ(made.sample.GetColumnWidth(), 2.5);

    for (const double rotation : {kFirst, kSecond, kThird, kFourth}) {
        look.rotation = rotation;
        StyleSample turned(look);
        turned.make();
        EXPECT_NEAR(turned.sample.GetRowHeight(), need, 1e-9);
        EXPECT_DOUBLE_EQ(turned.sample.GetColumnWidth(), 25.0);
    }
}

TEST_F(SlantedTextExamples, In_the_first_quadrant) {
    expectPlace(placeOf(KdDb::kTopLeft, kFirst, 0), 1.0, -(need - 0.5 - kRise));
    expectPlace(placeOf(KdDb::kTopLeft, kFirst, 1), 1.0, 0.5 + kRise);
    expectPlace(placeOf(KdDb::kTopCenter, kFirst, 0), 11.75, kRise / 2 - need / 2);
    expectPlace(placeOf(KdDb::kTopRight, kFirst, 0), 22.5, -0.5);
    expectPlace(placeOf(KdDb::kMiddleCenter, kFirst, 0), 12.5, -need / 2);
    expectPlace(placeOf(KdDb::kBottomCenter, kFirst, 0), 13.25, kRise / 2 - need / 2);
    expectPlace(placeOf(KdDb::kBottomCenter, kFirst, 1), 13.25, need / 2 - kRise / 2);
    expectPlace(placeOf(KdDb::kBottomRight, kFirst, 1), 24.0, need - 0.5 - kRise);
}

TEST_F(SlantedTextExamples, In_the_second_quadrant) {
    expectPlace(placeOf(KdDb::kTopLeft, kSecond, 0), 1.0 + kCosine * width, -(need - 0.5));
    expectPlace(placeOf(KdDb::kTopLeft, kSecond, 1), 1.0 + kCosine * width, 0.5);
    expectPlace(placeOf(KdDb::kTopCenter, kSecond, 0), 11.75, -(need / 2 + kRise / 2));
    expectPlace(placeOf(KdDb::kTopRight, kSecond, 1), 24.0 - kCosine * width - 1.5, 0.5 + width / 2);
    expectPlace(placeOf(KdDb::kMiddleLeft, kSecond, 0), 1.75 + kCosine * width, -(need - 0.5 - kRise / 2));
    expectPlace(placeOf(KdDb::kBottomRight, kSecond, 0), 24.0 - kCosine * width, -(need - 0.5 - width / 2 - kRise));
}

TEST_F(SlantedTextExamples, In_the_third_quadrant) {
    expectPlace(placeOf(KdDb::kTopLeft, kThird, 0), 2.5 + kCosine * width, -(0.5 + kRise));
    expectPlace(placeOf(KdDb::kTopRight, kThird, 1), 24.0 - kCosine * width, 0.5);
    expectPlace(placeOf(KdDb::kMiddleCenter, kThird, 1), 12.5, need / 2);
    expectPlace(placeOf(KdDb::kBottomLeft, kThird, 0), 1.0 + kCosine * width, -0.5);
    expectPlace(placeOf(KdDb::kBottomCenter, kThird, 1), 11.75, kRise / 2 + need / 2);
}

TEST_F(SlantedTextExamples, In_the_third_quadrant_middle_right_is_placed_by_half_the_needed_height_when_rows_grow_up) {
    expectPlace(placeOf(KdDb::kMiddleRight, kThird, 1), 23.25 - kCosine * width, 0.5 + kCosine * need / 2);
    expectPlace(placeOf(KdDb::kMiddleRight, kThird, 0), 23.25 - kCosine * width, -(need - 0.5 - kRise / 2));
}

TEST_F(SlantedTextExamples, In_the_fourth_quadrant) {
    expectPlace(placeOf(KdDb::kTopLeft, kFourth, 0), 2.5, -0.5);
    expectPlace(placeOf(KdDb::kTopLeft, kFourth, 1), 2.5, need - 0.5);
    expectPlace(placeOf(KdDb::kTopRight, kFourth, 0), 24.0, -(need - 0.5 - kRise));
    expectPlace(placeOf(KdDb::kMiddleRight, kFourth, 1), 23.25, 0.5 + kRise / 2);
    expectPlace(placeOf(KdDb::kBottomCenter, kFourth, 0), 11.75, -(kRise / 2 + need / 2));
    expectPlace(placeOf(KdDb::kBottomRight, kFourth, 0), 22.5, -(need - 0.5));
}

TEST_F(SlantedTextExamples, With_merge_all_a_slanted_text_asks_its_first_column_for_the_width_of_the_row) {
    look.mergeAll = true;
    look.rotation = kFirst;
    look.alignment = KdDb::kMiddleCenter;
    StyleSample made(look);
    made.make();
    EXPECT_DOUBLE_EQ(made.sample.GetColumnWidth(), 50.0);
    const std::vector<Text> texts = textsOf(made);
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_DOUBLE_EQ(texts[0].wrapWidth, 98.0);
    expectPlace(texts[0].place, 50.0, -need / 2);

    StyleSample single(look, true);
    single.make();
    EXPECT_DOUBLE_EQ(single.sample.GetColumnWidth(), 25.0);
}

TEST_F(SlantedTextExamples, Text_is_turned_by_the_styles_rotation) {
    for (const double rotation : {0.0, kFirst, kPi / 2, kSecond, kPi, kThird, kFourth, -kFirst}) {
        look.rotation = rotation;
        for (const Text& text : textsOf(StyleSample(look).make())) {
            EXPECT_NEAR(text.direction.x, std::cos(rotation), 1e-9);
            EXPECT_NEAR(text.direction.y, std::sin(rotation), 1e-9);
        }
    }
}

}  // namespace
}  // namespace kdtest::preview
