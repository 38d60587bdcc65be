// Degrees, minutes and seconds.

#include "module/valuetext/tableutils.h"
#include "tests/fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kdtest::requireModelled(kdtest::fuzzText(data, size), kdtest::untouched, CVqTableUtils::DecimaldegreesToRadian,
                            kdtest::modelDegrees);
    return 0;
}
