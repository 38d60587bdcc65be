// Texts with formatting codes: taken apart, stripped, written again and laid out.

#include <algorithm>
#include <cmath>

#include "host/text/format.h"
#include "host/text/layout.h"
#include "tests/fuzz/target.h"

using namespace kdhost::text;

namespace {

/// As stripping reads it: hard blanks as blanks.
std::wstring read(std::wstring text) {
    std::replace(text.begin(), text.end(), L'\u00A0', L' ');
    return text;
}

void requireSound(const Layout& layout, const std::wstring& text) {
    kdtest::require(std::isfinite(layout.width) && std::isfinite(layout.height), "no finite size", text);
    kdtest::require(layout.width >= 0.0 || text.find(L"\\p") != text.npos, "a negative width without indents", text);
    kdtest::require(text.empty() == layout.lines.empty(), "lines of nothing, or none of a text", text);
    for (const Line& line : layout.lines) {
        for (const Run& run : line.runs) {
            kdtest::require(std::isfinite(run.x) && std::isfinite(run.y) && std::isfinite(run.width), "a run nowhere",
                            text);
            kdtest::require(!run.text.empty() && run.height > 0.0, "an empty run", text);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = kdtest::fuzzText(data, size);
    Format base;
    base.font.family = L"DejaVu Sans";
    base.height = 2.5;

    const std::wstring stripped = strip(text);
    kdtest::require(stripped.size() <= text.size(), "longer without its codes", text);
    kdtest::require(!isPlain(text) || stripped == text, "a plain text reads otherwise", text);
    kdtest::require(strip(escaped(stripped)) == read(stripped), "not itself when escaped", text);

    const std::vector<Piece> all = pieces(text, base);
    const std::wstring written = write(all, base);
    kdtest::require(pieces(written, base) == all, "other pieces when written again", text);
    kdtest::require(read(strip(written)) == read(stripped), "reads otherwise when written again", text);
    kdtest::require(write(pieces(written, base), base) == written, "written otherwise the second time", text);

    requireSound(layout(text, base.font, base.height, 0.0), text);
    requireSound(layout(text, base.font, base.height, 12.0), text);
    return 0;
}
