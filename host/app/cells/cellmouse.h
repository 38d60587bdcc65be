// The mouse and the keys over the drawing: a click selects an object, a cell of the table that is selected, or a whole
// row or column by its indicator; dragging selects a rectangle of cells or moves a grip. While a prompt waits, clicks
// answer it.
#pragma once

#include <memory>

#include "host/app/cells/grips.h"
#include "host/app/window/promptinput.h"
#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"

namespace kdhost {

class Editor;

class CellMouse : public PromptInput {
public:
    void press(const ViewPoint& point) override;
    void release(const ViewPoint& point) override;
    void doubleClick(const ViewPoint& point) override;
    void move(const ViewPoint& point) override;
    void context(const ViewPoint& point) override;
    bool key(const QKeyEvent& event) override;
    void paintOver(QPainter& painter, const draw::View& view) override;
    Qt::CursorShape cursorAt(const ViewPoint& point) override;

private:
    /// What the button that is held down drags.
    enum class Drag { Nothing, Cells, Rows, Columns, AnsweringCells, Grip };

    bool beginGrip(Editor& editor, KdDbObjectId table, const ViewPoint& point);
    bool beginIndicator(Editor& editor, KdDbObjectId table, const ViewPoint& point);
    bool beginCells(Editor& editor, KdDbObjectId table, const ViewPoint& point);
    void begin(Drag drag, KdDbObjectId table, const KdCellRange& anchor);
    void answerCells(Editor& editor, const ViewPoint& point);
    void extendTo(Editor& editor, const ViewPoint& point);
    /// The cells from the anchor to the place, clamped to the table; the anchor itself where the place is no cell.
    KdCellRange rangeTo(const ViewPoint& point) const;

    Drag m_drag = Drag::Nothing;
    KdDbObjectId m_table;
    KdCellRange m_anchor;  ///< the cells where the drag began
    Grip m_grip;
    KdGePoint3d m_gripTo;
};

}  // namespace kdhost
