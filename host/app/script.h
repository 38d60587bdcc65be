// Scripts: a person's typing and clicking, a line each.
#pragma once

#include <deque>
#include <optional>
#include <string>

namespace kdhost {

struct ScriptLine {
    enum class Kind { Typed, Action };
    int number = 0;
    Kind kind = Kind::Typed;
    std::wstring text;  ///< as typed, or an action's name and arguments without the "@"
};

/// The lines of a script that mean something. A line that begins with ";" is a comment; a leading backslash
/// takes "@", ";", a backslash or a blank literally.
class Script {
public:
    /// `text` is UTF-8; line ends of both kinds are taken.
    Script(std::string file, const std::string& text);
    /// None, with `error` one line, when the file can't be read.
    static std::optional<Script> load(const std::string& file, std::string& error);

    const std::string& file() const { return m_file; }
    /// The next line; none at the end.
    std::optional<ScriptLine> next();
    /// Number of the line that was taken last, the last one of the file once all were taken.
    int currentLine() const { return m_current; }

private:
    std::string m_file;
    std::deque<ScriptLine> m_lines;
    int m_current = 0;
    int m_lastLine = 0;
};

/// Text of a script with `\n` for a line end.
std::wstring withLineEnds(const std::wstring& text);

/// The first word of a text, and what follows the blank behind it.
struct Split {
    std::wstring first;
    std::wstring rest;
};
Split splitFirst(const std::wstring& text);

/// What an expectation says when `found` is not `wanted`; empty when it is.
std::wstring expectEqual(const wchar_t* what, const std::wstring& found, const std::wstring& wanted);

}  // namespace kdhost
