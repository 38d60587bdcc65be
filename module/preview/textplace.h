// Where the text of a sample stands in its cell, and how much room it needs.
#pragma once

#include <optional>

#include "kd/ge/vector3d.h"
#include "module/preview/cellformula.h"

/// A text that was measured, in a cell.
struct SampleText {
    CellSizes sizes;        ///< sine and cosine are worked out where the text is slanted
    double rotation = 0.0;  ///< radians
    int attachment = 1;     ///< 1 to 9, row by row
    int flowDirection = 0;  ///< of the table
};

/// The room that a text needs with its margins, and its location from the cell's first corner.
struct TextFit {
    double width = 0.0;
    double height = 0.0;
    KdGeVector3d offset;
};

/// The angle that looks the same within one turn, from 0 on. What is too large to have a place within its turn, or so
/// little below 0 that a whole turn more swallows it, is 0.
double withinTurn(double angle);

/// How many quarter turns the rotation is, 0 to 3, within a millionth; none for a text that is truly slanted.
std::optional<unsigned> quarterTurns(double rotation);

/// Of a text along an axis.
TextFit fitOfUprightText(const SampleText& text, unsigned quarterTurns);
/// Of any other text. It never asks for more width than its cell has.
TextFit fitOfSlantedText(SampleText text);

/// The offset that a place gives for cells and tables of the text's.
KdGeVector3d offsetOf(const CellPlace& place, const SampleText& text);
