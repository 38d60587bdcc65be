// The command line: what the host and modules write there, and where commands report that they failed.
#pragma once

#include <string>
#include <vector>

namespace kdhost {

/// Told of what is written and of what fails.
class CommandLineListener {
public:
    virtual ~CommandLineListener() = default;
    virtual void written(const std::wstring& text) = 0;
    /// A command of the host could not do its work; the message has been written already.
    virtual void failed(const std::wstring& message) = 0;
    /// Input that was sent, to be shown as if it had been typed; no message.
    virtual void echoed(const std::wstring& input);
};

class CommandLine {
public:
    /// Writes a text as it stands.
    void write(const std::wstring& text);
    /// Writes the message of a command that can't do its work, and reports the failure.
    void fail(const std::wstring& message);
    /// Shows input that was sent, where somebody looks.
    void echo(const std::wstring& input);

    /// Everything written since the start or the last clear(), oldest first.
    const std::vector<std::wstring>& messages() const { return m_messages; }
    /// The last message that has any visible character, without line ends around it; empty when none has.
    std::wstring lastMessage() const;
    void clear() { m_messages.clear(); }

    /// Null for none. The listener stays the caller's.
    void setListener(CommandLineListener* listener) { m_listener = listener; }

private:
    /// The history is kept to its newest texts, as a screen of text would be.
    static constexpr std::size_t kKept = 10000;

    std::vector<std::wstring> m_messages;
    CommandLineListener* m_listener = nullptr;
};

/// The process's one command line.
CommandLine& commandLine();

/// The text without line ends around it.
std::wstring withoutLineEnds(const std::wstring& text);

}  // namespace kdhost
