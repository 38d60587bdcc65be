// The moves that make two lines out of one.
//
// All moves are half the spacing of some edge: the first two of each edge put its lines apart, the others see to the
// corners. One column of two cells, all edges double:
//
//      |   ----------- first ------------   |     the top, in row 0: its first line keeps the cell's own ends,
//      |     +-------- second --------+     |     half a spacing short of the frame
//    first second                  second first
//      |     +-------- first  --------+     |     the top of a further row: both lines end within the column
//      |     +-------- second --------+     |
//      |     |                        |     |
//      |     +-------- first  --------+     |     the bottom: its second line closes the frame
//      +-------------- second --------------+
//
// The right edge lies apart by the spacing of the left one, and lines end as far off the top and the bottom as their
// own spacing says: these are rules. They show where edges have different spacings.

#include "module/preview/doublelines.h"

#include <array>

namespace {

using Type = KdDb::GridLineType;
constexpr Type kTop = KdDb::kHorzTop;
constexpr Type kHorz = KdDb::kHorzInside;
constexpr Type kBottom = KdDb::kHorzBottom;
constexpr Type kLeft = KdDb::kVertLeft;
constexpr Type kVert = KdDb::kVertInside;
constexpr Type kRight = KdDb::kVertRight;

enum class Along { Right, Down };

/// The places in a sample that a move is for.
enum class When { Always, FurtherRow, FurtherColumn, FirstColumn, FirstColumnOfFurtherRow };

using End = KdGePoint3d DoubleLine::*;
constexpr End kNone = nullptr;
constexpr End a1 = &DoubleLine::a1;
constexpr End b1 = &DoubleLine::b1;
constexpr End a2 = &DoubleLine::a2;
constexpr End b2 = &DoubleLine::b2;

struct Move {
    Type edge;
    std::array<End, 2> ends;
    double sign;
    Type spacing;
    Along along;
    When when;
};

constexpr std::array kMoves = {
    Move{kTop, {a1, b1}, -1, kTop, Along::Down, When::Always},
    Move{kTop, {a2, b2}, +1, kTop, Along::Down, When::Always},
    Move{kTop, {a1, kNone}, +1, kLeft, Along::Right, When::FurtherRow},
    Move{kTop, {b1, kNone}, -1, kRight, Along::Right, When::FurtherRow},
    Move{kTop, {a2, kNone}, +1, kLeft, Along::Right, When::Always},
    Move{kTop, {b2, kNone}, -1, kRight, Along::Right, When::Always},

    Move{kLeft, {a1, b1}, -1, kLeft, Along::Right, When::Always},
    Move{kLeft, {a2, b2}, +1, kLeft, Along::Right, When::Always},
    Move{kLeft, {a1, a2}, +1, kLeft, Along::Down, When::FurtherColumn},
    Move{kLeft, {b1, b2}, -1, kLeft, Along::Down, When::FurtherColumn},
    Move{kLeft, {a1, kNone}, -1, kLeft, Along::Down, When::FirstColumn},
    Move{kLeft, {a2, kNone}, +1, kLeft, Along::Down, When::FirstColumn},
    Move{kLeft, {b2, kNone}, -1, kLeft, Along::Down, When::FirstColumn},
    Move{kLeft, {b1, kNone}, +1, kLeft, Along::Down, When::FirstColumnOfFurtherRow},

    Move{kRight, {a1, b1}, +1, kLeft, Along::Right, When::Always},
    Move{kRight, {a2, b2}, -1, kLeft, Along::Right, When::Always},
    Move{kRight, {a1, kNone}, -1, kLeft, Along::Down, When::Always},
    Move{kRight, {a2, kNone}, +1, kLeft, Along::Down, When::Always},
    Move{kRight, {b1, kNone}, +1, kLeft, Along::Down, When::Always},
    Move{kRight, {b2, kNone}, -1, kLeft, Along::Down, When::Always},

    Move{kBottom, {a1, b1}, -1, kBottom, Along::Down, When::Always},
    Move{kBottom, {a2, b2}, +1, kBottom, Along::Down, When::Always},
    Move{kBottom, {a1, kNone}, +1, kBottom, Along::Right, When::Always},
    Move{kBottom, {a2, kNone}, -1, kBottom, Along::Right, When::Always},
    Move{kBottom, {b1, kNone}, -1, kBottom, Along::Right, When::Always},
    Move{kBottom, {b2, kNone}, +1, kBottom, Along::Right, When::Always},

    Move{kHorz, {a1, b1}, -1, kHorz, Along::Down, When::Always},
    Move{kHorz, {a2, b2}, +1, kHorz, Along::Down, When::Always},
    Move{kHorz, {a1, a2}, +1, kLeft, Along::Right, When::Always},
    Move{kHorz, {b1, b2}, -1, kRight, Along::Right, When::Always},

    Move{kVert, {a1, b1}, -1, kVert, Along::Right, When::Always},
    Move{kVert, {a2, b2}, +1, kVert, Along::Right, When::Always},
    Move{kVert, {a1, a2}, +1, kVert, Along::Down, When::Always},
    Move{kVert, {b1, b2}, -1, kVert, Along::Down, When::Always},
};

bool applies(When when, const EdgePlace& place) {
    switch (when) {
        case When::FurtherRow:
            return place.row != 0;
        case When::FurtherColumn:
            return place.column != 0;
        case When::FirstColumn:
            return place.column == 0;
        case When::FirstColumnOfFurtherRow:
            return place.column == 0 && place.row != 0;
        default:
            return true;
    }
}

}  // namespace

void correctDoubleLine(DoubleLine& line, const EdgePlace& place, const SampleEdges& edges, const KdGeVector3d& right,
                       const KdGeVector3d& down) {
    for (const Move& move : kMoves) {
        if (move.edge != place.edge || !applies(move.when, place)) continue;
        const double distance = move.sign * edges.spacing(place.row, place.column, move.spacing) / 2.0;
        for (const End end : move.ends) {
            if (end != kNone) line.*end += distance * (move.along == Along::Right ? right : down);
        }
    }
}
