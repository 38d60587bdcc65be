// The keyword-driven editor of a table, the command EDITTABLECELL: all edits of the toolbar and the context menus
// by words typed at the command line, for people and for macros.
#pragma once

#include <cstdint>

#include "kd/db/objectid.h"

struct EditTableCellMenu;

/// One run of the command.
///
/// The menus take the table's id. It is null when the run works on the toolbar's table; the formulas then find the
/// table themselves, and everything else refuses or does nothing. A menu gives RTNORM when its parent is to go on,
/// and RTCAN when the whole command is to end.
class EditTableCellGUI {
public:
    EditTableCellGUI() = default;

    /// The whole command: the table and its cells, then the menus. The cells are no longer selected afterwards.
    void entry();

    int editCell_Operation(KdDbObjectId table);
    int editCell_Merge(KdDbObjectId table);
    int editCell_Formula(KdDbObjectId table);
    int editCell_Content(KdDbObjectId table);
    int editCell_Format(KdDbObjectId table);
    int editCell_Alignment(KdDbObjectId table);
    int editCell_Style(KdDbObjectId table);
    /// Does nothing, by design; RTNORM.
    int editCell_Datalink(KdDbObjectId table);
    /// From here on the run ends with the first reply at a menu below the main one. RTNORM.
    int editCell_ExecuteOneAction(KdDbObjectId table);

    /// Whether the content of some selected cell may be changed; true for the null id. The first answer about a
    /// table holds for the whole run, whatever is selected or locked later.
    bool canContentEdit(KdDbObjectId table);
    /// The same for the format; false for the null id.
    bool canFormatEdit(KdDbObjectId table);

private:
    int mainMenu(KdDbObjectId table);
    int runMenu(const EditTableCellMenu& menu, KdDbObjectId table);

    std::int32_t m_formatEditState = -1;   ///< 1 editable, 0 not, -1 not asked yet
    std::int32_t m_contentEditState = -1;  ///< the same
    bool m_executeOneAction = false;
};
