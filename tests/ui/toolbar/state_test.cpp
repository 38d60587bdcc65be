// What the toolbar enables for a selection, and what its buttons and lists show of it.

#include "kd/ui/hostdialogs.h"
#include "tests/ui/toolbar/fixture.h"

namespace kdtest {
namespace {

struct StateCase {
    const char* name;
    int rows;
    int columns;
    const char* selection;
    std::function<void(TableBuilder&)> prepare;
    Names disabled;
};

const Names kFormat = {"CELLBORDER", "ALIGNMENT", "DATAFORMAT", "CELLSTYLECOMBO", "COLORCOMBO"};

Names operator+(Names some, const Names& others) {
    some.insert(others.begin(), others.end());
    return some;
}

const StateCase kCases[] = {
    {"one_cell", 5, 4, "B2", {}, {"MERGECELL", "UNMERGECELL"}},
    {"a_block", 5, 4, "B2:C3", {}, {"UNMERGECELL"}},
    {"one_merge", 5, 4, "B2:C3", [](TableBuilder& t) { t.merge("B2:C3"); }, {"MERGECELL"}},
    {"a_merge_and_more", 5, 4, "B2:C4", [](TableBuilder& t) { t.merge("B2:C3"); }, {}},
    {"a_whole_row", 5, 4, "A2:D2", {}, {"UNMERGECELL", "COLUMNDELETE"}},
    {"a_whole_column", 5, 4, "B1:B5", {}, {"UNMERGECELL", "ROWDELETE"}},
    {"the_whole_table", 5, 4, "A1:D5", {}, {"UNMERGECELL", "ROWDELETE", "COLUMNDELETE"}},
    {"a_table_of_one_cell", 1, 1, "A1", {}, {"MERGECELL", "UNMERGECELL", "ROWDELETE", "COLUMNDELETE"}},
    {"locked_content",
     5,
     4,
     "B2",
     [](TableBuilder& t) { t.lock("B2"); },
     {"MERGECELL", "UNMERGECELL", "ROWDELETE", "COLUMNDELETE", "FORMULA"}},
    {"content_locked_in_part",
     5,
     4,
     "B2:C3",
     [](TableBuilder& t) { t.lock("B2"); },
     {"MERGECELL", "UNMERGECELL", "ROWDELETE", "COLUMNDELETE"}},
    {"a_merge_with_locked_content",
     5,
     4,
     "B2:C3",
     [](TableBuilder& t) { t.merge("B2:C3").lock("B2:C3"); },
     {"MERGECELL", "UNMERGECELL", "ROWDELETE", "COLUMNDELETE", "FORMULA"}},
    {"locked_format", 5, 4, "B2", [](TableBuilder& t) { t.lock("B2", KdDb::kCellStateFormatLocked); },
     kFormat + Names{"MERGECELL", "UNMERGECELL"}},
    {"format_locked_in_part",
     5,
     4,
     "B2:C3",
     [](TableBuilder& t) { t.lock("B2", KdDb::kCellStateFormatLocked); },
     {"UNMERGECELL"}},
    {"read_only_content_and_format", 5, 4, "B2",
     [](TableBuilder& t) {
         t.lock("B2", static_cast<KdDb::CellState>(KdDb::kCellStateContentReadOnly | KdDb::kCellStateFormatReadOnly));
     },
     kFormat + Names{"MERGECELL", "UNMERGECELL", "FORMULA", "ROWDELETE", "COLUMNDELETE"}},
};

class ToolbarStateOf : public ToolbarTest, public ::testing::WithParamInterface<StateCase> {
protected:
    const StateCase& given = GetParam();

