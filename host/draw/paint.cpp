// Primitives onto anything that Qt paints on.

#include "host/draw/paint.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "host/text/metrics.h"

namespace kdhost::draw {
namespace {

/// Pixel size of the fonts that texts are painted with before they are scaled.
constexpr int kFontSize = 64;

/// Places of the lines along a text, in text heights over the baseline, and their thickness.
constexpr double kUnderlineAt = -0.22;
constexpr double kStrikeAt = 0.5;
constexpr double kOverlineAt = 1.22;
constexpr double kLineThickness = 0.08;

/// A dot of a line type, in pixels.
constexpr double kDot = 1.0;
/// A plane that is seen at a flatter slant, as the part of an area that is left, shows no text.
constexpr double kFlattest = 1e-3;

/// Dash patterns shorter than this, in pixels, are painted as a continuous line.
constexpr double kShortestPattern = 3.0;

/// What lies on the border of two pixels, as whole numbers often do, goes to the same one after each pan.
constexpr double kLeaning = 1e-6;

class PrimitivePainter {
public:
    PrimitivePainter(QPainter& painter, const View& view, const PaintDevice& device)
        : m_painter(painter), m_view(view), m_device(device) {}

    void operator()(const Polyline& line) {
        QPolygonF points = pixels(line.points);
        const double width = std::max(line.lineWeight * 0.01 * m_device.pixelsPerMillimetre, m_device.thinnestLine);
        if (points.size() < 2 || !isSeen(points.boundingRect(), width)) return;
        const QPointF exactStart = points.first();
        if (m_device.wholePixels && isStraight(points)) toPixelCenters(points, width);
        QPen pen(colorOf(line.color), width, Qt::SolidLine, line.dashes.empty() ? Qt::SquareCap : Qt::FlatCap,
                 Qt::MiterJoin);
        if (const QVector<qreal> pattern = patternOf(line); !pattern.isEmpty()) {
            if (!cutToView(points, width)) return;
            const double before = alongFirstPiece(points, points.first() - exactStart);
            pen.setDashPattern(inPenWidths(pattern, width));
            pen.setDashOffset((line.dashStart * m_view.scale() + before) / width);
        }
        m_painter.setPen(pen);
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawPolyline(points);
    }

    void operator()(const Polygon& polygon) {
        QPolygonF points = pixels(polygon.points);
        if (points.size() < 3 || !isSeen(points.boundingRect(), 1.0)) return;
        if (m_device.wholePixels && isStraight(points)) {
            for (QPointF& point : points) point = QPointF(std::round(point.x()), std::round(point.y()));
        }
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(colorOf(polygon.color));
        m_painter.drawPolygon(points, Qt::WindingFill);
    }

    void operator()(const Text& text) {
        const double height = text.height * m_view.scale();
        const double width = text.width * m_view.scale();
        const QPointF origin = m_view.toPixels(text.origin);
        const double reach = width + 2.0 * height;
        if (!isSeen(QRectF(origin, origin), reach) || height <= 0.0) return;
        // Seen along its plane a text is no more than a line.
        const QTransform place(text.direction.x, -text.direction.y, -text.up.x, text.up.y, origin.x(), origin.y());
        if (std::abs(place.determinant()) < kFlattest) return;
        m_painter.save();
        m_painter.setTransform(place, true);
        if (height * std::hypot(text.up.x, text.up.y) < kReadablePixels) {
            bar(text, width, height);
        } else {
            alongLines(text, width, height);
            characters(text, width, height);
        }
        m_painter.restore();
    }

private:
    QColor colorOf(const Color& color) const {
        if (color.paper && m_device.paper.isValid()) return m_device.paper;
        if (color.foreground || color.paper) return color.paper == m_device.darkPaper ? Qt::black : Qt::white;
        return {color.red, color.green, color.blue};
    }

    QPolygonF pixels(const std::vector<KdGePoint3d>& points) const {
        QPolygonF result;
        result.reserve(static_cast<int>(points.size()));
        for (const KdGePoint3d& point : points) result << m_view.toPixels(point);
        return result;
    }

    bool isSeen(const QRectF& rectangle, double reach) const {
        return rectangle.right() >= -reach && rectangle.left() <= m_view.widthPixels() + reach &&
               rectangle.bottom() >= -reach && rectangle.top() <= m_view.heightPixels() + reach;
    }

    /// All pieces run along the axes.
    static bool isStraight(const QPolygonF& points) {
        for (int i = 1; i < points.size(); ++i) {
            const QPointF step = points[i] - points[i - 1];
            if (std::abs(step.x()) > 1e-3 && std::abs(step.y()) > 1e-3) return false;
        }
        return true;
    }

