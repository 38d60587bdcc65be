// Which menu a right click on a table gets, and the states of the items that all its roads set.

#include "module/edit/contextmenu/tableuicontext.h"

#include "kd/db/table.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/contextmenu/menustate.h"
#include "module/exchange/clipdatamgr.h"

namespace {

const QLatin1String kColumnsEqually("IDR_BYCOLUMN_SIZEEQUALLY");
const QLatin1String kRowsEqually("IDR_BYROW_SIZEEQUALLY");
const QLatin1String kEditText("IDR_TABLECELL_EDITTEXT");
const QLatin1String kBackgroundFill("IDR_TABLECELL_BACKGROUNDFILL");

bool canPaste(const KdDbTable& table) {
    return CVqTableClipDataMgr().CanPasteTableCell(&table) != 0;
}

}  // namespace

CVqTableUIContext::CVqTableUIContext() = default;

CVqTableUIContext::~CVqTableUIContext() {
    destroyMenus();
}

void CVqTableUIContext::destroyMenus() {
    m_currentMenu.reset();
    m_tableStyleList.reset();
    for (TableMenu* menu :
         {&m_tableStyleMenu, &m_cellMenu, &m_cellStyleMenu, &m_columnIndicatorMenu, &m_rowIndicatorMenu}) {
        menu->DestroyMenu();
    }
}

void CVqTableUIContext::loadMenus() {
    m_cellMenu.LoadMenuW(kMenuFile, QStringLiteral("IDR_TABLECELL_MENU"));
    m_tableStyleMenu.LoadMenuW(kMenuFile, QStringLiteral("IDR_TABLESTYLE_MENU"));
    m_cellMenu.SetonCommand(this);
    m_tableStyleMenu.SetonCommand(this);
}

QMenu* CVqTableUIContext::getMenuContext(const KdRxClass*, const KdArray<KdDbObjectId>& ids) {
    const ResourceScope resources;
    destroyMenus();
    loadMenus();
    m_tableId = KdDbObjectId::kNull;
    if (ids.length() != 1) return nullptr;
    KdDb::TableHitItem hitItem = KdDb::kTableHitNone;
    m_popup = getIndicatorMenu(m_currentMenu, ids[0], hitItem) ? m_currentMenu->popup() : menuOfTable(ids[0]);
    if (m_popup != nullptr) m_tableId = ids[0];
    return m_popup;
}

/// Null when the table can't be opened.
QMenu* CVqTableUIContext::menuOfTable(KdDbObjectId id) {
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    if (!table) return nullptr;
    const bool hasCells = table->hasSubSelection();
    m_currentMenu = (hasCells ? m_cellMenu : m_tableStyleMenu).GetSubMenu(0);
    if (m_currentMenu == nullptr) return nullptr;
    if (hasCells) {
        setCellMenuItemState(*m_currentMenu, *table);
    } else {
        setTableMenuItemState(*m_currentMenu, *table);
    }
    return m_currentMenu->popup();
}

// Some items are found beside others: what stands ahead of the editing of text needs content that may be edited, what
// stands behind the fill needs a format that may be.
void CVqTableUIContext::setCellMenuItemState(TableMenu& menu, const KdDbTable& table) {
    bool content = false;
    bool format = false;
    CVqTableCommon::GetReadOnlyState(&table, content, format);
    allow(menu, QLatin1String("IDR_TABLECELL_CUT"), content);
    allow(menu, QLatin1String("IDR_TABLECELL_PASTE"), canPaste(table));
    allow(menu, QLatin1String("IDR_TABLECELL_MATCHCELL"), format);
    // Their answers are numbers: only a single column, or row, has nothing to share out.
    allow(menu, kColumnsEqually, CVqTableCommon::CanColumnSizeEqually(&table) != 1);
    allow(menu, kRowsEqually, CVqTableCommon::CanRowSizeEqually(&table) != 1);
    setLockingMenuItemState(menu, table);
    setInsertMenuItemState(menu, table);
    allow(menu, kEditText, content);
    allow(menu, menu.positionOf(kEditText) - 1, content);
    allow(menu, kBackgroundFill, format);
    allow(menu, QLatin1String("IDR_TABLECELL_BORDERS"), format);
    allow(menu, menu.positionOf(kBackgroundFill) + 1, format);
    allow(menu, QLatin1String("IDR_TABLECELL_DATAFORMAT"), format);
    setMergeMenuItemState(menu, table);
    allow(menu, QLatin1String("IDR_TABLECELL_DELETEALLCONTENT"), content);
    // The alignments are asked for their mark, which menus of the toolbar alone show: here none is ever set.
    const auto alignments = menu.GetSubMenu(menu.positionOf(kBackgroundFill) - 1);
    CVqTableCommon::SetAlignmentMenuState(&table, alignments.get());
}

void CVqTableUIContext::setTableMenuItemState(TableMenu& menu, const KdDbTable& table) {
    const bool isOneCell = table.numRows() == 1 && table.numColumns() == 1;
    allow(menu, kColumnsEqually, !isOneCell);
    allow(menu, kRowsEqually, !isOneCell);
    setTableStyleMenuItemState(menu, table);
}
