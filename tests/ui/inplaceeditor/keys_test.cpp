// The keys of the in-place editor: what ends it, what stays in it, and how it opens.

#include "tests/ui/inplaceeditor/fixture.h"
#include "win32/input.h"

namespace kdtest {
namespace {

using kdhost::EditorPanel;

class InPlaceEditorKeys : public InPlaceEditorTest {};

TEST_F(InPlaceEditorKeys, each_ending_key_has_its_code) {
    struct Row {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        Ended ended;
    };
    const Row rows[] = {
        {Qt::Key_Tab, Qt::NoModifier, {RTNORM, 9}},          {Qt::Key_Backtab, Qt::ShiftModifier, {RTNORM, 25}},
        {Qt::Key_Tab, Qt::ShiftModifier, {RTNORM, 25}},      {Qt::Key_Return, Qt::NoModifier, {RTNORM, 13}},
        {Qt::Key_Enter, Qt::KeypadModifier, {RTNORM, 13}},   {Qt::Key_Return, Qt::ShiftModifier, {RTNORM, 29}},
        {Qt::Key_Return, Qt::ControlModifier, {RTNORM, 13}}, {Qt::Key_Escape, Qt::NoModifier, {RTCAN, 27}},
        {Qt::Key_Left, Qt::NoModifier, {RTNORM, 37}},        {Qt::Key_Up, Qt::NoModifier, {RTNORM, 38}},
        {Qt::Key_Right, Qt::NoModifier, {RTNORM, 39}},       {Qt::Key_Down, Qt::NoModifier, {RTNORM, 40}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(edit([&](EditorPanel&) { press(row.key, row.modifiers); }), row.ended) << row.key;
    }
}

TEST_F(InPlaceEditorKeys, what_is_typed_is_the_text_when_the_editor_is_left) {
    EXPECT_EQ(type(QStringLiteral("M8 {x}")), (Ended{RTNORM, kMTextEditorTab}));
    EXPECT_EQ(contents(), L"M8 \\{x\\}");
}

TEST_F(InPlaceEditorKeys, Esc_leaves_the_text_as_it_was) {
    text.setContents(L"{\\Lold}");
    EXPECT_EQ(edit([](EditorPanel&) {
                  kdhost::typeKeys(QStringLiteral("new"));
                  press(Qt::Key_Escape);
              }),
              (Ended{RTCAN, kMTextEditorEscape}));
    EXPECT_EQ(contents(), L"{\\Lold}");
}

TEST_F(InPlaceEditorKeys, closing_the_editor_from_outside_cancels_it) {
    text.setContents(L"old");
    EXPECT_EQ(edit([](EditorPanel& panel) {
                  kdhost::typeKeys(QStringLiteral("new"));
                  panel.close();
              }),
              (Ended{RTCAN, kMTextEditorEscape}));
    EXPECT_EQ(contents(), L"old");
}

TEST_F(InPlaceEditorKeys, a_press_outside_accepts_and_one_inside_places_the_caret) {
    text.setContents(L"old");
    const Ended ended = edit([](EditorPanel& panel) {
        const QRect box = panel.box().toRect();
        kdhost::pressMouse(*panel.viewport(), box.topLeft() + QPoint(5, 12));
        EXPECT_FALSE(panel.hasEnded());
        EXPECT_FALSE(panel.text().textCursor().hasSelection());
        kdhost::typeKeys(QStringLiteral("x"));
        kdhost::pressMouse(*panel.viewport(), box.bottomRight() + QPoint(30, 30));
    });
    EXPECT_EQ(ended, (Ended{RTNORM, kMTextEditorOutside}));
    EXPECT_EQ(contents(), L"xold");
}

TEST_F(InPlaceEditorKeys, a_press_beside_the_text_moves_the_caret_to_the_nearest_character) {
    text.setContents(L"ab");
    edit([](EditorPanel& panel) {
        kdhost::pressMouse(*panel.viewport(), panel.box().bottomRight().toPoint() - QPoint(8, 8));
        EXPECT_FALSE(panel.hasEnded());
        EXPECT_EQ(panel.text().textCursor().position(), 2);
        EXPECT_FALSE(panel.text().textCursor().hasSelection());
        press(Qt::Key_Escape);
    });
}

TEST_F(InPlaceEditorKeys, a_press_between_the_buttons_of_the_bar_ends_nothing) {
    edit([](EditorPanel& panel) {
        kdhost::pressMouse(panel.bar(), QPoint(1, 1));
        EXPECT_FALSE(panel.hasEnded());
        press(Qt::Key_Escape);
    });
}

TEST_F(InPlaceEditorKeys, the_text_opens_selected_in_modes_1_and_3_and_with_the_caret_at_its_end_in_mode_2) {
    struct Row {
        int mode;
        const wchar_t* contents;
    };
    for (const Row& row : {Row{kMTextEditorSelectAll, L"x"}, Row{kMTextEditorFromNeighbour, L"x"},
                           Row{kMTextEditorCaretAtEnd, L"oldx"}}) {
        text.setContents(L"old");
        type(QStringLiteral("x"), row.mode);
        EXPECT_EQ(contents(), row.contents) << row.mode;
    }
}

TEST_F(InPlaceEditorKeys, arrows_move_the_caret_and_leave_only_where_it_cannot_move) {
    struct Row {
        Qt::Key key;
        int caret;
        int stays;  ///< the caret afterwards, -1 where the editor ends
    };
    // Two lines of two characters; places 0 to 5.
    const Row rows[] = {
        {Qt::Key_Left, 0, -1},  {Qt::Key_Left, 1, 0},  {Qt::Key_Left, 3, 2},
        {Qt::Key_Right, 5, -1}, {Qt::Key_Right, 2, 3}, {Qt::Key_Up, 1, -1},
        {Qt::Key_Up, 4, 1},     {Qt::Key_Down, 4, -1}, {Qt::Key_Down, 1, 4},
    };
    text.setContents(L"ab\\Pcd");
    for (const Row& row : rows) {
        edit([&](EditorPanel& panel) {
            select(panel, row.caret, row.caret);
            press(row.key);
            EXPECT_EQ(panel.hasEnded() ? -1 : panel.text().textCursor().position(), row.stays)
                << row.key << " at " << row.caret;
            if (!panel.hasEnded()) press(Qt::Key_Escape);
        });
    }
}

TEST_F(InPlaceEditorKeys, arrows_of_a_selected_text_leave_where_its_caret_stands) {
    text.setContents(L"ab");
    EXPECT_EQ(edit([](EditorPanel&) { press(Qt::Key_Right); }), (Ended{RTNORM, kMTextEditorRight}));
    EXPECT_EQ(edit([](EditorPanel&) { press(Qt::Key_Down); }), (Ended{RTNORM, kMTextEditorDown}));
    EXPECT_EQ(edit([](EditorPanel& panel) {
                  press(Qt::Key_Left);
                  EXPECT_FALSE(panel.hasEnded());
                  press(Qt::Key_Home);
                  press(Qt::Key_Left);
              }),
              (Ended{RTNORM, kMTextEditorLeft}));
    EXPECT_EQ(contents(), L"ab");
}

TEST_F(InPlaceEditorKeys, Shift_and_an_arrow_never_leaves) {
    text.setContents(L"ab");
    edit([](EditorPanel& panel) {
        select(panel, 2, 2);
        press(Qt::Key_Right, Qt::ShiftModifier);
        press(Qt::Key_Down, Qt::ShiftModifier);
        EXPECT_FALSE(panel.hasEnded());
        press(Qt::Key_Left, Qt::ShiftModifier);
        EXPECT_EQ(panel.text().textCursor().selectedText(), QStringLiteral("b"));
        press(Qt::Key_Escape);
    });
}

TEST_F(InPlaceEditorKeys, Alt_and_Enter_begins_a_line_and_Ctrl_and_Tab_types_a_tab) {
    edit([](EditorPanel&) {
        kdhost::typeKeys(QStringLiteral("a"));
        press(Qt::Key_Return, Qt::AltModifier);
        kdhost::typeKeys(QStringLiteral("b"));
        press(Qt::Key_Tab, Qt::ControlModifier);
        kdhost::typeKeys(QStringLiteral("c"));
        tab();
    });
    EXPECT_EQ(contents(), L"a\\Pb\tc");
}

TEST_F(InPlaceEditorKeys, the_state_of_Ctrl_is_kept_until_the_next_key) {
    edit([](EditorPanel&) { press(Qt::Key_Return, Qt::ControlModifier); });
    EXPECT_LT(GetKeyState(VK_CONTROL), 0);
    QApplication::processEvents();
    EXPECT_LT(GetKeyState(VK_CONTROL), 0);
    edit([](EditorPanel&) { press(Qt::Key_Return); });
    EXPECT_EQ(GetKeyState(VK_CONTROL), 0);

    edit([](EditorPanel&) { press(Qt::Key_Return, Qt::ControlModifier); });
    QWidget other;
    other.show();
    QTest::keyClick(&other, Qt::Key_A);
    EXPECT_EQ(GetKeyState(VK_CONTROL), 0);
}

TEST_F(InPlaceEditorKeys, what_was_typed_is_undone_and_redone) {
    text.setContents(L"old");
    edit([](EditorPanel& panel) {
        kdhost::typeKeys(QStringLiteral("new"));
        while (panel.plainText() != L"old" && panel.text().document()->isUndoAvailable()) {
            press(Qt::Key_Z, Qt::ControlModifier);
        }
        EXPECT_EQ(panel.plainText(), L"old");
        while (panel.text().document()->isRedoAvailable()) press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(panel.plainText(), L"new");
        tab();
    });
    EXPECT_EQ(contents(), L"new");
}

TEST_F(InPlaceEditorKeys, an_edit_while_a_text_is_edited_is_cancelled) {
    edit([](EditorPanel& panel) {
        KdDbMText other;
        KdDbMText* edited = &other;
        int key = 0;
        EXPECT_EQ(invokeMTextEditorForTable(edited, key, kMTextEditorSelectAll), RTCAN);
        EXPECT_EQ(key, kMTextEditorEscape);
        EXPECT_EQ(kdhost::openInPlaceEditor(), &panel);
        tab();
    });
}

TEST_F(InPlaceEditorKeys, a_null_text_is_refused) {
    KdDbMText* none = nullptr;
    int key = 5;
    EXPECT_EQ(invokeMTextEditorForTable(none, key, kMTextEditorSelectAll), RTERROR);
    EXPECT_EQ(key, 5);
}

// ---- input methods

/// What an input method sends while characters are composed, and when they are chosen.
void compose(const QString& preedit) {
    QInputMethodEvent event(preedit, {});
    QCoreApplication::sendEvent(QApplication::focusObject(), &event);
}
void commit(const QString& chosen) {
    QInputMethodEvent event;
    event.setCommitString(chosen);
    QCoreApplication::sendEvent(QApplication::focusObject(), &event);
}

TEST_F(InPlaceEditorKeys, an_input_method_composes_and_commits) {
    edit([](EditorPanel& panel) {
        compose(QStringLiteral("luo"));
        EXPECT_EQ(panel.plainText(), L"");
        commit(QStringLiteral("螺栓"));
        EXPECT_EQ(panel.plainText(), L"螺栓");
        tab();
    });
    EXPECT_EQ(contents(), L"螺栓");
}

TEST_F(InPlaceEditorKeys, a_key_while_characters_are_composed_ends_nothing) {
    edit([](EditorPanel& panel) {
        compose(QStringLiteral("luo"));
        press(Qt::Key_Return);
        press(Qt::Key_Escape);
        EXPECT_FALSE(panel.hasEnded());
        commit(QStringLiteral("螺"));
        press(Qt::Key_Return);
        EXPECT_TRUE(panel.hasEnded());
    });
    EXPECT_EQ(contents(), L"螺");
}

TEST_F(InPlaceEditorKeys, committed_characters_have_the_format_that_is_written_in) {
    text.setContents(L"{\\La}");
    edit(
        [](EditorPanel&) {
            commit(QStringLiteral("中"));
            tab();
        },
        kMTextEditorCaretAtEnd);
    EXPECT_EQ(contents(), L"{\\La中}");
}

TEST_F(InPlaceEditorKeys, characters_beyond_16_bits_come_through) {
    edit([](EditorPanel&) {
        commit(QString::fromUcs4(U"\U0001F529"));
        tab();
    });
    EXPECT_EQ(contents(), std::wstring(1, wchar_t{0x1F529}));
}

}  // namespace
}  // namespace kdtest
