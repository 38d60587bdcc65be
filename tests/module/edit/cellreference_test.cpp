// What a typed reference to cells names.

#include "module/edit/cellreference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <regex>

#include "tests/module/core/sampletables.h"

namespace {

using Range = KdCellRange;

struct Reference {
    const wchar_t* text;
    std::optional<Range> range;  ///< top, left, bottom, right
};

class References : public ::testing::TestWithParam<Reference> {};

TEST_P(References, name_the_cells) {
    EXPECT_EQ(parseCellReference(GetParam().text), GetParam().range);
}

constexpr std::nullopt_t invalid = std::nullopt;

INSTANTIATE_TEST_SUITE_P(One_half, References,
                         ::testing::Values(Reference{L"A1", Range{0, 0, 0, 0}}, Reference{L"b3", Range{2, 1, 2, 1}},
                                           Reference{L"A", Range{-1, 0, -1, 0}}, Reference{L"1", Range{0, -1, 0, -1}},
                                           Reference{L"z12", Range{11, 25, 11, 25}}));

INSTANTIATE_TEST_SUITE_P(Nothing_ahead_of_the_colon, References,
                         ::testing::Values(Reference{L":A1", Range{0, 0, 0, 0}}, Reference{L":B", Range{-1, 1, -1, 1}},
                                           Reference{L":2", Range{1, -1, 1, -1}},
                                           Reference{L":", Range{-1, -1, -1, -1}}));

INSTANTIATE_TEST_SUITE_P(A_cell_ahead_of_the_colon, References,
                         ::testing::Values(Reference{L"A1:C4", Range{0, 0, 3, 2}},
                                           Reference{L"c4:a1", Range{0, 0, 3, 2}},
                                           Reference{L"B2:A5", Range{1, 0, 4, 1}},
                                           Reference{L"A5:B2", Range{1, 0, 4, 1}}, Reference{L"A1:", invalid},
                                           Reference{L"A1:B", invalid}, Reference{L"A1:2", invalid}));

INSTANTIATE_TEST_SUITE_P(A_row_ahead_of_the_colon, References,
                         ::testing::Values(Reference{L"1:", Range{0, -1, 0, -1}},
                                           Reference{L"2:4", Range{1, -1, 3, -1}},
                                           Reference{L"99:1", Range{0, -1, 98, -1}}, Reference{L"1:A", invalid},
                                           Reference{L"1:A2", invalid}));

INSTANTIATE_TEST_SUITE_P(A_column_ahead_of_the_colon, References,
                         ::testing::Values(Reference{L"A:", Range{-1, 0, -1, 0}},
                                           Reference{L"D:B", Range{-1, 1, -1, 3}}, Reference{L"A:1", invalid},
                                           Reference{L"A:B2", invalid}));

INSTANTIATE_TEST_SUITE_P(
    Texts_that_name_none, References,
    ::testing::Values(Reference{L"", invalid}, Reference{L"1A", invalid}, Reference{L"A1B", invalid},
                      Reference{L"A1:1A", invalid}, Reference{L"A1:B2:C3", invalid}, Reference{L"::", invalid},
                      Reference{L"A 1", invalid}, Reference{L" A1", invalid}, Reference{L"A1 ", invalid},
                      Reference{L"$A$1", invalid}, Reference{L"A-1", invalid}, Reference{L"Ä1", invalid},
                      Reference{L"甲1", invalid}, Reference{L"Ａ１", invalid}, Reference{L"A1：B2", invalid}));

TEST(CellReference, Row_numbers_0_and_1_name_the_same_row) {
    EXPECT_EQ(parseCellReference(L"A0"), parseCellReference(L"A1"));
    EXPECT_EQ(parseCellReference(L"0"), parseCellReference(L"1"));
    EXPECT_EQ(parseCellReference(L"000"), parseCellReference(L"001"));
    EXPECT_EQ(parseCellReference(L"A0:B00"), parseCellReference(L"A1:B1"));
}

/// The names of the first columns, in order.
TEST(CellReference, Columns_count_on_from_Z_to_AA_and_from_ZZ_to_AAA) {
    std::wstring name = L"A";
    for (int column = 0; column < 30000; ++column) {
        ASSERT_EQ(parseCellReference(name + L"1"), (Range{0, column, 0, column})) << column;
        std::size_t at = name.size();
        while (at > 0 && name[at - 1] == L'Z') name[--at] = L'A';
        if (at == 0) {
            name.insert(name.begin(), L'A');
        } else {
            ++name[at - 1];
        }
    }
    EXPECT_EQ(parseCellReference(L"AA1")->m_leftColumn, 26);
    EXPECT_EQ(parseCellReference(L"ZZ1")->m_leftColumn, 701);
    EXPECT_EQ(parseCellReference(L"AAA1")->m_leftColumn, 702);
}

TEST(CellReference, A_column_is_saturated_from_134217727_on) {
    constexpr int saturation = 134217727;
    EXPECT_EQ(parseCellReference(L"ZZZZZ")->m_leftColumn, 12356629);
    // Six letters name columns on both sides of the limit.
    const int below = parseCellReference(L"AAAAAA")->m_leftColumn;
    const int above = parseCellReference(L"ZZZZZZ")->m_leftColumn;
    EXPECT_EQ(below, 12356630);
    EXPECT_EQ(above, 321272405);
    EXPECT_EQ(parseCellReference(L"ZZZZZZA")->m_leftColumn, above) << "no further letter changes it";
    EXPECT_EQ(parseCellReference(L"ZZZZZZZZZZ1"), (Range{0, above, 0, above}));
    // A seventh letter below the limit may name a column that no number of 32 bits holds.
    for (const wchar_t* text : {L"GZZZZZZ", L"JZZZZZZ", L"HZZZZZZZZZZZZZZZZZZZZ"}) {
        EXPECT_GE(parseCellReference(text)->m_leftColumn, saturation) << text;
    }
    EXPECT_EQ(parseCellReference(std::wstring(1000, L'Z'))->m_leftColumn, above);
}

/// The letters of a column.
std::wstring nameOf(int column) {
    std::wstring name;
    for (long long left = column + 1LL; left > 0; left = (left - 1) / 26) {
        name.insert(name.begin(), static_cast<wchar_t>(L'A' + (left - 1) % 26));
    }
    return name;
}

TEST(CellReference, The_first_saturated_column_takes_no_letter_and_the_last_one_before_it_does) {
    constexpr int saturation = 134217727;
    ASSERT_EQ(parseCellReference(nameOf(saturation))->m_leftColumn, saturation);
    EXPECT_EQ(parseCellReference(nameOf(saturation) + L"A")->m_leftColumn, saturation);
    EXPECT_GT(parseCellReference(nameOf(saturation - 1) + L"A")->m_leftColumn, saturation);
    EXPECT_EQ(parseCellReference(nameOf(saturation / 26 - 2) + L"C")->m_leftColumn, (saturation / 26 - 1) * 26 + 2);
}

TEST(CellReference, A_row_is_saturated_from_134217727_on) {
    EXPECT_EQ(parseCellReference(L"134217726")->m_topRow, 134217725);
    EXPECT_EQ(parseCellReference(L"134217727")->m_topRow, 134217726);
    EXPECT_EQ(parseCellReference(L"1342177269")->m_topRow, 1342177268) << "nine digits were below the limit";
    EXPECT_EQ(parseCellReference(L"1342177279")->m_topRow, 134217726) << "nine digits were at the limit";
    EXPECT_EQ(parseCellReference(std::wstring(1000, L'9'))->m_topRow, 999999998);
    EXPECT_EQ(parseCellReference(std::wstring(1000, L'0'))->m_topRow, 0);
}

/// The same rules in another form: the text is cut by a pattern, and the forms of the halves are compared by name.
class PlainModel {
public:
    static std::optional<Range> parse(const std::wstring& text) {
        static const std::wregex pattern(L"([A-Za-z]*)([0-9]*)(:?)([A-Za-z]*)([0-9]*)");
        std::wsmatch parts;
        if (text.empty() || !std::regex_match(text, parts, pattern)) return std::nullopt;
        const bool colon = parts[3].length() > 0;
        if (!colon && (parts[4].length() > 0 || parts[5].length() > 0)) return std::nullopt;

        const std::wstring forms = form(parts, 1) + L":" + form(parts, 4);
        if (!colon || forms.front() == L':') return both(parts, colon ? 4 : 1, colon ? 4 : 1);
        if (forms == L"row:" || forms == L"column:") return both(parts, 1, 1);
        if (forms == L"row:row" || forms == L"column:column" || forms == L"cell:cell") return both(parts, 1, 4);
        return std::nullopt;
    }

private:
    static std::wstring form(const std::wsmatch& parts, std::size_t at) {
        const bool letters = parts[at].length() > 0;
        const bool digits = parts[at + 1].length() > 0;
        return letters ? (digits ? L"cell" : L"column") : (digits ? L"row" : L"");
    }

