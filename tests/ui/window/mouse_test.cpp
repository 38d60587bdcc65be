// The mouse in the drawing view: picks, moves, Enter, zooming and panning.

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTemporaryDir>

#include "host/app/window/drawingview.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/ed/display.h"
#include "host/ui/automation/automation.h"
#include "kd/ad/mainapp.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "kd/ed/view.h"
#include "tests/support/objects.h"
#include "tests/support/tablebuilder.h"
#include "tests/ui/window/fixture.h"

namespace {

using kdhost::Answer;
using kdhost::PromptKind;

class WindowMouse : public kdtest::WindowTest {
protected:
    std::vector<KdDbObjectId> entities() { return kdhost::entitiesOfCurrentSpace(host.database()); }

    Step rightClick(double x, double y) {
        return [this, x, y] { QTest::mouseClick(&view(), Qt::RightButton, Qt::NoModifier, pixelsOf(x, y)); };
    }

    void addTable(int rows = 4) {
        auto table = kdtest::TableBuilder(rows, 3).fill().build();
        table->setTableStyle(host.database().tablestyle());
        KdDbObject* space = nullptr;
        ASSERT_EQ(kddbOpenObject(space, host.database().modelSpaceId(), KdDb::kForWrite), Kdad::eOk);
        KdDbObjectId id;
        KdDbTable* added = table.release();
        static_cast<KdDbBlockTableRecord*>(space)->appendKdDbEntity(id, added);
        added->close();
        space->close();
    }
};

TEST_F(WindowMouse, a_left_click_picks_a_point_and_a_right_click_is_Enter) {
    KdGePoint3d first;
    KdGePoint3d second;
    play({keys("LINE "),
          [&] {
              first = window.view().toWorld(pixelsOf(20, 30));
              click(20, 30)();
          },
          [&] {
              second = window.view().toWorld(pixelsOf(120, 90));
              click(120, 90)();
          },
          rightClick(200, 200), [&] { EXPECT_EQ(promptText(), QStringLiteral("Command: ")); }});
    ASSERT_EQ(entities().size(), 1u);
    const auto& line = static_cast<const KdDbLine&>(*kdhost::peek<KdDbEntity>(entities()[0]));
    EXPECT_TRUE(line.startPoint().isEqualTo(first));
    EXPECT_TRUE(line.endPoint().isEqualTo(second));
}

TEST_F(WindowMouse, a_click_between_commands_selects_and_Shift_adds) {
    play({keys("LINE 10,10 100,10  "), keys("LINE 10,50 100,50  "), click(50, 10),
          [&] { EXPECT_EQ(host.editor().pickFirst().objects(), (std::vector{entities()[0]})); },
          click(50, 50, Qt::ShiftModifier), [&] { EXPECT_EQ(host.editor().pickFirst().objects(), entities()); },
          click(300, 200), [&] { EXPECT_TRUE(host.editor().pickFirst().objects().empty()); }});
}

TEST_F(WindowMouse, a_move_is_input_while_something_is_dragged_and_at_no_other_time) {
    std::vector<Answer> answers;
    KdGePoint3d at;
    play({[&] {
              kdtest::moveMouse(view(), {100, 100});
          },
          [&] { EXPECT_TRUE(host.editor().input().isEmpty()); },
          [&] { answers.push_back(host.editor().ask(PromptKind::Drag, L"\nDrag: ")); },
          [&] {
              EXPECT_EQ(promptText(), QStringLiteral("Drag: "));
              at = window.view().toWorld({100, 120});
              kdtest::moveMouse(view(), {100, 120});
          }});
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0].kind, Answer::Kind::Move);
    EXPECT_TRUE(answers[0].point.isEqualTo(at));
}

TEST_F(WindowMouse, a_prompt_inside_a_waiting_prompt_gives_it_back) {
    play({keys("LINE "), [&] { EXPECT_EQ(promptText(), QStringLiteral("First point: ")); },
          [&] { EXPECT_EQ(host.editor().ask(PromptKind::Text, L"\nInner: ", true).text, L"a b"); },
          [&] {
              EXPECT_EQ(promptText(), QStringLiteral("Inner: "));
              EXPECT_EQ(host.editor().promptKind(), PromptKind::Text);
          },
          keys("a b"), key(Qt::Key_Return),
          [&] {
              EXPECT_EQ(host.editor().promptText(), L"\nFirst point: ");
              EXPECT_EQ(host.editor().promptKind(), PromptKind::Point);
              EXPECT_EQ(promptText(), QStringLiteral("First point: "));
          },
          keys("0,0 5,5  ")});
    EXPECT_EQ(entities().size(), 1u);
}

TEST_F(WindowMouse, the_wheel_zooms_and_the_place_under_the_cursor_stays) {
    const QPoint at(200, 150);
    const KdGePoint3d before = window.view().toWorld(at);
    const double scale = window.view().scale();
    kdtest::turnWheel(view(), at, 2);
    EXPECT_NEAR(window.view().scale(), scale * 1.25 * 1.25, 1e-9 * scale);
    EXPECT_TRUE(window.view().toWorld(at).isEqualTo(before, 1e-9));
    kdtest::turnWheel(view(), at, -2);
    EXPECT_NEAR(window.view().scale(), scale, 1e-9 * scale);
}

