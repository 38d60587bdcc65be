// Pictures of a drawing in files: how large they are, and the devices that write them.

#include "host/draw/render.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "host/draw/paint.h"

namespace kdhost::draw {
namespace {

/// How large pictures of one kind may be, in their own units.
struct Limits {
    double usual;     ///< longer side of a drawing whose texts are large enough then
    double longest;   ///< a longer side never gets over this
    double area;      ///< nor the whole over this
    double readable;  ///< height of the smallest capital that is wished for
    double margin;    ///< on each side
    double shortest;  ///< of either side
};

constexpr Limits kPixels{1600.0, 16000.0, 48e6, 9.0, 20.0, 64.0};
constexpr Limits kMillimetres{297.0, 5000.0, 25e6, 1.8, 8.0, 40.0};

/// An empty drawing's picture, in usual sides.
constexpr double kEmptyWidth = 0.1;
constexpr double kEmptyHeight = 0.075;

constexpr int kPdfDotsPerInch = 1200;
constexpr double kMillimetresPerInch = 25.4;

/// Height of the lowest text; 0 without texts.
double smallestText(const Primitives& primitives) {
    double smallest = 0.0;
    for (const Primitive& primitive : primitives) {
        const Text* text = std::get_if<Text>(&primitive);
        if (text != nullptr && text->height > 0.0 && (smallest == 0.0 || text->height < smallest)) {
            smallest = text->height;
        }
    }
    return smallest;
}

/// A view zoomed to the primitives. `longSide` 0 lets the limits choose; `unit` is the number of the device's
/// pixels in a unit of the limits.
View viewOf(const Primitives& primitives, const Limits& limits, double longSide, double unit = 1.0) {
    const KdDbExtents extents = extentsOf(primitives);
    if (!extents.isValid()) return {kEmptyWidth * limits.usual * unit, kEmptyHeight * limits.usual * unit};
    const double width = extents.maxPoint().x - extents.minPoint().x;
    const double height = extents.maxPoint().y - extents.minPoint().y;
    const double larger = std::max({width, height, 1e-9});
    const double wished = longSide > 0.0 ? longSide : limits.usual;
    double scale = std::max(wished - 2.0 * limits.margin, 1.0) / larger;
    const double text = smallestText(primitives);
    if (longSide <= 0.0 && text > 0.0) scale = std::max(scale, limits.readable / text);
    scale = std::min(scale, (limits.longest - 2.0 * limits.margin) / larger);
    if (width > 0.0 && height > 0.0) scale = std::min(scale, std::sqrt(limits.area / (width * height)));

    const auto side = [&](double length) {
        return std::clamp(std::ceil(length * scale + 2.0 * limits.margin), limits.shortest, limits.longest);
    };
    View view(side(width) * unit, side(height) * unit);
    view.zoomExtents(extents, limits.margin * unit);
    return view;
}

bool writePng(const Primitives& primitives, QIODevice& device) {
    return paint(primitives).save(&device, "PNG");
}

bool writeSvg(const Primitives& primitives, QIODevice& device) {
    const View view = viewOf(primitives, kPixels, 0.0);
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setResolution(96);
    const QRectF page(0.0, 0.0, view.widthPixels(), view.heightPixels());
    generator.setSize(page.size().toSize());
    generator.setViewBox(page);
    QPainter painter;
    if (!painter.begin(&generator)) return false;
    painter.fillRect(page, Qt::white);
    PaintDevice settings;
    settings.wholePixels = false;
    paintPrimitives(painter, primitives, view, settings);
    return painter.end();
}

bool writePdf(const Primitives& primitives, QIODevice& device) {
    const double dots = kPdfDotsPerInch / kMillimetresPerInch;
    const View view = viewOf(primitives, kMillimetres, 0.0, dots);
    QPdfWriter writer(&device);
    writer.setResolution(kPdfDotsPerInch);
    writer.setPageSize(QPageSize(QSizeF(view.widthPixels(), view.heightPixels()) / dots, QPageSize::Millimeter,
                                 QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer)) return false;
    PaintDevice settings;
    settings.pixelsPerMillimetre = dots;
    settings.thinnestLine = 0.13 * dots;
    settings.wholePixels = false;
    paintPrimitives(painter, primitives, view, settings);
    return painter.end();
}

struct PictureKind {
    const char* extension;
    bool (*write)(const Primitives&, QIODevice&);
    bool plotted;
};

constexpr PictureKind kKinds[] = {{"png", writePng, false}, {"svg", writeSvg, false}, {"pdf", writePdf, true}};

const PictureKind* kindOf(const QString& path) {
    const QString extension = QFileInfo(path).suffix().toLower();
    for (const PictureKind& kind : kKinds) {
        if (extension == QLatin1String(kind.extension)) return &kind;
    }
    return nullptr;
}

std::string failure(const std::string& path, const QString& reason) {
    return "can't write the picture " + path + ": " + reason.toStdString();
}

std::string unknownKind(const std::string& path) {
    return failure(path, QStringLiteral("its name must end in .png, .svg or .pdf"));
}

}  // namespace

QImage paint(const Primitives& primitives, int longSide) {
    const View view = viewOf(primitives, kPixels, longSide);
    QImage image(static_cast<int>(view.widthPixels()), static_cast<int>(view.heightPixels()), QImage::Format_RGB32);
    if (image.isNull()) return image;
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPrimitives(painter, primitives, view, {});
    return image;
}

std::string render(const Primitives& primitives, const std::string& path) {
    const QString name = QFile::decodeName(path.c_str());
    const PictureKind* kind = kindOf(name);
    if (kind == nullptr) return unknownKind(path);
    // Renaming over a device or a folder would take it away, a link to one too.
    const QFileInfo target(name);
    if (target.exists() && !target.isFile()) return failure(path, QStringLiteral("it is no ordinary file"));
    // Made in memory first: the writers don't tell when a device takes less than it was given.
    QBuffer picture;
    picture.open(QIODevice::WriteOnly);
    if (!kind->write(primitives, picture)) return failure(path, QStringLiteral("painting failed"));
    QSaveFile file(name);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(picture.data()) == picture.size() &&
                         file.flush() && file.commit();
    return written ? std::string() : failure(path, file.errorString());
}

std::string render(const KdDbDatabase& database, const std::string& path, const Options& options) {
    const PictureKind* kind = kindOf(QFile::decodeName(path.c_str()));
    if (kind == nullptr) return unknownKind(path);
    Options ofKind = options;
    ofKind.plotted = kind->plotted;
    return render(primitivesOf(database, ofKind), path);
}

}  // namespace kdhost::draw
