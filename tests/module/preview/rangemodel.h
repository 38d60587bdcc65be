// A plain model of the sample of a range of cells: shape, sizes, texts and lines written down from the rules.
#pragma once

#include <string>

#include "module/core/cellrange.h"
#include "tests/module/preview/samplepicture.h"
#include "tests/module/preview/stylemodel.h"

class KdDbTable;

namespace kdtest::preview {

struct RangeShape {
    int rows = 1;
    int columns = 1;
};

RangeShape modelShape(const KdDbTable& table, const CVqTableCellRange& range);
CellSize modelRangeSize(const KdDbTable& table, const CVqTableCellRange& range);
/// `word` is the sample's word; `size` that of a cell.
Picture modelRangePicture(const KdDbTable& table, const CVqTableCellRange& range, const std::wstring& word,
                          const CellSize& size);

}  // namespace kdtest::preview
