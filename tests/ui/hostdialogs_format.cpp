// The data format dialog, and the codes of formats.

#include "host/ui/dataformat.h"
#include "kd/db/database.h"
#include "kd/db/headervar.h"
#include "tests/ui/hostdialogs_fixture.h"

namespace {

using kdhost::FormatKind;

std::string shown(const KdValue& value, const wchar_t* code) {
    return kdhost::formatted(value, code, KdDbHeaderVar()).value_or(QStringLiteral("(none)")).toStdString();
}

TEST(DataFormats, every_code_is_found_again) {
    for (const auto type : {KdValue::kGeneral, KdValue::kLong, KdValue::kDouble, KdValue::kString, KdValue::kPoint}) {
        for (const auto unit : {KdValue::kUnitless, KdValue::kAngle, KdValue::kCurrency, KdValue::kPercentage}) {
            const std::vector<FormatKind> kinds = kdhost::formatKinds(type, unit);
            ASSERT_FALSE(kinds.empty());
            for (std::size_t kind = 0; kind < kinds.size(); ++kind) {
                for (int precision = 0; precision <= kdhost::kMostDecimals; ++precision) {
                    const auto place = kdhost::placeOfFormat(kinds, kdhost::formatCode(kinds[kind], precision));
                    ASSERT_TRUE(place.has_value());
                    EXPECT_EQ(place->kind, kind);
                    if (kinds[kind].hasPrecision) {
                        EXPECT_EQ(place->precision, precision);
                    }
                }
            }
            EXPECT_FALSE(kdhost::placeOfFormat(kinds, L"%other").has_value());
        }
    }
}

TEST(DataFormats, numbers_are_shown_by_their_code) {
    KdValue value;
    value.set(845.34786);
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"", "845.34786"},
        {L"%lu2%pr2", "845.35"},
        {L"%lu1%pr1", "8.5E+02"},
        {L"%lu5%pr2", "845 1/4"},
        {L"%lu4%pr0", "70'-5\""},
        {L"%lu2%pr2%ps[$,]", "$845.35"},
        {L"%lu2%pr1%ps[,%]%ct8[100]", "84534.8%"},
    };
    for (const auto& [code, text] : cases) EXPECT_EQ(shown(value, code), text);
    value.set(2.0);
    EXPECT_EQ(shown(value, L"%au0%pr1"), "114.6\xC2\xB0");
    EXPECT_EQ(shown(value, L"%au2%pr1"), "127.3g");
    EXPECT_EQ(shown(value, L"%au3%pr3"), "2.000r");
}

TEST(DataFormats, texts_points_and_whole_numbers_are_shown_too) {
    KdValue value;
    EXPECT_EQ(shown(value, L""), "(none)");
    value.set(L"Abc");
    EXPECT_EQ(shown(value, L""), "Abc");
    EXPECT_EQ(shown(value, L"%tc1"), "ABC");
    EXPECT_EQ(shown(value, L"%tc2"), "abc");
    value.set(2.58, 5.37, 0.0);
    // Zeros at the end go as the drawing has it.
    EXPECT_EQ(shown(value, L"%lu2%pr1"), "2.6, 5.4, 0");
    value.set(20040901L);
    EXPECT_EQ(shown(value, L""), "20040901");
}

class FormatDialogs : public kdtest::HostDialogTest {
protected:
    int ask() {
        KdValue* pointer = &value;
        const int result = VqFdUiInvokeDataTypeDialog(pointer, &host.database(), nullptr);
        EXPECT_EQ(pointer, &value);
        return result;
    }
    static void choose(QWidget& dialog, const char* name, const char* text) {
        auto& box = in<QComboBox>(dialog, name);
        const int row = box.findText(QString::fromLatin1(text));
        ASSERT_GE(row, 0) << text;
        box.setCurrentIndex(row);
    }
    static std::string preview(QWidget& dialog) {
        return in<QLabel>(dialog, "IDC_DATAFORMAT_PREVIEW_STATIC").text().toStdString();
    }
    KdValue value;
};

