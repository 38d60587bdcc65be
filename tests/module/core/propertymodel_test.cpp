// Random edits of properties against a plain slow model of cells, and random sequences of structural and property
// edits that are undone to the start.

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>

#include "host/db/tableaccess.h"
#include "kd/db/tablestyle.h"
#include "module/core/tablecommon.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {
namespace {

using Common = CVqTableCommon;

/// What a cell holds itself; a property without a value is inherited.
struct ModelCell {
    std::wstring text;
    std::wstring style;
    int state = 0;
    std::optional<KdDb::CellAlignment> alignment;
    std::optional<KdCmColor> background;
    std::optional<std::pair<int, int>> format;  ///< data type and unit type
};

class RandomEdits : public TableEdits {
protected:
    int pick(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    bool chance(int oneIn) { return pick(oneIn) == 0; }

    /// Inside a grid of that size; now and then none, reversed, or whole rows or columns.
    KdCellRange anySelection(int rows, int columns) {
        const auto ordered = [this](int count) {
            const int a = pick(count);
            const int b = pick(count);
            return std::pair(std::min(a, b), std::max(a, b));
        };
        const auto [top, bottom] = ordered(rows);
        const auto [left, right] = ordered(columns);
        if (chance(16)) return {};
        if (chance(16)) return {bottom, right, top, left};
        if (chance(12)) return {top, -1, bottom, -1};
        if (chance(12)) return {-1, left, -1, right};
        return {top, left, bottom, right};
    }

    KdDb::CellState anyState() { return static_cast<KdDb::CellState>((chance(2) ? 1 : 0) + (chance(2) ? 16 : 0)); }
    KdDb::CellAlignment anyAlignment() { return static_cast<KdDb::CellAlignment>(1 + pick(9)); }
    KdCmColor anyColor() { return chance(3) ? KdCmColor::none() : KdCmColor::fromIndex(1 + pick(4)); }
    const wchar_t* anyStyle() {
        static const wchar_t* const styles[] = {L"_TITLE", L"_HEADER", L"_DATA"};
        return styles[pick(3)];
    }

    /// With random merges, locks, styles, overrides and texts.
    std::unique_ptr<KdDbTable> randomTable(int textOneIn) {
        auto table = std::make_unique<KdDbTable>();
        table->setTableStyle(host.database().tablestyle());
        table->setSize(1 + pick(5), 1 + pick(5));
        for (int merges = pick(3); merges > 0; --merges) {
            const KdCellRange range = anySelection(table->numRows(), table->numColumns());
            table->mergeCells(range.m_topRow, range.m_bottomRow, range.m_leftColumn, range.m_rightColumn);
        }
        for (int row = 0; row < table->numRows(); ++row) {
            for (int column = 0; column < table->numColumns(); ++column) dress(*table, row, column, textOneIn);
        }
        return table;
    }

private:
    void dress(KdDbTable& table, int row, int column, int textOneIn) {
        if (chance(textOneIn)) table.setTextString(row, column, L"text");
        if (chance(3)) table.setCellStyle(row, column, anyStyle());
        if (chance(3)) table.setAlignment(row, column, anyAlignment());
        if (chance(4)) table.setBackgroundColor(row, column, anyColor());
        if (chance(5)) table.setDataType(row, column, KdValue::kDouble, KdValue::kCurrency);
        if (chance(6)) table.setGridColor(row, column, KdDb::kVertLeft, anyColor());
        if (chance(6)) table.setCellState(row, column, anyState());
    }

    std::mt19937 m_random{3407};
};

/// The cells of one table, and the edits as the plainest loops.
class PropertyModel {
public:
    explicit PropertyModel(const KdDbTable& table) : m_rows(table.numRows()), m_columns(table.numColumns()) {
        const kdhost::TableState& state = kdhost::tableState(table);
        for (int row = 0; row < m_rows; ++row) {
            for (int column = 0; column < m_columns; ++column) {
                const kdhost::CellLook& cell = state.look(row, column);
                ModelCell& own = m_cells.emplace_back();
                own.text = state.content(row, column).text;
                own.style = state.styles.name(cell.style);
                own.state = cell.state;
                if (const auto* value = cell.ownValue(kdhost::property::alignment)) own.alignment = *value;
                if (const auto* value = cell.ownValue(kdhost::property::background)) own.background = *value;
                if (const auto* type = cell.ownValue(kdhost::property::dataType)) {
                    own.format = std::pair(int(*type), int(*cell.ownValue(kdhost::property::unitType)));
                }
                m_merges.push_back(table.getMergeRange(row, column));
            }
        }
    }

