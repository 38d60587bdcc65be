// Fields of colours in a grid.

#include "host/ui/dialogs/colorpalette.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <utility>

#include "host/ui/colorchoice.h"

namespace kdhost {
namespace {

constexpr int kHues = 24;
constexpr int kShades = 10;
constexpr int kRows = kShades + 1;
constexpr int kFirstHued = 10;
constexpr int kFirstGrey = 250;
constexpr int kLastIndex = 255;
constexpr int kGreyColumn = 11;

/// From the darkest of the even shades through the lightest ones to the darkest of the odd ones, so that
/// neighbours are alike.
constexpr std::array<int, kShades> kShadeOfRow = {8, 6, 4, 2, 0, 1, 3, 5, 7, 9};

const QColor kFrame(96, 96, 96);

struct Place {
    int column;
    int row;
};

Place placeOf(int index) {
    if (index < kFirstHued) return {index - 1, kShades};
    if (index >= kFirstGrey) return {kGreyColumn + index - kFirstGrey, kShades};
    const auto row = std::find(kShadeOfRow.begin(), kShadeOfRow.end(), index % kShades) - kShadeOfRow.begin();
    return {index / kShades - 1, static_cast<int>(row)};
}

/// 0 where no colour lies.
int indexOf(const Place& place) {
    if (place.column < 0 || place.column >= kHues || place.row < 0 || place.row >= kRows) return 0;
    if (place.row < kShades) {
        return (place.column + 1) * kShades + kShadeOfRow[static_cast<std::size_t>(place.row)];
    }
    if (place.column < kFirstHued - 1) return place.column + 1;
    const int grey = place.column - kGreyColumn;
    return grey >= 0 && grey <= kLastIndex - kFirstGrey ? kFirstGrey + grey : 0;
}

QColor shown(int index) {
    const KdCmColor color = KdCmColor::fromIndex(index);
    return {color.red(), color.green(), color.blue()};
}

}  // namespace

ColorPalette::ColorPalette(QWidget* parent, std::function<void(int)> chosen)
    : QWidget(parent), m_chosen(std::move(chosen)) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int ColorPalette::fieldSize() const {
    return std::max(8, fontMetrics().height() * 9 / 10);
}

QSize ColorPalette::sizeHint() const {
    const int size = fieldSize();
    return {size * kHues + 1, size * kRows + size / 2 + 1};
}

QRect ColorPalette::fieldOf(int index) const {
    if (index < 1 || index > kLastIndex) return {};
    const Place place = placeOf(index);
    const int size = fieldSize();
    const int gap = place.row == kShades ? size / 2 : 0;
    return {place.column * size, place.row * size + gap, size, size};
}

int ColorPalette::indexAt(const QPoint& point) const {
    const int size = fieldSize();
    if (point.x() < 0 || point.y() < 0) return 0;
    const int hued = point.y() / size;
    const int row = hued < kShades ? hued : (point.y() - size / 2) / size;
    const int index = indexOf({point.x() / size, row});
    return fieldOf(index).contains(point) ? index : 0;
}

void ColorPalette::setIndex(int index) {
    m_index = index >= 1 && index <= kLastIndex ? index : 0;
    update();
}

void ColorPalette::choose(int index) {
    if (index == 0) return;
    setIndex(index);
    m_chosen(index);
}

void ColorPalette::walk(int columns, int rows) {
    Place place = m_index == 0 ? Place{0, kShades} : placeOf(m_index);
    if (m_index == 0) return choose(indexOf(place));
    // The empty place between the standard colours and the greys is stepped over.
    do {
        place.column += columns;
        place.row += rows;
    } while (indexOf(place) == 0 && columns != 0 && place.column >= 0 && place.column < kHues);
    choose(indexOf(place));
}

void ColorPalette::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // Dark lines tell the pale fields from the page.
    painter.setPen(kFrame);
    for (int index = 1; index <= kLastIndex; ++index) {
        painter.setBrush(shown(index));
        painter.drawRect(fieldOf(index));
    }
    if (m_index == 0) return;
    painter.setBrush(Qt::NoBrush);
    const QRect field = fieldOf(m_index);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(field.adjusted(1, 1, -1, -1));
    painter.setPen(QPen(hasFocus() ? palette().color(QPalette::Highlight) : QColor(Qt::black), 2));
    painter.drawRect(field);
}

void ColorPalette::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) choose(indexAt(event->pos()));
}

void ColorPalette::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            return walk(-1, 0);
        case Qt::Key_Right:
            return walk(1, 0);
        case Qt::Key_Up:
            return walk(0, -1);
        case Qt::Key_Down:
            return walk(0, 1);
        case Qt::Key_Space:
            return choose(m_index);
        default:
            QWidget::keyPressEvent(event);
    }
}

bool ColorPalette::event(QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int index = indexAt(help->pos());
        if (index != 0) {
            QToolTip::showText(help->globalPos(), colorName(KdCmColor::fromIndex(index)), this);
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QWidget::event(event);
}

}  // namespace kdhost
