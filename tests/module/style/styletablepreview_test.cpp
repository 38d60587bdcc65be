// The sample table that shows a table style: its rows and cells, and its sizes.

#include "module/style/styletablepreview.h"
#include <optional>

#include "kd/db/tablestyle.h"
#include "module/core/tablestyles.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {
namespace {

class StyleTablePreview : public TableEdits {
protected:
    void SetUp() override {
        TableEdits::SetUp();
        m_resources.emplace();
    }
    void TearDown() override {
        m_resources.reset();
        TableEdits::TearDown();
    }
    std::unique_ptr<KdDbTable> make() { return makeStyleTablePreview(&host.database(), styleId); }

    const KdDbObjectId styleId = host.database().tablestyle();

private:
    std::optional<ResourceScope> m_resources;
};

TEST_F(StyleTablePreview, Is_none_for_the_null_id) {
    EXPECT_EQ(makeStyleTablePreview(&host.database(), KdDbObjectId::kNull), nullptr);
}

TEST_F(StyleTablePreview, Has_the_rows_and_columns_that_the_texts_tell_and_lies_in_no_drawing) {
    const auto table = make();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->database(), nullptr);
    EXPECT_EQ(table->numRows(), std::stoi(loadText(2067)));
    EXPECT_EQ(table->numColumns(), std::stoi(loadText(2068)));
    EXPECT_EQ(table->tableStyle(), styleId);
    EXPECT_TRUE(steps().empty());
}

TEST_F(StyleTablePreview, Has_the_layer_and_the_line_type_that_new_entities_of_the_drawing_get) {
    const auto table = make();
    ASSERT_FALSE(host.database().clayer().isNull());
    ASSERT_FALSE(host.database().celtype().isNull());
    EXPECT_EQ(table->layerId(), host.database().clayer());
    EXPECT_EQ(table->linetypeId(), host.database().celtype());
}

TEST_F(StyleTablePreview, Shows_the_display_names_of_its_cell_styles) {
    const auto table = make();
    EXPECT_STREQ(table->cellStyle(0, 0), L"_TITLE");
    EXPECT_STREQ(table->cellStyle(1, 2), L"_HEADER");
    EXPECT_STREQ(table->textString(0, 0), L"Title");
    for (int column = 0; column < table->numColumns(); ++column) {
        EXPECT_STREQ(table->textString(1, column), L"Header");
        for (int row = 2; row < table->numRows(); ++row) {
            EXPECT_STREQ(table->cellStyle(row, column), L"_DATA");
            EXPECT_STREQ(table->textString(row, column), L"Data");
        }
    }
}

TEST_F(StyleTablePreview, Merges_the_rows_whose_cell_style_says_so) {
    const auto isMerged = [&](int row) { return make()->isMergedCell(row, 0); };
    EXPECT_TRUE(isMerged(0));
    EXPECT_FALSE(isMerged(1));
    {
        const OpenObject<KdDbTableStyle> style(styleId, KdDb::kForWrite);
        style->enableMergeAll(false, L"_TITLE");
        style->enableMergeAll(true, L"_DATA");
    }
    EXPECT_FALSE(isMerged(0));
    EXPECT_FALSE(isMerged(1));
    EXPECT_TRUE(isMerged(2));
    EXPECT_TRUE(isMerged(3));
}

TEST_F(StyleTablePreview, Rows_have_a_line_of_text_with_a_third_more_and_the_last_settles_the_widths) {
    {
        const OpenObject<KdDbTableStyle> style(styleId, KdDb::kForWrite);
        style->setTextHeight(9.0, L"_TITLE");
        style->setTextHeight(3.0, L"_DATA");
        style->setMargin(KdDb::kCellMarginTop, 2.0, L"_DATA");
    }
    const auto table = make();
    EXPECT_DOUBLE_EQ(table->rowHeight(0), 9.0 + 9.0 / 3.0 + 2 * 1.5);
    EXPECT_DOUBLE_EQ(table->rowHeight(1), 4.5 + 4.5 / 3.0 + 2 * 1.5);
    const double last = 3.0 + 3.0 / 3.0 + 2 * 2.0;
    EXPECT_DOUBLE_EQ(table->rowHeight(table->numRows() - 1), last);
    for (int column = 0; column < table->numColumns(); ++column) {
        EXPECT_DOUBLE_EQ(table->columnWidth(column), 5.0 * last);
    }
}

TEST_F(StyleTablePreview, The_sample_of_a_cell_style_has_its_cells_and_there_is_none_without_a_style) {
    const OpenObject<KdDbTableStyle> style(styleId, KdDb::kForRead);
    const auto sample = makeCellStylePreview(style.get(), L"_HEADER");
    ASSERT_NE(sample, nullptr);
    EXPECT_NE(sample->GetTableCell(), nullptr);
    EXPECT_NE(sample->GetDatabase(), &host.database());
    EXPECT_EQ(makeCellStylePreview(nullptr, L"_HEADER"), nullptr);
}

TEST_F(StyleTablePreview, Names_of_table_styles_are_those_of_their_dictionary) {
    const OpenObject<KdDbTableStyle> style(styleId, KdDb::kForRead);
    EXPECT_EQ(nameOfTableStyle(*style), L"Standard");
    EXPECT_EQ(nameOfTableStyle(KdDbTableStyle()), L"");
    EXPECT_EQ(currentTableStyleName(), L"Standard");
    kdhost::faults().unreadableVariables = {L"CTABLESTYLE"};
    EXPECT_EQ(currentTableStyleName(), L"");
}

}  // namespace
}  // namespace kdtest
