// The toolbar's drop-down menus: their items and places, what they show of a selection, and what a choice does, in
// both languages.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <climits>
#include <map>
#include <set>

#include "host/ui/automation/automation.h"
#include "kd/db/table.h"
#include "module/core/tablecommon.h"
#include "module/edit/tableditmenu.h"
#include "tests/support/tablebuilder.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {
namespace {

using Common = CVqTableCommon;

const QString kFile = QStringLiteral("TvxTableRes/TvxTableRes");

struct Item {
    const char* menu;
    int position;
    const char* name;
    unsigned command;
};

/// Every item of the five menus.
const Item kItems[] = {
    {"IDR_ALIGNMENT_MENU", 0, "IDR_ALIGNMENT_TOPLEFT", 1802},
    {"IDR_ALIGNMENT_MENU", 1, "IDR_ALIGNMENT_TOPCENTER", 1803},
    {"IDR_ALIGNMENT_MENU", 2, "IDR_ALIGNMENT_TOPRIGHT", 1804},
    {"IDR_ALIGNMENT_MENU", 3, "IDR_ALIGNMENT_MIDDLELEFT", 1805},
    {"IDR_ALIGNMENT_MENU", 4, "IDR_ALIGNMENT_MIDDLECENTER", 1806},
    {"IDR_ALIGNMENT_MENU", 5, "IDR_ALIGNMENT_MIDDLERIGHT", 1807},
    {"IDR_ALIGNMENT_MENU", 6, "IDR_ALIGNMENT_BOTTOMLEFT", 1808},
    {"IDR_ALIGNMENT_MENU", 7, "IDR_ALIGNMENT_BOTTOMCENTER", 1809},
    {"IDR_ALIGNMENT_MENU", 8, "IDR_ALIGNMENT_BOTTOMRIGHT", 1810},
    {"IDR_FORMULA_MENU", 0, "IDR_FORMULA_SUM", 1811},
    {"IDR_FORMULA_MENU", 1, "IDR_FORMULA_AVERAGE", 1812},
    {"IDR_FORMULA_MENU", 2, "IDR_FORMULA_COUNT", 1813},
    {"IDR_FORMULA_MENU", 3, "IDR_FORMULA_CELL", 1814},
    {"IDR_FORMULA_MENU", 4, "IDR_FORMULA_EQUATION", 1815},
    {"IDR_MERGE_MENU", 0, "IDR_MERGE_ALL", 1816},
    {"IDR_MERGE_MENU", 1, "IDR_MERGE_BYROW", 1817},
    {"IDR_MERGE_MENU", 2, "IDR_MERGE_BYCOLUMN", 1818},
    {"IDR_LOCKING_MENU", 0, "IDR_LOCKING_UNLOCKED", 1819},
    {"IDR_LOCKING_MENU", 1, "IDR_LOCKING_CONTENTLOCKED", 1820},
    {"IDR_LOCKING_MENU", 2, "IDR_LOCKING_FORMATLOCKED", 1821},
    {"IDR_LOCKING_MENU", 3, "IDR_LOCKING_CONTENTFORMATLOCKED", 1822},
    {"IDR_DATAFORMAT_MENU", 0, "IDR_FORMAT_ANGLE", 1823},
    {"IDR_DATAFORMAT_MENU", 1, "IDR_FORMAT_CURRENCY", 1824},
    {"IDR_DATAFORMAT_MENU", 2, "IDR_FORMAT_DATE", 1825},
    {"IDR_DATAFORMAT_MENU", 3, "IDR_FORMAT_DECIMAL", 1826},
    {"IDR_DATAFORMAT_MENU", 4, "IDR_FORMAT_GENERAL", 1827},
    {"IDR_DATAFORMAT_MENU", 5, "IDR_FORMAT_PERCENTAGE", 1828},
    {"IDR_DATAFORMAT_MENU", 6, "IDR_FORMAT_POINT", 1829},
    {"IDR_DATAFORMAT_MENU", 7, "IDR_FORMAT_TEXT", 1830},
    {"IDR_DATAFORMAT_MENU", 8, "IDR_FORMAT_WHOLE", 1831},
    // Behind a separator.
    {"IDR_DATAFORMAT_MENU", 10, "IDR_FORMAT_CUSTOMFORMAT", 1832},
};

const char* const kMenus[] = {"IDR_ALIGNMENT_MENU", "IDR_DATAFORMAT_MENU", "IDR_FORMULA_MENU", "IDR_LOCKING_MENU",
                              "IDR_MERGE_MENU"};

class TableditMenus : public ModuleResources {
protected:
    std::unique_ptr<VqTableditMenu> load(const char* name) {
        auto menu = std::make_unique<VqTableditMenu>();
        EXPECT_TRUE(menu->LoadMenuItem(kFile, QString::fromLatin1(name),
                                       [this](unsigned command) { commands.push_back(command); }));
        return menu;
    }

