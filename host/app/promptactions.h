// What scripts do to the prompt that waits. Each function returns an empty text, or what was wrong in a line; then
// nothing was done.
#pragma once

#include <string>

namespace kdhost {

class Editor;

namespace promptactions {

/// "X,Y", or "+X,Y" to add to what is selected.
std::wstring pick(Editor& editor, const std::wstring& arguments);
/// "X,Y X,Y": the left button held from one place to the other, on a grip, an indicator or cells as in the window.
std::wstring drag(Editor& editor, const std::wstring& arguments);
/// Moves the cursor to X,Y while something follows it.
std::wstring move(Editor& editor, const std::wstring& arguments);
/// Cells of the current table, or "#N" and cells of the table at that place of the dump; "none" for none.
std::wstring cells(Editor& editor, const std::wstring& arguments);
/// The document of that number, counted from 1.
std::wstring document(Editor& editor, const std::wstring& number);
/// A double click on a cell at X,Y.
std::wstring doubleClick(Editor& editor, const std::wstring& arguments);
/// The right button at X,Y, on a cell of the current table, or on an indicator of it ("row 3", "column B").
std::wstring context(Editor& editor, const std::wstring& arguments);
/// ESC, ENTER, SPACE or a single character; while cells are selected also the keys that act on them.
std::wstring key(Editor& editor, const std::wstring& name);
/// An error unless the prompt reads so; blanks and line ends around both don't count.
std::wstring expectPrompt(const Editor& editor, const std::wstring& text);

}  // namespace promptactions
}  // namespace kdhost
