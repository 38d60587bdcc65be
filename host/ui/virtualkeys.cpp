// Qt's keys as key codes of messages.

#include "host/ui/virtualkeys.h"

#include <QKeyEvent>
#include <array>

namespace {

struct KeyCode {
    int key;
    WORD code;
};

constexpr std::array kKeyCodes = {
    KeyCode{Qt::Key_Backspace, 8},      KeyCode{Qt::Key_Tab, VK_TAB},      KeyCode{Qt::Key_Backtab, VK_TAB},
    KeyCode{Qt::Key_Return, VK_RETURN}, KeyCode{Qt::Key_Enter, VK_RETURN}, KeyCode{Qt::Key_Escape, VK_ESCAPE},
    KeyCode{Qt::Key_Shift, 16},         KeyCode{Qt::Key_Control, 17},      KeyCode{Qt::Key_Alt, 18},
    KeyCode{Qt::Key_PageUp, 33},        KeyCode{Qt::Key_PageDown, 34},     KeyCode{Qt::Key_End, 35},
    KeyCode{Qt::Key_Home, 36},          KeyCode{Qt::Key_Left, 37},         KeyCode{Qt::Key_Up, 38},
    KeyCode{Qt::Key_Right, 39},         KeyCode{Qt::Key_Down, 40},         KeyCode{Qt::Key_Insert, 45},
    KeyCode{Qt::Key_Delete, VK_DELETE}, KeyCode{Qt::Key_Menu, 93},
};

constexpr WORD kFirstFunctionKey = 112;

}  // namespace

namespace kdhost {

WORD virtualKey(const QKeyEvent& event) {
    const int key = event.key();
    for (const KeyCode& known : kKeyCodes) {
        if (known.key == key) return known.code;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return static_cast<WORD>(kFirstFunctionKey + key - Qt::Key_F1);
    const bool bearsItsOwnCode =
        key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z);
    return bearsItsOwnCode ? static_cast<WORD>(key) : WORD{0};
}

}  // namespace kdhost
