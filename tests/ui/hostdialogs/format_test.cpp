// The data format dialog, and the codes of formats.

#include "host/db/valueformat.h"
#include "host/ui/dialogs/dataformat.h"
#include "kd/db/database.h"
#include "kd/db/headervar.h"
#include "tests/ui/hostdialogs/fixture.h"

namespace {

using kdhost::FormatKind;

constexpr KdValue::DataType kTypes[] = {KdValue::kGeneral, KdValue::kLong, KdValue::kDouble,
                                        KdValue::kString,  KdValue::kDate, KdValue::kPoint};
constexpr KdValue::UnitType kUnits[] = {KdValue::kUnitless, KdValue::kAngle, KdValue::kCurrency, KdValue::kPercentage};

TEST(DataFormats, every_code_is_found_again) {
    for (const KdValue::DataType type : kTypes) {
        for (const KdValue::UnitType unit : kUnits) {
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

TEST(DataFormats, every_kind_shows_a_sample_of_its_type_and_no_two_alike) {
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        for (const KdValue::DataType type : kTypes) {
            // Chinese has no capitals.
            if (type == KdValue::kString && language == kdhost::Language::Chinese) continue;
            for (const KdValue::UnitType unit : kUnits) {
                std::set<std::wstring> texts;
                std::set<QString> names;
                for (const FormatKind& kind : kdhost::formatKinds(type, unit)) {
                    const auto format = kdhost::parseValueFormat(kdhost::formatCode(kind, 3));
                    const auto text = kdhost::formattedValue(kdhost::sampleOf(type), format, KdDbHeaderVar());
                    ASSERT_TRUE(text.has_value()) << kdhost::formatName(kind).toStdString();
                    texts.insert(*text);
                    EXPECT_TRUE(names.insert(kdhost::formatName(kind)).second)
                        << kdhost::formatName(kind).toStdString();
                }
                // What is stored may look as one of the formats has it.
                EXPECT_GE(texts.size() + 1, names.size()) << type << " " << unit;
            }
        }
    }
    kdhost::setLanguage(kdhost::Language::English);
}

TEST(DataFormats, those_of_dates_are_named_by_a_date_in_them) {
    std::set<QString> names;
    for (const FormatKind& kind : kdhost::formatKinds(KdValue::kDate, KdValue::kUnitless)) {
        names.insert(kdhost::formatName(kind));
    }
    for (const char* name :
         {"As stored", "2004-09-01", "9/1/2004", "1/9/2004", "01.09.2004", "01-Sep-04", "1 September 2004",
          "Wednesday, September 1, 2004", "2004年9月1日", "2:05 PM", "9/1/2004 2:05 PM"}) {
        EXPECT_TRUE(names.count(QString::fromUtf8(name)) == 1) << name;
    }
}

TEST(DataFormats, of_dates_in_chinese_are_in_the_order_of_that_language) {
    kdhost::setLanguage(kdhost::Language::Chinese);
    std::vector<std::string> names;
    for (const FormatKind& kind : kdhost::formatKinds(KdValue::kDate, KdValue::kUnitless)) {
        names.push_back(kdhost::formatName(kind).toStdString());
    }
    kdhost::setLanguage(kdhost::Language::English);
    EXPECT_EQ(names, (std::vector<std::string>{"原样", "2004-09-01", "2004/9/1", "9/1/2004", "1/9/2004", "01.09.2004",
                                               "2004年9月1日", "2004年9月1日 星期三", "2004-09-01 14:05",
                                               "2004年9月1日 下午2:05", "14:05", "14:05:09", "下午2:05"}));
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
        press(dialog, "IDOK");
    });
    EXPECT_EQ(ask(), 0);
    EXPECT_EQ(value.dataType(), KdValue::kDouble);
    EXPECT_EQ(value.unitType(), KdValue::kCurrency);
    EXPECT_STREQ(value.getFormat(), L"%lu2%pr1%zs0%th[,]%ps[$,]");
    double number = 0.0;
    EXPECT_TRUE(value.get(number));
    EXPECT_EQ(number, 845.34786);
}

TEST_F(FormatDialogs, another_type_drops_units_and_shows_a_sample_of_its_own) {
    value.set(1.5);
    value.setUnitType(KdValue::kAngle);
    next([](QWidget& dialog) {
        EXPECT_TRUE(in<QComboBox>(dialog, "IDC_DATAFORMAT_UNIT_COMBOBOX").isEnabled());
        choose(dialog, "IDC_DATAFORMAT_TYPE_COMBOBOX", "Text");
        EXPECT_FALSE(in<QComboBox>(dialog, "IDC_DATAFORMAT_UNIT_COMBOBOX").isEnabled());
        EXPECT_FALSE(in<QSpinBox>(dialog, "IDC_DATAFORMAT_PRECISION_SPIN").isEnabled());
        EXPECT_EQ(preview(dialog), "Sample text");
        choose(dialog, "IDC_DATAFORMAT_FORMAT_COMBOBOX", "Uppercase");
        EXPECT_EQ(preview(dialog), "SAMPLE TEXT");
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

TEST_F(FormatDialogs, dates_are_chosen_by_a_date_in_the_format) {
    value.set(KdDate{1999, 12, 31, 23, 59});
    next([](QWidget& dialog) {
        EXPECT_EQ(in<QComboBox>(dialog, "IDC_DATAFORMAT_TYPE_COMBOBOX").currentText(), QStringLiteral("Date"));
        EXPECT_FALSE(in<QComboBox>(dialog, "IDC_DATAFORMAT_UNIT_COMBOBOX").isEnabled());
        EXPECT_EQ(preview(dialog), "1999-12-31 23:59:00");
        choose(dialog, "IDC_DATAFORMAT_FORMAT_COMBOBOX", "September 1, 2004");
        EXPECT_FALSE(in<QSpinBox>(dialog, "IDC_DATAFORMAT_PRECISION_SPIN").isEnabled());
        EXPECT_EQ(preview(dialog), "December 31, 1999");
        press(dialog, "IDOK");
    });
    EXPECT_EQ(ask(), 0);
    EXPECT_EQ(value.dataType(), KdValue::kDate);
    EXPECT_STREQ(value.getFormat(), L"%td[MMMM d, yyyy]");
    KdDate date;
    EXPECT_TRUE(value.get(date));
    EXPECT_EQ(date, (KdDate{1999, 12, 31, 23, 59}));
}

TEST_F(FormatDialogs, a_date_format_that_is_not_offered_is_shown_by_a_date_and_kept) {
    const wchar_t* code = L"%td[yy, MMM d]";
    value.set(KdDate{1999, 12, 31});
    value.setFormat(code);
    next([](QWidget& dialog) {
        EXPECT_EQ(in<QComboBox>(dialog, "IDC_DATAFORMAT_FORMAT_COMBOBOX").currentText(), QStringLiteral("04, Sep 1"));
        EXPECT_EQ(preview(dialog), "99, Dec 31");
        press(dialog, "IDOK");
    });
    EXPECT_EQ(ask(), 0);
    EXPECT_STREQ(value.getFormat(), code);
}

TEST_F(FormatDialogs, a_value_without_a_type_is_a_date_by_its_format) {
    value.setFormat(L"%td[d/M/yyyy]");
    next([](QWidget& dialog) {
        EXPECT_EQ(in<QComboBox>(dialog, "IDC_DATAFORMAT_TYPE_COMBOBOX").currentText(), QStringLiteral("Date"));
        EXPECT_EQ(preview(dialog), "1/9/2004");
        press(dialog, "IDOK");
    });
    EXPECT_EQ(ask(), 0);
    EXPECT_EQ(value.dataType(), KdValue::kDate);
    EXPECT_STREQ(value.getFormat(), L"%td[d/M/yyyy]");
}

TEST_F(FormatDialogs, whatever_is_given_comes_back_by_OK_alone) {
    for (const KdValue::DataType type : kTypes) {
        for (const KdValue::UnitType unit : kUnits) {
            // Other types than decimal numbers have no units.
            if (type != KdValue::kDouble && unit != KdValue::kUnitless) continue;
            for (const FormatKind& kind : kdhost::formatKinds(type, unit)) {
                for (const int precision : {0, 3, kdhost::kMostDecimals}) {
                    const std::wstring code = kdhost::formatCode(kind, precision);
                    value = KdValue();
                    value.setDataType(type);
                    value.setUnitType(unit);
                    value.setFormat(code.c_str());
                    next([](QWidget& dialog) { press(dialog, "IDOK"); });
                    EXPECT_EQ(ask(), 0);
                    EXPECT_EQ(value.dataType(), type);
                    EXPECT_EQ(value.unitType(), unit);
                    EXPECT_EQ(std::wstring(value.getFormat()), code);
                }
            }
        }
    }
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
        expectReachable(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_NE(ask(), 0);
}

}  // namespace
