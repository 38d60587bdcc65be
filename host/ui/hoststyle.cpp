// The looks of all windows: Qt's own style, with those sizes made to follow the scale of the screen that it keeps
// in plain pixels, and with the pictures of message boxes painted for any size.

#include <QApplication>
#include <QPainterPath>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionComboBox>
#include <algorithm>
#include <array>
#include <cmath>

#include "host/ui/paintedicon.h"
#include "kd/ui/hostdialogs.h"

namespace {

int scaled(int pixels) {
    return static_cast<int>(std::lround(pixels * kdadGetDPIScale()));
}

enum class Ground { Disc, Triangle };

/// What a picture of a message box shows: a sign on a ground, as large as the square it stands in.
struct MessagePicture {
    QStyle::StandardPixmap name;
    Ground ground;
    QRgb color;
    const char* sign;
    QRgb signColor;
};

constexpr QRgb kBlue = 0xFF2A7FC5;
constexpr QRgb kRed = 0xFFC83232;
constexpr QRgb kAmber = 0xFFF2B50C;
constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kDark = 0xFF3A2C00;

constexpr std::array kMessagePictures = {
    MessagePicture{QStyle::SP_MessageBoxInformation, Ground::Disc, kBlue, "i", kWhite},
    MessagePicture{QStyle::SP_MessageBoxQuestion, Ground::Disc, kBlue, "?", kWhite},
    MessagePicture{QStyle::SP_MessageBoxWarning, Ground::Triangle, kAmber, "!", kDark},
    MessagePicture{QStyle::SP_MessageBoxCritical, Ground::Disc, kRed, "\xC3\x97", kWhite},
};

QPainterPath groundOf(Ground ground, const QRectF& square) {
    QPainterPath path;
    if (ground == Ground::Disc) {
        path.addEllipse(square);
    } else {
        path.addPolygon(QPolygonF({QPointF(square.center().x(), square.top()), square.bottomRight(),
                                   square.bottomLeft(), QPointF(square.center().x(), square.top())}));
    }
    return path;
}

/// The sign as an outline, in the middle of the place that the ground leaves for it.
QPainterPath signOf(const MessagePicture& picture, const QRectF& square) {
    QFont font = QApplication::font();
    font.setBold(true);
    font.setPixelSize(std::max(1, static_cast<int>(square.height())));
    QPainterPath path;
    path.addText(0.0, 0.0, font, QString::fromUtf8(picture.sign));
    const QRectF ink = path.boundingRect();
    const bool isTriangle = picture.ground == Ground::Triangle;
    const double height = square.height() * (isTriangle ? 0.5 : 0.58);
    const double factor = std::min(height / ink.height(), square.width() * 0.46 / ink.width());
    const QPointF middle(square.center().x(), square.top() + square.height() * (isTriangle ? 0.62 : 0.5));
    QTransform place;
    place.translate(middle.x(), middle.y());
    place.scale(factor, factor);
    place.translate(-ink.center().x(), -ink.center().y());
    return place.map(path);
}

void paintMessagePicture(QPainter& painter, const QRect& rect, const MessagePicture& picture) {
    const double side = std::min(rect.width(), rect.height());
    const QRectF square(rect.left() + side * 0.04, rect.top() + side * 0.04, side * 0.92, side * 0.92);
    const QPainterPath ground = groundOf(picture.ground, square);
    const QColor color = QColor::fromRgba(picture.color);
    painter.setRenderHint(QPainter::Antialiasing);
    // Corners are rounded by the pen.
    painter.setPen(QPen(color, side * 0.06, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(color);
    painter.drawPath(ground);
    painter.fillPath(signOf(picture, square), QColor::fromRgba(picture.signColor));
}

class HostStyle : public QProxyStyle {
public:
    HostStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        constexpr int kMessagePictureSize = 36;
        if (metric == PM_MessageBoxIconSize) return scaled(kMessagePictureSize);
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (type == CT_PushButton) widenButton(size, option);
        if (type == CT_ComboBox) widenBox(size, option, contents, widget);
        return size;
    }

    QIcon standardIcon(StandardPixmap name, const QStyleOption* option, const QWidget* widget) const override {
        for (const MessagePicture& picture : kMessagePictures) {
            if (picture.name != name) continue;
            return kdhost::paintedIcon(
                [&picture](QPainter& painter, const QRect& rect) { paintMessagePicture(painter, rect, picture); });
        }
        // A menu bar asks for its "more" at once and shows it only where it has no room for its menus. Until then
        // none of the plug-ins that read pictures are looked for.
        if (name == SP_ToolBarHorizontalExtensionButton || name == SP_ToolBarVerticalExtensionButton) {
            return kdhost::paintedIcon([this, name](QPainter& painter, const QRect& rect) {
                QProxyStyle::standardIcon(name).paint(&painter, rect);
            });
        }
        return QProxyStyle::standardIcon(name, option, widget);
    }

private:
    /// Buttons with a text keep a least width, so that OK and Cancel are alike.
    static void widenButton(QSize& size, const QStyleOption* option) {
        constexpr int kLeastWidth = 80;
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (button != nullptr && !button->text.isEmpty()) size.setWidth(std::max(size.width(), scaled(kLeastWidth)));
    }

    /// A box has room for its longest entry beside the arrow, however large that is.
    void widenBox(QSize& size, const QStyleOption* option, const QSize& contents, const QWidget* widget) const {
        const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        if (box == nullptr) return;
        QStyleOptionComboBox laid(*box);
        laid.rect = QRect(QPoint(0, 0), size);
        const int room = subControlRect(CC_ComboBox, &laid, SC_ComboBoxEditField, widget).width();
        // Boxes measure the ink of their texts, not the space before and behind it.
        const int wanted = contents.width() + option->fontMetrics.averageCharWidth();
        size.rwidth() += std::max(0, wanted - room);
    }
};

void setHostStyle() {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return;
    QApplication::setStyle(new HostStyle);  // which the application owns
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(setHostStyle)
