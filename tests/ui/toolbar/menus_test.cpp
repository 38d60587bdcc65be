// The toolbar's drop-down menus: what each of their 31 items does, and what is checked in them.

#include <deque>

#include "host/ed/inputqueue.h"
#include "tests/ui/toolbar/fixture.h"

namespace kdtest {
namespace {

struct ItemCase {
    unsigned number;
    const char* control;
    const char* item;
};

const ItemCase kItems[] = {
    {1802, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_TOPLEFT"},
    {1803, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_TOPCENTER"},
    {1804, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_TOPRIGHT"},
    {1805, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_MIDDLELEFT"},
    {1806, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_MIDDLECENTER"},
    {1807, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_MIDDLERIGHT"},
    {1808, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_BOTTOMLEFT"},
    {1809, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_BOTTOMCENTER"},
    {1810, "IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_BOTTOMRIGHT"},
    {1816, "IDC_TABLEDIT_MERGECELL", "IDR_MERGE_ALL"},
    {1817, "IDC_TABLEDIT_MERGECELL", "IDR_MERGE_BYROW"},
    {1818, "IDC_TABLEDIT_MERGECELL", "IDR_MERGE_BYCOLUMN"},
    {1819, "IDC_TABLEDIT_LOCKING", "IDR_LOCKING_UNLOCKED"},
    {1820, "IDC_TABLEDIT_LOCKING", "IDR_LOCKING_CONTENTLOCKED"},
    {1821, "IDC_TABLEDIT_LOCKING", "IDR_LOCKING_FORMATLOCKED"},
    {1822, "IDC_TABLEDIT_LOCKING", "IDR_LOCKING_CONTENTFORMATLOCKED"},
    {1823, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_ANGLE"},
    {1824, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_CURRENCY"},
    {1825, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_DATE"},
    {1826, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_DECIMAL"},
    {1827, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_GENERAL"},
    {1828, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_PERCENTAGE"},
    {1829, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_POINT"},
    {1830, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_TEXT"},
    {1831, "IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_WHOLE"},
};

/// The operation that the command of that number stands for.
void operate(unsigned number, KdDbObjectId table) {
    using Common = CVqTableCommon;
    if (number <= 1810) {
        Common::SetSelectionAlignment(table, static_cast<KdDb::CellAlignment>(number - 1801));
    } else if (number >= 1823) {
        Common::SetDataFormatMenu(number, table);
    } else if (number >= 1819) {
        Common::SettingLocked(number, table);
    } else {
        const auto merge = number == 1816   ? Common::MergeAll
                           : number == 1817 ? Common::MergeByRow
                                            : Common::MergeByColumn;
        merge(table);
    }
}

class ToolbarItemOf : public ToolbarTest, public ::testing::WithParamInterface<ItemCase> {
protected:
    TableBuilder sample() {
        TableBuilder builder(5, 4);
        builder.text("A1", L"1").text("B2", L"2").lock("B2", KdDb::kCellStateFormatLocked).select("B2:C4");
        return builder;
    }
};

TEST_P(ToolbarItemOf, does_as_the_operation_on_an_equal_table) {
    const auto& [number, control, item] = GetParam();
    const KdDbObjectId expected = addTable(sample());
    const KdDbObjectId table = showOver(sample());
    operate(number, expected);
    const std::size_t stepsOfOperation = steps().size();
    choose(control, item);
    EXPECT_EQ(describe(look(table)), describe(look(expected)));
    EXPECT_EQ(selection(table), selection(expected));
    EXPECT_EQ(steps().size(), 2 * stepsOfOperation);
    EXPECT_TRUE(isShown());
}

TEST_P(ToolbarItemOf, does_nothing_where_the_layer_is_locked_and_the_toolbar_stays) {
    const auto& [number, control, item] = GetParam();
    const KdDbObjectId table = addTable(sample());
    lockLayerOf(table);
    showTableToolBar(table, true);
    const std::string before = describe(look(table));
    const std::size_t stepsBefore = steps().size();
    choose(control, item);
    EXPECT_TRUE(window()->OnCommandId(number));
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_EQ(steps().size(), stepsBefore);
    EXPECT_TRUE(isShown());
}

INSTANTIATE_TEST_SUITE_P(Items, ToolbarItemOf, ::testing::ValuesIn(kItems),
                         [](const auto& info) { return std::string(info.param.item); });

class ToolbarMenus : public ToolbarTest {
protected:
    /// What has been sent to the document, "^C" for each cancelling.
    std::wstring takeInput() {
        std::wstring text;
        while (!host.editor().input().isEmpty()) {
            const auto item = host.editor().input().next(nullptr);
            const bool isCancel = item->kind == kdhost::InputItem::Kind::Cancel;
            text += isCancel ? std::wstring(L"^C") : std::wstring(1, item->character);
        }
        return text;
    }
    static std::string checkedIn(const QMenu& menu) {
        std::string names;
        for (const QAction* item : menu.actions()) {
            if (item->isChecked()) names += item->objectName().toStdString() + ' ';
        }
        return names;
    }
    std::string checked(const char* control) {
        std::string names;
        dropAndAct(control, [&](QMenu& menu) {
            names = checkedIn(menu);
            QTest::keyClick(&menu, Qt::Key_Escape);
        });
        return names;
    }
};

TEST_F(ToolbarMenus, formulas_are_macros_of_the_command_line_editor) {
    showOver(TableBuilder(3, 3).select("B2"));
    const std::pair<const char*, const wchar_t*> kWords[] = {{"IDR_FORMULA_SUM", L"_Sum"},
                                                             {"IDR_FORMULA_AVERAGE", L"_Average"},
                                                             {"IDR_FORMULA_COUNT", L"_Count"},
                                                             {"IDR_FORMULA_CELL", L"_Cell"},
                                                             {"IDR_FORMULA_EQUATION", L"_Equation"}};
    for (const auto& [item, word] : kWords) {
        for (const bool atArrow : {true, false}) {
            choose("IDC_TABLEDIT_FORMULA", item, atArrow);
            EXPECT_EQ(takeInput(), L"^C^C_EDITTABLECELL _ExecuteOneAction _Op _Formula " + std::wstring(word) + L"\n");
        }
    }
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarMenus, the_custom_format_opens_the_formats) {
    showOver(TableBuilder(3, 3).select("B2"));
    bool came = false;
    QTimer::singleShot(0, qApp, [&] {
        next([&](QWidget& dialog) {
            came = true;
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        EXPECT_EQ(kdhost::automation::menu(L"IDR_FORMAT_CUSTOMFORMAT"), L"");
    });
    KdUiPushButton& pressed = button("IDC_TABLEDIT_DATAFORMAT");
    QTest::mouseClick(&pressed, Qt::LeftButton, Qt::NoModifier, QPoint(pressed.width() - 3, 10));
    EXPECT_TRUE(came);
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarMenus, merging_filled_cells_asks_and_a_no_merges_nothing) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).fill().select("A1:B2"));
    const std::string before = describe(look(table));
    BoxAnswers answers({BoxAnswer::No});
    choose("IDC_TABLEDIT_MERGECELL", "IDR_MERGE_ALL");
    EXPECT_EQ(answers.count(), 1);
    EXPECT_EQ(describe(look(table)), before);
}

TEST_F(ToolbarMenus, open_behind_the_buttons_of_merging_locking_and_formulas_too) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    choose("IDC_TABLEDIT_LOCKING", "IDR_LOCKING_CONTENTLOCKED", false);
    EXPECT_EQ(look(table).cellState(1, 1), KdDb::kCellStateContentLocked);
    choose("IDC_TABLEDIT_LOCKING", "IDR_LOCKING_UNLOCKED", false);
    choose("IDC_TABLEDIT_MERGECELL", "IDR_MERGE_BYROW", false);
    EXPECT_EQ(look(table).getMergeRange(1, 0), cells("A2:B2"));
}

TEST_F(ToolbarMenus, check_what_the_selected_cells_have_in_common) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).align("A1:C3", KdDb::kMiddleRight).select("A1:B2"));
    EXPECT_EQ(checked("IDC_TABLEDIT_ALIGNMENT"), "IDR_ALIGNMENT_MIDDLERIGHT ");
    EXPECT_EQ(checked("IDC_TABLEDIT_LOCKING"), "IDR_LOCKING_UNLOCKED ");
    choose("IDC_TABLEDIT_LOCKING", "IDR_LOCKING_CONTENTFORMATLOCKED");
    EXPECT_EQ(checked("IDC_TABLEDIT_LOCKING"), "IDR_LOCKING_CONTENTFORMATLOCKED ");
    CVqTableCommon::SettingLocked(1819, table);
    choose("IDC_TABLEDIT_DATAFORMAT", "IDR_FORMAT_CURRENCY");
    EXPECT_EQ(checked("IDC_TABLEDIT_DATAFORMAT"), "IDR_FORMAT_CURRENCY ");
    choose("IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_TOPLEFT");
    select(table, "A1:C3");
    EXPECT_EQ(checked("IDC_TABLEDIT_ALIGNMENT"), "");
}

TEST_F(ToolbarMenus, check_what_the_first_cell_has_while_none_is_selected_and_change_nothing) {
    const KdDbObjectId table = showOver(
        TableBuilder(2, 2).align("A1", KdDb::kBottomRight).lock("A1").align("B2", KdDb::kTopLeft).select("B2"));
    OpenObject<KdDbTable>(table, KdDb::kForRead)->clearSubSelection();
    const std::string before = describe(look(table));
    EXPECT_EQ(checked("IDC_TABLEDIT_ALIGNMENT"), "IDR_ALIGNMENT_BOTTOMRIGHT ");
    EXPECT_EQ(checked("IDC_TABLEDIT_LOCKING"), "IDR_LOCKING_CONTENTLOCKED ");
    EXPECT_EQ(checked("IDC_TABLEDIT_DATAFORMAT"), "");
    choose("IDC_TABLEDIT_ALIGNMENT", "IDR_ALIGNMENT_MIDDLELEFT");
    choose("IDC_TABLEDIT_LOCKING", "IDR_LOCKING_FORMATLOCKED");
    EXPECT_EQ(describe(look(table)), before);
}

TEST_F(ToolbarMenus, a_read_only_lock_disables_its_item) {
    showOver(TableBuilder(3, 3).lock("A1", KdDb::kCellStateContentReadOnly).select("A1"));
    std::string disabled;
    dropAndAct("IDC_TABLEDIT_LOCKING", [&](QMenu& menu) {
        for (const QAction* item : menu.actions()) {
            if (!item->isEnabled()) disabled += item->objectName().toStdString();
        }
        QTest::keyClick(&menu, Qt::Key_Escape);
    });
    EXPECT_EQ(disabled, "IDR_LOCKING_CONTENTLOCKED");
}

TEST_F(ToolbarMenus, OnCommandId_refuses_numbers_of_no_item_and_takes_all_of_them_without_a_table) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    for (const unsigned number : {0U, 1801U, 1833U, 6201U}) EXPECT_FALSE(window()->OnCommandId(number)) << number;
    showTableToolBar(table, false);
    for (const unsigned number : {0U, 1802U, 1811U, 1816U, 1832U, 1833U}) {
        EXPECT_TRUE(window()->OnCommandId(number)) << number;
    }
    EXPECT_EQ(takeInput(), L"");
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarMenus, CreatePopupMenu_knows_the_five_controls_with_an_arrow) {
    showOver(TableBuilder(3, 3).select("A1"));
    for (const char* name : {"IDC_TABLEDIT_TOPINSERT", "IDC_TABLEDIT_CELLBORDER", "IDC_NONE", ""}) {
        window()->CreatePopupMenu(name);  // would wait for the menu's end
    }
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

}  // namespace
}  // namespace kdtest