TEST_F(WindowMouse, the_middle_button_pans_and_doubled_shows_everything) {
    addTable();
    const KdGePoint3d held = window.view().toWorld({100, 100});
    QTest::mousePress(&view(), Qt::MiddleButton, Qt::NoModifier, {100, 100});
    kdtest::moveMouse(view(), {160, 130}, Qt::MiddleButton);
    EXPECT_TRUE(window.view().toWorld({160, 130}).isEqualTo(held, 1e-9));
    QTest::mouseRelease(&view(), Qt::MiddleButton, Qt::NoModifier, {160, 130});
    kdtest::moveMouse(view(), {10, 10});
    EXPECT_TRUE(window.view().toWorld({160, 130}).isEqualTo(held, 1e-9));

    QTest::mouseDClick(&view(), Qt::MiddleButton, Qt::NoModifier, {50, 50});
    const KdDbExtents box = kdhost::peek<KdDbEntity>(entities()[0])->getGeomExtents();
    const QRectF shown(window.view().toPixels(box.minPoint()), window.view().toPixels(box.maxPoint()));
    EXPECT_TRUE(QRectF(view().rect()).contains(shown.normalized()));
    EXPECT_GT(std::max(shown.normalized().width() / view().width(), shown.normalized().height() / view().height()),
              0.85);
}

TEST_F(WindowMouse, coordinates_follow_the_cursor) {
    auto* label = window.findChild<QLabel*>(QStringLiteral("Coordinates"));
    kdtest::moveMouse(view(), {40, 60});
    const KdGePoint3d at = window.view().toWorld({40, 60});
    EXPECT_EQ(label->text(),
              QStringLiteral("%1, %2").arg(QString::number(at.x, 'f', 4), QString::number(at.y, 'f', 4)));
}

TEST_F(WindowMouse, the_screen_coordinates_of_the_view_follow_the_window) {
    EXPECT_EQ(kfsw_kdadMainWnd(), &window);
    for (const QPoint& place : {QPoint(0, 0), QPoint(70, 40)}) {
        window.move(place);
        QApplication::processEvents();
        const QPoint corner = view().mapToGlobal(QPoint(0, 0));
        int x = corner.x() + 7;
        int y = corner.y() + 9;
        kdedGetKdadDwgView()->screenToClient(x, y);
        EXPECT_EQ(QPoint(x, y), QPoint(7, 9));
    }
}

/// Notes what it is told.
class Recorder : public kdhost::ViewInput {
public:
    std::vector<std::string> calls;
    kdhost::ViewPoint last;
    int takenKey = 0;
    Qt::CursorShape shape = Qt::CrossCursor;

    void press(const kdhost::ViewPoint& point) override { note("press", point); }
    void release(const kdhost::ViewPoint& point) override { note("release", point); }
    void doubleClick(const kdhost::ViewPoint& point) override { note("double", point); }
    void move(const kdhost::ViewPoint& point) override { note("move", point); }
    void context(const kdhost::ViewPoint& point) override { note("context", point); }
    void leave() override { calls.emplace_back("leave"); }
    bool key(const QKeyEvent& event) override { return event.key() == takenKey; }
    void paintOver(QPainter& painter, const kdhost::draw::View&) override {
        painter.fillRect(QRect(3, 3, 4, 4), Qt::magenta);
    }
    Qt::CursorShape cursorAt(const kdhost::ViewPoint&) override { return shape; }

private:
    void note(const char* call, const kdhost::ViewPoint& point) {
        calls.emplace_back(call);
        last = point;
    }
};

class WindowInput : public WindowMouse {
protected:
    WindowInput() {
        m_before = window.view().input();
        window.view().setInput(&recorder);
    }
    ~WindowInput() override { window.view().setInput(m_before); }

    Recorder recorder;

private:
    kdhost::ViewInput* m_before;
};

TEST_F(WindowInput, of_another_kind_gets_every_gesture_in_drawing_units) {
    QTest::mousePress(&view(), Qt::LeftButton, Qt::ShiftModifier, {30, 40});
    EXPECT_TRUE(recorder.last.world.isEqualTo(window.view().toWorld({30, 40})));
    EXPECT_EQ(recorder.last.modifiers, Qt::ShiftModifier);
    EXPECT_DOUBLE_EQ(recorder.last.unitsPerPixel, 1.0 / window.view().scale());
    kdtest::moveMouse(view(), {50, 60}, Qt::LeftButton);
    EXPECT_EQ(recorder.last.buttons, Qt::LeftButton);
    QTest::mouseRelease(&view(), Qt::LeftButton, Qt::NoModifier, {50, 60});
    QTest::mouseDClick(&view(), Qt::LeftButton, Qt::NoModifier, {50, 60});
    QTest::mouseRelease(&view(), Qt::LeftButton, Qt::NoModifier, {50, 60});
    QTest::mouseClick(&view(), Qt::RightButton, Qt::NoModifier, {50, 60});
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&view(), &leave);
    EXPECT_EQ(recorder.calls,
              (std::vector<std::string>{"press", "move", "release", "double", "release", "context", "leave"}));
}

