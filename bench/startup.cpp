// From the start of the program to its first prompt, and to the end that it is asked for there. The peer is an empty
// program with one window, which shows it and ends.

#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>
#include <string>

#include "bench/peerratio.h"
#include "tests/support/places.h"

namespace {

std::string script;

void runToEnd(benchmark::State& state, const std::string& command) {
    for (auto _ : state) {
        if (std::system((command + " >/dev/null").c_str()) != 0) state.SkipWithError("the program failed");
    }
}

void emptyWindow(benchmark::State& state) {
    runToEnd(state, kdtest::builtFile("bin/emptywindow"));
}
BENCHMARK(emptyWindow)->UseRealTime()->Unit(benchmark::kMillisecond);

void startToFirstPrompt(benchmark::State& state) {
    runToEnd(state, kdtest::builtFile("bin/kdhost --script ") + script);
}
BENCHMARK(startToFirstPrompt)->UseRealTime()->Unit(benchmark::kMillisecond);

void startToFirstPromptHeadless(benchmark::State& state) {
    runToEnd(state, kdtest::builtFile("bin/kdhost --headless --script ") + script);
}
BENCHMARK(startToFirstPromptHeadless)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    script = folder.filePath(QStringLiteral("quit.kds")).toStdString();
    std::ofstream(script) << "QUIT\n";
    benchmark::Initialize(&argc, argv);
    // Names of figures in wall-clock time end so.
    kdbench::WallClockReporter reporter("emptyWindow/real_time", 1.25, 1.1);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
