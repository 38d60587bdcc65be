// The list of roads, and what they share.

#include "tests/endurance/road.h"

#include <array>

#include "kd/db/table.h"

namespace endurance {

std::span<const Road* const> roads() {
    static constexpr std::array all = {&cellsRoad,   &clipboardRoad, &toolbarRoad, &contextMenuRoad, &commandLineRoad,
                                       &dialogsRoad, &filesRoad,     &drawingRoad, &undoRoad};
    return all;
}

const KdDbTable& someTable(Random& random, const Stand& stand) {
    return *random.oneOf(stand.tables());
}

Line selectSomeCells(Random& random, const Stand& stand) {
    const auto tables = stand.tables();
    const int place = random.below(static_cast<int>(tables.size()));
    const KdDbTable& table = *tables[static_cast<std::size_t>(place)];
    return command(L"@cells #" + std::to_wstring(place) + L" " +
                   someCells(random, table.numRows(), table.numColumns()));
}

}  // namespace endurance
