// Previews from nothing to picture: the sample of a cell style, the sample of a range, a table in memory. The peer of
// each is a table widget of the same cells that is made and rendered to a picture of the same size.

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QTableWidget>

#include "bench/peerratio.h"
#include "bench/session.h"
#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/tablestyle.h"
#include "kd/ui/previewer.h"
#include "module/preview/tablecellfromtable.h"
#include "module/preview/tablecellfromtablestyle.h"

namespace {

constexpr QSize size(240, 160);
constexpr int sampleCells = 2;
constexpr int tableRows = 20;
constexpr int tableColumns = 8;

kdbench::Session& session() {
    static kdbench::Session instance;
    return instance;
}

KdDbObjectId table() {
    static const KdDbObjectId id = session().addTable(sampleCells, sampleCells);
    return id;
}

/// A picture of the drawable by a previewer of its own.
void preview(benchmark::State& state, KdDbDatabase* database, KdGiDrawable* drawable) {
    KdadGiDrawablePreviewer previewer(nullptr, database, {drawable}, KdGePoint2d(0.0, 0.0), KdGePoint2d(1.0, 1.0));
    QImage picture(size, QImage::Format_ARGB32);
    if (!previewer.getRenderBuffer(reinterpret_cast<char*>(picture.bits()), static_cast<unsigned>(size.width()),
                                   static_cast<unsigned>(size.height()))) {
        state.SkipWithError("no picture");
    }
    benchmark::DoNotOptimize(picture.constBits());
}

template <class Sample>
void previewSample(benchmark::State& state, Sample& sample) {
    if (!sample.CreateTableCell()) return state.SkipWithError("no sample");
    preview(state, sample.GetDatabase(), sample.GetTableCell());
}

void style_preview(benchmark::State& state) {
    const OpenObject<KdDbTable> opened(table(), KdDb::kForRead);
    const OpenObject<KdDbTableStyle> style(opened->tableStyle(), KdDb::kForRead);
    for (auto _ : state) {
        CVqTableCellFromTableStyle sample(style.get(), L"_DATA", false);
        previewSample(state, sample);
    }
}
BENCHMARK(style_preview)->Unit(benchmark::kMicrosecond);

void range_preview(benchmark::State& state) {
    const OpenObject<KdDbTable> opened(table(), KdDb::kForRead);
    for (auto _ : state) {
        CVqTableCellFromTable sample(opened.get(), CVqTableCellRange(0, 0, sampleCells - 1, sampleCells - 1));
        previewSample(state, sample);
    }
}
BENCHMARK(range_preview)->Unit(benchmark::kMicrosecond);

void table_preview(benchmark::State& state) {
    for (auto _ : state) {
        KdDbTable made;
        made.setTableStyle(OpenObject<KdDbTable>(table(), KdDb::kForRead)->tableStyle());
        made.setSize(tableRows, tableColumns);
        for (int row = 0; row < tableRows; ++row) {
            for (int column = 0; column < tableColumns; ++column) made.setTextString(row, column, L"123.45");
        }
        made.generateLayout();
        preview(state, nullptr, &made);
    }
}
BENCHMARK(table_preview)->Unit(benchmark::kMicrosecond);

/// What a change of size costs: the looks are kept.
void table_preview_at_another_size(benchmark::State& state) {
    const OpenObject<KdDbTable> opened(table(), KdDb::kForRead);
    KdadGiDrawablePreviewer previewer(nullptr, nullptr, {opened.get()}, KdGePoint2d(0.0, 0.0), KdGePoint2d(1.0, 1.0));
    int wider = 0;
    for (auto _ : state) {
        wider = 1 - wider;
        previewer.onSize(size.width() + wider, size.height());
        previewer.update();
    }
}
BENCHMARK(table_preview_at_another_size)->Unit(benchmark::kMicrosecond);

void pictureOfTableWidget(benchmark::State& state, int rows, int columns) {
    for (auto _ : state) {
        QTableWidget widget(rows, columns);
        widget.horizontalHeader()->hide();
        widget.verticalHeader()->hide();
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                widget.setItem(row, column, new QTableWidgetItem(QStringLiteral("123.45")));
            }
        }
        // All of the cells are seen.
        widget.horizontalHeader()->setMinimumSectionSize(1);
        widget.verticalHeader()->setMinimumSectionSize(1);
        widget.horizontalHeader()->setDefaultSectionSize(size.width() / columns);
        widget.verticalHeader()->setDefaultSectionSize(size.height() / rows);
        widget.resize(size);
        QImage picture(size, QImage::Format_ARGB32);
        widget.render(&picture);
        benchmark::DoNotOptimize(picture.constBits());
    }
}
BENCHMARK_CAPTURE(pictureOfTableWidget, sample, sampleCells, sampleCells)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(pictureOfTableWidget, table, tableRows, tableColumns)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    // A sample makes a drawing of its own first.
    kdbench::PeerRatioReporter reporter("pictureOfTableWidget/sample", 1.0, 0.5, sampleCells * sampleCells);
    reporter.setCells("style_preview", 1);
    for (const char* name : {"table_preview", "table_preview_at_another_size"}) {
        reporter.setCells(name, tableRows * tableColumns);
    }
    reporter.setGoal("table_preview", {"pictureOfTableWidget/table", 1.0, 0.5});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
