// The command line as people see it.

#include "host/app/window/commandlinewidget.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QUrl>
#include <QVBoxLayout>

#include "host/app/window/commandedit.h"
#include "host/app/window/completionlist.h"
#include "host/app/window/promptwords.h"

namespace kdhost {
namespace {

/// The history is kept to its newest lines.
constexpr int kKeptLines = 5000;
constexpr int kShownLines = 4;

}  // namespace

CommandLineWidget::CommandLineWidget(Actions actions, QWidget* parent)
    : QWidget(parent),
      m_actions(std::move(actions)),
      m_history(new QPlainTextEdit(this)),
      m_prompt(new QLabel(this)),
      m_edit(new CommandEdit([this](const QKeyEvent& key) { return takeKey(key); }, this)),
      m_completions(new CompletionList([this](const QString& name) { submitText(name, QLatin1Char('\n')); })) {
    setObjectName(QStringLiteral("CommandLine"));
    m_completions->setParent(this);
    m_completions->hide();

    m_history->setObjectName(QStringLiteral("CommandHistory"));
    m_history->setReadOnly(true);
    m_history->setFocusPolicy(Qt::NoFocus);
    m_history->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_history->setMaximumBlockCount(kKeptLines);
    m_history->setFrameShape(QFrame::NoFrame);
    m_history->document()->setDocumentMargin(fontMetrics().averageCharWidth());
    m_history->setMinimumHeight(2 * fontMetrics().lineSpacing());

    m_prompt->setObjectName(QStringLiteral("CommandPrompt"));
    m_prompt->setTextFormat(Qt::RichText);
    m_prompt->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    m_prompt->setFocusPolicy(Qt::NoFocus);
    m_prompt->setBuddy(m_edit);
    connect(m_prompt, &QLabel::linkActivated, this,
            [this](const QString& link) { submitText(QUrl::fromPercentEncoding(link.toUtf8()), QLatin1Char('\n')); });
    connect(m_edit, &QLineEdit::textEdited, this, [this] { offerCompletions(); });

    // History and edit are one sheet.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    auto* row = new QHBoxLayout;
    const int gap = fontMetrics().averageCharWidth();
    row->setContentsMargins(gap, gap / 2, gap, gap / 2);
    row->setSpacing(gap / 2);
    row->addWidget(m_prompt);
    row->addWidget(m_edit, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setForegroundRole(QPalette::Midlight);
    line->setFixedHeight(1);
    layout->addWidget(m_history, 1);
    layout->addWidget(line);
    layout->addLayout(row);
}

CommandLineWidget::~CommandLineWidget() = default;

QWidget& CommandLineWidget::edit() const {
    return *m_edit;
}

void CommandLineWidget::showPrompt(const std::wstring& prompt, bool isCommand, bool takesBlanks) {
    m_promptText = prompt;
    m_isCommand = isCommand;
    m_takesBlanks = takesBlanks;
    m_prompt->setText(promptAsLinks(prompt));
    m_edit->setAccessibleName(QString::fromStdWString(promptLine(prompt)));
    if (!isCommand) m_completions->hide();
    // At once: what comes next may be a picture, or a click on a keyword.
    layout()->activate();
}

void CommandLineWidget::append(const std::wstring& text) {
    QTextCursor end(m_history->document());
    end.movePosition(QTextCursor::End);
    QString added = QString::fromStdWString(text);
    added.remove(QLatin1Char('\r'));
    // The first line is no line behind another one.
    if (m_history->document()->isEmpty() && added.startsWith(QLatin1Char('\n'))) added.remove(0, 1);
    end.insertText(added);
    m_history->verticalScrollBar()->setValue(m_history->verticalScrollBar()->maximum());
}

void CommandLineWidget::echo(const std::wstring& typed) {
    append(L"\n" + promptLine(m_promptText) + typed);
}

void CommandLineWidget::clearTyped() {
    m_edit->clear();
    m_completions->hide();
    m_place = m_entered.size();
}

void CommandLineWidget::resizeEvent(QResizeEvent*) {
    m_completions->hide();
}

QSize CommandLineWidget::sizeHint() const {
    return {QWidget::sizeHint().width(), (kShownLines + 2) * fontMetrics().lineSpacing()};
}

// --- Keys

bool CommandLineWidget::takeKey(const QKeyEvent& key) {
    if (m_edit->text().isEmpty() && m_actions.key && m_actions.key(key)) return true;
    const bool command = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !command && handleKey(key.key());
}

/// True when the key has meant something other than editing.
bool CommandLineWidget::handleKey(int key) {
    switch (key) {
        case Qt::Key_Escape:
            escape();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            submit(QLatin1Char('\n'));
            return true;
        case Qt::Key_Space:
            if (m_takesBlanks) return false;
            submit(QLatin1Char(' '));
            return true;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return complete();
        case Qt::Key_Up:
        case Qt::Key_Down: {
            const int step = key == Qt::Key_Up ? -1 : 1;
            if (!m_completions->isVisible()) return moveThroughHistory(step);
            m_completions->moveChoice(step);
            return true;
        }
        default:
            return false;
    }
}

void CommandLineWidget::submit(QChar end) {
    const QString chosen = m_completions->isVisible() ? m_completions->chosen() : QString();
    submitText(chosen.isEmpty() ? m_edit->text() : chosen, end);
}

void CommandLineWidget::submitText(const QString& text, QChar end) {
    clearTyped();
    if (!text.isEmpty() && (m_entered.empty() || m_entered.back() != text)) m_entered.push_back(text);
    m_place = m_entered.size();
    echo(text.toStdWString());
    m_actions.type((text + end).toStdWString());
}

/// Gives up what is being typed and cancels what runs, in one.
void CommandLineWidget::escape() {
    clearTyped();
    m_actions.escape();
}

bool CommandLineWidget::moveThroughHistory(int step) {
    const bool back = step < 0;
    if (back ? m_place == 0 : m_place >= m_entered.size()) return true;
    m_place += back ? std::size_t(-1) : std::size_t(1);
    m_edit->setText(m_place < m_entered.size() ? m_entered[m_place] : QString());
    return true;
}

bool CommandLineWidget::complete() {
    if (!m_completions->isVisible()) return true;
    m_edit->setText(m_completions->best());
    m_completions->hide();
    return true;
}

void CommandLineWidget::offerCompletions() {
    if (!m_isCommand) return;
    m_completions->offer(m_edit->text(), *m_edit);
}

}  // namespace kdhost
