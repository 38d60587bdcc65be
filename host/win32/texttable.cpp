// Reading of a resource module's texts.

#include "host/win32/texttable.h"

#include <charconv>

#include "host/rx/encoding.h"

namespace kdhost {
namespace {

std::wstring withoutEscapes(const std::wstring& text) {
    std::wstring plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t next = text[i] == L'\\' && i + 1 < text.size() ? text[i + 1] : L'\0';
        const bool escape = next == L'n' || next == L't' || next == L'\\';
        plain += !escape ? text[i] : next == L'n' ? L'\n' : next == L't' ? L'\t' : L'\\';
        if (escape) ++i;
    }
    return plain;
}

void readLine(std::string_view line, TextTable& table) {
    unsigned number = 0;
    const char* const end = line.data() + line.size();
    const auto [tab, error] = std::from_chars(line.data(), end, number);
    if (error != std::errc() || tab == end || *tab != '\t' || tab + 1 == end) return;
    table.emplace(number, withoutEscapes(fromUtf8({tab + 1, static_cast<std::size_t>(end - tab - 1)})));
}

}  // namespace

TextTable parseTextTable(std::string_view file) {
    TextTable table;
    while (!file.empty()) {
        const std::size_t end = file.find('\n');
        std::string_view line = file.substr(0, end);
        file.remove_prefix(end == std::string_view::npos ? file.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        readLine(line, table);
    }
    return table;
}

}  // namespace kdhost
