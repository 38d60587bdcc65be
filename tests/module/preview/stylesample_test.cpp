// The sample of a cell style as a whole: what stands in its block and in which order, its names in both languages, its
// fills, its drawing of its own, its life, and what becomes of it when something fails.

#include <gtest/gtest.h>

#include <sstream>

#include "host/app/dump/dump.h"
#include "host/win32/modules.h"
#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "tests/module/preview/previewfixture.h"
#include "tests/module/preview/usersystems.h"

namespace kdtest::preview {
namespace {

class StyleSamples : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        look = fullLook();
    }

    /// "S" a fill, "T" a text, "L" a line.
    static std::string kinds(const StyleSample& made) {
        std::string letters;
        for (const Part& part : made.picture()) letters += "STL"[part.index()];
        return letters;
    }

    std::string dumped() {
        std::ostringstream out;
        kdhost::writeDump(out, host.document());
        return out.str();
    }

    CellLook look;
};

// ---- what stands in the block

TEST_F(StyleSamples, Fill_and_text_of_each_cell_come_first_and_all_lines_last) {
    EXPECT_EQ(kinds(StyleSample(look).make()), "TTTTLLLLLLLLLLLL");
    look.background = KdCmColor::fromIndex(5);
    EXPECT_EQ(kinds(StyleSample(look).make()), "STSTSTSTLLLLLLLLLLLL");
    EXPECT_EQ(kinds(StyleSample(look, true).make()), "STSTLLLLLLL");
    look.mergeAll = true;
    EXPECT_EQ(kinds(StyleSample(look).make()), "STSTLLLLLLLLLL");
    EXPECT_EQ(kinds(StyleSample(look, true).make()), "STSTLLLLLLL");
}

TEST_F(StyleSamples, Rows_come_one_after_the_other_and_columns_within_them) {
    std::string order;
    for (const Text& text : only<Text>(StyleSample(look).make().picture())) {
        order += text.place.y > -5.0 ? "first " : "second ";
        order += text.place.x < 25.0 ? "left, " : "right, ";
    }
    EXPECT_EQ(order, "first left, first right, second left, second right, ");
}

TEST_F(StyleSamples, Fills_cover_each_cell_in_the_styles_background_colour) {
    look.background = KdCmColor::fromRgb(1, 2, 3);
    const std::vector<Solid> solids = only<Solid>(StyleSample(look).make().picture());
    ASSERT_EQ(solids.size(), 4u);
    for (std::size_t cell = 0; cell < 4; ++cell) {
        const double x = cell % 2 == 0 ? 0.0 : 25.0;
        const double y = cell < 2 ? 0.0 : -5.0;
        EXPECT_EQ(solids[cell].corners,
                  (std::array<KdGePoint3d, 4>{{{x, y, 0}, {x + 25, y, 0}, {x, y - 5, 0}, {x + 25, y - 5, 0}}}));
        EXPECT_EQ(solids[cell].color, KdCmColor::fromRgb(1, 2, 3));
    }
}

TEST_F(StyleSamples, Fills_of_a_sample_that_grows_upward_lie_above_each_other) {
    look.background = KdCmColor::fromIndex(5);
    look.flow = 1;
    const std::vector<Solid> solids = only<Solid>(StyleSample(look).make().picture());
    ASSERT_EQ(solids.size(), 4u);
    EXPECT_EQ(solids[2].corners, (std::array<KdGePoint3d, 4>{{{0, 5, 0}, {25, 5, 0}, {0, 10, 0}, {25, 10, 0}}}));
}

TEST_F(StyleSamples, A_background_by_layer_or_by_block_is_a_fill_and_none_is_not) {
    for (const KdCmColor& color : {KdCmColor(), KdCmColor::byBlock(), KdCmColor::fromIndex(7)}) {
        look.background = color;
        EXPECT_EQ(only<Solid>(StyleSample(look).make().picture()).size(), 4u);
    }
    look.background = KdCmColor::none();
    EXPECT_TRUE(only<Solid>(StyleSample(look).make().picture()).empty());
}

TEST_F(StyleSamples, Texts_have_the_styles_text_style_height_colour_and_alignment) {
    look.textStyle = wideTextStyle(1.5);
    look.textHeight = 2.25;
    look.color = KdCmColor::fromRgb(9, 8, 7);
    look.alignment = KdDb::kBottomRight;
    const std::vector<Text> texts = only<Text>(StyleSample(look).make().picture());
    ASSERT_EQ(texts.size(), 4u);
    for (const Text& text : texts) {
        EXPECT_EQ(text.style, look.textStyle);
        EXPECT_EQ(text.height, 2.25);
        EXPECT_EQ(text.color, KdCmColor::fromRgb(9, 8, 7));
        EXPECT_EQ(text.attachment, KdDbMText::kBottomRight);
        EXPECT_EQ(text.flow, KdDbMText::kByStyle);
    }
}

// ---- names

struct ShownName {
    const wchar_t* name;
    const wchar_t* english;
    const wchar_t* chinese;
};

