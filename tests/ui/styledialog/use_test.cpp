// Which table styles count as in use, and what follows: the filter, the button and the menu.

#include <QLineEdit>

#include "host/rx/faults.h"
#include "kd/db/dictionary.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "tests/ui/styledialog/fixture.h"

namespace kdtest {
namespace {

class TableStyleDialogUse : public TableStyleDialogTest {
protected:
    void SetUp() override {
        StyleDialogTest::SetUp();
        for (const wchar_t* name : {L"Alpha", L"Beta", L"Zeta"}) addStyle(name);
    }
    /// Steps that ask each style whether its deletion is offered.
    static Steps offers(const std::vector<std::pair<std::wstring, bool>>& styles) {
        Steps steps;
        for (const auto& [name, offered] : styles) {
            steps.push_back(choose(kList, name));
            steps.push_back(expect(kDelete, L"enabled", offered ? L"yes" : L"no"));
        }
        steps.push_back(click(L"IDOK"));
        return steps;
    }
};

TEST_F(TableStyleDialogUse, Without_tables_the_standard_and_the_current_style_alone_are_in_use) {
    makeCurrent(L"Beta");
    run({choose(kFilter, L"#1"), expectRows({L"Beta", L"Standard"}, L"Beta"), choose(kFilter, L"#0"),
         expectRows({L"Alpha", L"Beta", L"Standard", L"Zeta"}, L"Beta"), click(L"IDOK")});
    run(offers({{L"Alpha", true}, {L"Beta", false}, {L"Standard", false}, {L"Zeta", true}}));
}

TEST_F(TableStyleDialogUse, Styles_of_tables_are_in_use) {
    addTable(L"Zeta");
    addTable(L"Zeta");
    addTable(L"Standard");
    run({choose(kFilter, L"#1"), expectRows({L"Standard", L"Zeta"}, L"Standard"), click(L"IDOK")});
    run(offers({{L"Alpha", true}, {L"Beta", true}, {L"Standard", false}, {L"Zeta", false}}));
}

TEST_F(TableStyleDialogUse, A_style_of_a_table_on_a_locked_layer_is_in_use) {
    lockOnItsLayer(addTable(L"Beta"));
    run(offers({{L"Alpha", true}, {L"Beta", false}}));
}

TEST_F(TableStyleDialogUse, Tables_of_blocks_count_and_erased_ones_do_not) {
    {
        KdDbObjectId id;
        auto table = TableBuilder(2, 2).style(style(L"Alpha")).build();
        const OpenObject<KdDbBlockTableRecord> paper(drawing().paperSpaceId(), KdDb::kForWrite);
        ASSERT_EQ(paper->appendKdDbEntity(id, table.get()), Kdad::eOk);
        table.release()->close();
    }
    OpenObject<KdDbTable>(addTable(L"Beta"), KdDb::kForWrite)->erase(true);
    run(offers({{L"Alpha", false}, {L"Beta", true}}));
}

TEST_F(TableStyleDialogUse, Tables_of_derived_classes_count) {
    class SpecialTable : public KdDbTable {};
    auto* table = new SpecialTable;
    table->setTableStyle(style(L"Alpha"));
    {
        KdDbObjectId id;
        const OpenObject<KdDbBlockTableRecord> space(drawing().modelSpaceId(), KdDb::kForWrite);
        ASSERT_EQ(space->appendKdDbEntity(id, table), Kdad::eOk);
        table->close();
    }
    run(offers({{L"Alpha", false}}));
}

TEST_F(TableStyleDialogUse, A_table_that_cannot_be_opened_is_passed_over) {
    const KdDbObjectId busy = addTable(L"Alpha");
    addTable(L"Beta");
    std::unique_ptr<OpenObject<KdDbTable>> writer;
    Steps steps = {[&] { writer = std::make_unique<OpenObject<KdDbTable>>(busy, KdDb::kForWrite); }};
    for (Step& step : offers({{L"Alpha", true}, {L"Beta", false}})) steps.push_back(std::move(step));
    run(std::move(steps));
}

TEST_F(TableStyleDialogUse, A_table_whose_style_is_something_else_ends_the_search) {
    const KdDbObjectId odd = addTable(L"Alpha");
    addTable(L"Beta");
    OpenObject<KdDbTable>(odd, KdDb::kForWrite)->setTableStyle(drawing().layerZero());
    // Beta stands behind it.
    run(offers({{L"Beta", true}}));
}

TEST_F(TableStyleDialogUse, A_table_whose_style_cannot_be_opened_is_passed_over) {
    const KdDbObjectId odd = addTable(L"Alpha");
    addTable(L"Beta");
    OpenObject<KdDbTable>(odd, KdDb::kForWrite)->setTableStyle(KdDbObjectId::kNull);
    run(offers({{L"Alpha", true}, {L"Beta", false}}));
}

TEST_F(TableStyleDialogUse, A_list_of_styles_in_use_without_the_current_one_selects_its_first_row) {
    makeCurrent(L"Zeta");
    // Its new name is not the one that the dialog knows.
    run({key(L"F2"), label(L"Omega"), choose(kFilter, L"#1"), expectRows({L"Standard"}, L"Standard"),
         choose(kFilter, L"#0"), expectRows({L"Alpha", L"Beta", L"Omega", L"Standard"}, L"Alpha"), click(L"IDOK")});
}

TEST_F(TableStyleDialogUse, A_filled_list_seeks_the_current_style_by_its_name_as_it_is_written) {
    makeCurrent(L"Beta");
    // The dialog knows the current style as "Beta", which no style is called any more.
    run({key(L"F2"), label(L"Omega"), choose(kList, L"Zeta"), key(L"F2"), label(L"BETA"), choose(kFilter, L"#1"),
         choose(kFilter, L"#0"), expectRows({L"Alpha", L"BETA", L"Omega", L"Standard"}, L"Alpha"), click(L"IDOK")});
}

TEST_F(TableStyleDialogUse, The_standard_style_is_known_in_whichever_case_its_name_is_written) {
    {
        const OpenObject<KdDbDictionary> styles(drawing().tableStyleDictionaryId(), KdDb::kForWrite);
        ASSERT_TRUE(styles->setName(L"Standard", L"STANDARD"));
    }
    makeCurrent(L"Beta");
    run({choose(kFilter, L"#1"), expectRows({L"Beta", L"STANDARD"}, L"Beta"), choose(kList, L"STANDARD"),
         expect(kDelete, L"enabled", L"no"), key(L"DELETE"), expectTop(L"IDD_TABLESTYLE_DIALOG"), key(L"F2"),
         [&] { EXPECT_EQ(list().findChild<QLineEdit*>(), nullptr); }, context(kList, L"#1"),
         expect(L"IDR_MANAGETABLE_RENAME", L"enabled", L"no"), expect(L"IDR_MANAGETABLE_DELETE", L"enabled", L"no"),
         menu(L"CANCEL"), click(L"IDOK")});
}

TEST_F(TableStyleDialogUse, The_menu_offers_rename_and_deletion_of_free_styles_alone) {
    addTable(L"Beta");
    run({context(kList, L"#0"), expect(L"IDR_MANAGETABLE_CURRENT", L"enabled", L"yes"),
         expect(L"IDR_MANAGETABLE_RENAME", L"enabled", L"yes"), expect(L"IDR_MANAGETABLE_DELETE", L"enabled", L"yes"),
         menu(L"CANCEL"), context(kList, L"#1"), expect(L"IDR_MANAGETABLE_CURRENT", L"enabled", L"yes"),
         expect(L"IDR_MANAGETABLE_RENAME", L"enabled", L"no"), expect(L"IDR_MANAGETABLE_DELETE", L"enabled", L"no"),
         menu(L"CANCEL"), click(L"IDOK")});
}

TEST_F(TableStyleDialogUse, The_menu_comes_up_on_rows_alone_is_gone_afterwards_and_the_list_keeps_the_focus) {
    const auto expectNoMenu = [] {
        for (const QWidget* widget : QApplication::allWidgets()) {
            EXPECT_NE(widget->objectName().toStdString(), "IDR_MANAGETABLE_MENU");
        }
    };
    run({context(kList, L"empty"), expectTop(L"IDD_TABLESTYLE_DIALOG"), context(kList, L"#0"),
         expectTop(L"IDR_MANAGETABLE_MENU"), menu(L"CANCEL"), expectFocus(kList), expectRows(styleNames(), L"Alpha"),
         expectNoMenu, key(L"MENU"), expectTop(L"IDR_MANAGETABLE_MENU"), key(L"ESC"), expectFocus(kList),
         expectTop(L"IDD_TABLESTYLE_DIALOG"), expectNoMenu, click(L"IDOK")});
}

TEST_F(TableStyleDialogUse, No_menu_comes_up_when_its_tree_is_missing_or_holds_too_few_items) {
    using Files = std::vector<std::pair<QString, QByteArray>>;
    const QByteArray fewItems =
        "<ui version=\"4.0\"><widget class=\"QMenu\" name=\"IDR_MANAGETABLE_MENU\"><action "
        "name=\"IDR_MANAGETABLE_CURRENT\"/><action name=\"IDR_MANAGETABLE_DELETE\"/><addaction "
        "name=\"IDR_MANAGETABLE_CURRENT\"/><addaction name=\"IDR_MANAGETABLE_DELETE\"/></widget></ui>";
    std::optional<TestResources> odd;
    run({choose(kList, L"Alpha"), [&] { resources().unload(); }, context(kList, L"#0"),
         expectTop(L"IDD_TABLESTYLE_DIALOG"),
         [&] {
             odd.emplace(Files{{QStringLiteral("IDR_MANAGETABLE_MENU.ui"), fewItems}});
         },
         context(kList, L"#0"), expectTop(L"IDD_TABLESTYLE_DIALOG"),
         [&] {
             odd.reset();
             resources().load();
         },
         context(kList, L"#0"), expectTop(L"IDR_MANAGETABLE_MENU"), menu(L"CANCEL"), click(L"IDOK")});
}

}  // namespace
}  // namespace kdtest
