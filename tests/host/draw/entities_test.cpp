// Entities to primitives: geometry and looks.

#include <cmath>

#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "tests/host/draw/drawing.h"
#include "tests/support/angles.h"
#include "tests/support/points.h"

using namespace kdhost::draw;
using kdtest::Drawing;
using kdtest::only;

namespace {

using kdtest::expectAt;

constexpr Color kForeground{0, 0, 0, true};
constexpr Color kRed{255, 0, 0, false};

std::unique_ptr<KdDbLine> line(double x0, double y0, double x1, double y1) {
    auto result = std::make_unique<KdDbLine>(KdGePoint3d(x0, y0, 0.0), KdGePoint3d(x1, y1, 0.0));
    return result;
}

std::unique_ptr<KdDbMText> mtext(const wchar_t* contents, double height = 10.0) {
    auto result = std::make_unique<KdDbMText>();
    result->setContents(contents);
    result->setTextHeight(height);
    return result;
}

TEST(Primitives, a_line_is_a_polyline_of_two_points) {
    const Primitives primitives = primitivesOf(*line(1.0, 2.0, 3.0, 4.0), {});
    const auto lines = only<Polyline>(primitives);
    ASSERT_EQ(primitives.size(), 1U);
    ASSERT_EQ(lines.size(), 1U);
    ASSERT_EQ(lines[0].points.size(), 2U);
    expectAt(lines[0].points[0], 1.0, 2.0);
    expectAt(lines[0].points[1], 3.0, 4.0);
    EXPECT_EQ(lines[0].color, kForeground);
    EXPECT_EQ(lines[0].lineWeight, 0);
    EXPECT_TRUE(lines[0].dashes.empty());
}

TEST(Primitives, a_solid_runs_around_though_its_corners_zig_zag) {
    const KdDbSolid solid({0, 0, 0}, {4, 0, 0}, {0, 2, 0}, {4, 2, 0});
    const auto polygons = only<Polygon>(primitivesOf(solid, {}));
    ASSERT_EQ(polygons.size(), 1U);
    ASSERT_EQ(polygons[0].points.size(), 4U);
    expectAt(polygons[0].points[0], 0, 0);
    expectAt(polygons[0].points[1], 4, 0);
    expectAt(polygons[0].points[2], 4, 2);
    expectAt(polygons[0].points[3], 0, 2);
}

TEST(Primitives, an_invisible_entity_has_none) {
    const auto hidden = line(0, 0, 1, 1);
    hidden->setVisibility(KdDb::kInvisible);
    EXPECT_TRUE(primitivesOf(*hidden, {}).empty());
}

TEST(Primitives, the_model_space_is_drawn_in_its_order_without_opening_anything) {
    Drawing drawing;
    const KdDbObjectId first = drawing.add(line(0, 0, 1, 0));
    drawing.add(line(0, 1, 1, 1));
    KdDbObject* held = nullptr;
    ASSERT_EQ(kddbOpenObject(held, first, KdDb::kForWrite), Kdad::eOk);
    const auto lines = only<Polyline>(drawing.primitives());
    held->close();
    ASSERT_EQ(lines.size(), 2U);
    expectAt(lines[0].points[0], 0, 0);
    expectAt(lines[1].points[0], 0, 1);
}

TEST(Primitives, an_erased_entity_is_not_drawn) {
    Drawing drawing;
    const KdDbObjectId id = drawing.add(line(0, 0, 1, 0));
    KdDbObject* held = nullptr;
    ASSERT_EQ(kddbOpenObject(held, id, KdDb::kForWrite), Kdad::eOk);
    held->erase();
    held->close();
    EXPECT_TRUE(drawing.primitives().empty());
}

struct Place {
    KdDbMText::AttachmentPoint attachment;
    double horizontal;  ///< left edge of the text, in its widths from the location
    double baseline;    ///< in text heights from the location
};

class MTextPlaces : public ::testing::TestWithParam<Place> {};

TEST_P(MTextPlaces, hold_the_location) {
    const auto text = mtext(L"Bolt", 10.0);
    text->setLocation({100.0, 50.0, 0.0});
    text->setAttachment(GetParam().attachment);
    const auto texts = only<Text>(primitivesOf(*text, {}));
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_NEAR(texts[0].width, text->actualWidth(), 1e-9);
    expectAt(texts[0].origin, 100.0 + GetParam().horizontal * texts[0].width, 50.0 + GetParam().baseline * 10.0);
    EXPECT_EQ(texts[0].text, L"Bolt");
    EXPECT_EQ(texts[0].height, 10.0);
}

INSTANTIATE_TEST_SUITE_P(
    nine, MTextPlaces,
    ::testing::Values(Place{KdDbMText::kTopLeft, 0.0, -1.0}, Place{KdDbMText::kTopCenter, -0.5, -1.0},
                      Place{KdDbMText::kTopRight, -1.0, -1.0}, Place{KdDbMText::kMiddleLeft, 0.0, -0.5},
                      Place{KdDbMText::kMiddleCenter, -0.5, -0.5}, Place{KdDbMText::kMiddleRight, -1.0, -0.5},
                      Place{KdDbMText::kBottomLeft, 0.0, 0.0}, Place{KdDbMText::kBottomCenter, -0.5, 0.0},
                      Place{KdDbMText::kBottomRight, -1.0, 0.0}));

TEST(Primitives, lines_of_a_text_follow_one_another_downwards) {
    const auto text = mtext(L"one\\Ptwo\\P\\Pfour", 3.0);
    text->setAttachment(KdDbMText::kTopLeft);
    const auto texts = only<Text>(primitivesOf(*text, {}));
    ASSERT_EQ(texts.size(), 3U);
    expectAt(texts[0].origin, 0.0, -3.0);
    expectAt(texts[1].origin, 0.0, -8.0);
    expectAt(texts[2].origin, 0.0, -18.0);
}

TEST(Primitives, a_turned_text_runs_along_its_direction) {
    const auto text = mtext(L"one\\Ptwo", 3.0);
    text->setAttachment(KdDbMText::kTopLeft);
    text->setRotation(kdtest::pi / 2);
    const auto texts = only<Text>(primitivesOf(*text, {}));
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_NEAR(texts[0].direction.x, 0.0, 1e-9);
    EXPECT_NEAR(texts[0].direction.y, 1.0, 1e-9);
    expectAt(texts[0].origin, 3.0, 0.0);
    expectAt(texts[1].origin, 8.0, 0.0);
}

TEST(Primitives, extents_agree_with_the_entity) {
    const auto text = mtext(L"some words\\Pand more", 2.5);
    text->setLocation({5, 6, 0});
    text->setRotation(0.7);
    text->setAttachment(KdDbMText::kTopLeft);
    const KdDbExtents drawn = extentsOf(primitivesOf(*text, {}));
    const KdDbExtents entity = text->getGeomExtents();
    // The entity's box holds its widest line and all others.
    EXPECT_GE(drawn.minPoint().x, entity.minPoint().x - 1e-9);
    EXPECT_LE(drawn.maxPoint().x, entity.maxPoint().x + 1e-9);
    EXPECT_NEAR(drawn.minPoint().y, entity.minPoint().y, 1e-9);
}

TEST(Primitives, extents_of_nothing_are_invalid) {
    EXPECT_FALSE(extentsOf({}).isValid());
}

struct ColorCase {
    KdCmColor color;
    Color drawn;
};

class Colors : public ::testing::TestWithParam<ColorCase> {};

TEST_P(Colors, are_resolved) {
    Drawing drawing;
    const KdDbObjectId layer = drawing.addLayer(L"bolts", KdCmColor::fromRgb(1, 2, 3));
    auto entity = line(0, 0, 1, 1);
    entity->setLayer(layer);
    entity->setColor(GetParam().color);
    drawing.add(std::move(entity));
    EXPECT_EQ(only<Polyline>(drawing.primitives()).at(0).color, GetParam().drawn);
}

INSTANTIATE_TEST_SUITE_P(kinds, Colors,
                         ::testing::Values(ColorCase{KdCmColor::fromIndex(1), kRed},
                                           ColorCase{KdCmColor::fromIndex(7), kForeground},
                                           ColorCase{KdCmColor::fromRgb(10, 20, 30), {10, 20, 30, false}},
                                           ColorCase{KdCmColor(), {1, 2, 3, false}},
                                           ColorCase{KdCmColor::byBlock(), kForeground}));

TEST(LineWeights, count_only_when_they_are_shown) {
    Drawing drawing;
    auto entity = line(0, 0, 1, 1);
    entity->setLineWeight(KdDb::kLnWt070);
    drawing.add(std::move(entity));
    EXPECT_EQ(only<Polyline>(drawing.primitives()).at(0).lineWeight, 0);
    EXPECT_EQ(only<Polyline>(drawing.primitives({true, false})).at(0).lineWeight, 70);
}

TEST(LineWeights, by_layer_and_the_default_are_resolved) {
    Drawing drawing;
    const KdDbObjectId layer = drawing.addLayer(L"thick", KdCmColor(), KdDb::kLnWt090);
    auto byLayer = line(0, 0, 1, 1);
    byLayer->setLayer(layer);
    byLayer->setLineWeight(KdDb::kLnWtByLayer);
    drawing.add(std::move(byLayer));
    auto byDefault = line(0, 0, 1, 1);
    byDefault->setLineWeight(KdDb::kLnWtByLwDefault);
    drawing.add(std::move(byDefault));
    const auto lines = only<Polyline>(drawing.primitives({true, false}));
    EXPECT_EQ(lines.at(0).lineWeight, 90);
    EXPECT_EQ(lines.at(1).lineWeight, 25);
}

struct DashCase {
    std::vector<double> pattern;
    std::vector<double> drawn;
};

class Dashes : public ::testing::TestWithParam<DashCase> {};

TEST_P(Dashes, alternate_and_begin_with_a_dash) {
    Drawing drawing;
    auto entity = line(0, 0, 1, 1);
    entity->setLinetype(drawing.addLinetype(L"pattern", GetParam().pattern));
    drawing.add(std::move(entity));
    EXPECT_EQ(only<Polyline>(drawing.primitives()).at(0).dashes, GetParam().drawn);
}

INSTANTIATE_TEST_SUITE_P(patterns, Dashes,
                         ::testing::Values(DashCase{{}, {}}, DashCase{{5, -3}, {5, 3}},
                                           DashCase{{5, -3, 0, -3}, {5, 3, 0, 3}}, DashCase{{-3, 5}, {5, 3}},
                                           DashCase{{5, 2, -3}, {7, 3}}, DashCase{{5}, {}},
                                           DashCase{{5, -1, 2}, {5, 1, 2, 0}}));

TEST(BlockReferences, draw_their_block_moved_turned_and_scaled) {
    Drawing drawing;
    const KdDbObjectId block = drawing.addBlock(L"bolt");
    drawing.add(line(0, 0, 2, 0), block);
    auto text = mtext(L"M8", 1.0);
    text->setAttachment(KdDbMText::kBottomLeft);
    drawing.add(std::move(text), block);
    auto reference = std::make_unique<KdDbBlockReference>(KdGePoint3d(10, 20, 0), block);
    reference->setRotation(kdtest::pi / 2);
    reference->setScaleFactor(3.0);
    drawing.add(std::move(reference));

    const Primitives primitives = drawing.primitives();
    const auto lines = only<Polyline>(primitives);
    ASSERT_EQ(lines.size(), 1U);
    expectAt(lines[0].points[0], 10, 20);
    expectAt(lines[0].points[1], 10, 26);
    const auto texts = only<Text>(primitives);
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_NEAR(texts[0].height, 3.0, 1e-9);
    EXPECT_NEAR(texts[0].direction.y, 1.0, 1e-9);
    EXPECT_NEAR(texts[0].width, 3.0 * kdhost::text::layout(L"M8", texts[0].font, 1.0, 0.0).width, 1e-9);
}

TEST(BlockReferences, give_colour_and_layer_to_what_asks_for_them) {
    Drawing drawing;
    const KdDbObjectId blue = drawing.addLayer(L"blue", KdCmColor::fromRgb(0, 0, 255));
    const KdDbObjectId block = drawing.addBlock(L"bolt");
    auto byBlock = line(0, 0, 1, 0);
    byBlock->setColor(KdCmColor::byBlock());
    drawing.add(std::move(byBlock), block);
    drawing.add(line(0, 1, 1, 1), block);  // by layer, on layer "0"
    auto own = line(0, 2, 1, 2);
    own->setColor(KdCmColor::fromIndex(1));
    drawing.add(std::move(own), block);
    auto reference = std::make_unique<KdDbBlockReference>(KdGePoint3d(), block);
    reference->setColor(KdCmColor::fromRgb(9, 8, 7));
    reference->setLayer(blue);
    drawing.add(std::move(reference));

    const auto lines = only<Polyline>(drawing.primitives());
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].color, (Color{9, 8, 7, false}));
    EXPECT_EQ(lines[1].color, (Color{0, 0, 255, false}));
    EXPECT_EQ(lines[2].color, kRed);
}