    static std::optional<Range> both(const std::wsmatch& parts, std::size_t a, std::size_t b) {
        const int rows[] = {row(parts[a + 1]), row(parts[b + 1])};
        const int columns[] = {column(parts[a]), column(parts[b])};
        return Range{std::min(rows[0], rows[1]), std::min(columns[0], columns[1]), std::max(rows[0], rows[1]),
                     std::max(columns[0], columns[1])};
    }

    static int row(const std::wstring& digits) { return digits.empty() ? -1 : std::max(std::stoi(digits) - 1, 0); }

    static int column(const std::wstring& letters) {
        int place = 0;
        for (const wchar_t letter : letters) place = place * 26 + (letter & 31);
        return place - 1;
    }
};

TEST(CellReference, Agrees_with_a_plain_model_on_random_texts) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const std::wstring alphabet = L"aBzZ0019::: ";
    int named = 0;
    for (int i = 0; i < 20000; ++i) {
        std::wstring text(random() % 7, L' ');  // saturation begins with a seventh letter
        // Blanks are rare, so that texts without one are met, too.
        for (wchar_t& character : text) character = alphabet[random() % (random() % 16 == 0 ? 12 : 11)];
        const auto range = parseCellReference(text);
        ASSERT_EQ(range, PlainModel::parse(text)) << ::testing::PrintToString(text);
        if (range) ++named;
    }
    EXPECT_GT(named, 1000);
}

TEST(CellReference, Rows_and_columns_are_in_order_whatever_the_order_of_the_corners) {
    std::mt19937 random(std::random_device{}());
    for (int i = 0; i < 1000; ++i) {
        const auto letter = [&] { return std::wstring(1, wchar_t(L'A' + random() % 26)); };
        const auto digits = [&] { return std::to_wstring(1 + random() % 99); };
        const std::wstring c1 = letter(), c2 = letter(), r1 = digits(), r2 = digits();
        const auto range = parseCellReference(c1 + r1 + L":" + c2 + r2);
        ASSERT_TRUE(range.has_value());
        EXPECT_LE(range->m_topRow, range->m_bottomRow);
        EXPECT_LE(range->m_leftColumn, range->m_rightColumn);
        for (const std::wstring& other :
             {c2 + r2 + L":" + c1 + r1, c1 + r2 + L":" + c2 + r1, c2 + r1 + L":" + c1 + r2}) {
            EXPECT_EQ(parseCellReference(other), range);
        }
    }
}

}  // namespace
