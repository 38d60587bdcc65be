// The edit of the command line: every key typed in the window comes here.
#pragma once

#include <QLineEdit>
#include <functional>

namespace kdhost {

class CommandEdit : public QLineEdit {
public:
    /// `takeKey` sees each key press first; true keeps it from the edit.
    explicit CommandEdit(std::function<bool(const QKeyEvent&)> takeKey, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::function<bool(const QKeyEvent&)> m_takeKey;
};

}  // namespace kdhost