TEST_F(WindowInput, gets_no_context_for_a_right_button_that_was_dragged) {
    QTest::mousePress(&view(), Qt::RightButton, Qt::NoModifier, {30, 40});
    kdtest::moveMouse(view(), {130, 140}, Qt::RightButton);
    QTest::mouseRelease(&view(), Qt::RightButton, Qt::NoModifier, {130, 140});
    EXPECT_EQ(recorder.calls, (std::vector<std::string>{"move"}));
}

TEST_F(WindowInput, may_take_a_key_while_nothing_has_been_typed) {
    recorder.takenKey = Qt::Key_X;
    play({keys("x"), [&] { EXPECT_EQ(edit().text(), QString()); }, keys("ax"),
          [&] { EXPECT_EQ(edit().text(), QStringLiteral("ax")); }});
}

TEST_F(WindowInput, paints_over_the_drawing_and_chooses_the_cursor) {
    EXPECT_EQ(view().grab().toImage().pixelColor(5, 5), QColor(Qt::magenta));
    recorder.shape = Qt::SizeHorCursor;
    kdtest::moveMouse(view(), {50, 50});
    EXPECT_EQ(view().cursor().shape(), Qt::SizeHorCursor);
    recorder.shape = Qt::CrossCursor;
    kdtest::moveMouse(view(), {51, 50});
    EXPECT_EQ(view().cursor().shape(), Qt::BlankCursor);
}

/// Counts how often it is told.
struct Follower : kdhost::ViewFollower {
    int times = 0;
    void viewMoved() override { ++times; }
};

TEST_F(WindowMouse, who_lies_over_the_view_is_told_when_places_move) {
    ASSERT_EQ(kdhost::viewWidget(), &window.view());
    EXPECT_EQ(&kdhost::viewWidget()->widget(), &view());
    Follower follower;
    window.view().addFollower(&follower);
    kdtest::turnWheel(view(), {10, 10}, 1);
    EXPECT_EQ(follower.times, 1);
    window.view().redraw();
    EXPECT_EQ(follower.times, 1);
    window.resize(window.width() + 40, window.height());
    QApplication::processEvents();
    EXPECT_GE(follower.times, 2);
    const int before = follower.times;
    play({keys("ZOOM 2x ")});
    EXPECT_EQ(follower.times, before + 1);
    window.view().removeFollower(&follower);
    kdtest::turnWheel(view(), {10, 10}, 1);
    EXPECT_EQ(follower.times, before + 1);
}

TEST_F(WindowMouse, a_picture_of_the_window_shows_what_no_prompt_has_shown_yet) {
    const QTemporaryDir folder;
    const auto picture = [&](const char* name) {
        const QString file = folder.filePath(QString::fromLatin1(name));
        EXPECT_EQ(kdhost::automation::shot(file.toStdWString()), L"");
        return QImage(file);
    };
    play({keys("LINE 10,100 400,100  "), [&] {
              const QImage before = picture("before.png");
              auto* line = kdtest::mustOpen<KdDbLine>(entities().back(), KdDb::kForWrite);
              line->setColor(KdCmColor::fromIndex(1));
              line->close();
              EXPECT_NE(picture("after.png"), before);
          }});
}

TEST_F(WindowMouse, the_view_shows_the_drawing_what_is_selected_and_what_is_dragged) {
    play({keys("LINE 10,100 400,100  ")});
    window.view().redraw();
    const QPoint on = pixelsOf(200, 100);
    const auto brightnessAt = [&](QPoint place) {
        int brightest = 0;
        const QImage image = view().grab().toImage();
        for (int dy = -2; dy <= 2; ++dy) {
            for (int dx = -8; dx <= 8; ++dx) {
                brightest = std::max(brightest, image.pixelColor(place + QPoint(dx, dy)).lightness());
            }
        }
        return brightest;
    };
    EXPECT_GT(brightnessAt(on), 200);
    EXPECT_LT(brightnessAt(pixelsOf(200, 150)), 60);

    const QImage plain = view().grab().toImage();
    host.editor().pickFirst().set(entities());
    EXPECT_NE(view().grab().toImage(), plain);
    host.editor().pickFirst().clear();
    EXPECT_EQ(view().grab().toImage(), plain);

    const KdDbLine dragged({10, 150, 0}, {400, 150, 0});
    kdhost::setDraggedEntity(&dragged);
    EXPECT_GT(brightnessAt(pixelsOf(200, 150)), 200);
    kdhost::setDraggedEntity(nullptr);
    kdhost::updateDisplay();
    EXPECT_LT(brightnessAt(pixelsOf(200, 150)), 60);
}

}  // namespace