    ModelCell& at(int row, int column) { return m_cells[index(row, column)]; }
    ModelCell& owner(int row, int column) {
        const KdCellRange& merge = m_merges[index(row, column)];
        return at(merge.m_topRow, merge.m_leftColumn);
    }
    bool locked(int row, int column, int bits) {
        return ((at(row, column).state | owner(row, column).state) & bits) != 0;
    }

    template <class Change>
    void eachSelected(KdCellRange range, Change change) {
        if (range == KdCellRange{}) return;
        if (range.m_leftColumn == -1) range = {range.m_topRow, 0, range.m_bottomRow, m_columns - 1};
        if (range.m_topRow == -1) range = {0, range.m_leftColumn, m_rows - 1, range.m_rightColumn};
        for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
            for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) change(row, column);
        }
    }
    /// Leaves out cells whose format is locked.
    template <class Change>
    void eachEditable(const KdCellRange& range, Change change) {
        eachSelected(range, [&](int row, int column) {
            if (!locked(row, column, 48)) change(at(row, column));
        });
    }

    /// What the table shows, cell by cell.
    void expect(const KdDbTable& table) {
        for (int row = 0; row < m_rows; ++row) {
            for (int column = 0; column < m_columns; ++column) {
                SCOPED_TRACE(::testing::Message() << row << ", " << column);
                expectCell(table, row, column);
            }
        }
    }

private:
    std::size_t index(int row, int column) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) + static_cast<std::size_t>(column);
    }

    void expectCell(const KdDbTable& table, int row, int column) {
        const OpenObject<KdDbTableStyle> style(table.tableStyle(), KdDb::kForRead);
        const ModelCell& shown = owner(row, column);
        const wchar_t* name = shown.style.c_str();
        auto type = KdValue::kUnknown;
        auto unit = KdValue::kUnitless;
        style->getDataType(type, unit, name);
        const auto format = shown.format.value_or(std::pair(int(type), int(unit)));
        table.getDataType(row, column, type, unit);
        EXPECT_EQ(std::pair(int(type), int(unit)), format);
        EXPECT_EQ(table.cellStyle(row, column), shown.style);
        EXPECT_EQ(table.alignment(row, column), shown.alignment.value_or(style->alignment(name)));
        EXPECT_EQ(table.backgroundColor(row, column), shown.background.value_or(style->backgroundColor(name)));
        EXPECT_EQ(kdhost::tableState(table).look(row, column).state, at(row, column).state);
        EXPECT_EQ(kdhost::tableState(table).content(row, column).text.view(), at(row, column).text);
    }

    int m_rows;
    int m_columns;
    std::vector<ModelCell> m_cells;
    std::vector<KdCellRange> m_merges;
};

TEST_F(RandomEdits, Change_what_plain_loops_over_the_selection_change) {
    for (int round = 0; round < 3000; ++round) {
        const KdDbObjectId table = add(randomTable(2));
        PropertyModel model(look(table));
        for (int edit = 0; edit < 5; ++edit) {
            const KdCellRange range = anySelection(look(table).numRows(), look(table).numColumns());
            select(table, range);
            const KdDb::CellAlignment alignment = anyAlignment();
            const KdCmColor color = anyColor();
            CStdStr<wchar_t> style = anyStyle();
            const auto command = static_cast<unsigned>(1819 + pick(4));
            switch (pick(7)) {
                case 0:
                    Common::SetSelectionAlignment(table, alignment);
                    model.eachEditable(range, [&](ModelCell& cell) { cell.alignment = alignment; });
                    break;
                case 1:
                    Common::SetBackgroundColor(table, color);
                    model.eachEditable(range, [&](ModelCell& cell) { cell.background = color; });
                    break;
                case 2:
                    Common::SettingLocked(command, table);
                    model.eachSelected(range, [&](int row, int column) {
                        static constexpr int states[] = {0, 1, 16, 17};
                        model.at(row, column).state = states[command - 1819];
                    });
                    break;
                case 3:
                    Common::SetDataFormatMenu(1828, table);
                    model.eachEditable(range, [&](ModelCell& cell) { cell.format = std::pair(2, 32); });
                    break;
                case 4:
                    Common::SetCellStyleByName(table, style);
                    model.eachEditable(range, [&](ModelCell& cell) { cell.style = style; });
                    break;
                case 5:
                    Common::ClearCellOverrides(table);
                    model.eachEditable(range, [&](ModelCell& cell) {
                        cell.alignment.reset();
                        cell.background.reset();
                        cell.format.reset();
                    });
                    break;
                default:
                    Common::DeleteContent(table);
                    model.eachSelected(range, [&](int row, int column) {
                        if (!model.locked(row, column, 3)) model.at(row, column).text.clear();
                    });
                    break;
            }
            model.expect(look(table));
            if (HasFailure()) FAIL() << "round " << round;
        }
    }
}

