// Row heights of a table of 10,000 by 8 cells from their texts, all of them and after a change in one row. The peer is
// a table widget that fits its rows to the same texts.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTableWidget>
#include <memory>

#include "bench/growth.h"
#include "bench/peerratio.h"
#include "host/db/opening.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"

namespace {

constexpr int columns = 8;
constexpr int rows = 10'000;

/// One cell of each row has more than its line holds.
QString cellText(int row, int column) {
    if (column == 3) return QStringLiteral("Bracket of row %1, painted twice and dried").arg(row);
    return QString::number(row * columns + column) + QStringLiteral(".50");
}

class Table {
public:
    explicit Table(int rowCount) {
        auto made = std::make_unique<KdDbTable>();
        made->setDatabaseDefaults(&m_database);
        made->setTableStyle(m_database.tablestyle());
        made->setSize(rowCount, columns);
        made->setCellStyle(-1, -1, L"_DATA");
        for (int row = 0; row < rowCount; ++row) {
            for (int column = 0; column < columns; ++column) {
                made->setTextString(row, column, cellText(row, column).toStdWString().c_str());
            }
        }
        KdDbBlockTableRecord* space = nullptr;
        KdDbObjectId id;
        kdhost::openAs(space, m_database.modelSpaceId(), KdDb::kForWrite);
        space->appendKdDbEntity(id, made.get());
        space->close();
        m_table = made.release();
    }
    ~Table() { m_table->close(); }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    KdDbTable& open() { return *m_table; }

private:
    KdDbDatabase m_database;
    KdDbTable* m_table = nullptr;
};

/// Each run finds other columns, so that nothing of the one before holds.
void rowHeights(Table& table, benchmark::State& state) {
    bool wide = false;
    for (auto _ : state) {
        state.PauseTiming();
        wide = !wide;
        table.open().setColumnWidth(3, wide ? 80.0 : 60.0);
        state.ResumeTiming();
        table.open().generateLayout();
        benchmark::DoNotOptimize(table.open().rowHeight(0));
    }
}

void rowHeightsAfterOneChange(Table& table, benchmark::State& state) {
    const int row = table.open().numRows() / 2;
    table.open().generateLayout();
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        table.open().setTextString(row, 2, odd ? L"7.25" : L"8.75");
        table.open().generateLayout();
        benchmark::DoNotOptimize(table.open().rowHeight(row));
    }
}

class Widget {
public:
    explicit Widget(int rowCount) : m_widget(rowCount, columns) {
        for (int row = 0; row < rowCount; ++row) {
            for (int column = 0; column < columns; ++column) {
                m_widget.setItem(row, column, new QTableWidgetItem(cellText(row, column)));
            }
        }
    }
    QTableWidget& widget() { return m_widget; }

private:
    QTableWidget m_widget;
};

void widgetRows(benchmark::State& state) {
    Widget sample(rows);
    bool wide = false;
    for (auto _ : state) {
        state.PauseTiming();
        wide = !wide;
        sample.widget().setColumnWidth(3, wide ? 160 : 120);
        state.ResumeTiming();
        sample.widget().resizeRowsToContents();
    }
}

void widgetOneRow(benchmark::State& state) {
    Widget sample(rows);
    const int row = rows / 2;
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        sample.widget().item(row, 2)->setText(odd ? QStringLiteral("7.25") : QStringLiteral("8.75"));
        sample.widget().resizeRowToContents(row);
    }
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    kdbench::PeerRatioReporter reporter("widgetRows", 1.0, 0.6, rows * columns);
    reporter.setGoal("rowHeightsAfterOneChange", {"widgetOneRow", 0.5, 0.1});
    benchmark::RegisterBenchmark("widgetRows", widgetRows)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("widgetOneRow", widgetOneRow)->Unit(benchmark::kMicrosecond);
    kdbench::measureGrowth<Table>(reporter, "rowHeights", rows, benchmark::kMillisecond, rowHeights);
    kdbench::measureGrowth<Table>(reporter, "rowHeightsAfterOneChange", rows, benchmark::kMicrosecond,
                                  rowHeightsAfterOneChange);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
