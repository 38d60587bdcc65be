// Gestures on cells.

#include "host/app/cells/cellactions.h"

#include <QMenu>
#include <QPointer>

#include "host/app/cells/indicators.h"
#include "host/db/access.h"
#include "host/db/cellranges.h"
#include "host/db/tableaccess.h"
#include "host/draw/tablegeometry.h"
#include "host/ed/display.h"
#include "host/ed/editor.h"
#include "host/ed/picking.h"
#include "host/ed/uicontext.h"
#include "kd/db/table.h"

namespace kdhost {
namespace {

/// The keys that the cell editor takes as words of its own.
struct CellKey {
    int key;
    Qt::KeyboardModifiers modifiers;
    const wchar_t* word;
};

const CellKey kCellKeys[] = {
    {Qt::Key_Delete, Qt::NoModifier, L"*DELETE"},
    {Qt::Key_C, Qt::ControlModifier, L"*CTRLC"},
    {Qt::Key_V, Qt::ControlModifier, L"*CTRLV"},
    {Qt::Key_X, Qt::ControlModifier, L"*CTRLX"},
    {Qt::Key_Tab, Qt::NoModifier, L"*TAB"},
    {Qt::Key_Right, Qt::NoModifier, L"*RIGHT"},
    {Qt::Key_Up, Qt::NoModifier, L"*UP"},
    {Qt::Key_Left, Qt::NoModifier, L"*LEFT"},
    {Qt::Key_Backtab, Qt::ShiftModifier, L"*SHIFTTAB"},
    {Qt::Key_Tab, Qt::ShiftModifier, L"*SHIFTTAB"},
    {Qt::Key_Down, Qt::NoModifier, L"*DOWN"},
    {Qt::Key_PageUp, Qt::NoModifier, L"*PGUP"},
    {Qt::Key_PageDown, Qt::NoModifier, L"*PGDN"},
};

std::wstring wordFor(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    modifiers &= ~Qt::KeypadModifier;
    for (const CellKey& row : kCellKeys) {
        if (row.key == key && row.modifiers == modifiers) return row.word;
    }
    // A blank ends the answer before, as Enter does: it begins no text.
    const bool isCharacter = !text.isEmpty() && text.at(0).isPrint() && !text.at(0).isSpace();
    const bool isCommand = (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return isCharacter && !isCommand ? text.toStdWString() : std::wstring();
}

void sendToCellEditor(Editor& editor, const std::wstring& word) {
    editor.input().send(L"TABLEDIT " + word + L"\n");
}

/// The menu of an indicator leaves -1 for the columns of whole rows, or the rows of whole columns; the cell editor
/// wants a first cell, as a click on the indicator gives it one.
void selectOverFullSpan(Editor& editor, KdDbObjectId id) {
    const auto& table = *peek<KdDbTable>(id);
    const KdCellRange cells = table.getSubSelection();
    if (cells.m_topRow < 0 || cells.m_leftColumn < 0) dragOverCells(editor, id, draw::shownSelection(table));
}

/// The first menu that a context gives; the context keeps it.
QMenu* menuFor(const Editor& editor) {
    const std::vector<KdDbObjectId> selected = editor.pickFirst().objects();
    if (selected.empty()) return nullptr;
    KdArray<KdDbObjectId> ids;
    for (const KdDbObjectId& id : selected) ids.append(id);
    const KdRxClass* cls = peekObject(selected.front())->isA();
    const KdArray<KdEdUIContext*> contexts = contextsFor(cls);
    for (int i = 0; i < contexts.length(); ++i) {
        if (QMenu* menu = contexts[i]->getMenuContext(cls, ids)) return menu;
    }
    return nullptr;
}

}  // namespace

bool isIdle(const Editor& editor) {
    return editor.promptKind() == PromptKind::Command;
}

KdDbObjectId soleTable(const Editor& editor) {
    const std::vector<KdDbObjectId> selected = editor.pickFirst().objects();
    const bool isTable = selected.size() == 1 && peek<KdDbTable>(selected.front()) != nullptr;
    return isTable ? selected.front() : KdDbObjectId::kNull;
}

KdDbObjectId tableOfSelectedCells(const Editor& editor) {
    const KdDbObjectId id = soleTable(editor);
    const auto* table = peek<KdDbTable>(id);
    return table != nullptr && table->hasSubSelection() ? id : KdDbObjectId::kNull;
}

void dragOverCells(Editor& editor, KdDbObjectId id, const KdCellRange& cells) {
    const auto* table = peek<KdDbTable>(id);
    if (table == nullptr) return;
    selectCellsByUser(editor, id, tableState(*table).grownToMerges(cells));
    updateDisplay();
}

bool doubleClickAt(Editor& editor, const KdGePoint3d& world) {
    const auto cells = cellAt(editor, world);
    if (!cells) return false;
    dragOverCells(editor, cells->table, cells->range);
    sendToCellEditor(editor, {});
    return true;
}

bool sendKeyToCells(Editor& editor, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    const KdDbObjectId table = tableOfSelectedCells(editor);
    if (!isIdle(editor) || table.isNull()) return false;
    const std::wstring word = wordFor(key, modifiers, text);
    if (word.empty()) return false;
    selectOverFullSpan(editor, table);
    sendToCellEditor(editor, word);
    return true;
}

void selectForMenu(Editor& editor, const CellsOfTable& cells) {
    const bool isSole = cells.table == soleTable(editor);
    const auto* table = peek<KdDbTable>(cells.table);
    const bool areSelected = isSole && table->hasSubSelection() && holds(draw::shownSelection(*table), cells.range);
    if (!areSelected) dragOverCells(editor, cells.table, cells.range);
}

bool selectForMenu(Editor& editor, const KdGePoint3d& world) {
    const KdDbObjectId sole = soleTable(editor);
    if (const auto line = indicatorAt(sole, world)) {
        selectForMenu(editor, CellsOfTable{sole, line->cells});
        return true;
    }
    const std::vector<KdDbObjectId> hit = pickAt(editor, world);
    if (hit.empty()) return false;
    const std::vector<KdDbObjectId> selected = editor.pickFirst().objects();
    const bool isSelected = std::find(selected.begin(), selected.end(), hit.front()) != selected.end();
    const auto cell = cellAt(editor, world);
    if (cell && cell->table == sole) {
        selectForMenu(editor, *cell);
    } else if (!isSelected) {
        clickAt(editor, world, false);
        updateDisplay();
    }
    return true;
}

bool showContextMenu(Editor& editor, const QPoint& place) {
    const QPointer<QMenu> menu = menuFor(editor);
    if (menu == nullptr) return false;
    menu->exec(place);
    return true;
}

}  // namespace kdhost
