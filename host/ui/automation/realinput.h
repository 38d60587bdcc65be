// Keys and mouse as a window receives them from the screen, so that focus, popups and modal dialogs have their
// say as under a person's hands.
#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

class QWidget;

namespace kdhost {

/// Brings the top dialog to the front again where its message box has just ended, which a person would wait for.
/// A window that stands over the dialog stays in front.
void bringTopDialogToFront();

/// A key that goes down and up in the window that has the keyboard: a popup, else the active one. `text` is
/// what it types.
void pressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = QString());

/// One key for each character.
void typeKeys(const QString& text);

/// A button of the mouse at a place within the widget. Presses never join with earlier ones to a double click.
void pressMouse(QWidget& widget, const QPoint& place, Qt::MouseButton button = Qt::LeftButton, bool twice = false);

}  // namespace kdhost
