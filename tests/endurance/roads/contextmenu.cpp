// The right button: on cells, on indicators and on tables as a whole.

#include "kd/db/table.h"
#include "tests/endurance/road.h"

namespace endurance {
namespace {

bool hasCurrentTable(const Stand& stand) {
    return stand.currentTable() != nullptr && hasTable(stand);
}

bool hasSmallCurrentTable(const Stand& stand) {
    const KdDbTable* table = stand.currentTable();
    return hasCurrentTable(stand) && table->numRows() * table->numColumns() <= 300;
}

Lines onCell(Random& random, const Stand& stand) {
    const KdDbTable& table = *stand.currentTable();
    return {command(L"@context " + someCell(random, table.numRows(), table.numColumns()))};
}

/// Where something else lies above the table there may be no menu.
Lines onPlace(Random& random, const Stand& stand, const Line& first) {
    const auto place = clearPlaceIn(random, stand, someTable(random, stand));
    return place ? Lines{first, command(L"@context " + *place)} : Lines{first};
}

Lines onSelection(Random& random, const Stand& stand) {
    return onPlace(random, stand, selectSomeCells(random, stand));
}

Lines onRow(Random& random, const Stand& stand) {
    return {command(L"@context row " + random.number(1, stand.currentTable()->numRows()))};
}

Lines onColumn(Random& random, const Stand& stand) {
    return {command(L"@context column " + columnName(random.below(stand.currentTable()->numColumns())))};
}

Lines onTable(Random& random, const Stand& stand) {
    return onPlace(random, stand, command(L"@cells none"));
}

constexpr Action actions[] = {
    {"cell", 40, hasSmallCurrentTable, onCell}, {"selection", 30, hasTable, onSelection},
    {"row", 15, hasSmallCurrentTable, onRow},   {"column", 15, hasSmallCurrentTable, onColumn},
    {"table", 20, hasTable, onTable},
};

}  // namespace

const Road contextMenuRoad = {"context menu", actions};

}  // namespace endurance
