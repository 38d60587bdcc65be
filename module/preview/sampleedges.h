// The grid lines' properties as a sample reads them: those of a cell style, or those of a table's cell.
#pragma once

#include "kd/db/color.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"

class SampleEdges {
public:
    virtual ~SampleEdges() = default;

    virtual KdDb::Visibility visibility(KdDb::GridLineType edge) const = 0;
    virtual KdDb::GridLineStyle style(KdDb::GridLineType edge) const = 0;
    virtual KdDbObjectId linetype(KdDb::GridLineType edge) const = 0;
    virtual KdDb::LineWeight lineWeight(KdDb::GridLineType edge) const = 0;
    virtual KdCmColor color(KdDb::GridLineType edge) const = 0;
    /// The gap of a double line. Row and column are those of the sample.
    virtual double spacing(int row, int column, KdDb::GridLineType edge) const = 0;

    bool isVisible(KdDb::GridLineType edge) const { return visibility(edge) == KdDb::kVisible; }
    bool isDouble(KdDb::GridLineType edge) const { return style(edge) == KdDb::kGridLineStyleDouble; }
};
