// The off-screen renderer: what is seen where, at any size, and what is drawn again when.

#include <QLabel>

#include "kd/db/dictionary.h"
#include "kd/db/solid.h"
#include "kd/db/table.h"
#include "kd/ed/variables.h"
#include "tests/support/application.h"
#include "tests/ui/preview/fixture.h"

using kdtest::BlockSample;
using kdtest::count;
using kdtest::drawnPart;
using kdtest::kRed;
using kdtest::kWhite;
using kdtest::paperColor;
using kdtest::pictureOf;
using kdtest::StandIn;
using kdtest::thinLine;

namespace {

const KdGePoint2d kOrigin(0.0, 0.0);
const KdGePoint2d kWhole(1.0, 1.0);

/// A previewer that fills its picture.
class Preview : public KdadGiDrawablePreviewer {
public:
    explicit Preview(BlockSample& sample)
        : KdadGiDrawablePreviewer(nullptr, sample.database(), sample.drawables(), kOrigin, kWhole) {}
    explicit Preview(KdGiDrawable& drawable)
        : KdadGiDrawablePreviewer(nullptr, nullptr, {&drawable}, kOrigin, kWhole) {}
};

void setLineWeightDisplay(short shown) {
    resbuf value;
    value.restype = RTSHORT;
    value.resval.rint = shown;
    ASSERT_EQ(kdedSetVar(L"LWDISPLAY", &value), RTNORM);
}

TEST(PreviewPicture, shows_lines_where_they_lie_in_the_block_on_the_colour_of_the_drawing_view) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 0, 0}).line({0, 5, 0}, {10, 5, 0}, 1).line({10, 0, 0}, {10, 5, 0});
    Preview preview(sample);
    const QImage picture = pictureOf(preview, 200, 100);
    ASSERT_FALSE(picture.isNull());
    const QRect drawn = drawnPart(picture);
    EXPECT_EQ(picture.pixel(0, 0), paperColor());
    EXPECT_EQ(picture.pixel(drawn.center()), paperColor()) << "nothing lies within";
    EXPECT_EQ(picture.pixel(drawn.center().x(), drawn.top()), kRed) << "the upper line";
    EXPECT_EQ(picture.pixel(drawn.center().x(), drawn.bottom()), kWhite) << "the lower line";
    EXPECT_EQ(picture.pixel(drawn.right(), drawn.center().y()), kWhite) << "the right line";
    EXPECT_EQ(picture.pixel(drawn.left(), drawn.center().y()), paperColor()) << "no left line";
    EXPECT_NEAR(drawn.width() / 2.0, drawn.height(), 1.5) << "to scale both ways";
}

TEST(PreviewPicture, is_zoomed_to_the_extents_with_a_margin_on_each_side) {
    BlockSample sample;
    sample.line({1000, 1000, 0}, {1010, 1005, 0});
    Preview preview(sample);
    const QRect wide = drawnPart(pictureOf(preview, 300, 100));
    EXPECT_NEAR(wide.top(), 6, 1.0);
    EXPECT_NEAR(100 - 1 - wide.bottom(), 6, 1.0);
    EXPECT_NEAR(wide.left(), 300 - 1 - wide.right(), 1.0) << "in the middle";
    const QRect high = drawnPart(pictureOf(preview, 100, 300));
    EXPECT_NEAR(high.left(), 6, 1.0);
    EXPECT_NEAR(100 - 1 - high.right(), 6, 1.0);
}

TEST(PreviewPicture, at_twice_the_size_shows_all_twice_as_large) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 0, 0}).line({10, 0, 0}, {10, 5, 0});
    Preview preview(sample);
    const QRect once = drawnPart(pictureOf(preview, 120, 80));
    const QRect twice = drawnPart(pictureOf(preview, 240, 160));
    EXPECT_NEAR(2.0 * once.left(), twice.left(), 2.0);
    EXPECT_NEAR(2.0 * once.top(), twice.top(), 2.0);
    EXPECT_NEAR(2.0 * once.width(), twice.width(), 3.0 + 2.0 * thinLine());
    EXPECT_NEAR(2.0 * once.height(), twice.height(), 3.0 + 2.0 * thinLine());
}

