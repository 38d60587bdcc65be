// Tables by words: EDITTABLECELL with every keyword of its menus, the macros of the toolbar, and the export.

#include "kd/db/table.h"
#include "tests/endurance/road.h"

namespace endurance {
namespace {

bool hasSmallTable(const Stand& stand) {
    for (const KdDbTable* table : stand.tables()) {
        if (table->numRows() * table->numColumns() > 300) return false;
    }
    return hasTable(stand);
}

/// Which table, which cells; the menus behind them are walked by their words.
Lines editPicked(Random& random, const Stand& stand) {
    const KdDbTable& table = someTable(random, stand);
    return {command(L"@cells none"), command(L"EDITTABLECELL"), entity(L"@pick " + placeIn(random, table)),
            text(someCells(random, table.numRows(), table.numColumns()))};
}

Lines editSelected(Random& random, const Stand& stand) {
    return {selectSomeCells(random, stand), command(L"EDITTABLECELL")};
}

/// A reference that names no cells is asked for again.
Lines editMisspelt(Random& random, const Stand& stand) {
    constexpr const wchar_t* wrong[] = {L"1A", L"?", L"A1:B2:C3", L"Z", L"ZZ99", L"$A$1"};
    return {command(L"@cells none"), command(L"EDITTABLECELL"),
            entity(L"@pick " + placeIn(random, someTable(random, stand))), text(random.oneOf(wrong)), text(L"A1")};
}

constexpr const wchar_t* macros[] = {
    L"_Operation _insertABove",
    L"_Operation _insertBElow",
    L"_Operation _deleteROw",
    L"_Operation _insertLEft",
    L"_Operation _insertRIght",
    L"_Operation _deleteCOlumn",
    L"_Operation _Unmerge",
    L"_Operation _Merge _mergeAll",
    L"_Operation _Merge _mergeHorizontal",
    L"_Content _Lock",
    L"_Content _Unlock",
    L"_Format _Lock",
    L"_Format _Unlock",
    L"_Format _ALignment _TL",
    L"_Format _ALignment _MC",
    L"_Format _ALignment _BR",
    L"_Operation _insertFOrmula _Sum",
    L"_Operation _insertFOrmula _Equation",
    L"_Operation _Merge _mergeVertical",
};

Lines runMacro(Random& random, const Stand& stand) {
    return {selectSomeCells(random, stand),
            command(std::wstring(L"_EDITTABLECELL _ExecuteOneAction ") + random.oneOf(macros))};
}

Lines exportTable(Random& random, const Stand& stand) {
    return {command(L"@cells none"), command(L"TABLEEXPORT"),
            entity(L"@pick " + placeIn(random, someTable(random, stand)))};
}

Lines doNothing(Random&, const Stand&) {
    return {command(L"-TABLE")};
}

constexpr Action actions[] = {
    {"EDITTABLECELL of a pick", 50, hasSmallTable, editPicked},
    {"EDITTABLECELL of the selection", 50, hasSmallTable, editSelected},
    {"EDITTABLECELL misspelt", 5, hasSmallTable, editMisspelt},
    {"macro", 60, hasSmallTable, runMacro},
    {"TABLEEXPORT", 12, hasTable, exportTable},
    {"-TABLE", 1, nullptr, doNothing},
};

}  // namespace

const Road commandLineRoad = {"command line", actions};

}  // namespace endurance
