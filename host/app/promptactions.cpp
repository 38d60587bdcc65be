// What scripts do to prompts: picks, cells, keys, another document.

#include "host/app/promptactions.h"

#include <QCursor>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

#include "host/app/cellreference.h"
#include "host/app/cells/cellactions.h"
#include "host/app/cells/cellmouse.h"
#include "host/app/cells/indicators.h"
#include "host/app/script.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/tableaccess.h"
#include "host/ed/editor.h"
#include "host/ed/picking.h"
#include "host/ed/points.h"
#include "host/rx/numbertext.h"
#include "host/ui/automation/keys.h"
#include "kd/db/table.h"

namespace kdhost::promptactions {
namespace {

bool takesPicks(PromptKind kind) {
    return kind != PromptKind::Keyword && kind != PromptKind::Text;
}

}  // namespace

std::wstring pick(Editor& editor, const std::wstring& arguments) {
    const bool add = !arguments.empty() && arguments.front() == L'+';
    const auto point = parsePoint(add ? arguments.substr(1) : arguments, {});
    if (!point) return L"@pick takes X,Y or +X,Y.";
    if (!takesPicks(editor.promptKind())) return L"the prompt takes no pick.";
    editor.input().put(add ? InputItem::Kind::AddPick : InputItem::Kind::Pick, *point);
    return {};
}

namespace {

ViewPoint viewPointAt(const Editor& editor, const KdGePoint3d& world) {
    const View& view = editor.view();
    return {world, view.shown().toPixels(world), view.unitsPerPixel(), Qt::NoModifier, Qt::LeftButton};
}

}  // namespace

std::wstring drag(Editor& editor, const std::wstring& arguments) {
    const Split split = splitFirst(arguments);
    const auto from = parsePoint(split.first, {});
    const auto to = parsePoint(split.rest, {});
    if (!from || !to) return L"@drag takes X,Y X,Y.";
    if (!isIdle(editor) && editor.promptKind() != PromptKind::Cells) return L"the prompt takes no drag.";
    CellMouse mouse;
    mouse.press(viewPointAt(editor, *from));
    mouse.move(viewPointAt(editor, *to));
    mouse.release(viewPointAt(editor, *to));
    return {};
}

std::wstring move(Editor& editor, const std::wstring& arguments) {
    const auto point = parsePoint(arguments, {});
    if (!point) return L"@move takes X,Y.";
    if (editor.promptKind() != PromptKind::Drag) return L"nothing follows the cursor.";
    editor.input().put(InputItem::Kind::Move, *point);
    return {};
}

namespace {

/// "#N" names a table by its place in the dump, counted from 0; without it the current one is meant.
KdDbObjectId tableOf(const Editor& editor, const std::wstring& place) {
    std::vector<KdDbObjectId> tables = entitiesOfCurrentSpace(editor.database());
    std::erase_if(tables, [](KdDbObjectId id) { return peek<KdDbTable>(id) == nullptr; });
    const int number = wholeNumberFrom(place).value_or(-1);
    const bool isPlace = number >= 0 && number < static_cast<int>(tables.size());
    return isPlace ? tables[static_cast<std::size_t>(number)] : KdDbObjectId::kNull;
}

KdGePoint3d centerOf(const KdDbTable& table, const KdCellRange& cells) {
    KdGePoint3dArray corners;
    table.getCellExtents(cells.m_topRow, cells.m_leftColumn, true, corners);
    return corners[0] + (corners[3] - corners[0]) / 2.0;
}

}  // namespace

std::wstring cells(Editor& editor, const std::wstring& arguments) {
    if (arguments == L"none") {
        selectNothingByUser(editor);
        return {};
    }
    const bool named = !arguments.empty() && arguments.front() == L'#';
    const Split split = named ? splitFirst(arguments.substr(1)) : Split{{}, arguments};
    const KdDbObjectId id = named ? tableOf(editor, split.first) : editor.pickFirst().currentTable();
    const auto* table = peek<KdDbTable>(id);
    if (table == nullptr) return L"there is no such table.";
    const auto range = parseCells(split.rest, table->numRows(), table->numColumns());
    if (!range) return L"\"" + split.rest + L"\" names no cells of the table.";

    if (editor.promptKind() == PromptKind::Command || editor.promptKind() == PromptKind::Cells) {
        editor.input().put(CellsOfTable{id, tableState(*table).grownToMerges(*range)});
    } else if (takesPicks(editor.promptKind())) {
        editor.input().put(InputItem::Kind::Pick, centerOf(*table, *range));
    } else {
        return L"the prompt takes no cells.";
    }
    return {};
}

std::wstring document(Editor& editor, const std::wstring& number) {
    if (editor.promptKind() != PromptKind::Command) return L"a command runs.";
    if (number.empty()) return L"@document takes a number.";
    editor.input().type(L"DOCUMENT " + number + L"\n");
    return {};
}

namespace {

/// What the right button is pressed on: a place of the drawing, where cells of the current table may be named.
struct UnderMenu {
    KdGePoint3d place;
    std::optional<CellsOfTable> cells;
};

/// A cell of the current table or an indicator of it; none for a text that names neither.
std::optional<UnderMenu> cellsUnderMenu(const Editor& editor, const std::wstring& text) {
    const KdDbObjectId id = editor.pickFirst().currentTable();
    const auto* table = peek<KdDbTable>(id);
    if (table == nullptr) return std::nullopt;
    const Split split = splitFirst(text);
    const bool isLine = split.first == L"row" || split.first == L"column";
    const std::wstring reference = isLine ? split.rest + L":" + split.rest : text;
    const auto range = parseCells(reference, table->numRows(), table->numColumns());
    if (!range) return std::nullopt;
    const bool isRow = split.first == L"row";
    const KdGePoint3d place = isLine ? middleOfIndicator(*table, isRow, isRow ? range->m_topRow : range->m_leftColumn)
                                     : centerOf(*table, *range);
    return UnderMenu{place, CellsOfTable{id, *range}};
}

/// Menus are told where they are asked for by the cursor.
void moveCursorTo(const Editor& editor, const KdGePoint3d& place) {
    KdGePoint3d pixels = place;
    editor.view().worldToScreen(pixels);
    int left = 0, top = 0;
    editor.view().screenToClient(left, top);
    QCursor::setPos(static_cast<int>(std::lround(pixels.x)) - left, static_cast<int>(std::lround(pixels.y)) - top);
}

/// Empty when the right button has selected something, else why it hasn't.
std::wstring selectUnderMenu(Editor& editor, const std::wstring& arguments) {
    if (const auto point = parsePoint(arguments, {})) {
        moveCursorTo(editor, *point);
        return selectForMenu(editor, *point) ? std::wstring() : L"nothing lies there.";
    }
    const auto under = cellsUnderMenu(editor, arguments);
    if (!under) return L"\"" + arguments + L"\" is no place and names no cells of the table.";
    moveCursorTo(editor, under->place);
    selectForMenu(editor, *under->cells);
    return {};
}

}  // namespace

std::wstring doubleClick(Editor& editor, const std::wstring& arguments) {
    const auto point = parsePoint(arguments, {});
    if (!point) return L"@doubleclick takes X,Y, or the name of a control and a row.";
    if (!isIdle(editor)) return L"a command runs.";
    return doubleClickAt(editor, *point) ? std::wstring() : L"no cell lies there.";
}

std::wstring context(Editor& editor, const std::wstring& arguments) {
    if (!isIdle(editor)) return L"a command runs.";
    if (std::wstring failure = selectUnderMenu(editor, arguments); !failure.empty()) return failure;
    return showContextMenu(editor, QCursor::pos()) ? std::wstring() : L"what is selected has no context menu.";
}

namespace {

struct Key {
    const wchar_t* name;
    void (*press)(InputQueue& queue);
};

constexpr Key kKeys[] = {
    {L"ESC", [](InputQueue& queue) { queue.put(InputItem::Kind::Escape); }},
    {L"ENTER", [](InputQueue& queue) { queue.type(L"\n"); }},
    {L"SPACE", [](InputQueue& queue) { queue.type(L" "); }},
};

/// A prompt as it is read, without line ends and blanks around it.
std::wstring visible(const std::wstring& prompt) {
    const wchar_t* const blanks = L" \r\n";
    const std::size_t first = prompt.find_first_not_of(blanks);
    if (first == std::wstring::npos) return {};
    return prompt.substr(first, prompt.find_last_not_of(blanks) - first + 1);
}

}  // namespace

std::wstring key(Editor& editor, const std::wstring& name) {
    const auto stroke = automation::strokeOf(name);
    if (stroke && sendKeyToCells(editor, stroke->key, stroke->modifiers, stroke->text)) return {};
    if (name.size() == 1) {
        editor.input().type(name);
        return {};
    }
    const auto* found = std::find_if(std::begin(kKeys), std::end(kKeys), [&](const Key& k) { return k.name == name; });
    if (found == std::end(kKeys)) return L"nothing is open that @key " + name + L" acts on.";
    found->press(editor.input());
    return {};
}

std::wstring expectPrompt(const Editor& editor, const std::wstring& text) {
    return expectEqual(L"the prompt", visible(editor.promptText()), visible(text));
}

}  // namespace kdhost::promptactions
