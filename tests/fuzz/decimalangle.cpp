// Decimal degrees, with the rule of their mark.

#include "module/valuetext/tableutils.h"
#include "tests/fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto scan = [](const std::wstring& text, double& value) {
        return CVqTableUtils::ProcessDecimalToAngle(text, CVqTableUtils::DegreeSign(), value);
    };
    kdtest::requireModelled(kdtest::fuzzText(data, size), kdtest::untouched, scan, kdtest::modelDecimalAngle);
    return 0;
}
