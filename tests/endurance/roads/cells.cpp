// Cells by mouse and keys: selecting, walking, emptying, and the editor in the cell.

#include "host/app/cells/cellactions.h"
#include "host/app/cells/grips.h"
#include "kd/db/table.h"
#include "tests/endurance/road.h"

namespace endurance {
namespace {

constexpr const wchar_t* walkingKeys[] = {L"RIGHT", L"LEFT",      L"UP",     L"DOWN",
                                          L"TAB",   L"SHIFT+TAB", L"PAGEUP", L"PAGEDOWN"};
constexpr const wchar_t* firstCharacters[] = {L"x", L"A", L"7", L"-", L"=", L"(", L"中"};

Lines select(Random& random, const Stand& stand) {
    return {selectSomeCells(random, stand)};
}

Lines selectNothing(Random&, const Stand&) {
    return {command(L"@cells none")};
}

Lines escape(Random&, const Stand&) {
    return {command(L"@key ESC")};
}

Lines walk(Random& random, const Stand&) {
    return {command(std::wstring(L"@key ") + random.oneOf(walkingKeys))};
}

Lines deleteContents(Random&, const Stand&) {
    return {command(L"@key DELETE")};
}

Lines beginWithCharacter(Random& random, const Stand&) {
    return {command(std::wstring(L"@key ") + random.oneOf(firstCharacters))};
}

Lines editByCommand(Random&, const Stand&) {
    return {command(L"TABLEDIT"), text(L"")};
}

Lines doubleClick(Random& random, const Stand& stand) {
    // Where something else lies above the cell it can't be edited.
    const auto place = clearPlaceIn(random, stand, someTable(random, stand));
    return {command(place ? L"@doubleclick " + *place : L"@cells none")};
}

Lines click(Random& random, const Stand& stand) {
    return {command(L"@pick " + placeIn(random, someTable(random, stand)))};
}

Lines clickMore(Random& random, const Stand& stand) {
    return {command(L"@pick +" + placeIn(random, someTable(random, stand)))};
}

Lines clickAnywhere(Random& random, const Stand&) {
    return {command(L"@pick " + somePlace(random))};
}

/// The command pastes, copies and walks by words, as the keys send them.
constexpr const wchar_t* words[] = {L"*TAB", L"*SHIFTTAB", L"*UP", L"*DELETE", L"*PGDN", L"typed"};

Lines editByWord(Random& random, const Stand&) {
    return {command(L"TABLEDIT"), text(random.oneOf(words))};
}

/// The grips that can be dragged now.
std::vector<KdGePoint3d> gripPlaces(const Stand& stand) {
    const KdDbObjectId table = kdhost::soleTable(stand.editor());
    std::vector<KdGePoint3d> places;
    if (table.isNull()) return places;
    for (const kdhost::Grip& grip : kdhost::gripsOf(table, stand.editor().view().shown())) {
        if (grip.kind != kdhost::Grip::Kind::Show) places.push_back(grip.place);
    }
    return places;
}

bool hasGrips(const Stand& stand) {
    return !gripPlaces(stand).empty();
}

Lines dragGrip(Random& random, const Stand& stand) {
    const KdGePoint3d from = random.oneOf(gripPlaces(stand));
    const KdGePoint3d to = from + KdGeVector3d(random.between(-40, 60), random.between(-60, 40), 0.0);
    return {command(L"@drag " + placeText(from) + L" " + placeText(to))};
}

Lines dragCells(Random& random, const Stand& stand) {
    const KdDbTable& table = someTable(random, stand);
    const std::wstring from = placeIn(random, table);
    return {command(L"@drag " + from + L" " + placeIn(random, table))};
}

constexpr Action actions[] = {
    {"select", 110, hasTable, select},
    {"selectNothing", 15, nullptr, selectNothing},
    {"escape", 10, nullptr, escape},
    {"walk", 60, hasSelectedCells, walk},
    {"deleteContents", 15, hasSelectedCells, deleteContents},
    {"character", 60, hasSelectedCells, beginWithCharacter},
    {"TABLEDIT", 40, hasSelectedCells, editByCommand},
    {"TABLEDITword", 15, hasSelectedCells, editByWord},
    {"doubleClick", 20, hasTable, doubleClick},
    {"click", 30, hasTable, click},
    {"clickMore", 8, hasTable, clickMore},
    {"drag a grip", 25, hasGrips, dragGrip},
    {"drag over cells", 20, hasTable, dragCells},
    {"clickAnywhere", 6, nullptr, clickAnywhere},
};

}  // namespace

const Road cellsRoad = {"cells", actions};

}  // namespace endurance
