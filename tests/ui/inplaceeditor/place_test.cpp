// Where the in-place editor lies and what it looks like.

#include <QPainter>
#include <cmath>

#include "host/db/currentspace.h"
#include "host/draw/paint.h"
#include "host/ed/viewwidget.h"
#include "tests/support/tablebuilder.h"
#include "tests/ui/inplaceeditor/fixture.h"
#include "tests/ui/looks/dialoglooks.h"

namespace kdtest {
namespace {

using kdhost::EditorPanel;

class InPlaceEditorPlace : public InPlaceEditorTest {
protected:
    QPointF pixels(double x, double y) { return host.editor().view().shown().toPixels({x, y, 0.0}); }
    double scale() { return host.editor().view().shown().scale(); }
    /// Opens the editor, looks, and cancels.
    void look(const User& user) {
        edit([&](EditorPanel& panel) {
            QApplication::processEvents();
            user(panel);
            press(Qt::Key_Escape);
        });
    }
    static void expectNear(const QPointF& a, const QPointF& b, double tolerance) {
        EXPECT_NEAR(a.x(), b.x(), tolerance);
        EXPECT_NEAR(a.y(), b.y(), tolerance);
    }
};

constexpr double kBorder = 3.0;

TEST_F(InPlaceEditorPlace, the_box_has_the_texts_place_and_size_for_each_attachment) {
    text.setHeight(30.0);
    for (int place = 1; place <= 9; ++place) {
        text.setAttachment(static_cast<KdDbMText::AttachmentPoint>(place));
        const double left = 100.0 - 30.0 * ((place - 1) % 3);
        const int third = (place - 1) / 3;
        const double top = 150.0 + 15.0 * third;
        look([&](EditorPanel& panel) {
            expectNear(panel.box().topLeft(), pixels(left, top) - QPointF(kBorder, kBorder), 1.0);
            EXPECT_NEAR(panel.box().width(), 60.0 * scale() + 2.0 * kBorder, 1.0);
            EXPECT_NEAR(panel.box().height(), 30.0 * scale() + kBorder + 0.35 * 4.0 * scale(), 1.0);
        });
    }
}

/// Pixels of a colour in a part of a picture.
int count(const QImage& image, const QRect& part, const QColor& color) {
    int found = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (image.rect().contains(x, y) && image.pixelColor(x, y) == color) ++found;
        }
    }
    return found;
}

