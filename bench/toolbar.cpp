// How fast the toolbar follows its table: the state alone beside the enabling of as many bare actions, and the whole
// update of 100,000 selected cells beside one painting of the toolbar: on a display, as people see it, and, without a
// goal, offscreen, into a picture.

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <vector>

#include "bench/peerratio.h"
#include "bench/session.h"
#include "host/win32/modules.h"
#include "module/core/resources.h"
#include "module/edit/toolbar/tableditminiframewnd.h"
#include "tests/support/places.h"
#include "tests/support/xdisplay.h"
#include "tvx/exports.h"

namespace {

constexpr int kRows = 12'500;
constexpr int kColumns = 8;
constexpr KdCellRange kWhole{0, 0, kRows - 1, kColumns - 1};

kdbench::Session& session() {
    static kdbench::Session instance;
    return instance;
}

KdDbObjectId largeTable() {
    static const KdDbObjectId id = session().addTable(kRows, kColumns);
    return id;
}
KdDbObjectId tenTimesAsLarge() {
    static const KdDbObjectId id = session().addTable(10 * kRows, kColumns);
    return id;
}

CVqTableditMiniFrameWnd& toolbarOver(KdDbObjectId table) {
    showTableToolBar(table, true);
    return *GetTableditMiniFrameWnd();
}

void select(KdDbObjectId table, const KdCellRange& cells) {
    const OpenObject<KdDbTable> open(table, KdDb::kForRead);
    open->setSubSelection(cells);
}

/// The controls go between what a single cell and what a whole table allows; the table is small, so that looking at
/// its cells takes no time.
void BM_state_of_the_buttons(benchmark::State& state) {
    static const KdDbObjectId small = session().addTable(2, 2);
    toolbarOver(small);
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        select(small, odd ? KdCellRange{0, 0, 0, 0} : KdCellRange{0, 0, 1, 1});
    }
}

void BM_peer_enabling_actions(benchmark::State& state) {
    std::vector<std::unique_ptr<QAction>> actions;
    constexpr int kButtons = 15;
    actions.reserve(kButtons);
    for (int i = 0; i < kButtons; ++i) actions.push_back(std::make_unique<QAction>(QStringLiteral("Action")));
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        for (const auto& action : actions) action->setEnabled(odd);
    }
}

void measureUpdate(benchmark::State& state, KdDbObjectId table) {
    CVqTableditMiniFrameWnd& toolbar = toolbarOver(table);
    for (auto _ : state) toolbar.UpdateToolBar();
}
void BM_whole_update(benchmark::State& state) {
    measureUpdate(state, largeTable());
}
void BM_whole_update_on_ten_times_the_cells(benchmark::State& state) {
    measureUpdate(state, tenTimesAsLarge());
}

void BM_peer_painting_the_toolbar(benchmark::State& state) {
    CVqTableditMiniFrameWnd& toolbar = toolbarOver(largeTable());
    QApplication::processEvents();
    if (!toolbar.isVisible()) state.SkipWithError("no toolbar to see");
    for (auto _ : state) toolbar.repaint();
}

void BM_peer_painting_offscreen(benchmark::State& state) {
    CVqTableditMiniFrameWnd& toolbar = toolbarOver(largeTable());
    QImage image(toolbar.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) toolbar.render(&image);
}

}  // namespace

int main(int argc, char** argv) {
    const kdtest::XDisplay display;
    if (!display.runs()) return 1;
    qputenv("DISPLAY", display.name().toUtf8());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    select(largeTable(), kWhole);

    benchmark::RegisterBenchmark("peer_enabling_actions", BM_peer_enabling_actions)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("state_of_the_buttons", BM_state_of_the_buttons)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("peer_painting_the_toolbar", BM_peer_painting_the_toolbar)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("peer_painting_offscreen", BM_peer_painting_offscreen)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("whole_update", BM_whole_update)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("whole_update_offscreen", BM_whole_update)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(("whole_update" + kdbench::tenTimesTheCells).c_str(),
                                 BM_whole_update_on_ten_times_the_cells)
        ->Unit(benchmark::kMicrosecond);

    kdbench::PeerRatioReporter reporter("peer_enabling_actions", 2.0, 1.2, kRows * kColumns);
    reporter.setGoal("whole_update", {"peer_painting_the_toolbar", 10.0, 3.0});
    reporter.setGoal("whole_update_offscreen", {"peer_painting_offscreen"});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    showTableToolBar(KdDbObjectId::kNull, false);
    return 0;
}