TEST(PreviewPicture, has_lines_as_thick_as_the_screen_is_dense) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 0, 0});
    Preview preview(sample);
    EXPECT_EQ(drawnPart(pictureOf(preview, 200, 100)).height(), thinLine());
}

TEST(PreviewPicture, comes_at_any_size_and_is_opaque) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 5, 0}).line({0, 5, 0}, {10, 0, 0}, 1);
    Preview preview(sample);
    for (const QSize size : {QSize(1, 1), QSize(1, 40), QSize(40, 1), QSize(2, 3), QSize(17, 13), QSize(1001, 7)}) {
        const QImage picture = pictureOf(preview, size.width(), size.height());
        ASSERT_FALSE(picture.isNull()) << size.width() << " x " << size.height();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) ASSERT_EQ(qAlpha(picture.pixel(x, y)), 255);
        }
    }
}

TEST(PreviewPicture, is_the_bare_paper_where_there_is_nothing_to_see) {
    BlockSample empty;
    Preview preview(empty);
    EXPECT_EQ(count(pictureOf(preview, 30, 20), paperColor()), 600);
    StandIn none;
    Preview ofNone(none);
    EXPECT_EQ(count(pictureOf(ofNone, 30, 20), paperColor()), 600);
    KdDbDictionary unseen;
    Preview ofUnseen(unseen);
    EXPECT_EQ(count(pictureOf(ofUnseen, 30, 20), paperColor()), 600);
    KdadGiDrawablePreviewer nothing(nullptr, nullptr, {nullptr}, kOrigin, kWhole);
    EXPECT_EQ(count(pictureOf(nothing, 30, 20), paperColor()), 600);
}

TEST(PreviewPicture, of_a_single_point_comes_too) {
    BlockSample sample;
    sample.line({7, 7, 0}, {7, 7, 0});
    Preview preview(sample);
    EXPECT_FALSE(pictureOf(preview, 30, 20).isNull());
}

TEST(PreviewPicture, shows_all_drawables_together_in_their_order) {
    KdDbSolid below({0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {10, 10, 0});
    below.setColor(KdCmColor::fromIndex(1));
    KdDbSolid above({0, 0, 0}, {5, 0, 0}, {0, 10, 0}, {5, 10, 0});
    above.setColor(KdCmColor::fromRgb(0, 0, 255));
    KdadGiDrawablePreviewer preview(nullptr, nullptr, {&below, &above}, kOrigin, kWhole);
    const QImage picture = pictureOf(preview, 100, 100);
    EXPECT_EQ(picture.pixel(75, 50), kRed);
    EXPECT_EQ(picture.pixel(25, 50), qRgb(0, 0, 255));
}

TEST(PreviewPicture, fills_the_part_that_it_is_given_from_the_lower_left_corner) {
    KdDbSolid solid({0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {10, 10, 0});
    solid.setColor(KdCmColor::fromIndex(1));
    KdadGiDrawablePreviewer preview(nullptr, nullptr, {&solid}, kOrigin, KdGePoint2d(0.5, 0.5));
    const QRect drawn = drawnPart(pictureOf(preview, 200, 200));
    EXPECT_TRUE(QRect(0, 100, 100, 100).contains(drawn)) << "in the lower left quarter";
    EXPECT_GT(drawn.width(), 80);
}

TEST(PreviewPicture, shows_a_table_that_is_in_no_drawing) {
    KdDbTable table;
    table.setSize(3, 2);
    table.generateLayout();
    Preview preview(table);
    const QImage picture = pictureOf(preview, 120, 90);
    const QRect drawn = drawnPart(picture);
    EXPECT_EQ(picture.pixel(drawn.center().x(), drawn.top()), kWhite) << "its border";
    EXPECT_GT(drawn.width(), 60);
}

TEST(PreviewPicture, shows_what_a_drawable_stands_for_through_others_too) {
    KdDbSolid solid({0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {10, 10, 0});
    solid.setColor(KdCmColor::fromIndex(1));
    StandIn near(&solid);
    StandIn far(&near);
    Preview preview(far);
    EXPECT_EQ(pictureOf(preview, 50, 50).pixel(25, 25), kRed);
}

TEST(PreviewPicture, of_drawables_that_stand_for_each_other_ends) {
    StandIn one;
    StandIn other(&one);
    one.shown = &other;
    Preview preview(one);
    EXPECT_EQ(count(pictureOf(preview, 10, 10), paperColor()), 100);
}

class PreviewLineWeights : public kdtest::ApplicationTest {};

TEST_F(PreviewLineWeights, show_while_the_variable_says_so_once_the_looks_are_asked_for_again) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 0, 0}, 7, KdDb::kLnWt211);
    Preview preview(sample);
    EXPECT_EQ(drawnPart(pictureOf(preview, 200, 100)).height(), thinLine());
    setLineWeightDisplay(1);
    preview.invalidate(false);
    EXPECT_EQ(drawnPart(pictureOf(preview, 200, 100)).height(), thinLine()) << "the looks are the old ones";
    preview.invalidate(true);
    const double thick = 2.11 * 96.0 / 25.4 * kdadGetDPIScale();
    EXPECT_NEAR(drawnPart(pictureOf(preview, 200, 100)).height(), thick, 2.0) << "its borders are soft";
    setLineWeightDisplay(0);
}

