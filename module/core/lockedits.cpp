// Locking and unlocking of the selected cells.

#include <array>

#include "module/core/propertyedits.h"
#include "module/core/tablecommon.h"

namespace {

struct LockCommand {
    unsigned menuId;
    int state;
};

constexpr std::array kLockCommands = {
    LockCommand{.menuId = 1820, .state = KdDb::kCellStateContentLocked},
    LockCommand{.menuId = 1821, .state = KdDb::kCellStateFormatLocked},
    LockCommand{.menuId = 1822, .state = KdDb::kCellStateContentLocked | KdDb::kCellStateFormatLocked},
};

/// Every number that locks nothing unlocks, the menu's own 1819 among them.
KdDb::CellState stateOfCommand(unsigned menuId) {
    for (const LockCommand& row : kLockCommands) {
        if (row.menuId == menuId) return static_cast<KdDb::CellState>(row.state);
    }
    return KdDb::kCellStateNone;
}

}  // namespace

int CVqTableCommon::SettingLocked(unsigned menuId, KdDbObjectId table) {
    const KdDb::CellState state = stateOfCommand(menuId);
    return editSelectedCells(table, propertymark::kLock,
                             [&](KdDbTable& open, int row, int column) { open.setCellState(row, column, state); });
}
