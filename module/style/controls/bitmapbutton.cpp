// Buttons with pictures from the resource module.

#include "module/style/controls/bitmapbutton.h"

#include "kd/ui/widgets.h"

void CVqBitmapButton::setBitmapId(const QString& id, unsigned int colour) {
    auto* button = widgetAs<KdUiPushButton>();
    if (button == nullptr) return;
    const auto channel = [colour](int shift) { return static_cast<int>(colour >> shift & 255U); };
    button->setIcon(QStringLiteral(":/TvxTableRes/TvxTableRes/") + id, QColor(channel(0), channel(8), channel(16)));
}

void CVqBitmapButton::setFocusState(int state) {
    m_focusState = state;
    repaint();
}

void CVqBitmapButton::OnSetFocus() {
    repaint();
}

void CVqBitmapButton::OnKillFocus() {
    repaint();
}

void CVqBitmapButton::OnMouseLeave() {
    repaint();
}

int CVqBitmapButton::OnEraseBkgnd() {
    return 1;
}

void CVqBitmapButton::repaint() {
    if (GetSafeHwnd() != nullptr) Invalidate(true);
}
