// The general page: what it shows of a cell style, and what each control writes.

#include <QCheckBox>

#include "tests/ui/styleedit/fixture.h"
#include "tests/ui/stylepages/controls.h"

namespace kdtest {
namespace {

class StylePageGeneral : public StyleEditing {
protected:
    KdCmColor fill() { return style().backgroundColor(L"_DATA"); }
    static std::string format(QWidget& dialog) { return in<QLabel>(dialog, kFormat).text().toStdString(); }
    /// What the page shows of "_DATA" after `act`, in one line.
    std::string shows(const std::function<void(KdDbTableStyle&)>& act, const char* name) {
        change(act);
        std::string found;
        edit([&](CVqTableStyleEditDlg& dialog) {
            const auto* label = qobject_cast<QLabel*>(&in<QWidget>(dialog, name));
            found = label != nullptr ? label->text().toStdString() : shown(dialog, name);
            cancel(dialog);
        });
        return found;
    }
};

TEST_F(StylePageGeneral, Shows_fills_without_a_colour_by_layer_and_by_block_by_their_rows) {
    const auto row = [&](const KdCmColor& color) {
        return shows([&](KdDbTableStyle& open) { open.setBackgroundColor(color, L"_DATA"); }, kFillBox);
    };
    EXPECT_EQ(row(KdCmColor::none()), "None");
    EXPECT_EQ(row(KdCmColor()), "By layer");
    EXPECT_EQ(row(KdCmColor::byBlock()), "By block");
    EXPECT_EQ(row(KdCmColor::fromIndex(1)), "Red");
    EXPECT_EQ(row(KdCmColor::fromIndex(77)), "") << "a colour that no row has shows none";
    kdhost::addRecentColor(KdCmColor::fromIndex(77));
    EXPECT_NE(row(KdCmColor::fromIndex(77)), "");
}

TEST_F(StylePageGeneral, Writes_each_row_of_the_fill) {
    editAndOk([&](CVqTableStyleEditDlg&) {
        choose(kFillBox, 5);
        EXPECT_EQ(fill(), KdCmColor::fromIndex(3));
        choose(kFillBox, 2);
        EXPECT_TRUE(fill().isByBlock());
        choose(kFillBox, 1);
        EXPECT_TRUE(fill().isByLayer());
        choose(kFillBox, 0);
        EXPECT_TRUE(fill().isNone());
        choose(kFillBox, 4);
    });
    EXPECT_EQ(fill(), KdCmColor::fromIndex(2));
}

TEST_F(StylePageGeneral, Another_fill_colour_is_asked_for_and_gets_a_row) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        const int other = box(dialog, kFillBox).count() - 1;
        next([](QWidget&) { EXPECT_EQ(kdhost::automation::color(L"10,20,30"), L""); });
        choose(kFillBox, other);
        EXPECT_EQ(fill(), KdCmColor::fromRgb(10, 20, 30));
        EXPECT_EQ(box(dialog, kFillBox).count(), other + 2);
        EXPECT_EQ(shown(dialog, kFillBox), "10,20,30");
        cancel(dialog);
    });
}

TEST_F(StylePageGeneral, A_cancelled_colour_dialog_leaves_fill_and_row) {
    change([](KdDbTableStyle& open) { open.setBackgroundColor(KdCmColor::fromIndex(2), L"_DATA"); });
    edit([&](CVqTableStyleEditDlg& dialog) {
        next([](QWidget&) { EXPECT_EQ(kdhost::automation::color(L"CANCEL"), L""); });
        choose(kFillBox, box(dialog, kFillBox).count() - 1);
        EXPECT_EQ(fill(), KdCmColor::fromIndex(2));
        EXPECT_EQ(shown(dialog, kFillBox), "Yellow");
        cancel(dialog);
    });
}

TEST_F(StylePageGeneral, A_cancelled_colour_dialog_leaves_a_fill_that_no_row_shows) {
    change([](KdDbTableStyle& open) { open.setBackgroundColor(KdCmColor::fromRgb(1, 2, 3), L"_DATA"); });
    edit([&](CVqTableStyleEditDlg& dialog) {
        next([](QWidget&) { EXPECT_EQ(kdhost::automation::color(L"CANCEL"), L""); });
        choose(kFillBox, box(dialog, kFillBox).count() - 1);
        EXPECT_EQ(fill(), KdCmColor::fromRgb(1, 2, 3));
        EXPECT_EQ(box(dialog, kFillBox).currentIndex(), -1);
        cancel(dialog);
    });
}

TEST_F(StylePageGeneral, A_style_that_cannot_be_had_is_noticed_only_when_the_colour_was_chosen) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        const KdCmColor before = fill();
        next([](QWidget&) {
            EXPECT_EQ(kdhost::automation::color(L"10,20,30"), L"");
            kdhost::faults().failOpenNumber = 1;
        });
        choose(kFillBox, box(dialog, kFillBox).count() - 1);
        kdhost::faults() = {};
        EXPECT_EQ(shown(dialog, kFillBox), "10,20,30");
        EXPECT_EQ(fill(), before);
        cancel(dialog);
    });
}

