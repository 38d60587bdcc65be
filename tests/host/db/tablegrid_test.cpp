// The edges of cells: one line between neighbours, and where a side without an override takes its looks from.

#include <gtest/gtest.h>

#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/tablestyle.h"
#include "tests/support/tablebuilder.h"

using kdtest::TableBuilder;

namespace {

/// A table style whose data cells have another line weight on each of their edges: 1 on the top, 2 on the
/// inside horizontal ones, 4, 8, 16, 32.
class WeighedStyle {
public:
    WeighedStyle() {
        KdDbDictionary* dictionary = nullptr;
        EXPECT_EQ(m_database.getTableStyleDictionary(dictionary, KdDb::kForWrite), Kdad::eOk);
        auto* style = new KdDbTableStyle;
        for (const wchar_t* name : {L"_TITLE", L"_HEADER", L"_DATA"}) {
            for (int edge = 1; edge <= 32; edge *= 2) {
                const int weight = edge + (name[1] == L'T' ? 100 : name[1] == L'H' ? 200 : 0);
                style->setGridLineWeight(static_cast<KdDb::LineWeight>(weight), static_cast<KdDb::GridLineType>(edge),
                                         name);
            }
        }
        EXPECT_EQ(dictionary->setAt(L"Weighed", style, id), Kdad::eOk);
        style->close();
        dictionary->close();
    }

    KdDbObjectId id;

private:
    KdDbDatabase m_database;
};

int weight(const KdDbTable& table, int row, int column, KdDb::GridLineType edge) {
    return table.gridLineWeight(row, column, edge);
}

/// Sets one kind of looks of an edge, and asks for it.
struct PartCase {
    const char* name;
    void (*set)(KdDbTable&, int, int, KdDb::GridLineType);
    bool (*isSet)(const KdDbTable&, int, int, KdDb::GridLineType);
};
const PartCase kParts[] = {
    {"visibility",
     [](KdDbTable& t, int r, int c, KdDb::GridLineType e) { t.setGridVisibility(r, c, e, KdDb::kInvisible); },
     [](const KdDbTable& t, int r, int c, KdDb::GridLineType e) {
         return t.gridVisibility(r, c, e) == KdDb::kInvisible;
     }},
    {"line style",
     [](KdDbTable& t, int r, int c, KdDb::GridLineType e) { t.setGridLineStyle(r, c, e, KdDb::kGridLineStyleDouble); },
     [](const KdDbTable& t, int r, int c, KdDb::GridLineType e) {
         return t.gridLineStyle(r, c, e) == KdDb::kGridLineStyleDouble;
     }},
    {"colour",
     [](KdDbTable& t, int r, int c, KdDb::GridLineType e) { t.setGridColor(r, c, e, KdCmColor::fromIndex(3)); },
     [](const KdDbTable& t, int r, int c, KdDb::GridLineType e) { return t.gridColor(r, c, e).colorIndex() == 3; }},
    {"weight", [](KdDbTable& t, int r, int c, KdDb::GridLineType e) { t.setGridLineWeight(r, c, e, KdDb::kLnWt070); },
     [](const KdDbTable& t, int r, int c, KdDb::GridLineType e) {
         return t.gridLineWeight(r, c, e) == KdDb::kLnWt070;
     }},
    {"line type", [](KdDbTable& t, int r, int c, KdDb::GridLineType e) { t.setGridLinetype(r, c, e, KdDbObjectId(6)); },
     [](const KdDbTable& t, int r, int c, KdDb::GridLineType e) { return t.gridLinetype(r, c, e) == KdDbObjectId(6); }},
    {"spacing", [](KdDbTable& t, int r, int c, KdDb::GridLineType e) { t.setGridDoubleLineSpacing(r, c, e, 0.125); },
     [](const KdDbTable& t, int r, int c, KdDb::GridLineType e) { return t.gridDoubleLineSpacing(r, c, e) == 0.125; }},
};

struct SideCase {
    KdDb::GridLineType side;
    KdDb::GridLineType facing;
    int down;
    int right;
};
constexpr SideCase kSides[] = {
    {KdDb::kHorzTop, KdDb::kHorzBottom, -1, 0},
    {KdDb::kHorzBottom, KdDb::kHorzTop, 1, 0},
    {KdDb::kVertLeft, KdDb::kVertRight, 0, -1},
    {KdDb::kVertRight, KdDb::kVertLeft, 0, 1},
};

}  // namespace