/// The rows or columns that hold anything dark.
QRect inkOf(const QImage& image, const QRect& part) {
    QRect ink;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (image.rect().contains(x, y) && image.pixelColor(x, y).lightness() < 100) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

TEST_F(InPlaceEditorPlace, capitals_stand_where_the_drawing_has_them) {
    text.setContents(L"HHHH");
    for (int place = 1; place <= 9; ++place) {
        text.setAttachment(static_cast<KdDbMText::AttachmentPoint>(place));
        edit(
            [&](EditorPanel& panel) {
                // Without the caret.
                panel.text().clearFocus();
                const QRect inside = panel.box().toRect().adjusted(4, 4, -4, -4);
                const QRect ink = inkOf(panel.grab().toImage(), inside);
                const double height = 4.0 * scale();
                const int third = (place - 1) / 3;
                const double top = 150.0 + 10.0 * third;
                const double above = top - 8.0 * third;
                EXPECT_NEAR(ink.top(), pixels(0.0, above).y(), 2.0) << place;
                EXPECT_NEAR(ink.height(), height, 2.0) << place;
                const double wanted[] = {pixels(100.0, 0.0).x(), pixels(100.0, 0.0).x(), pixels(100.0, 0.0).x()};
                const double found[] = {double(ink.left()), ink.left() + 0.5 * ink.width(), double(ink.right())};
                const int column = (place - 1) % 3;
                EXPECT_NEAR(found[column], wanted[column], 3.0) << place;
                panel.focusText();
                press(Qt::Key_Escape);
            },
            kMTextEditorCaretAtEnd);
    }
}

TEST_F(InPlaceEditorPlace, the_box_turns_with_the_text) {
    text.setRotation(M_PI / 2.0);
    look([&](EditorPanel& panel) {
        EXPECT_NEAR(panel.box().height(), 60.0 * scale() + 2.0 * kBorder, 1.0);
        // Lines run upwards, so that the location is the lower left corner.
        EXPECT_NEAR(panel.box().left(), pixels(100.0, 0.0).x() - kBorder, 1.0);
        EXPECT_NEAR(panel.box().bottom(), pixels(0.0, 150.0).y() + kBorder, 1.0);
    });
}

TEST_F(InPlaceEditorPlace, the_box_grows_downward_with_its_lines_and_back) {
    edit([&](EditorPanel& panel) {
        const QRectF empty = panel.box();
        for (int line = 0; line < 5; ++line) press(Qt::Key_Return, Qt::AltModifier);
        const QRectF grown = panel.box();
        EXPECT_EQ(grown.top(), empty.top());
        // Six lines: one capital and five pitches.
        EXPECT_NEAR(grown.height(), (4.0 + 5.0 * 4.0 * 5.0 / 3.0) * scale() + kBorder + 0.35 * 4.0 * scale(), 6.0);
        for (int line = 0; line < 5; ++line) press(Qt::Key_Backspace);
        EXPECT_EQ(panel.box(), empty);
        press(Qt::Key_Escape);
    });
}

TEST_F(InPlaceEditorPlace, lines_wrap_at_the_texts_width) {
    edit([&](EditorPanel& panel) {
        const QRectF empty = panel.box();
        kdhost::typeKeys(
            QStringLiteral("one two three four five six seven eight nine ten eleven twelve thirteen "
                           "fourteen fifteen sixteen seventeen"));
        EXPECT_EQ(panel.box().width(), empty.width());
        EXPECT_GT(panel.box().height(), empty.height());
        tab();
    });
    EXPECT_EQ(contents().find(L"\\P"), std::wstring::npos);
}

TEST_F(InPlaceEditorPlace, a_text_without_width_does_not_wrap) {
    text.setWidth(0.0);
    edit([&](EditorPanel& panel) {
        const QRectF empty = panel.box();
        kdhost::typeKeys(QStringLiteral("one two three four five"));
        EXPECT_GT(panel.box().width(), 2.0 * empty.width());
        press(Qt::Key_Escape);
    });
}

TEST_F(InPlaceEditorPlace, a_cell_outside_of_the_view_is_edited_at_its_edge) {
    for (const KdGePoint3d& far : {KdGePoint3d(-5000.0, 150.0, 0.0), KdGePoint3d(9000.0, -9000.0, 0.0)}) {
        text.setLocation(far);
        look([&](EditorPanel& panel) {
            EXPECT_TRUE(QRectF(panel.rect()).adjusted(-0.1, -0.1, 0.1, 0.1).contains(panel.box()));
        });
    }
}

TEST_F(InPlaceEditorPlace, the_bar_stands_above_the_box_and_below_it_where_there_is_no_room) {
    look([&](EditorPanel& panel) { EXPECT_LT(panel.bar().geometry().bottom(), panel.box().top()); });
    text.setLocation({100.0, 297.0, 0.0});
    look([&](EditorPanel& panel) {
        EXPECT_GT(panel.bar().geometry().top(), panel.box().bottom());
        EXPECT_TRUE(panel.rect().contains(panel.bar().geometry()));
    });
}

TEST_F(InPlaceEditorPlace, the_fill_is_the_cells_background) {
    const QColor fill(200, 230, 255);
    text.setBackgroundFill(true);
    text.setUseBackgroundColor(false);
    text.setBackgroundFillColor(KdCmColor::fromRgb(200, 230, 255));
    look([&](EditorPanel& panel) {
        const QImage image = panel.grab().toImage();
        const QRect box = panel.box().toRect();
        EXPECT_GT(count(image, box, fill), box.width() * box.height() * 8 / 10);
        EXPECT_EQ(count(image, QRect(box.right() + 5, box.top(), 50, 50), fill), 0);
    });
}

TEST_F(InPlaceEditorPlace, a_turned_box_is_filled_where_the_cell_lies) {
    const QColor fill(200, 230, 255);
    text.setBackgroundFill(true);
    text.setUseBackgroundColor(false);
    text.setBackgroundFillColor(KdCmColor::fromRgb(200, 230, 255));
    text.setContents(L"a\\S1/2; 螺栓 {\\C1;M8}");
    text.setRotation(M_PI / 6.0);
    look([&](EditorPanel& panel) {
        const QImage image = panel.grab().toImage();
        // Places along the lines and down from them, in drawing units.
        const auto at = [&](double along, double down) {
            const double cosine = std::cos(M_PI / 6.0);
            const double sine = std::sin(M_PI / 6.0);
            const QPointF place = pixels(100.0 + along * cosine + down * sine, 150.0 + along * sine - down * cosine);
            return image.pixelColor(place.toPoint());
        };
        EXPECT_EQ(at(55.0, 2.0), fill);
        EXPECT_EQ(at(2.0, 18.0), fill);
        EXPECT_EQ(at(58.0, 18.0), fill);
        EXPECT_EQ(at(63.0, 10.0), QColor(Qt::white));
        EXPECT_EQ(at(30.0, 26.0), QColor(Qt::white));
        EXPECT_EQ(at(-3.0, 10.0), QColor(Qt::white));
        keepPicture(image, QStringLiteral("inplaceeditor_turned"));
    });
}

TEST_F(InPlaceEditorPlace, characters_have_the_texts_colour_and_their_own) {
    text.setColor(KdCmColor::fromRgb(0, 0, 255));
    text.setContents(L"HH{\\C1;HH}");
    edit(
        [&](EditorPanel& panel) {
            const QImage image = panel.grab().toImage();
            EXPECT_GT(count(image, panel.box().toRect(), QColor(0, 0, 255)), 20);
            EXPECT_GT(count(image, panel.box().toRect(), QColor(255, 0, 0)), 20);
            press(Qt::Key_Escape);
        },
        kMTextEditorCaretAtEnd);
}

// ---- over a window's view

/// A window with a view in it that shows the drawing, as the program's own.
class DrawingWidget : public QWidget, public kdhost::ViewWidget {
public:
    DrawingWidget(kdhost::Editor& editor, QWidget* parent) : QWidget(parent), m_view(editor.view().shown()) {
        m_database = &editor.database();
        setFocusPolicy(Qt::StrongFocus);
        kdhost::setViewWidget(this);
    }
    ~DrawingWidget() override { kdhost::setViewWidget(nullptr); }

    QWidget& widget() override { return *this; }
    QPointF toPixels(const KdGePoint3d& world) const override { return m_view.toPixels(world); }
    KdGePoint3d toWorld(const QPointF& pixels) const override { return m_view.toWorld(pixels); }
    double scale() const override { return m_view.scale(); }
    QColor paper() const override { return shownOn; }
    void addFollower(kdhost::ViewFollower* follower) override { m_followers.push_back(follower); }
    void removeFollower(kdhost::ViewFollower* follower) override {
        m_followers.erase(std::find(m_followers.begin(), m_followers.end(), follower));
    }

    void pan(double dx, double dy) {
        m_view.pan(dx, dy);
        for (kdhost::ViewFollower* follower : m_followers) follower->viewMoved();
    }
    std::size_t followers() const { return m_followers.size(); }
    int presses = 0;
    QColor shownOn = Qt::white;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        kdhost::draw::paintPrimitives(painter, kdhost::draw::primitivesOf(*m_database, {}), m_view, {});
    }

private:
    kdhost::draw::View m_view;
    KdDbDatabase* m_database;
    std::vector<kdhost::ViewFollower*> m_followers;
};