TEST_F(StylePageGeneral, Shows_and_writes_the_nine_alignments) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog, kAlignmentBox),
                  (std::vector<std::string>{"Top Left", "Top Center", "Top Right", "Middle Left", "Middle Center",
                                            "Middle Right", "Bottom Left", "Bottom Center", "Bottom Right"}));
        EXPECT_EQ(shown(dialog, kAlignmentBox), "Top Center");
        for (int row = 8; row >= 0; --row) {
            choose(kAlignmentBox, row);
            EXPECT_EQ(style().alignment(L"_DATA"), row + 1);
        }
        cancel(dialog);
    });
}

TEST_F(StylePageGeneral, Shows_and_writes_the_class) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog, kCellTypeBox), (std::vector<std::string>{"Data", "Label"}));
        EXPECT_EQ(shown(dialog, kCellTypeBox), "Data");
        choose(kCellTypeBox, "Label");
        EXPECT_EQ(style().cellClass(L"_DATA"), KdDb::kCellClassLabel);
        choose(kCellTypeBox, "Data");
        EXPECT_EQ(style().cellClass(L"_DATA"), KdDb::kCellClassData);
        choose(kCellStyleBox, "Header");
        EXPECT_EQ(shown(dialog, kCellTypeBox), "Label");
        cancel(dialog);
    });
}

TEST_F(StylePageGeneral, A_class_that_the_box_does_not_list_leaves_margins_and_merge_flag_unshown) {
    change([](KdDbTableStyle& open) {
        open.setCellClass(3, L"_HEADER");
        open.setMargin(KdDb::kCellMarginLeft, 9.0, L"_HEADER");
        open.setMargin(KdDb::kCellMarginTop, 8.0, L"_HEADER");
        open.enableMergeAll(true, L"_HEADER");
        open.setAlignment(KdDb::kBottomRight, L"_HEADER");
    });
    edit([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Header");
        EXPECT_EQ(shown(dialog, kAlignmentBox), "Bottom Right");
        EXPECT_EQ(shown(dialog, kCellTypeBox), "Data") << "of the cell style before";
        EXPECT_EQ(text(dialog, kHorizontal), "1.5");
        EXPECT_EQ(text(dialog, kVertical), "1.5");
        EXPECT_FALSE(in<QCheckBox>(dialog, kMerge).isChecked());
        ok(dialog);
    });
    EXPECT_EQ(style().cellClass(L"_HEADER"), 3);
}

TEST_F(StylePageGeneral, Shows_and_writes_the_merge_flag) {
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        auto& merge = in<QCheckBox>(dialog, kMerge);
        EXPECT_FALSE(merge.isChecked());
        merge.setFocus();
        pressKey(Qt::Key_Space);
        EXPECT_TRUE(style().isMergeAllEnabled(L"_DATA"));
        pressKey(Qt::Key_Space);
        EXPECT_FALSE(style().isMergeAllEnabled(L"_DATA"));
        pressKey(Qt::Key_Space);
    });
    EXPECT_TRUE(style().isMergeAllEnabled(L"_DATA"));
    EXPECT_FALSE(style().isMergeAllEnabled(L"_HEADER"));
    edit([&](CVqTableStyleEditDlg& dialog) {
        const auto& merge = in<QCheckBox>(dialog, kMerge);
        EXPECT_TRUE(merge.isChecked());
        choose(kCellStyleBox, "Header");
        EXPECT_FALSE(merge.isChecked());
        choose(kCellStyleBox, "Data");
        EXPECT_TRUE(merge.isChecked());
        cancel(dialog);
    });
}

TEST_F(StylePageGeneral, The_horizontal_margin_is_the_left_one_and_the_vertical_the_top_one) {
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        enter(dialog, kHorizontal, "2.25");
        EXPECT_EQ(text(dialog, kHorizontal), "2.25") << "as the drawing writes it";
        enter(dialog, kVertical, "1e1");
        EXPECT_EQ(text(dialog, kVertical), "10");
    });
    EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_DATA"), 2.25);
    EXPECT_EQ(style().margin(KdDb::kCellMarginTop, L"_DATA"), 10.0);
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(text(dialog, kHorizontal), "2.25");
        EXPECT_EQ(text(dialog, kVertical), "10");
        cancel(dialog);
    });
}

TEST_F(StylePageGeneral, A_margin_is_stored_as_typed_however_few_digits_the_drawing_shows) {
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        for (const char* name : {kHorizontal, kVertical}) {
            enter(dialog, name, "2.123456789");
            EXPECT_EQ(text(dialog, name), "2.1235");
        }
    });
    EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_DATA"), 2.123456789);
    EXPECT_EQ(style().margin(KdDb::kCellMarginTop, L"_DATA"), 2.123456789);
}

