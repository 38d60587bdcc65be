// The preview control over the host's off-screen painter.

#include "module/preview/previewstatic.h"

#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QScopedValueRollback>

#include "kd/ui/previewer.h"

CVqPreviewStatic::CVqPreviewStatic() = default;
CVqPreviewStatic::~CVqPreviewStatic() = default;

void CVqPreviewStatic::initialPreviewer(HWND window, KdDbDatabase* database, const VqVector<KdGiDrawable*>& drawables) {
    if (m_previewer != nullptr) return;
    m_previewer = std::make_unique<KdadGiDrawablePreviewer>(window, database, drawables, KdGePoint2d(0.0, 0.0),
                                                            KdGePoint2d(1.0, 1.0));
}

void CVqPreviewStatic::uninitPreviewer() {
    m_previewer.reset();
}

void CVqPreviewStatic::invalidate(bool) {
    if (m_previewer != nullptr) m_previewer->invalidate(true);
}

void CVqPreviewStatic::update() {
    if (m_previewer != nullptr) OnPaint();
}

void CVqPreviewStatic::OnSize(UINT, int cx, int cy) {
    if (m_previewer == nullptr) return;
    m_previewer->onSize(cx, cy);
    m_previewer->invalidate(false);
}

void CVqPreviewStatic::OnPaint() {
    if (m_previewer == nullptr || m_painting) return;
    // Bringing the picture to a label may paint the label at once.
    const QScopedValueRollback<bool> painting(m_painting, true);
    m_previewer->update();
    bringPicture();
}

void CVqPreviewStatic::bringPicture() {
    auto* label = widgetAs<QLabel>();
    if (label == nullptr) return;
    // The edges of a QRect are its outermost pixels, so that a width is a difference and one.
    const QRect area = label->rect();
    const int width = area.right() - area.left() + 1;
    const int height = area.bottom() - area.top() + 1;
    QImage picture(width, height, QImage::Format_ARGB32);
    // Not a new picture each time: the label asks for another paint when it gets one.
    if (!m_previewer->getRenderBuffer(reinterpret_cast<char*>(picture.bits()), static_cast<unsigned>(width),
                                      static_cast<unsigned>(height))) {
        return;
    }
    label->setPixmap(QPixmap::fromImage(picture));
    label->update();
}

void CVqPreviewStatic::OnDestroy() {
    uninitPreviewer();
    CStatic::OnDestroy();
}
