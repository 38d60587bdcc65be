// How a table shows that cells of it are selected: indicators with letters and numbers outside the first row
// and column, a frame around the selection, a grip on each of its sides.

#include <algorithm>
#include <utility>

#include "host/db/tablelayout.h"
#include "host/draw/tabledrawing.h"
#include "kd/db/table.h"

namespace kdhost::draw {
namespace {

constexpr Color kBandColor{230, 233, 238, false};
constexpr Color kSelectedBandColor{255, 213, 140, false};
constexpr Color kBandLineColor{150, 156, 166, false};
constexpr Color kBandTextColor{40, 44, 52, false};
constexpr Color kFrameColor{230, 120, 0, false};
constexpr Color kGripColor{0, 90, 200, false};
constexpr int kFrameWeight = 50;

/// Indicators are as high and as wide as twice the text height of data; the other sizes go with it.
constexpr double kBandInTextHeights = 2.0;
constexpr double kGripInTextHeights = 0.4;
constexpr double kLetterInTextHeights = 0.9;
constexpr double kLetterFill = 0.85;  ///< of the band's width that a label takes at most

/// A rectangle along the rows and from row to row.
struct Area {
    double left;
    double right;
    double first;
    double last;
};

class SelectionDrawer {
public:
    explicit SelectionDrawer(const TableDrawing& drawing)
        : m_drawing(drawing), m_height(drawing.table.textHeight(KdDb::kDataRow)) {
        m_range = shownSelection(drawing.table);
        m_font = cellFont(drawing.table, KdDbObjectId::kNull);
    }

    void draw() {
        drawIndicators();
        drawFrame();
    }

private:
    void drawIndicators() {
        const TableGeometry& geometry = m_drawing.geometry;
        const double band = kBandInTextHeights * m_height;
        const auto& [rows, columns] = m_drawing.strips;
        for (int i = 0; i < columns.count(); ++i) {
            const Strip column = columns.at(i);
            const bool selected = column.last >= m_range.m_leftColumn && column.first <= m_range.m_rightColumn;
            const Area area{geometry.columnEdge(column.first), geometry.columnEdge(column.last + 1), -band, 0.0};
            drawBand(area, selected);
            if (column.isSingle()) drawLabel(area, -1, column.first);
        }
        for (int i = 0; i < rows.count(); ++i) {
            const Strip row = rows.at(i);
            const bool selected = row.last >= m_range.m_topRow && row.first <= m_range.m_bottomRow;
            const Area area{-band, 0.0, geometry.rowEdge(row.first), geometry.rowEdge(row.last + 1)};
            drawBand(area, selected);
            if (row.isSingle()) drawLabel(area, row.first, -1);
        }
    }

    void drawBand(const Area& area, bool selected) {
        const std::vector<KdGePoint3d> corners = cornersOf(area);
        m_drawing.out.push_back(Polygon{corners, selected ? kSelectedBandColor : kBandColor});
        outline(corners, kBandLineColor, 0);
    }

    /// In the middle of its area, smaller where it would not fit. -1 for the row or column that it isn't about.
    void drawLabel(const Area& area, int row, int column) {
        KdString text;
        kdadConvertIndexToIndicatorString(row, column, text);
        const std::wstring label = text.str();
        double height = kLetterInTextHeights * m_height;
        const double room = kLetterFill * (area.right - area.left);
        const double width = text::layout(label, m_font, height, 0.0).width;
        if (width > room && room > 0.0) height *= room / width;

        TextPlace place;
        place.anchor = m_drawing.geometry.at(0.5 * (area.left + area.right), 0.5 * (area.first + area.last));
        place.right = m_drawing.geometry.right();
        place.up = m_drawing.geometry.up();
        place.horizontal = 1;
        place.vertical = 1;
        drawText(text::layout(label, m_font, height, 0.0), place, kBandTextColor, m_drawing.looks, m_drawing.out);
    }

    void drawFrame() {
        const TableGeometry& geometry = m_drawing.geometry;
        const Area area{geometry.columnEdge(m_range.m_leftColumn), geometry.columnEdge(m_range.m_rightColumn + 1),
                        geometry.rowEdge(m_range.m_topRow), geometry.rowEdge(m_range.m_bottomRow + 1)};
        outline(cornersOf(area), kFrameColor, kFrameWeight);
        const double middle = 0.5 * (area.left + area.right);
        const double half = 0.5 * (area.first + area.last);
        drawGrip(middle, area.first);
        drawGrip(area.left, half);
        drawGrip(area.right, half);
        drawGrip(middle, area.last);
    }

    void drawGrip(double along, double next) {
        const double half = 0.5 * kGripInTextHeights * m_height;
        m_drawing.out.push_back(Polygon{cornersOf({along - half, along + half, next - half, next + half}), kGripColor});
    }

    void outline(std::vector<KdGePoint3d> corners, const Color& color, int weight) {
        corners.push_back(corners.front());
        m_drawing.out.push_back(Polyline{std::move(corners), color, weight, {}});
    }

    std::vector<KdGePoint3d> cornersOf(const Area& area) const {
        const TableGeometry& geometry = m_drawing.geometry;
        return {geometry.at(area.left, area.first), geometry.at(area.right, area.first),
                geometry.at(area.right, area.last), geometry.at(area.left, area.last)};
    }

    const TableDrawing& m_drawing;
    double m_height;
    KdCellRange m_range;
    text::Font m_font;
};

}  // namespace

void drawSelection(const TableDrawing& drawing) {
    if (drawing.context.options.selections && drawing.table.hasSubSelection()) SelectionDrawer(drawing).draw();
}

}  // namespace kdhost::draw
