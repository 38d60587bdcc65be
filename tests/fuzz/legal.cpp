// The tests of a field's text: what one accepts it accepts again, unchanged.

#include "module/valuetext/tableutils.h"
#include "tests/fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = kdtest::fuzzText(data, size);
    for (const auto test :
         {CVqTableUtils::IsLegalNumber, CVqTableUtils::IsLegalInteger, CVqTableUtils::IsLegalScientificNotation}) {
        CStdStr<wchar_t> once = text;
        if (!test(once)) continue;
        CStdStr<wchar_t> twice = once;
        kdtest::require(test(twice) && twice == once, "not accepted again", text);
    }
    return 0;
}
