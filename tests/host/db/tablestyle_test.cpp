// Table styles: their cell styles, and what cells make of them.

#include "kd/db/tablestyle.h"

#include <gtest/gtest.h>

#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/table.h"
#include "kd/ed/resbuf.h"
#include "tests/support/tablebuilder.h"

namespace {

/// A table style in a database, open for write.
class StyledDatabase {
public:
    explicit StyledDatabase(const wchar_t* name = L"Mine") {
        KdDbDictionary* dictionary = nullptr;
        EXPECT_EQ(database.getTableStyleDictionary(dictionary, KdDb::kForWrite), Kdad::eOk);
        style = new KdDbTableStyle;
        EXPECT_EQ(dictionary->setAt(name, style, id), Kdad::eOk);
        dictionary->close();
    }
    ~StyledDatabase() { style->close(); }

    KdDbDatabase database;
    KdDbTableStyle* style = nullptr;  ///< the database's
    KdDbObjectId id;
};

std::wstring names(const KdDbTableStyle& style) {
    KdArray<KdString> list;
    const int count = style.getCellStyles(list);
    EXPECT_EQ(count, list.length());
    EXPECT_EQ(count, style.numCellStyles());
    std::wstring result;
    for (const KdString& name : list) result += name.str() + L" ";
    return result;
}

}  // namespace

TEST(TableStyle, has_three_cell_styles_with_the_standard_values) {
    KdDbTableStyle style;
    EXPECT_EQ(names(style), L"_TITLE _HEADER _DATA ");
    struct Row {
        const wchar_t* name;
        double height;
        KdDb::CellAlignment alignment;
        int cellClass;
        bool mergeAll;
    };
    for (const Row& row : {Row{L"_TITLE", 6.0, KdDb::kMiddleCenter, KdDb::kCellClassLabel, true},
                           Row{L"_HEADER", 4.5, KdDb::kMiddleCenter, KdDb::kCellClassLabel, false},
                           Row{L"_DATA", 4.5, KdDb::kTopCenter, KdDb::kCellClassData, false}}) {
        EXPECT_DOUBLE_EQ(style.textHeight(row.name), row.height);
        EXPECT_EQ(style.alignment(row.name), row.alignment);
        EXPECT_EQ(style.cellClass(row.name), row.cellClass);
        EXPECT_EQ(style.isMergeAllEnabled(row.name), row.mergeAll);
        EXPECT_DOUBLE_EQ(style.margin(KdDb::kCellMarginTop, row.name), 1.5);
        EXPECT_DOUBLE_EQ(style.margin(KdDb::kCellMarginLeft, row.name), 1.5);
        EXPECT_TRUE(style.backgroundColor(row.name).isNone());
        for (int edge = 1; edge <= 32; edge *= 2) {
            const auto line = static_cast<KdDb::GridLineType>(edge);
            EXPECT_EQ(style.gridVisibility(line, row.name), KdDb::kVisible);
            EXPECT_EQ(style.gridLineStyle(line, row.name), KdDb::kGridLineStyleSingle);
            EXPECT_EQ(style.gridLineWeight(line, row.name), KdDb::kLnWtByBlock);
            EXPECT_TRUE(style.gridColor(line, row.name).isByBlock());
        }
    }
}

