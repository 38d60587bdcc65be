// What scripts do to the prompt that waits. Each function returns an empty text, or what was wrong in a line; then
// nothing was done.
#pragma once

#include <string>

namespace kdhost {

class Editor;

namespace promptactions {

/// "X,Y", or "+X,Y" to add to what is selected.
std::wstring pick(Editor& editor, const std::wstring& arguments);
/// Cells of the current table, or "#N" and cells of the table at that place of the dump; "none" for none.
std::wstring cells(Editor& editor, const std::wstring& arguments);
/// The document of that number, counted from 1.
std::wstring document(Editor& editor, const std::wstring& number);
/// ESC, ENTER, SPACE or a single character.
std::wstring key(Editor& editor, const std::wstring& name);
/// An error unless the prompt reads so; blanks and line ends around both don't count.
std::wstring expectPrompt(const Editor& editor, const std::wstring& text);

}  // namespace promptactions
}  // namespace kdhost
