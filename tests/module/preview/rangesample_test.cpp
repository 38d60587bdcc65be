// The sample of a range of cells: which shape it takes, its sizes, its text, its life, and what becomes of it when
// something fails.

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "host/app/dump/dump.h"
#include "host/win32/modules.h"
#include "tests/module/preview/rangefixture.h"
#include "tests/module/preview/usersystems.h"

namespace kdtest::preview {
namespace {

class RangeSamples : public RangePreviewTest {
protected:
    /// Rows and columns of the sample, read off its texts.
    static std::pair<std::size_t, std::size_t> shapeOf(const RangeSample& made) {
        std::set<double> rows;
        std::set<double> columns;
        const std::vector<Text> texts = only<Text>(made.picture());
        for (const Text& text : texts) {
            rows.insert(text.place.y);
            columns.insert(text.place.x);
        }
        EXPECT_EQ(texts.size(), rows.size() * columns.size());
        return {rows.size(), columns.size()};
    }
    std::pair<std::size_t, std::size_t> shape(const CVqTableCellRange& range) {
        return shapeOf(RangeSample(*table, range).make());
    }
    using Shape = std::pair<std::size_t, std::size_t>;
};

// ---- shapes

TEST_F(RangeSamples, Up_to_two_rows_and_columns_show_as_they_are) {
    EXPECT_EQ(shape({1, 1, 1, 1}), Shape(1, 1));
    EXPECT_EQ(shape({1, 1, 1, 2}), Shape(1, 2));
    EXPECT_EQ(shape({1, 1, 2, 1}), Shape(2, 1));
    EXPECT_EQ(shape({1, 1, 2, 2}), Shape(2, 2));
}

TEST_F(RangeSamples, Three_or_more_rows_or_columns_show_two_by_two) {
    EXPECT_EQ(shape({0, 1, 4, 1}), Shape(2, 2)) << "five by one";
    EXPECT_EQ(shape({1, 0, 1, 4}), Shape(2, 2)) << "one by five";
    EXPECT_EQ(shape({1, 1, 2, 3}), Shape(2, 2)) << "two by three";
    EXPECT_EQ(shape({1, 1, 3, 2}), Shape(2, 2)) << "three by two";
    EXPECT_EQ(shape({0, 0, 5, 5}), Shape(2, 2));
}

TEST_F(RangeSamples, A_merge_selected_exactly_shows_one_cell_whatever_its_size) {
    for (const CVqTableCellRange& merge : std::initializer_list<CVqTableCellRange>{
             {1, 1, 1, 2}, {1, 1, 2, 1}, {1, 1, 2, 2}, {0, 0, 5, 0}, {0, 1, 3, 5}, {0, 0, 5, 5}}) {
        table = makeTable(6, 6, {merge});
        EXPECT_EQ(shape(merge), Shape(1, 1)) << ::testing::PrintToString(merge);
    }
}

TEST_F(RangeSamples, A_merge_selected_in_part_or_with_others_shows_by_its_rows_and_columns) {
    table = makeTable(6, 6, {{1, 1, 2, 2}});
    EXPECT_EQ(shape({1, 1, 1, 1}), Shape(1, 1));
    EXPECT_EQ(shape({1, 1, 1, 2}), Shape(1, 2));
    EXPECT_EQ(shape({1, 1, 2, 1}), Shape(2, 1));
    EXPECT_EQ(shape({2, 2, 2, 2}), Shape(1, 1));
    EXPECT_EQ(shape({0, 1, 1, 2}), Shape(2, 2));
    EXPECT_EQ(shape({1, 1, 2, 3}), Shape(2, 2));
    EXPECT_EQ(shape({1, 1, 4, 1}), Shape(2, 2));
}

TEST_F(RangeSamples, A_reversed_range_counts_like_an_ordered_one_and_is_read_at_its_first_corner_as_given) {
    table->setTextHeight(3, 3, 9.0);
    EXPECT_EQ(shape({3, 3, 3, 2}), Shape(1, 2));
    EXPECT_EQ(shape({3, 3, 2, 3}), Shape(2, 1));
    EXPECT_EQ(shape({3, 3, 2, 2}), Shape(2, 2));
    EXPECT_EQ(shape({3, 3, 0, 3}), Shape(2, 2));
    EXPECT_EQ(only<Text>(RangeSample(*table, {3, 3, 2, 2}).make().picture()).front().height, 9.0);

    table = makeTable(6, 6, {{2, 2, 3, 3}});
    EXPECT_EQ(shape({2, 2, 3, 3}), Shape(1, 1));
    EXPECT_EQ(shape({3, 3, 2, 2}), Shape(2, 2)) << "the merge, but not as the merge is kept";
}

// ---- sizes

TEST_F(RangeSamples, Cells_are_four_times_as_high_as_text_and_a_third_with_both_margins_and_half_as_wide_again) {
    table->setTextHeight(2, 1, 3.0);
    const RangeSample made(*table, {2, 1, 4, 3});
    ASSERT_EQ(table->margin(2, 1, KdDb::kCellMarginTop), 1.5);
    EXPECT_DOUBLE_EQ(made.sample.GetRowHeight(), 28.0);  // (3 + 3 + 1) * 4
    EXPECT_DOUBLE_EQ(made.sample.GetColumnWidth(), 42.0);
}

TEST_F(RangeSamples, A_word_wider_than_a_cell_and_sizes_too_small_for_it_stay_as_they_are) {
    table->setTextHeight(0, 0, 3.0);
    table->setTextStyle(0, 0, wideTextStyle(40.0));
    RangeSample wide(*table, {0, 0, 1, 1});
    wide.make();
    const KdDbObjectId first = kdhost::entitiesOf(wide.sample.GetTableCell()->blockTableRecord()).front();
    ASSERT_GT(kdhost::peek<KdDbMText>(first)->actualWidth(), 42.0);
    EXPECT_DOUBLE_EQ(wide.sample.GetRowHeight(), 28.0);
    EXPECT_DOUBLE_EQ(wide.sample.GetColumnWidth(), 42.0);

    RangeSample small(*table, {0, 0, 1, 1});
    small.sample.SetRowHeight(1.0);
    small.sample.SetColumnWidth(2.0);
    small.make();
    EXPECT_DOUBLE_EQ(small.sample.GetRowHeight(), 1.0);
    EXPECT_DOUBLE_EQ(small.sample.GetColumnWidth(), 2.0);
    EXPECT_EQ(only<Text>(small.picture()).back().place, KdGePoint3d(3.0, -1.5, 0.0));
}

// ---- text

TEST_F(RangeSamples, Each_cell_shows_the_same_word_in_its_middle_unturned_in_the_looks_of_the_first_cell) {
    table->setTextHeight(1, 2, 3.0);
    table->setTextStyle(1, 2, wideTextStyle(1.25));
    table->setContentColor(1, 2, KdCmColor::fromRgb(4, 5, 6));
    table->setAlignment(1, 2, KdDb::kBottomRight);
    table->setTextHeight(2, 3, 8.0);
    table->setContentColor(2, 3, KdCmColor::fromIndex(1));

    const std::vector<Text> texts = only<Text>(RangeSample(*table, {1, 2, 2, 3}).make().picture());
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[0].place, KdGePoint3d(21.0, -14.0, 0.0));
    EXPECT_EQ(texts[1].place, KdGePoint3d(63.0, -14.0, 0.0));
    EXPECT_EQ(texts[2].place, KdGePoint3d(21.0, -42.0, 0.0));
    EXPECT_EQ(texts[3].place, KdGePoint3d(63.0, -42.0, 0.0));
    for (const Text& text : texts) {
        EXPECT_EQ(text.contents, loadText(2040).c_str());
        EXPECT_FALSE(text.contents.empty());
        EXPECT_EQ(text.attachment, KdDbMText::kMiddleCenter);
        EXPECT_EQ(text.direction, KdGeVector3d::kXAxis);
        EXPECT_EQ(text.flow, KdDbMText::kByStyle);
        EXPECT_EQ(text.height, 3.0);
        EXPECT_EQ(text.wrapWidth, 40.5);  // 42 less one margin
        EXPECT_EQ(text.style, table->textStyle(1, 2));
        EXPECT_EQ(text.color, KdCmColor::fromRgb(4, 5, 6));
    }
}

TEST_F(RangeSamples, The_word_is_the_users_languages) {
    std::vector<std::wstring> words;
    for (const kdhost::Language language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        words.push_back(only<Text>(RangeSample(*table, {0, 0, 0, 0}).make().picture()).front().contents);
        EXPECT_EQ(words.back(), loadText(2040).c_str());
    }
    kdhost::setLanguage(kdhost::Language::English);
    EXPECT_NE(words[0], words[1]);
}

TEST_F(RangeSamples, Of_a_table_that_grows_upward_rows_go_up_and_the_text_stays_half_a_row_below_each_origin) {
    table->setTextHeight(0, 0, 3.0);
    table->setFlowDirection(1);
    const Picture picture = RangeSample(*table, {0, 0, 1, 1}).make().picture();
    const std::vector<Text> texts = only<Text>(picture);
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[0].place, KdGePoint3d(21.0, -14.0, 0.0));
    EXPECT_EQ(texts[3].place, KdGePoint3d(63.0, 14.0, 0.0));
    EXPECT_EQ(only<Line>(picture)[2].from, KdGePoint3d(0.0, 56.0, 0.0)) << "the first bottom";
}

