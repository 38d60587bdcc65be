// The context menus of tables from the right click to the shown menu. The peer is a plain menu of the same shape, with
// as many actions and sub-menus, built by hand and shown.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <memory>

#include "bench/peerratio.h"
#include "bench/session.h"
#include "host/win32/modules.h"
#include "module/core/resources.h"
#include "module/edit/contextmenu/tableuicontext.h"
#include "tests/support/places.h"

namespace {

std::unique_ptr<kdbench::Session> session;
std::unique_ptr<CVqTableUIContext> context;
KdDbObjectId table;

QMenu* askedMenu() {
    KdArray<KdDbObjectId> ids;
    ids.append(table);
    return context->getMenuContext(KdDbTable::desc(), ids);
}

/// Until it has been painted.
void showOnce(QMenu& menu) {
    menu.popup(QPoint(20, 20));
    QApplication::processEvents();
    menu.hide();
}

void buildLike(const QMenu& model, QMenu& menu) {
    for (const QAction* item : model.actions()) {
        if (item->isSeparator()) {
            menu.addSeparator();
        } else if (item->menu() != nullptr) {
            buildLike(*item->menu(), *menu.addMenu(item->text()));
        } else {
            menu.addAction(item->text());
        }
    }
}

void plainMenu(benchmark::State& state) {
    const QMenu* model = askedMenu();
    for (auto _ : state) {
        QMenu menu;
        buildLike(*model, menu);
        showOnce(menu);
    }
}
BENCHMARK(plainMenu)->Unit(benchmark::kMicrosecond);

void contextMenuOfCells(benchmark::State& state) {
    for (auto _ : state) showOnce(*askedMenu());
}
BENCHMARK(contextMenuOfCells)->Unit(benchmark::kMicrosecond);

/// Without the showing, which both have in common.
void contextMenuOfCellsUnshown(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(askedMenu());
}
BENCHMARK(contextMenuOfCellsUnshown)->Unit(benchmark::kMicrosecond);

void plainMenuUnshown(benchmark::State& state) {
    const QMenu* model = askedMenu();
    for (auto _ : state) {
        QMenu menu;
        buildLike(*model, menu);
    }
}
BENCHMARK(plainMenuUnshown)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    session = std::make_unique<kdbench::Session>();
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    table = session->addTable(20, 5);
    QCursor::setPos(0, 0);
    context = std::make_unique<CVqTableUIContext>();
    benchmark::Initialize(&argc, argv);
    kdbench::PeerRatioReporter reporter("plainMenu", 2.0, 1.5);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    context.reset();
    session.reset();
    FreeLibrary(hLibModule);
    return 0;
}
