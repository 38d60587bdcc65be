// The cursor's state, keys for the drawing, and macros.

#include "host/ad/appinterface.h"

#include <QKeyEvent>
#include <utility>

#include "host/ad/application.h"

KdadApplicationInterface::~KdadApplicationInterface() = default;

namespace kdhost {

void ApplicationInterface::setCursorState(std::int64_t state, bool lock) {
    (lock ? m_lockedState : m_state) = state;
    m_locked = lock;
}

bool ApplicationInterface::sendKey(int code, QKeyEvent* event) {
    const bool isPress = code == QEvent::KeyPress && event != nullptr;
    return isPress && m_receiver && m_receiver(*event);
}

ApplicationInterface::KeyReceiver ApplicationInterface::setKeyReceiver(KeyReceiver receiver) {
    return std::exchange(m_receiver, std::move(receiver));
}

}  // namespace kdhost

KdadApplicationInterface* kdadApplicationInterface() {
    kdhost::Application* application = kdhost::Application::current();
    return application == nullptr ? nullptr : &application->applicationInterface();
}

bool VqExecuteCommand(const wchar_t* macro, int, int echo) {
    KdApDocManager* documents = kdDocManagerPtr();
    if (documents == nullptr || macro == nullptr) return false;
    const std::wstring typed = std::wstring(macro) + L"\n";
    return documents->sendStringToExecute(documents->curDocument(), typed.c_str(), false, false, echo == 1) ==
           Kdad::eOk;
}
