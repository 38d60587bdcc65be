// What tests of the module's dialogs share: the resource module in place, further resources of a test's own,
// answers to message boxes, looks at dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/win32/modules.h"
#include "kd/ui/basedialog.h"
#include "tests/support/boxanswers.h"
#include "tests/support/resourcemodule.h"
#include "tests/ui/looks/dialoglooks.h"

namespace kdtest {

/// Loads the resource module and puts its handle in place for one test.
class ModuleResources : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    ResourceModule& resources() { return *m_resources; }

private:
    std::optional<ResourceModule> m_resources;
};

/// Files of a test under the prefix of the resource module, while it lives.
class TestResources {
public:
    /// Pairs of bare name and content.
    explicit TestResources(const std::vector<std::pair<QString, QByteArray>>& files);
    ~TestResources();
    TestResources(const TestResources&) = delete;
    TestResources& operator=(const TestResources&) = delete;

private:
    QTemporaryDir m_folder;
    QString m_compiled;
};

/// Presses a key in the dialog, which opens a message box, and Enter in that box; returns, with the dialog
/// active again, what the box showed. No box fails the test.
SeenBox pressForBox(KdUiBaseDialog& dialog, int key);

/// Runs the dialog modally and `act` inside it, once it is open. A dialog that `act` leaves open is closed and
/// fails the test.
int runModal(KdUiBaseDialog& dialog, const std::function<void()>& act);

/// A key press to whatever has the focus.
void pressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void typeText(const QString& text);
/// Into an edit, in the place of all that it holds; the focus stays there.
void retype(QLineEdit& edit, const QString& text);
/// Name of the control that has the focus.
std::string focusName();

}  // namespace kdtest