TEST_F(RangeSamples, No_cell_background_is_drawn) {
    for (int row = 0; row < 6; ++row) {
        for (int column = 0; column < 6; ++column) table->setBackgroundColor(row, column, KdCmColor::fromIndex(2));
    }
    const Picture picture = RangeSample(*table, {0, 0, 2, 2}).make().picture();
    EXPECT_TRUE(only<Solid>(picture).empty());
    EXPECT_EQ(picture.size(), 16u);
}

// ---- its own drawing and life

TEST_F(RangeSamples, The_users_drawing_stays_as_it_is_and_no_undo_is_recorded) {
    const KdDbObjectId id = add(makeTable(4, 4, {{0, 0, 0, 3}}));
    const auto dumped = [&] {
        std::ostringstream out;
        kdhost::writeDump(out, host.document());
        return out.str();
    };
    const std::string before = dumped();
    const std::vector<std::wstring> steps = undoHistory().undoSteps();
    for (const KdDb::OpenMode mode : {KdDb::kForRead, KdDb::kForWrite}) {
        OpenObject<KdDbTable> open(id, mode);
        ASSERT_TRUE(open);
        RangeSample made(*open, {0, 0, 1, 1});
        made.make();
        EXPECT_NE(made.sample.GetDatabase(), &host.database());
        EXPECT_EQ(kdhost::openObjects().size(), 1u);
        const auto* block = kdhost::peek<KdDbBlockTableRecord>(made.sample.GetTableCell()->blockTableRecord());
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(block->database(), made.sample.GetDatabase());
        EXPECT_TRUE(block->isAnonymous());
        EXPECT_TRUE(made.sample.GetTableCell()->objectId().isNull());
    }
    EXPECT_EQ(dumped(), before);
    EXPECT_EQ(undoHistory().undoSteps(), steps);
}

