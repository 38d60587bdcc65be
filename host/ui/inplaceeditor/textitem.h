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
    /// only where the caret can't move on; a key that an input method is at work with never does.
    std::optional<int> endingKey(const QKeyEvent& event) const;
    /// Takes a key press that ends nothing.
    void press(QKeyEvent& event);

    void selectAll();
    void moveToEnd();

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;

private:
    bool isComposing() const;
    void copy() const;
    void paste();

    RichDocument& m_document;
};

}  // namespace kdhost