    TableBuilder built() const {
        TableBuilder builder(given.rows, given.columns);
        if (given.prepare) given.prepare(builder);
        builder.select(given.selection);
        return builder;
    }
};

TEST_P(ToolbarStateOf, enables_what_can_be_done) {
    showOver(built());
    EXPECT_EQ(enabled(), allBut(given.disabled));
}

TEST_P(ToolbarStateOf, enables_the_same_where_the_table_grows_upwards) {
    const KdDbObjectId id = addTable(built());
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->setFlowDirection(1);
    showTableToolBar(id, true);
    EXPECT_EQ(enabled(), allBut(given.disabled));
}

TEST_P(ToolbarStateOf, asks_neither_for_a_write_nor_for_an_unlocked_layer) {
    const KdDbObjectId id = addTable(built());
    lockLayerOf(id);
    showTableToolBar(id, true);
    EXPECT_EQ(enabled(), allBut(given.disabled));
}

INSTANTIATE_TEST_SUITE_P(Selections, ToolbarStateOf, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

class ToolbarState : public ToolbarTest {};

TEST_F(ToolbarState, counts_rows_and_columns_that_are_not_given_as_none) {
    const KdDbObjectId table = showOver(TableBuilder(5, 4).select("B2"));
    select(table, KdCellRange{1, -1, 2, -1});
    for (const char* name : {"IDC_TABLEDIT_LEFTINSERT", "IDC_TABLEDIT_RIGHTINSERT", "IDC_TABLEDIT_COLUMNDELETE"}) {
        EXPECT_FALSE(button(name).isEnabled()) << name;
    }
    EXPECT_TRUE(button("IDC_TABLEDIT_TOPINSERT").isEnabled());
    EXPECT_TRUE(button("IDC_TABLEDIT_ROWDELETE").isEnabled());
    select(table, KdCellRange{-1, 1, -1, 2});
    EXPECT_FALSE(button("IDC_TABLEDIT_TOPINSERT").isEnabled());
    EXPECT_FALSE(button("IDC_TABLEDIT_ROWDELETE").isEnabled());
    EXPECT_TRUE(button("IDC_TABLEDIT_COLUMNDELETE").isEnabled());
}

TEST_F(ToolbarState, enables_again_what_is_possible_again) {
    const KdDbObjectId table = showOver(TableBuilder(5, 4).lock("B2").select("B2"));
    CVqTableCommon::SettingLocked(1819, table);
    EXPECT_EQ(enabled(), allBut({"MERGECELL", "UNMERGECELL"}));
    CVqTableCommon::SettingLocked(1822, table);
    EXPECT_EQ(enabled(), allBut(kFormat + Names{"MERGECELL", "UNMERGECELL", "ROWDELETE", "COLUMNDELETE", "FORMULA"}));
}

QImage imageOf(const KdUiPushButton& button) {
    return button.icon().pixmap(button.iconSize()).toImage();
}

TEST_F(ToolbarState, shows_the_alignment_that_the_cells_share_and_keeps_it_where_they_differ) {
    const KdDbObjectId table = showOver(TableBuilder(2, 9).select("A1"));
    const char* const names[] = {"TOPLEFT",     "TOPCENTER",  "TOPRIGHT",     "MIDDLELEFT", "MIDDLECENTER",
                                 "MIDDLERIGHT", "BOTTOMLEFT", "BOTTOMCENTER", "BOTTOMRIGHT"};
    const double scale = kdadGetDPIScale();
    const char* const ending = scale >= 3.0 ? "_3X" : scale >= 2.0 ? "_2X" : "";
    std::vector<QImage> images;
    for (int column = 0; column < 9; ++column) {
        OpenObject<KdDbTable>(table, KdDb::kForWrite)
            ->setAlignment(0, column, static_cast<KdDb::CellAlignment>(column + 1));
        select(table, KdCellRange{0, column, 0, column});
        const QImage image = imageOf(button(kAlignmentName));
        EXPECT_FALSE(image.isNull());
        const QIcon told(QPixmap(QStringLiteral(":/TvxTableRes/TvxTableRes/TABLEDIT_%1%2")
                                     .arg(QLatin1String(names[column]), QLatin1String(ending))));
        EXPECT_EQ(image, told.pixmap(button(kAlignmentName).iconSize()).toImage()) << column;
        for (const QImage& other : images) EXPECT_NE(image, other) << column;
        images.push_back(image);
    }
    select(table, "B1");
    EXPECT_EQ(imageOf(button(kAlignmentName)), images[1]);
    select(table, "A1:C1");
    EXPECT_EQ(imageOf(button(kAlignmentName)), images[1]);
}

TEST_F(ToolbarState, has_an_image_of_its_own_on_each_button) {
    showOver(TableBuilder(2, 2).select("A1:B2"));
    std::vector<QImage> images;
    for (const ToolbarRow& row : kToolbarRows) {
        if (row.item != ToolbarItem::Button && row.item != ToolbarItem::Dropdown) continue;
        const QImage image = imageOf(button(row.name));
        ASSERT_FALSE(image.isNull()) << row.name;
        for (const QImage& other : images) EXPECT_NE(image, other) << row.name;
        images.push_back(image);
    }
    EXPECT_EQ(images.size(), 13U);
}

}  // namespace
}  // namespace kdtest
