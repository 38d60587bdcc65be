// Copying 10,000 cells to the clipboard and pasting them onto as many, each with its step of undo. The peer is an item
// model of as many items that gives them out for the clipboard and takes them from it.
//
// Both carry more than the peer: a copy saves a whole drawing and a paste opens one, so that cells keep all that they
// are, in every program.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QMimeData>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <memory>

#include "bench/growth.h"
#include "bench/session.h"
#include "host/win32/modules.h"
#include "module/core/resources.h"
#include "tests/support/places.h"

namespace {

using Common = CVqTableCommon;

constexpr int columns = 10;
constexpr int rows = 1000;

std::unique_ptr<QTemporaryDir> folder;

void emptyFolder() {
    QDir files(folder->path());
    for (const QString& name : files.entryList(QDir::Files)) files.remove(name);
}

std::unique_ptr<QStandardItemModel> itemModel() {
    auto model = std::make_unique<QStandardItemModel>(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            model->setItem(row, column, new QStandardItem(QStringLiteral("123.45")));
        }
    }
    return model;
}

QModelIndexList allIndexes(const QStandardItemModel& model) {
    QModelIndexList all;
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column) all.append(model.index(row, column));
    }
    return all;
}

void copyItems(benchmark::State& state) {
    const auto model = itemModel();
    const QModelIndexList all = allIndexes(*model);
    for (auto _ : state) {
        const std::unique_ptr<QMimeData> data(model->mimeData(all));
        if (data->formats().isEmpty()) state.SkipWithError("nothing copied");
    }
}

void pasteItems(benchmark::State& state) {
    const auto model = itemModel();
    const std::unique_ptr<QMimeData> data(model->mimeData(allIndexes(*model)));
    for (auto _ : state) {
        state.PauseTiming();
        QStandardItemModel target;
        state.ResumeTiming();
        if (!target.dropMimeData(data.get(), Qt::CopyAction, 0, 0, {})) state.SkipWithError("nothing pasted");
        state.PauseTiming();
        if (target.rowCount() != rows) state.SkipWithError("not all pasted");
        target.clear();
        state.ResumeTiming();
    }
}

/// Two tables of so many rows, one copied from and one pasted to; all their cells are selected.
struct Tables {
    explicit Tables(int rowCount)
        : source(session.addTable(rowCount, columns)), target(session.addTable(rowCount, columns)) {}

    /// The operation on the table, and then its step of undo taken back and its file removed, which doesn't count.
    void run(benchmark::State& state, int (*operation)(KdDbObjectId), KdDbObjectId table) {
        const std::size_t steps = session.steps();
        for (auto _ : state) {
            if (operation(table) == 0) state.SkipWithError("refused");
            state.PauseTiming();
            session.undoAndForget(static_cast<int>(session.steps() - steps));
            if (operation == Common::CopyTableCells) emptyFolder();
            state.ResumeTiming();
        }
    }

    kdbench::Session session;
    KdDbObjectId source;
    KdDbObjectId target;
};

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    folder = std::make_unique<QTemporaryDir>();
    qputenv("TMPDIR", QFile::encodeName(folder->path()));
    const QApplication application(argc, argv);
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    benchmark::Initialize(&argc, argv);
    kdbench::PeerRatioReporter reporter("copyItems", 10.0, 5.0, rows * columns);
    constexpr auto unit = benchmark::kMillisecond;
    benchmark::RegisterBenchmark("copyItems", copyItems)->Unit(unit);
    benchmark::RegisterBenchmark("pasteItems", pasteItems)->Unit(unit);
    reporter.setGoal("PasteTableCells", {"pasteItems", 10.0, 5.0});
    kdbench::measureGrowth<Tables>(reporter, "CopyTableCells", rows, unit, [](Tables& tables, benchmark::State& state) {
        tables.run(state, Common::CopyTableCells, tables.source);
    });
    kdbench::measureGrowth<Tables>(reporter, "PasteTableCells", rows, unit,
                                   [](Tables& tables, benchmark::State& state) {
                                       if (Common::CopyTableCells(tables.source) == 0) state.SkipWithError("refused");
                                       tables.run(state, Common::PasteTableCells, tables.target);
                                       emptyFolder();
                                   });
    benchmark::RunSpecifiedBenchmarks(&reporter);
    FreeLibrary(hLibModule);
    folder.reset();
    return 0;
}
