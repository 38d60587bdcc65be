// The palette of the colours that an index names.
#pragma once

#include <QWidget>
#include <functional>

namespace kdhost {

/// 240 colours in ten rows of 24 hues, and below them the nine standard colours and six greys. The arrow keys
/// walk, a click or the blank key chooses.
class ColorPalette : public QWidget {
public:
    ColorPalette(QWidget* parent, std::function<void(int)> chosen);

    /// 1 to 255; anything else marks no field.
    void setIndex(int index);
    int index() const { return m_index; }
    /// The field of an index; empty for a number that has none.
    QRect fieldOf(int index) const;
    /// The index whose field lies under the point; 0 for none.
    int indexAt(const QPoint& point) const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    int fieldSize() const;
    void choose(int index);
    void walk(int columns, int rows);

    std::function<void(int)> m_chosen;
    int m_index = 0;
};

}  // namespace kdhost
