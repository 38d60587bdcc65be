// What tables look like, as lines, solids, texts and insertions in blocks of their own.
//
// A block lies in the table's own coordinates: the table's position is its origin, rows run along x, text stands along
// y.

#include "host/file/tableblocks.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "host/db/access.h"
#include "host/db/symbolstate.h"
#include "host/db/tableaccess.h"
#include "host/db/tablelayout.h"
#include "host/db/tableplace.h"
#include "host/db/walk.h"
#include "host/file/blocks.h"
#include "kd/db/symboltable.h"

namespace kdhost::file {
namespace {

/// How one piece of the grid is drawn; `gap` is between the lines of a double line.
struct Look {
    KdCmColor color;
    KdDb::LineWeight weight = KdDb::kLnWtByBlock;
    KdDbObjectId linetype;
    double gap = 0.0;

    friend bool operator==(const Look&, const Look&) = default;
};

struct Box {
    double left;
    double right;
    double bottom;
    double top;
};

/// Line ends of a cell as the code for them, which all programs know; those behind the text show nothing.
std::wstring withParagraphs(std::wstring_view text) {
    std::wstring result;
    text = text.substr(0, text.find_last_not_of(L"\r\n") + 1);
    for (const wchar_t letter : text) {
        if (letter == L'\n') {
            result += L"\\P";
        } else if (letter != L'\r') {
            result += letter;
        }
    }
    return result;
}

class Drawer {
public:
    Drawer(SaveContext& context, const TableBlock& block)
        : m_context(context),
          m_out(context.out),
          m_block(block),
          m_table(*block.table),
          m_state(tableState(m_table)),
          m_x(columnPositions(m_table)),
          m_y(rowPositions(m_table)),
          m_sign(flowOf(m_state) == 0 ? -1.0 : 1.0) {}

    void draw() {
        forEachCell([&](int row, int column, const Box& box) { fill(row, column, box); });
        forEachCell([&](int row, int column, const Box& box) { content(row, column, box); });
        for (int line = 0; line <= m_state.rowCount(); ++line) drawLine(true, line, m_state.columnCount());
        for (int line = 0; line <= m_state.columnCount(); ++line) drawLine(false, line, m_state.rowCount());
    }

private:
    double x(int line) const { return m_x[static_cast<std::size_t>(line)]; }
    double y(int line) const { return m_sign * m_y[static_cast<std::size_t>(line)]; }

    template <class Draw>
    void forEachCell(Draw draw) {
        for (int row = 0; row < m_state.rowCount(); ++row) {
            for (int column = 0; column < m_state.columnCount(); ++column) {
                if (m_state.look(row, column).isCovered) continue;
                const KdCellRange range = m_state.mergeOf(row, column);
                const double ends[] = {y(range.m_topRow), y(range.m_bottomRow + 1)};
                draw(row, column,
                     Box{x(range.m_leftColumn), x(range.m_rightColumn + 1), std::min(ends[0], ends[1]),
                         std::max(ends[0], ends[1])});
            }
        }
    }

    void begin(std::string_view name, const KdCmColor& color) {
        constexpr int kByLayer = 256;
        m_out.raw(0, name);
        m_out.handle(5, m_context.newHandle());
        m_out.handle(330, m_block.record);
        m_out.raw(100, "AcDbEntity");
        m_out.raw(8, "0");
        const int index = color.isNone() ? 0 : color.colorIndex();
        if (index != kByLayer) m_out.integer(62, index);
        if (color.isByColor()) m_out.integer(420, color.red() << 16 | color.green() << 8 | color.blue());
    }

    void fill(int row, int column, const Box& box) {
        const KdCmColor color = m_table.backgroundColor(row, column);
        if (color.isNone()) return;
        begin("SOLID", color);
        m_out.raw(100, "AcDbTrace");
        m_out.point(10, box.left, box.top, 0.0);
        m_out.point(11, box.right, box.top, 0.0);
        m_out.point(12, box.left, box.bottom, 0.0);
        m_out.point(13, box.right, box.bottom, 0.0);
    }