/// A reference that is in no drawing, to a block of one.
std::unique_ptr<KdDbBlockReference> looseReference(Drawing& drawing, KdDbObjectId block) {
    auto reference = std::make_unique<KdDbBlockReference>(KdGePoint3d(), block);
    reference->setDatabaseDefaults(&drawing.database);
    return reference;
}

TEST(BlockReferences, in_no_drawing_resolve_layers_and_line_types_of_the_one_they_name) {
    Drawing drawing;
    const KdDbObjectId block = drawing.addBlock(L"sample");
    drawing.add(line(0, 0, 1, 0), block);  // by layer, on layer "0"
    auto byBlock = line(0, 1, 1, 1);
    byBlock->setLinetype(drawing.database.byBlockLinetype());
    byBlock->setLineWeight(KdDb::kLnWtByBlock);
    byBlock->setColor(KdCmColor::byBlock());
    drawing.add(std::move(byBlock), block);
    const KdDbObjectId layer = drawing.addLayer(L"dashed", KdCmColor::fromIndex(1), KdDb::kLnWt090);
    KdDbObject* opened = nullptr;
    ASSERT_EQ(kddbOpenObject(opened, layer, KdDb::kForWrite), Kdad::eOk);
    static_cast<KdDbLayerTableRecord*>(opened)->setLinetypeObjectId(drawing.addLinetype(L"pattern", {4, -2}));
    opened->close();
    const auto reference = looseReference(drawing, block);
    reference->setLayer(layer);

    const auto lines = only<Polyline>(primitivesOf(*reference, {true, false}));
    ASSERT_EQ(lines.size(), 2U);
    for (const Polyline& drawn : lines) {
        EXPECT_EQ(drawn.color, kRed);
        EXPECT_EQ(drawn.lineWeight, 90);
        EXPECT_EQ(drawn.dashes, (std::vector<double>{4, 2}));
    }
}

