// Places of slanted texts, quadrant by quadrant.

#include <array>
#include <cmath>
#include <numbers>

#include "module/preview/textplace.h"

namespace {

using namespace celllengths;

constexpr double kPi = std::numbers::pi;

using Places = std::array<CellPlace, 9>;

/// Where a place has a third formula, a table that grows downwards has its text elsewhere than one that grows upwards.
/// These are rules, like all that looks uneven here: the tables stand as they are wanted.
constexpr Places kToUpperRight = {{
    {m, v + ct},
    {W / 2 - st / 2, ct / 2 + H / 2},
    {W - m - st, H - v},
    {m + st / 2, v + ct / 2},
    {W / 2, H / 2},
    {W - m - st / 2, H - v - ct / 2},
    {m + st, v},
    {W / 2 + st / 2, H / 2 - ct / 2, ct / 2 - H / 2},
    {W - m, H - v - ct},
}};

constexpr Places kToUpperLeft = {{
    {m + ac, v},
    {W / 2 - st / 2, H / 2 - ct / 2},
    {W - m - ac - st, v + as},
    {m + ac + st / 2, v + ct / 2},
    {W / 2, H / 2},
    {W - m - ac - st / 2, v + as + ct / 2},
    {m + ac + st, v + ct},
    {W / 2 + st / 2, H / 2 - ct / 2, ct / 2 - H / 2},
    {W - m - ac, v + as + ct},
}};

constexpr Places kToLowerLeft = {{
    {m + ac + st, H - v - ct},
    {W / 2 + st / 2, H / 2 - ct / 2},
    {W - m - ac, v},
    {m + ac + st / 2, H - v - ct / 2},
    {W / 2, H / 2},
    // Upwards the cosine is that of the whole height, not of a letter.
    {W - m - ac - st / 2, v + cH / 2, ct / 2 + v - H},
    {m + ac, H - v},
    {W / 2 - st / 2, ct / 2 + H / 2},
    {W - m - ac - st, v + ct},
}};

constexpr Places kToLowerRight = {{
    {m + st, H - v},
    {W / 2 + st / 2, ct / 2 + H / 2},
    {W - m, v + ct},
    {m + st / 2, H - v - ct / 2},
    {W / 2, H / 2},
    {W - m - st / 2, v + ct / 2},
    {m, H - v - ct},
    {W / 2 - st / 2, H / 2 - ct / 2},
    {W - m - st, v},
}};

/// The rotations between two axes, and how they come down to the first quadrant.
struct Quadrant {
    double from;
    double to;
    double sign;
    double start;
    const Places& places;
};

constexpr std::array kQuadrants = {
    Quadrant{.from = 0.0, .to = kPi / 2.0, .sign = 1.0, .start = 0.0, .places = kToUpperRight},
    Quadrant{.from = kPi / 2.0, .to = kPi, .sign = -1.0, .start = kPi, .places = kToUpperLeft},
    Quadrant{.from = kPi, .to = 3.0 * kPi / 2.0, .sign = 1.0, .start = -kPi, .places = kToLowerLeft},
    Quadrant{.from = 3.0 * kPi / 2.0, .to = 2.0 * kPi, .sign = -1.0, .start = 2.0 * kPi, .places = kToLowerRight},
};

/// Null for a rotation on an axis.
const Quadrant* quadrantOf(double rotation) {
    for (const Quadrant& quadrant : kQuadrants) {
        if (rotation > quadrant.from && rotation < quadrant.to) return &quadrant;
    }
    return nullptr;
}

}  // namespace

TextFit fitOfSlantedText(SampleText text) {
    const double rotation = withinTurn(text.rotation);
    const Quadrant* quadrant = quadrantOf(rotation);
    const double slant = quadrant == nullptr ? 0.0 : quadrant->start + quadrant->sign * rotation;
    CellSizes& sizes = text.sizes;
    sizes.sine = std::sin(slant);
    sizes.cosine = std::cos(slant);
    sizes.cellHeight =
        sizes.textWidth * sizes.sine + sizes.textHeight * std::sin(kPi / 2.0 - slant) + 2.0 * sizes.vertMargin;
    // On an axis, and with what is none of the nine attachments, the text stands in the cell's corner.
    const bool hasPlace = quadrant != nullptr && text.attachment >= 1 && text.attachment <= 9;
    return {sizes.cellWidth, sizes.cellHeight,
            hasPlace ? offsetOf(quadrant->places[text.attachment - 1], text) : KdGeVector3d()};
}
