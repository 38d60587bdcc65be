// Loading the module, from its file to its registered commands. The peer is a plug-in of Qt's own, a reader of
// pictures, loaded by Qt. Each is loaded for the first time by a new process, since a plug-in of Qt's stays mapped for
// good.

#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <chrono>

#include "bench/peerratio.h"
#include "host/rx/commandstack.h"
#include "host/rx/dynamiclinker.h"
#include "host/win32/modules.h"
#include "tests/support/application.h"
#include "tests/support/places.h"

namespace {

/// The seconds that `load` takes in a copy of this process; negative when it fails.
template <class Load>
double secondsInCopy(Load load) {
    int ends[2];
    if (::pipe(ends) != 0) return -1.0;
    const pid_t copy = ::fork();
    if (copy == 0) {
        const auto begin = std::chrono::steady_clock::now();
        const bool loaded = load();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        const double seconds = loaded ? taken.count() : -1.0;
        ::_exit(::write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
    }
    ::close(ends[1]);
    double seconds = -1.0;
    const bool told = copy > 0 && ::read(ends[0], &seconds, sizeof seconds) == sizeof seconds;
    ::close(ends[0]);
    if (copy > 0) ::waitpid(copy, nullptr, 0);
    return told ? seconds : -1.0;
}

template <class Load>
void measureLoads(const char* name, Load load) {
    benchmark::RegisterBenchmark(name,
                                 [load](benchmark::State& state) {
                                     for (auto _ : state) {
                                         const double seconds = secondsInCopy(load);
                                         if (seconds < 0.0) state.SkipWithError("not loaded");
                                         state.SetIterationTime(std::max(seconds, 0.0));
                                     }
                                 })
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
}

bool loadPictureReader() {
    QPluginLoader plugin(QLibraryInfo::location(QLibraryInfo::PluginsPath) +
                         QStringLiteral("/imageformats/libqgif.so"));
    return plugin.load() && plugin.instance() != nullptr;
}

bool loadModule() {
    return kdhost::dynamicLinker().loadModule(L"TvxTable.tvx") && kdhost::findCommand(L"EDITTABLECELL");
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    const kdtest::HostApplication host;
    benchmark::Initialize(&argc, argv);
    // Names of figures in a time of their own end so.
    kdbench::WallClockReporter reporter("peer_plugin_of_Qt/manual_time", 3.0, 1.5);
    measureLoads("peer_plugin_of_Qt", loadPictureReader);
    measureLoads("load_the_module", loadModule);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
