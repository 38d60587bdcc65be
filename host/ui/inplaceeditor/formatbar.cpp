// The controls of the format bar.

#include "host/ui/inplaceeditor/formatbar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "host/draw/looks.h"
#include "host/ui/dialogs/hostdialog.h"
#include "host/ui/inplaceeditor/fieldtext.h"
#include "host/ui/inplaceeditor/textitem.h"
#include "host/ui/rowsamples.h"
#include "kd/db/mtext.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {

/// A button that switches one property of the characters.
struct FormatBar::Toggle {
    const char* name;
    HostText text;
    QChar letter;
    Qt::Key key;  ///< with Ctrl
    void (*dress)(QFont& font);
    bool& (*flag)(text::Format& format);
};

namespace {

constexpr int kHeightDigits = 8;
constexpr int kHeightLetters = 7;
constexpr int kFormulaLetters = 16;
constexpr double kLargestHeight = 1e4;

/// Index colours, and blue, green and red as one number.
text::Ink inkOf(const KdCmColor& color) {
    if (!color.isByColor()) return {text::Ink::Kind::index, color.colorIndex()};
    return {text::Ink::Kind::bgr, color.red() | color.green() << 8 | color.blue() << 16};
}

QLineEdit* newEdit(const char* name, HostText text, int letters, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    nameControl(edit, name, hostText(text));
    edit->setToolTip(hostText(text));
    edit->setFixedWidth(edit->fontMetrics().averageCharWidth() * letters + edit->sizeHint().height());
    return edit;
}

}  // namespace

const std::vector<FormatBar::Toggle>& FormatBar::toggles() {
    static const std::vector<Toggle> all = {
        {"EditorBold", HostText::EditorBold, QLatin1Char('B'), Qt::Key_B, [](QFont& font) { font.setBold(true); },
         [](text::Format& format) -> bool& { return format.font.bold; }},
        {"EditorItalic", HostText::EditorItalic, QLatin1Char('I'), Qt::Key_I, [](QFont& font) { font.setItalic(true); },
         [](text::Format& format) -> bool& { return format.font.italic; }},
        {"EditorUnderline", HostText::EditorUnderline, QLatin1Char('U'), Qt::Key_U,
         [](QFont& font) { font.setUnderline(true); }, [](text::Format& format) -> bool& { return format.underline; }},
    };
    return all;
}

FormatBar::FormatBar(const KdDbMText& text, RichDocument& document, TextItem& item, FieldText& fields,
                     std::function<void()> back, QWidget* parent)
    : QFrame(parent), m_text(text), m_document(document), m_item(item), m_fields(fields), m_back(std::move(back)) {
    nameControl(this, "EditorFormatBar", hostText(HostText::EditorBar));
    setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Raised));
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    auto* row = new QHBoxLayout(this);
    const int gap = fontMetrics().height() / 4;
    row->setContentsMargins(gap, gap, gap, gap);
    row->setSpacing(gap);
    row->setSizeConstraint(QLayout::SetFixedSize);
    addToggles(*row);
    addColor(*row);
    addEdits(*row);
    refresh();
}

FormatBar::~FormatBar() {
    // An edit that has the keys when it goes would tell that it was left.
    for (QLineEdit* edit : {m_height, m_formula}) edit->disconnect(this);
}

void FormatBar::addToggles(QHBoxLayout& row) {
    for (const Toggle& toggle : toggles()) {
        auto* button = new QToolButton(this);
        nameControl(button, toggle.name, hostText(toggle.text));
        button->setText(toggle.letter);
        QFont font = button->font();
        toggle.dress(font);
        button->setFont(font);
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setToolTip(hostText(toggle.text) +
                           QStringLiteral(" (Ctrl+%1)").arg(QChar::fromLatin1(static_cast<char>(toggle.key))));
        connect(button, &QToolButton::clicked, this, [this, &toggle] { flip(toggle); });
        m_toggles.push_back(button);
        row.addWidget(button);
    }
}

void FormatBar::addColor(QHBoxLayout& row) {
    m_color = new QToolButton(this);
    nameControl(m_color, "EditorColor", hostText(HostText::EditorColor));
    m_color->setToolTip(hostText(HostText::EditorColor));
    m_color->setAutoRaise(true);
    m_color->setFocusPolicy(Qt::TabFocus);
    connect(m_color, &QToolButton::clicked, this, [this] { chooseColor(); });
    row.addWidget(m_color);
}