/// One random edit of any kind. The content goes before a merge, which then has nothing to ask about but what is
/// locked.
class EditSequences : public RandomEdits {
protected:
    void edit(KdDbObjectId table) {
        using Run = void (*)(EditSequences & test, KdDbObjectId table);
        static constexpr Run runs[] = {
            [](EditSequences&, KdDbObjectId id) { Common::InsertRowByAbove(id); },
            [](EditSequences&, KdDbObjectId id) { Common::InsertRowByBelow(id); },
            [](EditSequences&, KdDbObjectId id) { Common::DeleteRows(id); },
            [](EditSequences&, KdDbObjectId id) { Common::InsertColumnByLeft(id); },
            [](EditSequences&, KdDbObjectId id) { Common::InsertColumnByRight(id); },
            [](EditSequences&, KdDbObjectId id) { Common::DeleteColumns(id); },
            [](EditSequences&, KdDbObjectId id) { Common::UnmergeCells(id); },
            [](EditSequences&, KdDbObjectId id) {
                Common::DeleteContent(id);
                Common::MergeAll(id);
            },
            [](EditSequences&, KdDbObjectId id) {
                Common::DeleteContent(id);
                Common::MergeByRow(id);
            },
            [](EditSequences&, KdDbObjectId id) {
                Common::DeleteContent(id);
                Common::MergeByColumn(id);
            },
            [](EditSequences&, KdDbObjectId id) { Common::SizeColumnsEvenly(id); },
            [](EditSequences&, KdDbObjectId id) { Common::SizeRowsEvenly(id); },
            [](EditSequences& test, KdDbObjectId id) { Common::SetBackgroundColor(id, test.anyColor()); },
            [](EditSequences& test, KdDbObjectId id) { Common::SetSelectionAlignment(id, test.anyAlignment()); },
            [](EditSequences& test, KdDbObjectId id) {
                Common::SettingLocked(static_cast<unsigned>(1819 + test.pick(4)), id);
            },
            [](EditSequences& test, KdDbObjectId id) {
                Common::SetDataFormatMenu(static_cast<unsigned>(1823 + test.pick(9)), id);
            },
            [](EditSequences& test, KdDbObjectId id) {
                CStdStr<wchar_t> style = test.anyStyle();
                Common::SetCellStyleByName(id, style);
            },
            [](EditSequences&, KdDbObjectId id) { Common::ClearCellOverrides(id); },
            [](EditSequences&, KdDbObjectId id) { Common::ClearTableStyleOverrides(id); },
            [](EditSequences&, KdDbObjectId id) { Common::DeleteContent(id); },
        };
        select(table, anySelection(look(table).numRows(), look(table).numColumns()));
        runs[pick(std::size(runs))](*this, table);
    }

    /// Undoes or redoes until that many steps are left, and checks each table on the way that was described.
    void goTo(std::size_t stepCount, KdDbObjectId table, const std::map<std::size_t, std::string>& described) {
        while (steps().size() != stepCount) {
            const bool back = steps().size() > stepCount;
            ASSERT_EQ(back ? undoHistory().undo() : undoHistory().redo(), Kdad::eOk);
            const auto expected = described.find(steps().size());
            if (expected == described.end()) continue;
            ASSERT_EQ(describe(look(table)), expected->second);
        }
    }
};

TEST_F(EditSequences, Undone_to_the_start_give_the_same_table_overrides_and_inherited_values_told_apart) {
    BoxAnswers answers(std::vector<BoxAnswer>(20'000, BoxAnswer::Yes));
    std::size_t stepsMade = 0;
    for (int round = 0; round < 10'000; ++round) {
        const KdDbObjectId table = add(randomTable(8));
        const std::size_t start = steps().size();
        // Each table on the way is looked at in some of the rounds, the first and the last one in all.
        std::map<std::size_t, std::string> described = {{start, describe(look(table))}};
        for (int count = 1 + pick(8); count > 0; --count) {
            edit(table);
            if (round % 10 == 0) described[steps().size()] = describe(look(table));
        }
        const std::size_t end = steps().size();
        described[end] = describe(look(table));
        goTo(start, table, described);
        goTo(end, table, described);
        goTo(start, table, described);
        if (HasFailure()) FAIL() << "round " << round;
        stepsMade += end - start;
    }
    EXPECT_GT(stepsMade, 25'000U) << "most edits changed nothing";
}

}  // namespace
}  // namespace kdtest
