// A running host application for one test: one document, the host's commands, input from the test's own text.
#pragma once

#include <gtest/gtest.h>

#include <QWidget>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "host/ad/application.h"
#include "host/ed/commandline.h"
#include "host/ed/filedialog.h"

namespace kdtest {

class HostApplication : private kdhost::FileDialog, private kdhost::CommandLineListener {
public:
    /// With one new document.
    HostApplication();
    ~HostApplication() override;

    kdhost::Application& application() { return m_application; }
    kdhost::DocumentManager& documents() { return m_application.documents(); }
    kdhost::Document& document() { return *documents().current(); }
    kdhost::Editor& editor() { return document().editor(); }
    /// Of the current document.
    KdDbDatabase& database() { return *document().database(); }

    /// Puts text into the queue as typed, for the prompts to come. A prompt that finds the queue empty is
    /// cancelled.
    void type(const std::wstring& text) { editor().input().type(text); }
    /// Types lines and runs the commands in them. Each line ends with "\n".
    void run(const std::wstring& lines);

    /// Answers the next file dialog; none cancels it. A dialog without an answer is cancelled, too.
    void answerFileDialog(std::optional<std::wstring> path) { m_paths.push_back(std::move(path)); }
    /// What the file dialogs so far were asked for.
    const std::vector<kdhost::FileDialogRequest>& fileDialogs() const { return m_requests; }

    /// What was written to the command line, without line ends around it; empty lines left out.
    std::vector<std::wstring> messages() const;
    std::wstring lastMessage() const { return kdhost::commandLine().lastMessage(); }
    /// Messages of the host's commands that could not do their work.
    const std::vector<std::wstring>& failures() const { return m_failures; }

private:
    std::optional<std::wstring> ask(const kdhost::FileDialogRequest& request) override;
    void written(const std::wstring& text) override;
    void failed(const std::wstring& message) override;

    QWidget m_mainWindow;  // hidden
    kdhost::Application m_application;
    std::deque<std::optional<std::wstring>> m_paths;
    std::vector<kdhost::FileDialogRequest> m_requests;
    std::vector<std::wstring> m_failures;
};

/// Base of tests that need a running application.
class ApplicationTest : public ::testing::Test {
protected:
    HostApplication host;
};

}  // namespace kdtest
