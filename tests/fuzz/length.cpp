// A dialog field's length: sign, white space, and the choice of the scanner.

#include "module/valuetext/tableutils.h"
#include "tests/fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = kdtest::fuzzText(data, size);
    const auto scan = [](const std::wstring& field, double& value) {
        return CVqTableUtils::StringToDoubleConvert(nullptr, field, value);
    };
    kdtest::requireModelled(text, text.empty() ? kdtest::untouched : 0.0, scan, kdtest::modelLength);
    return 0;
}
