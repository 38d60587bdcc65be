// Every test and every growth of a range, held against the plain model on random tables and ranges.

#include "tests/module/core/plaintable.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "module/core/tablecommon.h"
#include "module/core/tablepick.h"
#include "tests/module/core/sampletables.h"
#include "tests/support/random.h"

namespace kdtest {
namespace {

bool overlap(const Range& a, const Range& b) {
    return a.m_topRow <= b.m_bottomRow && b.m_topRow <= a.m_bottomRow && a.m_leftColumn <= b.m_rightColumn &&
           b.m_leftColumn <= a.m_rightColumn;
}

std::vector<Range> randomMerges(Random& random, int rows, int columns) {
    std::vector<Range> merges;
    const int attempts = random.between(0, 8);
    for (int i = 0; i < attempts; ++i) {
        const int top = random.between(0, rows - 1);
        const int left = random.between(0, columns - 1);
        const Range merge{top, left, std::min(rows - 1, top + random.between(0, 3)),
                          std::min(columns - 1, left + random.between(0, 3))};
        const bool single = merge.m_topRow == merge.m_bottomRow && merge.m_leftColumn == merge.m_rightColumn;
        const bool taken =
            std::any_of(merges.begin(), merges.end(), [&](const Range& other) { return overlap(merge, other); });
        if (!single && !taken) merges.push_back(merge);
    }
    return merges;
}

/// Every property in few values, so that likeness happens; one table in four has equal cells throughout.
void fillCells(Random& random, KdDbTable& table) {
    constexpr std::array<const wchar_t*, 3> styles{L"_TITLE", L"_HEADER", L"_DATA"};
    constexpr std::array<KdDb::CellAlignment, 2> alignments{KdDb::kTopLeft, KdDb::kMiddleCenter};
    constexpr std::array<KdValue::DataType, 2> dataTypes{KdValue::kDouble, KdValue::kDate};
    constexpr std::array<KdValue::UnitType, 2> unitTypes{KdValue::kUnitless, KdValue::kAngle};
    const int rarity = random.oneIn(4) ? 40 : 4;
    for (int row = 0; row < table.numRows(); ++row) {
        for (int column = 0; column < table.numColumns(); ++column) {
            table.setCellStyle(row, column, random.oneIn(rarity) ? random.oneOf(styles) : L"_DATA");
            table.setAlignment(row, column, random.oneIn(rarity) ? random.oneOf(alignments) : KdDb::kTopLeft);
            const bool plain = !random.oneIn(rarity);
            table.setDataType(row, column, plain ? KdValue::kDouble : random.oneOf(dataTypes),
                              plain ? KdValue::kUnitless : random.oneOf(unitTypes));
            const KdCellRange merge = table.getMergeRange(row, column);
            const bool covered = merge.m_topRow != row || merge.m_leftColumn != column;
            if (!covered && random.oneIn(rarity)) table.setTextString(row, column, L"x");
        }
    }
}

/// Some tables are unlocked, some wholly locked, the others mixed.
void lockCells(Random& random, KdDbTable& table) {
    constexpr std::array<int, 6> states{0, 1, 2, 16, 17, 32};
    const int usual = random.oneOf(std::array<int, 4>{0, 0, 1, 17});
    const int rarity = random.between(3, 12);
    for (int row = 0; row < table.numRows(); ++row) {
        for (int column = 0; column < table.numColumns(); ++column) {
            const int state = random.oneIn(rarity) ? random.oneOf(states) : usual;
            table.setCellState(row, column, static_cast<KdDb::CellState>(state));
        }
    }
}

/// Ranges in the table for the most part; a merge, a reversed range, one partly outside or no cell sometimes.
Range randomRange(Random& random, int rows, int columns, const std::vector<Range>& merges) {
    const int kind = random.between(1, 20);
    if (kind == 1) return noCell;
    if (kind <= 4 && !merges.empty()) {
        return merges[static_cast<std::size_t>(random.between(0, static_cast<int>(merges.size()) - 1))];
    }
    if (kind <= 8) {
        return {random.between(-3, rows + 2), random.between(-3, columns + 2), random.between(-3, rows + 2),
                random.between(-3, columns + 2)};
    }
    Range range{random.between(0, rows - 1), random.between(0, columns - 1), random.between(0, rows - 1),
                random.between(0, columns - 1)};
    if (kind <= 10) return range;
    if (range.m_topRow > range.m_bottomRow) std::swap(range.m_topRow, range.m_bottomRow);
    if (range.m_leftColumn > range.m_rightColumn) std::swap(range.m_leftColumn, range.m_rightColumn);
    return range;
}

struct Question {
    const char* name;
    int (*module)(const KdDbTable*, const Range&);
    int (*model)(const PlainTable&, const Range&);
};

// An operation of the class beside the model's of the same name.
#define ASK(name)                                                                                                    \
    {                                                                                                                \
#name, [](const KdDbTable* table, const Range& range)                                                        \
                    -> int { return CVqTableCommon::name(table, range); }, [](const PlainTable& model,               \
                                                                              const Range& range)                    \
                                                                                -> int { return model.name(range); } \
    }
#define ASK_SELECTION(name)                                                                                         \
    {                                                                                                               \
#name, [](const KdDbTable* table, const Range&)                                                             \
                    -> int { return CVqTableCommon::name(table); }, [](const PlainTable& model, const Range& range) \
                                                                         -> int { return model.name(range); }       \
    }

const Question questions[] = {
    ASK(CheckCellRangeValid),
    ASK(IsSelectEntireTable),
    ASK(IsSelectEntireRow),
    ASK(IsSelectEntireColumn),
    ASK(IsCanDeleteRow),
    ASK(IsCanDeleteColumn),
    ASK(IsMatchCell),
    ASK(IsSelectMergedEqual),
    ASK(IsMergeAndSelectEqual),
    ASK(IsOnlyCanInsertBlock),
    ASK(IsRowMergeCell),
    ASK(IsColumnMergeCell),
    ASK(IsCanMergeCell),
    ASK(IsCanUnmergeCell),
    ASK(IsMergeable),
    ASK(IsMergeContentNoFirst),
    ASK(IsCellRangeAllContentLocked),
    ASK(IsCellRangeHasContentLocked),
    ASK(IsCellRangeAllFormatLocked),
    ASK(IsIdenticalCellStyle),
    ASK(IsIdenticalAlignment),
    ASK(IsIdenticalLocking),
    ASK(IsIdenticalDataFormat),
    ASK_SELECTION(IsSingleCell),
    ASK_SELECTION(CanMergeCells),
    ASK_SELECTION(CanUnMergeCells),
    ASK_SELECTION(CanColumnSizeEqually),
    ASK_SELECTION(CanRowSizeEqually),
};

#undef ASK
#undef ASK_SELECTION

void expectSameAnswers(KdDbTable& table, const PlainTable& model, const Range& range) {
    table.setSubSelection(hostRange(range));
    for (const Question& question : questions) {
        EXPECT_EQ(question.module(&table, range), question.model(model, range)) << question.name;
    }
    bool content = true;
    bool format = true;
    EXPECT_TRUE(CVqTableCommon::GetReadOnlyState(&table, content, format));
    EXPECT_EQ(content, model.contentFlag(range)) << "GetReadOnlyState, content";
    EXPECT_EQ(format, model.formatFlag(range)) << "GetReadOnlyState, format";
    const CKdTableCellRange cells(hostRange(range));
    EXPECT_EQ(cells.checkRangeFromTable(&table), model.checkRangeFromTable(range)) << "checkRangeFromTable";
}

void expectSameRanges(KdDbTable& table, const PlainTable& model, const Range& range) {
    for (const auto& [a, b] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        EXPECT_EQ(CVqTableCommon::SearchMaxCellRange(&table, a, b, range), model.SearchMaxCellRange(a, b, range))
            << "SearchMaxCellRange with " << a << " and " << b;
    }
    for (const int byColumn : {0, 1}) {
        EXPECT_EQ(CVqTableCommon::CellRangeBackward(&table, byColumn, range),
                  model.CellRangeBackward(byColumn != 0, range))
            << "CellRangeBackward, by column " << byColumn;
        EXPECT_EQ(CVqTableCommon::CellRangeForward(&table, byColumn, range),
                  model.CellRangeForward(byColumn != 0, range))
            << "CellRangeForward, by column " << byColumn;
    }
}

void expectSameOfCell(KdDbTable& table, const PlainTable& model, int row, int column) {
    EXPECT_EQ(CVqTableCommon::IsRowHasText(&table, row), model.IsRowHasText(row)) << "IsRowHasText " << row;
    for (const int byColumn : {0, 1}) {
        EXPECT_EQ(CVqTableCommon::IsFirstMergedCell(&table, byColumn, row, column),
                  model.IsFirstMergedCell(byColumn != 0, row, column))
            << "IsFirstMergedCell, by column " << byColumn;
        EXPECT_EQ(CVqTableCommon::IsLastMergedCell(&table, byColumn, row, column),
                  model.IsLastMergedCell(byColumn != 0, row, column))
            << "IsLastMergedCell, by column " << byColumn;
    }
    bool across = false;
    bool modelAcross = false;
    EXPECT_EQ(isInvalidRowColByMerge(&table, row, column, across),
              model.isInvalidRowColByMerge(row, column, modelAcross));
    EXPECT_EQ(across, modelAcross) << "mergedAcross";
}

constexpr int tablesPerSeed = 1000;
constexpr int rangesPerTable = 16;

class PlainModel : public ::testing::TestWithParam<unsigned> {};

TEST_P(PlainModel, Every_operation_agrees_on_random_tables_and_ranges) {
    Random random(GetParam());
    for (int i = 0; i < tablesPerSeed && !HasFailure(); ++i) {
        const int rows = random.between(1, 6);
        const int columns = random.between(1, 6);
        const std::vector<Range> merges = randomMerges(random, rows, columns);
        const std::unique_ptr<KdDbTable> table = makeTable(rows, columns, merges);
        fillCells(random, *table);
        lockCells(random, *table);
        const PlainTable model(*table, merges);
        for (int j = 0; j < rangesPerTable && !HasFailure(); ++j) {
            const Range range = randomRange(random, rows, columns, merges);
            expectSameAnswers(*table, model, range);
            expectSameRanges(*table, model, range);
            expectSameOfCell(*table, model, range.m_topRow, range.m_leftColumn);
            if (HasFailure()) ADD_FAILURE() << ::testing::PrintToString(range) << " of\n" << model.describe();
        }
    }
}

// Eight seeds of 16,000 pairs of table and range.
INSTANTIATE_TEST_SUITE_P(Seeds, PlainModel, ::testing::Range(1U, 9U));

}  // namespace
}  // namespace kdtest
