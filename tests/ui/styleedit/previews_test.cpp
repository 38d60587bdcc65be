// The previews of the style edit dialog: when they change, when the sample table is made again, and "LWDISPLAY".

#include <QCheckBox>
#include <QPixmap>

#include "kd/ed/variables.h"
#include "tests/ui/styleedit/fixture.h"

namespace kdtest {
namespace {

constexpr const char* kMerge = "IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON";
constexpr const char* kVertical = "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT";
constexpr const char* kFillBox = "IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX";

class StyleEditPreviews : public StyleEditing {
protected:
    static QImage picture(QWidget& dialog, const char* name) {
        QApplication::processEvents();
        return in<QLabel>(dialog, name).pixmap(Qt::ReturnByValue).toImage();
    }
    static QImage table(QWidget& dialog) { return picture(dialog, "IDC_TABLESTYLEEDIT_TABLEUP_STATIC"); }
    static QImage cell(QWidget& dialog) { return picture(dialog, "IDC_TABLESTYLEEDIT_PREVIEWPIC_STATIC"); }
    static int weights() {
        resbuf buffer;
        return kdedGetVar(L"LWDISPLAY", &buffer) == RTNORM ? buffer.resval.rint : -1;
    }
    static void setWeights(short value) {
        resbuf buffer;
        buffer.restype = RTSHORT;
        buffer.resval.rint = value;
        EXPECT_EQ(kdedSetVar(L"LWDISPLAY", &buffer), RTNORM);
    }
};

TEST_F(StyleEditPreviews, Fill_their_places) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        for (const char* name : {"IDC_TABLESTYLEEDIT_TABLEUP_STATIC", "IDC_TABLESTYLEEDIT_PREVIEWPIC_STATIC"}) {
            const QImage image = picture(dialog, name);
            EXPECT_EQ(image.size(), in<QLabel>(dialog, name).size()) << name;
            const QRgb ground = image.pixel(0, 0);
            int drawn = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) drawn += image.pixel(x, y) != ground ? 1 : 0;
            }
            EXPECT_GT(drawn, image.width()) << name;
        }
        cancel(dialog);
    });
}

TEST_F(StyleEditPreviews, Another_direction_makes_the_table_again) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        const QImage downwards = table(dialog);
        choose(kDirectionBox, "Up");
        EXPECT_NE(table(dialog), downwards);
        choose(kDirectionBox, "Down");
        EXPECT_EQ(table(dialog), downwards);
        cancel(dialog);
    });
}

TEST_F(StyleEditPreviews, An_edit_shows_in_both) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        const QImage tableBefore = table(dialog);
        const QImage cellBefore = cell(dialog);
        choose(kFillBox, 3);
        EXPECT_NE(table(dialog), tableBefore);
        EXPECT_NE(cell(dialog), cellBefore);
        choose(kFillBox, 0);
        EXPECT_EQ(table(dialog), tableBefore);
        EXPECT_EQ(cell(dialog), cellBefore);
        cancel(dialog);
    });
}

TEST_F(StyleEditPreviews, Another_cell_style_changes_the_sample_alone) {
    change([](KdDbTableStyle& open) { open.setBackgroundColor(KdCmColor::fromIndex(4), L"_HEADER"); });
    edit([&](CVqTableStyleEditDlg& dialog) {
        const QImage tableBefore = table(dialog);
        const QImage cellBefore = cell(dialog);
        choose(kCellStyleBox, "Header");
        EXPECT_EQ(table(dialog), tableBefore);
        EXPECT_NE(cell(dialog), cellBefore);
        cancel(dialog);
    });
}

TEST_F(StyleEditPreviews, A_table_made_again_for_its_direction_takes_the_sizes_of_its_rows_anew) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        enter(dialog, kVertical, "0");
        const QImage kept = table(dialog);
        choose(kDirectionBox, "Up");
        choose(kDirectionBox, "Down");
        EXPECT_NE(table(dialog), kept) << "the same style as before, in a table that was made again";
        cancel(dialog);
    });
}

TEST_F(StyleEditPreviews, Properties_do_not_make_the_table_again_and_the_merge_flag_does) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        enter(dialog, kVertical, "0");
        // The rows keep the height that the table was made with.
        const QImage kept = table(dialog);
        auto& merge = in<QCheckBox>(dialog, kMerge);
        merge.click();
        const QImage merged = table(dialog);
        EXPECT_NE(merged, kept);
        merge.click();
        EXPECT_NE(table(dialog), merged);
        EXPECT_NE(table(dialog), kept) << "the same style as before, in a table that was made again";
        cancel(dialog);
    });
}

TEST_F(StyleEditPreviews, Line_weights_show_in_them_and_their_variable_is_put_back) {
    for (const short before : {short{0}, short{1}}) {
        setWeights(before);
        edit([&](CVqTableStyleEditDlg& dialog) {
            EXPECT_EQ(weights(), before);
            choose(kFillBox, 3);
            EXPECT_EQ(weights(), before);
            choose(kCellStyleBox, "Header");
            EXPECT_EQ(weights(), before);
            choose(kDirectionBox, "Up");
            EXPECT_EQ(weights(), before);
            EXPECT_EQ(dialog.ShowTableStylePreview(1), 1);
            EXPECT_EQ(dialog.ShowCellStylePreview(L"no such style"), 1);
            EXPECT_EQ(weights(), before);
            cancel(dialog);
        });
        EXPECT_EQ(weights(), before);
    }
    setWeights(0);
}

TEST_F(StyleEditPreviews, Every_picture_has_line_weights_whatever_their_variable_says) {
    const auto pictures = [&](short display) {
        setWeights(display);
        forgetOpenings();
        std::vector<QImage> shown;
        edit([&](CVqTableStyleEditDlg& dialog) {
            const auto look = [&] {
                shown.push_back(table(dialog));
                shown.push_back(cell(dialog));
            };
            look();
            choose(kFillBox, 3);
            look();
            choose(kCellStyleBox, "Header");
            look();
            choose(kDirectionBox, "Up");
            look();
            cancel(dialog);
        });
        return shown;
    };
    const std::vector<QImage> plain = pictures(1);
    change([](KdDbTableStyle& open) {
        for (const wchar_t* name : {L"_TITLE", L"_HEADER", L"_DATA"}) {
            open.setGridLineWeight(KdDb::kLnWt211, static_cast<KdDb::GridLineType>(63), name);
        }
    });
    const std::vector<QImage> thick = pictures(1);
    const std::vector<QImage> off = pictures(0);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        EXPECT_NE(thick[i], plain[i]) << i;
        EXPECT_EQ(off[i], thick[i]) << i;
    }
}

TEST_F(StyleEditPreviews, A_variable_that_cannot_be_read_is_not_touched) {
    setWeights(0);
    kdhost::faults().unreadableVariables = {L"LWDISPLAY"};
    edit([&](CVqTableStyleEditDlg& dialog) {
        choose(kFillBox, 3);
        EXPECT_FALSE(table(dialog).isNull());
        cancel(dialog);
    });
    kdhost::faults() = {};
    EXPECT_EQ(weights(), 0);
}

}  // namespace
}  // namespace kdtest
