// The application as floating windows see it.
#pragma once

#include <functional>

#include "kd/ad/appinterface.h"

namespace kdhost {

class ApplicationInterface final : public KdadApplicationInterface {
public:
    /// Takes a key for the drawing; true when it had a use for it.
    using KeyReceiver = std::function<bool(QKeyEvent& key)>;

    std::int64_t cursorState() const override { return m_state; }
    void setCursorState(std::int64_t state, bool lock) override;
    bool sendKey(int code, QKeyEvent* event) override;

    /// Whether the drawing shows the cross where no command asks.
    bool showsCross() const { return (m_locked ? m_lockedState : m_state) != kArrow; }
    /// Who takes the keys; empty for nobody. The receiver before is given back.
    KeyReceiver setKeyReceiver(KeyReceiver receiver);

private:
    static constexpr std::int64_t kArrow = 0;
    static constexpr std::int64_t kCross = 1;

    std::int64_t m_state = kCross;
    std::int64_t m_lockedState = kCross;
    bool m_locked = false;
    KeyReceiver m_receiver;
};

}  // namespace kdhost
