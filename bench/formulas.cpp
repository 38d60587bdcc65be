// Recomputation of a table of 10,000 formulas after one change: where one of them reads the changed cell, where all
// do, in a chain through all of them, and what a row inserted before all of them costs. The peer is an item model in
// which as many items get another text.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardItemModel>
#include <memory>
#include <string>

#include "bench/growth.h"
#include "bench/peerratio.h"
#include "host/db/access.h"
#include "host/db/opening.h"
#include "host/db/undo.h"
#include "kd/db/database.h"
#include "kd/db/field.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"

namespace {

constexpr int rows = 10'000;
constexpr int formulaColumn = 1;

/// The formula of a row.
using Author = std::wstring (*)(int row);

/// Numbers in the first column, a formula in each row of the second.
class Table {
public:
    Table(int rowCount, Author author) {
        auto made = std::make_unique<KdDbTable>();
        made->setDatabaseDefaults(&m_database);
        made->setTableStyle(m_database.tablestyle());
        made->setSize(rowCount, 2);
        KdDbBlockTableRecord* space = nullptr;
        kdhost::openAs(space, m_database.modelSpaceId(), KdDb::kForWrite);
        space->appendKdDbEntity(m_id, made.get());
        space->close();
        KdDbTable& table = *made.release();
        for (int row = 0; row < rowCount; ++row) {
            table.setTextString(row, 0, std::to_wstring(row).c_str());
            table.setFieldId(row, formulaColumn, post(table, author(row)));
        }
        table.close();
        readAll();
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    const KdDbTable& look() const { return *kdhost::peek<KdDbTable>(m_id); }
    /// Each edit is a step of undo of its own.
    template <class Change>
    void edit(Change change) {
        const kdhost::UndoCommandScope step(&m_database, L"EDIT");
        KdDbTable* open = nullptr;
        kdhost::openAs(open, m_id, KdDb::kForWrite);
        change(*open);
        open->close();
    }
    void undo() { kdhost::undoHistory(m_database)->undo(); }
    void readAll() const {
        for (int row = 0; row < look().numRows(); ++row) {
            benchmark::DoNotOptimize(look().textString(row, formulaColumn));
        }
    }

private:
    /// As cells hold formulas: a field that stands for its one child.
    KdDbObjectId post(const KdDbTable& table, const std::wstring& expression) {
        auto* field = new KdDbField;
        field->postInDatabase(&m_database);
        auto* child = new KdDbField;
        child->setFieldCode((L"\\AcExpr (" + expression + L")").c_str());
        KdArray<KdDbField*> children;
        children.append(child);
        field->setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &children);
        field->setOwnerId(table.objectId());
        const KdDbObjectId id = field->objectId();
        child->close();
        field->close();
        return id;
    }

    KdDbDatabase m_database;
    KdDbObjectId m_id;
};

std::wstring number(int row) {
    return std::to_wstring(row + 1);
}

struct OwnRow : Table {
    explicit OwnRow(int count) : Table(count, [](int row) { return L"A" + number(row) + L"*2+1"; }) {}
};
struct FirstCell : Table {
    explicit FirstCell(int count) : Table(count, [](int row) { return L"$A$1+A" + number(row); }) {}
};
struct Chain : Table {
    explicit Chain(int count)
        : Table(count, [](int row) { return row == 0 ? L"A1" : L"B" + number(row - 1) + L"+A" + number(row); }) {}
};
struct Windows : Table {
    explicit Windows(int count)
        : Table(count, [](int row) { return L"Sum(A" + number(std::max(row - 9, 0)) + L":A" + number(row) + L")"; }) {}
};

/// Changes one number and reads. The step is undone outside of what is measured: thousands of them would fill the
/// memory.
template <class Read>
void changeAndRead(Table& table, benchmark::State& state, int row, Read read) {
    for (auto _ : state) {
        table.edit([&](KdDbTable& open) { open.setTextString(row, 0, L"-5"); });
        read();
        state.PauseTiming();
        table.undo();
        read();
        state.ResumeTiming();
    }
}

/// Changes one number and asks for the result beside it.
void oneReader(Table& table, benchmark::State& state) {
    const int row = table.look().numRows() / 2;
    changeAndRead(table, state, row, [&] { benchmark::DoNotOptimize(table.look().textString(row, formulaColumn)); });
}

/// Changes the first number and asks for every result.
void allResults(Table& table, benchmark::State& state) {
    changeAndRead(table, state, 0, [&] { table.readAll(); });
}

/// A row before all references.
void insertedRow(Table& table, benchmark::State& state) {
    for (auto _ : state) {
        table.edit([](KdDbTable& open) { open.insertRowsAndInherit(0, 0, 1); });
        state.PauseTiming();
        table.undo();
        state.ResumeTiming();
    }
}

void undoneRow(Table& table, benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        table.edit([](KdDbTable& open) { open.insertRowsAndInherit(0, 0, 1); });
        state.ResumeTiming();
        table.undo();
        table.readAll();
    }
}

void itemTexts(benchmark::State& state) {
    QStandardItemModel model(rows, 2);
    for (int row = 0; row < rows; ++row) model.setItem(row, formulaColumn, new QStandardItem);
    double value = 0.0;
    for (auto _ : state) {
        for (int row = 0; row < rows; ++row) {
            value += 1.0;
            model.setData(model.index(row, formulaColumn), QString::number(value, 'g', 15));
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    kdbench::PeerRatioReporter reporter("itemTexts", 10.0, 5.0, rows);
    benchmark::RegisterBenchmark("itemTexts", itemTexts)->Unit(benchmark::kMillisecond);
    const auto unit = benchmark::kMillisecond;
    kdbench::measureGrowth<OwnRow>(reporter, "one_reader", rows, unit, oneReader);
    kdbench::measureGrowth<FirstCell>(reporter, "all_readers", rows, unit, allResults);
    kdbench::measureGrowth<Chain>(reporter, "chain", rows, unit, allResults);
    kdbench::measureGrowth<Windows>(reporter, "sums_of_ten", rows, unit, allResults);
    kdbench::measureGrowth<FirstCell>(reporter, "inserted_row", rows, unit, insertedRow);
    kdbench::measureGrowth<FirstCell>(reporter, "undone_row", rows, unit, undoneRow);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
