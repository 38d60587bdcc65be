// The menus of EDITTABLECELL: how one leads to another, how each ends, and what their words do.

#include <gtest/gtest.h>

#include "kd/ed/resbuf.h"
#include "tests/module/edit/commandrun.h"
#include "tests/module/edit/typist.h"
#include "tests/support/modalacts.h"

namespace kdtest {
namespace {

using Gui = EditTableCellGUI;

struct NamedMenu {
    const char* name;
    int (Gui::*menu)(KdDbObjectId);
    unsigned prompt;
};

constexpr NamedMenu operation{"Operation", &Gui::editCell_Operation, 6218};
constexpr NamedMenu merge{"Merge", &Gui::editCell_Merge, 6212};
constexpr NamedMenu formula{"Formula", &Gui::editCell_Formula, 6214};
constexpr NamedMenu content{"Content", &Gui::editCell_Content, 6220};
constexpr NamedMenu format{"Format", &Gui::editCell_Format, 6222};
constexpr NamedMenu alignment{"Alignment", &Gui::editCell_Alignment, 6216};
constexpr NamedMenu style{"Style", &Gui::editCell_Style, 6224};
constexpr unsigned mainPrompt = 6210;

class Menus : public CommandRun {
protected:
    using CommandRun::runMenu;
    int runMenu(const NamedMenu& menu, KdDbObjectId table, std::vector<Step> steps) {
        return CommandRun::runMenu(menu.menu, table, std::move(steps));
    }
    /// In the one-action mode.
    int runOneAction(const NamedMenu& menu, KdDbObjectId table, std::vector<Step> steps) {
        EditTableCellGUI gui;
        EXPECT_EQ(gui.editCell_ExecuteOneAction(table), RTNORM);
        return CommandRun::runMenu(gui, menu.menu, table, std::move(steps));
    }

    /// A filled table of 5 by 4, B2 to C3 selected.
    KdDbObjectId addSample() {
        const KdDbObjectId id = add(TableBuilder(5, 4).fill().build());
        change(id, [](KdDbTable& table) { table.setSubSelection(cells("B2:C3")); });
        return id;
    }
    /// The same without content, so that merging asks nothing.
    KdDbObjectId addEmpty() {
        const KdDbObjectId id = add(TableBuilder(5, 4).build());
        change(id, [](KdDbTable& table) { table.setSubSelection(cells("B2:C3")); });
        return id;
    }

