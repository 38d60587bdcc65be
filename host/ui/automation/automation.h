// What a script does to the top dialog, the open popup menu and the message box, as a person would do it: by
// keys and mouse. Each function returns an empty text, or what was wrong in a line; then nothing was done, unless
// told otherwise. A function whose keys or clicks open a dialog or menu returns when that one has ended: who
// carries out a script goes on with its lines from within the dialog's own loop.
#pragma once

#include <string>

class QWidget;

namespace kdhost::automation {

/// The open popup menu or drop-down list, else the modal dialog or message box, or a window shown over it, else
/// the active window; null when nothing is open.
QWidget* topWindow();
/// For messages: what the top window is, its name and its title; empty when nothing is open.
std::wstring topWindowName();
/// True when a dialog, message box, menu or drop-down list is open, which keeps people from all else.
bool isBlocked();
/// While a prompt waits: true when a menu or window that stands beside it has the keys.
bool hasKeyboard();
/// True when any window shows that has controls.
bool hasWindow();

/// Puts the value into an edit, spin box or editable combo box, or on/off into a check box or radio button, and
/// moves the focus to the next control, unless what the value set off took the focus away.
std::wstring set(const std::wstring& name, const std::wstring& value);
/// Types into the control and stays in it. What was typed before the control lost the focus stays.
std::wstring type(const std::wstring& name, const std::wstring& text);
/// Moves the focus, which the control left may bring back.
std::wstring focus(const std::wstring& name);
/// Chooses a row of a combo box (opened or not) or a list, or a tab, by its text or as "#INDEX".
std::wstring select(const std::wstring& name, const std::wstring& choice);
/// Opens a combo box, or presses the arrow part of a button.
std::wstring drop(const std::wstring& name);
/// `place` is empty for the control's middle, "#ROW" for a list's row, "empty" for the space below its rows.
std::wstring click(const std::wstring& name, const std::wstring& place = {});
std::wstring doubleClick(const std::wstring& name, const std::wstring& place = {});
std::wstring context(const std::wstring& name, const std::wstring& place = {});
/// Ends the label that is being edited with a text, or with "CANCEL".
std::wstring label(const std::wstring& text);
/// Chooses an item of the open popup menu, its sub-menus included, by object name, or by its text in quotes or
/// without; "CANCEL" closes the menu. A disabled item is an error and leaves the menu open.
std::wstring menu(const std::wstring& item);
/// Answers the message box: OK, CANCEL, YES, NO.
std::wstring answer(const std::wstring& button);
/// Answers the file dialog with a path, taken from the program's own folder, or with "CANCEL".
std::wstring file(const std::wstring& path);
/// Answers the colour dialog: none, bylayer, byblock, an index, "R,G,B" or "CANCEL".
std::wstring color(const std::wstring& color);
/// "[CTRL+][SHIFT+]NAME", a name or a single character, to whatever has the focus.
std::wstring key(const std::wstring& name);
/// A picture of the top window, with none open of the main window, also a hidden one, in the format of the file's
/// ending.
std::wstring shot(const std::wstring& file);
/// `name` is a control or an item of the open menu; `property` is text, enabled, checked, rows or visible.
std::wstring expect(const std::wstring& name, const std::wstring& property, const std::wstring& value);
std::wstring expectFocus(const std::wstring& name);
/// Closes the top window by its frame.
std::wstring close();
/// Ends the top window whatever it holds, as cancelling would but without asking any control of it.
void dismiss();

}  // namespace kdhost::automation
