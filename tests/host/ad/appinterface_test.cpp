// The application as floating windows see it: the cursor's state, keys for the drawing, macros.

#include "kd/ad/appinterface.h"

#include <QKeyEvent>

#include "host/app/keyinput.h"
#include "host/ed/commands.h"
#include "host/rx/commandstack.h"
#include "kd/ed/prompts.h"
#include "tests/support/application.h"

namespace {

class AppInterface : public kdtest::ApplicationTest {
protected:
    static KdadApplicationInterface& application() { return *kdadApplicationInterface(); }
    bool showsCross() { return host.application().applicationInterface().showsCross(); }
    /// What waits in the queue, "^C" for each cancelling and "esc" for the key.
    std::wstring takeInput() {
        using Kind = kdhost::InputItem::Kind;
        std::wstring text;
        while (!host.editor().input().isEmpty()) {
            const auto item = host.editor().input().next(nullptr);
            text += item->kind == Kind::Cancel   ? std::wstring(L"^C")
                    : item->kind == Kind::Escape ? std::wstring(L"esc")
                                                 : std::wstring(1, item->character);
        }
        return text;
    }
    static bool press(int key, const QString& text = QString(), Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        return application().sendKey(6, &event);
    }
};

TEST(AppInterfaceWithoutHost, there_is_none_and_no_macro_runs) {
    EXPECT_EQ(kdadApplicationInterface(), nullptr);
    EXPECT_FALSE(VqExecuteCommand(L"LINE"));
}

TEST_F(AppInterface, a_lock_holds_its_state_and_tells_the_one_before_until_it_ends) {
    EXPECT_EQ(application().cursorState(), 1);
    EXPECT_TRUE(showsCross());
    for (int repeated = 0; repeated < 2; ++repeated) {
        application().setCursorState(0, true);
        EXPECT_EQ(application().cursorState(), 1);
        EXPECT_FALSE(showsCross());
    }
    application().setCursorState(1, false);
    EXPECT_TRUE(showsCross());
    EXPECT_EQ(application().cursorState(), 1);
}

TEST_F(AppInterface, a_state_without_a_lock_stays) {
    application().setCursorState(0, false);
    EXPECT_EQ(application().cursorState(), 0);
    EXPECT_FALSE(showsCross());
    application().setCursorState(7, true);
    EXPECT_TRUE(showsCross());
    application().setCursorState(0, false);
    EXPECT_FALSE(showsCross());
}

TEST_F(AppInterface, keys_go_to_whoever_receives_them_and_only_those_that_go_down) {
    std::vector<int> keys;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    EXPECT_FALSE(application().sendKey(6, &event));
    host.application().applicationInterface().setKeyReceiver([&](const QKeyEvent& key) {
        keys.push_back(key.key());
        return key.key() != Qt::Key_B;
    });
    EXPECT_TRUE(application().sendKey(6, &event));
    EXPECT_FALSE(application().sendKey(7, &event));
    EXPECT_FALSE(application().sendKey(6, nullptr));
    EXPECT_FALSE(press(Qt::Key_B));
    EXPECT_EQ(keys, (std::vector<int>{Qt::Key_A, Qt::Key_B}));
}

TEST_F(AppInterface, without_a_main_window_keys_are_typed_at_the_prompt) {
    host.application().applicationInterface().setKeyReceiver(kdhost::takeKeyForDrawing);
    EXPECT_TRUE(press(Qt::Key_L, QStringLiteral("L")));
    EXPECT_TRUE(press(Qt::Key_Space, QStringLiteral(" ")));
    EXPECT_TRUE(press(Qt::Key_Return, QStringLiteral("\r")));
    EXPECT_TRUE(press(Qt::Key_Escape, QStringLiteral("\x1b")));
    EXPECT_FALSE(press(Qt::Key_F5));
    EXPECT_FALSE(press(Qt::Key_Tab, QStringLiteral("\t")));
    EXPECT_EQ(takeInput(), L"L \nesc");
}

TEST_F(AppInterface, a_macro_is_typed_with_an_Enter_behind_it_and_cancels_where_it_says_so) {
    host.type(L"later");
    EXPECT_TRUE(VqExecuteCommand(L"^C^C_LINE 1,2", -1, 1));
    EXPECT_EQ(takeInput(), L"^C^C_LINE 1,2\nlater");
    EXPECT_FALSE(VqExecuteCommand(nullptr));
}

std::wstring& answer() {
    static std::wstring text;
    return text;
}

TEST_F(AppInterface, a_macro_answers_the_prompts_of_its_command) {
    kdhost::commandStack().addCommand(
        L"TEST", L"ASK", L"ASK", 0,
        [] {
            wchar_t reply[1024] = L"";
            kdedGetString(0, L"What? ", reply);
            answer() = reply;
        },
        nullptr, -1, nullptr, nullptr);
    EXPECT_TRUE(VqExecuteCommand(L"^C^C_ASK that", -1, 0));
    kdhost::runQueuedCommands();
    EXPECT_EQ(answer(), L"that");
    kdhost::commandStack().removeGroup(L"TEST");
}

TEST_F(AppInterface, without_a_document_no_macro_runs) {
    ASSERT_TRUE(host.documents().close(host.document()));
    EXPECT_FALSE(VqExecuteCommand(L"LINE"));
    host.documents().openNew();
}

}  // namespace
