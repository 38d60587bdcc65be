// Rows and columns inserted into a table of 10,000 by 8 cells and deleted from it, each with its step of undo kept. The
// peer is an item model of as many items, which takes and loses a row of items.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardItemModel>
#include <memory>

#include "bench/peerratio.h"
#include "bench/session.h"
#include "host/win32/modules.h"
#include "module/core/resources.h"
#include "tests/support/places.h"

namespace {

using Common = CVqTableCommon;

constexpr int columns = 8;
constexpr int rows = 10'000;

/// As many rows come or go in one run of a figure.
constexpr int rowsAtATime = 32;

std::unique_ptr<kdbench::Session> session;

std::unique_ptr<QStandardItemModel> itemModel() {
    auto model = std::make_unique<QStandardItemModel>(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            model->setItem(row, column, new QStandardItem(QStringLiteral("123.45")));
        }
    }
    return model;
}

QList<QStandardItem*> itemRow() {
    QList<QStandardItem*> items;
    for (int column = 0; column < columns; ++column) items.append(new QStandardItem(QStringLiteral("123.45")));
    return items;
}

void insertItemRow(benchmark::State& state) {
    const auto model = itemModel();
    for (auto _ : state) {
        for (int row = 0; row < rowsAtATime; ++row) model->insertRow(rows / 2, itemRow());
        state.PauseTiming();
        model->removeRows(rows / 2, rowsAtATime);
        state.ResumeTiming();
    }
}

void deleteItemRow(benchmark::State& state) {
    const auto model = itemModel();
    for (auto _ : state) {
        for (int row = 0; row < rowsAtATime; ++row) model->removeRow(rows / 2);
        state.PauseTiming();
        for (int row = 0; row < rowsAtATime; ++row) model->insertRow(rows / 2, itemRow());
        state.ResumeTiming();
    }
}

void insertItemColumn(benchmark::State& state) {
    const auto model = itemModel();
    for (auto _ : state) {
        QList<QStandardItem*> items;
        for (int row = 0; row < rows; ++row) items.append(new QStandardItem(QStringLiteral("123.45")));
        model->insertColumn(columns / 2, items);
        state.PauseTiming();
        model->removeColumn(columns / 2);
        state.ResumeTiming();
    }
}

void deleteItemColumn(benchmark::State& state) {
    const auto model = itemModel();
    for (auto _ : state) {
        model->removeColumn(columns / 2);
        state.PauseTiming();
        model->insertColumn(columns / 2);
        for (int row = 0; row < rows; ++row) {
            model->setItem(row, columns / 2, new QStandardItem(QStringLiteral("123.45")));
        }
        state.ResumeTiming();
    }
}

void selectMiddleCell(KdDbObjectId id) {
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    const int row = table->numRows() / 2;
    const int column = table->numColumns() / 2;
    table->setSubSelection({row, column, row, column});
}

struct StructuralEdit {
    const char* name;
    kdbench::Edit edit;
    const char* peer;
    int edits;
};

template <int (*operation)(KdDbObjectId)>
int run(KdDbObjectId table, bool) {
    return operation(table);
}

constexpr StructuralEdit edits[] = {
    {"InsertRowByAbove", run<Common::InsertRowByAbove>, "insertItemRow", rowsAtATime},
    {"InsertRowByBelow", run<Common::InsertRowByBelow>, "insertItemRow", rowsAtATime},
    {"DeleteRows", run<Common::DeleteRows>, "deleteItemRow", rowsAtATime},
    {"InsertColumnByLeft", run<Common::InsertColumnByLeft>, "insertItemColumn", 1},
    {"InsertColumnByRight", run<Common::InsertColumnByRight>, "insertItemColumn", 1},
    {"DeleteColumns", run<Common::DeleteColumns>, "deleteItemColumn", 1},
};

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    benchmark::Initialize(&argc, argv);
    session = std::make_unique<kdbench::Session>();
    kdbench::PeerRatioReporter reporter("insertItemRow", 0.5, 0.2, rows * columns);
    constexpr auto unit = benchmark::kMicrosecond;
    benchmark::RegisterBenchmark("insertItemRow", insertItemRow)->Unit(unit);
    benchmark::RegisterBenchmark("deleteItemRow", deleteItemRow)->Unit(unit);
    benchmark::RegisterBenchmark("insertItemColumn", insertItemColumn)->Unit(unit);
    benchmark::RegisterBenchmark("deleteItemColumn", deleteItemColumn)->Unit(unit);
    const KdDbObjectId table = session->addTable(rows, columns);
    const KdDbObjectId tenTimes = session->addTable(10 * rows, columns);
    for (const StructuralEdit& edit : edits) {
        kdbench::MeasuredEdit measured{edit.name, edit.edit, unit, edit.edits, selectMiddleCell};
        kdbench::measureEdit(*session, table, measured);
        measured.name += kdbench::tenTimesTheCells;
        kdbench::measureEdit(*session, tenTimes, measured);
        reporter.setGoal(edit.name, {edit.peer, 0.5, 0.2});
        reporter.setGoal(std::string("undo_of_") + edit.name, {edit.peer, 0.5, 0.2});
    }
    benchmark::RunSpecifiedBenchmarks(&reporter);
    session.reset();
    FreeLibrary(hLibModule);
    return 0;
}
