// The texts of a resource module in one language: lines of a number, a tab and the text.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace kdhost {

using TextTable = std::unordered_map<unsigned, std::wstring>;

/// Reads a table in UTF-8. In a text, `\n`, `\t` and `\\` stand for a line feed, a tab and a backslash, and
/// another escape for itself. A line without a number, a tab and a text is passed over, and so is a line
/// that begins with '#'. Of two texts of one number the first counts.
TextTable parseTextTable(std::string_view file);

}  // namespace kdhost
