// Texts measured and wrapped.

#include <gtest/gtest.h>

#include <QFontMetricsF>

#include "host/text/layout.h"
#include "host/text/metrics.h"

using namespace kdhost::text;

namespace {

const Font kFont{L"DejaVu Sans"};

double widthOf(const std::wstring& text, double height = 10.0) {
    return layout(text, kFont, height, 0.0).width;
}

std::vector<std::wstring> linesOf(const Layout& layout) {
    std::vector<std::wstring> texts;
    for (const Line& line : layout.lines) {
        texts.emplace_back();
        for (const auto& run : line.runs) texts.back() += run.text;
    }
    return texts;
}

TEST(Layout, text_height_is_the_height_of_a_capital) {
    // DejaVu Sans: capitals 1493 of 2048 units high, an "H" 1540 wide.
    EXPECT_NEAR(widthOf(L"H"), 10.0 * 1540.0 / 1493.0, 0.02);
}

TEST(Layout, width_grows_with_height_and_width_factor) {
    const double once = widthOf(L"Bolt M8");
    EXPECT_GT(once, 0.0);
    EXPECT_NEAR(widthOf(L"Bolt M8", 25.0), 2.5 * once, 1e-9);
    Font narrow = kFont;
    narrow.widthFactor = 0.5;
    EXPECT_NEAR(layout(L"Bolt M8", narrow, 10.0, 0.0).width, 0.5 * once, 1e-9);
}

TEST(Layout, width_is_the_sum_of_its_characters) {
    EXPECT_NEAR(widthOf(L"AVAVA"), 3 * widthOf(L"A") + 2 * widthOf(L"V"), 1e-9);
}

TEST(Layout, agrees_with_the_font_engine_on_a_whole_text) {
    const QString text = QStringLiteral("The quick brown fox, 0123456789");
    const double pixels = QFontMetricsF(qtFont(kFont, 1000)).horizontalAdvance(text);
    EXPECT_NEAR(widthOf(text.toStdWString(), 1.0), pixels / (1000.0 * capitalRatio(kFont)), 0.01);
}

TEST(Layout, bold_is_wider) {
    Font bold = kFont;
    bold.bold = true;
    EXPECT_GT(layout(L"Bolt", bold, 10.0, 0.0).width, widthOf(L"Bolt"));
}

TEST(Layout, lines_stand_five_thirds_of_the_height_apart) {
    EXPECT_DOUBLE_EQ(layout(L"a", kFont, 3.0, 0.0).height, 3.0);
    EXPECT_DOUBLE_EQ(layout(L"a\\Pb", kFont, 3.0, 0.0).height, 8.0);
    EXPECT_DOUBLE_EQ(layout(L"a\\P\\Pb", kFont, 3.0, 0.0).height, 13.0);
}

TEST(Layout, an_empty_text_has_no_lines) {
    const Layout empty = layout(L"", kFont, 3.0, 0.0);
    EXPECT_TRUE(empty.lines.empty());
    EXPECT_EQ(empty.width, 0.0);
    EXPECT_EQ(empty.height, 0.0);
}

TEST(Layout, codes_themselves_take_no_width) {
    EXPECT_NEAR(widthOf(L"{\\C3;\\La}\\C1;b"), widthOf(L"ab"), 1e-9);
}

TEST(Layout, a_code_for_the_height_makes_its_characters_larger) {
    EXPECT_NEAR(widthOf(L"{\\H2x;a}b"), 2.0 * widthOf(L"a") + widthOf(L"b"), 1e-9);
    EXPECT_NEAR(widthOf(L"\\H25;ab"), 2.5 * widthOf(L"ab"), 1e-9);
}

TEST(Layout, width_factor_and_tracking_widen) {
    EXPECT_NEAR(widthOf(L"\\W0.5;ab"), 0.5 * widthOf(L"ab"), 1e-9);
    EXPECT_NEAR(widthOf(L"\\T3;ab"), 3.0 * widthOf(L"ab"), 1e-9);
}

TEST(Layout, the_highest_characters_of_a_line_set_its_distance_from_the_line_above) {
    const Layout two = layout(L"a\\P{\\H3x;b}c", kFont, 10.0, 0.0);
    ASSERT_EQ(two.lines.size(), 2U);
    EXPECT_DOUBLE_EQ(two.lines[0].baseline, 10.0);
    EXPECT_DOUBLE_EQ(two.lines[1].baseline, 10.0 + 30.0 * kLinePitch);
    EXPECT_DOUBLE_EQ(two.height, two.lines[1].baseline);
    const Layout first = layout(L"{\\H3x;b}c", kFont, 10.0, 0.0);
    EXPECT_DOUBLE_EQ(first.lines[0].baseline, 30.0);
}

TEST(Layout, a_low_line_keeps_clear_of_the_high_one_above_it) {
    const Layout two = layout(L"{\\H3x;b}\\Pa", kFont, 10.0, 0.0);
    EXPECT_DOUBLE_EQ(two.lines[1].baseline, 30.0 + (kLinePitch - 1.0) * 30.0 + 10.0);
}

TEST(Layout, small_characters_stand_at_the_bottom_the_middle_or_the_top_of_their_line) {
    for (const auto& [code, y] :
         {std::pair(L"\\A0;a{\\H0.5x;b}", 0.0), {L"\\A1;a{\\H0.5x;b}", 2.5}, {L"\\A2;a{\\H0.5x;b}", 5.0}}) {
        const Layout one = layout(code, kFont, 10.0, 0.0);
        ASSERT_EQ(one.lines[0].runs.size(), 2U);
        EXPECT_DOUBLE_EQ(one.lines[0].runs[0].y, 0.0) << code;
        EXPECT_DOUBLE_EQ(one.lines[0].runs[1].y, y) << code;
    }
}

TEST(Layout, a_fraction_has_its_parts_above_each_other_with_a_stroke_between) {
    const Layout one = layout(L"\\S1/20;", kFont, 10.0, 0.0);
    ASSERT_EQ(one.lines.size(), 1U);
    ASSERT_EQ(one.lines[0].runs.size(), 2U);
    ASSERT_EQ(one.lines[0].strokes.size(), 1U);
    EXPECT_NEAR(one.width, widthOf(L"20"), 1e-9);
    const auto upper = std::find_if(one.lines[0].runs.begin(), one.lines[0].runs.end(),
                                    [](const auto& run) { return run.text == L"1"; });
    EXPECT_NEAR(upper->x, 0.5 * (widthOf(L"20") - widthOf(L"1")), 1e-9);
    EXPECT_DOUBLE_EQ(upper->y, 15.0);
    EXPECT_DOUBLE_EQ(one.lines[0].strokes[0].fromY, 12.5);
    EXPECT_DOUBLE_EQ(one.height, 25.0);
}

TEST(Layout, a_fraction_stands_in_its_line_as_the_alignment_says) {
    const auto bottomOf = [](const wchar_t* text) {
        double bottom = 1e9;
        const Layout one = layout(text, kFont, 10.0, 0.0);
        for (const auto& run : one.lines[0].runs) bottom = std::min(bottom, run.y);
        return bottom;
    };
    EXPECT_DOUBLE_EQ(bottomOf(L"\\A0;\\S1/2;"), 0.0);
    EXPECT_DOUBLE_EQ(bottomOf(L"\\A1;\\S1/2;"), -7.5);
    EXPECT_DOUBLE_EQ(bottomOf(L"\\A2;\\S1/2;"), -15.0);
}

TEST(Layout, a_slanted_fraction_has_its_parts_side_by_side) {
    const Layout one = layout(L"\\S1#2;", kFont, 10.0, 0.0);
    EXPECT_NEAR(one.width, widthOf(L"12") + 6.0, 1e-9);
    ASSERT_EQ(one.lines[0].strokes.size(), 1U);
}

TEST(Layout, a_character_that_stands_for_objects_elsewhere_is_a_character) {
    const Layout plain = layout(L"a\uFFFCb", kFont, 10.0, 0.0);
    ASSERT_EQ(plain.lines.size(), 1U);
    EXPECT_EQ(plain.lines[0].runs[0].text, L"a\uFFFCb");
    EXPECT_TRUE(plain.lines[0].strokes.empty());
    EXPECT_EQ(layout(L"\uFFFC\\S1/2;\uFFFC", kFont, 10.0, 5.0).lines[0].strokes.size(), 1U);
}

TEST(Layout, a_tolerance_has_no_stroke) {
    const Layout one = layout(L"\\S+0.1^-0.2;", kFont, 10.0, 0.0);
    EXPECT_TRUE(one.lines[0].strokes.empty());
    EXPECT_EQ(one.lines[0].runs.size(), 2U);
}

TEST(Layout, a_paragraph_keeps_its_indents_free) {
    const Layout wrapped = layout(L"\\pi2,l1,r3;aaaaaa aaaaaa aaaaaa", kFont, 10.0, 60.0 + widthOf(L"aaaaaa") * 1.1);
    ASSERT_EQ(wrapped.lines.size(), 3U);
    EXPECT_DOUBLE_EQ(wrapped.lines[0].indent, 30.0);
    EXPECT_DOUBLE_EQ(wrapped.lines[1].indent, 10.0);
    EXPECT_DOUBLE_EQ(wrapped.lines[0].outdent, 30.0);
}

TEST(Layout, a_paragraph_is_aligned_by_its_own_code) {
    const Layout three = layout(L"\\pqc;a\\P\\pqr;a\\P\\pql;a", kFont, 10.0, 100.0);
    const double width = widthOf(L"a");
    EXPECT_NEAR(three.leftOf(three.lines[0], 0), 0.5 * (100.0 - width), 1e-9);
    EXPECT_NEAR(three.leftOf(three.lines[1], 0), 100.0 - width, 1e-9);
    EXPECT_NEAR(three.leftOf(three.lines[2], 2), 0.0, 1e-9);
}

TEST(Layout, a_justified_line_fills_the_width_and_the_last_one_does_not) {
    const double width = widthOf(L"aa bb") * 1.2;
    const Layout justified = layout(L"\\pqj;aa bb cc", kFont, 10.0, width);
    ASSERT_EQ(justified.lines.size(), 2U);
    EXPECT_NEAR(justified.lines[0].width, width, 1e-6);
    EXPECT_NEAR(justified.lines[1].width, widthOf(L"cc"), 1e-9);
    const Layout distributed = layout(L"\\pqd;aa bb", kFont, 10.0, width);
    EXPECT_NEAR(distributed.lines[0].width, width, 1e-6);
}

TEST(Layout, tabs_go_to_their_stops_and_without_any_to_every_fourth_height) {
    const Layout free = layout(L"a\tb", kFont, 10.0, 0.0);
    EXPECT_NEAR(free.lines[0].runs.back().x, 40.0, 1e-9);
    const Layout set = layout(L"\\pi0,t3,8;a\tb\tc", kFont, 10.0, 0.0);
    EXPECT_NEAR(set.width, 80.0 + widthOf(L"c"), 1e-9);
}

TEST(Layout, wraps_between_words_and_drops_the_blanks_there) {
    const double width = widthOf(L"steel bolt") * 1.001;
    const Layout wrapped = layout(L"steel bolt  zinc plated", kFont, 10.0, width);
    EXPECT_EQ(linesOf(wrapped), (std::vector<std::wstring>{L"steel bolt", L"zinc", L"plated"}));
    EXPECT_NEAR(wrapped.lines[0].width, widthOf(L"steel bolt"), 1e-9);
    EXPECT_LE(wrapped.width, width);
}

TEST(Layout, a_text_exactly_as_wide_as_the_wrap_width_stays_whole) {
    EXPECT_EQ(layout(L"steel bolt", kFont, 10.0, widthOf(L"steel bolt")).lines.size(), 1U);
}

TEST(Layout, a_word_wider_than_the_wrap_width_stays_whole) {
    const Layout wrapped = layout(L"a hexagonal b", kFont, 10.0, widthOf(L"hexa"));
    EXPECT_EQ(linesOf(wrapped), (std::vector<std::wstring>{L"a", L"hexagonal", L"b"}));
    EXPECT_NEAR(wrapped.width, widthOf(L"hexagonal"), 1e-9);
}

TEST(Layout, no_line_breaks_at_a_hard_blank) {
    const Layout wrapped = layout(L"10\\~mm wide", kFont, 10.0, widthOf(L"10 m"));
    EXPECT_EQ(linesOf(wrapped), (std::vector<std::wstring>{L"10\u00A0mm", L"wide"}));
}

TEST(Layout, cjk_breaks_between_any_two_characters) {
    const double one = widthOf(L"中");
    EXPECT_GT(one, 10.0);
    const Layout wrapped = layout(L"螺栓螺母垫", kFont, 10.0, 2.0 * one);
    EXPECT_EQ(linesOf(wrapped), (std::vector<std::wstring>{L"螺栓", L"螺母", L"垫"}));
}

TEST(Layout, a_word_beside_cjk_breaks_off_whole) {
    const Layout wrapped = layout(L"bolt螺栓", kFont, 10.0, widthOf(L"bolt螺"));
    EXPECT_EQ(linesOf(wrapped), (std::vector<std::wstring>{L"bolt螺", L"栓"}));
}

TEST(Layout, lines_along_the_text_are_flags_of_runs) {
    const Layout one = layout(L"a\\Lb{\\Oc\\K}d\\le", kFont, 10.0, 0.0);
    ASSERT_EQ(one.lines.size(), 1U);
    const auto& runs = one.lines[0].runs;
    ASSERT_EQ(runs.size(), 5U);
    EXPECT_FALSE(runs[0].underline);
    EXPECT_TRUE(runs[1].underline);
    EXPECT_FALSE(runs[1].overline);
    EXPECT_TRUE(runs[2].underline && runs[2].overline);
    EXPECT_TRUE(runs[3].underline) << "lines set inside a group end with it, those before it go on";
    EXPECT_FALSE(runs[3].overline || runs[3].strike);
    EXPECT_FALSE(runs[4].underline);
    EXPECT_NEAR(runs[1].x, widthOf(L"a"), 1e-9);
    EXPECT_NEAR(runs[4].x + runs[4].width, one.width, 1e-9);
}

TEST(Layout, every_wrapped_line_keeps_to_the_width_or_is_one_word) {
    const std::wstring text = L"The host draws 螺栓 and nuts\\Pof stainless steel, M8 × 40, according to the list";
    for (double width = 5.0; width < 400.0; width += 3.7) {
        std::wstring joined;
        for (const Line& line : layout(text, kFont, 10.0, width).lines) {
            std::wstring content;
            for (const auto& run : line.runs) content += run.text;
            EXPECT_TRUE(line.width <= width * 1.000001 || content.find(L' ') == content.npos) << width;
            joined += content;
        }
        std::erase(joined, L' ');
        std::wstring expected = strip(text);
        std::erase_if(expected, [](wchar_t c) { return c == L' ' || c == L'\n'; });
        EXPECT_EQ(joined, expected) << width;
    }
}

TEST(WidestWord, is_what_no_wrapping_gets_below) {
    EXPECT_NEAR(widestWord(L"a hexagonal bolt", kFont, 10.0), widthOf(L"hexagonal"), 1e-9);
    EXPECT_NEAR(widestWord(L"螺栓螺母", kFont, 10.0), widthOf(L"螺"), 1e-9);
    EXPECT_EQ(widestWord(L"", kFont, 10.0), 0.0);
}

TEST(Layout, a_line_end_at_the_very_end_opens_no_line) {
    EXPECT_EQ(layout(L"a\n", kFont, 6.0, 0.0).lines.size(), 1U);
    EXPECT_EQ(layout(L"a\r\n", kFont, 6.0, 0.0).lines.size(), 1U);
    EXPECT_DOUBLE_EQ(layout(L"a\n", kFont, 6.0, 0.0).height, layout(L"a", kFont, 6.0, 0.0).height);
    EXPECT_EQ(layout(L"a\n\n", kFont, 6.0, 0.0).lines.size(), 2U);
    EXPECT_EQ(layout(L"a\nb", kFont, 6.0, 0.0).lines.size(), 2U);
    EXPECT_EQ(layout(L"\n", kFont, 6.0, 0.0).lines.size(), 1U);
    EXPECT_EQ(layout(L"a\\P", kFont, 6.0, 0.0).lines.size(), 2U) << "a paragraph code does open one";
}

TEST(Layout, a_megabyte_in_one_word_or_many_is_laid_out) {
    for (const wchar_t* pattern : {L"a", L"a ", L"中", L" ", L"\\P"}) {
        std::wstring text;
        while (text.size() < (1U << 20)) text += pattern;
        EXPECT_FALSE(layout(text, kFont, 2.5, 100.0).lines.empty());
    }
}

}  // namespace
