// Edits of the properties of selected cells: what each changes, its step of undo, and what happens where it can't be
// carried out.

#include <gtest/gtest.h>

#include <algorithm>

#include "host/ed/display.h"
#include "host/rx/faults.h"
#include "host/win32/modules.h"
#include "kd/db/line.h"
#include "kd/db/tablestyle.h"
#include "module/core/tablecommon.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {
namespace {

using Common = CVqTableCommon;

/// An edit that asks nobody, with its mark.
struct EditRow {
    const char* function;
    const wchar_t* name;
    unsigned title;
    bool updatesDisplay;
    bool changes;        ///< false where the module only holds an operation's place
    bool needsSelected;  ///< does nothing where nothing is selected
    int (*run)(KdDbObjectId table);
};

int setTitleStyle(KdDbObjectId table) {
    CStdStr<wchar_t> name = L"_TITLE";
    return Common::SetCellStyleByName(table, name);
}

const EditRow kEdits[] = {
    {"SetBackgroundColor", L"BackgroundFill", 1421, true, true, true,
     [](KdDbObjectId table) { return Common::SetBackgroundColor(table, KdCmColor::fromIndex(3)); }},
    {"SetSelectionAlignment", L"ChangeCellAlignment", 2073, true, true, true,
     [](KdDbObjectId table) { return Common::SetSelectionAlignment(table, KdDb::kBottomRight); }},
    {"SettingLocked", L"EditCellLock", 2187, true, true, true,
     [](KdDbObjectId table) { return Common::SettingLocked(1822, table); }},
    {"SetDataFormatMenu", L"DataFormat", 2233, true, true, true,
     [](KdDbObjectId table) { return Common::SetDataFormatMenu(1824, table); }},
    {"ClearCellOverrides", L"ClearCellOverride", 2111, false, true, true, Common::ClearCellOverrides},
    {"ClearTableStyleOverrides", L"ClearTableOverride", 2076, false, true, false, Common::ClearTableStyleOverrides},
    {"DeleteContent", L"DeleteContent", 2084, false, true, true, Common::DeleteContent},
    {"SetCellStyleByName", L"SetCellStyle", 2154, false, true, true, setTitleStyle},
    {"InsertField", L"InsertField", 2249, false, false, true, Common::InsertField},
    {"InsertBlock", L"InsertBlock", 2077, false, false, true, Common::InsertBlock},
    {"SetCurrentTableStyleAsTable", L"SetCurTableStyle", 2161, false, false, true, Common::SetCurrentTableStyleAsTable},
    {"ManageCellContent", L"ManCellContent", 2218, false, false, true, Common::ManageCellContent},
};

class PropertyEdits : public TableEdits, private kdhost::Display {
protected:
    PropertyEdits() { kdhost::setDisplay(this); }
    ~PropertyEdits() override { kdhost::setDisplay(nullptr); }

    /// In the drawing's table style.
    KdDbObjectId addTable(TableBuilder& builder) { return add(builder.style(host.database().tablestyle())); }
    KdDbObjectId addTable(TableBuilder&& builder) { return addTable(builder); }
    /// Four rows and columns, every cell filled, with a merge and overrides; the middle is selected.
    KdDbObjectId sample() {
        return addTable(TableBuilder(4, 4).merge("A1:D1").fill().align("A1:D4", KdDb::kMiddleLeft).select("B2:C3"));
    }

    static std::string described(KdDbObjectId table) { return describe(look(table)); }
    /// What `read` finds in the table.
    template <class Read>
    static auto read(KdDbObjectId table, Read read) {
        return read(look(table));
    }

    static void lockLayerOf(KdDbObjectId table) {
        OpenObject<KdDbLayerTableRecord>(look(table).layerId(), KdDb::kForWrite)->setIsLocked(true);
    }

    /// A text of the module.
    static std::wstring text(unsigned number) {
        const ResourceScope resources;
        return loadText(number);
    }

