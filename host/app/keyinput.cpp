// Keys for the drawing.

#include "host/app/keyinput.h"

#include <QKeyEvent>

#include "host/app/cells/cellactions.h"
#include "host/ed/editor.h"

namespace kdhost {

bool takeKeyForDrawing(const QKeyEvent& key) {
    Editor* editor = currentEditor();
    if (editor == nullptr) return false;
    if (sendKeyToCells(*editor, key.key(), key.modifiers(), key.text())) return true;
    switch (key.key()) {
        case Qt::Key_Escape:
            editor->input().put(InputItem::Kind::Escape);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            editor->input().type(L"\n");
            return true;
        default:
            break;
    }
    if (key.text().isEmpty() || !key.text().at(0).isPrint()) return false;
    editor->input().type(key.text().toStdWString());
    return true;
}

}  // namespace kdhost
