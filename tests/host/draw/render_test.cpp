// Pictures in files: sizes, kinds, failures.

#include "host/draw/render.h"

#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <csignal>

#include "kd/db/mtext.h"
#include "tests/host/draw/drawing.h"

using namespace kdhost::draw;
using kdtest::Drawing;

namespace {

class Render : public ::testing::Test {
protected:
    std::string path(const char* name) const { return folder.filePath(QString::fromUtf8(name)).toStdString(); }
    QByteArray content(const char* name) const {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    void addText(double height) {
        auto text = std::make_unique<KdDbMText>();
        text->setContents(L"Bolt 螺栓");
        text->setTextHeight(height);
        drawing.add(std::move(text));
    }

    QTemporaryDir folder;
    Drawing drawing;
};

TEST_F(Render, a_png_is_a_picture_of_the_drawing) {
    addText(10.0);
    drawing.add(std::make_unique<KdDbLine>(KdGePoint3d(0, 0, 0), KdGePoint3d(100, 50, 0)));
    EXPECT_EQ(render(drawing.database, path("a.png"), {}), "");
    const QImage image(QString::fromStdString(path("a.png")));
    EXPECT_EQ(std::max(image.width(), image.height()), 1600);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(files(), QStringList(QStringLiteral("a.png")));
}

TEST_F(Render, an_svg_holds_its_texts) {
    addText(10.0);
    EXPECT_EQ(render(drawing.database, path("a.svg"), {}), "");
    EXPECT_TRUE(content("a.svg").contains("<svg"));
    EXPECT_TRUE(content("a.svg").contains("Bolt"));
}

TEST_F(Render, a_pdf_is_one) {
    addText(10.0);
    EXPECT_EQ(render(drawing.database, path("a.PDF"), {}), "");
    EXPECT_TRUE(content("a.PDF").startsWith("%PDF-"));
    EXPECT_TRUE(content("a.PDF").trimmed().endsWith("%%EOF"));
}

TEST_F(Render, an_empty_drawing_gives_a_small_blank_picture) {
    for (const char* name : {"a.png", "a.svg", "a.pdf"}) {
        EXPECT_EQ(render(drawing.database, path(name), {}), "");
        EXPECT_FALSE(content(name).isEmpty());
    }
    const QImage image(QString::fromStdString(path("a.png")));
    EXPECT_EQ(image.size(), QSize(160, 120));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white));
    }
}

TEST_F(Render, an_unknown_kind_is_told_in_one_line_and_writes_nothing) {
    for (const char* name : {"a.bmp", "a", ".png.", "a.png.txt"}) {
        const std::string message = render(drawing.database, path(name), {});
        EXPECT_NE(message.find(".png, .svg or .pdf"), message.npos) << name;
        EXPECT_EQ(message.find('\n'), message.npos);
    }
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(Render, a_path_that_cannot_be_written_is_told_in_one_line) {
    QDir(folder.path()).mkdir(QStringLiteral("folder.png"));
    for (const char* name : {"missing/a.png", "folder.png"}) {
        const std::string message = render(drawing.database, path(name), {});
        EXPECT_NE(message.find(path(name)), message.npos) << message;
        EXPECT_EQ(message.find('\n'), message.npos);
    }
}

TEST_F(Render, a_device_or_a_link_to_one_is_refused_and_stays) {
    QFile::link(QStringLiteral("/dev/null"), folder.filePath(QStringLiteral("device.png")));
    const std::string message = render(drawing.database, path("device.png"), {});
    EXPECT_NE(message.find("no ordinary file"), message.npos) << message;
    EXPECT_FALSE(QFileInfo(QStringLiteral("/dev/null")).isFile());
}

/// No file may grow over a few bytes while one of these lives: writing fails as on a full disk.
class FullDisk {
public:
    FullDisk() {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit few{64, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &few);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

TEST_F(Render, a_full_disk_is_told_and_leaves_the_old_picture) {
    addText(10.0);
    for (const char* name : {"a.png", "a.svg", "a.pdf"}) {
        ASSERT_EQ(render(drawing.database, path(name), {}), "");
        const QByteArray before = content(name);
        std::string message;
        {
            const FullDisk full;
            message = render(drawing.database, path(name), {});
        }
        EXPECT_NE(message, "") << name;
        EXPECT_EQ(message.find('\n'), message.npos);
        EXPECT_EQ(content(name), before) << name;
    }
    EXPECT_EQ(files().size(), 3);
}

TEST_F(Render, the_old_picture_stays_until_the_new_one_is_whole) {
    addText(10.0);
    ASSERT_EQ(render(drawing.database, path("a.png"), {}), "");
    const QByteArray before = content("a.png");
    drawing.add(std::make_unique<KdDbLine>(KdGePoint3d(0, 0, 0), KdGePoint3d(100, 50, 0)));
    ASSERT_EQ(render(drawing.database, path("a.png"), {}), "");
    EXPECT_NE(content("a.png"), before);
    EXPECT_EQ(files().size(), 1);
}

TEST(Picture, has_the_long_side_asked_for) {
    const Primitives line{Polyline{{{0, 0, 0}, {200, 100, 0}}, {}, 0, {}}};
    EXPECT_EQ(paint(line, 400).width(), 400);
    EXPECT_EQ(paint(line, 400).height(), 220);
}

TEST(Picture, grows_until_the_smallest_text_can_be_read) {
    Primitives primitives{Polyline{{{0, 0, 0}, {8000, 400, 0}}, {}, 0, {}}};
    Text text;
    text.text = L"small";
    text.direction = KdGeVector3d::kXAxis;
    text.height = 9.0;
    text.width = 40.0;
    primitives.push_back(text);
    const QImage image = paint(primitives);
    EXPECT_EQ(image.width(), 8040) << "a pixel a unit, so that capitals are nine pixels high, and the margins";
}

TEST(Picture, is_never_larger_than_can_be_handled) {
    Text text;
    text.text = L"small";
    text.direction = KdGeVector3d::kXAxis;
    text.height = 1.0;
    text.width = 4.0;
    const Primitives narrow{Polyline{{{0, 0, 0}, {100, -900000, 0}}, {}, 0, {}}, text};
    EXPECT_EQ(paint(narrow).height(), 16000);
    EXPECT_GE(paint(narrow).width(), 64);
    const Primitives square{Polyline{{{0, 0, 0}, {90000, -90000, 0}}, {}, 0, {}}, text};
    const QImage image = paint(square);
    EXPECT_LE(static_cast<double>(image.width()) * image.height(), 50e6);
    EXPECT_GT(image.width(), 6000);
}

}  // namespace