    /// What updates of the display drew afresh.
    std::vector<KdDbObjectId> drawn;

private:
    void redraw(const std::vector<KdDbObjectId>& ids) override { drawn.insert(drawn.end(), ids.begin(), ids.end()); }
};

TEST_F(PropertyEdits, Each_is_one_step_of_its_name_and_title_and_undo_gives_the_same_table) {
    for (const EditRow& edit : kEdits) {
        SCOPED_TRACE(edit.function);
        const KdDbObjectId table = sample();
        const std::string before = described(table);
        const std::vector<std::wstring> stepsBefore = steps();
        EXPECT_EQ(edit.run(table), 1);
        EXPECT_EQ(selection(table), cells("B2:C3"));
        if (!edit.changes) {
            EXPECT_EQ(steps(), stepsBefore) << "nothing was changed";
            EXPECT_EQ(described(table), before);
            continue;
        }
        const std::string after = described(table);
        EXPECT_NE(after, before);
        ASSERT_EQ(steps().size(), stepsBefore.size() + 1);
        EXPECT_EQ(steps().back(), edit.name);
        EXPECT_EQ(undoHistory().undoTitle(), text(edit.title));
        EXPECT_FALSE(text(edit.title).empty());
        ASSERT_EQ(undoHistory().undo(), Kdad::eOk);
        EXPECT_EQ(described(table), before);
        EXPECT_EQ(selection(table), cells("B2:C3"));
        ASSERT_EQ(undoHistory().redo(), Kdad::eOk);
        EXPECT_EQ(described(table), after);
    }
}

TEST_F(PropertyEdits, Four_of_these_update_the_display_and_the_others_leave_that_to_the_host) {
    for (const EditRow& edit : kEdits) {
        SCOPED_TRACE(edit.function);
        const KdDbObjectId table = sample();
        kdhost::updateDisplay();
        drawn.clear();
        edit.run(table);
        EXPECT_EQ(drawn, edit.updatesDisplay ? std::vector{table} : std::vector<KdDbObjectId>());
    }
}

TEST_F(PropertyEdits, Are_refused_without_the_main_application_service) {
    for (const EditRow& edit : kEdits) {
        SCOPED_TRACE(edit.function);
        const KdDbObjectId table = sample();
        const std::string before = described(table);
        kdhost::faults().noMainAppService = true;
        EXPECT_EQ(edit.run(table), 0);
        kdhost::faults() = {};
        EXPECT_EQ(described(table), before);
    }
}

TEST_F(PropertyEdits, Pass_over_a_table_that_cannot_be_opened_without_a_word) {
    const KdDbObjectId line = append(new KdDbLine);
    for (const EditRow& edit : kEdits) {
        SCOPED_TRACE(edit.function);
        const KdDbObjectId table = sample();
        const std::string before = described(table);
        const std::vector<std::wstring> stepsBefore = steps();
        EXPECT_EQ(edit.run(KdDbObjectId::kNull), 1);
        EXPECT_EQ(edit.run(line), 1);
        {
            const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
            EXPECT_EQ(edit.run(table), 1);
        }
        kdhost::faults().failOpenNumber = 1;
        EXPECT_EQ(edit.run(table), 1);
        kdhost::faults() = {};
        EXPECT_EQ(described(table), before);
        EXPECT_EQ(steps(), stepsBefore);
    }
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(PropertyEdits, Leave_a_table_on_a_locked_layer_alone) {
    const KdDbObjectId table = sample();
    const std::string before = described(table);
    lockLayerOf(table);
    const std::vector<std::wstring> stepsBefore = steps();
    for (const EditRow& edit : kEdits) {
        SCOPED_TRACE(edit.function);
        EXPECT_EQ(edit.run(table), 1);
        EXPECT_EQ(described(table), before);
        EXPECT_EQ(steps(), stepsBefore);
    }
}

TEST_F(PropertyEdits, Change_nothing_where_no_cell_is_selected) {
    for (const KdCellRange& none : {KdCellRange{}, KdCellRange{2, 2, 1, 1}}) {
        for (const EditRow& edit : kEdits) {
            SCOPED_TRACE(edit.function);
            if (!edit.needsSelected) continue;
            const KdDbObjectId table = sample();
            select(table, none);
            const std::string before = described(table);
            EXPECT_EQ(edit.run(table), 1);
            EXPECT_EQ(described(table), before);
        }
    }
}

TEST_F(PropertyEdits, Reach_every_cell_of_selected_rows_and_columns) {
    for (const KdCellRange& lines : {KdCellRange{1, -1, 2, -1}, KdCellRange{-1, 1, -1, 2}}) {
        const KdDbObjectId table = addTable(TableBuilder(4, 4));
        select(table, lines);
        Common::SetSelectionAlignment(table, KdDb::kBottomRight);
        const bool rows = lines.m_topRow == 1;
        read(table, [&](const KdDbTable& open) {
            for (int row = 0; row < 4; ++row) {
                for (int column = 0; column < 4; ++column) {
                    const int line = rows ? row : column;
                    EXPECT_EQ(open.alignment(row, column) == KdDb::kBottomRight, line == 1 || line == 2)
                        << row << ", " << column;
                }
            }
        });
    }
}

TEST_F(PropertyEdits, Set_just_the_selected_cells) {
    const KdDbObjectId table = sample();
    Common::SetBackgroundColor(table, KdCmColor::fromRgb(1, 2, 3));
    Common::SetSelectionAlignment(table, KdDb::kTopRight);
    read(table, [](const KdDbTable& open) {
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                const bool inside = row >= 1 && row <= 2 && column >= 1 && column <= 2;
                EXPECT_EQ(open.backgroundColor(row, column), inside ? KdCmColor::fromRgb(1, 2, 3) : KdCmColor::none());
                EXPECT_EQ(open.alignment(row, column), inside ? KdDb::kTopRight : KdDb::kMiddleLeft);
            }
        }
    });
}

