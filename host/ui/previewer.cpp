// The off-screen renderer: from drawables to primitives once, from primitives to a picture once for each size.

#include "kd/ui/previewer.h"

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "host/draw/primitives.h"
#include "host/draw/screen.h"
#include "host/ed/drawingoptions.h"
#include "kd/db/drawable.h"
#include "kd/db/entity.h"
#include "kd/ui/hostdialogs.h"

namespace {

using namespace kdhost;

/// What stays free on each side, of the shorter side.
constexpr double kMargin = 0.06;
/// At least so many pixels stay free: lines go to whole pixels, and their borders are soft.
constexpr double kBeyondLine = 2.0;

/// Drawables that stand for others may stand for each other in a circle; so many in a row are followed.
constexpr int kLongestChain = 16;

const KdGsDrawable* standIn(const KdGiDrawable* drawable) {
    const bool stands = drawable != nullptr && drawable->isKindOf(KdGsDrawable::desc());
    return stands ? static_cast<const KdGsDrawable*>(drawable) : nullptr;
}

/// What is seen of a drawable; null for nothing.
const KdDbEntity* entityOf(const KdGiDrawable* drawable) {
    for (int i = 0; i < kLongestChain && standIn(drawable) != nullptr; ++i) drawable = standIn(drawable)->drawable();
    const bool isEntity = drawable != nullptr && drawable->isKindOf(KdDbEntity::desc());
    return isEntity ? static_cast<const KdDbEntity*>(drawable) : nullptr;
}

/// A drawable with what it looked like when it was last asked.
struct Drawn {
    const KdGiDrawable* drawable;
    draw::Primitives primitives;
    bool isStale = true;

    void regenerate() {
        const KdDbEntity* entity = entityOf(drawable);
        primitives = entity == nullptr ? draw::Primitives() : draw::primitivesOf(*entity, drawingOptions());
        isStale = false;
    }
    bool isRegenNeeded() const {
        const KdGsDrawable* stand = standIn(drawable);
        return stand != nullptr && stand->isRegenNeeded();
    }
};

/// Pixels that the thickest line takes.
double thickestLine(const std::vector<Drawn>& all, const draw::PaintDevice& device) {
    double thickest = device.thinnestLine;
    for (const Drawn& drawn : all) {
        for (const draw::Primitive& primitive : drawn.primitives) {
            const auto* line = std::get_if<draw::Polyline>(&primitive);
            if (line != nullptr) thickest = std::max(thickest, line->lineWeight * 0.01 * device.pixelsPerMillimetre);
        }
    }
    return thickest;
}

KdDbExtents extentsOf(const std::vector<Drawn>& all) {
    KdDbExtents extents;
    for (const Drawn& drawn : all) extents.addExt(draw::extentsOf(drawn.primitives));
    return extents;
}

/// A view of that size, zoomed so that the whole of the lines at the edge is seen.
draw::View viewOf(const std::vector<Drawn>& all, const QSizeF& size, const draw::PaintDevice& device) {
    draw::View view(size.width(), size.height());
    const double shorter = std::min(size.width(), size.height());
    view.zoomExtents(extentsOf(all), std::max(kMargin * shorter, kBeyondLine) + 0.5 * thickestLine(all, device));
    return view;
}

}  // namespace

struct KdadGiDrawablePreviewer::Private {
    std::vector<Drawn> drawn;
    KdGePoint2d lowerLeft;
    KdGePoint2d upperRight;
    QSize size;
    QImage picture;      ///< null while it is out of date
    bool isNew = false;  ///< the picture was not given yet

    void resize(int width, int height) {
        const QSize wanted(std::max(width, 1), std::max(height, 1));
        if (wanted == size) return;
        size = wanted;
        picture = QImage();
    }

    QRectF part() const {
        return {QPointF(lowerLeft.x * size.width(), (1.0 - upperRight.y) * size.height()),
                QPointF(upperRight.x * size.width(), (1.0 - lowerLeft.y) * size.height())};
    }

    void paint() {
        for (Drawn& each : drawn) {
            if (each.isStale) each.regenerate();
        }
        picture = QImage(size, QImage::Format_RGB32);
        if (picture.isNull()) return;
        const draw::PaintDevice device = draw::screenDevice(kdadGetDPIScale());
        picture.fill(device.paper);
        isNew = true;
        const QRectF area = part();
        if (area.isEmpty()) return;
        const draw::View view = viewOf(drawn, area.size(), device);
        QPainter painter(&picture);
        painter.setClipRect(area);
        painter.translate(area.topLeft());
        for (const Drawn& each : drawn) paintPrimitives(painter, each.primitives, view, device);
    }
};

KdadGiDrawablePreviewer::KdadGiDrawablePreviewer(HWND window, KdDbDatabase*, const VqVector<KdGiDrawable*>& drawables,
                                                 const KdGePoint2d& lowerLeft, const KdGePoint2d& upperRight)
    : m_private(new Private{{}, lowerLeft, upperRight, QSize(1, 1), {}, false}) {
    for (const KdGiDrawable* drawable : drawables) m_private->drawn.push_back({drawable, {}, true});
    if (window != nullptr) m_private->resize(window->width(), window->height());
}

KdadGiDrawablePreviewer::~KdadGiDrawablePreviewer() = default;

void KdadGiDrawablePreviewer::update() {
    if (m_private->picture.isNull()) m_private->paint();
}

void KdadGiDrawablePreviewer::invalidate(bool regenerate) {
    for (Drawn& drawn : m_private->drawn) drawn.isStale = drawn.isStale || regenerate || drawn.isRegenNeeded();
    m_private->picture = QImage();
}

void KdadGiDrawablePreviewer::onSize(int width, int height) {
    m_private->resize(width, height);
}

bool KdadGiDrawablePreviewer::getRenderBuffer(char* buffer, unsigned width, unsigned height) {
    if (buffer == nullptr || width == 0 || height == 0) return false;
    constexpr unsigned kLargest = std::numeric_limits<int>::max();  // beyond memory, as what is larger still
    m_private->resize(static_cast<int>(std::min(width, kLargest)), static_cast<int>(std::min(height, kLargest)));
    update();
    const QImage& picture = m_private->picture;
    if (picture.isNull() || !std::exchange(m_private->isNew, false)) return false;
    const std::size_t row = std::size_t{4} * width;
    for (int y = 0; y < picture.height(); ++y) {
        std::memcpy(buffer + row * static_cast<std::size_t>(y), picture.constScanLine(y), row);
    }
    return true;
}
