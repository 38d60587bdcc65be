// The keyword lists and prompts of EDITTABLECELL: they offer the same words in every language, each word can be
// typed by its capitals, and without the resource module the literals serve.

#include "module/edit/menutexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <sstream>

#include "host/ed/keywords.h"
#include "host/win32/modules.h"
#include "mfc/resource.h"
#include "module/core/resources.h"

namespace kdtest {
namespace {

using Words = std::vector<std::wstring>;

/// The two halves of a keyword list.
struct Halves {
    Words local;
    Words global;
};

Halves halvesOf(const std::wstring& list) {
    Halves halves;
    std::wistringstream words(list);
    bool global = false;
    for (std::wstring word; words >> word;) {
        if (!global && word.front() == L'_') {
            global = true;
            word.erase(0, 1);
        }
        (global ? halves.global : halves.local).push_back(word);
    }
    return halves;
}

/// The words of a prompt, "[One/two Three]:", without blanks.
Words wordsOf(const std::wstring& prompt) {
    EXPECT_TRUE(prompt.starts_with(L"[") && prompt.ends_with(L"]:"));
    std::wistringstream inner(prompt.substr(1, prompt.size() - 3));
    Words words;
    for (std::wstring word; std::getline(inner, word, L'/');) {
        std::erase(word, L' ');
        words.push_back(word);
    }
    return words;
}

std::wstring capitalsOf(const std::wstring& word) {
    const auto isCapital = [](wchar_t character) { return std::iswupper(std::wint_t(character)) != 0; };
    const auto begin = std::find_if(word.begin(), word.end(), isCapital);
    return {begin, std::find_if_not(begin, word.end(), isCapital)};
}

const Words formulaWords = {L"BAck", L"Sum", L"Average", L"Count", L"Cell", L"Equation", L"Quit"};

struct Menu {
    const MenuTexts& texts;
    Words globals;
};

const std::vector<Menu>& menus() {
    static const auto literal = [](const MenuTexts& texts) {
        return Menu{texts, halvesOf(texts.keywords.literal).global};
    };
    static const std::vector<Menu> all = {literal(menutexts::mainMenu),  literal(menutexts::operation),
                                          literal(menutexts::merge),     Menu{menutexts::formula, formulaWords},
                                          literal(menutexts::content),   literal(menutexts::format),
                                          literal(menutexts::alignment), literal(menutexts::style)};
    return all;
}

class Texts : public ::testing::TestWithParam<kdhost::Language> {
protected:
    Texts() {
        kdhost::setLanguage(GetParam());
        hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    }
    ~Texts() override {
        FreeLibrary(hLibModule);
        hLibModule = nullptr;
        kdhost::setLanguage(kdhost::Language::English);
    }
};

TEST_P(Texts, stand_in_the_resource_module) {
    const ResourceScope resources;
    for (const Menu& menu : menus()) {
        EXPECT_FALSE(loadText(menu.texts.keywords.resourceText).IsEmpty());
        EXPECT_FALSE(loadText(menu.texts.prompt.resourceText).IsEmpty());
    }
    for (const TextSource& source : {menutexts::pickTable, menutexts::enterCells, menutexts::invalidCells}) {
        EXPECT_FALSE(loadText(source.resourceText).IsEmpty());
    }
}

TEST_P(Texts, of_a_menu_have_its_global_words_in_their_order_and_a_local_word_for_each) {
    const ResourceScope resources;
    for (const Menu& menu : menus()) {
        const Halves halves = halvesOf(loadText(menu.texts.keywords));
        EXPECT_EQ(halves.global, menu.globals);
        EXPECT_EQ(halves.local.size(), halves.global.size());
    }
}

TEST_P(Texts, of_a_prompt_show_the_words_of_its_list) {
    const ResourceScope resources;
    for (const Menu& menu : menus()) {
        EXPECT_EQ(wordsOf(loadText(menu.texts.prompt)), halvesOf(loadText(menu.texts.keywords)).local);
    }
}

TEST_P(Texts, let_each_word_be_typed_whole_and_by_its_capitals_in_either_case) {
    const ResourceScope resources;
    for (const Menu& menu : menus()) {
        const std::wstring list = loadText(menu.texts.keywords);
        const kdhost::KeywordList keywords(list);
        const Halves halves = halvesOf(list);
        for (std::size_t i = 0; i < halves.local.size(); ++i) {
            std::wstring capitals = capitalsOf(halves.local[i]);
            EXPECT_FALSE(capitals.empty());
            EXPECT_EQ(keywords.match(halves.local[i]), halves.global[i]);
            EXPECT_EQ(keywords.match(capitals), halves.global[i]);
            std::transform(capitals.begin(), capitals.end(), capitals.begin(), std::towlower);
            EXPECT_EQ(keywords.match(capitals), halves.global[i]);
            EXPECT_EQ(keywords.match(L"_" + halves.global[i]), halves.global[i]);
        }
    }
}

TEST_P(Texts, let_the_abbreviations_of_macros_pass) {
    const ResourceScope resources;
    const auto match = [](const MenuTexts& texts, const wchar_t* typed) {
        return kdhost::KeywordList(loadText(texts.keywords)).match(typed).value_or(L"none");
    };
    EXPECT_EQ(match(menutexts::mainMenu, L"_ExecuteOneAction"), L"ExecuteOneAction");
    EXPECT_EQ(match(menutexts::mainMenu, L"_Op"), L"Operation");
    EXPECT_EQ(match(menutexts::operation, L"_Formula"), L"insertFOrmula");
    EXPECT_EQ(match(menutexts::operation, L"_ABove"), L"insertABove");
    for (const wchar_t* word : {L"Sum", L"Average", L"Count", L"Cell", L"Equation"}) {
        EXPECT_EQ(match(menutexts::formula, (std::wstring(L"_") + word).c_str()), word);
    }
}

INSTANTIATE_TEST_SUITE_P(English, Texts, ::testing::Values(kdhost::Language::English));
INSTANTIATE_TEST_SUITE_P(Chinese, Texts, ::testing::Values(kdhost::Language::Chinese));

TEST(MenuTexts, Chinese_words_carry_the_letters_to_type_behind_them) {
    const kdhost::KeywordList main(L"操作(O) 退出(Q) _Operation Quit");
    EXPECT_EQ(main.match(L"o"), L"Operation");
    EXPECT_EQ(main.match(L"操作(O)"), L"Operation");
}

TEST(MenuTexts, Literals_serve_where_a_text_cannot_be_loaded) {
    AfxSetResourceHandle(nullptr);
    for (const Menu& menu : menus()) {
        for (const TextSource& source : {menu.texts.keywords, menu.texts.prompt}) {
            EXPECT_EQ(loadText(source), std::wstring(source.literal == nullptr ? L"" : source.literal));
        }
    }
    EXPECT_EQ(loadText(menutexts::pickTable), L"选择表格：");
    EXPECT_EQ(loadText(menutexts::enterCells), L"Cell or range in An:Bn format:");
    EXPECT_EQ(loadText(menutexts::invalidCells), L"Invalid cell range. Examples: A, 1, A1, A1:C4");
    EXPECT_EQ(menutexts::formula.keywords.literal, nullptr);
}

TEST(MenuTexts, Literals_are_lists_and_prompts_of_the_same_words) {
    for (const Menu& menu : menus()) {
        if (menu.texts.keywords.literal == nullptr) continue;
        const Halves halves = halvesOf(menu.texts.keywords.literal);
        EXPECT_EQ(halves.local, halves.global);
        EXPECT_EQ(wordsOf(menu.texts.prompt.literal), halves.local);
    }
}

}  // namespace
}  // namespace kdtest