TEST(TableGrid, neighbours_share_one_line_in_every_part_of_its_looks) {
    for (const PartCase& part : kParts) {
        for (const SideCase& side : kSides) {
            auto table = TableBuilder(3, 3).build();
            part.set(*table, 1, 1, side.side);
            for (int row = 0; row < 3; ++row) {
                for (int column = 0; column < 3; ++column) {
                    for (int edge = 1; edge <= 32; edge *= 2) {
                        const auto line = static_cast<KdDb::GridLineType>(edge);
                        const bool own = row == 1 && column == 1 && line == side.side;
                        const bool facing = row == 1 + side.down && column == 1 + side.right && line == side.facing;
                        EXPECT_EQ(part.isSet(*table, row, column, line), own || facing)
                            << part.name << " of side " << side.side << " at " << row << "," << column << " edge "
                            << edge;
                    }
                }
            }
        }
    }
}

TEST(TableGrid, a_side_at_the_tables_border_has_no_neighbour) {
    auto table = TableBuilder(2, 2).build();
    for (const SideCase& side : kSides) {
        const int row = side.down > 0 ? 1 : 0;
        const int column = side.right > 0 ? 1 : 0;
        table->setGridLineWeight(row, column, side.side, KdDb::kLnWt100);
        EXPECT_EQ(table->gridLineWeight(row, column, side.side), KdDb::kLnWt100);
    }
}

TEST(TableGrid, inside_edges_of_a_cell_are_kept) {
    auto table = TableBuilder(2, 2).build();
    table->setGridVisibility(0, 0, KdDb::kHorzInside, KdDb::kInvisible);
    EXPECT_EQ(table->gridVisibility(0, 0, KdDb::kHorzInside), KdDb::kInvisible);
    EXPECT_EQ(table->gridVisibility(0, 0, KdDb::kHorzBottom), KdDb::kVisible);
    EXPECT_EQ(table->gridVisibility(1, 0, KdDb::kHorzTop), KdDb::kVisible);
}

TEST(TableGrid, a_set_of_edges_is_set_at_once_and_read_by_its_first) {
    auto table = TableBuilder(3, 3).build();
    table->setGridVisibility(1, 1, static_cast<KdDb::GridLineType>(1 | 4 | 8 | 32), KdDb::kInvisible);
    for (const SideCase& side : kSides) {
        EXPECT_EQ(table->gridVisibility(1, 1, side.side), KdDb::kInvisible);
        EXPECT_EQ(table->gridVisibility(1 + side.down, 1 + side.right, side.facing), KdDb::kInvisible);
    }
    EXPECT_EQ(table->gridVisibility(1, 1, static_cast<KdDb::GridLineType>(4 | 16)), KdDb::kInvisible);
    const std::string before = kdtest::describe(*table);
    table->setGridVisibility(1, 1, static_cast<KdDb::GridLineType>(0), KdDb::kVisible);
    table->setGridVisibility(1, 1, static_cast<KdDb::GridLineType>(64), KdDb::kVisible);
    EXPECT_EQ(kdtest::describe(*table), before);
}

TEST(TableGrid, a_side_takes_the_inside_value_between_cells_of_one_style_else_the_outside_one) {
    const WeighedStyle style;
    auto table = TableBuilder(4, 2).style(style.id).build();  // title, header, data, data
    EXPECT_EQ(weight(*table, 0, 0, KdDb::kHorzTop), 101);
    EXPECT_EQ(weight(*table, 0, 0, KdDb::kHorzBottom), 104);
    EXPECT_EQ(weight(*table, 0, 0, KdDb::kVertLeft), 108);
    EXPECT_EQ(weight(*table, 0, 0, KdDb::kVertRight), 116) << "towards the title's other cell";
    EXPECT_EQ(weight(*table, 0, 1, KdDb::kVertLeft), 116);
    EXPECT_EQ(weight(*table, 0, 1, KdDb::kVertRight), 132);
    EXPECT_EQ(weight(*table, 1, 0, KdDb::kHorzTop), 201);
    EXPECT_EQ(weight(*table, 2, 0, KdDb::kHorzTop), 1);
    EXPECT_EQ(weight(*table, 2, 0, KdDb::kHorzBottom), 2) << "towards the next row of data";
    EXPECT_EQ(weight(*table, 3, 0, KdDb::kHorzTop), 2);
    EXPECT_EQ(weight(*table, 3, 0, KdDb::kHorzBottom), 4);
    EXPECT_EQ(weight(*table, 3, 0, KdDb::kHorzInside), 2);
    EXPECT_EQ(weight(*table, 3, 0, KdDb::kVertInside), 16);
}

