// The place of the text that is being edited: its fill, its frame, and the text in it, at the text's attachment,
// turned as the text is.
#pragma once

#include <QGraphicsItem>

#include "host/ui/inplaceeditor/textitem.h"

class KdDbMText;

namespace kdhost {

class EditorPlace;

class EditorBox : public QGraphicsItem {
public:
    EditorBox(const KdDbMText& text, RichDocument& document);

    TextItem& text() { return m_item; }
    const TextItem& text() const { return m_item; }

    /// Takes its place and size, and grows downward where the text needs more room than the cell has. `limits` is
    /// what can be seen: a cell outside comes to its edge.
    void place(const EditorPlace& place, const QRectF& limits, double dotsPerInch);

    QRectF boundingRect() const override { return m_frame; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    // Around the text the mouse does as in it.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;

private:
    void fitText(double width, double height);
    void keepWithin(const QRectF& limits);

    const KdDbMText& m_text;
    RichDocument& m_document;
    TextItem m_item;
    QRectF m_frame;
    double m_scale = 1.0;   ///< pixels for one of the document
    double m_border = 1.0;  ///< between the text's place and its frame
};

}  // namespace kdhost
