// Grid lines as two dialogs of borders show them: what a number of edges look like, whether they agree, and the boxes
// that show it.
#pragma once

#include <array>

#include "kd/db/color.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "kd/ui/comboboxes.h"
#include "mfc/collections.h"

/// The edges of a cell, in the order in which they are visited everywhere.
inline constexpr std::array kGridEdges = {KdDb::kHorzTop,  KdDb::kHorzInside, KdDb::kHorzBottom,
                                          KdDb::kVertLeft, KdDb::kVertInside, KdDb::kVertRight};
inline constexpr int kHorizontalEdges = KdDb::kHorzTop | KdDb::kHorzInside | KdDb::kHorzBottom;
inline constexpr int kVerticalEdges = KdDb::kVertLeft | KdDb::kVertInside | KdDb::kVertRight;
inline constexpr int kAllEdges = kHorizontalEdges | kVerticalEdges;

/// Calls `visit(edge)` for each edge whose bit is set.
template <class Visit>
void forEachEdge(int edges, Visit visit) {
    for (const KdDb::GridLineType edge : kGridEdges) {
        if ((edges & edge) != 0) visit(edge);
    }
}

/// The looks of edges, an entry for each that was gathered. They agree when there is exactly one entry for each of the
/// six edges, and all are equal: so those of a cell with a hidden edge, and those of several cells, don't.
struct EdgeLooks {
    CArray<KdDb::LineWeight, KdDb::LineWeight> lineWeights;
    CArray<KdDbObjectId, KdDbObjectId> linetypes;
    CArray<KdCmColor, KdCmColor> colors;
    CArray<KdDb::GridLineStyle, KdDb::GridLineStyle> lineStyles;
    CArray<double, double> spacings;

    /// What a refresh starts with. Line styles and spacings are never emptied, so that they go on growing from one
    /// refresh to the next, and agree in the first one at most.
    void emptyLines();

    bool IsLineWeightUnification() const;
    bool IsLineTypeUnification() const;
    bool IsCmColorUnification() const;
    bool IsGridLineStyleUnification() const;
    /// Differences that come from arithmetic don't count.
    bool IsSpacingUnification() const;
};

/// The three boxes in which the looks of a line are picked.
struct LineBoxes {
    CKdUiLineWeightComboBox weight;
    CKdUiLineTypeComboBox type;
    CKdUiTrueColorComboBox color;

    /// Each box paints the samples of its kind.
    void showSamples() const;
    /// What the edges agree in; where they don't, or no row has it, by block.
    void show(const EdgeLooks& looks);
    /// The line type of the row chosen, after the user has chosen another one where the row stands for that. Null when
    /// the row stands for none.
    KdDbObjectId chosenLinetype();
};
