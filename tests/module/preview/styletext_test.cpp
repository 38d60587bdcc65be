// The texts of a cell style's sample over all that places them: alignment, rotation, flow, merge all, one column or
// two, one line of text or several, and sizes given by hand. Each is held against the plain model.

#include <gtest/gtest.h>

#include <random>

#include "tests/module/preview/previewfixture.h"
#include "tests/module/preview/stylemodel.h"

namespace kdtest::preview {
namespace {

struct Rotation {
    const char* name;
    double angle;
};
void PrintTo(const Rotation& rotation, std::ostream* out) {
    *out << rotation.name;
}

// Just inside and just outside of what counts as lying along an axis.
constexpr double kNear = 0.9e-6;
constexpr double kBeyond = 1.1e-6;

constexpr Rotation kRotations[] = {
    {"level", 0.0},
    {"quarter", kPi / 2},
    {"half", kPi},
    {"three_quarters", 3 * kPi / 2},
    {"whole", 2 * kPi},
    {"first_quadrant", 0.5},
    {"second_quadrant", 2.2},
    {"third_quadrant", 3.9},
    {"fourth_quadrant", 5.6},
    {"level_nearly_above", kNear},
    {"level_nearly_below", -kNear},
    {"whole_nearly_below", 2 * kPi - kNear},
    {"quarter_nearly_above", kPi / 2 + kNear},
    {"quarter_nearly_below", kPi / 2 - kNear},
    {"half_nearly_above", kPi + kNear},
    {"half_nearly_below", kPi - kNear},
    {"three_quarters_nearly_above", 3 * kPi / 2 + kNear},
    {"three_quarters_nearly_below", 3 * kPi / 2 - kNear},
    {"level_no_more_above", kBeyond},
    {"level_no_more_below", -kBeyond},
    {"whole_no_more_below", 2 * kPi - kBeyond},
    {"quarter_no_more_above", kPi / 2 + kBeyond},
    {"quarter_no_more_below", kPi / 2 - kBeyond},
    {"half_no_more_above", kPi + kBeyond},
    {"half_no_more_below", kPi - kBeyond},
    {"three_quarters_no_more_above", 3 * kPi / 2 + kBeyond},
    {"three_quarters_no_more_below", 3 * kPi / 2 - kBeyond},
    {"negative_quarter", -kPi / 2},
    {"negative_half", -kPi},
    {"negative_three_quarters", -3 * kPi / 2},
    {"negative_fourth_quadrant", -0.5},
    {"negative_third_quadrant", -2.2},
    {"negative_second_quadrant", -3.9},
    {"negative_first_quadrant", -5.6},
    {"beyond_whole_quarter", 5 * kPi / 2},
    {"beyond_whole_half", 3 * kPi},
    {"beyond_whole_first_quadrant", 2 * kPi + 0.5},
    {"beyond_whole_third_quadrant", 6 * kPi + 3.9},
    {"negative_beyond_whole_second_quadrant", -6 * kPi + 2.2},
};

class StyleSampleText : public PreviewTest {
protected:
    CellLook look = fullLook();

    void expectAsModelled(int columns, const std::optional<CellSize>& start = std::nullopt) {
        StyleSample made(look, columns == 1);
        if (start) {
            made.sample.SetRowHeight(start->height);
            made.sample.SetColumnWidth(start->width);
        }
        made.make();
        const ModelSample model = modelSample(look, columns, start);
        ASSERT_NEAR(made.sample.GetRowHeight(), model.cell.height, 1e-9) << told(look) << " columns " << columns;
        ASSERT_NEAR(made.sample.GetColumnWidth(), model.cell.width, 1e-9) << told(look) << " columns " << columns;
        ASSERT_EQ(difference(model.picture, made.picture()), "") << told(look) << " columns " << columns;
    }
};

class TurnedStyleSampleText : public StyleSampleText, public ::testing::WithParamInterface<Rotation> {};

INSTANTIATE_TEST_SUITE_P(Rotations, TurnedStyleSampleText, ::testing::ValuesIn(kRotations),
                         [](const auto& info) { return info.param.name; });

TEST_P(TurnedStyleSampleText, Each_alignment_flow_and_merge_places_its_text_as_the_tables_say) {
    look.rotation = GetParam().angle;
    look.background = KdCmColor::fromIndex(2);
    for (int place = 0; place < 9 * 2 * 2 * 2; ++place) {
        look.alignment = 1 + place % 9;
        look.flow = place / 9 % 2;
        look.mergeAll = place / 18 % 2 == 1;
        ASSERT_NO_FATAL_FAILURE(expectAsModelled(1 + place / 36));
    }
}

TEST_P(TurnedStyleSampleText, A_name_of_several_words_wraps_and_cells_grow_as_the_tables_say) {
    look.rotation = GetParam().angle;
    look.name = look.shownName = L"Totals of all the parts and assemblies";
    for (int place = 0; place < 9 * 2 * 2; ++place) {
        look.alignment = 1 + place % 9;
        look.flow = place / 9 % 2;
        look.mergeAll = place / 18 == 1;
        ASSERT_NO_FATAL_FAILURE(expectAsModelled(2));
    }
}

TEST_P(TurnedStyleSampleText, Any_sizes_to_start_from_give_what_the_tables_say) {
    std::mt19937 random(41);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    look.rotation = GetParam().angle;
    for (int round = 0; round < 40; ++round) {
        look.name = look.shownName = round % 2 == 0 ? L"Sum" : L"Some more words";
        look.alignment = 1 + static_cast<int>(random() % 9);
        look.flow = static_cast<int>(random() % 2);
        look.mergeAll = random() % 2 == 1;
        look.textHeight = between(0.2, 9.0);
        look.marginHorz = random() % 4 == 0 ? 0.0 : between(0.0, 4.0);
        look.marginVert = random() % 4 == 0 ? 0.0 : between(0.0, 4.0);
        const CellSize start{between(-2.0, 60.0), between(-2.0, 40.0)};
        ASSERT_NO_FATAL_FAILURE(expectAsModelled(1 + static_cast<int>(random() % 2), start)) << round;
    }
}

TEST_F(StyleSampleText, Angles_too_large_to_tell_whole_turns_apart_count_as_level) {
    for (const double angle : {1e300, -1e300, 1e18, -1e18}) {
        look.rotation = angle;
        const CellSize start = startSize(look);
        StyleSample made(look);
        made.make();
        EXPECT_EQ(made.sample.GetRowHeight(), start.height) << angle;
        for (const Text& text : only<Text>(made.picture())) EXPECT_EQ(text.wrapWidth, start.width - 2.0) << angle;
        expectAsModelled(2);
    }
}

TEST_F(StyleSampleText, Any_other_flow_grows_upward_with_the_texts_placed_as_in_a_sample_that_grows_downward) {
    for (const int flow : {2, -1}) {
        for (const Rotation& rotation : kRotations) {
            look.rotation = rotation.angle;
            look.flow = flow;
            for (look.alignment = 1; look.alignment <= 9; ++look.alignment)
                ASSERT_NO_FATAL_FAILURE(expectAsModelled(2));
        }
    }
}

}  // namespace
}  // namespace kdtest::preview