TEST_F(FormatDialogs, the_choice_goes_into_the_value_and_the_sample_stays) {
    value.set(845.34786);
    next([](QWidget& dialog) {
        EXPECT_EQ(in<QComboBox>(dialog, "IDC_DATAFORMAT_TYPE_COMBOBOX").currentText(),
                  QStringLiteral("Decimal number"));
        EXPECT_EQ(preview(dialog), "845.34786");
        choose(dialog, "IDC_DATAFORMAT_UNIT_COMBOBOX", "Currency");
        in<QSpinBox>(dialog, "IDC_DATAFORMAT_PRECISION_SPIN").setValue(1);
        EXPECT_EQ(preview(dialog), "$845.3");
        shoot(dialog, QStringLiteral("dataformat_en"));
        press(dialog, "IDOK");
    });
    EXPECT_EQ(ask(), 0);
    EXPECT_EQ(value.dataType(), KdValue::kDouble);
    EXPECT_EQ(value.unitType(), KdValue::kCurrency);
    EXPECT_STREQ(value.getFormat(), L"%lu2%pr1%ps[$,]");
    double number = 0.0;
    EXPECT_TRUE(value.get(number));
    EXPECT_EQ(number, 845.34786);
}

TEST_F(FormatDialogs, another_type_drops_units_and_shows_no_sample) {
    value.set(1.5);
    value.setUnitType(KdValue::kAngle);
    next([](QWidget& dialog) {
        EXPECT_TRUE(in<QComboBox>(dialog, "IDC_DATAFORMAT_UNIT_COMBOBOX").isEnabled());
        choose(dialog, "IDC_DATAFORMAT_TYPE_COMBOBOX", "Text");
        EXPECT_FALSE(in<QComboBox>(dialog, "IDC_DATAFORMAT_UNIT_COMBOBOX").isEnabled());
        EXPECT_FALSE(in<QSpinBox>(dialog, "IDC_DATAFORMAT_PRECISION_SPIN").isEnabled());
        EXPECT_EQ(preview(dialog), "No sample");
        choose(dialog, "IDC_DATAFORMAT_FORMAT_COMBOBOX", "Uppercase");
        press(dialog, "IDOK");
    });
    EXPECT_EQ(ask(), 0);
    EXPECT_EQ(value.dataType(), KdValue::kString);
    EXPECT_EQ(value.unitType(), KdValue::kUnitless);
    EXPECT_STREQ(value.getFormat(), L"%tc1");
}

TEST_F(FormatDialogs, a_code_of_another_make_is_kept) {
    value.set(1.0);
    value.setFormat(L"%qf1");
    next([](QWidget& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); });
    EXPECT_EQ(ask(), 0);
    EXPECT_STREQ(value.getFormat(), L"%qf1");
}

TEST_F(FormatDialogs, a_known_code_is_shown_and_cancel_changes_nothing) {
    value.set(1.0);
    value.setFormat(L"%lu5%pr4");
    next([](QWidget& dialog) {
        EXPECT_EQ(in<QComboBox>(dialog, "IDC_DATAFORMAT_FORMAT_COMBOBOX").currentText(), QStringLiteral("Fractional"));
        EXPECT_EQ(in<QSpinBox>(dialog, "IDC_DATAFORMAT_PRECISION_SPIN").value(), 4);
        choose(dialog, "IDC_DATAFORMAT_TYPE_COMBOBOX", "General");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_NE(ask(), 0);
    EXPECT_EQ(value.dataType(), KdValue::kDouble);
    EXPECT_STREQ(value.getFormat(), L"%lu5%pr4");
}

TEST_F(FormatDialogs, without_a_value_it_counts_as_cancelled) {
    KdValue* none = nullptr;
    EXPECT_NE(VqFdUiInvokeDataTypeDialog(none, &host.database(), nullptr), 0);
}

TEST_F(FormatDialogs, every_control_is_named_and_reached_by_tab) {
    value.set(1.0);
    value.setFormat(L"%lu2%pr4");
    kdhost::setLanguage(kdhost::Language::Chinese);
    next([](QWidget& dialog) {
        shoot(dialog, QStringLiteral("dataformat_zh"));
        expectReachable(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_NE(ask(), 0);
}

}  // namespace
