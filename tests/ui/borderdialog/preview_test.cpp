// The preview of the dialog of cell borders in each of its four shapes, "LWDISPLAY", and the looks of the dialog.

#include "host/ui/linetypes.h"
#include "kd/db/database.h"
#include "module/edit/cellborderpropdlg.h"
#include "tests/ui/borderdialog/fixture.h"
#include "tests/ui/looks/fixture.h"
#include "tests/ui/preview/fixture.h"

namespace kdtest {
namespace {

class BorderDialogPreview : public BorderDialogTest {
protected:
    /// The places of upright and level lines of a colour in a picture, from the left and from the top.
    struct Grid {
        std::vector<int> upright;
        std::vector<int> level;
    };
    static Grid gridOf(const QImage& image, QRgb color) {
        Grid grid;
        const int width = drawnPart(image).width();
        const int height = drawnPart(image).height();
        for (int x = 0; x < image.width(); ++x) {
            int pixels = 0;
            for (int y = 0; y < image.height(); ++y) pixels += image.pixel(x, y) == color ? 1 : 0;
            if (2 * pixels > height && (grid.upright.empty() || grid.upright.back() < x - 3)) grid.upright.push_back(x);
        }
        for (int y = 0; y < image.height(); ++y) {
            int pixels = 0;
            for (int x = 0; x < image.width(); ++x) pixels += image.pixel(x, y) == color ? 1 : 0;
            if (2 * pixels > width && (grid.level.empty() || grid.level.back() < y - 3)) grid.level.push_back(y);
        }
        return grid;
    }
};

TEST_F(BorderDialogPreview, Has_a_row_and_a_column_more_where_the_selection_has_several) {
    struct Shape {
        const char* cells;
        std::size_t rows;
        std::size_t columns;
    };
    for (const Shape& shape :
         {Shape{"B2", 1, 1}, Shape{"B2:C2", 1, 2}, Shape{"B2:B3", 2, 1}, Shape{"B2:C3", 2, 2}, Shape{"A1:D5", 2, 2}}) {
        SCOPED_TRACE(shape.cells);
        select(table, shape.cells);
        setBorders([&](QWidget& dialog) {
            choose(kBorderColor, "Red");
            click(dialog, "ALLBORDER_BUTTON");
            const QImage image = picture(dialog);
            EXPECT_EQ(image.size(), control<QLabel>(dialog, kBorderPreview).size());
            const Grid grid = gridOf(image, kRed);
            EXPECT_EQ(grid.upright.size(), shape.columns + 1);
            EXPECT_EQ(grid.level.size(), shape.rows + 1);
            keepPicture(control<QLabel>(dialog, kBorderPreview),
                        QStringLiteral("border_preview_%1x%2").arg(shape.rows).arg(shape.columns));
        });
    }
}

TEST_F(BorderDialogPreview, Shows_each_button_at_once) {
    select(table, "B2:C3");
    setBorders([](QWidget& dialog) {
        choose(kBorderColor, "Red");
        click(dialog, "OUTERBORDER_BUTTON");
        const Grid outside = gridOf(picture(dialog), kRed);
        EXPECT_EQ(outside.upright.size(), 2U);
        EXPECT_EQ(outside.level.size(), 2U);
        click(dialog, "INNERBORDER_BUTTON");
        EXPECT_EQ(gridOf(picture(dialog), kRed).level.size(), 3U);
        click(dialog, kNoBorders);
        EXPECT_EQ(gridOf(picture(dialog), kRed).level.size(), 0U);
    });
}

TEST_F(BorderDialogPreview, Shows_line_weights_whatever_the_variable_is_and_puts_it_back) {
    for (const short kept : {short{0}, short{1}}) {
        resbuf buffer;
        buffer.restype = RTSHORT;
        buffer.resval.rint = kept;
        ASSERT_EQ(kdedSetVar(L"LWDISPLAY", &buffer), RTNORM);
        setBorders([&](QWidget& dialog) {
            EXPECT_EQ(weightsShown(), kept);
            choose(kBorderColor, "Red");
            choose(kBorderWeight, "0.00 mm");
            click(dialog, "ALLBORDER_BUTTON");
            const int thin = count(picture(dialog), kRed);
            choose(kBorderWeight, "2.11 mm");
            click(dialog, "ALLBORDER_BUTTON");
            EXPECT_GT(count(picture(dialog), kRed), 2 * thin);
            EXPECT_EQ(weightsShown(), kept);
        });
        EXPECT_EQ(weightsShown(), kept);
    }
    resbuf off;
    off.restype = RTSHORT;
    off.resval.rint = 0;
    EXPECT_EQ(kdedSetVar(L"LWDISPLAY", &off), RTNORM);
}

TEST_F(BorderDialogPreview, A_variable_that_cant_be_read_isnt_touched) {
    setBorders([](QWidget& dialog) {
        kdhost::faults().unreadableVariables.insert(L"LWDISPLAY");
        click(dialog, "ALLBORDER_BUTTON");
        kdhost::faults().unreadableVariables.clear();
        EXPECT_FALSE(picture(dialog).isNull());
    });
    EXPECT_EQ(weightsShown(), 0);
}

TEST_F(BorderDialogPreview, There_is_none_without_a_selection_and_none_comes_later) {
    OpenObject<KdDbTable>(table, KdDb::kForRead)->clearSubSelection();
    setBorders([](QWidget& dialog) {
        EXPECT_TRUE(picture(dialog).isNull());
        click(dialog, "ALLBORDER_BUTTON");
        EXPECT_TRUE(picture(dialog).isNull());
    });
}

class BorderDialogLooks : public DialogLooks {};

INSTANTIATE_TEST_SUITE_P(Languages, BorderDialogLooks, bothLanguages(), languageName);

TEST_P(BorderDialogLooks, on_one_cell_and_on_four) {
    kdhost::loadLinetype(host.database(), kdhost::standardLinetypes().front());
    auto made = TableBuilder(4, 3).fill().build();
    KdDbObjectId id;
    {
        const OpenObject<KdDbBlockTableRecord> space(host.database().modelSpaceId(), KdDb::kForWrite);
        ASSERT_EQ(space->appendKdDbEntity(id, made.get()), Kdad::eOk);
        made->setGridLineStyle(1, 1, KdDb::kHorzBottom, KdDb::kGridLineStyleDouble);
        made->setGridColor(1, 1, KdDb::kHorzBottom, KdCmColor::fromIndex(2));
        made.release()->close();
    }
    for (const auto& [range, name] : {std::pair{"B2", "cellborder_one"}, std::pair{"B2:C3", "cellborder_four"}}) {
        OpenObject<KdDbTable>(id, KdDb::kForRead)->setSubSelection(cells(range));
        CVqTableCellBorderPropDlg dialog;
        dialog.SetTableObjectId(id);
        runModal(dialog, [&, name = name] {
            lookAndReach(dialog, name);
            press(dialog, "IDCANCEL");
        });
    }
}

}  // namespace
}  // namespace kdtest
