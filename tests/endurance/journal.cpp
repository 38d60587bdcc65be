// Lines of a script.

#include "tests/endurance/journal.h"

#include <algorithm>

#include "host/rx/encoding.h"

namespace endurance {

Journal::Journal(const std::string& arguments) {
    m_lines.push_back("; arguments: " + arguments);
}

void Journal::remark(const std::string& text) {
    m_lines.push_back("; " + text);
}

void Journal::typed(const std::wstring& text) {
    const bool isTaken = !text.empty() && std::wstring(L"@; \\").find(text.front()) != std::wstring::npos;
    m_lines.push_back((isTaken ? "\\" : "") + kdhost::toUtf8(text));
}

void Journal::acted(const std::wstring& text) {
    m_lines.push_back("@" + kdhost::toUtf8(text));
}

std::string Journal::text() const {
    std::string text;
    for (const std::string& line : m_lines) text += line + "\n";
    return text;
}

std::string Journal::tail(std::size_t count) const {
    std::string text;
    for (std::size_t at = m_lines.size() - std::min(count, m_lines.size()); at < m_lines.size(); ++at) {
        text += "    " + m_lines[at] + "\n";
    }
    return text;
}

}  // namespace endurance
