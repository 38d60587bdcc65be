// What stands in the cells of a drawn table: fills, texts, blocks.

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <map>
#include <unordered_map>
#include <utility>

#include "host/db/access.h"
#include "host/db/tablelayout.h"
#include "host/draw/paint.h"
#include "host/draw/tabledrawing.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"

namespace kdhost::draw {
namespace {

constexpr double kAngleTolerance = 1e-6;

/// Calls `draw(row, column, box)` for each cell that isn't covered, with the box of its merge; once for a merge of
/// which only a part is seen. Of cells that are drawn as one the first speaks for all.
template <class Draw>
void forEachCell(const TableDrawing& drawing, Draw draw) {
    const auto& [rows, columns] = drawing.strips;
    for (int i = 0; i < rows.count(); ++i) {
        for (int j = 0; j < columns.count(); ++j) {
            const Strip row = rows.at(i);
            const Strip column = columns.at(j);
            KdCellRange range = drawing.table.getMergeRange(row.first, column.first);
            if (!rows.isFirstSince(range.m_topRow, i) || !columns.isFirstSince(range.m_leftColumn, j)) continue;
            range.m_bottomRow = std::max(range.m_bottomRow, row.last);
            range.m_rightColumn = std::max(range.m_rightColumn, column.last);
            draw(range.m_topRow, range.m_leftColumn, drawing.geometry.box(range));
        }
    }
}

/// The box of a cell without its margins.
CellBox inner(const KdDbTable& table, int row, int column, const CellBox& box) {
    const double horizontal = table.margin(row, column, KdDb::kCellMarginLeft);
    const double vertical = table.margin(row, column, KdDb::kCellMarginTop);
    return {box.left + horizontal, box.right - horizontal, box.bottom + vertical, box.top - vertical};
}

/// Centre of a thing of that size, aligned in the box.
KdGePoint3d alignedCenter(const CellBox& box, double width, double height, KdDb::CellAlignment alignment) {
    const double x = 0.5 * horizontalOf(alignment);
    const double y = 0.5 * verticalOf(alignment);
    return {box.left + 0.5 * width + x * (box.width() - width), box.top - 0.5 * height - y * (box.height() - height),
            0.0};
}

/// Angles of the cell styles' texts; looked up once for each style.
class TextRotations {
public:
    explicit TextRotations(const KdDbTable& table) : m_style(peek<KdDbTableStyle>(table.tableStyle())) {}

    double of(const wchar_t* cellStyle) {
        if (m_style == nullptr || cellStyle == nullptr) return 0.0;
        const auto [place, added] = m_known.try_emplace(cellStyle, 0.0);
        if (added) place->second = m_style->rotation(cellStyle);
        return place->second;
    }

private:
    const KdDbTableStyle* m_style;
    std::unordered_map<std::wstring, double> m_known;
};

class TextDrawer {
public:
    explicit TextDrawer(const TableDrawing& drawing) : m_drawing(drawing), m_rotations(drawing.table) {}

    void draw(int row, int column, const CellBox& box) {
        const KdDbTable& table = m_drawing.table;
        const wchar_t* contents = table.textString(row, column);
        if (contents == nullptr || *contents == 0 || table.cellType(row, column) == KdDb::kBlockCell) return;
        const Color color = m_drawing.looks.color(table.contentColor(row, column)).value_or(m_drawing.looks.color());
        const CellBox free = inner(table, row, column, box);
        if (isUnreadable(table.textHeight(row, column))) return drawHint(row, column, free, contents, color);
        const double angle = m_rotations.of(table.cellStyle(row, column));
        // Text at a slant doesn't wrap: it runs on, and its row has made room for it.
        const bool level = std::abs(std::sin(angle)) < kAngleTolerance;
        const double wrapWidth = level ? std::max(free.width(), 0.0) : 0.0;
        const text::Layout layout =
            text::layout(contents, font(table.textStyle(row, column)), table.textHeight(row, column), wrapWidth);
        drawText(layout, placeOf(layout, free, angle, table.alignment(row, column)), color, m_drawing.looks,
                 m_drawing.out);
    }

private:
    /// Not worth to be laid out: the painter shows a bar in its place.
    bool isUnreadable(double height) const {
        const std::optional<Visible>& visible = m_drawing.context.options.visible;
        return visible && height < kReadablePixels * visible->unitsPerPixel;
    }

    /// What a text that can't be read is painted from: a line of about its length.
    void drawHint(int row, int column, const CellBox& free, const wchar_t* contents, const Color& color) {
        constexpr double kUsualAdvance = 0.75;  // of a character, in text heights
        const double height = m_drawing.table.textHeight(row, column);
        const double length = kUsualAdvance * height * static_cast<double>(std::wcslen(contents));
        const double width = std::clamp(length, 0.0, std::max(free.width(), 0.0));
        const KdGePoint3d center = alignedCenter(free, width, height, m_drawing.table.alignment(row, column));
        Text hint;
        hint.origin = m_drawing.geometry.inPlane(center.x - 0.5 * width, center.y - 0.5 * height);
        hint.direction = m_drawing.geometry.right();
        hint.up = m_drawing.geometry.up();
        hint.height = height;
        hint.width = width;
        hint.color = color;
        m_drawing.out.push_back(std::move(hint));
    }

