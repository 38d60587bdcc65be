// From the start of the program to its first prompt, and to the end that it is asked for there. The peer is an empty
// program with one window, which shows it and ends. On a display, as people start the program; offscreen, where no
// server takes its time, without a goal; and headless.

#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>
#include <string>

#include "bench/peerratio.h"
#include "tests/support/places.h"
#include "tests/support/xdisplay.h"

namespace {

constexpr const char* kOffscreen = "QT_QPA_PLATFORM=offscreen";

void runToEnd(benchmark::State& state, const std::string& command) {
    for (auto _ : state) {
        if (std::system((command + " >/dev/null").c_str()) != 0) state.SkipWithError("the program failed");
    }
}

void measure(const char* name, const std::string& platform, const std::string& program) {
    const std::string command = platform + ' ' + kdtest::builtFile("bin/") + program;
    benchmark::RegisterBenchmark(name, runToEnd, command)->UseRealTime()->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    const std::string script = folder.filePath(QStringLiteral("quit.kds")).toStdString();
    std::ofstream(script) << "QUIT\n";
    const kdtest::XDisplay display;
    if (!display.runs()) return 1;
    const std::string onDisplay = "QT_QPA_PLATFORM=xcb DISPLAY=" + display.name().toStdString();
    benchmark::Initialize(&argc, argv);
    measure("emptyWindow", onDisplay, "emptywindow");
    measure("startToFirstPrompt", onDisplay, "kdhost --script " + script);
    measure("emptyWindowOffscreen", kOffscreen, "emptywindow");
    measure("startToFirstPromptOffscreen", kOffscreen, "kdhost --script " + script);
    measure("startToFirstPromptHeadless", kOffscreen, "kdhost --headless --script " + script);
    // Names of figures in wall-clock time end so.
    kdbench::WallClockReporter reporter("emptyWindow/real_time", 1.25, 1.1);
    reporter.setGoal("startToFirstPromptOffscreen/real_time", {"emptyWindowOffscreen/real_time"});
    reporter.setGoal("startToFirstPromptHeadless/real_time", {"emptyWindowOffscreen/real_time", 1.25, 1.1});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
