// The sample table of the insert dialog, and when the dialog shows it anew.

#include "kd/db/table.h"
#include "module/core/tablecommon.h"
#include "module/style/styletablepreview.h"
#include "tests/ui/insert/fixture.h"

namespace kdtest {
namespace {

class InsertDialogPreview : public InsertDialogTest {
protected:
    std::unique_ptr<KdDbTable> sample(const wchar_t* first, const wchar_t* second, const wchar_t* other,
                                      const std::wstring& tableStyle = L"Standard") {
        return makeTablePreview(&drawing(), style(tableStyle), first, second, other);
    }
};

TEST_F(InsertDialogPreview, The_sample_has_the_cell_styles_that_were_chosen_and_shows_their_names) {
    addStyle(L"Beta", {L"Notes"});
    const auto table = sample(L"Header", L"Notes", L"Data", L"Beta");
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->numRows(), 11);
    EXPECT_EQ(table->numColumns(), 3);
    EXPECT_EQ(table->tableStyle(), style(L"Beta"));
    EXPECT_TRUE(table->objectId().isNull()) << "in no drawing";
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"_HEADER", L"Header"}, {L"Notes", L"Notes"}, {L"_DATA", L"Data"}};
    for (int row = 0; row < 11; ++row) {
        const auto& [cellStyle, text] = rows[std::min(row, 2)];
        for (int column = 0; column < 3; ++column) {
            EXPECT_STREQ(table->cellStyle(row, column), cellStyle) << row;
            EXPECT_STREQ(table->textString(row, column), text) << row;
            EXPECT_EQ(table->cellType(row, column), KdDb::kTextCell) << row;
        }
    }
}

TEST_F(InsertDialogPreview, Rows_of_titles_are_merged_wherever_they_stand) {
    const auto table = sample(L"Data", L"Title", L"Data");
    EXPECT_TRUE(texts(*table).find("|Data|Data|Data|\n|Title|.|.|\n|Data|Data|Data|") == 0) << texts(*table);
}

TEST_F(InsertDialogPreview, Heights_are_those_of_a_line_and_the_last_row_settles_the_widths) {
    const auto table = sample(L"Title", L"Header", L"Data");
    for (int row = 0; row < table->numRows(); ++row) {
        const double text = table->textHeight(table->rowType(row));
        const double height = text + text / 3.0 + 2 * CVqTableCommon::GetVertCellMarginFromTable(table.get(), row, 0);
        EXPECT_DOUBLE_EQ(table->rowHeight(row), height) << row;
    }
    for (int column = 0; column < 3; ++column) {
        EXPECT_DOUBLE_EQ(table->columnWidth(column), 5.0 * table->rowHeight(10)) << column;
    }
}

TEST_F(InsertDialogPreview, A_first_row_that_is_no_title_is_written_in_the_size_of_the_last_row) {
    for (const wchar_t* first : {L"Header", L"Data"}) {
        const auto table = sample(first, L"Header", L"Title");
        for (int column = 0; column < 3; ++column) {
            EXPECT_DOUBLE_EQ(table->textHeight(0, column), table->textHeight(10, 0)) << column;
        }
    }
    const auto titled = sample(L"Title", L"Header", L"Data");
    EXPECT_DOUBLE_EQ(titled->textHeight(0, 0), 6.0);
    EXPECT_DOUBLE_EQ(titled->textHeight(10, 0), 4.5);
}

TEST_F(InsertDialogPreview, No_style_gives_no_sample) {
    EXPECT_EQ(makeTablePreview(&drawing(), KdDbObjectId::kNull, L"Title", L"Header", L"Data"), nullptr);
    EXPECT_EQ(makeStyleTablePreview(&drawing(), KdDbObjectId::kNull), nullptr);
}

TEST_F(InsertDialogPreview, The_sample_of_a_style_is_that_of_its_default_cell_styles) {
    const auto ofStyle = makeStyleTablePreview(&drawing(), style(L"Standard"));
    EXPECT_EQ(describe(*ofStyle), describe(*sample(L"Title", L"Header", L"Data")));
}

TEST_F(InsertDialogPreview, Each_choice_shows_at_once) {
    addStyle(L"Beta", {L"Notes"});
    {
        const OpenObject<KdDbTableStyle> open(style(L"Beta"), KdDb::kForWrite);
        open->setBackgroundColor(KdCmColor::fromIndex(4), L"_HEADER");
    }
    std::vector<QImage> seen;
    const auto differs = [&] {
        EXPECT_FALSE(picture().isNull());
        for (const QImage& before : seen) EXPECT_NE(picture(), before);
        seen.push_back(picture());
    };
    run({differs, choose(wide(kFirstRow), L"Header"), differs, choose(wide(kSecondRow), L"Title"), differs,
         choose(wide(kOtherRow), L"Header"), differs, choose(wide(kStyleBox), L"Beta"), differs, click(L"IDCANCEL")});
}

TEST_F(InsertDialogPreview, Of_another_style_it_shows_the_cell_styles_that_the_boxes_then_show) {
    addStyle(L"Beta");
    QImage plain;
    run({choose(wide(kStyleBox), L"Beta"), [&] { plain = picture(); }, click(L"IDCANCEL")});
    EXPECT_FALSE(plain.isNull());
    // By a key, since the list fills the boxes anew when it drops.
    const auto typeStyle = [&] { QTest::keyClick(&control(kStyleBox), Qt::Key_B); };
    run({choose(wide(kFirstRow), L"Data"), [&] { EXPECT_NE(picture(), plain); }, typeStyle,
         [&] {
             EXPECT_EQ(shown(kStyleBox), L"Beta");
             EXPECT_EQ(shown(kFirstRow), L"Title");
             EXPECT_EQ(picture(), plain);
         },
         click(L"IDCANCEL")});
}

TEST_F(InsertDialogPreview, A_style_that_was_changed_shows_when_its_dialog_is_left_by_OK) {
    QImage before;
    run({[&] { before = picture(); }, click(wide(kStyleManager)), click(L"IDC_TABLESTYLE_MODSTYLE_BUTTON"),
         choose(L"IDC_TABLESTYLEEDIT_DIRECTION_COMBOBOX", L"#0"), click(L"IDOK"), click(L"IDOK"),
         [&] { EXPECT_NE(picture(), before); }, click(L"IDCANCEL")});
}

TEST_F(InsertDialogPreview, It_shows_line_weights_whatever_the_drawing_does) {
    {
        const OpenObject<KdDbTableStyle> open(style(L"Standard"), KdDb::kForWrite);
        open->setGridLineWeight(KdDb::kLnWt211, KdDb::kHorzTop, L"_DATA");
    }
    QImage thin;
    QImage thick;
    run({[&] { thick = picture(); }, click(L"IDCANCEL")});
    {
        const OpenObject<KdDbTableStyle> open(style(L"Standard"), KdDb::kForWrite);
        open->setGridLineWeight(KdDb::kLnWt000, KdDb::kHorzTop, L"_DATA");
    }
    run({[&] { thin = picture(); }, click(L"IDCANCEL")});
    EXPECT_NE(thin, thick);
}

}  // namespace
}  // namespace kdtest
