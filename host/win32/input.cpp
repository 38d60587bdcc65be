// Keys and the mouse.

#include "win32/input.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <array>
#include <optional>

#include "host/win32/keystate.h"
#include "mfc/geometry.h"

namespace {

std::optional<Qt::KeyboardModifiers> kept;

struct KeyState {
    int number;
    Qt::KeyboardModifier modifier;
};

constexpr std::array kKeys = {
    KeyState{VK_SHIFT, Qt::ShiftModifier},
    KeyState{VK_CONTROL, Qt::ControlModifier},
    KeyState{VK_MENU, Qt::AltModifier},
};

constexpr short kDown = static_cast<short>(0x8000 - 0x10000);

Qt::KeyboardModifiers modifiers() {
    if (kept) return *kept;
    return qApp == nullptr ? Qt::KeyboardModifiers() : QGuiApplication::keyboardModifiers();
}

}  // namespace

namespace kdhost {

void keepKeyState(Qt::KeyboardModifiers modifiers) {
    kept = modifiers;
}

void releaseKeyState() {
    kept.reset();
}

}  // namespace kdhost

short GetKeyState(int key) {
    for (const KeyState& known : kKeys) {
        if (known.number == key) return modifiers().testFlag(known.modifier) ? kDown : short{0};
    }
    return 0;
}

int GetCursorPos(CPoint* point) {
    if (point == nullptr || QGuiApplication::primaryScreen() == nullptr) return 0;
    const QPoint place = QCursor::pos();
    *point = {place.x(), place.y()};
    return 1;
}