TEST(TableStyle, keeps_every_property_of_the_style_named_and_of_no_other) {
    KdDbTableStyle style;
    ASSERT_EQ(style.createCellStyle(L"Sum", L"_DATA"), Kdad::eOk);
    style.setTextHeight(2.5, L"sum");
    style.setTextStyle(KdDbObjectId(77), L"SUM");
    style.setAlignment(KdDb::kBottomRight, L"Sum");
    style.setRotation(0.25, L"Sum");
    style.setColor(KdCmColor::fromIndex(3), L"Sum");
    style.setBackgroundColor(KdCmColor::fromRgb(1, 2, 3), L"Sum");
    style.setMargin(KdDb::kCellMarginTop, 0.5, L"Sum");
    style.setMargin(KdDb::kCellMarginLeft, 0.75, L"Sum");
    style.setFormat(L"%lu2", L"Sum");
    style.setDataType(KdValue::kDouble, KdValue::kCurrency, L"Sum");
    style.setCellClass(KdDb::kCellClassLabel, L"Sum");
    style.enableMergeAll(true, L"Sum");

    EXPECT_DOUBLE_EQ(style.textHeight(L"Sum"), 2.5);
    EXPECT_EQ(style.textStyle(L"Sum"), KdDbObjectId(77));
    EXPECT_EQ(style.alignment(L"Sum"), KdDb::kBottomRight);
    EXPECT_DOUBLE_EQ(style.rotation(L"Sum"), 0.25);
    EXPECT_EQ(style.color(L"Sum").colorIndex(), 3);
    EXPECT_EQ(style.backgroundColor(L"Sum"), KdCmColor::fromRgb(1, 2, 3));
    EXPECT_DOUBLE_EQ(style.margin(KdDb::kCellMarginTop, L"Sum"), 0.5);
    EXPECT_DOUBLE_EQ(style.margin(KdDb::kCellMarginLeft, L"Sum"), 0.75);
    EXPECT_EQ(style.format(L"Sum").str(), L"%lu2");
    KdValue::DataType dataType{};
    KdValue::UnitType unitType{};
    style.getDataType(dataType, unitType, L"Sum");
    EXPECT_EQ(dataType, KdValue::kDouble);
    EXPECT_EQ(unitType, KdValue::kCurrency);
    EXPECT_EQ(style.cellClass(L"Sum"), KdDb::kCellClassLabel);
    EXPECT_TRUE(style.isMergeAllEnabled(L"Sum"));

    EXPECT_DOUBLE_EQ(style.textHeight(L"_DATA"), 4.5);
    EXPECT_EQ(style.alignment(L"_DATA"), KdDb::kTopCenter);
    EXPECT_TRUE(style.format(L"_DATA").isEmpty());
}

TEST(TableStyle, sets_one_edge_or_a_set_of_edges) {
    KdDbTableStyle style;
    style.setGridVisibility(KdDb::kInvisible, KdDb::kVertInside, L"_DATA");
    style.setGridLineWeight(KdDb::kLnWt050, static_cast<KdDb::GridLineType>(1 | 4), L"_DATA");
    style.setGridLineStyle(KdDb::kGridLineStyleDouble, KdDb::kHorzTop, L"_DATA");
    style.setGridColor(KdCmColor::fromIndex(5), KdDb::kVertLeft, L"_DATA");
    style.setGridLinetype(KdDbObjectId(9), KdDb::kVertRight, L"_DATA");
    style.setGridDoubleLineSpacing(0.25, KdDb::kHorzTop, L"_DATA");
    for (int edge = 1; edge <= 32; edge *= 2) {
        const auto line = static_cast<KdDb::GridLineType>(edge);
        EXPECT_EQ(style.gridVisibility(line, L"_DATA"), edge == 16 ? KdDb::kInvisible : KdDb::kVisible) << edge;
        EXPECT_EQ(style.gridLineWeight(line, L"_DATA") == KdDb::kLnWt050, edge == 1 || edge == 4) << edge;
        EXPECT_EQ(style.gridLineStyle(line, L"_DATA") == KdDb::kGridLineStyleDouble, edge == 1) << edge;
        EXPECT_EQ(style.gridColor(line, L"_DATA").colorIndex() == 5, edge == 8) << edge;
        EXPECT_EQ(style.gridLinetype(line, L"_DATA") == KdDbObjectId(9), edge == 32) << edge;
        EXPECT_EQ(style.gridDoubleLineSpacing(line, L"_DATA") == 0.25, edge == 1) << edge;
    }
}

TEST(TableStyle, an_unknown_name_reads_as_data_and_sets_nothing) {
    KdDbTableStyle style;
    style.setTextHeight(1.0, L"_HERDER");
    style.setTextHeight(3.0, nullptr);
    EXPECT_DOUBLE_EQ(style.textHeight(L"_HERDER"), 4.5);
    style.setTextHeight(3.0, L"_data");
    EXPECT_DOUBLE_EQ(style.textHeight(L"_HERDER"), 3.0);
    EXPECT_DOUBLE_EQ(style.textHeight(nullptr), 3.0);
}