TEST(TableGrid, sides_of_a_merge_face_what_lies_beyond_it) {
    const WeighedStyle style;
    auto table = TableBuilder(6, 4).style(style.id).merge("B3:C5").build();
    table->setCellStyle(3, 3, L"_HEADER");  // beside the merge, not at its first row
    EXPECT_EQ(weight(*table, 2, 1, KdDb::kHorzTop), 1) << "towards the header";
    EXPECT_EQ(weight(*table, 2, 1, KdDb::kHorzBottom), 2);
    EXPECT_EQ(weight(*table, 2, 1, KdDb::kVertRight), 16);
    EXPECT_EQ(weight(*table, 4, 2, KdDb::kHorzBottom), 2) << "a covered cell reads as its owner";
    EXPECT_EQ(weight(*table, 5, 1, KdDb::kHorzTop), 2) << "the merge's style counts for what faces it";
}

TEST(TableGrid, a_merges_side_is_one_line_with_all_its_neighbours) {
    auto table = TableBuilder(5, 5).merge("B2:C4").build();
    table->setGridLineWeight(1, 1, KdDb::kVertRight, KdDb::kLnWt100);
    for (int row = 1; row <= 3; ++row) EXPECT_EQ(table->gridLineWeight(row, 3, KdDb::kVertLeft), KdDb::kLnWt100);
    EXPECT_EQ(table->gridLineWeight(0, 3, KdDb::kVertLeft), KdDb::kLnWtByBlock);
    EXPECT_EQ(table->gridLineWeight(4, 3, KdDb::kVertLeft), KdDb::kLnWtByBlock);
    EXPECT_EQ(table->gridLineWeight(2, 2, KdDb::kVertRight), KdDb::kLnWt100) << "of a covered cell";
    table->setGridLineWeight(1, 1, KdDb::kHorzTop, KdDb::kLnWt050);
    EXPECT_EQ(table->gridLineWeight(0, 1, KdDb::kHorzBottom), KdDb::kLnWt050);
    EXPECT_EQ(table->gridLineWeight(0, 2, KdDb::kHorzBottom), KdDb::kLnWt050);
}

TEST(TableGrid, a_covered_cell_keeps_its_own_and_reaches_the_neighbour_outside_its_merge) {
    auto table = TableBuilder(4, 4).merge("A1:B2").build();
    table->setGridLineWeight(1, 1, KdDb::kHorzBottom, KdDb::kLnWt100);
    EXPECT_EQ(table->gridLineWeight(2, 1, KdDb::kHorzTop), KdDb::kLnWt100);
    EXPECT_EQ(table->gridLineWeight(2, 0, KdDb::kHorzTop), KdDb::kLnWtByBlock);
    table->setGridLineWeight(1, 1, KdDb::kHorzTop, KdDb::kLnWt050);
    table->unmergeCells(0, 0, 0, 0);
    EXPECT_EQ(table->gridLineWeight(1, 1, KdDb::kHorzTop), KdDb::kLnWt050);
    EXPECT_EQ(table->gridLineWeight(0, 1, KdDb::kHorzBottom), KdDb::kLnWtByBlock);
}

TEST(TableGrid, a_locked_neighbour_shares_the_line_all_the_same) {
    for (const SideCase& side : kSides) {
        auto table = TableBuilder(3, 3).lock("A1:C3", KdDb::kCellStateFormatLocked).build();
        table->setCellState(1, 1, KdDb::kCellStateNone);
        table->setGridLineWeight(1, 1, side.side, KdDb::kLnWt100);
        EXPECT_EQ(table->gridLineWeight(1, 1, side.side), KdDb::kLnWt100);
        EXPECT_EQ(table->gridLineWeight(1 + side.down, 1 + side.right, side.facing), KdDb::kLnWt100) << side.side;
    }
}

TEST(TableGrid, is_refused_by_the_lock_of_the_cell_named) {
    auto table = TableBuilder(2, 2).lock("A1", KdDb::kCellStateFormatLocked).build();
    const std::string before = kdtest::describe(*table);
    table->setGridVisibility(0, 0, KdDb::kVertRight, KdDb::kInvisible);
    EXPECT_EQ(kdtest::describe(*table), before);
}
