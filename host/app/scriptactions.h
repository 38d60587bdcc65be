// The lines of a script that begin with "@".
#pragma once

#include <string>

namespace kdhost {

class Editor;

// Each carries out a line given without its "@". An empty text, or why it can't be carried out.

/// While a prompt of the editor waits. A line for windows acts on those that are shown beside it, as a toolbar.
std::wstring actOnPrompt(Editor& editor, const std::wstring& line);
/// While a dialog, message box or menu waits.
std::wstring actOnWindow(const std::wstring& line);

}  // namespace kdhost
