// The sample in the manager of cell styles: whose values it shows, and its line weights.

#include "tests/ui/stylemanager/fixture.h"

namespace kdtest {
namespace {

class CellStyleManagerPreview : public CellStyleManagerTest {
protected:
    Step keepPicture(QImage& kept) {
        return [this, &kept] { kept = pictureIn(*dialog, "IDC_MANAGERCELLSTYLE_PREVIEWPIC_STATIC"); };
    }
    /// The picture of a row that is selected anew.
    QImage pictureOf(const std::wstring& row) {
        QImage shown;
        run({choose(row == L"Notes" ? L"Remarks" : L"Notes"), choose(row), keepPicture(shown), click(L"IDOK")});
        EXPECT_FALSE(shown.isNull());
        return shown;
    }
    /// Gives every edge of a cell style the widest line.
    void thicken(const wchar_t* cellStyle) {
        OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)
            ->setGridLineWeight(KdDb::kLnWt211, static_cast<KdDb::GridLineType>(63), cellStyle);
    }
};

TEST_F(CellStyleManagerPreview, Every_row_shows_the_values_of_its_own_cell_style) {
    for (std::size_t row = 0; row < all.size(); ++row) {
        const QImage before = pictureOf(all[row]);
        OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)
            ->setBackgroundColor(KdCmColor::fromIndex(1), allInternal[row].c_str());
        EXPECT_NE(pictureOf(all[row]), before) << row;
    }
}

TEST_F(CellStyleManagerPreview, Line_weights_show_whatever_their_variable_says) {
    const QImage plain = pictureOf(L"Notes");
    thicken(L"Notes");
    setLineWeightDisplay(1);
    const QImage thick = pictureOf(L"Notes");
    setLineWeightDisplay(0);
    EXPECT_NE(thick, plain);
    EXPECT_EQ(pictureOf(L"Notes"), thick);
}

TEST_F(CellStyleManagerPreview, The_first_picture_is_as_every_later_one_of_its_row) {
    thicken(L"_TITLE");
    QImage first;
    run({keepPicture(first), click(L"IDOK")});
    EXPECT_EQ(first, pictureOf(L"Title"));
}

}  // namespace
}  // namespace kdtest