    void expectPrompts(std::initializer_list<unsigned> numbers) {
        std::vector<std::wstring> expected;
        for (const unsigned number : numbers) expected.push_back(text(number));
        EXPECT_EQ(prompts, expected);
    }
};

class EachMenu : public Menus, public ::testing::WithParamInterface<NamedMenu> {
protected:
    const NamedMenu& menu() const { return GetParam(); }
};

TEST_P(EachMenu, ends_as_its_parent_goes_on_by_BAck_Esc_and_Enter) {
    const KdDbObjectId id = addSample();
    for (const auto& reply : {Step(L"BAck"), Step(L"ba"), Step(L"_back"), Step(esc), Step(L"")}) {
        EXPECT_EQ(runMenu(menu(), id, {reply}), RTNORM);
        expectPrompts({menu().prompt});
    }
}

TEST_P(EachMenu, ends_the_command_by_Quit) {
    const KdDbObjectId id = addSample();
    for (const wchar_t* reply : {L"Quit", L"q", L"_QUIT"}) EXPECT_EQ(runMenu(menu(), id, {reply}), RTCAN);
}

TEST_P(EachMenu, asks_again_after_a_reply_that_matches_nothing) {
    const KdDbObjectId id = addSample();
    const std::string before = describeTable(id);
    EXPECT_EQ(runMenu(menu(), id, {L"nonsense", L"_nonsense", L"Datalink", L"Operation", L"7", L"BAck"}), RTNORM);
    EXPECT_EQ(prompts, std::vector<std::wstring>(6, text(menu().prompt)));
    EXPECT_EQ(describeTable(id), before);
    EXPECT_TRUE(host.messages().empty());
}

TEST_P(EachMenu, goes_back_in_the_one_action_mode_by_BAck_and_Esc) {
    const KdDbObjectId id = addSample();
    EXPECT_EQ(runOneAction(menu(), id, {L"BAck"}), RTNORM);
    EXPECT_EQ(runOneAction(menu(), id, {esc}), RTNORM);
    EXPECT_EQ(runOneAction(menu(), id, {L""}), RTNORM);
    EXPECT_EQ(runOneAction(menu(), id, {L"Quit"}), RTCAN);
}

TEST_P(EachMenu, ends_the_command_after_one_reply_that_matches_nothing_except_the_merge_menu) {
    const KdDbObjectId id = addSample();
    if (menu().menu == &Gui::editCell_Merge) {
        EXPECT_EQ(runOneAction(menu(), id, {L"nonsense", L"nonsense", L"BAck"}), RTNORM);
    } else {
        EXPECT_EQ(runOneAction(menu(), id, {L"nonsense"}), RTCAN);
        expectPrompts({menu().prompt});
    }
}

INSTANTIATE_TEST_SUITE_P(Menus, EachMenu,
                         ::testing::Values(operation, merge, formula, content, format, alignment, style),
                         [](const auto& info) { return info.param.name; });

TEST_F(Menus, Datalink_does_nothing) {
    EditTableCellGUI gui;
    const KdDbObjectId id = addSample();
    EXPECT_EQ(runMenu(gui, &Gui::editCell_Datalink, id, {}), RTNORM);
    EXPECT_TRUE(prompts.empty());
}

// The main menu.

TEST_F(Menus, The_main_menu_opens_its_four_menus_and_goes_on_after_each) {
    addSample();
    runCommandOn(L"B2", {L"Operation", L"BAck", L"c", L"ba", L"_FORMAT", L"_BAck", L"style", esc, L"Quit"});
    prompts.erase(prompts.begin(), prompts.begin() + 2);
    expectPrompts({mainPrompt, operation.prompt, mainPrompt, content.prompt, mainPrompt, format.prompt, mainPrompt,
                   style.prompt, mainPrompt});
}

TEST_F(Menus, The_main_menu_asks_again_after_Datalink_BAck_and_whatever_else) {
    const KdDbObjectId id = addSample();
    const std::string before = describeTable(id);
    runCommandOn(L"B2", {L"Datalink", L"BAck", L"nonsense", L"ExecuteOneAction", L"Merge", L"TL", esc});
    EXPECT_EQ(prompts.size(), 9U);
    EXPECT_EQ(prompts.back(), text(mainPrompt));
    EXPECT_EQ(describeTable(id), before);
}

TEST_F(Menus, Quit_in_the_deepest_menus_ends_the_command) {
    addSample();
    runCommandOn(L"B2", {L"Operation", L"Merge", L"Quit"});
    runCommandOn(L"B2", {L"Operation", L"insertFOrmula", L"Quit"});
    runCommandOn(L"B2", {L"Format", L"ALignment", L"Quit"});
}

TEST_F(Menus, Esc_climbs_one_level) {
    addSample();
    runCommandOn(L"B2", {L"Operation", L"Merge", esc, L"Formula", esc, esc, L"Format", L"ALignment", esc, esc, esc});
    prompts.erase(prompts.begin(), prompts.begin() + 2);
    expectPrompts({mainPrompt, operation.prompt, merge.prompt, operation.prompt, formula.prompt, operation.prompt,
                   mainPrompt, format.prompt, alignment.prompt, format.prompt, mainPrompt});
}

// The one-action mode.

TEST_F(Menus, After_ExecuteOneAction_Operation_Merge_mergeAll_the_user_is_at_the_merge_prompt_and_BAck_ends_the_run) {
    const KdDbObjectId id = addEmpty();
    runCommandOn(L"B2:C3", {L"_ExecuteOneAction", L"Operation", L"Merge", L"mergeAll",
                            Step([&] { EXPECT_EQ(prompts.back(), text(merge.prompt)); }), L"BAck"});
    change(id, [](KdDbTable& table) { EXPECT_EQ(table.getMergeRange(1, 1), cells("B2:C3")); });
}

TEST_F(Menus, In_the_one_action_mode_the_operation_menu_ends_when_a_menu_below_it_went_back) {
    const KdDbObjectId id = addSample();
    EXPECT_EQ(runOneAction(operation, id, {L"Merge", L"BAck"}), RTCAN);
    EXPECT_EQ(runOneAction(operation, id, {L"Merge", esc}), RTCAN);
    EXPECT_EQ(runOneAction(operation, id, {L"insertFOrmula", L"BAck"}), RTCAN);
    EXPECT_EQ(runOneAction(operation, id, {L"insertFOrmula", L"Sum", esc}), RTCAN);
    EXPECT_EQ(runOneAction(format, id, {L"ALignment", L"BAck"}), RTCAN);
    EXPECT_EQ(runOneAction(format, id, {L"ALignment", L"TL"}), RTCAN);
}

TEST_F(Menus, In_the_one_action_mode_going_back_to_the_main_menu_goes_on) {
    addSample();
    runCommandOn(L"B2", {L"ExecuteOneAction", L"Operation", L"BAck", L"Content", esc, L"Content", L"Lock"});
}

TEST_F(Menus, In_the_one_action_mode_a_refused_action_ends_the_run_too) {
    const KdDbObjectId id = addSample();
    const std::string before = describeTable(id);
    runCommandOn(L"B", {L"ExecuteOneAction", L"Operation", L"deleteROw"});
    EXPECT_EQ(describeTable(id), before);
}

TEST_F(Menus, In_the_one_action_mode_one_line_is_read_before_the_run_ends) {
    const KdDbObjectId id = addSample();
    EXPECT_EQ(runOneAction(format, id, {L"BGcolor", L"7"}), RTCAN);
    EXPECT_EQ(runOneAction(format, id, {L"BGcolor", esc}), RTCAN);
    EXPECT_EQ(runOneAction(style, id, {L"editcellStyle", L"_TITLE"}), RTCAN);
}

TEST_F(Menus, The_mode_is_not_kept_for_the_next_run) {
    addSample();
    runCommandOn(L"B2", {L"ExecuteOneAction", L"Content", L"Lock"});
    runCommandOn(L"B2", {L"Content", L"Unlock", L"Quit"});
}

// What the words do: the same as the operation called on a table that is the same.

struct Word {
    const NamedMenu* menu;
    std::vector<Step> replies;
    std::function<void(KdDbObjectId)> operation;
};

template <int (*function)(KdDbObjectId)>
void call(KdDbObjectId id) {
    function(id);
}

std::function<void(KdDbObjectId)> lock(unsigned command) {
    return [=](KdDbObjectId id) { CVqTableCommon::SettingLocked(command, id); };
}

std::function<void(KdDbObjectId)> align(KdDb::CellAlignment value) {
    return [=](KdDbObjectId id) { CVqTableCommon::SetSelectionAlignment(id, value); };
}

void makeTitle(KdDbObjectId id) {
    CStdStr<wchar_t> name(L"Title");
    CVqTableCommon::SetCellStyleByName(id, name);
}

const Word words[] = {
    {&operation, {L"insertABove"}, call<CVqTableCommon::InsertRowByAbove>},
    {&operation, {L"BE"}, call<CVqTableCommon::InsertRowByBelow>},
    {&operation, {L"DELETEROW"}, call<CVqTableCommon::DeleteRows>},
    {&operation, {L"_left"}, call<CVqTableCommon::InsertColumnByLeft>},
    {&operation, {L"right"}, call<CVqTableCommon::InsertColumnByRight>},
    {&operation, {L"_COlumn"}, call<CVqTableCommon::DeleteColumns>},
    {&operation, {L"Merge", L"mergeAll", L"BAck"}, call<CVqTableCommon::MergeAll>},
    {&merge, {L"a"}, call<CVqTableCommon::MergeAll>},
    {&merge, {L"_Horizontal"}, call<CVqTableCommon::MergeByRow>},
    {&merge, {L"mergev"}, call<CVqTableCommon::MergeByColumn>},
    {&content, {L"Lock"}, lock(1820)},
    {&format, {L"Lock"}, lock(1821)},
    {&format, {L"ALignment", L"TL", L"BAck"}, align(KdDb::kTopLeft)},
    {&alignment, {L"TL"}, align(KdDb::kTopLeft)},
    {&alignment, {L"tc"}, align(KdDb::kTopCenter)},
    {&alignment, {L"TR"}, align(KdDb::kTopRight)},
    {&alignment, {L"_ML"}, align(KdDb::kMiddleLeft)},
    {&alignment, {L"MC"}, align(KdDb::kMiddleCenter)},
    {&alignment, {L"MR"}, align(KdDb::kMiddleRight)},
    {&alignment, {L"BL"}, align(KdDb::kBottomLeft)},
    {&alignment, {L"BC"}, align(KdDb::kBottomCenter)},
    {&alignment, {L"br"}, align(KdDb::kBottomRight)},
    {&style, {L"editcellStyle", L"Title"}, makeTitle},
};

TEST_F(Menus, Each_word_does_what_its_operation_does) {
    for (const Word& word : words) {
        SCOPED_TRACE(QString::fromStdWString(word.replies.back().typed).toStdString() + word.menu->name);
        const KdDbObjectId byWord = addEmpty();
        const KdDbObjectId byOperation = addEmpty();
        const std::string before = describeTable(byWord);
        const KdCellRange selectedBefore = selection(byWord);
        word.operation(byOperation);
        std::vector<Step> replies = word.replies;
        replies.push_back(L"BAck");
        EXPECT_EQ(runMenu(*word.menu, byWord, replies), RTNORM);
        EXPECT_EQ(describeTable(byWord), describeTable(byOperation));
        EXPECT_EQ(selection(byWord), selection(byOperation));
        EXPECT_NE(describeTable(byWord), before);
        EXPECT_NE(selectedBefore, (KdCellRange{}));
    }
}

TEST_F(Menus, Unlock_unlocks_content_and_format_in_both_menus) {
    for (const NamedMenu* menu : {&content, &format}) {
        const KdDbObjectId id = addEmpty();
        const std::string before = describeTable(id);
        change(id, [](KdDbTable& table) { setStates(table, {1, 1, 2, 2}, 17); });
        runMenu(*menu, id, {L"Unlock", L"BAck"});
        EXPECT_EQ(describeTable(id), before);
    }
}

TEST_F(Menus, Unmerge_takes_the_merge_apart) {
    const KdDbObjectId id = addEmpty();
    const std::string before = describeTable(id);
    runMenu(operation, id, {L"Merge", L"All", L"ba", L"Unmerge", L"BAck"});
    EXPECT_EQ(describeTable(id), before);
}

struct FormulaWord {
    const wchar_t* word;
    std::vector<Step> picks;
    const wchar_t* formula;
};

TEST_F(Menus, Each_formula_word_opens_the_cell_editor_on_its_formula) {
    const FormulaWord formulas[] = {
        {L"_Sum", {L"1,-1", L"25,-15"}, L"=Sum(A1:B2)"},
        {L"average", {L"1,-1", L"25,-15"}, L"=Average(A1:B2)"},
        {L"CO", {L"1,-1", L"25,-15"}, L"=Count(A1:B2)"},
        {L"_Cell", {L"25,-15"}, L"=B2"},
        {L"Equation", {}, L"="},
    };
    const KdDbObjectId id = addSample();
    for (const FormulaWord& formula : formulas) {
        Typist typist;
        std::vector<Step> steps = {L"_ExecuteOneAction", L"_Op", L"_Formula", formula.word};
        steps.insert(steps.end(), formula.picks.begin(), formula.picks.end());
        runCommandOn(L"D5", steps);
        ASSERT_EQ(typist.opened.size(), 1U) << id.asInteger();
        EXPECT_EQ(typist.opened[0].contents, formula.formula);
        // Esc has shown the toolbar over the cell: without it the next run asks for a table.
        CVqTableCommon::ShowTableToolbar(id, false);
    }
}

TEST_F(Menus, Words_for_a_list_that_names_them_are_understood) {
    const KdDbObjectId id = addSample();
    const std::string before = describeTable(id);
    // Behind the survey and the gate the third open is the operation's own.
    kdhost::faults().failOpenNumber = 3;
    runMenu(operation, id, {L"insertBLock", L"BAck"});
    EXPECT_EQ(kdhost::faults().failOpenNumber, 0);
    runMenu(operation, id, {L"insertFIeld", L"BAck"});
    runMenu(content, id, {L"Datatype", L"Manage", L"BAck"});
    EXPECT_EQ(describeTable(id), before);
}

TEST_F(Menus, Edittablestyle_Newtablestyle_and_the_border_ask_no_line) {
    // None of the tables can be opened, so that no dialog comes up.
    EXPECT_EQ(runMenu(style, KdDbObjectId::kNull, {L"Edittablestyle", L"Newtablestyle", L"BAck"}), RTNORM);
    EXPECT_EQ(runMenu(operation, KdDbObjectId::kNull, {L"BOrder", L"BAck"}), RTNORM);
}

TEST_F(Menus, Edittablestyle_manages_the_cell_styles_and_Newtablestyle_makes_one) {
    const KdDbObjectId id = addSample();
    for (const auto& [word, control] : {std::pair(L"Edittablestyle", "IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST"),
                                        {L"Newtablestyle", "IDC_CREATECELLSTYLE_NEWNAME_EDIT"}}) {
        ModalActs dialogs;
        dialogs.next([control = control](QWidget& dialog) {
            EXPECT_NE(dialog.findChild<QWidget*>(QLatin1String(control)), nullptr) << control;
            dialog.close();
        });
        EXPECT_EQ(runMenu(style, id, {word, L"BAck"}), RTNORM);
        dialogs.expectAllCame();
    }
}

TEST_F(Menus, The_name_of_a_cell_style_may_have_blanks) {
    const KdDbObjectId id = addEmpty();
    runMenu(style, id, {L"editcellStyle", L"No such style", L"BAck"});
    change(id, [](KdDbTable& table) { EXPECT_STREQ(table.cellStyle(1, 1), L"No such style"); });
}

TEST_F(Menus, An_empty_name_of_a_cell_style_is_handed_on_like_any_other) {
    const KdDbObjectId id = addEmpty();
    const std::string before = describeTable(id);
    const int opens = opensOf(style.menu, id, {L"editcellStyle", L""});
    EXPECT_EQ(describeTable(id), before) << "it names no style";
    EXPECT_EQ(opens, opensOf(style.menu, id, {L"editcellStyle", L"Title"}));
}

TEST_F(Menus, Esc_at_the_name_of_a_cell_style_sets_none) {
    const KdDbObjectId id = addEmpty();
    const std::string before = describeTable(id);
    EXPECT_EQ(runMenu(style, id, {L"editcellStyle", esc, L"BAck"}), RTNORM);
    EXPECT_EQ(prompts, (std::vector<std::wstring>{text(style.prompt), L"", text(style.prompt)}));
    EXPECT_EQ(describeTable(id), before);
}

TEST_F(Menus, After_Format_BGcolor_and_any_text_no_cell_has_changed) {
    const KdDbObjectId id = addSample();
    const std::string before = describeTable(id);
    runCommandOn(L"B2:C3", {L"Format", L"BGcolor", L"7", L"BGcolor", L"255,0,0", L"BGcolor", L"", L"BGcolor", L"BAck",
                            L"BGcolor", L"dark Lock", L"_BG", esc, L"BAck", L"Quit"});
    EXPECT_EQ(describeTable(id), before);
}

// Without a table: the run is about the toolbar's.

TEST_F(Menus, With_the_null_id_no_word_changes_anything) {
    const KdDbObjectId id = addSample();
    const std::string before = describeTable(id);
    for (const Word& word : words) {
        std::vector<Step> replies = word.replies;
        replies.push_back(L"BAck");
        EXPECT_EQ(runMenu(*word.menu, KdDbObjectId::kNull, replies), RTNORM);
    }
    runMenu(operation, KdDbObjectId::kNull, {L"Unmerge", L"BOrder", L"insertBLock", L"insertFIeld", L"BAck"});
    runMenu(format, KdDbObjectId::kNull, {L"BGcolor", L"7", L"Unlock", L"BAck"});
    EXPECT_EQ(describeTable(id), before);
    EXPECT_EQ(selection(id), cells("B2:C3"));
}

TEST_F(Menus, With_the_toolbars_table_insertABove_changes_nothing) {
    const KdDbObjectId id = addSample();
    const std::string before = describeTable(id);
    EXPECT_EQ(runMenu(operation, KdDbObjectId::kNull, {L"insertABove", L"BAck"}), RTNORM);
    EXPECT_EQ(describeTable(id), before);
}

}  // namespace
}  // namespace kdtest
