// The context menus of tables.
#pragma once

#include <memory>

#include "kd/db/dbenums.h"
#include "kd/ed/uicontext.h"
#include "kd/rx/kdstring.h"
#include "module/edit/contextmenu/tablemenu.h"

class KdDbTable;
class KdDbTableStyle;

/// Registered with the host for the class KdDbTable. It chooses the menu for a right click, brings its items into the
/// state that the table allows, and carries out what is chosen.
class CVqTableUIContext : public KdEdUIContext {
public:
    CVqTableUIContext();
    ~CVqTableUIContext() override;

    /// The menu of an indicator where the cursor lies on one, else that of the selected cells, else that of the table.
    /// Null unless exactly one table is given, and when it can't be opened.
    QMenu* getMenuContext(const KdRxClass* cls, const KdArray<KdDbObjectId>& ids) override;
    using KdEdUIContext::getMenuContext;
    /// Carries out a command on the table of the last menu: a number of TableResArr, another one of the host's, or
    /// 51000 + n for the table style at place n of the menu's list. What would change a table on a locked layer is
    /// dropped, and the table is kept then; otherwise the table is given up.
    void onCommand(unsigned int command) override;

protected:
    /// The menu of the row or column whose indicator lies under the cursor, with that row or column selected. False,
    /// with `menu` as it was, elsewhere.
    bool getIndicatorMenu(std::unique_ptr<TableMenu>& menu, KdDbObjectId id, KdDb::TableHitItem& hitItem);
    /// Builds the list of cell styles and puts it into the menu. False when the table's style can't be opened.
    bool addCellStyleMenu(TableMenu& parent, const KdDbTable& table, KdDb::TableHitItem hit, bool forIndicator);
    /// Fills the list of table styles, which is the sub-menu at position 0.
    void setTableStyleMenuItemState(TableMenu& menu, const KdDbTable& table);

private:
    void destroyMenus();
    void loadMenus();
    QMenu* menuOfTable(KdDbObjectId id);
    void setCellMenuItemState(TableMenu& menu, const KdDbTable& table);
    void setTableMenuItemState(TableMenu& menu, const KdDbTable& table);
    void setTableStyle(int place) const;

    // Sub-menus are wrapped for as long as the menu that they lie in lives.
    std::unique_ptr<TableMenu> m_currentMenu;
    TableMenu m_tableStyleMenu;
    TableMenu m_cellMenu;
    TableMenu m_cellStyleMenu;
    TableMenu m_rowIndicatorMenu;
    TableMenu m_columnIndicatorMenu;
    QPointer<QMenu> m_popup;
    KdArray<KdString> m_tableStyleNames;
    KdArray<KdString> m_cellStyleNames;

protected:
    KdDbObjectId m_tableId;  ///< the table that the menu is for; null between menus

private:
    std::unique_ptr<TableMenu> m_tableStyleList;
};
