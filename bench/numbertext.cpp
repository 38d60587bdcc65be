// Number text: each scanner of lengths beside strtod on the same thousand short texts, in one run.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "bench/peerratio.h"
#include "module/valuetext/tableutils.h"

namespace {

/// Texts as dialog fields hold them: sizes, spacings, scales.
const std::vector<std::string>& texts() {
    static const std::vector<std::string> made = [] {
        std::vector<std::string> all;
        std::mt19937 random(1);
        for (int number = 0; number < 1000; ++number) {
            std::string text = std::to_string(random() % (random() % 2 == 0 ? 10 : 1000));
            const unsigned decimals = random() % 4;
            if (decimals > 0) text += '.';
            for (unsigned place = 0; place < decimals; ++place) text += static_cast<char>('0' + random() % 10);
            all.push_back(text);
        }
        return all;
    }();
    return made;
}

/// The same texts, wide.
template <class Text>
std::vector<Text> wideTexts() {
    std::vector<Text> wide;
    for (const std::string& text : texts()) wide.emplace_back(std::wstring(text.begin(), text.end()));
    return wide;
}

void cLibrary(benchmark::State& state) {
    for (auto _ : state) {
        for (const std::string& text : texts()) benchmark::DoNotOptimize(std::strtod(text.c_str(), nullptr));
    }
}

template <int (*scanner)(wchar_t*, double*)>
void scan(benchmark::State& state) {
    std::vector<std::wstring> wide = wideTexts<std::wstring>();
    for (auto _ : state) {
        for (std::wstring& text : wide) {
            double value = 0.0;
            benchmark::DoNotOptimize(scanner(text.data(), &value));
            benchmark::DoNotOptimize(value);
        }
    }
}

/// A whole dialog field: copy, white space, sign, and the choice of the scanner.
void readField(benchmark::State& state) {
    const auto wide = wideTexts<CStdStr<wchar_t>>();
    for (auto _ : state) {
        for (const CStdStr<wchar_t>& text : wide) {
            double value = 0.0;
            benchmark::DoNotOptimize(CVqTableUtils::StringToDoubleConvert(nullptr, text, value));
            benchmark::DoNotOptimize(value);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const auto add = [](const char* name, void (*run)(benchmark::State&)) {
        benchmark::RegisterBenchmark(name, run)->Repetitions(5);
    };
    add("strtod", cLibrary);
    add("ParseAsDecimal", scan<ParseAsDecimal>);
    add("ParseAsArchitectural", scan<ParseAsArchitectural>);
    add("StringToDoubleConvert", readField);
    kdbench::PeerRatioReporter reporter("strtod", 0.35, 0.28);
    // More than the reading of a number.
    reporter.setGoal("StringToDoubleConvert", {"strtod", 0.0, 0.0});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
