// Texts at any angle and in planes at a slant, as they are painted: they fill the place that their primitives tell.

#include <QImage>
#include <cmath>

#include "host/draw/render.h"
#include "kd/db/mtext.h"
#include "tests/host/draw/drawing.h"
#include "tests/support/angles.h"

using namespace kdhost::draw;

namespace {

/// Of the pictures of `paint`, on each side.
constexpr int kMargin = 20;
/// Pixels by which letters keep away from the ends of their line.
constexpr int kBearing = 14;

/// The box around what isn't white.
QRect inked(const QImage& picture) {
    QRect box;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) < 128) box = box.united(QRect(x, y, 1, 1));
        }
    }
    return box;
}

/// Capitals that reach from the base line to the full height, and nearly from end to end.
std::unique_ptr<KdDbMText> capitals() {
    auto text = std::make_unique<KdDbMText>();
    text->setContents(L"HHHHH");
    text->setTextHeight(10.0);
    text->setAttachment(KdDbMText::kMiddleCenter);
    return text;
}

void expectFilled(const Primitives& primitives, const char* what) {
    const QImage picture = paint(primitives, 500);
    const QRect box = inked(picture);
    EXPECT_NEAR(box.left(), kMargin, kBearing) << what;
    EXPECT_NEAR(box.top(), kMargin, kBearing) << what;
    EXPECT_NEAR(picture.width() - 1 - box.right(), kMargin, kBearing) << what;
    EXPECT_NEAR(picture.height() - 1 - box.bottom(), kMargin, kBearing) << what;
    const int margin = kMargin - 2;
    EXPECT_TRUE(picture.rect().adjusted(margin, margin, -margin, -margin).contains(box)) << what;
}

TEST(TurnedTexts, fill_their_place_at_any_angle) {
    for (int degrees = 0; degrees < 360; degrees += 15) {
        const auto text = capitals();
        text->setRotation(degrees * kdtest::pi / 180.0);
        expectFilled(primitivesOf(*text, {}), std::to_string(degrees).c_str());
    }
}

TEST(TurnedTexts, fill_their_place_in_planes_at_a_slant) {
    for (const KdGeVector3d& normal : {KdGeVector3d(0, -1, 1), KdGeVector3d(1, 0, 1), KdGeVector3d(1, 1, 1)}) {
        for (int degrees = 0; degrees < 360; degrees += 45) {
            const auto text = capitals();
            text->setNormal(normal);
            text->setRotation(degrees * kdtest::pi / 180.0);
            expectFilled(primitivesOf(*text, {}), std::to_string(degrees).c_str());
        }
    }
}

TEST(TurnedTexts, seen_from_behind_are_mirrored) {
    // Ink on the left of the letter, and to the right seen from behind.
    const auto weight = [](const KdGeVector3d& normal) {
        KdDbMText text;
        text.setContents(L"L");
        text.setTextHeight(10.0);
        text.setNormal(normal);
        const QImage picture = paint(primitivesOf(text, {}), 300);
        const QRect box = inked(picture);
        return picture.pixelColor(box.left() + 5, box.center().y()).value() < 128 ? "left" : "right";
    };
    EXPECT_STREQ(weight({0, 0, 1}), "left");
    EXPECT_STREQ(weight({0, 0, -1}), "right");
}

TEST(TurnedTexts, seen_along_their_plane_are_not_there) {
    const auto text = capitals();
    text->setNormal({1, 0, 0});
    Primitives primitives = primitivesOf(*text, {});
    EXPECT_TRUE(inked(paint(primitives, 300)).isNull());
}

}  // namespace
