// What a script does to the in-place editor, by keys and mouse as the other actions on windows.
#pragma once

#include <optional>
#include <string>

namespace kdhost::automation {

/// Replaces the text, line ends in it by Alt and Enter, unless it is empty; then ends the editor by a key: TAB,
/// SHIFTTAB, ENTER, SHIFTENTER, CTRLENTER, UP, DOWN, LEFT, RIGHT or ESC, or by a press OUTSIDE. Arrows go to the
/// text's end on their side first. An empty text, or what was wrong.
std::wstring edit(const std::wstring& key, const std::wstring& text);

/// What the editor shows, as it is read; none when it isn't open.
std::optional<std::wstring> editorText();

}  // namespace kdhost::automation
