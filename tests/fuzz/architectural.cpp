// Feet, inches and fractions.

#include "module/valuetext/numberparse.h"
#include "tests/fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto scan = [](std::wstring text, double& value) { return ParseAsArchitectural(text.data(), &value); };
    kdtest::requireModelled(kdtest::fuzzText(data, size), 0.0, scan, kdtest::modelArchitectural);
    return 0;
}