TEST(BlockReferences, scale_the_dashes_of_their_lines_and_keep_the_weights) {
    Drawing drawing;
    const KdDbObjectId block = drawing.addBlock(L"sample");
    auto dashed = line(0, 0, 9, 0);
    dashed->setLinetype(drawing.addLinetype(L"pattern", {3, -1}));
    dashed->setLineWeight(KdDb::kLnWt050);
    drawing.add(std::move(dashed), block);
    const auto reference = looseReference(drawing, block);
    reference->setScaleFactor(2.5);
    reference->setRotation(0.4);
    const auto lines = only<Polyline>(primitivesOf(*reference, {true, false}));
    ASSERT_EQ(lines.size(), 1U);
    ASSERT_EQ(lines[0].dashes.size(), 2U);
    EXPECT_NEAR(lines[0].dashes[0], 7.5, 1e-9);
    EXPECT_NEAR(lines[0].dashes[1], 2.5, 1e-9);
    EXPECT_EQ(lines[0].lineWeight, 50);
}

TEST(BlockReferences, draw_solids_in_their_place_and_turn) {
    Drawing drawing;
    const KdDbObjectId block = drawing.addBlock(L"sample");
    auto solid = std::make_unique<KdDbSolid>(KdGePoint3d(0, 0, 0), KdGePoint3d(4, 0, 0), KdGePoint3d(0, 2, 0),
                                             KdGePoint3d(4, 2, 0));
    solid->setColor(KdCmColor::byBlock());
    drawing.add(std::move(solid), block);
    const auto reference = looseReference(drawing, block);
    reference->setPosition({10, 0, 0});
    reference->setRotation(kdtest::pi / 2);
    reference->setColor(KdCmColor::fromIndex(1));
    const auto polygons = only<Polygon>(primitivesOf(*reference, {}));
    ASSERT_EQ(polygons.size(), 1U);
    EXPECT_EQ(polygons[0].color, kRed);
    expectAt(polygons[0].points[0], 10, 0);
    expectAt(polygons[0].points[1], 10, 4);
    expectAt(polygons[0].points[2], 8, 4);
    expectAt(polygons[0].points[3], 8, 0);
}

