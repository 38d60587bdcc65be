// What a step of undo costs: to undo it, to redo it, and to keep it. An inserted row in a table of 10,000 by 8 cells,
// and a property of 100,000 cells. The peers are item models that do the same without keeping anything.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QApplication>
#include <QStandardItemModel>
#include <memory>

#include "bench/peerratio.h"
#include "host/db/undo.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "tests/support/application.h"

namespace {

constexpr int columns = 8;
constexpr int rowsForRows = 10'000;
constexpr int rowsForCells = 12'500;

/// A drawing with one table, and the steps that are measured in it.
class Drawing {
public:
    explicit Drawing(int rows) {
        auto table = std::make_unique<KdDbTable>();
        table->setTableStyle(m_host.database().tablestyle());
        table->setSize(rows, columns);
        table->setCellStyle(-1, -1, L"_DATA");
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) table->setTextString(row, column, L"123.45");
        }
        table->generateLayout();
        KdDbObject* space = nullptr;
        kddbOpenObject(space, m_host.database().modelSpaceId(), KdDb::kForWrite);
        static_cast<KdDbBlockTableRecord*>(space)->appendKdDbEntity(m_table, table.get());
        table.release()->close();
        space->close();
    }

    kdhost::UndoHistory& history() { return *kdhost::undoHistory(m_host.database()); }
    template <class Change>
    void step(Change change) {
        const kdhost::UndoCommandScope command(&m_host.database(), L"STEP");
        KdDbObject* table = nullptr;
        kddbOpenObject(table, m_table, KdDb::kForWrite);
        change(static_cast<KdDbTable&>(*table));
        table->close();
    }

private:
    kdtest::HostApplication m_host;
    KdDbObjectId m_table;
};

using Change = void (*)(KdDbTable& table);

void insertRow(KdDbTable& table) {
    table.insertRowsAndInherit(table.numRows() / 2, table.numRows() / 2, 1);
}

void alignAll(KdDbTable& table) {
    table.setAlignment(-1, -1, KdDb::kBottomRight);
}

double bytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// The direction that is measured, and the one that leads back.
using Take = Kdad::ErrorStatus (kdhost::UndoHistory::*)();

void measure(benchmark::State& state, int rows, Change change, Take measured, Take back) {
    Drawing drawing(rows);
    const double before = bytesInUse();
    drawing.step(change);
    const double bytes = bytesInUse() - before;
    if (measured == &kdhost::UndoHistory::redo) drawing.history().undo();
    for (auto _ : state) {
        if ((drawing.history().*measured)() != Kdad::eOk) state.SkipWithError("refused");
        state.PauseTiming();
        if ((drawing.history().*back)() != Kdad::eOk) state.SkipWithError("refused");
        state.ResumeTiming();
    }
    state.counters["bytes"] = bytes;
    state.counters["bytes_per_cell"] = bytes / (double(rows) * columns);
}

void registerStep(const std::string& what, int rows, Change change) {
    constexpr Take undo = &kdhost::UndoHistory::undo;
    constexpr Take redo = &kdhost::UndoHistory::redo;
    benchmark::RegisterBenchmark(("undo_" + what).c_str(), [=](benchmark::State& state) {
        measure(state, rows, change, undo, redo);
    })->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(("redo_" + what).c_str(), [=](benchmark::State& state) {
        measure(state, rows, change, redo, undo);
    })->Unit(benchmark::kMicrosecond);
}

std::unique_ptr<QStandardItemModel> itemModel(int rows) {
    auto model = std::make_unique<QStandardItemModel>(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            model->setItem(row, column, new QStandardItem(QStringLiteral("123.45")));
        }
    }
    return model;
}

void removeItemRow(benchmark::State& state) {
    const auto model = itemModel(rowsForRows);
    for (auto _ : state) {
        model->removeRow(rowsForRows / 2);
        state.PauseTiming();
        QList<QStandardItem*> items;
        for (int column = 0; column < columns; ++column) items.append(new QStandardItem(QStringLiteral("123.45")));
        model->insertRow(rowsForRows / 2, items);
        state.ResumeTiming();
    }
}

void itemAlignments(benchmark::State& state) {
    const auto model = itemModel(rowsForCells);
    int alignment = Qt::AlignLeft;
    for (auto _ : state) {
        alignment = alignment == Qt::AlignLeft ? Qt::AlignRight : Qt::AlignLeft;
        for (int row = 0; row < rowsForCells; ++row) {
            for (int column = 0; column < columns; ++column) {
                model->setData(model->index(row, column), alignment, Qt::TextAlignmentRole);
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("removeItemRow", removeItemRow)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("itemAlignments", itemAlignments)->Unit(benchmark::kMicrosecond);
    kdbench::PeerRatioReporter reporter("removeItemRow", 0.5, 0.2, rowsForRows * columns);
    registerStep("inserted_row", rowsForRows, insertRow);
    registerStep("inserted_row" + kdbench::tenTimesTheCells, 10 * rowsForRows, insertRow);
    registerStep("alignment", rowsForCells, alignAll);
    registerStep("alignment" + kdbench::tenTimesTheCells, 10 * rowsForCells, alignAll);
    for (const char* name : {"undo_alignment", "redo_alignment"}) {
        reporter.setGoal(name, {"itemAlignments", 0.35, 0.15});
        reporter.setCells(name, rowsForCells * columns);
    }
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
