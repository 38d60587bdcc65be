// Menus of `.ui` files. A menu is built anew whenever it is shown, so that it is read from its file once and built from
// what was read; the general loader would read the file each time.
#pragma once

class QByteArray;
class QMenu;
class QWidget;

namespace kdhost {

/// The menu that the file describes, with its sub-menus and actions, in the host's language. Null, with nothing built,
/// for a file that holds more than menus, actions and their texts: that is for the general loader.
QMenu* buildMenuTree(const QByteArray& form, QWidget* parent);

}  // namespace kdhost
