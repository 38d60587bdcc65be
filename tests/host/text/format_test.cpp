// Formatting codes carried out, and written again.

#include <gtest/gtest.h>

#include <QString>
#include <cmath>
#include <numbers>
#include <random>

#include "host/text/format.h"

using namespace kdhost::text;

namespace {

Format base() {
    Format format;
    format.font.family = L"DejaVu Sans";
    format.height = 2.5;
    return format;
}

/// The format of the first piece.
Format formatOf(const std::wstring& contents) {
    const std::vector<Piece> all = pieces(contents, base());
    return all.empty() ? Format{} : all.front().format;
}

std::wstring again(const std::wstring& contents) {
    return write(pieces(contents, base()), base());
}

TEST(Format, a_text_without_codes_is_one_piece_of_the_base) {
    const std::vector<Piece> all = pieces(L"plain text", base());
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].format, base());
    EXPECT_EQ(all[0].text, L"plain text");
}

TEST(Format, every_code_sets_its_property) {
    EXPECT_DOUBLE_EQ(formatOf(L"\\H7;x").height, 7.0);
    EXPECT_DOUBLE_EQ(formatOf(L"\\H2x;x").height, 5.0);
    EXPECT_DOUBLE_EQ(formatOf(L"\\W0.8;x").font.widthFactor, 0.8);
    EXPECT_DOUBLE_EQ(formatOf(L"\\Q15;x").font.obliqueAngle, 15.0 * std::numbers::pi / 180.0);
    EXPECT_DOUBLE_EQ(formatOf(L"\\T1.5;x").tracking, 1.5);
    EXPECT_EQ(formatOf(L"\\A2;x").alignment, 2);
    EXPECT_EQ(formatOf(L"\\C1;x").ink, (Ink{Ink::Kind::index, 1}));
    EXPECT_EQ(formatOf(L"\\c255;x").ink, (Ink{Ink::Kind::bgr, 255}));
    EXPECT_TRUE(formatOf(L"\\Lx").underline);
    EXPECT_TRUE(formatOf(L"\\Ox").overline);
    EXPECT_TRUE(formatOf(L"\\Kx").strike);
    EXPECT_FALSE(formatOf(L"\\L\\lx").underline);
}

TEST(Format, a_typeface_is_family_bold_and_italic) {
    const Format bold = formatOf(L"\\fNoto Serif|b1|i0|c134|p2;x");
    EXPECT_EQ(bold.font.family, L"Noto Serif");
    EXPECT_TRUE(bold.font.bold);
    EXPECT_FALSE(bold.font.italic);
    EXPECT_TRUE(formatOf(L"\\fNoto Serif|b0|i1;x").font.italic);
    EXPECT_EQ(formatOf(L"\\Ftxt.shx,gbcbig.shx;x").font.family, L"txt");
    EXPECT_EQ(formatOf(L"\\f|b1;x").font.family, L"DejaVu Sans") << "no family: the one before";
}

TEST(Format, a_paragraph_code_sets_indents_alignment_and_tabs) {
    const Paragraph paragraph = formatOf(L"\\pi-2,l3.5,r1,qj,sm1,t4,8,12;x").paragraph;
    EXPECT_DOUBLE_EQ(paragraph.firstIndent, -2.0);
    EXPECT_DOUBLE_EQ(paragraph.left, 3.5);
    EXPECT_DOUBLE_EQ(paragraph.right, 1.0);
    EXPECT_EQ(paragraph.align, L'j');
    EXPECT_EQ(paragraph.tabs, (std::vector<double>{4.0, 8.0, 12.0}));
    EXPECT_EQ(paragraph.rest, L"sm1");
    EXPECT_EQ(formatOf(L"\\pl3;\\pi*,l*,q*;x").paragraph.left, 0.0);
}

TEST(Format, an_x_ahead_of_a_paragraph_code_says_nothing) {
    EXPECT_EQ(formatOf(L"\\pxqr;x").paragraph.align, L'r');
    EXPECT_EQ(formatOf(L"\\pxi-1,l2;x").paragraph.left, 2.0);
    EXPECT_EQ(formatOf(L"\\px;x"), base());
}

TEST(Format, a_font_file_is_neither_bold_nor_italic) {
    const Format file = formatOf(L"\\fArial|b1|i1;\\Ftxt.shx;x");
    EXPECT_EQ(file.font.family, L"txt");
    EXPECT_FALSE(file.font.bold);
    EXPECT_FALSE(file.font.italic);
}

