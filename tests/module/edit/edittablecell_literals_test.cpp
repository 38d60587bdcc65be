// EDITTABLECELL without its resource module: the literals serve for every list and prompt but those of the formulas,
// which have none; its words are taken as they are typed.

#include <gtest/gtest.h>

#include "tests/module/edit/commandrun.h"
#include "tests/module/edit/typist.h"

namespace kdtest {
namespace {

class WithoutResources : public CommandRun {
protected:
    void SetUp() override {
        CommandRun::SetUp();
        FreeLibrary(std::exchange(hLibModule, nullptr));
        kdhost::faults().noResourceModule = true;
    }
    void TearDown() override {
        kdhost::faults() = {};
        hLibModule = LoadResourceDll(L"TvxTableRes.dll");
        CommandRun::TearDown();
    }
};

namespace literal {

constexpr const wchar_t* pickTable = L"选择表格：";
constexpr const wchar_t* enterCells = L"Cell or range in An:Bn format:";
constexpr const wchar_t* mainMenu = L"[Operation/Content/Format/Style/Quit/ExecuteOneAction]:";
constexpr const wchar_t* operation =
    L"[BAck/insert ABove/insert BElow/delete ROw/insert LEft/insert RIght/delete COlumn/Merge/Unmerge/"
    L"insert FOrmula/BOrder/Quit]:";
constexpr const wchar_t* merge = L"[BAck/merge All/merge Horizontal/merge Vertical/Quit]:";
constexpr const wchar_t* content = L"[BAck/Lock/Unlock/Quit]:";
constexpr const wchar_t* format = L"[BAck/ALignment/BG color/Lock/Unlock/Quit]:";
constexpr const wchar_t* alignment = L"[BAck/TL/TC/TR/ML/MC/MR/BL/BC/BR/Quit]:";
constexpr const wchar_t* style = L"[BAck/Edit table style/New table style/edit cell Style/Quit]:";

}  // namespace literal

TEST_F(WithoutResources, Every_prompt_is_the_literal_one_and_that_of_the_formulas_is_empty) {
    add(TableBuilder(3, 3).fill().build());
    runCommandOn(L"A1", {L"op", L"m", L"ba", L"fo", L"BAck", L"ba", L"c", L"ba", L"f", L"al", L"ba", L"ba", L"_Style",
                         L"ba", L"datalink", L"q"});
    const std::vector<std::wstring> expected = {literal::pickTable,
                                                literal::enterCells,
                                                literal::mainMenu,
                                                literal::operation,
                                                literal::merge,
                                                literal::operation,
                                                L"",
                                                literal::operation,
                                                literal::mainMenu,
                                                literal::content,
                                                literal::mainMenu,
                                                literal::format,
                                                literal::alignment,
                                                literal::format,
                                                literal::mainMenu,
                                                literal::style,
                                                literal::mainMenu,
                                                literal::mainMenu};
    EXPECT_EQ(prompts, expected);
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(WithoutResources, The_text_about_an_invalid_reference_is_the_literal_one) {
    add(TableBuilder(3, 3).build());
    runCommandOn(L"1A", {L"B2", L"q"});
    EXPECT_EQ(host.messages(), std::vector<std::wstring>{L"Invalid cell range. Examples: A, 1, A1, A1:C4"});
}

TEST_F(WithoutResources, Words_and_abbreviations_of_the_literal_lists_edit_the_table) {
    const KdDbObjectId id = add(TableBuilder(3, 3).build());
    runCommandOn(L"B2", {L"_Op", L"ABove", L"_Left", L"ba", L"_Format", L"AL", L"br", L"ba", L"l", L"q"});
    change(id, [](KdDbTable& table) {
        EXPECT_EQ(table.numRows(), 4);
        EXPECT_EQ(table.numColumns(), 4);
        EXPECT_EQ(table.alignment(2, 2), KdDb::kBottomRight);
        EXPECT_EQ(table.cellState(2, 2), KdDb::kCellStateFormatLocked);
    });
}

TEST_F(WithoutResources, Words_of_the_formulas_are_taken_whole_and_not_abbreviated) {
    add(TableBuilder(3, 3).build());
    Typist typist;
    runCommandOn(L"B2", {L"_Op", L"_FO", L"eq", L"_Equation", L"equation", L"Quit"});
    ASSERT_EQ(typist.opened.size(), 1U);
    EXPECT_EQ(typist.opened[0].contents, L"=");
}

}  // namespace
}  // namespace kdtest
