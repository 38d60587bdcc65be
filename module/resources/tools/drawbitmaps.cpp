// Draws one SVG file as PNG files at scale 1, 2, 3 and so on, for the build of the resource module.
// Usage: DrawBitmaps DRAWING.svg SCALE1.png SCALE2.png ...

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

namespace {

bool draw(QSvgRenderer& drawing, int scale, const QString& file) {
    QImage image(drawing.defaultSize() * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    return image.save(file, "PNG");
}

}  // namespace

int main(int argc, char** argv) {
    QTextStream errors(stderr);
    if (argc < 3) {
        errors << "usage: DrawBitmaps DRAWING.svg SCALE1.png SCALE2.png ...\n";
        return 2;
    }
    QSvgRenderer drawing;
    if (!drawing.load(QString::fromLocal8Bit(argv[1])) || drawing.defaultSize().isEmpty()) {
        errors << argv[1] << ": can't be read as a drawing\n";
        return 1;
    }
    for (int scale = 1; scale + 1 < argc; ++scale) {
        if (!draw(drawing, scale, QString::fromLocal8Bit(argv[scale + 1]))) {
            errors << argv[scale + 1] << ": can't be written\n";
            return 1;
        }
    }
    return 0;
}
