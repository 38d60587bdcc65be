// Reading of scripts.

#include "host/app/script.h"

#include <QFile>
#include <sstream>

#include "host/rx/encoding.h"

namespace kdhost {
namespace {

std::optional<ScriptLine> readLine(int number, const std::wstring& text) {
    if (text.empty()) return ScriptLine{number, ScriptLine::Kind::Typed, text};
    switch (text.front()) {
        case L';':
            return std::nullopt;
        case L'@':
            return ScriptLine{number, ScriptLine::Kind::Action, text.substr(1)};
        case L'\\': {
            const bool literal = text.size() > 1 && std::wstring(L"@; \\").find(text[1]) != std::wstring::npos;
            return ScriptLine{number, ScriptLine::Kind::Typed, literal ? text.substr(1) : text};
        }
        default:
            return ScriptLine{number, ScriptLine::Kind::Typed, text};
    }
}

}  // namespace

Script::Script(std::string file, const std::string& text) : m_file(std::move(file)) {
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        ++m_lastLine;
        if (auto read = readLine(m_lastLine, fromUtf8(line))) m_lines.push_back(*std::move(read));
    }
}

std::optional<Script> Script::load(const std::string& path, std::string& error) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        error = path + ": " + file.errorString().toStdString();
        return std::nullopt;
    }
    return Script(path, file.readAll().toStdString());
}

std::optional<ScriptLine> Script::next() {
    if (m_lines.empty()) {
        m_current = m_lastLine;
        return std::nullopt;
    }
    ScriptLine line = std::move(m_lines.front());
    m_lines.pop_front();
    m_current = line.number;
    return line;
}

std::wstring withLineEnds(const std::wstring& text) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool lineEnd = text[i] == L'\\' && i + 1 < text.size() && text[i + 1] == L'n';
        result += lineEnd ? L'\n' : text[i];
        i += lineEnd ? 1 : 0;
    }
    return result;
}

Split splitFirst(const std::wstring& text) {
    const std::size_t blank = text.find(L' ');
    if (blank == std::wstring::npos) return {text, {}};
    return {text.substr(0, blank), text.substr(blank + 1)};
}

std::wstring expectEqual(const wchar_t* what, const std::wstring& found, const std::wstring& wanted) {
    if (found == wanted) return {};
    return std::wstring(what) + L" is \"" + found + L"\", not \"" + wanted + L"\".";
}

}  // namespace kdhost