TEST_F(StylePageGeneral, The_format_is_named_and_chosen_in_the_hosts_dialog) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(format(dialog), "General");
        std::string formatRow;
        next([&](QWidget& formats) {
            choose("IDC_DATAFORMAT_TYPE_COMBOBOX", "Decimal number");
            choose("IDC_DATAFORMAT_UNIT_COMBOBOX", "Percentage");
            in<QSpinBox>(formats, "IDC_DATAFORMAT_PRECISION_SPIN").setValue(5);
            formatRow = shown(formats, "IDC_DATAFORMAT_FORMAT_COMBOBOX");
            ok(formats);
        });
        press(dialog, kFormatButton);
        backIn(dialog);
        KdValue::DataType type = KdValue::kUnknown;
        KdValue::UnitType unit = KdValue::kUnitless;
        style().getDataType(type, unit, L"_DATA");
        EXPECT_EQ(type, KdValue::kDouble);
        EXPECT_EQ(unit, KdValue::kPercentage);
        EXPECT_EQ(format(dialog), "Percentage");
        const std::wstring chosen = style().format(L"_DATA").kwszPtr();
        EXPECT_FALSE(chosen.empty());

        // The dialog starts from what the cell style has.
        next([&](QWidget& formats) {
            EXPECT_EQ(shown(formats, "IDC_DATAFORMAT_UNIT_COMBOBOX"), "Percentage");
            EXPECT_EQ(shown(formats, "IDC_DATAFORMAT_FORMAT_COMBOBOX"), formatRow);
            EXPECT_EQ(in<QSpinBox>(formats, "IDC_DATAFORMAT_PRECISION_SPIN").value(), 5);
            choose("IDC_DATAFORMAT_UNIT_COMBOBOX", "Currency");
            cancel(formats);
        });
        press(dialog, kFormatButton);
        backIn(dialog);
        style().getDataType(type, unit, L"_DATA");
        EXPECT_EQ(unit, KdValue::kPercentage) << "cancelled";
        EXPECT_EQ(style().format(L"_DATA").kwszPtr(), chosen);
        cancel(dialog);
    });
    KdValue::DataType type = KdValue::kUnknown;
    KdValue::UnitType unit = KdValue::kUnitless;
    style().getDataType(type, unit, L"_DATA");
    EXPECT_EQ(unit, KdValue::kUnitless);
}

struct FormatSample {
    KdValue::DataType type;
    KdValue::UnitType unit;
    const char* shown;
};

TEST_F(StylePageGeneral, The_hosts_dialog_shows_the_format_by_a_sample_of_its_type) {
    for (const FormatSample& each : {FormatSample{KdValue::kLong, KdValue::kUnitless, "20040901"},
                                     FormatSample{KdValue::kDouble, KdValue::kUnitless, "845.34786"},
                                     FormatSample{KdValue::kDouble, KdValue::kAngle, "2.103"},
                                     FormatSample{KdValue::kDouble, KdValue::kCurrency, "1234.1"},
                                     FormatSample{KdValue::kDouble, KdValue::kPercentage, "12.34"},
                                     FormatSample{KdValue::kString, KdValue::kUnitless, "样例文字"},
                                     FormatSample{KdValue::kGeneral, KdValue::kUnitless, "样例文字"},
                                     FormatSample{KdValue::kPoint, KdValue::kUnitless, "2.58, 5.37, 0"}}) {
        change([&](KdDbTableStyle& open) {
            open.setDataType(each.type, each.unit, L"_DATA");
            open.setFormat(L"", L"_DATA");
        });
        edit([&](CVqTableStyleEditDlg& dialog) {
            next([&](QWidget& formats) {
                EXPECT_EQ(in<QLabel>(formats, "IDC_DATAFORMAT_PREVIEW_STATIC").text().toStdString(), each.shown);
                cancel(formats);
            });
            press(dialog, kFormatButton);
            backIn(dialog);
            cancel(dialog);
        });
    }
}

struct FormatName {
    KdValue::DataType type;
    KdValue::UnitType unit;
    const char* name;
};

TEST_F(StylePageGeneral, Formats_without_a_name_show_none) {
    for (const FormatName& each : {FormatName{KdValue::kLong, KdValue::kUnitless, "Whole Number"},
                                   FormatName{KdValue::kDouble, KdValue::kCurrency, "Currency"},
                                   FormatName{KdValue::kString, KdValue::kUnitless, "Text"},
                                   FormatName{KdValue::kLong, KdValue::kCurrency, ""}}) {
        EXPECT_EQ(shows([&](KdDbTableStyle& open) { open.setDataType(each.type, each.unit, L"_DATA"); }, kFormat),
                  each.name);
    }
}

}  // namespace
}  // namespace kdtest