class InPlaceEditorOverView : public InPlaceEditorPlace {
protected:
    InPlaceEditorOverView() {
        window.resize(1700, 1100);
        view.setGeometry(40, 60, 1600, 1000);
        other.setGeometry(0, 0, 100, 40);
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }

    QWidget window;
    DrawingWidget view{host.editor(), &window};
    QLineEdit other{&window};
};

TEST_F(InPlaceEditorOverView, the_editor_is_a_part_of_the_window_and_gives_the_keys_back) {
    view.setFocus();
    const Ended ended = edit([&](EditorPanel& panel) {
        EXPECT_FALSE(panel.isWindow());
        EXPECT_EQ(panel.parentWidget(), &view);
        EXPECT_EQ(panel.rect(), view.rect());
        EXPECT_NEAR(panel.box().left(), view.toPixels({100.0, 150.0, 0.0}).x() - kBorder, 1.0);
        kdhost::typeKeys(QStringLiteral("over"));
        tab();
    });
    EXPECT_EQ(ended, (Ended{RTNORM, kMTextEditorTab}));
    EXPECT_EQ(contents(), L"over");
    EXPECT_TRUE(view.hasFocus());
    EXPECT_EQ(view.followers(), 0u);
}

TEST_F(InPlaceEditorOverView, the_box_follows_the_view) {
    look([&](EditorPanel& panel) {
        const QRectF before = panel.box();
        view.pan(50.0, 20.0);
        expectNear(panel.box().topLeft(), before.topLeft() + QPointF(50.0, 20.0), 0.1);
    });
}