TEST(Format, sizes_that_multiply_beyond_all_bounds_stay_as_they_were) {
    EXPECT_DOUBLE_EQ(formatOf(L"\\H25000;x").height, 25000.0) << "large drawings have large texts";
    EXPECT_DOUBLE_EQ(formatOf(L"\\H10000x;\\H10000x;\\H10000x;x").height, 2.5e8);
    EXPECT_DOUBLE_EQ(formatOf(L"\\W10000x;\\W2x;x").font.widthFactor, 1e4);
    EXPECT_DOUBLE_EQ(formatOf(L"\\T0.0001x;\\T0.0001x;\\T0.0001x;x").tracking, 1e-8);
}

TEST(Format, groups_give_back_what_was_before_them) {
    const std::vector<Piece> all = pieces(L"a{\\H2x;\\Lb{\\C3;c}d}e", base());
    ASSERT_EQ(all.size(), 5U);
    EXPECT_EQ(all[4].format, all[0].format);
    EXPECT_EQ(all[3].format, all[1].format);
    EXPECT_TRUE(all[2].format.underline);
}

TEST(Format, a_parameter_that_makes_no_sense_changes_nothing) {
    for (const wchar_t* code :
         {L"\\H0;x", L"\\H-1;x", L"\\Hx;x", L"\\H;x", L"\\W1e9;x", L"\\Q90;x", L"\\A3;x", L"\\A;x", L"\\C300;x",
          L"\\C-1;x", L"\\c99999999;x", L"\\Tnan;x", L"\\Hinf;x", L"\\H0x10;x", L"\\pqz;x", L"\\pl;x", L"\\p;x"}) {
        EXPECT_EQ(formatOf(code), base()) << code;
    }
}

TEST(Format, a_stack_keeps_its_parts_and_its_separator) {
    const std::vector<Piece> all = pieces(L"\\S1/2;\\S+1^ -2;\\Sa\\/b#c;", base());
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].text, L"1");
    EXPECT_EQ(all[0].lower, L"2");
    EXPECT_EQ(all[0].separator, L'/');
    EXPECT_EQ(all[1].lower, L" -2");
    EXPECT_EQ(all[2].text, L"a/b");
}

TEST(FormatWriting, plain_text_is_written_as_it_is) {
    for (const wchar_t* text : {L"plain", L"50 % of it", L"螺栓 M8", L"a\tb"}) EXPECT_EQ(again(text), text);
}

TEST(FormatWriting, what_would_read_as_a_code_is_escaped) {
    EXPECT_EQ(escaped(L"a\\b{c}"), L"a\\\\b\\{c\\}");
    EXPECT_EQ(escaped(L"two\nlines"), L"two\\Plines");
    EXPECT_EQ(escaped(std::wstring(1, wchar_t{0x00A0})), L"\\~");
    for (const wchar_t* text : {L"%%d", L"%%%", L"%%65", L"100%%", L"\\U+0041", L"\\P", L"{}", L"%"}) {
        const std::vector<Piece> all = pieces(escaped(text), base());
        ASSERT_EQ(all.size(), 1U) << text;
        EXPECT_EQ(all[0].text, text);
    }
}

TEST(FormatWriting, formatting_stands_in_groups) {
    EXPECT_EQ(again(L"a{\\Lb}c"), L"a{\\Lb}c");
    EXPECT_EQ(again(L"\\Lall"), L"{\\Lall}");
    EXPECT_EQ(again(L"\\S1#2;"), L"\\S1#2;");
}

TEST(FormatWriting, what_a_typeface_code_says_beyond_its_use_is_kept) {
    for (const wchar_t* text :
         {L"{\\fArial|b1|i0|c134|p34;x}", L"{\\Ftxt.shx,gbcbig.shx;x}", L"a{\\fSimSun|b0|i0|c134|p2;b}c"}) {
        EXPECT_EQ(again(text), text);
    }
    std::vector<Piece> all = pieces(L"{\\fArial|b1|i0|c134|p34;x}", base());
    all[0].format.font.bold = false;
    EXPECT_EQ(write(all, base()), L"{\\fArial|b0|i0;x}") << "what a user changes counts";
    EXPECT_EQ(again(L"\\fArial|c134;\\f|b1;x"), L"{\\fArial|b1|i0;x}") << "no family: the one before";
}

TEST(FormatWriting, what_a_paragraph_code_says_beyond_its_use_is_kept) {
    EXPECT_EQ(again(L"\\pi1,sm1.2,b2,t4;x"), L"{\\pi1,l0,r0,q*,sm1.2,b2,t4;x}");
    EXPECT_EQ(formatOf(L"\\psm1,b2;\\psm3;x").paragraph.rest, L"sm3");
}

