// The walk over the cell styles of a table style.

#include "module/core/cellstylewalk.h"

#include "kd/db/tablestyle.h"
#include "module/core/tablecommon.h"

namespace {

constexpr int kDefaultStyles = 3;  ///< at the indices 1 to 3
constexpr int kFirstUserIndex = 101;

}  // namespace

std::vector<CStdStr<wchar_t>> cellStyleDisplayNames(const KdDbTableStyle& style) {
    std::vector<CStdStr<wchar_t>> names;
    for (int index = 1; index <= kDefaultStyles; ++index) {
        names.emplace_back(style.cellStyleName(index).kwszPtr());
        CVqTableCommon::DefaultCellStyleReverseConvert(names.back());
    }
    // Indices of deleted styles aren't given again, so that the users' styles may lie at any distance: the walk
    // ends when it has found as many as there are.
    int missing = style.numCellStyles() - kDefaultStyles;
    for (int index = kFirstUserIndex; missing > 0; ++index) {
        const KdString name = style.cellStyleName(index);
        if (name.isEmpty()) continue;
        names.emplace_back(name.kwszPtr());
        --missing;
    }
    return names;
}
