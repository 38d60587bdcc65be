// The edits of numbers on the general and the text page: what is refused, and when the focus comes back.

#include "tests/ui/styleedit/fixture.h"
#include "tests/ui/stylepages/controls.h"

namespace kdtest {
namespace {

/// An edit of a page, and what it writes.
struct NumberEdit {
    const char* name;
    StylePage page;
    double (*value)(const KdDbTableStyle& style);
    std::vector<const char*> refused;
    const char* accepted;
    double acceptedValue;
};

const NumberEdit numberEdits[] = {
    {kHorizontal,
     GeneralPage,
     [](const KdDbTableStyle& s) { return s.margin(KdDb::kCellMarginLeft, L"_DATA"); },
     {"-1", "-0.001", "x", "", "1.2.3", "1e100"},
     "0",
     0.0},
    {kVertical,
     GeneralPage,
     [](const KdDbTableStyle& s) { return s.margin(KdDb::kCellMarginTop, L"_DATA"); },
     {"-1", "-0.001", "x", "", "1.2.3", "1e100"},
     "0",
     0.0},
    {kHeight,
     TextPage,
     [](const KdDbTableStyle& s) { return s.textHeight(L"_DATA"); },
     {"0", "-1", "x", "", "1e100"},
     "1e5",
     100000.0},
    {kAngle, TextPage, [](const KdDbTableStyle& s) { return s.rotation(L"_DATA"); }, {"x", ""}, "0", 0.0},
};

void PrintTo(const NumberEdit& edit, std::ostream* out) {
    *out << edit.name;
}

class StylePageNumber : public StyleEditing, public ::testing::WithParamInterface<NumberEdit> {
protected:
    const NumberEdit& number = GetParam();

    double value() { return number.value(style()); }
    QLineEdit& control(QWidget& dialog) { return in<QLineEdit>(dialog, number.name); }
    /// The dialog on the edit's page, with the focus in the edit and a text in it.
    int typing(const char* text, const Edit& act) {
        return edit([&](CVqTableStyleEditDlg& dialog) {
            showPage(dialog, number.page);
            control(dialog).setFocus();
            control(dialog).selectAll();
            pressKey(Qt::Key_Delete);
            typeText(QString::fromUtf8(text));
            act(dialog);
            if (dialog.isVisible()) cancel(dialog);
        });
    }
};

INSTANTIATE_TEST_SUITE_P(All, StylePageNumber, ::testing::ValuesIn(numberEdits),
                         [](const auto& info) { return std::string(info.param.name).substr(4); });

TEST_P(StylePageNumber, What_is_refused_keeps_the_value_and_brings_the_focus_back_without_a_message) {
    const double before = value();
    for (const char* refused : number.refused) {
        typing(refused, [&](CVqTableStyleEditDlg& dialog) {
            for (const auto key : {Qt::Key_Tab, Qt::Key_Backtab}) {
                pressKey(key);
                EXPECT_EQ(QApplication::activeModalWidget(), &dialog) << "no message";
                EXPECT_EQ(text(dialog, number.name), refused);
                EXPECT_EQ(value(), before) << refused;
            }
        });
    }
}

TEST_P(StylePageNumber, The_focus_comes_back_within_the_page_with_the_whole_text_selected) {
    typing("x", [&](CVqTableStyleEditDlg& dialog) {
        // Whichever way leads to another control of the page.
        auto* neighbour = control(dialog).parentWidget()->findChild<QComboBox*>();
        neighbour->setFocus(Qt::MouseFocusReason);
        EXPECT_EQ(focusName(), number.name);
        EXPECT_EQ(control(dialog).selectedText(), QStringLiteral("x"));
    });
}

TEST_P(StylePageNumber, Outside_of_the_page_the_focus_stays_where_it_went) {
    typing("x", [&](CVqTableStyleEditDlg& dialog) {
        const double before = value();
        in<QComboBox>(dialog, kCellStyleBox).setFocus(Qt::MouseFocusReason);
        EXPECT_EQ(focusName(), kCellStyleBox);
        EXPECT_EQ(value(), before);
        EXPECT_EQ(text(dialog, number.name), "x");
    });
}

TEST_P(StylePageNumber, Cancel_takes_the_focus_and_closes) {
    const double before = value();
    EXPECT_EQ(typing("x",
                     [&](CVqTableStyleEditDlg& dialog) {
                         cancel(dialog);
                         EXPECT_FALSE(dialog.isVisible());
                     }),
              2);
    EXPECT_EQ(value(), before);
}

TEST_P(StylePageNumber, A_control_of_the_page_named_as_the_cancel_button_takes_the_focus_too) {
    typing("x", [&](CVqTableStyleEditDlg& dialog) {
        auto* page = control(dialog).parentWidget();
        auto* cancelOfPage = new QPushButton(page);
        cancelOfPage->setObjectName(QStringLiteral("IDCANCEL"));
        cancelOfPage->show();
        cancelOfPage->setFocus();
        EXPECT_EQ(focusName(), "IDCANCEL");
        delete cancelOfPage;
    });
}

TEST_P(StylePageNumber, OK_closes_with_the_value_before_when_the_text_is_refused) {
    const double before = value();
    EXPECT_EQ(typing("x", [&](CVqTableStyleEditDlg& dialog) { ok(dialog); }), 1);
    EXPECT_EQ(value(), before);
}

TEST_P(StylePageNumber, What_is_accepted_is_stored_when_the_focus_leaves) {
    change([&](KdDbTableStyle& open) { open.setRotation(1.0, L"_DATA"); });
    EXPECT_EQ(typing(number.accepted,
                     [&](CVqTableStyleEditDlg& dialog) {
                         pressKey(Qt::Key_Tab);
                         EXPECT_NE(focusName(), number.name);
                         EXPECT_EQ(value(), number.acceptedValue);
                         ok(dialog);
                     }),
              1);
    EXPECT_EQ(value(), number.acceptedValue);
}

TEST_P(StylePageNumber, Another_page_takes_the_focus_and_what_was_typed_stands_or_is_dropped) {
    const double before = value();
    typing("x", [&](CVqTableStyleEditDlg& dialog) {
        showPage(dialog, BorderPage);
        EXPECT_NE(focusName(), number.name);
        EXPECT_EQ(value(), before);
    });
    typing(number.accepted, [&](CVqTableStyleEditDlg& dialog) {
        showPage(dialog, BorderPage);
        EXPECT_EQ(value(), number.acceptedValue);
    });
}

TEST_P(StylePageNumber, Enter_and_Esc_reach_the_dialog) {
    EXPECT_EQ(typing(number.accepted, [&](CVqTableStyleEditDlg&) { pressKey(Qt::Key_Return); }), 1);
    EXPECT_EQ(value(), number.acceptedValue);
    EXPECT_EQ(typing("x", [&](CVqTableStyleEditDlg&) { pressKey(Qt::Key_Escape); }), 2);
    EXPECT_EQ(value(), number.acceptedValue);
}

}  // namespace
}  // namespace kdtest