TEST_F(PreviewLineWeights, of_lines_at_the_edge_lie_within_the_picture) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 0, 0}, 7, KdDb::kLnWt211).line({0, 5, 0}, {10, 5, 0}, 7, KdDb::kLnWt211);
    setLineWeightDisplay(1);
    Preview preview(sample);
    const QImage picture = pictureOf(preview, 60, 30);
    EXPECT_TRUE(picture.rect().adjusted(1, 1, -1, -1).contains(drawnPart(picture)));
    setLineWeightDisplay(0);
}

// ---- what is drawn again when

TEST(PreviewBuffer, is_given_once_for_each_picture) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 5, 0});
    Preview preview(sample);
    EXPECT_FALSE(pictureOf(preview, 40, 30).isNull());
    EXPECT_TRUE(pictureOf(preview, 40, 30).isNull()) << "nothing is new";
    preview.update();
    EXPECT_TRUE(pictureOf(preview, 40, 30).isNull()) << "nor after an update without a change";
    preview.onSize(40, 30);
    EXPECT_TRUE(pictureOf(preview, 40, 30).isNull()) << "nor at the size that it has";
    preview.invalidate(false);
    EXPECT_FALSE(pictureOf(preview, 40, 30).isNull());
    preview.invalidate(true);
    EXPECT_FALSE(pictureOf(preview, 40, 30).isNull());
    EXPECT_FALSE(pictureOf(preview, 41, 30).isNull()) << "another size is another picture";
    EXPECT_TRUE(pictureOf(preview, 41, 30).isNull());
    preview.onSize(40, 30);
    EXPECT_FALSE(pictureOf(preview, 41, 30).isNull()) << "it was out of date meanwhile";
}

TEST(PreviewBuffer, stays_as_it_was_when_none_is_given) {
    BlockSample sample;
    sample.line({0, 0, 0}, {10, 5, 0});
    Preview preview(sample);
    std::vector<char> buffer(std::size_t{40} * 30 * 4, 'x');
    const std::vector<char> before = buffer;
    EXPECT_FALSE(preview.getRenderBuffer(nullptr, 40, 30));
    EXPECT_FALSE(preview.getRenderBuffer(buffer.data(), 0, 30));
    EXPECT_FALSE(preview.getRenderBuffer(buffer.data(), 40, 0));
    EXPECT_FALSE(preview.getRenderBuffer(buffer.data(), 4'000'000'000U, 4'000'000'000U));
    EXPECT_EQ(buffer, before);
    EXPECT_TRUE(preview.getRenderBuffer(buffer.data(), 40, 30)) << "none of these was the picture";
    std::vector<char> again = before;
    EXPECT_FALSE(preview.getRenderBuffer(again.data(), 40, 30));
    EXPECT_EQ(again, before);
}

