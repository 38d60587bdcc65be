// Entities: what they keep, how they are transformed, where they lie.

#include <gtest/gtest.h>

#include <cmath>

#include "host/db/access.h"
#include "host/text/layout.h"
#include "kd/db/blockreference.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "tests/support/angles.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

const KdGeVector3d kZ(0.0, 0.0, 1.0);
const KdGePoint3d kOrigin(0.0, 0.0, 0.0);

void expectBox(const KdDbExtents& box, const KdGePoint3d& low, const KdGePoint3d& high) {
    ASSERT_TRUE(box.isValid());
    EXPECT_TRUE(box.minPoint().isEqualTo(low, 1e-9)) << box.minPoint().x << " " << box.minPoint().y;
    EXPECT_TRUE(box.maxPoint().isEqualTo(high, 1e-9)) << box.maxPoint().x << " " << box.maxPoint().y;
}

/// Matrices that texts and insertions can't take.
std::vector<KdGeMatrix3d> unevenMatrices() {
    const auto axes = [](const KdGeVector3d& x, const KdGeVector3d& y) {
        return KdGeMatrix3d::alignToWorld(kOrigin, x, y, kZ);
    };
    return {axes({2.0, 0.0, 0.0}, {0.0, 1.0, 0.0}), axes({-1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}),
            axes({1.0, 0.0, 0.0}, {0.5, 1.0, 0.0}), KdGeMatrix3d::scaling(0.0, kOrigin)};
}

TEST(Entities, what_every_entity_has_is_kept) {
    KdDbLine line;
    EXPECT_TRUE(line.color().isByLayer());
    EXPECT_EQ(line.lineWeight(), KdDb::kLnWtByLayer);
    EXPECT_EQ(line.visibility(), KdDb::kVisible);
    EXPECT_EQ(line.setColor(KdCmColor::fromIndex(5)), Kdad::eOk);
    EXPECT_EQ(line.setLayer(KdDbObjectId(4)), Kdad::eOk);
    EXPECT_EQ(line.setLinetype(KdDbObjectId(5)), Kdad::eOk);
    EXPECT_EQ(line.setLineWeight(KdDb::kLnWt070), Kdad::eOk);
    EXPECT_EQ(line.setVisibility(KdDb::kInvisible), Kdad::eOk);
    EXPECT_EQ(line.color(), KdCmColor::fromIndex(5));
    EXPECT_EQ(line.layerId(), KdDbObjectId(4));
    EXPECT_EQ(line.linetypeId(), KdDbObjectId(5));
    EXPECT_EQ(line.lineWeight(), KdDb::kLnWt070);
    EXPECT_EQ(line.visibility(), KdDb::kInvisible);
}

TEST(Entities, classes_stand_in_their_tree) {
    KdDbMText text;
    EXPECT_TRUE(text.isKindOf(KdDbEntity::desc()));
    EXPECT_TRUE(text.isKindOf(KdDbObject::desc()));
    EXPECT_FALSE(text.isKindOf(KdDbLine::desc()));
    EXPECT_EQ(text.isA(), KdDbMText::desc());
}

TEST(Entities, a_line_is_turned_about_a_point) {
    KdDbLine line({1.0, 0.0, 0.0}, {3.0, 0.0, 0.0});
    EXPECT_EQ(line.transformBy(KdGeMatrix3d::rotation(kdtest::halfPi, kZ, {1.0, 0.0, 0.0})), Kdad::eOk);
    EXPECT_EQ(line.startPoint(), KdGePoint3d(1.0, 0.0, 0.0));
    EXPECT_EQ(line.endPoint(), KdGePoint3d(1.0, 2.0, 0.0));
    expectBox(line.getGeomExtents(), {1.0, 0.0, 0.0}, {1.0, 2.0, 0.0});
}

