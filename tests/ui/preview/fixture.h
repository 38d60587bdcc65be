// What the tests of previews share: drawables in a drawing of their own, and pictures as pixels.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <functional>

#include "host/draw/screen.h"
#include "kd/db/drawable.h"
#include "kd/ui/hostdialogs.h"
#include "kd/ui/previewer.h"
#include "tests/host/draw/drawing.h"

namespace kdtest {

/// A block in a drawing of its own, and a reference to it that is in none: what samples are.
class BlockSample {
public:
    BlockSample() : m_block(m_drawing.addBlock(L"*T")), m_reference(KdGePoint3d(), m_block) {
        m_reference.setDatabaseDefaults(&m_drawing.database);
    }

    /// Of that colour index; 7 is the foreground.
    BlockSample& line(const KdGePoint3d& from, const KdGePoint3d& to, int color = 7,
                      KdDb::LineWeight weight = KdDb::kLnWt000) {
        auto made = std::make_unique<KdDbLine>(from, to);
        made->setColor(KdCmColor::fromIndex(color));
        made->setLineWeight(weight);
        m_drawing.add(std::move(made), m_block);
        return *this;
    }
    BlockSample& add(std::unique_ptr<KdDbEntity> entity) {
        m_drawing.add(std::move(entity), m_block);
        return *this;
    }

    Drawing& drawing() { return m_drawing; }
    KdDbDatabase* database() { return &m_drawing.database; }
    KdDbBlockReference& reference() { return m_reference; }
    VqVector<KdGiDrawable*> drawables() { return {&m_reference}; }

private:
    Drawing m_drawing;
    KdDbObjectId m_block;
    KdDbBlockReference m_reference;
};

/// A drawable that stands for another, counts how often it is asked and does what a test wants then.
class StandIn : public KdGsDrawable {
public:
    explicit StandIn(const KdGiDrawable* shown = nullptr) : shown(shown) {}
    const KdGiDrawable* drawable() const override {
        ++asked;
        if (onAsked) onAsked();
        return shown;
    }
    bool isRegenNeeded() const override { return needsRegen; }

    const KdGiDrawable* shown;
    bool needsRegen = false;
    std::function<void()> onAsked;
    mutable int asked = 0;
};

inline const QRgb kWhite = qRgb(255, 255, 255);
inline const QRgb kRed = qRgb(255, 0, 0);
inline QRgb paperColor() {
    return kdhost::draw::screenPaper().rgb();
}

/// Pixels that a line of no weight is thick.
inline int thinLine() {
    return qMax(1, qRound(kdadGetDPIScale()));
}

/// The box around the pixels that aren't the paper's; null without any.
inline QRect drawnPart(const QImage& picture) {
    QRect part;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != paperColor()) part = part.united(QRect(x, y, 1, 1));
        }
    }
    return part;
}

inline int count(const QImage& picture, QRgb color) {
    int found = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) found += picture.pixel(x, y) == color ? 1 : 0;
    }
    return found;
}

/// The picture at that size; null when the previewer gives none.
inline QImage pictureOf(KdadGiDrawablePreviewer& previewer, int width, int height) {
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    const bool given = previewer.getRenderBuffer(reinterpret_cast<char*>(picture.bits()), static_cast<unsigned>(width),
                                                 static_cast<unsigned>(height));
    return given ? picture : QImage();
}

}  // namespace kdtest