    /// A line an odd number of pixels wide is crisp on the centres of pixels, an even one between them.
    static void toPixelCenters(QPolygonF& points, double width) {
        const double shift = std::lround(width) % 2 == 1 ? 0.5 : 0.0;
        const auto crisp = [&](double at) { return std::floor(at - shift + 0.5 + kLeaning) + shift; };
        for (QPointF& point : points) point = QPointF(crisp(point.x()), crisp(point.y()));
    }

    /// Dashes and gaps in pixels; empty for a line that is painted as a continuous one.
    QVector<qreal> patternOf(const Polyline& line) const {
        const double length = std::accumulate(line.dashes.begin(), line.dashes.end(), 0.0) * m_view.scale();
        if (line.dashes.empty() || length < kShortestPattern) return {};
        QVector<qreal> pattern;
        for (const double dash : line.dashes) pattern << std::max(dash * m_view.scale(), kDot);
        return pattern;
    }

    static QVector<qreal> inPenWidths(QVector<qreal> pattern, double width) {
        for (qreal& length : pattern) length /= width;
        return pattern;
    }

    /// Takes away what lies outside the view of a line of one piece, since Qt paints lines of very many dashes as
    /// continuous ones. False when nothing is left.
    bool cutToView(QPolygonF& points, double width) const {
        if (points.size() != 2) return true;
        const QPointF start = points.first();
        const QPointF run = points.last() - start;
        double from = 0.0;
        double to = 1.0;
        const bool crosses = narrow(start.x(), run.x(), m_view.widthPixels(), width, from, to) &&
                             narrow(start.y(), run.y(), m_view.heightPixels(), width, from, to);
        if (crosses) points = QVector<QPointF>{start + run * from, start + run * to};
        return crosses;
    }

    /// Narrows the part of a line, from 0 to 1, to what lies between the view's edges in one direction.
    static bool narrow(double start, double run, double size, double reach, double& from, double& to) {
        if (run == 0.0) return start >= -reach && start <= size + reach;
        const auto [first, second] = std::minmax({(-reach - start) / run, (size + reach - start) / run});
        from = std::max(from, first);
        to = std::min(to, second);
        return from < to;
    }

    /// How far a step leads along the line's first piece.
    static double alongFirstPiece(const QPolygonF& points, const QPointF& step) {
        const QPointF run = points[1] - points[0];
        const double length = std::hypot(run.x(), run.y());
        return length > 0.0 ? QPointF::dotProduct(run, step) / length : 0.0;
    }

    void bar(const Text& text, double width, double height) {
        QColor color = colorOf(text.color);
        color.setAlphaF(0.35);
        m_painter.fillRect(QRectF(0.0, -0.8 * height, width, 0.6 * height), color);
    }

    void alongLines(const Text& text, double width, double height) {
        const auto line = [&](double at) {
            const double thickness = std::max(kLineThickness * height, m_device.thinnestLine);
            m_painter.fillRect(QRectF(0.0, -at * height - 0.5 * thickness, width, thickness), colorOf(text.color));
        };
        if (text.underline) line(kUnderlineAt);
        if (text.strike) line(kStrikeAt);
        if (text.overline) line(kOverlineAt);
    }

    /// The font is scaled so that the text has exactly the height and width that were measured.
    void characters(const Text& text, double width, double height) {
        if (!m_hasFont || text.font != m_fontKey) useFont(text.font);
        const QString string = QString::fromStdWString(text.text);
        const QFont font = text.tracking == 1.0 ? m_font : spaced(text.tracking);
        const double natural =
            text.tracking == 1.0 ? m_metrics.horizontalAdvance(string) : QFontMetricsF(font).horizontalAdvance(string);
        if (natural <= 0.0) return;
        const double down = height / (m_capitalRatio * kFontSize);
        m_painter.shear(-std::tan(text.font.obliqueAngle), 0.0);
        m_painter.scale(width / natural, down);
        m_painter.setFont(font);
        m_painter.setPen(colorOf(text.color));
        m_painter.drawText(QPointF(0.0, 0.0), string);
    }

    QFont spaced(double tracking) const {
        QFont font = m_font;
        font.setLetterSpacing(QFont::PercentageSpacing, 100.0 * tracking);
        return font;
    }

    void useFont(const text::Font& font) {
        m_hasFont = true;
        m_fontKey = font;
        m_font = text::qtFont(font, kFontSize);
        m_metrics = QFontMetricsF(m_font);
        m_capitalRatio = text::capitalRatio(font);
    }

    QPainter& m_painter;
    const View& m_view;
    const PaintDevice& m_device;
    bool m_hasFont = false;
    text::Font m_fontKey;
    QFont m_font;
    QFontMetricsF m_metrics{QFont()};
    double m_capitalRatio = 1.0;
};

}  // namespace

void paintPrimitives(QPainter& painter, const Primitives& primitives, const View& view, const PaintDevice& device) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    PrimitivePainter visitor(painter, view, device);
    for (const Primitive& primitive : primitives) std::visit(visitor, primitive);
}

}  // namespace kdhost::draw
