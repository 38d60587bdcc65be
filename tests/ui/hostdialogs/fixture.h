// Driving the host's own dialogs: what is done in each modal dialog as it appears.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <set>
#include <stdexcept>

#include "host/win32/modules.h"
#include "kd/ui/hostdialogs.h"
#include "tests/support/application.h"
#include "tests/support/modalacts.h"

namespace kdtest {

class HostDialogTest : public ApplicationTest {
protected:
    ~HostDialogTest() override { kdhost::setLanguage(kdhost::Language::English); }

    /// Acts on the modal dialog that comes next; one that does not come fails the test.
    void next(ModalActs::Act act) { m_dialogs.next(std::move(act)); }
    void TearDown() override { m_dialogs.expectAllCame(); }

    template <class Control>
    static Control& in(QWidget& dialog, const char* name) {
        auto* control = dialog.findChild<Control*>(QString::fromLatin1(name));
        if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }
    static void press(QWidget& dialog, const char* name) {
        QTest::mouseClick(&in<QPushButton>(dialog, name), Qt::LeftButton);
    }
    static void typeInto(QWidget& dialog, const char* name, const char* text) {
        auto& edit = in<QLineEdit>(dialog, name);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromUtf8(text));
    }
    /// Every control that takes the focus has a name for scripts and one for readers of the screen, and Tab
    /// reaches it.
    static void expectReachable(QWidget& dialog) {
        std::set<QWidget*> reached;
        for (int step = 0; step < 40; ++step) {
            reached.insert(dialog.focusWidget());
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        }
        for (QWidget* control : dialog.findChildren<QWidget*>()) {
            if (!control->isVisible() || !control->isEnabled() || control->objectName().isEmpty()) continue;
            if (control->objectName().startsWith(QLatin1String("qt_")) || control->inherits("QLabel")) continue;
            if ((control->focusPolicy() & Qt::TabFocus) == 0) continue;
            QWidget* focused = control->focusProxy() != nullptr ? control->focusProxy() : control;
            EXPECT_TRUE(reached.count(focused) == 1) << control->objectName().toStdString();
            EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
        }
    }

private:
    ModalActs m_dialogs;
};

}  // namespace kdtest
