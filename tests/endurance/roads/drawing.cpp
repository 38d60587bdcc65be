// What else is done in a drawing that holds tables: lines, blocks, layers, erasing, coordinates, views, variables.

#include <algorithm>

#include "kd/db/table.h"
#include "tests/endurance/road.h"

namespace endurance {
namespace {

bool hasMuch(const Stand& stand) {
    return stand.entities() > 12;
}

bool hasManyTables(const Stand& stand) {
    return stand.tables().size() > 2;
}

bool hasRoom(const Stand& stand) {
    return !hasMuch(stand);
}

bool mayInsert(const Stand& stand) {
    return hasRoom(stand) && !stand.blocks().empty();
}

bool mayMakeBlock(const Stand& stand) {
    return hasManyTables(stand) && stand.blocks().size() < 4 && !stand.hasLockedLayer();
}

Lines drawLine(Random& random, const Stand&) {
    return {command(L"@cells none"), command(L"LINE"), point(L"@pick " + somePlace(random)),
            point(L"@pick " + somePlace(random)), point(L"")};
}

Lines makeBlock(Random& random, const Stand& stand) {
    const std::wstring name = L"Block " + std::to_wstring(stand.blocks().size()) + random.number(100, 999);
    return {command(L"@cells none"),
            command(L"BLOCK"),
            text(name),
            point(L"@pick " + somePlace(random)),
            objects(L"@pick " + placeIn(random, someTable(random, stand))),
            objects(L"")};
}

Lines insertBlock(Random& random, const Stand& stand) {
    return {command(L"INSERT"), text(random.oneOf(stand.blocks())), point(L"@pick " + somePlace(random)),
            text(random.chance(50) ? L"" : L"0.5"), text(random.chance(50) ? L"" : L"30")};
}

Lines eraseTable(Random& random, const Stand& stand) {
    return {command(L"@cells none"), command(L"ERASE"), objects(L"@pick " + placeIn(random, someTable(random, stand))),
            objects(L"")};
}

Lines eraseSelected(Random&, const Stand&) {
    return {command(L"ERASE")};
}

Lines eraseSome(Random& random, const Stand&) {
    return {command(L"@cells none"), command(L"ERASE"), objects(L"@pick " + somePlace(random)), objects(L"")};
}

Lines list(Random& random, const Stand& stand) {
    return {command(L"LIST"), objects(L"@pick " + placeIn(random, someTable(random, stand))), objects(L"")};
}

constexpr const wchar_t* layerNames[] = {L"Tables", L"Walls", L"图层", L"0"};

Lines makeLayer(Random& random, const Stand&) {
    return {command(L"LAYER"), keyword(L"_Make"), text(random.oneOf(layerNames)), keyword(L"")};
}

template <bool locks>
Lines lockLayer(Random& random, const Stand& stand) {
    return {command(L"LAYER"), keyword(locks ? L"_LOck" : L"_Unlock"), text(random.oneOf(stand.layers())),
            keyword(L"")};
}

Lines setLayer(Random& random, const Stand& stand) {
    return {command(L"LAYER"), keyword(L"_Set"), text(random.oneOf(stand.layers())), keyword(L"")};
}

Lines turnCoordinates(Random& random, const Stand&) {
    return {command(L"UCS"), point(L"_Z"), text(random.number(-90, 90))};
}

Lines resetCoordinates(Random&, const Stand&) {
    return {command(L"UCS"), point(L"_World")};
}

constexpr const wchar_t* zooms[] = {L"_All", L"_Extents", L"2x", L"0.5x"};

Lines zoom(Random& random, const Stand&) {
    return {command(L"ZOOM"), keyword(random.oneOf(zooms))};
}

Lines regenerate(Random&, const Stand&) {
    return {command(L"REGEN")};
}

struct Variable {
    const wchar_t* name;
    int least;
    int most;
};
constexpr Variable variables[] = {{L"LWDISPLAY", 0, 1}, {L"TABLETOOLBAR", 0, 2}, {L"LUNITS", 1, 5},
                                  {L"LUPREC", 0, 8},    {L"AUNITS", 0, 4},       {L"AUPREC", 0, 8},
                                  {L"DIMZIN", 0, 15},   {L"MEASUREMENT", 0, 1},  {L"ANGDIR", 0, 1},
                                  {L"UNITMODE", 0, 1},  {L"ANGBASE", 0, 3}};

Lines setVariable(Random& random, const Stand&) {
    const Variable& variable = random.oneOf(variables);
    const Line value = text(random.number(variable.least, variable.most));
    if (random.chance(50)) return {command(variable.name), value};
    return {command(L"SETVAR"), text(variable.name), value};
}

Lines showToolbar(Random&, const Stand&) {
    return {command(L"TABLETOOLBAR"), text(L"1")};
}

Lines setTableStyle(Random& random, const Stand& stand) {
    return {command(L"CTABLESTYLE"), text(random.oneOf(stand.tableStyles()))};
}

Lines chooseLanguage(Random& random, const Stand&) {
    return {command(L"LANGUAGE"), keyword(random.chance(50) ? L"_English" : L"_Chinese")};
}

constexpr Action actions[] = {
    {"LINE", 8, hasRoom, drawLine},
    {"BLOCK", 6, mayMakeBlock, makeBlock},
    {"INSERT", 8, mayInsert, insertBlock},
    {"ERASE a table", 25, hasManyTables, eraseTable},
    {"ERASE what is selected", 6, hasManyTables, eraseSelected},
    {"ERASE anything", 10, hasMuch, eraseSome},
    {"LIST", 4, hasTable, list},
    {"LAYER Make", 5, nullptr, makeLayer},
    {"LAYER LOck", 5, nullptr, lockLayer<true>},
    {"LAYER Unlock", 12, nullptr, lockLayer<false>},
    {"LAYER Set", 4, nullptr, setLayer},
    {"UCS Z", 4, nullptr, turnCoordinates},
    {"UCS World", 4, nullptr, resetCoordinates},
    {"ZOOM", 5, nullptr, zoom},
    {"REGEN", 3, nullptr, regenerate},
    {"SETVAR", 8, nullptr, setVariable},
    {"TABLETOOLBAR", 6, nullptr, showToolbar},
    {"CTABLESTYLE", 4, nullptr, setTableStyle},
    {"LANGUAGE", 1, nullptr, chooseLanguage},
};

}  // namespace

const Road drawingRoad = {"drawing", actions};

}  // namespace endurance
