// What the state of a cell says about its locks.
#pragma once

#include "kd/db/dbenums.h"

/// Locked and read-only count alike.
struct CellLocks {
    bool content = false;
    bool format = false;

    constexpr explicit CellLocks(int state)
        : content((state & (KdDb::kCellStateContentLocked | KdDb::kCellStateContentReadOnly)) != 0),
          format((state & (KdDb::kCellStateFormatLocked | KdDb::kCellStateFormatReadOnly)) != 0) {}
};
