// The fonts behind measuring and drawing.

#include <gtest/gtest.h>

#include <QFontMetricsF>

#include "host/text/metrics.h"

using namespace kdhost::text;

namespace {

struct Script {
    const char* name;
    char32_t letter;
};

TEST(Metrics, each_script_of_a_parts_list_has_glyphs_in_the_fonts_of_the_packages) {
    constexpr Script scripts[] = {{"Latin", U'Ø'},  {"Greek", U'Ω'},    {"Cyrillic", U'Ж'}, {"Hebrew", U'ש'},
                                  {"Arabic", U'ع'}, {"Chinese", U'轴'}, {"Kana", U'テ'},    {"a diameter", U'⌀'}};
    for (const wchar_t* family : {L"", L"DejaVu Sans"}) {
        const QFontMetricsF metrics(qtFont(Font{family}, 64));
        for (const Script& script : scripts) EXPECT_TRUE(metrics.inFontUcs4(script.letter)) << script.name;
        EXPECT_FALSE(metrics.inFontUcs4(U'\U00012000')) << "the question means nothing where every letter is found";
    }
}

}  // namespace
