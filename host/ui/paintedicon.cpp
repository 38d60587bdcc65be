// The engine behind icons that paint themselves.

#include "host/ui/paintedicon.h"

#include <QIconEngine>
#include <QPixmap>
#include <utility>

namespace kdhost {
namespace {

class PaintEngine : public QIconEngine {
public:
    explicit PaintEngine(PaintIcon paint) : m_paint(std::move(paint)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        if (mode == QIcon::Disabled) painter->setOpacity(0.4);
        m_paint(*painter, rect);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new PaintEngine(*this); }

private:
    PaintIcon m_paint;
};

}  // namespace

QIcon paintedIcon(PaintIcon paint) {
    return QIcon(new PaintEngine(std::move(paint)));  // the icon owns its engine
}

}  // namespace kdhost