    /// The text's turned box is aligned in the cell; the lines are aligned in the text's own box.
    TextPlace placeOf(const text::Layout& layout, const CellBox& free, double angle,
                      KdDb::CellAlignment alignment) const {
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        const double width = std::abs(layout.width * c) + std::abs(layout.height * s);
        const double height = std::abs(layout.width * s) + std::abs(layout.height * c);
        const KdGePoint3d center = alignedCenter(free, width, height, alignment);

        const TableGeometry& geometry = m_drawing.geometry;
        TextPlace place;
        place.right = geometry.right() * c + geometry.up() * s;
        place.up = geometry.up() * c - geometry.right() * s;
        place.horizontal = horizontalOf(alignment);
        place.vertical = verticalOf(alignment);
        place.anchor = geometry.inPlane(center.x, center.y) +
                       place.right * (0.5 * layout.width * (place.horizontal - 1)) -
                       place.up * (0.5 * layout.height * (place.vertical - 1));
        return place;
    }

    const text::Font& font(KdDbObjectId style) {
        const auto [place, added] = m_fonts.try_emplace(style);
        if (added) place->second = cellFont(m_drawing.table, style);
        return place->second;
    }

    const TableDrawing& m_drawing;
    TextRotations m_rotations;
    std::unordered_map<KdDbObjectId, text::Font> m_fonts;
};

/// Blocks in cells. A block that many cells show is turned into primitives once for each colour.
class BlockDrawer {
public:
    explicit BlockDrawer(const TableDrawing& drawing) : m_drawing(drawing) {}

    void draw(int row, int column, const CellBox& box) {
        const KdDbTable& table = m_drawing.table;
        if (table.cellType(row, column) != KdDb::kBlockCell) return;
        Primitives parts = partsOf(table.blockTableRecordId(row, column, 0), row, column);
        if (!extentsOf(parts).isValid()) return;
        const CellBox free = inner(table, row, column, box);

        transform(parts, KdGeMatrix3d::rotation(table.blockRotation(row, column), KdGeVector3d::kZAxis, {}));
        const double scale =
            table.isAutoScale(row, column, 0) ? fittingScale(extentsOf(parts), free) : table.blockScale(row, column);
        transform(parts, KdGeMatrix3d::scaling(scale, {}));
        const KdDbExtents size = extentsOf(parts);
        const KdGePoint3d low = size.minPoint();
        const KdGePoint3d high = size.maxPoint();
        const KdGePoint3d center = alignedCenter(free, high.x - low.x, high.y - low.y, table.alignment(row, column));
        transform(parts, KdGeMatrix3d::translation(
                             {center.x - 0.5 * (low.x + high.x), center.y - 0.5 * (low.y + high.y), 0.0}));
        const TableGeometry& geometry = m_drawing.geometry;
        transform(parts, KdGeMatrix3d::alignToWorld(geometry.inPlane(0.0, 0.0), geometry.right(), geometry.up(),
                                                    geometry.normal()));
        std::move(parts.begin(), parts.end(), std::back_inserter(m_drawing.out));
    }

private:
    /// Fills the box in one direction, and stays inside it in the other.
    static double fittingScale(const KdDbExtents& extents, const CellBox& box) {
        const double width = extents.maxPoint().x - extents.minPoint().x;
        const double height = extents.maxPoint().y - extents.minPoint().y;
        double scale = 1e20;
        if (width > 0.0) scale = std::min(scale, box.width() / width);
        if (height > 0.0) scale = std::min(scale, box.height() / height);
        return scale < 1e20 && scale > 0.0 ? scale : 1.0;
    }

    const Primitives& partsOf(KdDbObjectId block, int row, int column) {
        const Color color =
            m_drawing.looks.color(m_drawing.table.contentColor(row, column)).value_or(m_drawing.looks.color());
        const auto [place, added] = m_parts.try_emplace({block, color});
        if (added) {
            const Options options = m_drawing.context.options.everywhere();
            Context inside{options, m_drawing.looks.forParts(), m_drawing.context.blocks};
            inside.block.color = color;
            place->second = primitivesOfBlock(block, inside);
        }
        return place->second;
    }

    const TableDrawing& m_drawing;
    std::map<std::pair<KdDbObjectId, Color>, Primitives> m_parts;
};

}  // namespace

void drawFills(const TableDrawing& drawing) {
    forEachCell(drawing, [&](int row, int column, const CellBox& box) {
        const std::optional<Color> color = drawing.looks.color(drawing.table.backgroundColor(row, column));
        if (!color) return;
        const TableGeometry& geometry = drawing.geometry;
        drawing.out.push_back(Polygon{{geometry.inPlane(box.left, box.bottom), geometry.inPlane(box.right, box.bottom),
                                       geometry.inPlane(box.right, box.top), geometry.inPlane(box.left, box.top)},
                                      *color});
    });
}

void drawTexts(const TableDrawing& drawing) {
    TextDrawer drawer(drawing);
    forEachCell(drawing, [&](int row, int column, const CellBox& box) { drawer.draw(row, column, box); });
}

void drawBlocks(const TableDrawing& drawing) {
    BlockDrawer drawer(drawing);
    forEachCell(drawing, [&](int row, int column, const CellBox& box) { drawer.draw(row, column, box); });
}

}  // namespace kdhost::draw
