// Scripts that run within a test: an application with a document, commands of the test's own, and the windows
// that they open.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <string>
#include <vector>

#include "host/app/hostcommands.h"
#include "host/app/scriptrunner.h"
#include "host/app/windowfeeder.h"
#include "host/rx/commandstack.h"
#include "host/ui/dialogs/filedialog.h"
#include "tests/support/configfolder.h"

namespace kdtest {

using Texts = std::vector<std::wstring>;

/// A script that can't be run to its end, and what is told of it.
struct Failing {
    const char* script;
    const char* failure;
};

/// What commands of tests got for answers.
inline Texts answers;

class ScriptTest : public ::testing::Test {
protected:
    ScriptTest() {
        answers.clear();
        kdhost::registerHostCommands();
        m_application.documents().openNew();
    }
    ~ScriptTest() override {
        kdhost::unregisterHostCommands();
        kdhost::commandStack().removeGroup(L"TEST");
    }

    static void addCommand(const wchar_t* name, KdEdCommandFunction function) {
        kdhost::commandStack().addCommand(L"TEST", name, name, 0, function, nullptr, -1, nullptr, nullptr);
    }

    /// Windows that no line answers are waited for a moment only.
    std::string run(const std::string& text) {
        kdhost::WindowFeeder windows{std::chrono::milliseconds(50)};
        return kdhost::ScriptRunner(m_application, kdhost::Script("s.kds", text), windows).run();
    }

    /// A path in the test's own folder.
    std::string file(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)).toStdString(); }

    ConfigFolder m_config;
    QTemporaryDir m_folder;
    const kdhost::WindowFileDialog m_fileDialog;
    kdhost::Application m_application;
};

}  // namespace kdtest