void FormatBar::addEdits(QHBoxLayout& row) {
    m_height = newEdit("EditorHeight", HostText::EditorHeight, kHeightLetters, this);
    connect(m_height, &QLineEdit::editingFinished, this, [this] { applyHeight(); });
    connect(m_height, &QLineEdit::returnPressed, this, [this] { m_back(); });
    m_formula = newEdit("EditorFormula", HostText::EditorFormula, kFormulaLetters, this);
    m_formula->setPlaceholderText(QStringLiteral("=A1+B1"));
    connect(m_formula, &QLineEdit::returnPressed, this, [this] { insertFormula(); });
    row.addWidget(m_height);
    row.addWidget(m_formula);
}

KdCmColor FormatBar::colorOf(const text::Ink& ink) const {
    return ink.kind == text::Ink::Kind::ofText ? m_text.color() : draw::colorOf(ink);
}

void FormatBar::refresh() {
    text::Format format = m_document.format(m_item.textCursor());
    for (std::size_t i = 0; i < m_toggles.size(); ++i) m_toggles[i]->setChecked(toggles()[i].flag(format));
    const QColor shown = m_document.looks().color(format.ink);
    m_color->setIcon(colorSample(m_color, KdCmColor::fromRgb(shown.red(), shown.green(), shown.blue())));
    m_color->setIconSize(sampleSize(*m_color, SampleStyle::Color));
    if (!m_height->hasFocus()) m_height->setText(QString::number(format.height, 'g', kHeightDigits));
}

void FormatBar::change(const std::function<void(text::Format&)>& how) {
    QTextCursor caret = m_item.textCursor();
    m_document.change(caret, how);
    m_item.setTextCursor(caret);
    refresh();
}

void FormatBar::flip(const Toggle& toggle) {
    text::Format now = m_document.format(m_item.textCursor());
    const bool on = !toggle.flag(now);
    change([&](text::Format& format) { toggle.flag(format) = on; });
}

void FormatBar::chooseColor() {
    const text::Ink before = m_document.format(m_item.textCursor()).ink;
    KdCmColor color = colorOf(before);
    constexpr int kForeground = 7;
    if (kdedSetColorDialogTrueColor(color, true, KdCmColor::fromIndex(kForeground))) {
        // The colour of the text as a whole is no format of its own.
        const text::Ink ink = color == m_text.color() ? text::Ink() : inkOf(color);
        change([&](text::Format& format) { format.ink = ink; });
    }
    m_back();
}

void FormatBar::applyHeight() {
    bool isNumber = false;
    const double height = m_height->text().toDouble(&isNumber);
    const bool isHeight = isNumber && height > 0.0 && height <= kLargestHeight;
    if (!isHeight || !m_height->isModified()) return;
    m_height->setModified(false);
    change([&](text::Format& format) { format.height = height; });
}

void FormatBar::insertFormula() {
    QString expression = m_formula->text().trimmed();
    if (expression.startsWith(QLatin1Char('='))) expression.remove(0, 1);
    const wchar_t field = m_fields.add(expression.toStdWString());
    if (field == 0) {
        m_formula->selectAll();
        return;
    }
    QTextCursor caret = m_item.textCursor();
    m_document.insertObject(caret, field);
    m_item.setTextCursor(caret);
    m_formula->clear();
    m_back();
}

bool FormatBar::takeShortcut(const QKeyEvent& event) {
    if (event.modifiers() != Qt::ControlModifier) return false;
    for (const Toggle& toggle : toggles()) {
        if (toggle.key != event.key()) continue;
        flip(toggle);
        return true;
    }
    return false;
}

void FormatBar::takeFocus() {
    m_toggles.front()->setFocus(Qt::ShortcutFocusReason);
}

void FormatBar::keyPressEvent(QKeyEvent* event) {
    // Nothing goes on to the text, where Enter and Esc would end the editing.
    event->accept();
    auto* button = qobject_cast<QToolButton*>(focusWidget());
    switch (event->key()) {
        case Qt::Key_Escape:
        case Qt::Key_F10:
            m_back();
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (button != nullptr && button->hasFocus()) button->click();
            break;
        default:
            break;
    }
}

void FormatBar::mousePressEvent(QMouseEvent* event) {
    // A press between the buttons is none outside the editor.
    event->accept();
}

bool FormatBar::focusNextPrevChild(bool next) {
    std::vector<QWidget*> controls(m_toggles.begin(), m_toggles.end());
    controls.insert(controls.end(), {m_color, m_height, m_formula});
    const auto at = std::find(controls.begin(), controls.end(), focusWidget());
    const std::size_t count = controls.size();
    const auto place = static_cast<std::size_t>(at - controls.begin()) % count;
    controls[(place + (next ? 1 : count - 1)) % count]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

}  // namespace kdhost