TEST(TableStyle, values_without_sense_change_nothing) {
    KdDbTableStyle style;
    style.setTextHeight(0.0, L"_DATA");
    style.setTextHeight(-1.0, L"_DATA");
    style.setMargin(KdDb::kCellMarginTop, -0.1, L"_DATA");
    style.setAlignment(static_cast<KdDb::CellAlignment>(0), L"_DATA");
    style.setAlignment(static_cast<KdDb::CellAlignment>(10), L"_DATA");
    EXPECT_DOUBLE_EQ(style.textHeight(L"_DATA"), 4.5);
    EXPECT_DOUBLE_EQ(style.margin(KdDb::kCellMarginTop, L"_DATA"), 1.5);
    EXPECT_EQ(style.alignment(L"_DATA"), KdDb::kTopCenter);
}

TEST(TableStyle, indices_of_users_styles_begin_at_101_and_are_never_given_twice) {
    KdDbTableStyle style;
    EXPECT_EQ(style.cellStyleName(1).str(), L"_TITLE");
    EXPECT_EQ(style.cellStyleName(3).str(), L"_DATA");
    EXPECT_TRUE(style.cellStyleName(4).isEmpty());
    ASSERT_EQ(style.createCellStyle(L"A", L"_DATA"), Kdad::eOk);
    ASSERT_EQ(style.createCellStyle(L"B", L"A"), Kdad::eOk);
    EXPECT_EQ(style.cellStyleName(101).str(), L"A");
    ASSERT_EQ(style.deleteCellStyle(L"b"), Kdad::eOk);
    ASSERT_EQ(style.createCellStyle(L"C", L"_TITLE"), Kdad::eOk);
    EXPECT_TRUE(style.cellStyleName(102).isEmpty());
    EXPECT_EQ(style.cellStyleName(103).str(), L"C");
    EXPECT_EQ(names(style), L"_TITLE _HEADER _DATA A C ");
}

TEST(TableStyle, refuses_names_with_their_statuses) {
    KdDbTableStyle style;
    ASSERT_EQ(style.createCellStyle(L"A", L"_DATA"), Kdad::eOk);
    ASSERT_EQ(style.createCellStyle(L"B", L"_DATA"), Kdad::eOk);
    EXPECT_EQ(style.createCellStyle(L"", L"_DATA"), Kdad::eInvalidKey);
    EXPECT_EQ(style.createCellStyle(nullptr, L"_DATA"), Kdad::eInvalidKey);
    EXPECT_EQ(style.createCellStyle(L"a", L"_DATA"), Kdad::eDuplicateKey);
    EXPECT_EQ(style.createCellStyle(L"_data", L"_DATA"), Kdad::eDuplicateKey);
    EXPECT_EQ(style.createCellStyle(L"C", L"none"), Kdad::eKeyNotFound);
    EXPECT_EQ(style.deleteCellStyle(L"none"), Kdad::eKeyNotFound);
    EXPECT_EQ(style.deleteCellStyle(L"_TITLE"), Kdad::eNotApplicable);
    EXPECT_EQ(style.renameCellStyle(L"none", L"D"), Kdad::eKeyNotFound);
    EXPECT_EQ(style.renameCellStyle(L"_HEADER", L"D"), Kdad::eNotApplicable);
    EXPECT_EQ(style.renameCellStyle(L"A", L"b"), Kdad::eDuplicateKey);
    EXPECT_EQ(style.renameCellStyle(L"A", L""), Kdad::eInvalidKey);
    EXPECT_EQ(names(style), L"_TITLE _HEADER _DATA A B ");
    EXPECT_EQ(style.renameCellStyle(L"A", L"a"), Kdad::eOk) << "its own name in another case";
    EXPECT_EQ(names(style), L"_TITLE _HEADER _DATA a B ");
    EXPECT_EQ(style.createCellStyle(L"Ä", L"_DATA"), Kdad::eOk);
    EXPECT_EQ(style.createCellStyle(L"ä", L"_DATA"), Kdad::eOk) << "the letters A to Z alone have a case";
}

TEST(TableStyle, a_copy_holds_what_the_original_held_and_goes_its_own_way) {
    KdDbTableStyle style;
    style.createCellStyle(L"A", L"_DATA");
    style.setTextHeight(9.0, L"A");
    KdDbTableStyle copy;
    ASSERT_EQ(copy.copyFrom(&style), Kdad::eOk);
    EXPECT_DOUBLE_EQ(copy.textHeight(L"A"), 9.0);
    copy.setTextHeight(1.0, L"A");
    EXPECT_DOUBLE_EQ(style.textHeight(L"A"), 9.0);
    KdDbTable table;
    EXPECT_EQ(copy.copyFrom(&table), Kdad::eNotThatKindOfClass);
}

