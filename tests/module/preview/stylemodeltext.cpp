// The model of a sample's texts: what a text needs, and where it goes in its cell. The formulas stand in tables, by
// turn, attachment and flow. Places are counted from the cell's first corner; y grows upward, whichever way rows go.

#include <array>
#include <cmath>

#include "tests/module/preview/stylemodel.h"
#include "tests/support/angles.h"

namespace kdtest::preview {
namespace {

/// An angle within 0 to two pi. Angles so large that whole turns can't be told apart count as 0.
double reduced(double angle) {
    const double turns = angle / (2.0 * pi);
    if (std::abs(turns) + 1.0 == std::abs(turns)) return 0.0;
    return 2.0 * pi * (turns - std::floor(turns));
}

bool isNearZero(double angle) {
    return reduced(angle + 1e-6) < 2e-6;
}

/// Letters of the formulas.
struct Letters {
    double W, H;  ///< the cell
    double m, v;  ///< margins
    double t;     ///< text height
    double a, h;  ///< the text as measured
    double s, c;  ///< sine and cosine of a slant within the first quadrant
    double N;     ///< height that a slant needs
};

struct Place {
    double x = 0.0;
    double y = 0.0;
};

// ---- along an axis

/// 0 left, 1 centre, 2 right; and 3 top, 2 middle, 1 bottom.
constexpr std::array kHorizontal{0, 0, 1, 2, 0, 1, 2, 0, 1, 2};
constexpr std::array kVertical{0, 3, 3, 3, 2, 2, 2, 1, 1, 1};

/// Text as it is read, or upside down: x comes from the horizontal mode, y from the vertical.
Place level(const Letters& l, int horizontal, int vertical, bool up, bool upsideDown) {
    const auto& [W, H, m, v, t, a, h, s, c, N] = l;
    const std::array x{upsideDown ? m + 0.1 + a : m,  // left
                       W / 2,                         // centre
                       upsideDown ? W - m - 0.1 - a : W - m};
    const double middle = up ? H / 2 : -H / 2;
    const double top = upsideDown ? (up ? H - v - h : -(h + v)) : (up ? H - v : -v);
    const double bottom = upsideDown ? (up ? v + h : -(H - v - h)) : (up ? v : -(H - v));
    const std::array y{0.0, bottom, middle, top};
    return {x.at(static_cast<std::size_t>(horizontal)), y.at(static_cast<std::size_t>(vertical))};
}

/// Text that runs up (a quarter) or down (three quarters): the cell's y comes from the horizontal mode, its x from
/// the vertical. Rows: left, centre, right. Columns: bottom, middle, top.
Place upright(const Letters& l, int horizontal, int vertical, bool up, bool down) {
    const auto& [W, H, m, v, t, a, h, s, c, N] = l;
    const double middle = up ? H / 2 : -H / 2;
    const double far = up ? H - v : -v;
    const double near = up ? v : -(H - v);
    const std::array y = down ? std::array{far, middle, near} : std::array{near, middle, far};
    const std::array<std::array<double, 3>, 3> running_up{{
        {m + h, m + h / 2, m},
        {W / 2 + h / 2, W / 2, W / 2 - h / 2},
        {W - m, W - m - h / 2, W - m - h},
    }};
    const std::array<std::array<double, 3>, 3> running_down{{
        {m, m + h / 2, m + h},
        {W / 2 - h / 2, W / 2, W / 2 + h / 2},
        {W - m - h, W - m - h / 2, W - m},
    }};
    const auto& x = down ? running_down : running_up;
    return {x.at(static_cast<std::size_t>(horizontal)).at(static_cast<std::size_t>(vertical - 1)),
            y.at(static_cast<std::size_t>(horizontal))};
}

// ---- at a slant

struct SlantPlace {
    double x;
    double yUp;    ///< rows grow upward
    double yDown;  ///< rows grow downward
};
using SlantTable = std::array<SlantPlace, 9>;  ///< by attachment, 1 first

/// Between 0 and 90 degrees.
SlantTable firstQuadrant(const Letters& l) {
    const auto& [W, H, m, v, t, a, h, s, c, N] = l;
    return {{
        {m, v + c * t, -(N - v - c * t)},
        {W / 2 - s * t / 2, c * t / 2 + N / 2, c * t / 2 - N / 2},
        {W - m - s * t, N - v, -v},
        {m + s * t / 2, v + c * t / 2, -(N - v - c * t / 2)},
        {W / 2, N / 2, -N / 2},
        {W - m - s * t / 2, N - v - c * t / 2, -(v + c * t / 2)},
        {m + s * t, v, -(N - v)},
        {W / 2 + s * t / 2, N / 2 - c * t / 2, c * t / 2 - N / 2},
        {W - m, N - v - c * t, -(v + c * t)},
    }};
}

/// Between 90 and 180 degrees.
SlantTable secondQuadrant(const Letters& l) {
    const auto& [W, H, m, v, t, a, h, s, c, N] = l;
    return {{
        {m + a * c, v, -(N - v)},
        {W / 2 - s * t / 2, N / 2 - c * t / 2, -(N / 2 + c * t / 2)},
        {W - m - a * c - s * t, v + a * s, -(N - v - a * s)},
        {m + a * c + s * t / 2, v + c * t / 2, -(N - v - c * t / 2)},
        {W / 2, N / 2, -N / 2},
        {W - m - a * c - s * t / 2, v + a * s + c * t / 2, -(N - v - a * s - c * t / 2)},
        {m + a * c + s * t, v + c * t, -(N - v - c * t)},
        {W / 2 + s * t / 2, N / 2 - c * t / 2, -(N / 2 - c * t / 2)},
        {W - m - a * c, v + a * s + c * t, -(N - v - a * s - c * t)},
    }};
}

/// Between 180 and 270 degrees. Attachment 6 takes the needed height for the text's in one of its formulas.
SlantTable thirdQuadrant(const Letters& l) {
    const auto& [W, H, m, v, t, a, h, s, c, N] = l;
    return {{
        {m + a * c + s * t, N - v - c * t, -(v + c * t)},
        {W / 2 + s * t / 2, N / 2 - c * t / 2, -(N / 2 + c * t / 2)},
        {W - m - a * c, v, -(N - v)},
        {m + a * c + s * t / 2, N - v - c * t / 2, -(v + c * t / 2)},
        {W / 2, N / 2, -N / 2},
        {W - m - a * c - s * t / 2, v + c * N / 2, -(N - v - c * t / 2)},
        {m + a * c, N - v, -v},
        {W / 2 - s * t / 2, c * t / 2 + N / 2, -(N / 2 - c * t / 2)},
        {W - m - a * c - s * t, v + c * t, -(N - v - c * t)},
    }};
}

/// Between 270 and 360 degrees.
SlantTable fourthQuadrant(const Letters& l) {
    const auto& [W, H, m, v, t, a, h, s, c, N] = l;
    return {{
        {m + s * t, N - v, -v},
        {W / 2 + s * t / 2, c * t / 2 + N / 2, -(N / 2 - c * t / 2)},
        {W - m, v + c * t, -(N - v - c * t)},
        {m + s * t / 2, N - v - c * t / 2, -(v + c * t / 2)},
        {W / 2, N / 2, -N / 2},
        {W - m - s * t / 2, v + c * t / 2, -(N - v - c * t / 2)},
        {m, N - v - c * t, -(v + c * t)},
        {W / 2 - s * t / 2, N / 2 - c * t / 2, -(c * t / 2 + N / 2)},
        {W - m - s * t, v, -(N - v)},
    }};
}

constexpr std::array kSlants{firstQuadrant, secondQuadrant, thirdQuadrant, fourthQuadrant};

/// r, pi - r, r - pi, 2 pi - r.
double withinFirst(const Turn& turn) {
    const std::array angles{turn.angle, pi - turn.angle, turn.angle - pi, 2.0 * pi - turn.angle};
    return angles.at(static_cast<std::size_t>(turn.quarter));
}

ModelText slanted(const CellLook& look, const Turn& turn, const CellSize& cell, const TextExtent& text) {
    const double angle = withinFirst(turn);
    Letters l{cell.width, cell.height, look.marginHorz, look.marginVert, look.textHeight,
              text.width, text.height, std::sin(angle), std::cos(angle), 0.0};
    l.N = l.a * l.s + l.h * std::sin(pi / 2.0 - angle) + 2.0 * l.v;
    const SlantPlace place =
        kSlants.at(static_cast<std::size_t>(turn.quarter))(l).at(static_cast<std::size_t>(look.alignment - 1));
    return {{cell.width, l.N}, place.x, look.flow == 1 ? place.yUp : place.yDown, text.wrapWidth};
}

}  // namespace

Turn turnOf(double rotation) {
    const double angle = reduced(rotation);
    if (isNearZero(rotation)) return {false, 0, angle};
    if (isNearZero(rotation - pi / 2.0)) return {false, 1, angle};
    if (isNearZero(rotation - pi) || isNearZero(pi + rotation)) return {false, 2, angle};
    if (isNearZero(rotation - 3.0 * pi / 2.0)) return {false, 3, angle};
    return {true, static_cast<int>(angle / (pi / 2.0)), angle};
}

ModelText modelText(const CellLook& look, const CellSize& cell) {
    const Turn turn = turnOf(look.rotation);
    const bool isUpright = !turn.slant && turn.quarter % 2 == 1;
    const TextExtent text =
        measured(look, isUpright ? cell.height - 2.0 * look.marginVert : cell.width - 2.0 * look.marginHorz);
    if (turn.slant) return slanted(look, turn, cell, text);

    const Letters l{
        cell.width, cell.height, look.marginHorz, look.marginVert, look.textHeight, text.width, text.height, 0.0,
        0.0,        0.0};
    const bool up = look.flow == 1;
    const int horizontal = kHorizontal.at(static_cast<std::size_t>(look.alignment));
    const int vertical = kVertical.at(static_cast<std::size_t>(look.alignment));
    const CellSize need =
        isUpright ? CellSize{l.h + 2.0 * l.m, l.t + 2.0 * l.v} : CellSize{l.t + 2.0 * l.m, l.h + 2.0 * l.v};
    const Place place = isUpright ? upright(l, horizontal, vertical, up, turn.quarter == 3)
                                  : level(l, horizontal, vertical, up, turn.quarter == 2);
    return {need, place.x, place.y, text.wrapWidth};
}

}  // namespace kdtest::preview
