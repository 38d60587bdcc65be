// Formulas for places in a cell, so that the tables of places read as what they say: W - m - h / 2.
//
// A formula is a sum of multiples of the cell's and the text's sizes. It is put together at compile time; what is left
// for run time is one row of numbers for each coordinate.
#pragma once

#include <array>
#include <cstddef>

/// What formulas are made of, in drawing units.
struct CellSizes {
    double cellWidth = 0.0;
    double cellHeight = 0.0;  ///< for a slanted text the height that the text needs
    double horzMargin = 0.0;
    double vertMargin = 0.0;
    double textHeight = 0.0;  ///< of the whole text as wrapped
    double textWidth = 0.0;   ///< of the whole text as wrapped
    double capital = 0.0;     ///< height of a capital letter
    double sine = 0.0;        ///< of a slanted text's angle against the nearest axis before or behind it
    double cosine = 1.0;
};

class CellFormula {
public:
    /// One term alone. Terms are added in this order.
    enum Term { kW, kH, kM, kV, kUnit, kTextHeight, kTextWidth, kAC, kAS, kST, kCT, kCH, kTerms };
    constexpr CellFormula(Term term) { m_factors[term] = 1.0; }

    friend constexpr CellFormula operator*(CellFormula formula, double factor) {
        for (double& value : formula.m_factors) value *= factor;
        return formula;
    }
    friend constexpr CellFormula operator/(CellFormula formula, double divisor) { return formula * (1.0 / divisor); }
    friend constexpr CellFormula operator-(CellFormula formula) { return formula * -1.0; }
    friend constexpr CellFormula operator+(CellFormula a, const CellFormula& b) {
        for (std::size_t term = 0; term < kTerms; ++term) a.m_factors[term] += b.m_factors[term];
        return a;
    }
    friend constexpr CellFormula operator-(CellFormula a, const CellFormula& b) { return a + -b; }

    constexpr double valueFor(const CellSizes& sizes) const {
        const std::array<double, kTerms> values = {
            sizes.cellWidth,
            sizes.cellHeight,
            sizes.horzMargin,
            sizes.vertMargin,
            1.0,
            sizes.textHeight,
            sizes.textWidth,
            sizes.textWidth * sizes.cosine,
            sizes.textWidth * sizes.sine,
            sizes.capital * sizes.sine,
            sizes.capital * sizes.cosine,
            sizes.cellHeight * sizes.cosine,
        };
        double sum = 0.0;
        for (std::size_t term = 0; term < kTerms; ++term) sum += m_factors[term] * values[term];
        return sum;
    }

private:
    std::array<double, kTerms> m_factors{};
};

/// The place of a text's location in its cell, from the cell's corner that rows are counted from.
struct CellPlace {
    CellFormula x;
    CellFormula up;    ///< in a table that grows upwards: counted from the cell's lower edge
    CellFormula down;  ///< in any other table: counted from the cell's upper edge, below it negative

    /// One and the same place, whichever edge it is counted from.
    constexpr CellPlace(const CellFormula& xx, const CellFormula& y)
        : CellPlace(xx, y, y - CellFormula(CellFormula::kH)) {}
    constexpr CellPlace(const CellFormula& xx, const CellFormula& y, const CellFormula& yDown)
        : x(xx), up(y), down(yDown) {}
};

/// The terms under the letters that the tables of places use.
namespace celllengths {

inline constexpr CellFormula W = CellFormula::kW;           ///< the cell's width
inline constexpr CellFormula H = CellFormula::kH;           ///< the cell's height
inline constexpr CellFormula m = CellFormula::kM;           ///< the horizontal margin
inline constexpr CellFormula v = CellFormula::kV;           ///< the vertical margin
inline constexpr CellFormula h = CellFormula::kTextHeight;  ///< the text's height
inline constexpr CellFormula a = CellFormula::kTextWidth;   ///< the text's width
inline constexpr CellFormula ac = CellFormula::kAC;         ///< a slanted text's width, along the row
inline constexpr CellFormula as = CellFormula::kAS;         ///< a slanted text's width, across the row
inline constexpr CellFormula st = CellFormula::kST;         ///< a slanted capital's height, along the row
inline constexpr CellFormula ct = CellFormula::kCT;         ///< a slanted capital's height, across the row
inline constexpr CellFormula cH = CellFormula::kCH;         ///< the cell's height times the cosine
inline constexpr CellFormula tenth = CellFormula(CellFormula::kUnit) * 0.1;  ///< 0.1 drawing units, for any text

}  // namespace celllengths
