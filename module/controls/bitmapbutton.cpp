// Buttons with pictures from the resource module.

#include "module/controls/bitmapbutton.h"

#include "kd/ui/hostdialogs.h"
#include "kd/ui/widgets.h"

QString scaledBitmap(const char* name) {
    const double scale = kdadGetDPIScale();
    const QString bitmap = QString::fromLatin1(name);
    if (scale >= 3.0) return bitmap + QStringLiteral("_3X");
    if (scale >= 2.0) return bitmap + QStringLiteral("_2X");
    return bitmap;
}

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
