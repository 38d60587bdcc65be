// The keys that scripts press, by their names.

#include "host/ui/automation/keys.h"

#include <array>

#include "host/ui/automation/automation.h"
#include "host/ui/automation/find.h"
#include "host/ui/automation/realinput.h"

namespace kdhost::automation {

namespace {

struct NamedKey {
    const wchar_t* name;
    int key;
    const char* text;
};

constexpr std::array kKeys = {
    NamedKey{L"ENTER", Qt::Key_Return, "\r"},
    NamedKey{L"ESC", Qt::Key_Escape, ""},
    NamedKey{L"TAB", Qt::Key_Tab, "\t"},
    NamedKey{L"SPACE", Qt::Key_Space, " "},
    NamedKey{L"DELETE", Qt::Key_Delete, ""},
    NamedKey{L"BACKSPACE", Qt::Key_Backspace, ""},
    NamedKey{L"INSERT", Qt::Key_Insert, ""},
    NamedKey{L"UP", Qt::Key_Up, ""},
    NamedKey{L"DOWN", Qt::Key_Down, ""},
    NamedKey{L"LEFT", Qt::Key_Left, ""},
    NamedKey{L"RIGHT", Qt::Key_Right, ""},
    NamedKey{L"HOME", Qt::Key_Home, ""},
    NamedKey{L"END", Qt::Key_End, ""},
    NamedKey{L"PAGEUP", Qt::Key_PageUp, ""},
    NamedKey{L"PAGEDOWN", Qt::Key_PageDown, ""},
    NamedKey{L"MENU", Qt::Key_Menu, ""},
    NamedKey{L"F1", Qt::Key_F1, ""},
    NamedKey{L"F2", Qt::Key_F2, ""},
    NamedKey{L"F3", Qt::Key_F3, ""},
    NamedKey{L"F4", Qt::Key_F4, ""},
    NamedKey{L"F5", Qt::Key_F5, ""},
    NamedKey{L"F6", Qt::Key_F6, ""},
    NamedKey{L"F7", Qt::Key_F7, ""},
    NamedKey{L"F8", Qt::Key_F8, ""},
    NamedKey{L"F9", Qt::Key_F9, ""},
    NamedKey{L"F10", Qt::Key_F10, ""},
    NamedKey{L"F11", Qt::Key_F11, ""},
    NamedKey{L"F12", Qt::Key_F12, ""},
};

struct Modifier {
    const wchar_t* prefix;
    Qt::KeyboardModifier modifier;
};

constexpr std::array kModifiers = {
    Modifier{L"CTRL+", Qt::ControlModifier},
    Modifier{L"SHIFT+", Qt::ShiftModifier},
};

/// Takes the modifiers off the front of a key's name.
Qt::KeyboardModifiers takeModifiers(std::wstring& name) {
    Qt::KeyboardModifiers modifiers;
    for (const Modifier& known : kModifiers) {
        const std::wstring prefix = known.prefix;
        if (name.rfind(prefix, 0) != 0) continue;
        modifiers |= known.modifier;
        name.erase(0, prefix.size());
    }
    return modifiers;
}

}  // namespace

std::optional<Stroke> strokeOf(std::wstring name) {
    const Qt::KeyboardModifiers modifiers = takeModifiers(name);
    for (const NamedKey& known : kKeys) {
        if (name != known.name) continue;
        const bool backwards = known.key == Qt::Key_Tab && (modifiers & Qt::ShiftModifier) != 0;
        return Stroke{backwards ? Qt::Key_Backtab : known.key, modifiers, QString::fromLatin1(known.text)};
    }
    if (name.size() != 1) return std::nullopt;
    const QString character = qt(name);
    const bool isCommand = (modifiers & Qt::ControlModifier) != 0;
    return Stroke{character.toUpper().at(0).unicode(), modifiers, isCommand ? QString() : character};
}

std::wstring key(const std::wstring& name) {
    const std::optional<Stroke> stroke = strokeOf(name);
    if (!stroke) return L"there is no key " + name + L".";
    if (topWindow() == nullptr) return L"no window is open.";
    pressKey(stroke->key, stroke->modifiers, stroke->text);
    return {};
}

}  // namespace kdhost::automation