TEST_F(PropertyEdits, Set_covered_cells_as_they_stand) {
    const KdDbObjectId table = addTable(TableBuilder(2, 2).merge("A1:B2").select("A2:B2"));
    Common::SetSelectionAlignment(table, KdDb::kBottomLeft);
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->unmergeCells(0, 1, 0, 1);
    read(table, [](const KdDbTable& open) {
        EXPECT_NE(open.alignment(0, 0), KdDb::kBottomLeft) << "the merge's owner isn't selected";
        EXPECT_EQ(open.alignment(1, 0), KdDb::kBottomLeft);
        EXPECT_EQ(open.alignment(1, 1), KdDb::kBottomLeft);
    });
}

TEST_F(PropertyEdits, Are_refused_by_cells_whose_format_or_content_is_locked) {
    const KdDbObjectId table = addTable(TableBuilder(1, 3)
                                            .fill()
                                            .lock("A1", KdDb::kCellStateFormatLocked)
                                            .lock("B1", KdDb::kCellStateContentLocked)
                                            .select("A1:C1"));
    Common::SetSelectionAlignment(table, KdDb::kBottomRight);
    Common::DeleteContent(table);
    read(table, [](const KdDbTable& open) {
        EXPECT_NE(open.alignment(0, 0), KdDb::kBottomRight);
        EXPECT_EQ(open.alignment(0, 1), KdDb::kBottomRight);
        EXPECT_STREQ(open.textString(0, 1), L"B1");
    });
}

TEST_F(PropertyEdits, SettingLocked_takes_1820_to_1822_for_locks_and_unlocks_by_every_other_number) {
    const std::pair<unsigned, int> commands[] = {{1820, 1}, {1821, 16}, {1822, 17}, {1819, 0},
                                                 {1823, 0}, {0, 0},     {9999, 0},  {0xFFFFFFFFU, 0}};
    const KdDbObjectId table = addTable(TableBuilder(2, 2).select("A1:B1"));
    for (const auto& [command, expected] : commands) {
        for (const int before : {0, 1, 2, 16, 32, 51}) {
            OpenObject<KdDbTable>(table, KdDb::kForWrite)->setCellState(0, 0, static_cast<KdDb::CellState>(before));
            EXPECT_EQ(Common::SettingLocked(command, table), 1);
            read(table, [&, command = command, expected = expected](const KdDbTable& open) {
                EXPECT_EQ(open.cellState(0, 0), expected) << command << " after " << before;
                EXPECT_EQ(open.cellState(0, 1), expected);
                EXPECT_EQ(open.cellState(1, 0), 0);
            });
        }
    }
}

