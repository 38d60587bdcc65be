// The edits of the insert dialog: what is taken when they are left, and how they step.

#include <QTimer>
#include <QWheelEvent>

#include "kd/db/database.h"
#include "tests/ui/insert/fixture.h"

namespace kdtest {
namespace {

constexpr const char* kIntegerEdits[] = {kColumnsEdit, kRowsEdit, kHeightEdit};

/// More digits than a finite number has.
const std::wstring kBeyondNumbers(310, L'9');

class InsertDialogEdits : public InsertDialogTest {
protected:
    /// What an edit shows when the focus has gone from it to another control of the dialog.
    std::wstring left(const char* edit, const std::wstring& text, const char* to = "IDHELP") const {
        put(edit, text);
        leaveTo(to);
        return shown(edit);
    }
    /// The same for another window.
    std::wstring leftOutside(const char* edit, const std::wstring& text) const {
        put(edit, text);
        std::wstring after;
        QTimer::singleShot(0, dialog.get(), [&] {
            QWidget* box = QApplication::activeModalWidget();
            EXPECT_TRUE(
                QTest::qWaitFor([&] { return box->isActiveWindow() && box->isAncestorOf(box->focusWidget()); }));
            after = shown(edit);
            QTest::keyClick(box, Qt::Key_Escape);
        });
        dialog->MessageBoxW(L"text", L"caption", 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->isActiveWindow(); }));
        dialog->GetDlgItem(edit)->SetWindowTextW(L"2");
        leaveTo("IDHELP");
        return after;
    }
    /// The numbers behind the texts, which the point mode shows.
    Names kept() const {
        press(kWindowRadio);
        press(kPointRadio);
        return figures();
    }
    void wheel(const char* name, int delta) const {
        QWidget& target = control(name);
        const QPointF place = target.rect().center();
        QWheelEvent event(place, target.mapToGlobal(place.toPoint()), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        // As the platform's own, which goes on to the dialog where a control has no use for it.
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&target, &event);
    }
};

TEST_F(InsertDialogEdits, Good_texts_are_taken_in_their_plainest_form) {
    open([&] {
        put(kColumnsEdit, L" 007 ");
        leaveTo(kRowsEdit);
        put(kRowsEdit, L"+12");
        leaveTo(kHeightEdit);
        put(kHeightEdit, L"2147483647");
        leaveTo(kWidthEdit);
        put(kWidthEdit, L"012.50");
        leaveTo("IDOK");
        EXPECT_EQ(kept(), (Names{L"7", L"12.50", L"12", L"2147483647"}));
    });
}

TEST_F(InsertDialogEdits, An_illegal_number_gives_way_to_the_text_before) {
    open([&] {
        for (const char* edit : kIntegerEdits) {
            const std::wstring before = shown(edit);
            for (const wchar_t* bad :
                 {L"", L" ", L"0", L"abc", L"2.5", L"3x", L"1e1", L"1e400", L"2147483648", L"Auto"}) {
                EXPECT_EQ(left(edit, bad), before) << edit << std::wstring(bad);
            }
        }
        EXPECT_EQ(left(kWidthEdit, L""), length(63.5));
        EXPECT_EQ(left(kWidthEdit, L"  "), length(63.5));
    });
}

TEST_F(InsertDialogEdits, A_legal_number_that_is_not_above_0_gives_way_within_the_dialog) {
    open([&] {
        for (const char* edit : kIntegerEdits) {
            const std::wstring before = shown(edit);
            for (const wchar_t* bad : {L"-1", L"-2147483648"}) EXPECT_EQ(left(edit, bad), before) << edit;
        }
        // Of a width any text is legal that isn't blank.
        for (const wchar_t* bad : {L"0", L"0.0", L"-3", L"abc", L"Auto"}) {
            EXPECT_EQ(left(kWidthEdit, bad), length(63.5)) << std::wstring(bad);
        }
    });
}

