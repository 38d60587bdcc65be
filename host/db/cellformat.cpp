// Walks over the one list of a format's properties.

#include "host/db/cellformat.h"

#include <bit>

namespace kdhost {

int edgeIndex(KdDb::GridLineType edges) {
    const unsigned set = static_cast<unsigned>(edges) & 63U;
    return set == 0 ? -1 : std::countr_zero(set);
}

FormatBits difference(const CellFormat& a, const CellFormat& b) {
    FormatBits bits = 0;
    forEachProperty([&](const auto& property) {
        if (property.in(a) != property.in(b)) bits |= property.bit;
    });
    return bits;
}

}  // namespace kdhost
