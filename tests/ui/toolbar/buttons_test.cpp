// What the toolbar's buttons do: each as the operation of its name on an equal table.

#include "host/ed/inputqueue.h"
#include "kd/ad/document.h"
#include "tests/ui/toolbar/fixture.h"

namespace kdtest {
namespace {

struct ButtonCase {
    const char* name;
    const char* control;
    int (*edit)(KdDbObjectId);
    const char* selection;
    const char* merge;
};

int align(KdDbObjectId table) {
    return CVqTableCommon::SetSelectionAlignment(table, KdDb::kBottomRight);
}

const ButtonCase kButtons[] = {
    {"rows_above", "IDC_TABLEDIT_TOPINSERT", CVqTableCommon::InsertRowByAbove, "B2:C3", nullptr},
    {"a_row_above_a_merge", "IDC_TABLEDIT_TOPINSERT", CVqTableCommon::InsertRowByAbove, "B2:C4", "B2:C4"},
    {"rows_below", "IDC_TABLEDIT_BOTTOMINSERT", CVqTableCommon::InsertRowByBelow, "B2:C3", nullptr},
    {"no_rows", "IDC_TABLEDIT_ROWDELETE", CVqTableCommon::DeleteRows, "B2:C3", nullptr},
    {"columns_on_the_left", "IDC_TABLEDIT_LEFTINSERT", CVqTableCommon::InsertColumnByLeft, "B2:C3", nullptr},
    {"columns_on_the_right", "IDC_TABLEDIT_RIGHTINSERT", CVqTableCommon::InsertColumnByRight, "B2:C3", nullptr},
    {"no_columns", "IDC_TABLEDIT_COLUMNDELETE", CVqTableCommon::DeleteColumns, "B2:C3", nullptr},
    {"no_merge", "IDC_TABLEDIT_UNMERGECELL", CVqTableCommon::UnmergeCells, "B2:C4", "B2:C3"},
    {"the_alignment_shown", "IDC_TABLEDIT_ALIGNMENT", align, "B2:C3", nullptr},
};

TableBuilder given(const ButtonCase& button) {
    TableBuilder builder(5, 4);
    builder.align("A1:D5", KdDb::kBottomRight).align("D5", KdDb::kTopCenter);
    if (button.merge != nullptr) builder.merge(button.merge);
    builder.fill().select(button.selection);
    return builder;
}

class ToolbarButton : public ToolbarTest, public ::testing::WithParamInterface<ButtonCase> {};

TEST_P(ToolbarButton, does_as_its_operation_in_one_step) {
    const KdDbObjectId expected = addTable(given(GetParam()));
    const KdDbObjectId table = showOver(given(GetParam()));
    ASSERT_TRUE(button(GetParam().control).isEnabled());
    GetParam().edit(expected);
    const std::vector<std::wstring> stepsOfOperation = steps();
    click(GetParam().control);
    EXPECT_EQ(describe(look(table)), describe(look(expected)));
    EXPECT_EQ(selection(table), selection(expected));
    ASSERT_EQ(steps().size(), 2 * stepsOfOperation.size());
    if (!steps().empty()) {
        EXPECT_EQ(steps().back(), stepsOfOperation.back());
    }
}

TEST_P(ToolbarButton, does_nothing_where_the_layer_is_locked) {
    const KdDbObjectId table = addTable(given(GetParam()));
    lockLayerOf(table);
    showTableToolBar(table, true);
    const std::string before = describe(look(table));
    const std::size_t stepsBefore = steps().size();
    click(GetParam().control);
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_EQ(steps().size(), stepsBefore);
    EXPECT_TRUE(isShown());
}

INSTANTIATE_TEST_SUITE_P(Makes, ToolbarButton, ::testing::ValuesIn(kButtons),
                         [](const auto& info) { return std::string(info.param.name); });

class ToolbarButtons : public ToolbarTest {};

TEST_F(ToolbarButtons, of_rows_and_columns_do_nothing_to_a_selection_of_no_valid_form) {
    const KdDbObjectId table = showOver(TableBuilder(5, 4).fill().select("B2"));
    select(table, KdCellRange{1, -1, 2, 0});
    const std::string before = describe(look(table));
    window()->OnInsertRowByAbove();
    window()->InsertRowByBelow();
    window()->OnDeleteRows();
    window()->OnInsertColumnByLeft();
    window()->OnInsertColumnByRight();
    window()->OnDeleteColumns();
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarButtons, of_rows_take_whole_rows) {
    const KdDbObjectId table = showOver(TableBuilder(5, 4).fill().select("B2"));
    select(table, KdCellRange{1, -1, 2, -1});
    click("IDC_TABLEDIT_BOTTOMINSERT");
    EXPECT_EQ(look(table).numRows(), 7);
}

TEST_F(ToolbarButtons, the_alignment_button_repeats_what_it_shows_on_cells_that_differ) {
    const KdDbObjectId table =
        showOver(TableBuilder(3, 3).align("A1", KdDb::kBottomLeft).align("B1:C1", KdDb::kTopRight).select("A1"));
    select(table, "A1:C1");
    click(kAlignmentName);
    for (int column = 0; column < 3; ++column) EXPECT_EQ(look(table).alignment(0, column), KdDb::kBottomLeft);
    EXPECT_EQ(steps(), std::vector<std::wstring>{L"ChangeCellAlignment"});
}

TEST_F(ToolbarButtons, the_data_format_button_opens_the_formats_and_its_arrow_the_menu) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    std::string title;
    next([&](QWidget& dialog) {
        title = dialog.objectName().toStdString();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QTest::mouseClick(&button("IDC_TABLEDIT_DATAFORMAT"), Qt::LeftButton, Qt::NoModifier, QPoint(5, 10));
    EXPECT_NE(title, "");
    EXPECT_TRUE(steps().empty());
    choose("IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_DATE");
    KdValue::DataType type = KdValue::kUnknown;
    KdValue::UnitType unit = KdValue::kUnitless;
    look(table).getDataType(0, 0, type, unit);
    EXPECT_EQ(type, KdValue::kDate);
}

TEST_F(ToolbarButtons, that_the_toolbar_does_not_have_have_handlers_that_do_nothing) {
    const KdDbObjectId table = showOver(TableBuilder(5, 4).fill().select("B2"));
    const std::string before = describe(look(table));
    window()->OnInsetBlock();
    window()->OnInsertField();
    window()->OnManageCellContent();
    window()->OnMatchCell();
    window()->OnJustificationMenu();
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_TRUE(host.editor().input().isEmpty());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarButtons, in_a_table_that_grows_upwards_keep_to_their_operations) {
    const KdDbObjectId table = addTable(TableBuilder(5, 4).fill().select("B2"));
    const KdDbObjectId expected = addTable(TableBuilder(5, 4).fill().select("B2"));
    for (const KdDbObjectId id : {table, expected}) {
        OpenObject<KdDbTable>(id, KdDb::kForWrite)->setFlowDirection(1);
    }
    showTableToolBar(table, true);
    click("IDC_TABLEDIT_TOPINSERT");
    CVqTableCommon::InsertRowByAbove(expected);
    EXPECT_EQ(describe(look(table)), describe(look(expected)));
}

}  // namespace
}  // namespace kdtest
