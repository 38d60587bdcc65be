// What a user does in modal dialogs that are yet to come.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <utility>

namespace kdtest {

class ModalActs {
public:
    using Act = std::function<void(QWidget& dialog)>;

    ModalActs() = default;
    ModalActs(const ModalActs&) = delete;
    ModalActs& operator=(const ModalActs&) = delete;

    /// Acts on the modal dialog that comes next.
    void next(Act act) {
        ++m_awaited;
        QTimer::singleShot(0, qApp, [this, act = std::move(act)] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            --m_awaited;
            act(*dialog);
        });
    }

    /// Fails the test when a dialog didn't come; at the end of every test.
    void expectAllCame() const {
        QApplication::processEvents();
        EXPECT_EQ(m_awaited, 0) << "a dialog did not come";
    }

private:
    int m_awaited = 0;
};

}  // namespace kdtest
