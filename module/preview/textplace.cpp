// Places of texts that run along an axis.

#include "module/preview/textplace.h"

#include <array>
#include <cmath>
#include <numbers>

namespace {

using namespace celllengths;

constexpr double kWholeTurn = 2.0 * std::numbers::pi;
constexpr double kNearly = 1e-6;

using Places = std::array<CellPlace, 9>;

/// Each set has the nine attachments, row by row. The location is that point of the text's box which the attachment
/// names, as the text itself sees it: of a text on its head the top left point lies at the bottom right.
constexpr std::array<Places, 4> kPlaces = {{
    {{
        {m, H - v},
        {W / 2, H - v},
        {W - m, H - v},
        {m, H / 2},
        {W / 2, H / 2},
        {W - m, H / 2},
        {m, v},
        {W / 2, v},
        {W - m, v},
    }},
    // Upwards: the columns of attachments lie one above the other, the first at the bottom.
    {{
        {m, v},
        {W / 2 - h / 2, H / 2},
        {W - m - h, H - v},
        {m + h / 2, v},
        {W / 2, H / 2},
        {W - m - h / 2, H - v},
        {m + h, v},
        {W / 2 + h / 2, H / 2},
        {W - m, H - v},
    }},
    // On its head. The tenth is an absolute length, whatever the size of the text: that is a rule.
    {{
        {m + tenth + a, H - v - h},
        {W / 2, H - v - h},
        {W - m - tenth - a, H - v - h},
        {m + tenth + a, H / 2},
        {W / 2, H / 2},
        {W - m - tenth - a, H / 2},
        {m + tenth + a, v + h},
        {W / 2, v + h},
        {W - m - tenth - a, v + h},
    }},
    // Downwards: the first column of attachments is at the top.
    {{
        {m + h, H - v},
        {W / 2 + h / 2, H / 2},
        {W - m, v},
        {m + h / 2, H - v},
        {W / 2, H / 2},
        {W - m - h / 2, v},
        {m, H - v},
        {W / 2 - h / 2, H / 2},
        {W - m - h, v},
    }},
}};

bool isNearZero(double angle) {
    return withinTurn(angle + kNearly) < 2.0 * kNearly;
}

}  // namespace

double withinTurn(double angle) {
    if (angle >= 0.0 && angle < kWholeTurn) return angle;
    const double turns = angle / kWholeTurn;
    if (turns + 1.0 == turns) return 0.0;
    const double part = turns - std::trunc(turns);
    if (part + 1.0 == 1.0) return 0.0;
    return (part < 0.0 ? part + 1.0 : part) * kWholeTurn;
}

std::optional<unsigned> quarterTurns(double rotation) {
    for (unsigned turns = 0; turns < 4; ++turns) {
        if (isNearZero(rotation - turns * std::numbers::pi / 2.0)) return turns;
    }
    return std::nullopt;
}

TextFit fitOfUprightText(const SampleText& text, unsigned quarterTurns) {
    const CellSizes& sizes = text.sizes;
    // Along its lines a text can be wrapped, down to one letter or so.
    const double across = sizes.textHeight;
    const double along = sizes.capital;
    const bool isVertical = quarterTurns % 2 == 1;
    return {
        (isVertical ? across : along) + 2.0 * sizes.horzMargin, (isVertical ? along : across) + 2.0 * sizes.vertMargin,
        // What is none of the nine attachments counts as the first.
        offsetOf(kPlaces[quarterTurns][text.attachment >= 1 && text.attachment <= 9 ? text.attachment - 1 : 0], text)};
}

KdGeVector3d offsetOf(const CellPlace& place, const SampleText& text) {
    const CellFormula& y = text.flowDirection == 1 ? place.up : place.down;
    return {place.x.valueFor(text.sizes), y.valueFor(text.sizes), 0.0};
}