TEST(TableStyle, is_named_by_its_entry) {
    StyledDatabase drawing(L"Parts list");
    wchar_t* name = nullptr;
    ASSERT_EQ(drawing.style->getName(name), Kdad::eOk);
    EXPECT_STREQ(name, L"Parts list");
    kdutDelBuffer(name);
    KdDbTableStyle loose;
    EXPECT_NE(loose.getName(name), Kdad::eOk);
    EXPECT_EQ(name, nullptr);
}

TEST(TableStyle, flow_is_kept) {
    KdDbTableStyle style;
    EXPECT_EQ(style.flowDirection(), 0);
    style.setFlowDirection(1);
    EXPECT_EQ(style.flowDirection(), 1);
}

// ---- the cells of tables

TEST(CellsOfStyles, follow_their_style_at_once) {
    StyledDatabase drawing;
    auto table = kdtest::TableBuilder(3, 2).style(drawing.id).build();
    EXPECT_DOUBLE_EQ(table->textHeight(2, 0), 4.5);
    drawing.style->setTextHeight(7.0, L"_DATA");
    EXPECT_DOUBLE_EQ(table->textHeight(2, 0), 7.0);
    EXPECT_DOUBLE_EQ(table->textHeight(KdDb::kDataRow), 7.0);
    EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 6.0);
    table->setTextHeight(2, 0, 2.0);
    drawing.style->setTextHeight(8.0, L"_DATA");
    EXPECT_DOUBLE_EQ(table->textHeight(2, 0), 2.0);
    EXPECT_DOUBLE_EQ(table->textHeight(2, 1), 8.0);
}

TEST(CellsOfStyles, of_an_unknown_name_have_the_values_of_data_and_keep_the_name) {
    StyledDatabase drawing;
    auto table = kdtest::TableBuilder(2, 2).style(drawing.id).cellStyle("A1", L"Later").build();
    EXPECT_STREQ(table->cellStyle(0, 0), L"Later");
    EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 4.5);
    drawing.style->createCellStyle(L"LATER", L"_TITLE");
    EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 6.0);
}

TEST(CellsOfStyles, are_carried_along_by_a_rename) {
    StyledDatabase drawing;
    drawing.style->createCellStyle(L"Old", L"_TITLE");
    auto table = kdtest::TableBuilder(2, 2).style(drawing.id).cellStyle("B2", L"old").build();
    EXPECT_STREQ(table->cellStyle(1, 1), L"Old");
    ASSERT_EQ(drawing.style->renameCellStyle(L"Old", L"New"), Kdad::eOk);
    EXPECT_STREQ(table->cellStyle(1, 1), L"New");
    // Another style under the old name is another style.
    ASSERT_EQ(drawing.style->createCellStyle(L"Old", L"_DATA"), Kdad::eOk);
    EXPECT_STREQ(table->cellStyle(1, 1), L"New");
    EXPECT_DOUBLE_EQ(table->textHeight(1, 1), 6.0);
    table->setCellStyle(0, 0, L"Old");
    EXPECT_STREQ(table->cellStyle(0, 0), L"Old");
    EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 4.5);
}

TEST(CellsOfStyles, follow_a_style_that_goes_back_to_what_it_was) {
    StyledDatabase drawing;
    drawing.style->createCellStyle(L"Old", L"_TITLE");
    auto table = kdtest::TableBuilder(2, 2).style(drawing.id).cellStyle("B2", L"Old").build();
    KdDbTableStyle kept;
    ASSERT_EQ(kept.copyFrom(drawing.style), Kdad::eOk);
    drawing.style->renameCellStyle(L"Old", L"New");
    drawing.style->setTextHeight(1.0, L"New");
    EXPECT_STREQ(table->cellStyle(1, 1), L"New");
    EXPECT_DOUBLE_EQ(table->textHeight(1, 1), 1.0);
    ASSERT_EQ(drawing.style->copyFrom(&kept), Kdad::eOk);
    EXPECT_STREQ(table->cellStyle(1, 1), L"Old");
    EXPECT_DOUBLE_EQ(table->textHeight(1, 1), 6.0);
}