TEST_F(StyleSamples, Each_cell_shows_the_cell_styles_display_name_in_the_users_language) {
    constexpr ShownName kNames[] = {{L"_TITLE", L"Title", L"标题"},
                                    {L"_HEADER", L"Header", L"表头"},
                                    {L"_DATA", L"Data", L"数据"},
                                    {L"_data", L"Data", L"数据"},
                                    {L"My style", L"My style", L"My style"}};
    for (const kdhost::Language language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        for (const ShownName& shown : kNames) {
            look.name = shown.name;
            const std::vector<Text> texts = only<Text>(StyleSample(look).make().picture());
            ASSERT_EQ(texts.size(), 4u);
            for (const Text& text : texts) {
                EXPECT_EQ(text.contents, language == kdhost::Language::English ? shown.english : shown.chinese);
            }
        }
    }
    kdhost::setLanguage(kdhost::Language::English);
}

// ---- its own drawing

TEST_F(StyleSamples, Block_and_all_in_it_lie_closed_in_the_samples_own_drawing_and_the_reference_in_none) {
    StyleSample made(look);
    KdDbDatabase* own = made.sample.GetDatabase();
    ASSERT_NE(own, nullptr);
    EXPECT_NE(own, &host.database());
    EXPECT_EQ(made.sample.GetTableCell(), nullptr);

    made.make();
    EXPECT_EQ(made.sample.GetDatabase(), own);
    const KdDbBlockReference* reference = made.sample.GetTableCell();
    ASSERT_NE(reference, nullptr);
    EXPECT_TRUE(reference->objectId().isNull());
    EXPECT_EQ(reference->layerId(), own->clayer());
    EXPECT_EQ(reference->linetypeId(), own->celtype());
    const auto* block = kdhost::peek<KdDbBlockTableRecord>(reference->blockTableRecord());
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block->database(), own);
    EXPECT_TRUE(block->isAnonymous());
    std::wstring name;
    EXPECT_EQ(block->getName(name), Kdad::eOk);
    EXPECT_EQ(name.substr(0, 2), L"*T");
    for (const KdDbObjectId id : kdhost::entitiesOf(block->objectId())) {
        EXPECT_EQ(kdhost::peekObject(id)->database(), own);
        EXPECT_EQ(kdhost::peek<KdDbEntity>(id)->layerId(), own->clayer());
    }
    EXPECT_TRUE(kdhost::openObjects().empty());
}

TEST_F(StyleSamples, The_drawing_goes_before_the_reference_into_it) {
    expectDrawingGoesBeforeItsReference([&] { return std::make_unique<StyleSample>(look); });
}

TEST_F(StyleSamples, The_users_drawing_stays_as_it_is_and_no_undo_is_recorded) {
    StyleSample warm(look);  // the line types of the look stand in the drawing from here on
    const std::string before = dumped();
    const std::vector<std::wstring> steps = undoHistory().undoSteps();
    const std::size_t blocks = kdhost::recordsOf(host.database().blockTableId()).size();
    const std::size_t layers = kdhost::recordsOf(host.database().layerTableId()).size();
    {
        look.edges.at(kTop).visible = false;
        StyleSample made(look);
        made.make();
        EXPECT_TRUE(only<Line>(made.picture()).front().screenOnly);
        EXPECT_EQ(kdhost::recordsOf(host.database().blockTableId()).size(), blocks);
        EXPECT_EQ(kdhost::recordsOf(host.database().layerTableId()).size(), layers);
        EXPECT_EQ(dumped(), before);
    }
    EXPECT_EQ(dumped(), before);
    EXPECT_EQ(undoHistory().undoSteps(), steps);
}

TEST_F(StyleSamples, A_style_of_the_drawing_is_read_under_the_callers_open_and_stays_unchanged) {
    const KdDbObjectId id = host.database().tablestyle();
    for (const KdDb::OpenMode mode : {KdDb::kForRead, KdDb::kForWrite}) {
        const std::string before = dumped();
        const std::vector<std::wstring> steps = undoHistory().undoSteps();
        OpenObject<KdDbTableStyle> style(id, mode);
        ASSERT_TRUE(style);
        {
            // Standard titles are 6 high with margins of 1.5: 3 + 6 + 2 and five times that, and merge all columns.
            CVqTableCellFromTableStyle sample(style.get(), L"_TITLE", false);
            EXPECT_DOUBLE_EQ(sample.GetRowHeight(), 11.0);
            EXPECT_DOUBLE_EQ(sample.GetColumnWidth(), 55.0);
            EXPECT_TRUE(sample.CreateTableCell());
            const std::vector<Text> texts = only<Text>(pictureOf(sample));
            ASSERT_EQ(texts.size(), 2u);
            EXPECT_EQ(texts[0].place, KdGePoint3d(55.0, -5.5, 0.0));
            EXPECT_EQ(kdhost::openObjects().size(), 1u);
        }
        style.close();
        EXPECT_EQ(dumped(), before);
        EXPECT_EQ(undoHistory().undoSteps(), steps);
    }
}

