// The tests of a selection in their worst cases, on tables of 100,000 and of 1,000,000 cells that are all selected: no
// cell decides before the last. The peer is one scan of the flags of an item model of 100,000 items.

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "bench/itempeers.h"
#include "bench/peerratio.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "module/core/tablecommon.h"

namespace {

constexpr int rows = 12'500;
constexpr int columns = 8;
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

using Table = std::unique_ptr<KdDbTable>;

/// Nothing merged, locked or filled.
Table plainTable(int rowCount) {
    return makeTable(rowCount, columns);
}

/// Every cell locked.
Table lockedTable(int rowCount) {
    auto made = makeTable(rowCount, columns);
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column < columns; ++column) {
            made->setCellState(row, column, static_cast<KdDb::CellState>(bothLocks));
        }
    }
    return made;
}

/// Every two cells of a row merged.
template <bool locked>
Table mergedTable(int rowCount) {
    auto made = makeTable(rowCount, columns);
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column + 1 < columns; column += 2) {
            made->mergeCells(row, row, column, column + 1);
            if (locked) made->setCellState(row, column, static_cast<KdDb::CellState>(bothLocks));
        }
    }
    return made;
}

/// One row of as many cells.
Table rowTable(int rowCount) {
    return makeTable(1, rowCount * columns);
}

/// Merges in two columns, each overlapping the next by a row, so that a range grows over them row by row.
Table zippedTable(int rowCount) {
    auto made = makeTable(rowCount, columns);
    for (int row = 0; row + 1 < rowCount; row += 2) made->mergeCells(row, row + 1, 0, 0);
    for (int row = 1; row + 1 < rowCount; row += 2) made->mergeCells(row, row + 1, 1, 1);
    return made;
}

using Make = Table (*)(int rowCount);

/// The table is made when it is asked for first.
KdDbTable& kept(Make make, int rowCount) {
    static std::map<std::pair<Make, int>, Table> tables;
    Table& table = tables[{make, rowCount}];
    if (table == nullptr) table = make(rowCount);
    return *table;
}

CVqTableCellRange wholeOf(const KdDbTable& table) {
    return {0, 0, table.numRows() - 1, table.numColumns() - 1};
}

void scanOfItemFlags(benchmark::State& state) {
    kdbench::scanItemFlags(state, rows, columns);
}
BENCHMARK(scanOfItemFlags)->Unit(benchmark::kMicrosecond);

using RangeTest = bool (*)(const KdDbTable*, const CVqTableCellRange&);
using SelectionTest = bool (*)(const KdDbTable*);

bool ask(RangeTest test, const KdDbTable& table) {
    return test(&table, wholeOf(table));
}
bool ask(SelectionTest test, const KdDbTable& table) {
    return test(&table);
}

/// Beside the peer, and beside itself on ten times the cells.
template <class Test>
void measure(const std::string& name, Make make, Test test, bool expected) {
    const auto registerOn = [=](const std::string& sizedName, int rowCount) {
        benchmark::RegisterBenchmark(sizedName.c_str(), [=](benchmark::State& state) {
            const KdDbTable& table = kept(make, rowCount);
            for (auto _ : state) {
                if (ask(test, table) != expected) state.SkipWithError("another answer than the worst case's");
            }
        })->Unit(benchmark::kMicrosecond);
    };
    registerOn(name, rows);
    registerOn(name + kdbench::tenTimesTheCells, 10 * rows);
}

void registerRangeTests() {
    using Common = CVqTableCommon;
    measure<RangeTest>("IsMergeAndSelectEqual", plainTable, Common::IsMergeAndSelectEqual, false);
    measure<RangeTest>("IsOnlyCanInsertBlock", plainTable, Common::IsOnlyCanInsertBlock, true);
    measure<RangeTest>("IsCanMergeCell", plainTable, Common::IsCanMergeCell, true);
    measure<RangeTest>("IsCanUnmergeCell", plainTable, Common::IsCanUnmergeCell, false);
    measure<RangeTest>("IsCanUnmergeCell_locked_merges", mergedTable<true>, Common::IsCanUnmergeCell, false);
    measure<RangeTest>("IsMergeContentNoFirst", plainTable, Common::IsMergeContentNoFirst, false);
    measure<RangeTest>("IsCellRangeAllContentLocked", lockedTable, Common::IsCellRangeAllContentLocked, true);
    measure<RangeTest>("IsCellRangeHasContentLocked", plainTable, Common::IsCellRangeHasContentLocked, false);
    measure<RangeTest>("IsCellRangeHasContentLocked_merges", mergedTable<false>, Common::IsCellRangeHasContentLocked,
                       false);
    measure<RangeTest>("IsCellRangeAllFormatLocked", lockedTable, Common::IsCellRangeAllFormatLocked, true);
    measure<RangeTest>("IsIdenticalCellStyle", plainTable, Common::IsIdenticalCellStyle, true);
    measure<RangeTest>("IsIdenticalAlignment", plainTable, Common::IsIdenticalAlignment, true);
    measure<RangeTest>("IsIdenticalLocking", plainTable, Common::IsIdenticalLocking, true);
    measure<RangeTest>("IsIdenticalDataFormat", plainTable, Common::IsIdenticalDataFormat, true);
    measure<RangeTest>("IsIdenticalDataFormat_merges", mergedTable<false>, Common::IsIdenticalDataFormat, true);
}

void registerSelectionTests() {
    using Common = CVqTableCommon;
    measure<SelectionTest>("CanMergeCells", plainTable, Common::CanMergeCells, true);
    measure<SelectionTest>("CanUnMergeCells", plainTable, Common::CanUnMergeCells, false);
    const SelectionTest mayEdit = [](const KdDbTable* table) {
        bool content = false;
        bool format = false;
        Common::GetReadOnlyState(table, content, format);
        return content || format;
    };
    measure<SelectionTest>("GetReadOnlyState", lockedTable, mayEdit, false);
}

void registerOthers() {
    using Common = CVqTableCommon;
    const RangeTest rowText = [](const KdDbTable* table, const CVqTableCellRange&) {
        return Common::IsRowHasText(table, 0);
    };
    measure<RangeTest>("IsRowHasText", rowTable, rowText, true);
    const RangeTest mergeable = [](const KdDbTable* table, const CVqTableCellRange&) {
        return Common::IsMergeable(table, {0, 0, 0, 0});
    };
    measure<RangeTest>("IsMergeable", rowTable, mergeable, true);
    const RangeTest growth = [](const KdDbTable* table, const CVqTableCellRange&) {
        const CVqTableCellRange start{0, 0, 0, columns - 1};
        return Common::SearchMaxCellRange(const_cast<KdDbTable*>(table), 0, 1, start) == wholeOf(*table);
    };
    measure<RangeTest>("SearchMaxCellRange_row_by_row", zippedTable, growth, true);
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