TEST_F(RangeSamples, A_sample_that_is_never_made_or_never_had_a_table_goes_without_a_trace) {
    { RangeSample unmade(*table, {0, 0, 1, 1}); }
    CVqTableCellFromTable empty(nullptr, {0, 0, 1, 1});
    EXPECT_EQ(empty.GetDatabase(), nullptr);
    EXPECT_FALSE(empty.CreateTableCell());
    EXPECT_EQ(empty.GetTableCell(), nullptr);
    EXPECT_FALSE(empty.RecomputeTableBlock());
}

TEST_F(RangeSamples, The_drawing_goes_before_the_reference_into_it) {
    expectDrawingGoesBeforeItsReference([&] {
        return std::make_unique<RangeSample>(*table, CVqTableCellRange{0, 0, 1, 1});
    });
}

TEST_F(RangeSamples, The_reference_lies_in_the_drawings_user_coordinates_and_the_picture_stays) {
    for (const int flow : {0, 1}) {
        table->setFlowDirection(flow);
        expectPictureStaysInEachUserSystem([&] {
            return std::make_unique<RangeSample>(*table, CVqTableCellRange{0, 0, 1, 2});
        });
    }
}

TEST_F(RangeSamples, A_block_that_cannot_be_added_leaves_a_reference_without_one) {
    RangeSample made(*table, {0, 0, 1, 1});
    KdDbBlockTable* held = nullptr;
    ASSERT_EQ(made.sample.GetDatabase()->getBlockTable(held, KdDb::kForRead), Kdad::eOk);
    EXPECT_TRUE(made.sample.CreateTableCell());
    ASSERT_NE(made.sample.GetTableCell(), nullptr);
    EXPECT_TRUE(made.sample.GetTableCell()->blockTableRecord().isNull());
    EXPECT_FALSE(made.sample.RecomputeTableBlock());

    held->close();
    EXPECT_TRUE(made.sample.RecomputeTableBlock());
    EXPECT_EQ(made.picture().size(), 16u);
}

TEST_F(RangeSamples, Whichever_open_fails_all_but_one_entity_are_in_their_place_and_nothing_stays_open) {
    expectAnyOpenMayFail([&] { return std::make_unique<RangeSample>(*table, CVqTableCellRange{0, 0, 2, 2}); });
}

TEST_F(RangeSamples, Without_the_resource_module_cells_are_empty_and_lines_stay) {
    const ResourceScope none(nullptr);
    const HINSTANCE kept = std::exchange(hLibModule, nullptr);
    const Picture picture = RangeSample(*table, {0, 0, 1, 1}).make().picture();
    hLibModule = kept;
    EXPECT_EQ(only<Line>(picture).size(), 12u);
    for (const Text& text : only<Text>(picture)) EXPECT_EQ(text.contents, L"");
}

}  // namespace
}  // namespace kdtest::preview
