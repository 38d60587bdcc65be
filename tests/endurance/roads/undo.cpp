// U, UNDO and REDO.

#include "tests/endurance/road.h"

namespace endurance {
namespace {

bool canUndo(const Stand& stand) {
    return stand.canUndo();
}

bool canRedo(const Stand& stand) {
    return stand.canRedo();
}

Lines undoOne(Random&, const Stand&) {
    return {command(L"U")};
}

Lines undoSome(Random& random, const Stand&) {
    return {command(L"UNDO"), text(random.number(1, 4))};
}

Lines redo(Random&, const Stand&) {
    return {command(L"REDO")};
}

constexpr Action actions[] = {
    {"U", 35, canUndo, undoOne},
    {"UNDO", 10, canUndo, undoSome},
    {"REDO", 60, canRedo, redo},
};

}  // namespace

const Road undoRoad = {"undo", actions};

}  // namespace endurance
