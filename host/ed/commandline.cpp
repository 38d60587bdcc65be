// What is written to the command line.

#include "host/ed/commandline.h"

#include "kd/ed/prompts.h"
#include "mfc/stdstr.h"

#include <cstdarg>

namespace kdhost {

void CommandLineListener::echoed(const std::wstring&) {}

std::wstring withoutLineEnds(const std::wstring& text) {
    const wchar_t* const lineEnds = L"\r\n";
    const std::size_t first = text.find_first_not_of(lineEnds);
    if (first == std::wstring::npos) return {};
    return text.substr(first, text.find_last_not_of(lineEnds) - first + 1);
}

void CommandLine::write(const std::wstring& text) {
    if (m_messages.size() == 2 * kKept) {
        m_messages.erase(m_messages.begin(), m_messages.begin() + static_cast<std::ptrdiff_t>(kKept));
    }
    m_messages.push_back(text);
    if (m_listener != nullptr) m_listener->written(text);
}

void CommandLine::echo(const std::wstring& input) {
    if (m_listener != nullptr) m_listener->echoed(input);
}

void CommandLine::fail(const std::wstring& message) {
    write(L"\n" + message);
    if (m_listener != nullptr) m_listener->failed(message);
}

std::wstring CommandLine::lastMessage() const {
    for (auto message = m_messages.rbegin(); message != m_messages.rend(); ++message) {
        std::wstring text = withoutLineEnds(*message);
        if (!text.empty()) return text;
    }
    return {};
}

CommandLine& commandLine() {
    static CommandLine instance;
    return instance;
}

}  // namespace kdhost

int kdedPrompt(const wchar_t* text) {
    if (text == nullptr) return RTERROR;
    kdhost::commandLine().write(text);
    return RTNORM;
}

int kdutPrintf(const wchar_t* format, ...) {
    if (format == nullptr) return RTERROR;
    va_list arguments;
    va_start(arguments, format);
    const std::wstring text = kdFormatV(format, arguments);
    va_end(arguments);
    return kdedPrompt(text.c_str());
}