TEST(CellsOfStyles, keep_the_last_name_of_a_style_that_was_deleted) {
    StyledDatabase drawing;
    drawing.style->createCellStyle(L"First", L"_TITLE");
    auto table = kdtest::TableBuilder(2, 2).style(drawing.id).cellStyle("A1", L"First").build();
    drawing.style->renameCellStyle(L"First", L"Second");
    drawing.style->deleteCellStyle(L"Second");
    EXPECT_STREQ(table->cellStyle(0, 0), L"Second");
    EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 4.5) << "as data";
    drawing.style->createCellStyle(L"Second", L"_TITLE");
    EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 6.0);
}

TEST(CellsOfStyles, keep_their_names_under_another_table_style) {
    StyledDatabase drawing;
    drawing.style->createCellStyle(L"Sum", L"_TITLE");
    auto table = kdtest::TableBuilder(2, 2).style(drawing.id).cellStyle("A1", L"Sum").build();
    KdDbTableStyle* other = new KdDbTableStyle;
    other->createCellStyle(L"Different", L"_DATA");  // has the index that "Sum" has in the first style
    KdDbObjectId otherId;
    KdDbDictionary* dictionary = nullptr;
    ASSERT_EQ(drawing.database.getTableStyleDictionary(dictionary, KdDb::kForWrite), Kdad::eOk);
    dictionary->setAt(L"Other", other, otherId);
    dictionary->close();
    table->setTableStyle(otherId);
    EXPECT_EQ(table->tableStyle(), otherId);
    EXPECT_STREQ(table->cellStyle(0, 0), L"Sum");
    EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 4.5);
    other->close();
    table->setTableStyle(drawing.id);
    EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 6.0);
}

TEST(CellsOfStyles, of_a_table_whose_style_is_not_to_be_found_have_the_standard_values) {
    KdDbTable table;
    table.setTableStyle(KdDbObjectId(123456789));
    EXPECT_EQ(table.tableStyle(), KdDbObjectId(123456789));
    EXPECT_DOUBLE_EQ(table.textHeight(0, 0), 6.0);
}

// ---- reserved names

TEST(ReservedNames, have_their_kinds_and_local_forms) {
    EXPECT_EQ(kddbGetReservedString(KdDb::kReservedStandard, false).str(), L"Standard");
    EXPECT_EQ(kddbGetReservedString(KdDb::kReservedStandard, true).str(), L"Standard");
    EXPECT_EQ(kddbGetReservedString(KdDb::kReservedCellStyleTitle, false).str(), L"_TITLE");
    EXPECT_EQ(kddbGetReservedString(KdDb::kReservedCellStyleHeader, false).str(), L"_HEADER");
    EXPECT_EQ(kddbGetReservedString(KdDb::kReservedCellStyleData, false).str(), L"_DATA");
    EXPECT_TRUE(kddbGetReservedString(static_cast<KdDb::reservedStringEnumType>(99), false).isEmpty());
    EXPECT_TRUE(kddbIsReservedString(L"standard", KdDb::kReservedStandard));
    EXPECT_TRUE(kddbIsReservedString(L"_data", KdDb::kReservedCellStyleData));
    EXPECT_FALSE(kddbIsReservedString(L"_DATA", KdDb::kReservedCellStyleTitle));
    EXPECT_FALSE(kddbIsReservedString(nullptr, KdDb::kReservedStandard));
}

TEST(ReservedNames, translate_there_and_back_and_leave_others) {
    for (const wchar_t* name : {L"_TITLE", L"_HEADER", L"_DATA", L"Standard"}) {
        const KdString local = kddbXlateReservedString(name, true);
        EXPECT_EQ(kddbXlateReservedString(local.kwszPtr(), false).str(), name);
    }
    EXPECT_EQ(kddbXlateReservedString(L"_TITLE", true).str(), L"Title");
    EXPECT_EQ(kddbXlateReservedString(L"Sum", true).str(), L"Sum");
    EXPECT_EQ(kddbXlateReservedString(L"Sum", false).str(), L"Sum");
}
