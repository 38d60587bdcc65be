// What a user does in modal dialogs that are yet to come.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
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

    /// Acts on the modal dialog that comes next, above the one that is open now. It waits for that dialog: on a
    /// loaded machine a loop may run before it shows.
    void next(Act act) {
        ++m_awaited;
        await(QApplication::activeModalWidget(), std::move(act));
    }

    /// Fails the test when a dialog didn't come; at the end of every test.
    void expectAllCame() const {
        QApplication::processEvents();
        EXPECT_EQ(m_awaited, 0) << "a dialog did not come";
    }

private:
    void await(QPointer<QWidget> below, Act act) {
        QTimer::singleShot(0, &m_waiting, [this, below, act = std::move(act)] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || dialog == below) return await(below, act);
            --m_awaited;
            act(*dialog);
        });
    }

    int m_awaited = 0;
    QObject m_waiting;  ///< none of the acts outlives it
};

}  // namespace kdtest