    void content(int row, int column, const Box& box) {
        const CellContent& cell = m_state.content(row, column);
        const double horizontal = m_table.margin(row, column, KdDb::kCellMarginLeft);
        const double vertical = m_table.margin(row, column, KdDb::kCellMarginTop);
        const Box free{box.left + horizontal, box.right - horizontal, box.bottom + vertical, box.top - vertical};
        if (cell.type() == KdDb::kBlockCell) return insertion(cell, row, column, free);
        const wchar_t* contents = shownText(m_table, cell);
        if (contents != nullptr && *contents != L'\0') text(contents, row, column, free);
    }

    /// 0, 1 or 2 for left, middle and right, or top, middle and bottom.
    static double along(double first, double last, int place) { return first + (last - first) * 0.5 * place; }

    void text(const wchar_t* contents, int row, int column, const Box& free) {
        const int place = m_table.alignment(row, column) - KdDb::kTopLeft;
        begin("MTEXT", m_table.contentColor(row, column));
        m_out.raw(100, "AcDbMText");
        m_out.point(10, along(free.left, free.right, place % 3), along(free.top, free.bottom, place / 3), 0.0);
        m_out.real(40, m_table.textHeight(row, column));
        m_out.real(41, std::max(0.0, free.right - free.left));
        m_out.integer(71, place + 1);
        m_out.integer(72, 5);
        m_out.longText(3, 1, withParagraphs(contents));
        const KdDbObjectId style = m_table.textStyle(row, column);
        const KdDbObjectId standIn = m_context.contents.current.textStyle;
        m_out.raw(7, m_context.nameOf(m_context.nameOf(style).empty() ? standIn : style));
        m_out.integer(73, 1);
        m_out.integer(44, 1);
    }

    void insertion(const CellContent& cell, int row, int column, const Box& free) {
        const std::string& name = m_context.nameOf(cell.block());
        const auto* block = peek<KdDbBlockTableRecord>(cell.block());
        if (block == nullptr || name.empty()) return;
        const KdDbExtents extents = extentsOfEntities(cell.block());
        if (!extents.isValid()) return;
        const KdGePoint3d low = extents.minPoint();
        const KdGePoint3d high = extents.maxPoint();
        double scale = cell.objects->blockScale;
        if (cell.objects->autoFit) {
            const double across = (free.right - free.left) / std::max(high.x - low.x, 1e-9);
            const double up = (free.top - free.bottom) / std::max(high.y - low.y, 1e-9);
            scale = std::max(1e-9, std::min(across, up));
        }
        const double angle = cell.objects->blockRotation;
        const double middleX = (low.x + high.x) / 2.0 - block->origin().x;
        const double middleY = (low.y + high.y) / 2.0 - block->origin().y;
        const int place = m_table.alignment(row, column) - KdDb::kTopLeft;
        const double width = (high.x - low.x) * scale;
        const double height = (high.y - low.y) * scale;
        const double centerX = along(free.left + width / 2.0, free.right - width / 2.0, place % 3);
        const double centerY = along(free.top - height / 2.0, free.bottom + height / 2.0, place / 3);
        begin("INSERT", KdCmColor::byBlock());
        m_out.raw(100, "AcDbBlockReference");
        m_out.raw(2, name);
        m_out.point(10, centerX - scale * (middleX * std::cos(angle) - middleY * std::sin(angle)),
                    centerY - scale * (middleX * std::sin(angle) + middleY * std::cos(angle)), 0.0);
        for (int axis = 0; axis < 3; ++axis) m_out.real(41 + axis, scale);
        m_out.angle(50, angle);
    }

    /// How the edge at that place of a line looks; nothing for one that isn't drawn, as inside a merge.
    std::optional<Look> lookAt(bool ofRows, int line, int place) const {
        const bool atEnd = line == (ofRows ? m_state.rowCount() : m_state.columnCount());
        const int row = ofRows ? line - (atEnd ? 1 : 0) : place;
        const int column = ofRows ? place : line - (atEnd ? 1 : 0);
        const KdDb::GridLineType edge =
            ofRows ? (atEnd ? KdDb::kHorzBottom : KdDb::kHorzTop) : (atEnd ? KdDb::kVertRight : KdDb::kVertLeft);
        const MergeLink& merge = m_state.mergeLink(row, column);
        if (!atEnd && (ofRows ? merge.up : merge.left) != 0) return std::nullopt;
        if (m_table.gridVisibility(row, column, edge) != KdDb::kVisible) return std::nullopt;
        const bool isDouble = m_table.gridLineStyle(row, column, edge) == KdDb::kGridLineStyleDouble;
        return Look{m_table.gridColor(row, column, edge), m_table.gridLineWeight(row, column, edge),
                    m_table.gridLinetype(row, column, edge),
                    isDouble ? m_table.gridDoubleLineSpacing(row, column, edge) : 0.0};
    }