std::pair<int, int> dataType(const KdDbTable& table, int row, int column) {
    auto type = KdValue::kUnknown;
    auto unit = KdValue::kUnitless;
    table.getDataType(row, column, type, unit);
    return {type, unit};
}

TEST_F(PropertyEdits, SetDataFormatMenu_sets_type_and_unit_of_its_nine_commands) {
    const KdDbObjectId table = addTable(TableBuilder(2, 2).select("A1:B1"));
    const auto kept = read(table, [](const KdDbTable& open) { return dataType(open, 1, 0); });
    for (unsigned command = 1823; command <= 1831; ++command) {
        auto type = KdValue::kUnknown;
        auto unit = KdValue::kUnitless;
        ASSERT_TRUE(Common::GetDataFormat(static_cast<int>(command), type, unit));
        EXPECT_EQ(Common::SetDataFormatMenu(command, table), 1);
        read(table, [&](const KdDbTable& open) {
            EXPECT_EQ(dataType(open, 0, 0), std::pair(int(type), int(unit))) << command;
            EXPECT_EQ(dataType(open, 0, 1), std::pair(int(type), int(unit))) << command;
            EXPECT_EQ(dataType(open, 1, 0), kept);
        });
    }
}

TEST_F(PropertyEdits, SetDataFormatMenu_takes_the_type_off_by_every_other_number) {
    const KdDbObjectId table = addTable(TableBuilder(2, 2).select("A1:B1"));
    const auto kept = read(table, [](const KdDbTable& open) { return dataType(open, 1, 0); });
    for (const unsigned command : {0U, 1822U, 1832U, 0xFFFFFFFFU}) {
        Common::SetDataFormatMenu(1824, table);
        EXPECT_EQ(Common::SetDataFormatMenu(command, table), 1);
        read(table, [&](const KdDbTable& open) {
            EXPECT_EQ(dataType(open, 0, 0), std::pair(0, 0)) << command;
            EXPECT_EQ(dataType(open, 0, 1), std::pair(0, 0)) << command;
            EXPECT_EQ(dataType(open, 1, 0), kept);
        });
    }
}

TEST_F(PropertyEdits, SetDataType_has_no_mark_and_tells_whether_the_table_could_be_opened) {
    const KdDbObjectId table = addTable(TableBuilder(2, 2).select("A1:B1"));
    EXPECT_TRUE(Common::SetDataType(table, KdValue::kDouble, KdValue::kCurrency));
    read(table, [](const KdDbTable& open) { EXPECT_EQ(dataType(open, 0, 1), std::pair(2, 16)); });
    EXPECT_EQ(std::ranges::count(steps(), L"DataFormat"), 0);
    kdhost::faults().noMainAppService = true;
    EXPECT_TRUE(Common::SetDataType(table, KdValue::kString, KdValue::kUnitless)) << "it asks for no service";
    kdhost::faults() = {};
    read(table, [](const KdDbTable& open) { EXPECT_EQ(dataType(open, 0, 1), std::pair(4, 0)); });

    select(table, KdCellRange{});
    EXPECT_TRUE(Common::SetDataType(table, KdValue::kDate, KdValue::kUnitless));
    read(table, [](const KdDbTable& open) { EXPECT_EQ(dataType(open, 0, 1), std::pair(4, 0)); });

    EXPECT_FALSE(Common::SetDataType(KdDbObjectId::kNull, KdValue::kDate, KdValue::kUnitless));
    lockLayerOf(table);
    EXPECT_FALSE(Common::SetDataType(table, KdValue::kDate, KdValue::kUnitless));
}

