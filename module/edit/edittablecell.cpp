// One run of EDITTABLECELL, up to its menus: which table, and which of its cells.

#include "module/edit/edittablecell.h"

#include <algorithm>
#include <optional>

#include "kd/ad/display.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "module/core/tablepick.h"
#include "module/edit/cellreference.h"
#include "module/edit/menutexts.h"

namespace {

/// Asks until the answer names cells; nothing when the user cancels.
std::optional<KdCellRange> askForCells() {
    const CStdStr<wchar_t> prompt = loadText(menutexts::enterCells);
    const CStdStr<wchar_t> error = loadText(menutexts::invalidCells);
    ReplyBuffer reply{};
    while (kdedGetString(0, prompt, reply.data()) == RTNORM) {
        if (const auto cells = parseCellReference(reply.data())) return cells;
        kdedPrompt(error);
    }
    return std::nullopt;
}

/// A place behind the table's end becomes the last row or column; -1 stays.
KdCellRange clamped(const KdCellRange& cells, const KdDbTable& table) {
    const int lastRow = table.numRows() - 1;
    const int lastColumn = table.numColumns() - 1;
    return {std::min(cells.m_topRow, lastRow), std::min(cells.m_leftColumn, lastColumn),
            std::min(cells.m_bottomRow, lastRow), std::min(cells.m_rightColumn, lastColumn)};
}

/// Lets the user pick a table and name its cells, which are then selected. The null id when the user cancels, or
/// picks nothing, several objects, no table or one that can't be written: the command then ends without a word.
///
/// The table stays open for write while the user names the cells, so that nobody changes its size meanwhile.
KdDbObjectId selectCells() {
    KdGePoint3d point;
    const KdDbObjectId id = pickOneObject(loadText(menutexts::pickTable), point);
    if (id.isNull()) return id;
    OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    if (!table) return KdDbObjectId::kNull;
    CVqTableCommon::ShowTableToolbar(id, false);
    table->clearSubSelection();

    const auto cells = askForCells();
    if (!cells) return KdDbObjectId::kNull;
    table->clearSubSelection();
    table->setSubSelection(clamped(*cells, *table));
    table.close();
    kddbQueueForRegen(&id, 1);
    return id;
}

void clearSelection(KdDbObjectId id) {
    if (id.isNull()) return;
    const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    if (table) table->clearSubSelection();
}

/// The cached answer; where there is none, asks for it and keeps it, unless the table can't be opened.
bool editable(std::int32_t& cached, KdDbObjectId id, bool answerWithoutTable, bool content) {
    if (cached != -1) return cached >= 1;
    if (id.isNull()) return answerWithoutTable;
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    if (!table) return false;
    bool contentEditable = false;
    bool formatEditable = false;
    CVqTableCommon::GetReadOnlyState(table.get(), contentEditable, formatEditable);
    const bool answer = content ? contentEditable : formatEditable;
    cached = answer ? 1 : 0;
    return answer;
}

}  // namespace

void EditTableCellGUI::entry() {
    // With cells selected in the toolbar's table the run is about these, and the table's id stays null.
    KdCellRange toolbarCells;
    KdDbObjectId table;
    if (!CVqTableCommon::GetSelectRange(toolbarCells)) {
        table = selectCells();
        if (table.isNull()) return;
    }
    mainMenu(table);
    clearSelection(table);
}

bool EditTableCellGUI::canContentEdit(KdDbObjectId table) {
    return editable(m_contentEditState, table, true, true);
}

bool EditTableCellGUI::canFormatEdit(KdDbObjectId table) {
    return editable(m_formatEditState, table, false, false);
}
