// The menus of row and column indicators.

#include <memory>
#include <optional>

#include "kd/ad/document.h"
#include "kd/db/table.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/contextmenu/menustate.h"
#include "module/edit/contextmenu/tableuicontext.h"
#include "win32/input.h"

namespace {

constexpr unsigned kLockText = 6101;

struct CloseTable {
    void operator()(KdDbTable* table) const { table->close(); }
};
/// Closed at the end, unless it is released: on one way out the table stays open.
using TableForRead = std::unique_ptr<KdDbTable, CloseTable>;

TableForRead openForRead(KdDbObjectId id) {
    KdDbObject* object = nullptr;
    if (kddbOpenObject(object, id, KdDb::kForRead, false, KdDbTable::desc()) != Kdad::eOk) return nullptr;
    return TableForRead(static_cast<KdDbTable*>(object));
}

/// The indicator under the cursor, and the row or column that it stands for.
struct Indicator {
    KdDb::TableHitItem item = KdDb::kTableHitNone;
    KdCellRange range;
};

/// Nothing where the cursor lies on a cell or beside the table.
std::optional<Indicator> indicatorUnderCursor(const KdDbTable& table) {
    CPoint cursor;
    GetCursorPos(&cursor);
    int row = 0;
    int column = 0;
    int content = 0;
    KdDb::TableHitItem item = KdDb::kTableHitRowIndicator;
    if (!CVqTableCommon::TableHitTest(&table, cursor, row, column, content, item)) return std::nullopt;
    if (item == KdDb::kTableHitRowIndicator) return Indicator{item, {row, -1, row, -1}};
    if (item == KdDb::kTableHitColumnIndicator) return Indicator{item, {-1, column, -1, column}};
    return std::nullopt;
}

/// False when the document can't be locked; then nothing is selected.
bool selectLocked(KdDbTable& table, const KdCellRange& range) {
    KdApDocManager* manager = kdDocManagerPtr();
    KdApDocument* document = manager->curDocument();
    const CStdStr<wchar_t> description = loadText(kLockText);
    if (manager->lockDocument(document, KdAp::kWrite, L"TableIndicatorMenu", description.c_str(), true) != Kdad::eOk) {
        return false;
    }
    if (table.upgradeOpen() == Kdad::eOk) {
        table.setSubSelection(range);
        table.downgradeOpen();
    }
    manager->unlockDocument(document);
    return true;
}

}  // namespace

bool CVqTableUIContext::getIndicatorMenu(std::unique_ptr<TableMenu>& menu, KdDbObjectId id,
                                         KdDb::TableHitItem& hitItem) {
    hitItem = KdDb::kTableHitNone;
    TableForRead table = openForRead(id);
    if (table == nullptr) return false;
    const std::optional<Indicator> indicator = indicatorUnderCursor(*table);
    if (!indicator) return false;
    if (!selectLocked(*table, indicator->range)) {
        // A rule of failure: the table is left open as it is.
        static_cast<void>(table.release());
        return false;
    }
    hitItem = indicator->item;
    const bool isRow = hitItem == KdDb::kTableHitRowIndicator;
    TableMenu& loaded = isRow ? m_rowIndicatorMenu : m_columnIndicatorMenu;
    loaded.SetonCommand(this);
    loaded.LoadMenuW(kMenuFile,
                     isRow ? QStringLiteral("IDR_BYROW_INSERT_MENU") : QStringLiteral("IDR_BYCOLUMN_INSERT_MENU"));
    std::unique_ptr<TableMenu> items = loaded.GetSubMenu(0);
    if (items == nullptr) return false;
    addCellStyleMenu(*items, *table, hitItem, true);
    menu = std::move(items);
    setIndicatorMenuItemState(*menu, *table);
    return true;
}
