// The check marks of the toolbar's menus: each shows what the selected cells have in common, and nothing where they
// differ. What an earlier selection left in a menu goes first.

#include "module/core/celllocks.h"
#include "module/core/tablecommon.h"
#include "module/edit/tableditmenu.h"

namespace {

constexpr int kFirstFormatCommand = 1823;
constexpr int kFirstAlignmentCommand = 1802;

/// Positions in the menu of locks.
enum LockItem : int { kUnlockedItem = 0, kContentItem = 1, kFormatItem = 2, kBothItem = 3 };

constexpr LockItem itemOfState(int state) {
    const CellLocks locks(state);
    if (locks.content) return locks.format ? kBothItem : kContentItem;
    return locks.format ? kFormatItem : kUnlockedItem;
}

/// The menu without any marks; null when it is of another class.
VqTableditMenu* cleared(KdUiMenu* menu) {
    auto* own = dynamic_cast<VqTableditMenu*>(menu);
    if (own != nullptr) own->ResetMenuItems();
    return own;
}

}  // namespace

bool CVqTableCommon::SetFormatMenuState(const KdDbTable* table, KdUiMenu* menu) {
    VqTableditMenu* own = cleared(menu);
    if (own == nullptr) return false;
    KdValue::DataType type = KdValue::kUnknown;
    KdValue::UnitType unit = KdValue::kUnitless;
    if (GetDataType(table, type, unit)) {
        own->CheckMenuItem(GetDataFormatToMenuId(type, unit) - kFirstFormatCommand, kMenuItemChecked);
    }
    return true;
}

bool CVqTableCommon::SetAlignmentMenuState(const KdDbTable* table, KdUiMenu* menu) {
    VqTableditMenu* own = cleared(menu);
    if (own == nullptr) return false;
    KdDb::CellAlignment alignment = KdDb::kTopLeft;
    if (GetCellAlignment(table, alignment)) {
        own->CheckMenuItem(GetAlignmentToMenuId(alignment) - kFirstAlignmentCommand, kMenuItemChecked);
    }
    return true;
}

bool CVqTableCommon::SetLockingMenuState(const KdDbTable* table, KdUiMenu* menu) {
    VqTableditMenu* own = cleared(menu);
    if (own == nullptr) return false;
    KdDb::CellState state = KdDb::kCellStateNone;
    if (!GetCellState(table, state)) return true;
    own->CheckMenuItem(itemOfState(state), kMenuItemChecked);
    // Content that is read-only hides that the format is: one item is disabled at most.
    if ((state & KdDb::kCellStateContentReadOnly) != 0) {
        own->EnableMenuItem(kContentItem, kMenuItemGrayed | kMenuItemDisabled);
    } else if ((state & KdDb::kCellStateFormatReadOnly) != 0) {
        own->EnableMenuItem(kFormatItem, kMenuItemGrayed | kMenuItemDisabled);
    }
    return true;
}