/// In a plane that stands on edge over the x axis the drawing is seen from above: what runs up the plane is
/// foreshortened, lines and texts alike.
TEST(BlockReferences, in_a_slanting_plane_foreshorten_their_texts_as_their_lines) {
    Drawing drawing;
    const KdDbObjectId block = drawing.addBlock(L"sample");
    drawing.add(line(0, 0, 0, 10), block);
    auto level = mtext(L"M8", 10.0);
    level->setAttachment(KdDbMText::kBottomLeft);
    drawing.add(std::move(level), block);
    auto upright = mtext(L"M8", 10.0);
    upright->setAttachment(KdDbMText::kBottomLeft);
    upright->setRotation(kdtest::pi / 2);
    drawing.add(std::move(upright), block);
    const auto reference = looseReference(drawing, block);
    const double c = std::cos(kdtest::pi / 3);
    const double s = std::sin(kdtest::pi / 3);
    ASSERT_EQ(reference->transformBy(KdGeMatrix3d::alignToWorld({}, {1, 0, 0}, {0, c, s}, {0, -s, c})), Kdad::eOk);

    const Primitives primitives = primitivesOf(*reference, {});
    expectAt(only<Polyline>(primitives).at(0).points[1], 0, 5);
    const auto texts = only<Text>(primitives);
    ASSERT_EQ(texts.size(), 2U);
    expectAt(texts[0].origin + texts[0].up * texts[0].height, 0, 5);
    expectAt(texts[0].origin + texts[0].direction * texts[0].width, texts[0].width, 0);
    expectAt(texts[1].origin + texts[1].direction * texts[1].width, 0, 0.5 * texts[1].width);
    expectAt(texts[1].origin + texts[1].up * texts[1].height, -10, 0);
}

TEST(BlockReferences, that_hold_themselves_end) {
    Drawing drawing;
    const KdDbObjectId a = drawing.addBlock(L"a");
    const KdDbObjectId b = drawing.addBlock(L"b");
    drawing.add(line(0, 0, 1, 0), a);
    drawing.add(std::make_unique<KdDbBlockReference>(KdGePoint3d(), b), a);
    drawing.add(line(0, 1, 1, 1), b);
    drawing.add(std::make_unique<KdDbBlockReference>(KdGePoint3d(), a), b);
    drawing.add(std::make_unique<KdDbBlockReference>(KdGePoint3d(), a));
    EXPECT_EQ(drawing.primitives().size(), 2U);
}

TEST(BlockReferences, of_no_block_draw_nothing) {
    Drawing drawing;
    drawing.add(std::make_unique<KdDbBlockReference>());
    EXPECT_TRUE(drawing.primitives().empty());
}

}  // namespace
