// The widget that shows the active drawing. It zooms and pans by itself; all else that the mouse does goes to a
// ViewInput.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <vector>

#include "host/app/window/viewinput.h"
#include "host/ed/viewwidget.h"

namespace kdhost {

class Editor;

namespace draw {
class View;
}

class DrawingView : public QWidget, public ViewWidget {
public:
    explicit DrawingView(QWidget* parent = nullptr);
    ~DrawingView() override;

    /// The input stays the caller's and lives as long as the view shows anything.
    void setInput(ViewInput* input) { m_input = input; }
    ViewInput* input() const { return m_input; }
    /// Told where the mouse is, in world coordinates.
    void setCursorListener(std::function<void(const KdGePoint3d&)> listener) { m_cursorListener = std::move(listener); }

    /// Shows the active drawing, its view as large as the widget.
    void showActive();
    /// The drawing, or what it is seen by, has changed.
    void redraw();
    void zoomExtents();

    QWidget& widget() override { return *this; }
    QPointF toPixels(const KdGePoint3d& world) const override;
    KdGePoint3d toWorld(const QPointF& pixels) const override;
    double scale() const override;
    QColor paper() const override;
    void addFollower(ViewFollower* follower) override { m_followers.push_back(follower); }
    void removeFollower(ViewFollower* follower) override;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// Null without a drawing.
    draw::View* shown() const;
    ViewPoint pointAt(const QMouseEvent& event) const;
    void place(Editor& editor) const;
    void tellFollowers();
    void paintDrawing();
    void paintDragged(QPainter& painter) const;
    void paintSelected(QPainter& painter) const;
    void paintCross(QPainter& painter) const;
    void pan(const QPointF& to);
    void setShape(Qt::CursorShape shape);

    ViewInput* m_input = nullptr;
    std::function<void(const KdGePoint3d&)> m_cursorListener;
    std::vector<ViewFollower*> m_followers;
    QPixmap m_picture;     ///< of the drawing alone
    KdGePoint3d m_corner;  ///< of what followers know to be shown, and its scale
    double m_scale = 0.0;
    bool m_isStale = true;
    bool m_pans = false;
    QPoint m_contextPressed;
    QPointF m_mouse;
    bool m_hasMouse = false;
    bool m_hasCross = true;
};

}  // namespace kdhost