TEST(Entities, a_solid_has_four_corners) {
    KdDbSolid solid({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {2.0, 1.0, 0.0});
    KdGePoint3d point(7.0, 7.0, 7.0);
    for (const int wrong : {-1, 4}) {
        EXPECT_EQ(solid.getPointAt(wrong, point), Kdad::eInvalidIndex);
        EXPECT_EQ(solid.setPointAt(wrong, point), Kdad::eInvalidIndex);
    }
    EXPECT_EQ(point, KdGePoint3d(7.0, 7.0, 7.0));
    EXPECT_EQ(solid.setPointAt(3, {5.0, 5.0, 0.0}), Kdad::eOk);
    EXPECT_EQ(solid.getPointAt(3, point), Kdad::eOk);
    EXPECT_EQ(point, KdGePoint3d(5.0, 5.0, 0.0));
    EXPECT_EQ(solid.transformBy(KdGeMatrix3d::translation({1.0, 1.0, 0.0})), Kdad::eOk);
    expectBox(solid.getGeomExtents(), {1.0, 1.0, 0.0}, {6.0, 6.0, 0.0});
}

class Insertions : public ::testing::Test {
protected:
    /// A block of one line from (1, 1) to (3, 2) with its origin at (1, 1).
    void SetUp() override {
        m_block = kdtest::addRecord<KdDbBlockTableRecord>(m_database.blockTableId(), L"Part");
        auto* block = mustOpen<KdDbBlockTableRecord>(m_block, KdDb::kForWrite);
        block->setOrigin({1.0, 1.0, 0.0});
        auto* line = new KdDbLine({1.0, 1.0, 0.0}, {3.0, 2.0, 0.0});
        EXPECT_EQ(block->appendKdDbEntity(line), Kdad::eOk);
        line->close();
        block->close();
    }

    KdDbDatabase m_database;
    KdDbObjectId m_block;
};

TEST_F(Insertions, the_blocks_origin_comes_to_the_position) {
    KdDbBlockReference insertion({10.0, 20.0, 0.0}, m_block);
    EXPECT_EQ(insertion.blockTransform() * KdGePoint3d(1.0, 1.0, 0.0), KdGePoint3d(10.0, 20.0, 0.0));
    expectBox(insertion.getGeomExtents(), {10.0, 20.0, 0.0}, {12.0, 21.0, 0.0});
}

TEST_F(Insertions, scale_and_rotation_act_about_the_position) {
    KdDbBlockReference insertion({10.0, 20.0, 0.0}, m_block);
    EXPECT_EQ(insertion.setScaleFactor(2.0), Kdad::eOk);
    EXPECT_EQ(insertion.setScaleFactor(0.0), Kdad::eInvalidInput);
    EXPECT_EQ(insertion.setRotation(kdtest::halfPi), Kdad::eOk);
    EXPECT_EQ(insertion.scaleFactor(), 2.0);
    expectBox(insertion.getGeomExtents(), {8.0, 20.0, 0.0}, {10.0, 24.0, 0.0});
}

TEST_F(Insertions, transforming_an_insertion_transforms_what_it_shows) {
    const KdGeMatrix3d matrices[] = {
        KdGeMatrix3d::translation({1.0, 2.0, 3.0}),
        KdGeMatrix3d::rotation(1.1, kZ, {4.0, 5.0, 0.0}),
        KdGeMatrix3d::rotation(0.7, KdGeVector3d(1.0, 2.0, 3.0), {4.0, 5.0, 6.0}),
        KdGeMatrix3d::scaling(2.5, {1.0, 1.0, 1.0}) * KdGeMatrix3d::rotation(2.0, KdGeVector3d(1.0, 0.0, 0.0), kOrigin),
    };
    for (const KdGeMatrix3d& matrix : matrices) {
        KdDbBlockReference insertion({10.0, 20.0, 0.0}, m_block);
        insertion.setRotation(0.4);
        insertion.setScaleFactor(1.5);
        const KdGeMatrix3d expected = matrix * insertion.blockTransform();
        ASSERT_EQ(insertion.transformBy(matrix), Kdad::eOk);
        EXPECT_TRUE(insertion.blockTransform().isEqualTo(expected, 1e-9));
    }
}

TEST_F(Insertions, uneven_transformations_are_refused) {
    for (const KdGeMatrix3d& matrix : unevenMatrices()) {
        KdDbBlockReference insertion({10.0, 20.0, 0.0}, m_block);
        EXPECT_EQ(insertion.transformBy(matrix), Kdad::eInvalidInput);
        EXPECT_EQ(insertion.position(), KdGePoint3d(10.0, 20.0, 0.0));
    }
}

TEST_F(Insertions, a_normal_is_kept_as_given_and_normalised_on_use) {
    KdDbBlockReference insertion(kOrigin, m_block);
    insertion.setNormal({0.0, 0.0, 5.0});
    EXPECT_EQ(insertion.normal(), KdGeVector3d(0.0, 0.0, 5.0));
    expectBox(insertion.getGeomExtents(), {0.0, 0.0, 0.0}, {2.0, 1.0, 0.0});
    insertion.setNormal({0.0, 0.0, 0.0});
    expectBox(insertion.getGeomExtents(), {0.0, 0.0, 0.0}, {2.0, 1.0, 0.0});
}

TEST_F(Insertions, an_insertion_of_nothing_has_no_extents) {
    EXPECT_FALSE(KdDbBlockReference().getGeomExtents().isValid());
}

TEST_F(Insertions, a_block_inserted_in_itself_is_measured_without_its_own_insertion) {
    auto* block = mustOpen<KdDbBlockTableRecord>(m_block, KdDb::kForWrite);
    auto* inner = new KdDbBlockReference({100.0, 0.0, 0.0}, m_block);
    EXPECT_EQ(block->appendKdDbEntity(inner), Kdad::eOk);
    inner->close();
    block->close();
    expectBox(KdDbBlockReference(kOrigin, m_block).getGeomExtents(), {0.0, 0.0, 0.0}, {2.0, 1.0, 0.0});
}

class Texts : public ::testing::Test {
protected:
    void SetUp() override {
        m_text.setContents(L"Height of capitals\\Pand a second line");
        m_text.setTextHeight(4.0);
    }

    KdDbMText m_text;
};

TEST_F(Texts, a_text_keeps_what_it_is_given_and_refuses_wrong_sizes) {
    EXPECT_STREQ(m_text.contents(), L"Height of capitals\\Pand a second line");
    EXPECT_EQ(m_text.setTextHeight(0.0), Kdad::eInvalidInput);
    EXPECT_EQ(m_text.setTextHeight(-1.0), Kdad::eInvalidInput);
    EXPECT_EQ(m_text.setWidth(-0.5), Kdad::eInvalidInput);
    EXPECT_EQ(m_text.setAttachment(static_cast<KdDbMText::AttachmentPoint>(0)), Kdad::eInvalidInput);
    EXPECT_EQ(m_text.setAttachment(static_cast<KdDbMText::AttachmentPoint>(10)), Kdad::eInvalidInput);
    EXPECT_EQ(m_text.textHeight(), 4.0);
    EXPECT_EQ(m_text.width(), 0.0);
    EXPECT_EQ(m_text.attachment(), KdDbMText::kTopLeft);
    EXPECT_EQ(m_text.setContents(nullptr), Kdad::eOk);
    EXPECT_STREQ(m_text.contents(), L"");
}

TEST_F(Texts, the_size_is_that_of_the_text_as_laid_out_in_its_style) {
    const auto laidOut = kdhost::text::layout(m_text.contents(), {L"DejaVu Sans"}, 4.0, 0.0);
    EXPECT_GT(laidOut.width, 0.0);
    EXPECT_EQ(m_text.actualWidth(), laidOut.width);
    EXPECT_EQ(m_text.actualHeight(), laidOut.height);
    KdDbDatabase database;
    const KdDbObjectId wide = kdtest::addRecord<KdDbTextStyleTableRecord>(database.textStyleTableId(), L"Wide");
    auto* style = mustOpen<KdDbTextStyleTableRecord>(wide, KdDb::kForWrite);
    style->setXScale(2.0);
    style->close();
    m_text.setTextStyle(wide);
    EXPECT_NEAR(m_text.actualWidth(), 2.0 * laidOut.width, 1e-6 * laidOut.width);
}

TEST_F(Texts, a_wrap_width_makes_a_text_narrower_and_higher) {
    const double width = m_text.actualWidth();
    const double height = m_text.actualHeight();
    m_text.setWidth(width * 0.6);
    EXPECT_LT(m_text.actualWidth(), width);
    EXPECT_GT(m_text.actualHeight(), height);
}

TEST_F(Texts, the_attachment_is_where_the_location_lies_in_the_box) {
    m_text.setLocation({100.0, 50.0, 0.0});
    const double width = m_text.actualWidth();
    const double height = m_text.actualHeight();
    for (int attachment = 1; attachment <= 9; ++attachment) {
        SCOPED_TRACE(attachment);
        m_text.setAttachment(static_cast<KdDbMText::AttachmentPoint>(attachment));
        const int column = (attachment - 1) % 3;
        const int row = (attachment - 1) / 3;
        const double left = 100.0 - width * column / 2.0;
        const double top = 50.0 + height * row / 2.0;
        expectBox(m_text.getGeomExtents(), {left, top - height, 0.0}, {left + width, top, 0.0});
    }
}

TEST_F(Texts, a_text_is_turned_and_scaled_with_its_location) {
    m_text.setLocation({10.0, 0.0, 0.0});
    m_text.setWidth(200.0);
    EXPECT_EQ(
        m_text.transformBy(KdGeMatrix3d::scaling(2.0, kOrigin) * KdGeMatrix3d::rotation(kdtest::halfPi, kZ, kOrigin)),
        Kdad::eOk);
    EXPECT_EQ(m_text.location(), KdGePoint3d(0.0, 20.0, 0.0));
    EXPECT_NEAR(m_text.rotation(), kdtest::halfPi, 1e-12);
    EXPECT_NEAR(m_text.textHeight(), 8.0, 1e-12);
    EXPECT_NEAR(m_text.width(), 400.0, 1e-9);
    for (const KdGeMatrix3d& matrix : unevenMatrices()) EXPECT_EQ(m_text.transformBy(matrix), Kdad::eInvalidInput);
}

TEST_F(Texts, formatting_is_stripped) {
    EXPECT_EQ(stripMtextFormatting(L"{\\H2x;big}\\Psmall", nullptr, {}), KdString(L"big\nsmall"));
}

TEST_F(Texts, a_text_without_codes_is_told_by_its_length) {
    EXPECT_EQ(plainMtextLength(L"plain"), 5);
    EXPECT_EQ(plainMtextLength(L"\\Pnot"), -1);
    EXPECT_EQ(plainMtextLength(nullptr), 0);
}

}  // namespace
