// The command line as people see it: what was written and typed, the prompt with its keywords, and the edit.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QKeyEvent;
class QLabel;
class QPlainTextEdit;

namespace kdhost {

class CommandEdit;
class CompletionList;

class CommandLineWidget : public QWidget {
public:
    /// What it does to the world.
    struct Actions {
        /// A token as typed, the blank or line end that ended it included.
        std::function<void(const std::wstring&)> type;
        std::function<void()> escape;
        /// A key while the edit is empty; true takes it.
        std::function<bool(const QKeyEvent&)> key;
    };
    explicit CommandLineWidget(Actions actions, QWidget* parent = nullptr);
    ~CommandLineWidget() override;

    /// The edit, where the focus belongs.
    QWidget& edit() const;

    /// What waits now. Names of commands are offered where `isCommand`; a blank ends no token where `takesBlanks`.
    void showPrompt(const std::wstring& prompt, bool isCommand, bool takesBlanks);
    /// Adds text as it stands, line ends included.
    void append(const std::wstring& text);
    /// Shows what was typed, behind its prompt, on a line of its own.
    void echo(const std::wstring& typed);
    /// Text that was being typed is given up.
    void clearTyped();

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    bool takeKey(const QKeyEvent& key);
    bool handleKey(int key);
    void submit(QChar end);
    void submitText(const QString& text, QChar end);
    void escape();
    bool moveThroughHistory(int step);
    bool complete();
    void offerCompletions();

    Actions m_actions;
    QPlainTextEdit* m_history;
    QLabel* m_prompt;
    CommandEdit* m_edit;
    CompletionList* m_completions;
    std::wstring m_promptText;
    bool m_isCommand = true;
    bool m_takesBlanks = false;
    std::vector<QString> m_entered;
    std::size_t m_place = 0;  ///< in what was entered; its size for the line being typed
};

}  // namespace kdhost