TEST_F(StyleSamples, Samples_that_live_side_by_side_share_nothing) {
    StyleSample first(look);
    first.make();
    const Picture picture = first.picture();
    {
        CellLook other = look;
        other.textHeight = 9.0;
        StyleSample second(other);
        second.make();
        EXPECT_NE(second.sample.GetDatabase(), first.sample.GetDatabase());
        EXPECT_EQ(difference(picture, first.picture()), "");
    }
    EXPECT_EQ(difference(picture, first.picture()), "");
}

TEST_F(StyleSamples, A_sample_that_is_never_made_or_never_had_a_style_goes_without_a_trace) {
    { StyleSample unmade(look); }
    CVqTableCellFromTableStyle empty(nullptr, L"_DATA", false);
    EXPECT_EQ(empty.GetDatabase(), nullptr);
    EXPECT_EQ(empty.GetTableCell(), nullptr);
    EXPECT_FALSE(empty.CreateTableCell());
    EXPECT_EQ(empty.GetTableCell(), nullptr);
    EXPECT_FALSE(empty.RecomputeTableBlock());
}

TEST_F(StyleSamples, Recomputing_gives_the_reference_a_block_of_the_sizes_and_looks_of_now) {
    StyleSample made(look);
    made.make();
    look.alignment = KdDb::kMiddleCenter;
    dress(*made.style, look);
    made.sample.SetColumnWidth(40.0);
    EXPECT_TRUE(made.sample.RecomputeTableBlock());
    const std::vector<Text> texts = only<Text>(made.picture());
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[1].place, KdGePoint3d(60.0, -2.5, 0.0));
}

// ---- user coordinates

TEST_F(StyleSamples, The_reference_lies_in_the_drawings_user_coordinates_and_the_picture_stays) {
    look.background = KdCmColor::fromIndex(2);
    for (int turn = 0; turn < 8; ++turn) {
        look.rotation = 0.4 + turn * kPi / 4;
        look.flow = turn % 2;
        look.edges.at(kLeft).isDouble = turn % 4 > 1;
        expectPictureStaysInEachUserSystem([&] { return std::make_unique<StyleSample>(look); });
    }
}

TEST_F(StyleSamples, Recomputing_in_moved_user_coordinates_moves_the_reference_no_further) {
    const Picture plain = StyleSample(look).make().picture();
    const UserSystem& moved = kUserSystems.front();
    StyleSample made(look);
    ASSERT_EQ(made.sample.GetDatabase()->setUcs(moved.origin, moved.x, moved.y), Kdad::eOk);
    made.make();
    for (int again = 0; again < 2; ++again) {
        ASSERT_TRUE(made.sample.RecomputeTableBlock());
        EXPECT_TRUE(made.sample.GetTableCell()->blockTransform().isEqualTo(moved.matrix()));
        EXPECT_EQ(difference(plain, made.picture()), "");
    }
}

// ---- failures

TEST_F(StyleSamples, A_block_that_cannot_be_added_leaves_a_reference_without_one) {
    StyleSample made(look);
    KdDbBlockTable* held = nullptr;
    ASSERT_EQ(made.sample.GetDatabase()->getBlockTable(held, KdDb::kForRead), Kdad::eOk);
    EXPECT_TRUE(made.sample.CreateTableCell());
    ASSERT_NE(made.sample.GetTableCell(), nullptr);
    EXPECT_TRUE(made.sample.GetTableCell()->blockTableRecord().isNull());
    EXPECT_FALSE(made.sample.RecomputeTableBlock());
    EXPECT_EQ(kdhost::openObjects().size(), 1u) << "the table that the test holds";

    held->close();
    EXPECT_TRUE(made.sample.RecomputeTableBlock());
    EXPECT_EQ(made.picture().size(), 16u);
}

TEST_F(StyleSamples, Whichever_open_fails_all_but_one_entity_are_in_their_place_and_nothing_stays_open) {
    look.edges.at(kTop).visible = false;
    look.background = KdCmColor::fromIndex(2);
    expectAnyOpenMayFail([&] { return std::make_unique<StyleSample>(look); });
}

TEST_F(StyleSamples, Without_the_layer_of_the_screen_hidden_edges_are_still_grey_and_thin) {
    look.edges.at(kTop).visible = false;
    StyleSample made(look);
    KdDbLayerTable* held = nullptr;  // so that the layer can't be made
    ASSERT_EQ(made.sample.GetDatabase()->getLayerTable(held, KdDb::kForRead), Kdad::eOk);
    made.make();
    held->close();
    const std::vector<Line> lines = only<Line>(made.picture());
    ASSERT_EQ(lines.size(), 12u);
    EXPECT_FALSE(lines[0].screenOnly);
    EXPECT_EQ(lines[0].color.colorIndex(), 8);
    EXPECT_EQ(lines[0].weight, KdDb::kLnWt000);
}

}  // namespace
}  // namespace kdtest::preview