TEST_F(InsertDialogEdits, Outside_the_dialog_the_two_bad_cases_differ) {
    open([&] {
        for (const char* edit : kIntegerEdits) {
            const std::wstring before = shown(edit);
            EXPECT_EQ(leftOutside(edit, L"-5"), L"-5") << edit << ": legal, and left there";
            put(edit, before);
            leaveTo("IDHELP");
            EXPECT_EQ(leftOutside(edit, L"abc"), before) << edit << ": illegal, and replaced";
        }
        EXPECT_EQ(leftOutside(kWidthEdit, L"-5"), L"-5");
        put(kWidthEdit, L"9");
        leaveTo("IDHELP");
        EXPECT_EQ(leftOutside(kWidthEdit, L""), L"9");
    });
}

TEST_F(InsertDialogEdits, A_width_that_is_not_finite_is_illegal) {
    open([&] {
        for (const wchar_t* bad : {L"1e400", L"-1e400", L"1e400 mm", L"inf", L"nan"}) {
            EXPECT_EQ(left(kWidthEdit, bad), length(63.5)) << std::wstring(bad);
            EXPECT_EQ(left(kWidthEdit, bad, "IDCANCEL"), bad);
        }
        put(kWidthEdit, L"9");
        leaveTo("IDHELP");
        EXPECT_EQ(leftOutside(kWidthEdit, L"1e400"), L"9");
    });
}

TEST_F(InsertDialogEdits, On_the_way_to_Cancel_both_bad_cases_are_left_alone) {
    open([&] {
        for (const char* edit : kIntegerEdits) {
            for (const wchar_t* bad : {L"-5", L"abc"}) EXPECT_EQ(left(edit, bad, "IDCANCEL"), bad) << edit;
        }
        EXPECT_EQ(left(kWidthEdit, L"-5", "IDCANCEL"), L"-5");
        EXPECT_EQ(left(kWidthEdit, L"", "IDCANCEL"), L"");
    });
}

TEST_F(InsertDialogEdits, What_was_refused_is_never_taken) {
    open([&] {
        left(kColumnsEdit, L"-5", "IDCANCEL");
        leftOutside(kRowsEdit, L"-5");
        EXPECT_EQ(kept(), (Names{L"3", length(63.5), L"2", L"1"}));
    });
}

TEST_F(InsertDialogEdits, Enter_takes_the_text_of_the_edit_it_is_pressed_in) {
    EXPECT_EQ(open([&] {
                  put(kColumnsEdit, L"6");
                  pressKey(Qt::Key_Return);
              }),
              1);
    EXPECT_EQ(stored(L"Columns"), 6);
}

// Stepping.

TEST_F(InsertDialogEdits, Whole_numbers_step_by_1_from_1_to_32767) {
    open([&] {
        for (const char* edit : kIntegerEdits) {
            put(edit, L"2");
            pressKey(Qt::Key_Up);
            EXPECT_EQ(shown(edit), L"3") << edit;
            for (int i = 0; i < 4; ++i) pressKey(Qt::Key_Down);
            EXPECT_EQ(shown(edit), L"1") << edit << " ends there";
            put(edit, L"32767");
            pressKey(Qt::Key_Up);
            EXPECT_EQ(shown(edit), L"32767") << edit << " doesn't wrap";
            wheel(edit, -120);
            EXPECT_EQ(shown(edit), L"32766") << edit;
        }
    });
}

TEST_F(InsertDialogEdits, The_width_steps_by_the_2000th_part_in_decimal_units) {
    for (const int units : {1, 2}) {
        drawing().setLunits(units);
        drawing().setLuprec(4);
        open([&] {
            put(kWidthEdit, L"1");
            pressKey(Qt::Key_Up);
            EXPECT_EQ(shown(kWidthEdit), length(1.0005));
            pressKey(Qt::Key_Down);
            EXPECT_EQ(shown(kWidthEdit), length(1.0));
            pressKey(Qt::Key_PageUp);
            EXPECT_EQ(shown(kWidthEdit), length(1.005));
        });
    }
}

