// Carrying out of script lines.

#include "host/app/scriptactions.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <iterator>

#include "host/app/cellreference.h"
#include "host/app/script.h"
#include "host/app/scriptrunner.h"
#include "host/db/access.h"
#include "host/db/tableaccess.h"
#include "host/ed/picking.h"
#include "host/ed/points.h"
#include "kd/db/table.h"

namespace kdhost {
namespace {

/// The first word of a text, and what follows the blank behind it.
struct Split {
    std::wstring first;
    std::wstring rest;
};

Split splitFirst(const std::wstring& text) {
    const std::size_t blank = text.find(L' ');
    if (blank == std::wstring::npos) return {text, {}};
    return {text.substr(0, blank), text.substr(blank + 1)};
}

void file(ScriptRunner& runner, const std::wstring& path) {
    const bool cancel = path == L"CANCEL";
    if (path.empty()) return runner.fail(L"@file takes a path or CANCEL.");
    if (!runner.answerFileDialog(cancel ? std::nullopt : std::optional(path))) {
        runner.fail(L"nothing is open that @file acts on.");
    }
}

bool takesPicks(PromptKind kind) {
    return kind != PromptKind::Keyword && kind != PromptKind::Text;
}

void pick(ScriptRunner& runner, const std::wstring& arguments) {
    const bool add = !arguments.empty() && arguments.front() == L'+';
    const auto point = parsePoint(add ? arguments.substr(1) : arguments, {});
    if (!point) return runner.fail(L"@pick takes X,Y or +X,Y.");
    Editor& editor = runner.editor();
    if (!takesPicks(editor.promptKind())) return runner.fail(L"the prompt takes no pick.");
    editor.input().put(add ? InputItem::Kind::AddPick : InputItem::Kind::Pick, *point);
}

/// "#N" names a table by its place in the dump, counted from 0; without it the current one is meant.
KdDbObjectId tableOf(const Editor& editor, const std::wstring& place) {
    std::vector<KdDbObjectId> tables = entitiesOfCurrentSpace(editor.database());
    std::erase_if(tables, [](KdDbObjectId id) { return peek<KdDbTable>(id) == nullptr; });
    std::size_t number = 0;
    if (place.empty() || place.size() > 9) return KdDbObjectId::kNull;
    for (wchar_t digit : place) {
        if (digit < L'0' || digit > L'9') return KdDbObjectId::kNull;
        number = number * 10 + static_cast<std::size_t>(digit - L'0');
    }
    return number < tables.size() ? tables[number] : KdDbObjectId::kNull;
}

KdGePoint3d centerOf(const KdDbTable& table, const KdCellRange& cells) {
    KdGePoint3dArray corners;
    table.getCellExtents(cells.m_topRow, cells.m_leftColumn, true, corners);
    return corners[0] + (corners[3] - corners[0]) / 2.0;
}

void cells(ScriptRunner& runner, const std::wstring& arguments) {
    Editor& editor = runner.editor();
    if (arguments == L"none") return selectNothingByUser(editor);
    const bool named = !arguments.empty() && arguments.front() == L'#';
    const Split split = named ? splitFirst(arguments.substr(1)) : Split{{}, arguments};
    const KdDbObjectId id = named ? tableOf(editor, split.first) : editor.pickFirst().currentTable();
    const auto* table = peek<KdDbTable>(id);
    if (table == nullptr) return runner.fail(L"there is no such table.");
    const auto range = parseCells(split.rest, table->numRows(), table->numColumns());
    if (!range) return runner.fail(L"\"" + split.rest + L"\" names no cells of the table.");

    if (editor.promptKind() == PromptKind::Command) {
        selectCellsByUser(editor, id, tableState(*table).grownToMerges(*range));
    } else if (takesPicks(editor.promptKind())) {
        editor.input().put(InputItem::Kind::Pick, centerOf(*table, *range));
    } else {
        runner.fail(L"the prompt takes no cells.");
    }
}

void document(ScriptRunner& runner, const std::wstring& number) {
    Editor& editor = runner.editor();
    if (editor.promptKind() != PromptKind::Command) return runner.fail(L"a command runs.");
    if (number.empty()) return runner.fail(L"@document takes a number.");
    editor.input().type(L"DOCUMENT " + number + L"\n");
}

struct Key {
    const wchar_t* name;
    void (*press)(InputQueue& queue);
};

constexpr Key kKeys[] = {
    {L"ESC", [](InputQueue& queue) { queue.put(InputItem::Kind::Escape); }},
    {L"ENTER", [](InputQueue& queue) { queue.type(L"\n"); }},
    {L"SPACE", [](InputQueue& queue) { queue.type(L" "); }},
};

void key(ScriptRunner& runner, const std::wstring& name) {
    const auto* found = std::find_if(std::begin(kKeys), std::end(kKeys), [&](const Key& k) { return k.name == name; });
    if (found == std::end(kKeys)) return runner.fail(L"nothing is open that @key " + name + L" acts on.");
    found->press(runner.editor().input());
}

void requireEqual(ScriptRunner& runner, const wchar_t* what, const std::wstring& found, const std::wstring& wanted) {
    if (found != wanted) runner.fail(std::wstring(what) + L" is \"" + found + L"\", not \"" + wanted + L"\".");
}

void message(ScriptRunner& runner, const std::wstring& arguments) {
    const Split split = splitFirst(arguments);
    if (split.first == L"line") {
        requireEqual(runner, L"the last message", commandLine().lastMessage(), withLineEnds(split.rest));
    } else if (split.first == L"box") {
        runner.fail(L"no message box was shown.");
    } else {
        runner.fail(L"@message takes box or line.");
    }
}

/// A prompt as it is read, without line ends and blanks around it.
std::wstring visible(const std::wstring& prompt) {
    const wchar_t* const blanks = L" \r\n";
    const std::size_t first = prompt.find_first_not_of(blanks);
    if (first == std::wstring::npos) return {};
    return prompt.substr(first, prompt.find_last_not_of(blanks) - first + 1);
}

void expect(ScriptRunner& runner, const std::wstring& arguments) {
    const Split split = splitFirst(arguments);
    if (split.first != L"prompt") return runner.fail(L"nothing is open that @expect " + split.first + L" acts on.");
    requireEqual(runner, L"the prompt", visible(runner.editor().promptText()), visible(split.rest));
}

void clipboard(ScriptRunner&, const std::wstring& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdWString(withLineEnds(text)));
}

struct Action {
    const wchar_t* name;
    /// Null for an action on a window of which none is open.
    void (*perform)(ScriptRunner& runner, const std::wstring& arguments);
};

constexpr Action kActions[] = {
    {L"answer", nullptr},      {L"cells", cells},     {L"click", nullptr},   {L"clipboard", clipboard},
    {L"close", nullptr},       {L"color", nullptr},   {L"context", nullptr}, {L"document", document},
    {L"doubleclick", nullptr}, {L"drop", nullptr},    {L"edit", nullptr},    {L"expect", expect},
    {L"file", file},           {L"focus", nullptr},   {L"key", key},         {L"label", nullptr},
    {L"menu", nullptr},        {L"message", message}, {L"pick", pick},       {L"select", nullptr},
    {L"set", nullptr},         {L"shot", nullptr},    {L"type", nullptr},
};

}  // namespace

void performAction(ScriptRunner& runner, const std::wstring& line) {
    const Split split = splitFirst(line);
    const auto* action =
        std::find_if(std::begin(kActions), std::end(kActions), [&](const Action& a) { return a.name == split.first; });
    if (action == std::end(kActions)) return runner.fail(L"there is no action @" + split.first + L".");
    if (action->perform == nullptr) return runner.fail(L"nothing is open that @" + split.first + L" acts on.");
    action->perform(runner, split.rest);
}

}  // namespace kdhost
