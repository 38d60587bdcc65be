// Answers to message boxes: presses a button in each box as it comes up, and keeps what it showed.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QMessageBox;
class QWidget;

namespace kdtest {

/// What a message box shows.
struct SeenBox {
    std::wstring text;
    std::wstring caption;
    int icon = 0;     ///< QMessageBox::Icon
    int buttons = 0;  ///< QMessageBox::StandardButtons
    QWidget* parent = nullptr;
};

SeenBox look(const QMessageBox& box);

enum class BoxAnswer { Yes, No, Escape };

/// While it lives, each message box gets the next answer. A box without an answer is left by Escape and fails the
/// running test.
class BoxAnswers : public QObject {
public:
    explicit BoxAnswers(std::vector<BoxAnswer> answers = {});
    ~BoxAnswers() override;

    const std::vector<SeenBox>& seen() const { return m_seen; }
    int count() const { return static_cast<int>(m_seen.size()); }
    /// Called while a box is open, before it is answered.
    void setLook(std::function<void()> look) { m_look = std::move(look); }

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    void answer(QMessageBox& box);

    std::vector<BoxAnswer> m_answers;
    std::vector<SeenBox> m_seen;
    std::function<void()> m_look;
};

}  // namespace kdtest