/// Every code, by itself, in a group, nested and across lines: none is lost.
TEST(FormatWriting, every_code_reads_the_same_once_written) {
    for (const wchar_t* code : {L"\\H7;",
                                L"\\H1.5x;",
                                L"\\W0.8;",
                                L"\\Q15;",
                                L"\\Q-15;",
                                L"\\T1.5;",
                                L"\\A0;",
                                L"\\A1;",
                                L"\\A2;",
                                L"\\C0;",
                                L"\\C1;",
                                L"\\C256;",
                                L"\\c255;",
                                L"\\c0;",
                                L"\\L",
                                L"\\O",
                                L"\\K",
                                L"\\fArial|b1|i1|c0|p34;",
                                L"\\Ftxt,gbcbig;",
                                L"\\pi-2,l4,r1,qc,t4,8;",
                                L"\\pql;",
                                L"\\pqj;",
                                L"\\pqd;",
                                L"\\S1/2;",
                                L"\\S1#2;",
                                L"\\S+1^-2;",
                                L"\\Sx^;",
                                L"\\S^x;",
                                L"\\Sa\\/b\\^c\\#d\\;e\\\\/f;",
                                L"\\P",
                                L"\\~",
                                L"%%d",
                                L"%%p",
                                L"%%c",
                                L"%%%",
                                L"%%065",
                                L"\\U+4E2D",
                                L"\\M+5D6D0",
                                L"\\\\",
                                L"\\{",
                                L"\\}"}) {
        const std::wstring c = code;
        for (const std::wstring& text :
             {c + L"x", L"a{" + c + L"b}c", L"{\\H2x;a{" + c + L"b\\Pc}d}e", L"\\L" + c + L"\\l" + c + L"x"}) {
            const std::string name = QString::fromStdWString(text).toStdString();
            EXPECT_EQ(pieces(again(text), base()), pieces(text, base())) << name;
            std::wstring read = strip(text);
            std::replace(read.begin(), read.end(), L'\u00A0', L' ');
            std::wstring readAgain = strip(again(text));
            EXPECT_EQ(readAgain, read) << name;
            const Layout before = layout(text, base().font, base().height, 0.0);
            const Layout now = layout(again(text), base().font, base().height, 0.0);
            EXPECT_DOUBLE_EQ(now.width, before.width) << name;
            EXPECT_DOUBLE_EQ(now.height, before.height) << name;
        }
    }
}

/// A random text of codes, well-formed and not.
std::wstring randomText(std::mt19937& random) {
    static const wchar_t* const parts[] = {
        L"a",
        L"bc ",
        L"\\P",
        L"{",
        L"}",
        L"\\L",
        L"\\l",
        L"\\O",
        L"\\o",
        L"\\K",
        L"\\k",
        L"\\H2x;",
        L"\\H1.25;",
        L"\\W0.7;",
        L"\\Q12.5;",
        L"\\T2;",
        L"\\A1;",
        L"\\C1;",
        L"\\c123;",
        L"\\~",
        L"\\\\",
        L"\\{",
        L"%%d",
        L"%%",
        L"%",
        L"\t",
        L"\n",
        L"\\S1/2;",
        L"\\Sa^;",
        L"\\S1#2;",
        L"\\Sx;",
        L"\\pqc;",
        L"\\pi1,l2,t3,4;",
        L"\\fArial|b1|i1;",
        L"螺",
        L"\\X",
        L"\\",
        L";",
        L"\\U+4E2D",
        L"\\S;/\\;",
        L"\\Q-7.3;",
        L"\\H0.333x;",
        L"\\px;",
        L"^",
    };
    std::wstring text;
    for (int count = static_cast<int>(random() % 14); count >= 0; --count) text += parts[random() % std::size(parts)];
    return text;
}

TEST(FormatWriting, pieces_written_and_read_are_the_same_pieces) {
    std::mt19937 random(3);
    for (int round = 0; round < 100000; ++round) {
        const std::wstring text = randomText(random);
        const std::vector<Piece> all = pieces(text, base());
        const std::vector<Piece> back = pieces(write(all, base()), base());
        ASSERT_EQ(all, back) << QString::fromStdWString(text).toStdString() << " written as "
                             << QString::fromStdWString(write(all, base())).toStdString();
    }
}

TEST(FormatWriting, any_text_of_a_user_is_read_as_itself_once_escaped) {
    std::mt19937 random(4);
    static const wchar_t characters[] = L"ab\\{}%;/^#~ \tPLHSU+0d中";
    for (int round = 0; round < 100000; ++round) {
        std::wstring text;
        for (int count = static_cast<int>(random() % 12); count > 0; --count)
            text += characters[random() % (std::size(characters) - 1)];
        ASSERT_EQ(strip(escaped(text)), text) << QString::fromStdWString(text).toStdString();
    }
}

}  // namespace
