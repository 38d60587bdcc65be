// A cell style in plain values, as tests write it down; what a table style or a table is dressed with, and what the
// plain models of samples read.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "kd/db/color.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "kd/db/tablestyle.h"

class KdDbMText;

namespace kdtest::preview {

/// The six edges in the order of their values 1, 2, 4, 8, 16, 32.
enum EdgeName { kTop, kInsideHorz, kBottom, kLeft, kInsideVert, kRight };
inline constexpr int kEdgeCount = 6;

constexpr KdDb::GridLineType edgeType(int edge) {
    return static_cast<KdDb::GridLineType>(1 << edge);
}

struct Edge {
    bool visible = true;
    bool isDouble = false;
    double spacing = 0.0;
    KdCmColor color = KdCmColor::fromIndex(1);
    KdDb::LineWeight weight = KdDb::kLnWt025;
    KdDbObjectId linetype;
};

struct CellLook {
    std::wstring name = L"_DATA";
    std::wstring shownName = L"Data";
    double textHeight = 3.0;
    double marginHorz = 1.0;
    double marginVert = 0.5;
    double rotation = 0.0;
    int alignment = KdDb::kTopLeft;
    int flow = 0;
    bool mergeAll = false;
    KdDbObjectId textStyle;
    KdCmColor color = KdCmColor::fromIndex(3);
    KdCmColor background = KdCmColor::none();
    std::array<Edge, kEdgeCount> edges;

    /// Each edge has looks and a spacing of its own, so that none can stand in for another.
    CellLook();
};

/// Gives the look to its cell style, which must be there.
void dress(KdDbTableStyle& style, const CellLook& look);

/// A table style in memory with that look; a name other than those of the three standard cell styles is added.
std::unique_ptr<KdDbTableStyle> styleOf(const CellLook& look);

/// One line that tells the look, for messages.
std::string told(const CellLook& look);

/// What the text engine makes of the look's text, wrapped at that width.
struct TextExtent {
    double width = 0.0;
    double height = 0.0;
    double wrapWidth = 0.0;  ///< as the text keeps it
};
TextExtent measured(const CellLook& look, double wrapWidth);

}  // namespace kdtest::preview
