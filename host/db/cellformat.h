// The format of a cell: what a cell style fixes, and what a cell may override.
//
// One list of properties drives everything that is done with a format: reading and setting, the effective
// value, copying, comparing, clearing, saving and dumping. A property that a cell overrides is a bit in its
// mask. The six edges share one record of looks and one list of its parts.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "kd/db/color.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "kd/db/value.h"

namespace kdhost {

/// The six edges in the order of their bits: the edge at index i has the value 1 << i.
inline constexpr std::array<KdDb::GridLineType, 6> kEdges{KdDb::kHorzTop,  KdDb::kHorzInside, KdDb::kHorzBottom,
                                                          KdDb::kVertLeft, KdDb::kVertInside, KdDb::kVertRight};
inline constexpr int kEdgeCount = static_cast<int>(kEdges.size());

/// Index of the first edge in a set of edges; -1 when the set names none.
int edgeIndex(KdDb::GridLineType edges);

/// How one edge looks.
struct GridLook {
    KdDb::Visibility visibility = KdDb::kVisible;
    KdDb::GridLineStyle style = KdDb::kGridLineStyleSingle;
    KdDb::LineWeight weight = KdDb::kLnWtByBlock;
    KdDbObjectId linetype;  ///< null: by block
    KdCmColor color = KdCmColor::byBlock();
    double spacing = 1.125;  ///< between the lines of a double line

    friend bool operator==(const GridLook&, const GridLook&) = default;
};

struct CellFormat {
    KdDb::CellAlignment alignment = KdDb::kTopCenter;
    KdCmColor background = KdCmColor::none();
    KdCmColor color = KdCmColor::byBlock();
    KdDbObjectId textStyle;
    double textHeight = 4.5;
    double rotation = 0.0;  ///< radians
    KdValue::DataType dataType = KdValue::kGeneral;
    KdValue::UnitType unitType = KdValue::kUnitless;
    std::wstring format;
    double marginHorz = 1.5;
    double marginVert = 1.5;
    std::array<GridLook, 6> grid;
    int cellClass = KdDb::kCellClassData;
    bool mergeAll = false;

    friend bool operator==(const CellFormat&, const CellFormat&) = default;
};

using FormatBits = std::uint64_t;

/// One property of a format; of an edge when `edge` is not negative.
template <class T>
struct FormatProperty {
    using Value = T;
    const char* name;
    FormatBits bit;
    T CellFormat::*plain = nullptr;  ///< this or `part` is there, which checkers of the code don't see
    T GridLook::*part = nullptr;
    int edge = -1;

    const T& in(const CellFormat& format) const {
        return part != nullptr ? format.grid[static_cast<std::size_t>(edge)].*part : format.*plain;  // NOLINT
    }
    T& in(CellFormat& format) const {
        return part != nullptr ? format.grid[static_cast<std::size_t>(edge)].*part : format.*plain;  // NOLINT
    }
};

namespace property {

template <class T>
constexpr FormatProperty<T> plain(const char* name, int place, T CellFormat::*member) {
    return {name, FormatBits{1} << place, member};
}

inline constexpr auto alignment = plain("alignment", 0, &CellFormat::alignment);
inline constexpr auto background = plain("background", 1, &CellFormat::background);
inline constexpr auto color = plain("color", 2, &CellFormat::color);
inline constexpr auto textStyle = plain("textStyle", 3, &CellFormat::textStyle);
inline constexpr auto textHeight = plain("textHeight", 4, &CellFormat::textHeight);
inline constexpr auto rotation = plain("rotation", 5, &CellFormat::rotation);
inline constexpr auto dataType = plain("dataType", 6, &CellFormat::dataType);
inline constexpr auto unitType = plain("unitType", 7, &CellFormat::unitType);
inline constexpr auto format = plain("format", 8, &CellFormat::format);
inline constexpr auto marginHorz = plain("marginHorz", 9, &CellFormat::marginHorz);
inline constexpr auto marginVert = plain("marginVert", 10, &CellFormat::marginVert);
inline constexpr auto cellClass = plain("class", 11, &CellFormat::cellClass);
inline constexpr auto mergeAll = plain("mergeAll", 12, &CellFormat::mergeAll);
inline constexpr std::tuple kPlain{alignment, background, color,      textStyle,  textHeight, rotation, dataType,
                                   unitType,  format,     marginHorz, marginVert, cellClass,  mergeAll};

/// A part of an edge's looks; of which edge, is asked with at().
template <class T>
struct GridPart {
    const char* name;
    int place;
    T GridLook::*part;

    constexpr FormatProperty<T> at(int edge) const {
        return {name, FormatBits{1} << (16 + place * kEdgeCount + edge), nullptr, part, edge};
    }
};

inline constexpr GridPart<KdDb::Visibility> visibility{"visible", 0, &GridLook::visibility};
inline constexpr GridPart<KdDb::GridLineStyle> lineStyle{"style", 1, &GridLook::style};
inline constexpr GridPart<KdDb::LineWeight> weight{"weight", 2, &GridLook::weight};
inline constexpr GridPart<KdDbObjectId> linetype{"linetype", 3, &GridLook::linetype};
inline constexpr GridPart<KdCmColor> lineColor{"color", 4, &GridLook::color};
inline constexpr GridPart<double> spacing{"spacing", 5, &GridLook::spacing};
inline constexpr std::tuple kGrid{visibility, lineStyle, weight, linetype, lineColor, spacing};

}  // namespace property

/// Calls `visit` with each property: the plain ones, then the parts of each edge.
template <class Visitor>
void forEachProperty(Visitor&& visit) {
    std::apply([&](const auto&... each) { (visit(each), ...); }, property::kPlain);
    for (int edge = 0; edge < kEdgeCount; ++edge) {
        std::apply([&](const auto&... each) { (visit(each.at(edge)), ...); }, property::kGrid);
    }
}

/// The parts of any edge, as bits.
inline constexpr FormatBits kGridBits = ((FormatBits{1} << (6 * kEdgeCount)) - 1) << 16;

/// Puts the ids among the values through `map`.
template <class Mapper>
void mapFormatIds(CellFormat& format, const Mapper& map) {
    forEachProperty([&](const auto& each) {
        using Value = typename std::decay_t<decltype(each)>::Value;
        if constexpr (std::is_same_v<Value, KdDbObjectId>) each.in(format) = map(each.in(format));
    });
}

/// The properties in which the two differ.
FormatBits difference(const CellFormat& a, const CellFormat& b);

}  // namespace kdhost
