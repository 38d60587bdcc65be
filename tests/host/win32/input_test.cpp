// Tests of the state of keys and the place of the mouse.

#include <gtest/gtest.h>

#include <QCursor>
#include <QLineEdit>
#include <QTest>

#include "host/win32/keystate.h"
#include "mfc/geometry.h"
#include "win32/input.h"

namespace {

class Keys : public ::testing::Test {
protected:
    void TearDown() override { kdhost::releaseKeyState(); }
};

TEST_F(Keys, no_key_is_down_when_nothing_is_pressed) {
    for (const int key : {16, 17, 18, 65, 0}) EXPECT_EQ(GetKeyState(key), 0);
}

TEST_F(Keys, a_kept_state_answers_until_it_is_released) {
    kdhost::keepKeyState(Qt::ControlModifier);
    EXPECT_LT(GetKeyState(17), 0);
    EXPECT_EQ(GetKeyState(VK_SHIFT), 0);
    kdhost::keepKeyState(Qt::ShiftModifier | Qt::AltModifier);
    EXPECT_EQ(GetKeyState(VK_CONTROL), 0);
    EXPECT_LT(GetKeyState(VK_SHIFT), 0);
    EXPECT_LT(GetKeyState(VK_MENU), 0);
    kdhost::releaseKeyState();
    EXPECT_EQ(GetKeyState(VK_SHIFT), 0);
}

TEST_F(Keys, a_pressed_key_is_down_while_its_event_is_handled) {
    short seen = 0;
    QLineEdit edit;
    QObject::connect(&edit, &QLineEdit::returnPressed, [&] { seen = GetKeyState(VK_CONTROL); });
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(seen, 0);
    edit.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&edit));
    QTest::keyClick(edit.windowHandle(), Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(edit.windowHandle(), Qt::Key_A);  // lets Ctrl go for the tests that follow
    EXPECT_LT(seen, 0);
}

TEST_F(Keys, a_kept_state_wins_over_the_keyboard) {
    kdhost::keepKeyState(Qt::NoModifier);
    short seen = -1;
    QLineEdit edit;
    QObject::connect(&edit, &QLineEdit::returnPressed, [&] { seen = GetKeyState(VK_CONTROL); });
    edit.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&edit));
    QTest::keyClick(edit.windowHandle(), Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(edit.windowHandle(), Qt::Key_A);  // lets Ctrl go for the tests that follow
    EXPECT_EQ(seen, 0);
}

TEST(Mouse, its_place_is_told_in_pixels_of_the_screen) {
    QCursor::setPos(123, 45);
    CPoint point;
    ASSERT_NE(GetCursorPos(&point), 0);
    EXPECT_EQ(point, (CPoint{123, 45}));
    EXPECT_EQ(GetCursorPos(nullptr), 0);
}

}  // namespace
