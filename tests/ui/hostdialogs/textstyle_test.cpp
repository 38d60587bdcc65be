// The text style dialog, and the styles that it works on.

#include <QCheckBox>

#include "host/db/access.h"
#include "host/ui/dialogs/textstyles.h"
#include "kd/db/database.h"
#include "kd/db/mtext.h"
#include "kd/db/symboltable.h"
#include "tests/ui/hostdialogs/fixture.h"

namespace {

using kdhost::HostText;
using kdhost::TextStyles;
using kdhost::TextStyleValues;

class TextStyleDialogs : public kdtest::HostDialogTest {
protected:
    TextStyles styles() { return TextStyles(host.database()); }
    bool ask(CStdStr<wchar_t>* name = nullptr) { return invokeTextStyleDialog(&host.database(), name); }
    using Names = std::vector<std::wstring>;
};

TEST_F(TextStyleDialogs, styles_are_made_renamed_and_deleted) {
    TextStyles list = styles();
    EXPECT_EQ(list.names(), Names{L"Standard"});
    EXPECT_FALSE(list.create(L"Notes", L"Standard"));
    EXPECT_EQ(list.create(L"NOTES", L"Standard"), HostText::TextStyleNameTaken);
    EXPECT_EQ(list.create(L"", L"Standard"), HostText::TextStyleNameEmpty);
    EXPECT_FALSE(list.rename(L"Notes", L"Labels"));
    EXPECT_FALSE(list.rename(L"Labels", L"LABELS"));
    EXPECT_EQ(list.rename(L"LABELS", L"standard"), HostText::TextStyleNameTaken);
    EXPECT_EQ(list.rename(L"LABELS", L""), HostText::TextStyleNameEmpty);
    EXPECT_EQ(list.rename(L"Standard", L"Other"), HostText::TextStyleStandard);
    EXPECT_EQ(list.remove(L"Standard"), HostText::TextStyleStandard);
    EXPECT_EQ(list.names(), (Names{L"Standard", L"LABELS"}));
    EXPECT_FALSE(list.remove(L"LABELS"));
    EXPECT_EQ(list.names(), Names{L"Standard"});
}

TEST_F(TextStyleDialogs, what_is_used_is_not_deleted) {
    TextStyles list = styles();
    ASSERT_FALSE(list.create(L"Notes", L"Standard"));
    ASSERT_FALSE(list.create(L"Titles", L"Standard"));
    KdDbBlockTableRecord* space = nullptr;
    KdDbObject* object = nullptr;
    ASSERT_EQ(kddbOpenObject(object, host.database().modelSpaceId(), KdDb::kForWrite), Kdad::eOk);
    space = static_cast<KdDbBlockTableRecord*>(object);
    auto text = std::make_unique<KdDbMText>();
    text->setTextStyle(list.find(L"Notes"));
    space->appendKdDbEntity(text.get());
    text.release()->close();
    space->close();
    EXPECT_EQ(list.remove(L"Notes"), HostText::TextStyleInUse);
    ASSERT_FALSE(list.setCurrent(L"Titles"));
    EXPECT_EQ(list.remove(L"Titles"), HostText::TextStyleInUse);
    EXPECT_EQ(list.names().size(), 3U);
    ASSERT_FALSE(list.setCurrent(L"Standard"));
    EXPECT_FALSE(list.remove(L"Titles"));
}

TEST_F(TextStyleDialogs, values_are_written_whole_or_not_at_all) {
    TextStyles list = styles();
    const TextStyleValues values{L"DejaVu Serif", true, true, 2.5, 0.8};
    EXPECT_FALSE(list.set(L"Standard", values));
    EXPECT_EQ(list.values(L"Standard"), values);
    for (const auto& bad :
         {TextStyleValues{L"X", false, false, -1.0, 1.0}, TextStyleValues{L"X", false, false, 1.0, 0.0}}) {
        EXPECT_EQ(list.set(L"Standard", bad), HostText::TextStyleBadNumbers);
    }
    EXPECT_EQ(list.values(L"Standard"), values);
    EXPECT_FALSE(list.values(L"Missing").has_value());
    EXPECT_EQ(list.setCurrent(L"Missing"), HostText::TextStyleNameEmpty);
}

TEST_F(TextStyleDialogs, a_style_that_is_open_is_told_to_be_locked) {
    TextStyles list = styles();
    KdDbObject* object = nullptr;
    ASSERT_EQ(kddbOpenObject(object, list.find(L"Standard"), KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(list.set(L"Standard", {L"X", false, false, 1.0, 1.0}), HostText::TextStyleLocked);
    object->close();
    KdDbTextStyleTable* table = nullptr;
    ASSERT_EQ(host.database().getTextStyleTable(table, KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(list.create(L"New", L"Standard"), HostText::TextStyleLocked);
    table->close();
}

TEST_F(TextStyleDialogs, the_dialog_makes_a_style_and_writes_its_values) {
    CStdStr<wchar_t> name = L"Standard";
    next([&](QWidget& dialog) {
        next([](QWidget& asking) {
            EXPECT_EQ(in<QLineEdit>(asking, "IDC_TEXTSTYLE_NAME_EDIT").text(), QStringLiteral("Style1"));
            typeInto(asking, "IDC_TEXTSTYLE_NAME_EDIT", "Notes");
            QTest::keyClick(asking.focusWidget(), Qt::Key_Return);
        });
        press(dialog, "IDC_TEXTSTYLE_NEW_BUTTON");
        typeInto(dialog, "IDC_TEXTSTYLE_HEIGHT_EDIT", "3.5");
        typeInto(dialog, "IDC_TEXTSTYLE_WIDTH_EDIT", "0.75");
        in<QComboBox>(dialog, "IDC_TEXTSTYLE_FONT_COMBOBOX").setCurrentText(QStringLiteral("DejaVu Sans Mono"));
        in<QCheckBox>(dialog, "IDC_TEXTSTYLE_BOLD_CHECK").click();
        press(dialog, "IDC_TEXTSTYLE_SETCURRENT_BUTTON");
        EXPECT_EQ(in<QLabel>(dialog, "IDC_TEXTSTYLE_CURRENT_STATIC").text(), QStringLiteral("Current style: Notes"));
        press(dialog, "IDOK");
    });
    EXPECT_TRUE(ask(&name));
    EXPECT_EQ(name, std::wstring(L"Notes"));
    EXPECT_EQ(styles().current(), L"Notes");
    EXPECT_EQ(styles().values(L"Notes"), (TextStyleValues{L"DejaVu Sans Mono", true, false, 3.5, 0.75}));
}

TEST_F(TextStyleDialogs, a_name_that_is_taken_keeps_the_question_open) {
    next([&](QWidget& dialog) {
        next([&](QWidget& asking) {
            typeInto(asking, "IDC_TEXTSTYLE_NAME_EDIT", "standard");
            next([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
            press(asking, "IDOK");
            EXPECT_TRUE(asking.isVisible());
            press(asking, "IDCANCEL");
        });
        press(dialog, "IDC_TEXTSTYLE_NEW_BUTTON");
        press(dialog, "IDCANCEL");
    });
    EXPECT_FALSE(ask());
    EXPECT_EQ(styles().names().size(), 1U);
}

TEST_F(TextStyleDialogs, showing_another_style_writes_the_one_before) {
    ASSERT_FALSE(styles().create(L"Notes", L"Standard"));
    CStdStr<wchar_t> name = L"notes";
    next([](QWidget& dialog) {
        auto& list = in<QListWidget>(dialog, "IDC_TEXTSTYLE_LIST");
        EXPECT_EQ(list.currentRow(), 1);
        typeInto(dialog, "IDC_TEXTSTYLE_HEIGHT_EDIT", "7");
        QTest::keyClick(&list, Qt::Key_Up);
        EXPECT_EQ(in<QLineEdit>(dialog, "IDC_TEXTSTYLE_HEIGHT_EDIT").text(), QStringLiteral("0"));
        press(dialog, "IDCANCEL");
    });
    EXPECT_FALSE(ask(&name));
    EXPECT_EQ(name, std::wstring(L"Standard"));
    EXPECT_EQ(styles().values(L"Notes")->height, 7.0);
}

TEST_F(TextStyleDialogs, bad_numbers_are_told_and_nothing_is_written) {
    next([&](QWidget& dialog) {
        typeInto(dialog, "IDC_TEXTSTYLE_WIDTH_EDIT", "wide");
        next([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        press(dialog, "IDOK");
        EXPECT_TRUE(dialog.isVisible());
        press(dialog, "IDCANCEL");
    });
    EXPECT_FALSE(ask());
    EXPECT_EQ(styles().values(L"Standard")->widthFactor, 1.0);
}

TEST_F(TextStyleDialogs, without_a_database_there_is_no_dialog) {
    EXPECT_FALSE(invokeTextStyleDialog(nullptr, nullptr));
}

TEST_F(TextStyleDialogs, every_control_is_named_and_reached_by_tab_in_both_languages) {
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        next([&](QWidget& dialog) {
            expectReachable(dialog);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        EXPECT_FALSE(ask());
    }
}

}  // namespace
