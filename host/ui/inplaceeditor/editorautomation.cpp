// Actions of scripts on the in-place editor.

#include "host/ui/inplaceeditor/editorautomation.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <array>

#include "host/ui/automation/automation.h"
#include "host/ui/automation/realinput.h"
#include "host/ui/inplaceeditor/editorpanel.h"
#include "host/ui/inplaceeditor/inplaceeditor.h"

namespace kdhost::automation {

namespace {

struct EditorKey {
    const wchar_t* name;
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* text;
    int before = 0;  ///< pressed with Ctrl ahead of it
};

constexpr std::array kKeys = {
    EditorKey{L"TAB", Qt::Key_Tab, Qt::NoModifier, "\t"},
    EditorKey{L"SHIFTTAB", Qt::Key_Backtab, Qt::ShiftModifier, ""},
    EditorKey{L"ENTER", Qt::Key_Return, Qt::NoModifier, "\r"},
    EditorKey{L"SHIFTENTER", Qt::Key_Return, Qt::ShiftModifier, "\r"},
    EditorKey{L"CTRLENTER", Qt::Key_Return, Qt::ControlModifier, "\r"},
    EditorKey{L"UP", Qt::Key_Up, Qt::NoModifier, "", Qt::Key_Home},
    EditorKey{L"DOWN", Qt::Key_Down, Qt::NoModifier, "", Qt::Key_End},
    EditorKey{L"LEFT", Qt::Key_Left, Qt::NoModifier, "", Qt::Key_Home},
    EditorKey{L"RIGHT", Qt::Key_Right, Qt::NoModifier, "", Qt::Key_End},
    EditorKey{L"ESC", Qt::Key_Escape, Qt::NoModifier, ""},
};
constexpr const wchar_t* kOutside = L"OUTSIDE";

const EditorKey* findKey(const std::wstring& name) {
    for (const EditorKey& row : kKeys) {
        if (name == row.name) return &row;
    }
    return nullptr;
}

/// Characters that no key of a plain keyboard has come from an input method.
void typeCharacter(EditorPanel& panel, const QString& character) {
    constexpr ushort kLastOfKeys = 0xFF;
    if (character == QLatin1String("\n")) {
        pressKey(Qt::Key_Return, Qt::AltModifier, QStringLiteral("\r"));
    } else if (character.at(0).unicode() <= kLastOfKeys) {
        typeKeys(character);
    } else {
        QInputMethodEvent event;
        event.setCommitString(character);
        QCoreApplication::sendEvent(&panel, &event);
    }
}

void replaceText(EditorPanel& panel, const std::wstring& text) {
    pressKey(Qt::Key_A, Qt::ControlModifier);
    for (const wchar_t c : text) {
        const uint code = static_cast<uint>(c);
        typeCharacter(panel, QString::fromUcs4(&code, 1));
    }
}

}  // namespace

std::wstring edit(const std::wstring& key, const std::wstring& text) {
    EditorPanel* panel = openInPlaceEditor();
    if (panel == nullptr) return L"no cell is being edited.";
    if (topWindow() != panel) return topWindowName() + L" is open.";
    const EditorKey* ending = findKey(key);
    if (ending == nullptr && key != kOutside) {
        return L"@edit takes TAB, SHIFTTAB, ENTER, SHIFTENTER, CTRLENTER, UP, DOWN, LEFT, RIGHT, ESC or OUTSIDE.";
    }
    panel->focusText();
    if (!text.empty()) replaceText(*panel, text);
    if (ending == nullptr) {
        pressMouse(*panel->viewport(), panel->placeOutside());
        return {};
    }
    if (ending->before != 0) pressKey(ending->before, Qt::ControlModifier);
    pressKey(ending->key, ending->modifiers, QString::fromLatin1(ending->text));
    return panel->hasEnded() ? L"" : L"the editor didn't end.";
}

std::optional<std::wstring> editorText() {
    const EditorPanel* panel = openInPlaceEditor();
    if (panel == nullptr) return std::nullopt;
    return panel->plainText();
}

}  // namespace kdhost::automation