TEST(PreviewBuffer, holds_blue_green_red_and_255_from_the_upper_row_on) {
    KdDbSolid upper({0, 5, 0}, {10, 5, 0}, {0, 10, 0}, {10, 10, 0});
    upper.setColor(KdCmColor::fromRgb(1, 2, 3));
    KdDbSolid lower({0, 0, 0}, {10, 0, 0}, {0, 5, 0}, {10, 5, 0});
    lower.setColor(KdCmColor::fromRgb(4, 5, 6));
    KdadGiDrawablePreviewer preview(nullptr, nullptr, {&upper, &lower}, kOrigin, kWhole);
    std::vector<unsigned char> buffer(std::size_t{50} * 50 * 4);
    ASSERT_TRUE(preview.getRenderBuffer(reinterpret_cast<char*>(buffer.data()), 50, 50));
    const auto pixel = [&](std::size_t x, std::size_t y) {
        const unsigned char* bytes = &buffer[4 * (50 * y + x)];
        return std::vector<int>(bytes, bytes + 4);
    };
    EXPECT_EQ(pixel(25, 12), (std::vector<int>{3, 2, 1, 255}));
    EXPECT_EQ(pixel(25, 37), (std::vector<int>{6, 5, 4, 255}));
}

TEST(PreviewLooks, are_drawn_once_and_again_only_on_demand) {
    KdDbLine line({0, 0, 0}, {10, 5, 0});
    StandIn drawable(&line);
    Preview preview(drawable);
    EXPECT_EQ(drawable.asked, 0) << "not before a picture is wanted";
    pictureOf(preview, 40, 30);
    EXPECT_EQ(drawable.asked, 1);
    preview.update();
    pictureOf(preview, 80, 60);
    preview.onSize(20, 20);
    preview.invalidate(false);
    preview.update();
    EXPECT_EQ(drawable.asked, 1) << "sizes and paints ask for nothing";
    preview.invalidate(true);
    EXPECT_EQ(drawable.asked, 1);
    preview.update();
    EXPECT_EQ(drawable.asked, 2);
    drawable.needsRegen = true;
    preview.invalidate(false);
    preview.update();
    EXPECT_EQ(drawable.asked, 3) << "it says itself that it changed";
}

TEST(PreviewLooks, of_a_changed_drawable_are_the_old_ones_until_told) {
    KdDbSolid solid({0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {10, 10, 0});
    solid.setColor(KdCmColor::fromIndex(1));
    Preview preview(solid);
    EXPECT_EQ(pictureOf(preview, 50, 50).pixel(25, 25), kRed);
    solid.setColor(KdCmColor::fromIndex(7));
    EXPECT_EQ(pictureOf(preview, 60, 50).pixel(25, 25), kRed);
    preview.invalidate(true);
    EXPECT_EQ(pictureOf(preview, 60, 50).pixel(25, 25), kWhite);
}

TEST(PreviewLooks, are_not_asked_of_drawables_that_are_gone_when_the_previewer_goes) {
    auto line = std::make_unique<KdDbLine>(KdGePoint3d(0, 0, 0), KdGePoint3d(10, 5, 0));
    auto preview = std::make_unique<Preview>(*line);
    preview->update();
    line.reset();
    preview.reset();
}

TEST(PreviewWindow, gives_the_picture_its_first_size) {
    QLabel label;
    label.resize(70, 50);
    KdDbLine line({0, 0, 0}, {10, 5, 0});
    StandIn drawable(&line);
    KdadGiDrawablePreviewer preview(&label, nullptr, {&drawable}, kOrigin, kWhole);
    preview.update();
    EXPECT_FALSE(pictureOf(preview, 70, 50).isNull());
    preview.onSize(-5, 0);
    EXPECT_FALSE(pictureOf(preview, 1, 1).isNull());
}

}  // namespace
