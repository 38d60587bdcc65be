// Angles in any notation.

#include "kd/db/database.h"
#include "module/valuetext/tableutils.h"
#include "tests/fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static KdDbDatabase database(false, true);
    const auto scan = [](const std::wstring& text, double& value) {
        return CVqTableUtils::StringToAngleConvert(&database, text, value);
    };
    kdtest::requireModelled(kdtest::fuzzText(data, size), kdtest::untouched, scan, kdtest::modelAngle);
    return 0;
}
