// Carrying out of script lines.

#include "host/app/scriptactions.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <iterator>
#include <optional>

#include "host/app/promptactions.h"
#include "host/app/script.h"
#include "host/ed/commandline.h"
#include "host/mfc/messagebox.h"
#include "host/ui/automation/automation.h"
#include "host/ui/automation/find.h"
#include "host/ui/inplaceeditor/editorautomation.h"

namespace kdhost {
namespace {

using OnWindow = std::wstring (*)(const std::wstring& arguments);
using OnPrompt = std::wstring (*)(Editor& editor, const std::wstring& arguments);

/// An action on a control: its name, then what belongs to the action.
template <std::wstring (*act)(const std::wstring&, const std::wstring&)>
std::wstring onControl(const std::wstring& arguments) {
    const Split split = splitFirst(arguments);
    return split.first.empty() ? L"the name of a control is missing." : act(split.first, split.rest);
}

/// What acts on neither prompt nor window.
template <OnWindow act>
std::wstring anywhere(Editor&, const std::wstring& arguments) {
    return act(arguments);
}

std::wstring setClipboard(const std::wstring& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdWString(withLineEnds(text)));
    return {};
}

std::wstring expectMessage(const std::wstring& arguments) {
    const Split split = splitFirst(arguments);
    if (split.first == L"line") {
        return expectEqual(L"the last message", commandLine().lastMessage(), withLineEnds(split.rest));
    }
    if (split.first != L"box") return L"@message takes box or line.";
    if (lastMessageBoxText().empty()) return L"no message box was shown.";
    return expectEqual(L"the last message", lastMessageBoxText(), withLineEnds(split.rest));
}

std::wstring editCell(const std::wstring& arguments) {
    const Split split = splitFirst(arguments);
    return automation::edit(split.first, withLineEnds(split.rest));
}

std::wstring expectEditor(const std::wstring& wanted) {
    const std::optional<std::wstring> shown = automation::editorText();
    return shown ? expectEqual(L"the editor's text", *shown, withLineEnds(wanted)) : L"no cell is being edited.";
}

std::wstring expectInWindow(const std::wstring& arguments) {
    const Split split = splitFirst(arguments);
    if (split.first == L"prompt") return automation::topWindowName() + L" is open: no prompt waits.";
    if (split.first == L"editor") return expectEditor(split.rest);
    if (split.first == L"focus") return automation::expectFocus(split.rest);
    const Split property = splitFirst(split.rest);
    return automation::expect(split.first, property.first, property.rest);
}

std::wstring nothingOpenFor(const std::wstring& action) {
    return L"nothing is open that @" + action + L" acts on.";
}

std::wstring expectAtPrompt(Editor& editor, const std::wstring& arguments) {
    const Split split = splitFirst(arguments);
    return split.first == L"prompt" ? promptactions::expectPrompt(editor, split.rest) : expectInWindow(arguments);
}

/// To a window that stands beside the prompt when that has the keyboard.
std::wstring keyAtPrompt(Editor& editor, const std::wstring& name) {
    return automation::hasKeyboard() ? automation::key(name) : promptactions::key(editor, name);
}

/// On a control of a window that stands beside the prompt, or in the drawing.
template <OnPrompt inDrawing, OnWindow inWindow>
std::wstring besidePrompt(Editor& editor, const std::wstring& arguments) {
    const QString control = QString::fromStdWString(splitFirst(arguments).first);
    return automation::findControl(control) != nullptr ? inWindow(arguments) : inDrawing(editor, arguments);
}
constexpr OnPrompt contextAtPrompt = besidePrompt<promptactions::context, onControl<automation::context>>;
constexpr OnPrompt doubleClickAtPrompt = besidePrompt<promptactions::doubleClick, onControl<automation::doubleClick>>;

struct Action {
    const wchar_t* name;
    OnPrompt onPrompt;  ///< null for an action on windows only
    OnWindow onWindow;  ///< null for an action that no window takes
};

constexpr Action kActions[] = {
    {L"answer", nullptr, automation::answer},
    {L"cells", promptactions::cells, nullptr},
    {L"click", nullptr, onControl<automation::click>},
    {L"clipboard", anywhere<setClipboard>, setClipboard},
    {L"close", nullptr, [](const std::wstring&) { return automation::close(); }},
    {L"color", nullptr, automation::color},
    {L"context", contextAtPrompt, onControl<automation::context>},
    {L"document", promptactions::document, nullptr},
    {L"doubleclick", doubleClickAtPrompt, onControl<automation::doubleClick>},
    {L"drag", promptactions::drag, nullptr},
    {L"drop", nullptr, automation::drop},
    {L"edit", anywhere<editCell>, editCell},
    {L"expect", expectAtPrompt, expectInWindow},
    {L"file", nullptr, automation::file},
    {L"focus", nullptr, automation::focus},
    {L"key", keyAtPrompt, automation::key},
    {L"label", nullptr, automation::label},
    {L"menu", nullptr, automation::menu},
    {L"message", anywhere<expectMessage>, expectMessage},
    {L"move", promptactions::move, nullptr},
    {L"pick", promptactions::pick, nullptr},
    {L"select", nullptr, onControl<automation::select>},
    {L"set", nullptr, onControl<automation::set>},
    {L"shot", anywhere<automation::shot>, automation::shot},
    {L"type", nullptr, onControl<automation::type>},
};

/// Null when there is none.
const Action* findAction(const std::wstring& name) {
    const auto* found =
        std::find_if(std::begin(kActions), std::end(kActions), [&](const Action& a) { return a.name == name; });
    return found == std::end(kActions) ? nullptr : found;
}

std::wstring noSuchAction(const std::wstring& name) {
    return L"there is no action @" + name + L".";
}

}  // namespace

std::wstring actOnPrompt(Editor& editor, const std::wstring& line) {
    const Split split = splitFirst(line);
    const Action* action = findAction(split.first);
    if (action == nullptr) return noSuchAction(split.first);
    if (action->onPrompt != nullptr) return action->onPrompt(editor, split.rest);
    return automation::hasWindow() ? action->onWindow(split.rest) : nothingOpenFor(split.first);
}

std::wstring actOnWindow(const std::wstring& line) {
    const Split split = splitFirst(line);
    const Action* action = findAction(split.first);
    if (action == nullptr) return noSuchAction(split.first);
    if (action->onWindow != nullptr) return action->onWindow(split.rest);
    return automation::topWindowName() + L" is open: @" + split.first + L" doesn't reach past it.";
}

}  // namespace kdhost
