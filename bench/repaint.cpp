// Repainting of the drawing view with a table of 10,000 rows and 8 columns: at a readable size, in the middle, and
// shown whole. The peer is a table widget of as many rows that paints as large a part of itself.

#include <QApplication>
#include <QHeaderView>
#include <QPixmap>
#include <QTableWidget>

#include "bench/peerratio.h"
#include "bench/session.h"
#include "host/app/window/drawingview.h"
#include "host/ed/editor.h"

namespace {

constexpr int rows = 10'000;
constexpr int columns = 8;
constexpr QSize size(1280, 800);

/// Rows of the middle that are seen at once.
constexpr int readableRows = 40;

kdhost::DrawingView& shownView() {
    static kdbench::Session session;
    static const KdDbObjectId table = session.addTable(rows, columns);
    static auto* const view = [] {
        auto* made = new kdhost::DrawingView;
        made->resize(size);
        made->show();
        OpenObject<KdDbTable>(table, KdDb::kForRead)->clearSubSelection();
        made->showActive();
        QApplication::processEvents();
        return made;
    }();
    return *view;
}

/// Looks at so many rows around the middle.
void lookAt(kdhost::DrawingView& view, int rowCount) {
    view.zoomExtents();
    kdhost::draw::View& shown = kdhost::currentEditor()->view().shown();
    shown.zoom(static_cast<double>(rows) / rowCount, {0.5 * size.width(), 0.5 * size.height()});
    view.redraw();
}

void repaint(benchmark::State& state) {
    kdhost::DrawingView& view = shownView();
    lookAt(view, static_cast<int>(state.range(0)));
    QPixmap picture(size);
    for (auto _ : state) {
        view.redraw();
        view.render(&picture);
    }
}
BENCHMARK(repaint)->Arg(readableRows)->Arg(400)->Arg(rows)->Unit(benchmark::kMillisecond);

/// A move of the mouse: the drawing has not changed.
void repaintOver(benchmark::State& state) {
    kdhost::DrawingView& view = shownView();
    lookAt(view, readableRows);
    QPixmap picture(size);
    view.render(&picture);
    for (auto _ : state) view.render(&picture);
}
BENCHMARK(repaintOver)->Unit(benchmark::kMillisecond);

void paintOfTableWidget(benchmark::State& state) {
    QTableWidget table(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            table.setItem(row, column, new QTableWidgetItem(QStringLiteral("123.45")));
        }
    }
    table.verticalHeader()->setDefaultSectionSize(size.height() / readableRows);
    table.resize(size);
    table.show();
    table.scrollToItem(table.item(rows / 2, 0));
    QApplication::processEvents();
    QPixmap picture(size);
    for (auto _ : state) table.render(&picture);
}
BENCHMARK(paintOfTableWidget)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    kdbench::PeerRatioReporter reporter("paintOfTableWidget", 2.0, 1.0, rows * columns);
    for (const int shown : {readableRows, 400}) reporter.setCells("repaint/" + std::to_string(shown), shown * columns);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