TEST_F(PropertyEdits, ClearCellOverrides_keeps_content_style_locks_and_merges) {
    const auto make = [&](bool overridden) {
        TableBuilder builder(3, 3);
        builder.merge("A1:B1").fill().cellStyle("A2:C2", L"_HEADER").lock("C3").select("A1:C3");
        if (overridden) builder.align("A1:C3", KdDb::kBottomRight);
        return addTable(builder);
    };
    const KdDbObjectId table = make(true);
    ASSERT_NE(described(table), described(make(false)));
    EXPECT_EQ(Common::ClearCellOverrides(table), 1);
    EXPECT_EQ(described(table), described(make(false)));
}

TEST_F(PropertyEdits, ClearTableStyleOverrides_reaches_all_cells_whatever_is_selected) {
    for (const KdCellRange& chosen : {KdCellRange{}, KdCellRange{0, 0, 0, 0}}) {
        const KdDbObjectId table = addTable(TableBuilder(3, 3).align("A1:C3", KdDb::kBottomRight));
        select(table, chosen);
        EXPECT_EQ(Common::ClearTableStyleOverrides(table), 1);
        EXPECT_EQ(described(table), described(addTable(TableBuilder(3, 3))));
    }
}

TEST_F(PropertyEdits, DeleteContent_empties_the_selected_cells_alone) {
    const KdDbObjectId table = sample();
    Common::DeleteContent(table);
    EXPECT_EQ(texts(look(table)), "|A1|.|.|.|\n|A2|||D2|\n|A3|||D3|\n|A4|B4|C4|D4|\n");
}

TEST_F(PropertyEdits, SetCellStyleByName_takes_a_display_name_for_its_internal_one_and_leaves_the_callers_text) {
    {
        const OpenObject<KdDbTableStyle> style(host.database().tablestyle(), KdDb::kForWrite);
        ASSERT_EQ(style->createCellStyle(L"Mine", L"_DATA"), Kdad::eOk);
    }
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        const std::pair<std::wstring, const wchar_t*> names[] = {
            {text(2038), L"_TITLE"},  {text(2039), L"_HEADER"}, {text(2037), L"_DATA"},
            {L"_header", L"_HEADER"}, {L"mine", L"Mine"},
        };
        const KdDbObjectId table = addTable(TableBuilder(2, 2).select("A1:B1"));
        for (const auto& [given, stored] : names) {
            CStdStr<wchar_t> name = given;
            EXPECT_EQ(Common::SetCellStyleByName(table, name), 1);
            EXPECT_EQ(name, given);
            read(table, [stored = stored](const KdDbTable& open) { EXPECT_STREQ(open.cellStyle(0, 1), stored); });
        }
    }
    kdhost::setLanguage(kdhost::Language::English);
}

TEST_F(PropertyEdits, The_three_places_of_other_operations_open_the_table_and_InsertField_does_not) {
    for (const EditRow& edit : kEdits) {
        if (edit.changes) continue;
        SCOPED_TRACE(edit.function);
        const KdDbObjectId table = sample();
        kdhost::faults().failOpenNumber = 1;
        edit.run(table);
        const bool opened = kdhost::faults().failOpenNumber == 0;
        kdhost::faults() = {};
        EXPECT_EQ(opened, edit.run != Common::InsertField);
    }
}

TEST_F(PropertyEdits, Inside_one_command_are_steps_of_their_own) {
    const KdDbObjectId table = sample();
    const std::string before = described(table);
    const std::size_t stepsBefore = steps().size();
    {
        const kdhost::UndoCommandScope command(&host.database(), L"EDITTABLECELL");
        Common::SetSelectionAlignment(table, KdDb::kTopRight);
        Common::SettingLocked(1820, table);
    }
    ASSERT_EQ(steps().size(), stepsBefore + 2);
    EXPECT_EQ(steps().back(), L"EditCellLock");
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(described(table), before);
}

TEST_F(PropertyEdits, SetTableIndicator_asks_nothing_without_the_service) {
    kdhost::faults().noMainAppService = true;
    EXPECT_FALSE(Common::SetTableIndicator(sample()));
    kdhost::faults() = {};
}

}  // namespace
}  // namespace kdtest