TEST_F(InsertDialogEdits, The_width_steps_by_the_20th_part_in_units_of_inches) {
    for (const int units : {3, 4, 5}) {
        drawing().setLunits(units);
        drawing().setLuprec(4);
        open([&] {
            put(kWidthEdit, length(10.0));
            pressKey(Qt::Key_PageUp);
            EXPECT_EQ(shown(kWidthEdit), length(10.5)) << units;
        });
    }
}

TEST_F(InsertDialogEdits, The_width_steps_no_further_than_0_and_from_0_where_there_is_no_number) {
    open([&] {
        put(kWidthEdit, L"0.0002");
        pressKey(Qt::Key_Down);
        EXPECT_EQ(shown(kWidthEdit), length(0.0));
        put(kWidthEdit, L"junk");
        pressKey(Qt::Key_Up);
        EXPECT_EQ(shown(kWidthEdit), length(0.0005));
        put(kWidthEdit, kBeyondNumbers);
        pressKey(Qt::Key_Up);
        EXPECT_EQ(shown(kWidthEdit), length(0.0005));
    });
}

TEST_F(InsertDialogEdits, The_wheel_steps_the_width_while_its_edit_has_the_focus) {
    open([&] {
        put(kWidthEdit, L"10");
        wheel(kWidthEdit, 120);
        EXPECT_EQ(shown(kWidthEdit), L"10.0005");
        wheel(kWidthEdit, -120);
        wheel(kWidthEdit, -240);
        EXPECT_EQ(shown(kWidthEdit), L"9.9995") << "whatever the turn, one step";
        wheel(kPreview, 120);
        EXPECT_EQ(shown(kWidthEdit), L"10.0000") << "the wheel may be anywhere over the dialog";
        EXPECT_EQ(dialog->OnMouseWheel(0), 1);
        EXPECT_EQ(shown(kWidthEdit), L"10.0000");
        put(kWidthEdit, L"0.0001");
        wheel(kWidthEdit, -120);
        EXPECT_EQ(shown(kWidthEdit), L"0.0000");
        leaveTo("IDHELP");
        wheel(kPreview, 120);
        EXPECT_EQ(shown(kWidthEdit), L"0.0000") << "the wheel is idle";
        EXPECT_EQ(dialog->OnMouseWheel(120), 1);
    });
}

TEST_F(InsertDialogEdits, The_wheel_steps_up_from_0) {
    open([&] {
        put(kWidthEdit, L"0");
        wheel(kWidthEdit, 120);
        EXPECT_EQ(shown(kWidthEdit), L"0.0005");
    });
}

TEST_F(InsertDialogEdits, The_wheel_leaves_a_text_that_is_no_width) {
    open([&] {
        for (const std::wstring& bad : {kBeyondNumbers, std::wstring(L"junk"), std::wstring(L"-3")}) {
            put(kWidthEdit, bad);
            wheel(kWidthEdit, 120);
            EXPECT_EQ(shown(kWidthEdit), bad);
        }
        EXPECT_EQ(focusName(), kWidthEdit);
        leaveTo("IDHELP");
        EXPECT_EQ(shown(kWidthEdit), length(63.5)) << "nor was it taken";
    });
}

TEST_F(InsertDialogEdits, The_wheel_in_a_window_leaves_automatic_figures_automatic) {
    open([&] {
        press(kWindowRadio);
        press(kWidthRadio);
        put(kWidthEdit, L"10");
        wheel(kWidthEdit, 120);
        EXPECT_EQ(figures(), (Names{L"Auto", L"10.0005", L"3", L"Auto"}));
        press(kPointRadio);
        EXPECT_EQ(figures(), (Names{L"3", L"10.0005", L"3", L"1"}));
    });
}

}  // namespace
}  // namespace kdtest
