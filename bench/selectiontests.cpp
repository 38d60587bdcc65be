// The tests of a selection in their worst cases, on tables of 100,000 cells that are all selected: no cell
// decides before the last. The peer is one scan of the flags of an item model of as many items.

#include <benchmark/benchmark.h>

#include <memory>

#include "bench/itempeers.h"
#include "bench/peerratio.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "module/core/tablecommon.h"

namespace {

constexpr int rows = 12'500;
constexpr int columns = 8;
constexpr CVqTableCellRange whole{0, 0, rows - 1, columns - 1};
constexpr int bothLocks = KdDb::kCellStateContentLocked | KdDb::kCellStateFormatLocked;

/// In the style of a drawing, as tables of a drawing are.
std::unique_ptr<KdDbTable> makeTable(int rowCount, int columnCount) {
    static KdDbDatabase drawing;
    auto table = std::make_unique<KdDbTable>();
    table->setTableStyle(drawing.tablestyle());
    table->setSize(rowCount, columnCount);
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column < columnCount; ++column) table->setCellStyle(row, column, L"_DATA");
    }
    table->setSubSelection({0, 0, rowCount - 1, columnCount - 1});
    return table;
}

/// Nothing merged, locked or filled.
KdDbTable& plainTable() {
    static const std::unique_ptr<KdDbTable> table = makeTable(rows, columns);
    return *table;
}

/// Every cell locked.
KdDbTable& lockedTable() {
    static const std::unique_ptr<KdDbTable> table = [] {
        auto made = makeTable(rows, columns);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                made->setCellState(row, column, static_cast<KdDb::CellState>(bothLocks));
            }
        }
        return made;
    }();
    return *table;
}

/// Every two cells of a row merged, and locked in all tables but the one of mergedTable(false).
KdDbTable& mergedTable(bool locked) {
    const auto make = [](bool lock) {
        auto made = makeTable(rows, columns);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column + 1 < columns; column += 2) {
                made->mergeCells(row, row, column, column + 1);
                if (lock) made->setCellState(row, column, static_cast<KdDb::CellState>(bothLocks));
            }
        }
        return made;
    };
    static const std::unique_ptr<KdDbTable> open = make(false);
    static const std::unique_ptr<KdDbTable> shut = make(true);
    return locked ? *shut : *open;
}

/// One row of 100,000 cells.
KdDbTable& rowTable() {
    static const std::unique_ptr<KdDbTable> table = makeTable(1, rows * columns);
    return *table;
}

/// Merges in two columns, each overlapping the next by a row, so that a range grows over them row by row.
KdDbTable& zippedTable() {
    static const std::unique_ptr<KdDbTable> table = [] {
        auto made = makeTable(rows, columns);
        for (int row = 0; row + 1 < rows; row += 2) made->mergeCells(row, row + 1, 0, 0);
        for (int row = 1; row + 1 < rows; row += 2) made->mergeCells(row, row + 1, 1, 1);
        return made;
    }();
    return *table;
}

void scanOfItemFlags(benchmark::State& state) {
    kdbench::scanItemFlags(state, rows, columns);
}
BENCHMARK(scanOfItemFlags)->Unit(benchmark::kMicrosecond);

using RangeTest = bool (*)(const KdDbTable*, const CVqTableCellRange&);
using SelectionTest = bool (*)(const KdDbTable*);

void measure(const char* name, KdDbTable& table, RangeTest test, bool expected) {
    benchmark::RegisterBenchmark(name, [&table, test, expected](benchmark::State& state) {
        for (auto _ : state) {
            if (test(&table, whole) != expected) state.SkipWithError("another answer than the worst case's");
        }
    })->Unit(benchmark::kMicrosecond);
}

void measure(const char* name, KdDbTable& table, SelectionTest test, bool expected) {
    benchmark::RegisterBenchmark(name, [&table, test, expected](benchmark::State& state) {
        for (auto _ : state) {
            if (test(&table) != expected) state.SkipWithError("another answer than the worst case's");
        }
    })->Unit(benchmark::kMicrosecond);
}

void registerRangeTests() {
    using Common = CVqTableCommon;
    measure("IsMergeAndSelectEqual", plainTable(), Common::IsMergeAndSelectEqual, false);
    measure("IsOnlyCanInsertBlock", plainTable(), Common::IsOnlyCanInsertBlock, true);
    measure("IsCanMergeCell", plainTable(), Common::IsCanMergeCell, true);
    measure("IsCanUnmergeCell", plainTable(), Common::IsCanUnmergeCell, false);
    measure("IsCanUnmergeCell_locked_merges", mergedTable(true), Common::IsCanUnmergeCell, false);
    measure("IsMergeContentNoFirst", plainTable(), Common::IsMergeContentNoFirst, false);
    measure("IsCellRangeAllContentLocked", lockedTable(), Common::IsCellRangeAllContentLocked, true);
    measure("IsCellRangeHasContentLocked", plainTable(), Common::IsCellRangeHasContentLocked, false);
    measure("IsCellRangeHasContentLocked_merges", mergedTable(false), Common::IsCellRangeHasContentLocked, false);
    measure("IsCellRangeAllFormatLocked", lockedTable(), Common::IsCellRangeAllFormatLocked, true);
    measure("IsIdenticalCellStyle", plainTable(), Common::IsIdenticalCellStyle, true);
    measure("IsIdenticalAlignment", plainTable(), Common::IsIdenticalAlignment, true);
    measure("IsIdenticalLocking", plainTable(), Common::IsIdenticalLocking, true);
    measure("IsIdenticalDataFormat", plainTable(), Common::IsIdenticalDataFormat, true);
    measure("IsIdenticalDataFormat_merges", mergedTable(false), Common::IsIdenticalDataFormat, true);
}

void registerSelectionTests() {
    using Common = CVqTableCommon;
    measure("CanMergeCells", plainTable(), Common::CanMergeCells, true);
    measure("CanUnMergeCells", plainTable(), Common::CanUnMergeCells, false);
    const SelectionTest mayEdit = [](const KdDbTable* table) {
        bool content = false;
        bool format = false;
        Common::GetReadOnlyState(table, content, format);
        return content || format;
    };
    measure("GetReadOnlyState", lockedTable(), mayEdit, false);
}

void registerOthers() {
    using Common = CVqTableCommon;
    const RangeTest rowText = [](const KdDbTable* table, const CVqTableCellRange&) {
        return Common::IsRowHasText(table, 0);
    };
    measure("IsRowHasText", rowTable(), rowText, true);
    const RangeTest mergeable = [](const KdDbTable* table, const CVqTableCellRange&) {
        return Common::IsMergeable(table, {0, 0, 0, 0});
    };
    measure("IsMergeable", rowTable(), mergeable, true);
    const RangeTest growth = [](const KdDbTable* table, const CVqTableCellRange&) {
        const CVqTableCellRange start{0, 0, 0, columns - 1};
        return Common::SearchMaxCellRange(const_cast<KdDbTable*>(table), 0, 1, start) == whole;
    };
    measure("SearchMaxCellRange_row_by_row", zippedTable(), growth, true);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    registerRangeTests();
    registerSelectionTests();
    registerOthers();
    kdbench::PeerRatioReporter reporter("scanOfItemFlags", 0.5, 0.15, rows * columns);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