TEST_F(InPlaceEditorOverView, on_dark_paper_the_box_is_dark_and_its_text_white) {
    view.shownOn = QColor(32, 39, 47);
    text.setContents(L"HHHH");
    edit(
        [&](EditorPanel& panel) {
            const QImage image = panel.grab().toImage();
            const QRect box = panel.box().toRect().adjusted(4, 4, -4, -4);
            EXPECT_GT(count(image, box, view.shownOn), box.width() * box.height() / 2);
            EXPECT_GT(count(image, box, Qt::white), 20);
            press(Qt::Key_Escape);
        },
        kMTextEditorCaretAtEnd);
}

TEST_F(InPlaceEditorOverView, a_press_elsewhere_in_the_window_ends_the_editing_and_does_nothing_more) {
    const Ended ended = edit([&](EditorPanel&) {
        kdhost::typeKeys(QStringLiteral("kept"));
        kdhost::pressMouse(other, QPoint(5, 5));
    });
    EXPECT_EQ(ended, (Ended{RTNORM, kMTextEditorOutside}));
    EXPECT_EQ(contents(), L"kept");
    EXPECT_FALSE(other.hasFocus());
}

TEST_F(InPlaceEditorOverView, a_press_in_the_drawing_ends_the_editing_and_picks_nothing) {
    const Ended ended = edit([&](EditorPanel& panel) { kdhost::pressMouse(*panel.viewport(), QPoint(1500, 900)); });
    EXPECT_EQ(ended, (Ended{RTNORM, kMTextEditorOutside}));
    EXPECT_EQ(view.presses, 0);
}

TEST_F(InPlaceEditorOverView, the_editing_is_cancelled_when_the_window_closes) {
    text.setContents(L"old");
    const Ended ended = edit([&](EditorPanel&) {
        kdhost::typeKeys(QStringLiteral("new"));
        window.close();
    });
    EXPECT_EQ(ended, (Ended{RTCAN, kMTextEditorEscape}));
    EXPECT_EQ(contents(), L"old");
}

TEST_F(InPlaceEditorOverView, the_drawing_shows_through_around_the_box) {
    std::unique_ptr<KdDbTable> table = TableBuilder(2, 2).build();
    table->setPosition({10.0, 290.0, 0.0});
    ASSERT_TRUE(kdhost::appendToCurrentSpace(host.database(), std::move(table)));
    look([&](EditorPanel&) {
        const QImage image = window.grab().toImage();
        const QPoint corner = view.mapTo(&window, view.toPixels({10.0, 290.0, 0.0}).toPoint());
        EXPECT_FALSE(inkOf(image, QRect(corner - QPoint(2, 2), QSize(60, 5))).isNull());
    });
}

}  // namespace
}  // namespace kdtest
