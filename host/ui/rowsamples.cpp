// The samples of rows: a colour, a line of a weight, a line of a pattern.

#include "host/ui/rowsamples.h"

#include <QComboBox>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <utility>

#include "host/ui/paintedicon.h"
#include "kd/ui/widgets.h"
#include "mfc/wnd.h"

namespace kdhost {
namespace {

/// Between a row's picture and its text Qt leaves a few pixels, whatever the scale; this lies within the picture.
int gapBehind(int height) {
    return height / 4;
}

/// A box of another style paints nothing.
QIcon sample(QWidget* box, SampleStyle style, PaintIcon paint) {
    const QPointer<QWidget> owner(box);
    return paintedIcon([owner, style, paint = std::move(paint)](QPainter& painter, const QRect& rect) {
        const auto* combo = qobject_cast<const KdUiComboBox*>(owner.data());
        if (combo != nullptr && combo->comboBoxStyle() != static_cast<int>(style)) return;
        paint(painter, rect.adjusted(0, 0, -gapBehind(rect.height()), 0));
    });
}

QColor textColor(const QPointer<QWidget>& box) {
    return box.isNull() ? QColor(Qt::black) : box->palette().color(QPalette::Text);
}

void paintColor(QPainter& painter, const QRect& rect, const std::optional<KdCmColor>& color) {
    const QRect field = rect.adjusted(1, 1, -2, -2);
    constexpr int kForegroundIndex = 7;
    painter.setPen(QColor(96, 96, 96));
    painter.setBrush(Qt::white);
    painter.drawRect(field);
    if (!color) return;
    if (color->isNone()) {
        painter.setPen(QColor(192, 0, 0));
        painter.drawLine(field.bottomLeft(), field.topRight());
    } else if (color->isByACI() && color->colorIndex() == kForegroundIndex) {
        // Black on white paper, white on a black screen.
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawPolygon(QPolygon({field.bottomLeft(), field.topLeft(), field.topRight()}));
    } else {
        painter.fillRect(field.adjusted(1, 1, 0, 0), QColor(color->red(), color->green(), color->blue()));
    }
}

}  // namespace

QIcon colorSample(QWidget* box, const std::optional<KdCmColor>& color) {
    return sample(box, SampleStyle::Color,
                  [color](QPainter& painter, const QRect& rect) { paintColor(painter, rect, color); });
}

QIcon lineWeightSample(QWidget* box, int weight) {
    const QPointer<QWidget> owner(box);
    return sample(box, SampleStyle::LineWeight, [owner, weight](QPainter& painter, const QRect& rect) {
        constexpr double kMillimetresAnInch = 25.4;
        const double dots = painter.device()->logicalDpiX();
        const int pixels = static_cast<int>(std::lround(weight / 100.0 / kMillimetresAnInch * dots));
        const int height = std::clamp(pixels, 1, rect.height());
        painter.fillRect(QRect(rect.left(), rect.center().y() - height / 2, rect.width(), height), textColor(owner));
    });
}

QIcon linetypeSample(QWidget* box, const std::vector<double>& dashes) {
    const QPointer<QWidget> owner(box);
    return sample(box, SampleStyle::Linetype, [owner, dashes](QPainter& painter, const QRect& rect) {
        const double thickness = std::max(1.0, std::round(rect.height() / 12.0));
        const double y = rect.center().y();
        double length = 0.0;
        for (const double dash : dashes) length += std::abs(dash);
        if (length <= 0.0) {
            painter.fillRect(QRectF(rect.left(), y, rect.width(), thickness), textColor(owner));
            return;
        }
        // Two and a half patterns tell how it goes on.
        const double scale = rect.width() / (2.5 * length);
        double x = rect.left();
        for (std::size_t i = 0; x < rect.right(); i = (i + 1) % dashes.size()) {
            const double step = std::abs(dashes[i]) * scale;
            const double painted = std::min(std::max(step, thickness), rect.right() + 1 - x);
            if (dashes[i] >= 0.0) painter.fillRect(QRectF(x, y, painted, thickness), textColor(owner));
            x += std::max(step, dashes[i] == 0.0 ? thickness : 0.01);
        }
    });
}

QSize sampleSize(const QWidget& box, SampleStyle style) {
    const int height = box.fontMetrics().height();
    const int width = style == SampleStyle::Color ? height : height * 4;
    return {width + gapBehind(height), height};
}

QVariant rowData(const CWnd& box, int row, int role) {
    if (const auto* combo = box.widgetAs<QComboBox>()) return combo->itemData(row, role);
    const auto* list = box.widgetAs<QListWidget>();
    const QListWidgetItem* item = list == nullptr ? nullptr : list->item(row);
    return item == nullptr ? QVariant() : item->data(role);
}

void setRowData(const CWnd& box, int row, const QVariant& data, int role) {
    if (auto* combo = box.widgetAs<QComboBox>()) combo->setItemData(row, data, role);
    auto* list = box.widgetAs<QListWidget>();
    QListWidgetItem* item = list == nullptr ? nullptr : list->item(row);
    if (item != nullptr) item->setData(role, data);
}

}  // namespace kdhost
