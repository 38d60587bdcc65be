// Message boxes and their answers.

#include "tests/support/boxanswers.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace kdtest {

SeenBox look(const QMessageBox& box) {
    return {box.text().toStdWString(), box.windowTitle().toStdWString(), box.icon(),
            static_cast<int>(box.standardButtons()), box.parentWidget()};
}

BoxAnswers::BoxAnswers(std::vector<BoxAnswer> answers) : m_answers(std::move(answers)) {
    qApp->installEventFilter(this);
}

BoxAnswers::~BoxAnswers() {
    qApp->removeEventFilter(this);
}

bool BoxAnswers::eventFilter(QObject* object, QEvent* event) {
    auto* box = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(object) : nullptr;
    // Only once the box runs its own loop, as a user would.
    if (box != nullptr) QTimer::singleShot(0, box, [this, box] { answer(*box); });
    return false;
}

void BoxAnswers::answer(QMessageBox& box) {
    m_seen.push_back(look(box));
    if (m_look) m_look();
    const std::size_t index = m_seen.size() - 1;
    if (index >= m_answers.size()) ADD_FAILURE() << "a message box without an answer: " << box.text().toStdString();
    const BoxAnswer wanted = index < m_answers.size() ? m_answers[index] : BoxAnswer::Escape;
    QAbstractButton* button = wanted == BoxAnswer::Yes  ? box.button(QMessageBox::Yes)
                              : wanted == BoxAnswer::No ? box.button(QMessageBox::No)
                                                        : nullptr;
    if (button != nullptr) {
        button->click();
    } else {
        QTest::keyClick(&box, Qt::Key_Escape);
    }
}

}  // namespace kdtest
