// The application of a test.

#include "tests/support/application.h"

#include "host/app/hostcommands.h"
#include "host/ed/commands.h"

namespace kdtest {

HostApplication::HostApplication() {
    m_application.setMainWindow(&m_mainWindow);
    kdhost::registerHostCommands();
    kdhost::setFileDialog(this);
    kdhost::commandLine().setListener(this);
    documents().openNew();
}

HostApplication::~HostApplication() {
    kdhost::commandLine().setListener(nullptr);
    kdhost::setFileDialog(nullptr);
    kdhost::unregisterHostCommands();
    kdhost::takeLeftOpen();
}

void HostApplication::run(const std::wstring& lines) {
    type(lines);
    kdhost::runQueuedCommands();
}

std::vector<std::wstring> HostApplication::messages() const {
    std::vector<std::wstring> texts;
    for (const std::wstring& message : kdhost::commandLine().messages()) {
        const std::wstring text = kdhost::withoutLineEnds(message);
        if (!text.empty()) texts.push_back(text);
    }
    return texts;
}

std::optional<std::wstring> HostApplication::ask(const kdhost::FileDialogRequest& request) {
    m_requests.push_back(request);
    if (m_paths.empty()) return std::nullopt;
    std::optional<std::wstring> path = m_paths.front();
    m_paths.pop_front();
    return path;
}

void HostApplication::written(const std::wstring&) {}

void HostApplication::failed(const std::wstring& message) {
    m_failures.push_back(message);
}

}  // namespace kdtest
