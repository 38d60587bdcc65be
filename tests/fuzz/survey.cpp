// Bearings from north and from south.

#include "module/valuetext/tableutils.h"
#include "tests/fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const bool north : {true, false}) {
        const auto scan = [&](const std::wstring& text, double& value) {
            double working = 0.0;
            return CVqTableUtils::ProcessSurveyNorthAndSouthToAngle(0, text, working, value, 0.0, 0, north ? 1 : 0);
        };
        const auto model = [&](const std::wstring& text) { return kdtest::modelSurvey(text, north); };
        const std::wstring text = (north ? L"N" : L"S") + kdtest::fuzzText(data, size);
        kdtest::requireModelled(text, kdtest::untouched, scan, model);
    }
    return 0;
}
