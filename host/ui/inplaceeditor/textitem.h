// The text that is being edited: typing, the caret and the clipboard are its own; the keys that end the editing it
// tells apart.
#pragma once

#include <QGraphicsTextItem>
#include <optional>

#include "host/ui/inplaceeditor/richdocument.h"

class QMimeData;

namespace kdhost {

class TextItem : public QGraphicsTextItem {
public:
    TextItem(RichDocument& document, QGraphicsItem* parent);

    /// The code of the key that ends the editing by this press; none for a key that is the text's. Arrows end it
    /// only where the caret can't move on.
    std::optional<int> endingKey(const QKeyEvent& event) const;
    /// Takes a key press that ends nothing.
    void press(QKeyEvent& event);

    void selectAll();
    void moveToEnd();
    /// To the character nearest to a place of the item.
    void moveTo(const QPointF& place);
    /// Runs the menu of a right click; the menu stands over the widget.
    void openMenu(const QPoint& onScreen, QWidget* widget);
    /// While an input method is at work all keys are its own.
    bool isComposing() const;

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;

private:
    struct MenuItem;

    void undo() { document()->undo(); }
    void redo() { document()->redo(); }
    void cut();
    void copy();
    void paste();

    RichDocument& m_document;
};

}  // namespace kdhost
