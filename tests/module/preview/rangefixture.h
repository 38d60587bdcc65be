// What tests of the sample of a range share: a table of six rows and columns, and the sample made of it.
#pragma once

#include "kd/db/table.h"
#include "module/preview/tablecellfromtable.h"
#include "tests/module/preview/previewfixture.h"

namespace kdtest::preview {

/// The table outlives the sample.
struct RangeSample {
    RangeSample(KdDbTable& table, const CVqTableCellRange& range) : sample(&table, range) {}

    RangeSample& make() {
        EXPECT_TRUE(sample.CreateTableCell());
        return *this;
    }
    Picture picture() const { return pictureOf(sample); }

    CVqTableCellFromTable sample;
};

class RangePreviewTest : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        table = makeTable(6, 6);
    }

    void dressCell(int row, int column, const std::array<Edge, kEdgeCount>& edges) {
        for (int name = 0; name < kEdgeCount; ++name) {
            dressEdge(row, column, name, edges.at(static_cast<std::size_t>(name)));
        }
    }
    void dressEdge(int row, int column, int name, const Edge& edge) {
        const KdDb::GridLineType type = edgeType(name);
        table->setGridVisibility(row, column, type, edge.visible ? KdDb::kVisible : KdDb::kInvisible);
        table->setGridLineStyle(row, column, type,
                                edge.isDouble ? KdDb::kGridLineStyleDouble : KdDb::kGridLineStyleSingle);
        table->setGridDoubleLineSpacing(row, column, type, edge.spacing);
        table->setGridColor(row, column, type, edge.color);
        table->setGridLineWeight(row, column, type, edge.weight);
        table->setGridLinetype(row, column, type, edge.linetype);
    }

    std::unique_ptr<KdDbTable> table;  ///< in memory
};

}  // namespace kdtest::preview