    /// Neighbouring pieces of one look are one line.
    void drawLine(bool ofRows, int line, int pieces) {
        std::optional<Look> look;
        int first = 0;
        for (int piece = 0; piece <= pieces; ++piece) {
            const std::optional<Look> next = piece == pieces ? std::nullopt : lookAt(ofRows, line, piece);
            if (next == look && piece > 0) continue;
            if (look) drawPiece(ofRows, line, first, piece, *look);
            look = next;
            first = piece;
        }
    }

    void drawPiece(bool ofRows, int line, int first, int last, const Look& look) {
        for (const double side : {-0.5, 0.5}) {
            begin("LINE", look.color);
            if (look.linetype.isNull()) {
                m_out.raw(6, "ByBlock");
            } else if (!m_context.nameOf(look.linetype).empty()) {
                m_out.raw(6, m_context.nameOf(look.linetype));
            }
            if (look.weight != KdDb::kLnWtByLayer) m_out.integer(370, look.weight);
            m_out.raw(100, "AcDbLine");
            const double shift = side * look.gap;
            for (const int end : {first, last}) {
                const int code = end == first ? 10 : 11;
                m_out.point(code, ofRows ? x(end) : x(line) + shift, ofRows ? y(line) + shift : y(end), 0.0);
            }
            if (look.gap == 0.0) return;
        }
    }

    SaveContext& m_context;
    TagWriter& m_out;
    const TableBlock& m_block;
    const KdDbTable& m_table;
    const TableState& m_state;
    const std::vector<double>& m_x;
    const std::vector<double>& m_y;
    double m_sign;
};

}  // namespace

TableBlocks::TableBlocks(SaveContext& context) {
    int number = 0;
    const auto* blocks = peek<KdDbBlockTable>(context.contents.roots.blockTable);
    for (const KdDbObjectId id : stateOf<KdDbSymbolTableState>(*blocks).records) {
        const auto* block = peek<KdDbBlockTableRecord>(id);
        if (block == nullptr) continue;
        for (const KdDbObjectId entity : stateOf<KdDbBlockTableRecordState>(*block).entities) {
            const auto* table = peek<KdDbTable>(entity);
            if (table == nullptr) continue;
            std::wstring name;
            do name = L"*T" + std::to_wstring(++number);
            while (blocks->has(name.c_str()));
            m_place.emplace(table, m_blocks.size());
            m_blocks.push_back({table, std::string(name.begin(), name.end()), context.newHandle()});
        }
    }
}

const TableBlock& TableBlocks::of(const KdDbTable& table) const {
    return m_blocks[m_place.at(&table)];
}

void TableBlocks::writeRecords(SaveContext& context, std::uint64_t tableOfBlocks) const {
    for (const TableBlock& block : m_blocks) {
        context.out.raw(0, "BLOCK_RECORD");
        context.out.handle(5, block.record);
        context.out.handle(330, tableOfBlocks);
        context.out.raw(100, "AcDbSymbolTableRecord");
        context.out.raw(100, "AcDbBlockTableRecord");
        context.out.raw(2, block.name);
        context.out.handle(340, 0);
        context.out.integer(70, 0);
        context.out.integer(280, 1);
        context.out.integer(281, 0);
    }
}

void TableBlocks::writeBlocks(SaveContext& context) const {
    for (const TableBlock& block : m_blocks) {
        settleGrowth(*block.table);
        writeBlockBegin(context, block.record, block.name, {}, true);
        Drawer(context, block).draw();
        writeBlockEnd(context, block.record);
    }
}

}  // namespace kdhost::file
