// The text of a cell, shared by copies until one of them gets another text.

#include "host/db/sharedtext.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using kdhost::SharedText;

TEST(SharedText, copies_have_the_same_characters_until_one_gets_another_text) {
    SharedText first;
    first = L"bolt";
    SharedText copy = first;
    EXPECT_EQ(first.c_str(), copy.c_str());
    copy = L"washer";
    EXPECT_EQ(first.view(), L"bolt");
    EXPECT_EQ(copy.view(), L"washer");
    copy.clear();
    EXPECT_EQ(first.view(), L"bolt");
}

TEST(SharedText, an_empty_text_is_empty_however_it_became_so) {
    SharedText fresh;
    SharedText emptied;
    emptied = L"bolt";
    emptied = L"";
    SharedText cleared;
    cleared = L"bolt";
    cleared.clear();
    for (const SharedText& text : {fresh, emptied, cleared}) {
        EXPECT_TRUE(text.empty());
        EXPECT_EQ(text.view(), L"");
        EXPECT_EQ(*text.c_str(), L'\0');
        EXPECT_EQ(text, fresh);
    }
}

TEST(SharedText, equals_a_text_with_the_same_characters_shared_or_not) {
    SharedText first;
    first = L"bolt";
    SharedText apart;
    apart = std::wstring(L"bolt");
    EXPECT_NE(first.c_str(), apart.c_str());
    EXPECT_EQ(first, apart);
    EXPECT_EQ(first, SharedText(first));
    apart = L"bolts";
    EXPECT_FALSE(first == apart);
    EXPECT_FALSE(first == SharedText());
}

TEST(SharedText, takes_its_own_text_and_that_of_a_copy) {
    SharedText text;
    text = L"a text too long to lie in the record itself";
    const std::wstring expected(text.view());
    text = text.view();
    EXPECT_EQ(text.view(), expected);
    const SharedText copy = text;
    text = copy;
    EXPECT_EQ(text.view(), expected);
    text = copy.c_str();
    EXPECT_EQ(text.view(), expected);
}

TEST(SharedText, costs_a_cell_no_more_than_a_pointer) {
    EXPECT_EQ(sizeof(SharedText), sizeof(void*));
}

TEST(SharedText, any_order_of_copies_and_writes_agrees_with_plain_strings) {
    std::mt19937 random(3);
    constexpr std::size_t places = 8;
    std::vector<SharedText> shared(places);
    std::vector<std::wstring> plain(places);
    for (int step = 0; step < 20'000; ++step) {
        const std::size_t to = random() % places;
        const std::size_t from = random() % places;
        switch (random() % 3) {
            case 0:
                shared[to] = plain[to] = std::wstring(random() % 20, static_cast<wchar_t>(L'a' + step % 26));
                break;
            case 1:
                shared[to] = shared[from];
                plain[to] = plain[from];
                break;
            default:
                shared[to].clear();
                plain[to].clear();
        }
        for (std::size_t place = 0; place < places; ++place) {
            ASSERT_EQ(shared[place].view(), plain[place]);
            ASSERT_EQ(shared[place] == shared[to], plain[place] == plain[to]);
        }
    }
}