    /// Shows the menu and acts on it; one that stays open fails the test.
    static void show(VqTableditMenu& menu, const std::function<void()>& act) {
        QTimer::singleShot(0, &menu, [&] {
            EXPECT_EQ(QApplication::activePopupWidget(), &menu);
            act();
            if (!menu.isVisible()) return;
            ADD_FAILURE() << "the menu stays open";
            menu.close();
        });
        menu.ShowMenuItem();
    }
    static void choose(VqTableditMenu& menu, const std::string& item) {
        show(menu, [&] { EXPECT_EQ(kdhost::automation::menu(std::wstring(item.begin(), item.end())), L""); });
    }

    /// Positions of checked items, and of disabled ones.
    static std::set<int> checked(const QMenu& menu) {
        return positions(menu, [](const QAction& item) { return item.isChecked(); });
    }
    static std::set<int> disabled(const QMenu& menu) {
        return positions(menu, [](const QAction& item) { return !item.isEnabled(); });
    }

    std::vector<unsigned> commands;

private:
    template <class Wanted>
    static std::set<int> positions(const QMenu& menu, Wanted wanted) {
        std::set<int> found;
        for (int position = 0; position < menu.actions().size(); ++position) {
            if (wanted(*menu.actions()[position])) found.insert(position);
        }
        return found;
    }
};

TEST_F(TableditMenus, Have_their_31_items_in_their_places) {
    std::map<std::string, int> lengths;
    for (const Item& item : kItems) {
        const auto menu = load(item.menu);
        ASSERT_GT(menu->actions().size(), item.position) << item.name;
        EXPECT_EQ(menu->actions()[item.position]->objectName(), QString::fromLatin1(item.name));
        lengths[item.menu] = std::max(lengths[item.menu], item.position + 1);
    }
    EXPECT_EQ(std::size(kItems), 31U);
    for (const auto& [name, length] : lengths) EXPECT_EQ(load(name.c_str())->actions().size(), length) << name;
    EXPECT_TRUE(load("IDR_DATAFORMAT_MENU")->actions()[9]->isSeparator());
}

TEST_F(TableditMenus, Hand_on_the_command_of_each_item_that_is_chosen_and_check_it) {
    for (const Item& item : kItems) {
        SCOPED_TRACE(item.name);
        const auto menu = load(item.menu);
        EXPECT_TRUE(checked(*menu).empty());
        choose(*menu, item.name);
        EXPECT_EQ(commands, std::vector{item.command});
        EXPECT_EQ(checked(*menu), std::set{item.position});
        commands.clear();
    }
}

TEST_F(TableditMenus, Move_the_check_mark_to_each_choice_also_to_the_one_chosen_before) {
    const auto menu = load("IDR_MERGE_MENU");
    for (const char* item : {"IDR_MERGE_ALL", "IDR_MERGE_BYCOLUMN", "IDR_MERGE_BYCOLUMN", "IDR_MERGE_BYROW"}) {
        choose(*menu, item);
    }
    EXPECT_EQ(commands, (std::vector{1816U, 1818U, 1818U, 1817U}));
    EXPECT_EQ(checked(*menu), std::set{1});
}

TEST_F(TableditMenus, Open_at_the_cursor_answer_to_mnemonics_and_close_by_Escape) {
    const auto menu = load("IDR_LOCKING_MENU");
    QCursor::setPos(40, 30);
    show(*menu, [&] {
        EXPECT_EQ(menu->pos(), QPoint(40, 30));
        QTest::keyClick(menu.get(), Qt::Key_Escape);
    });
    EXPECT_TRUE(commands.empty());
    EXPECT_TRUE(checked(*menu).empty());
    show(*menu, [&] { QTest::keyClick(menu.get(), Qt::Key_F); });
    EXPECT_EQ(commands, std::vector{1821U});
}

TEST_F(TableditMenus, Without_a_sender_a_click_does_nothing) {
    const auto menu = load("IDR_LOCKING_MENU");
    menu->OnMenuClicked();
    EXPECT_TRUE(commands.empty());
    EXPECT_TRUE(checked(*menu).empty());
}

TEST_F(TableditMenus, An_item_that_stands_in_no_row_is_checked_and_does_nothing_more) {
    const QByteArray tree =
        "<ui version=\"4.0\"><class>IDR_ODD_MENU</class><widget class=\"QMenu\" name=\"IDR_ODD_MENU\">"
        "<action name=\"IDR_ODD_ITEM\"><property name=\"text\"><string>Odd</string></property></action>"
        "<addaction name=\"IDR_ODD_ITEM\"/></widget></ui>";
    const TestResources resources({{QStringLiteral("IDR_ODD_MENU.ui"), tree}});
    const auto menu = load("IDR_ODD_MENU");
    choose(*menu, "IDR_ODD_ITEM");
    EXPECT_TRUE(commands.empty());
    EXPECT_EQ(checked(*menu), std::set{0});
}

TEST_F(TableditMenus, A_tree_that_is_missing_leaves_the_menu_as_it_is) {
    const auto menu = load("IDR_MERGE_MENU");
    EXPECT_FALSE(menu->LoadMenuItem(kFile, QStringLiteral("IDR_NONE_MENU"), {}));
    EXPECT_EQ(menu->actions().size(), 3);
    choose(*menu, "IDR_MERGE_ALL");
    EXPECT_EQ(commands, std::vector{1816U});
}

TEST_F(TableditMenus, Loading_another_tree_takes_the_place_of_the_first) {
    const auto menu = load("IDR_MERGE_MENU");
    menu->CheckMenuItem(1, 8);
    std::vector<unsigned> others;
    EXPECT_TRUE(menu->LoadMenuItem(kFile, QStringLiteral("IDR_LOCKING_MENU"),
                                   [&](unsigned command) { others.push_back(command); }));
    EXPECT_EQ(menu->actions().size(), 4);
    choose(*menu, "IDR_LOCKING_UNLOCKED");
    EXPECT_EQ(others, std::vector{1819U});
    EXPECT_TRUE(commands.empty());
}

TEST_F(TableditMenus, CheckMenuItem_checks_one_item_at_most_and_passes_over_places_without_one) {
    const auto menu = load("IDR_DATAFORMAT_MENU");
    menu->CheckMenuItem(2, 8);
    menu->CheckMenuItem(5, 8);
    EXPECT_EQ(checked(*menu), std::set{5});
    for (const int position : {-1, -1823, 9, 11, INT_MAX, INT_MIN}) {
        menu->CheckMenuItem(position, 8);
        menu->CheckMenuItem(position, 0);
        EXPECT_EQ(checked(*menu), std::set{5}) << position;
    }
    menu->CheckMenuItem(3, 0);
    EXPECT_EQ(checked(*menu), std::set{5});
    menu->CheckMenuItem(5, 0);
    EXPECT_TRUE(checked(*menu).empty());
}

TEST_F(TableditMenus, EnableMenuItem_disables_by_either_of_the_two_low_bits) {
    const auto menu = load("IDR_LOCKING_MENU");
    for (const unsigned flags : {1U, 2U, 3U, 1025U, 1027U}) {
        menu->EnableMenuItem(1, flags);
        EXPECT_EQ(disabled(*menu), std::set{1}) << flags;
        menu->EnableMenuItem(1, 0);
        EXPECT_TRUE(disabled(*menu).empty());
    }
    menu->EnableMenuItem(1, 1024);
    for (const int position : {-1, 4, INT_MAX}) menu->EnableMenuItem(position, 3);
    EXPECT_TRUE(disabled(*menu).empty());
}

TEST_F(TableditMenus, A_disabled_item_cannot_be_chosen) {
    const auto menu = load("IDR_LOCKING_MENU");
    menu->EnableMenuItem(1, 3);
    show(*menu, [&] {
        EXPECT_NE(kdhost::automation::menu(L"IDR_LOCKING_CONTENTLOCKED"), L"");
        EXPECT_EQ(kdhost::automation::menu(L"CANCEL"), L"");
    });
    EXPECT_TRUE(commands.empty());
}

TEST_F(TableditMenus, SetFormatMenuState_checks_the_format_that_all_cells_have) {
    const auto menu = load("IDR_DATAFORMAT_MENU");
    for (unsigned command = 1823; command <= 1831; ++command) {
        auto type = KdValue::kUnknown;
        auto unit = KdValue::kUnitless;
        ASSERT_TRUE(Common::GetDataFormat(static_cast<int>(command), type, unit));
        const auto table = TableBuilder(2, 2).select("A1:B2").build();
        for (int row = 0; row < 2; ++row) table->setDataType(row, -1, type, unit);
        EXPECT_TRUE(Common::SetFormatMenuState(table.get(), menu.get()));
        EXPECT_EQ(checked(*menu), std::set{static_cast<int>(command) - 1823});
    }
}

TEST_F(TableditMenus, SetFormatMenuState_checks_nothing_for_mixed_cells_other_formats_and_no_selection) {
    const auto menu = load("IDR_DATAFORMAT_MENU");
    const auto table = TableBuilder(1, 2).select("A1:B1").build();
    const auto expectNothing = [&](const KdDbTable* asked) {
        menu->CheckMenuItem(4, 8);  // as an earlier selection left it
        EXPECT_TRUE(Common::SetFormatMenuState(asked, menu.get()));
        EXPECT_TRUE(checked(*menu).empty());
    };
    table->setDataType(0, 0, KdValue::kString, KdValue::kUnitless);
    table->setDataType(0, 1, KdValue::kDate, KdValue::kUnitless);
    expectNothing(table.get());
    table->setDataType(0, -1, KdValue::kString, KdValue::kAngle);
    expectNothing(table.get());
    table->clearSubSelection();
    expectNothing(table.get());
    expectNothing(nullptr);
}

TEST_F(TableditMenus, SetAlignmentMenuState_checks_the_alignment_that_all_cells_have) {
    const auto menu = load("IDR_ALIGNMENT_MENU");
    for (int alignment = 1; alignment <= 9; ++alignment) {
        const auto table =
            TableBuilder(2, 2).align("A1:B2", static_cast<KdDb::CellAlignment>(alignment)).select("A1:B2").build();
        EXPECT_TRUE(Common::SetAlignmentMenuState(table.get(), menu.get()));
        EXPECT_EQ(checked(*menu), std::set{alignment - 1});
    }
    const auto mixed =
        TableBuilder(1, 2).align("A1", KdDb::kTopLeft).align("B1", KdDb::kTopRight).select("A1:B1").build();
    for (const KdDbTable* asked :
         {static_cast<const KdDbTable*>(mixed.get()), static_cast<const KdDbTable*>(nullptr)}) {
        menu->CheckMenuItem(7, 8);
        EXPECT_TRUE(Common::SetAlignmentMenuState(asked, menu.get()));
        EXPECT_TRUE(checked(*menu).empty());
    }
}

TEST_F(TableditMenus, SetLockingMenuState_checks_the_kind_of_lock_and_disables_one_read_only_item) {
    const auto menu = load("IDR_LOCKING_MENU");
    for (int state = 0; state < 64; ++state) {
        const auto table =
            TableBuilder(1, 2).lock("A1:B1", static_cast<KdDb::CellState>(state)).select("A1:B1").build();
        EXPECT_TRUE(Common::SetLockingMenuState(table.get(), menu.get()));
        const bool content = (state & 3) != 0;
        const bool format = (state & 48) != 0;
        EXPECT_EQ(checked(*menu), std::set{(content ? 1 : 0) + (format ? 2 : 0)}) << state;
        std::set<int> readOnly;
        if ((state & 2) != 0) {
            readOnly = {1};
        } else if ((state & 32) != 0) {
            readOnly = {2};
        }
        EXPECT_EQ(disabled(*menu), readOnly) << state;
    }
}

TEST_F(TableditMenus, SetLockingMenuState_checks_nothing_for_mixed_cells) {
    const auto menu = load("IDR_LOCKING_MENU");
    const auto table = TableBuilder(1, 2).lock("B1").select("A1:B1").build();
    menu->CheckMenuItem(2, 8);
    menu->EnableMenuItem(1, 3);
    EXPECT_TRUE(Common::SetLockingMenuState(table.get(), menu.get()));
    EXPECT_TRUE(checked(*menu).empty());
    EXPECT_TRUE(disabled(*menu).empty());
}

TEST_F(TableditMenus, States_of_a_menu_of_another_class_or_of_none_are_refused) {
    const auto table = TableBuilder(1, 1).select("A1").build();
    KdUiMenu other;
    QAction* item = other.addAction(QStringLiteral("Item"));
    item->setCheckable(true);
    using SetState = bool (*)(const KdDbTable*, KdUiMenu*);
    for (const SetState set :
         {Common::SetFormatMenuState, Common::SetAlignmentMenuState, Common::SetLockingMenuState}) {
        EXPECT_FALSE(set(table.get(), &other));
        EXPECT_FALSE(set(table.get(), nullptr));
        EXPECT_FALSE(item->isChecked());
    }
}

class MenusInALanguage : public TableditMenus, public ::testing::WithParamInterface<kdhost::Language> {
protected:
    void SetUp() override {
        ModuleResources::SetUp();
        kdhost::setLanguage(GetParam());
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, MenusInALanguage,
                         ::testing::Values(kdhost::Language::English, kdhost::Language::Chinese), [](const auto& info) {
                             return info.param == kdhost::Language::English ? "English" : "Chinese";
                         });

TEST_P(MenusInALanguage, Have_texts_in_it_each_with_a_mnemonic_of_its_own) {
    for (const char* name : kMenus) {
        const auto menu = load(name);
        std::set<QChar> mnemonics;
        for (const QAction* item : menu->actions()) {
            if (item->isSeparator()) continue;
            const QString text = item->text();
            const int mark = text.indexOf(QLatin1Char('&'));
            ASSERT_GE(mark, 0) << item->objectName().toStdString();
            EXPECT_TRUE(mnemonics.insert(text.at(mark + 1).toUpper()).second) << text.toStdString();
            const bool chinese = std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x2E80; });
            EXPECT_EQ(chinese, GetParam() == kdhost::Language::Chinese) << text.toStdString();
        }
    }
}

TEST_P(MenusInALanguage, Show_every_text_whole) {
    const char* language = GetParam() == kdhost::Language::English ? "en" : "zh";
    for (const char* name : kMenus) {
        const auto menu = load(name);
        menu->CheckMenuItem(1, 8);
        menu->EnableMenuItem(2, 3);
        show(*menu, [&] {
            const QList<QAction*> items = menu->actions();
            for (const QAction* item : items) {
                QString text = item->text();
                text.remove(QLatin1Char('&'));
                EXPECT_GT(menu->width(), menu->fontMetrics().horizontalAdvance(text)) << text.toStdString();
            }
            EXPECT_TRUE(menu->rect().contains(menu->actionGeometry(items.last()))) << name;
            keepPicture(*menu, QStringLiteral("%1_%2").arg(QLatin1String(name), QLatin1String(language)));
            QTest::keyClick(menu.get(), Qt::Key_Escape);
        });
    }
}

}  // namespace
}  // namespace kdtest
