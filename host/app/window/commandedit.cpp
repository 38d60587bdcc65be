// The edit of the command line.

#include "host/app/window/commandedit.h"

#include <QKeyEvent>

namespace kdhost {

CommandEdit::CommandEdit(std::function<bool(const QKeyEvent&)> takeKey, QWidget* parent)
    : QLineEdit(parent), m_takeKey(std::move(takeKey)) {
    setObjectName(QStringLiteral("CommandEdit"));
    setFrame(false);
    setContextMenuPolicy(Qt::DefaultContextMenu);
}

bool CommandEdit::event(QEvent* event) {
    // With nothing typed there is nothing to edit: undo, copy and their like are the window's.
    if (event->type() == QEvent::ShortcutOverride && text().isEmpty()) {
        event->ignore();
        return false;
    }
    // Tab would leave the edit before it came to keyPressEvent.
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        if ((key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab)) {
            m_takeKey(key);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void CommandEdit::keyPressEvent(QKeyEvent* event) {
    if (!m_takeKey(*event)) QLineEdit::keyPressEvent(event);
}

}  // namespace kdhost
