// Which controls of the pages ask for the previews of the dialog around them, and which don't.

#include <QCheckBox>
#include <QPixmap>

#include "host/ui/dialogs/textstyles.h"
#include "tests/ui/style/borders.h"

namespace kdtest {
namespace {

using Act = void (*)(QWidget& dialog);

class StylePagePreviews : public StyleEditing {
protected:
    /// Tells each picture that has come to a preview from the one before, alike or not.
    static std::pair<qint64, qint64> pictures(QWidget& dialog) {
        QApplication::processEvents();
        const auto key = [&](const char* name) {
            return in<QLabel>(dialog, name).pixmap(Qt::ReturnByValue).cacheKey();
        };
        return {key("IDC_TABLESTYLEEDIT_TABLEUP_STATIC"), key("IDC_TABLESTYLEEDIT_PREVIEWPIC_STATIC")};
    }
    /// Whether both previews, or neither, come anew with what `act` does.
    static bool refreshes(QWidget& dialog, const std::function<void()>& act) {
        const auto before = pictures(dialog);
        act();
        const auto after = pictures(dialog);
        EXPECT_EQ(before.first != after.first, before.second != after.second);
        return before.first != after.first;
    }
    void expectRefreshes(StylePage page, const std::vector<std::pair<std::string, Act>>& acts, bool expected) {
        edit([&](CVqTableStyleEditDlg& dialog) {
            showPage(dialog, page);
            EXPECT_FALSE(refreshes(dialog, [] {}));
            for (const auto& [name, act] : acts) {
                backIn(dialog);
                EXPECT_EQ(refreshes(dialog, [&, act = act] { act(dialog); }), expected) << name;
            }
            if (dialog.isVisible()) cancel(dialog);
        });
    }
};

TEST_F(StylePagePreviews, Fill_alignment_margins_and_merging_are_shown) {
    expectRefreshes(
        GeneralPage,
        {{"fill", [](QWidget&) { choose("IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX", 4); }},
         {"alignment", [](QWidget&) { choose("IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX", 8); }},
         {"horizontal", [](QWidget& dialog) { enter(dialog, "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT", "3"); }},
         {"vertical", [](QWidget& dialog) { enter(dialog, "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT", "3"); }},
         {"merge", [](QWidget& dialog) { in<QCheckBox>(dialog, "IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON").click(); }}},
        true);
}

TEST_F(StylePagePreviews, The_class_is_not_shown_and_neither_is_what_was_refused) {
    expectRefreshes(GeneralPage,
                    {{"class", [](QWidget&) { choose("IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX", 1); }},
                     {"refused", [](QWidget& dialog) { enter(dialog, "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT", "-1"); }}},
                    false);
}

TEST_F(StylePagePreviews, The_format_is_not_shown) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_FALSE(refreshes(dialog, [&] {
            next([](QWidget& formats) {
                choose("IDC_DATAFORMAT_TYPE_COMBOBOX", "Whole number");
                ok(formats);
            });
            press(dialog, "IDC_CELLSTYLEGENERAL_FORMAT_BUTTON");
        }));
        backIn(dialog);
        EXPECT_EQ(in<QLabel>(dialog, "IDC_CELLSTYLEGENERAL_FORMATSHOW_STATIC").text(), QStringLiteral("Whole Number"));
        cancel(dialog);
    });
}

TEST_F(StylePagePreviews, All_of_the_text_page_is_shown) {
    EXPECT_FALSE(kdhost::TextStyles(host.database()).create(L"Notes", L"Standard"));
    expectRefreshes(TextPage,
                    {{"style", [](QWidget&) { choose("IDC_CELLSTYLETEXT_TEXTSTYLE_COMBOBOX", "Notes"); }},
                     {"colour", [](QWidget&) { choose("IDC_CELLSTYLETEXT_TEXTCOLOR_COMBOBOX", 3); }},
                     {"height", [](QWidget& dialog) { enter(dialog, "IDC_CELLSTYLETEXT_TEXTHEIGHT_EDIT", "3"); }},
                     {"angle", [](QWidget& dialog) { enter(dialog, "IDC_CELLSTYLETEXT_TEXTANGLE_EDIT", "30"); }}},
                    true);
}

TEST_F(StylePagePreviews, The_text_style_that_its_dialog_leaves_is_shown) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        showPage(dialog, TextPage);
        EXPECT_TRUE(refreshes(dialog, [&] {
            next([](QWidget& hosts) { cancel(hosts); });
            press(dialog, "IDC_CELLSTYLETEXT_TEXTSTYLE_BUTTON");
        }));
        backIn(dialog);
        cancel(dialog);
    });
}

TEST_F(StylePagePreviews, Lines_are_shown_when_a_button_gives_them_and_not_when_they_are_picked) {
    expectRefreshes(BorderPage,
                    {{"weight", [](QWidget&) { choose(kWeightBox, 5); }},
                     {"type", [](QWidget&) { choose(kTypeBox, 2); }},
                     {"colour", [](QWidget&) { choose(kColorBox, 3); }},
                     {"double", [](QWidget& dialog) { in<QCheckBox>(dialog, kDouble).click(); }},
                     {"spacing", [](QWidget& dialog) { enter(dialog, kSpacing, "0.5"); }}},
                    false);
    expectRefreshes(BorderPage,
                    {{"none", [](QWidget& dialog) { press(dialog, kNone); }},
                     {"all", [](QWidget& dialog) { press(dialog, kAll); }},
                     {"bottom", [](QWidget& dialog) { press(dialog, kBottom); }}},
                    true);
}

}  // namespace
}  // namespace kdtest
