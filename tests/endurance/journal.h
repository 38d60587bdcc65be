// What a run has done: lines that kdhost takes as a script.
#pragma once

#include <string>
#include <vector>

namespace endurance {

/// The comment behind which only steps of undo and redo follow.
inline constexpr const char* kBehindActions = "all steps back and forth";

class Journal {
public:
    /// `arguments` are those of the program for the same run; see the page on scenarios.
    explicit Journal(const std::string& arguments);

    /// A comment, which a script passes over.
    void remark(const std::string& text);
    /// A line at a prompt, as typed.
    void typed(const std::wstring& text);
    /// A line on a window, without its "@".
    void acted(const std::wstring& text);

    const std::vector<std::string>& lines() const { return m_lines; }
    std::string text() const;
    /// The last lines, for a message.
    std::string tail(std::size_t count) const;
    /// The number of the script's line that was written last, counted from 1.
    std::size_t length() const { return m_lines.size(); }

private:
    std::vector<std::string> m_lines;
};

}  // namespace endurance
