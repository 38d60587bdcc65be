// Alignments of cells as menu commands and as places in a list.

#include "module/core/tablecommon.h"

namespace {

/// The commands of the nine alignments follow each other in the order of the alignments' values.
constexpr int kMenuIdBefore = 1801;

constexpr bool isAlignment(int value) {
    return value >= KdDb::kTopLeft && value <= KdDb::kBottomRight;
}

/// What is no alignment counts as the first one.
constexpr KdDb::CellAlignment alignmentOrFirst(long long value) {
    return value > KdDb::kTopLeft && value <= KdDb::kBottomRight ? static_cast<KdDb::CellAlignment>(value)
                                                                 : KdDb::kTopLeft;
}

}  // namespace

int CVqTableCommon::GetAlignmentToMenuId(KdDb::CellAlignment alignment) {
    return isAlignment(alignment) ? kMenuIdBefore + alignment : 0;
}

KdDb::CellAlignment CVqTableCommon::GetMenuIDToAlignment(unsigned menuId) {
    return alignmentOrFirst(static_cast<long long>(menuId) - kMenuIdBefore);
}

int CVqTableCommon::CellAlignmentToIndex(KdDb::CellAlignment alignment) {
    return isAlignment(alignment) ? alignment - KdDb::kTopLeft : 0;
}

KdDb::CellAlignment CVqTableCommon::CellAlignmentToIndex(int index) {
    return alignmentOrFirst(static_cast<long long>(index) + KdDb::kTopLeft);
}
