// Keys and the clipboard of the text that is being edited.

#include "host/ui/inplaceeditor/textitem.h"

#include <QAbstractTextDocumentLayout>
#include <QClipboard>
#include <QGraphicsSceneContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QStyleOptionGraphicsItem>
#include <QTextBlock>
#include <QTextLayout>
#include <array>
#include <memory>

#include "kd/ed/inplaceeditor.h"

namespace kdhost {
namespace {

/// Texts with their formatting codes.
const char* const kCodes = "application/x-kdhost-text";

struct EndingKey {
    int key;
    Qt::KeyboardModifiers modifiers;
    int code;
    QTextCursor::MoveOperation first = QTextCursor::NoMove;  ///< what the key does as long as it can
};

constexpr std::array kEndingKeys = {
    EndingKey{Qt::Key_Tab, Qt::NoModifier, kMTextEditorTab},
    EndingKey{Qt::Key_Tab, Qt::ShiftModifier, kMTextEditorShiftTab},
    EndingKey{Qt::Key_Backtab, Qt::NoModifier, kMTextEditorShiftTab},
    EndingKey{Qt::Key_Backtab, Qt::ShiftModifier, kMTextEditorShiftTab},
    EndingKey{Qt::Key_Return, Qt::NoModifier, kMTextEditorEnter},
    EndingKey{Qt::Key_Return, Qt::ControlModifier, kMTextEditorEnter},
    EndingKey{Qt::Key_Return, Qt::ShiftModifier, kMTextEditorShiftEnter},
    EndingKey{Qt::Key_Escape, Qt::NoModifier, kMTextEditorEscape},
    EndingKey{Qt::Key_Left, Qt::NoModifier, kMTextEditorLeft, QTextCursor::Left},
    EndingKey{Qt::Key_Up, Qt::NoModifier, kMTextEditorUp, QTextCursor::Up},
    EndingKey{Qt::Key_Right, Qt::NoModifier, kMTextEditorRight, QTextCursor::Right},
    EndingKey{Qt::Key_Down, Qt::NoModifier, kMTextEditorDown, QTextCursor::Down},
};

/// The two Enter keys are one.
int keyOf(const QKeyEvent& event) {
    return event.key() == Qt::Key_Enter ? static_cast<int>(Qt::Key_Return) : event.key();
}

Qt::KeyboardModifiers modifiersOf(const QKeyEvent& event) {
    return event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
}

/// Text from elsewhere, in the format that is written in.
std::vector<text::Piece> plainPieces(const QString& text, const text::Format& format) {
    std::vector<text::Piece> pieces;
    for (const QString& line : QString(text).remove(QLatin1Char('\r')).split(QLatin1Char('\n'))) {
        if (!pieces.empty()) pieces.push_back({text::Piece::Kind::LineBreak, format, {}, {}, 0});
        pieces.push_back({text::Piece::Kind::Characters, format, line.toStdWString(), {}, 0});
    }
    return pieces;
}

}  // namespace

TextItem::TextItem(RichDocument& document, QGraphicsItem* parent) : QGraphicsTextItem(parent), m_document(document) {
    setDocument(&document.document());
    setTextInteractionFlags(Qt::TextEditorInteraction);
    setDefaultTextColor(document.looks().color({}));
    // Text dragged in from elsewhere would bring formats that no drawing has.
    setAcceptDrops(false);
}

std::optional<int> TextItem::endingKey(const QKeyEvent& event) const {
    for (const EndingKey& row : kEndingKeys) {
        if (row.key != keyOf(event) || row.modifiers != modifiersOf(event)) continue;
        QTextCursor caret = textCursor();
        const bool moves = row.first != QTextCursor::NoMove && caret.movePosition(row.first);
        return moves ? std::nullopt : std::optional(row.code);
    }
    return std::nullopt;
}

bool TextItem::isComposing() const {
    const QTextLayout* layout = textCursor().block().layout();
    return layout != nullptr && !layout->preeditAreaText().isEmpty();
}

void TextItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    // The box has a frame; Qt's own would be another one within it.
    QStyleOptionGraphicsItem plain = *option;
    plain.state &= ~(QStyle::State_HasFocus | QStyle::State_Selected);
    QGraphicsTextItem::paint(painter, &plain, widget);
}

void TextItem::press(QKeyEvent& event) {
    keyPressEvent(&event);
}

void TextItem::keyPressEvent(QKeyEvent* event) {
    QTextCursor caret = textCursor();
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::Cut)) {
        cut();
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (keyOf(*event) == Qt::Key_Return && modifiersOf(*event) == Qt::AltModifier) {
        caret.insertBlock();
        setTextCursor(caret);
    } else if (event->key() == Qt::Key_Tab && modifiersOf(*event) == Qt::ControlModifier) {
        // Tab alone leaves the cell.
        caret.insertText(QStringLiteral("\t"));
        setTextCursor(caret);
    } else {
        QGraphicsTextItem::keyPressEvent(event);
        return;
    }
    event->accept();
}

/// Items are named by Qt's words for them, which it has in the host's language.
struct TextItem::MenuItem {
    const char* name;
    const char* text;
    void (TextItem::*act)();
    bool (*isEnabled)(const TextItem& item);
};

void TextItem::contextMenuEvent(QGraphicsSceneContextMenuEvent* event) {
    event->accept();
    openMenu(event->screenPos(), event->widget());
}

void TextItem::openMenu(const QPoint& onScreen, QWidget* widget) {
    // Qt's own menu would bring formats into the text that no drawing has.
    static const std::array items = {
        MenuItem{"EditorUndo", "&Undo", &TextItem::undo,
                 [](const TextItem& item) { return item.document()->isUndoAvailable(); }},
        MenuItem{"EditorRedo", "&Redo", &TextItem::redo,
                 [](const TextItem& item) { return item.document()->isRedoAvailable(); }},
        MenuItem{"EditorCut", "Cu&t", &TextItem::cut,
                 [](const TextItem& item) { return item.textCursor().hasSelection(); }},
        MenuItem{"EditorCopy", "&Copy", &TextItem::copy,
                 [](const TextItem& item) { return item.textCursor().hasSelection(); }},
        MenuItem{"EditorPaste", "&Paste", &TextItem::paste,
                 [](const TextItem&) { return !QGuiApplication::clipboard()->text().isEmpty(); }},
        MenuItem{"EditorSelectAll", "Select All", &TextItem::selectAll,
                 [](const TextItem& item) { return !item.document()->isEmpty(); }},
    };
    QMenu menu(widget);
    menu.setObjectName(QStringLiteral("EditorMenu"));
    for (const MenuItem& row : items) {
        QAction* action = menu.addAction(QCoreApplication::translate("QLineEdit", row.text));
        action->setObjectName(QString::fromLatin1(row.name));
        action->setEnabled(row.isEnabled(*this));
        connect(action, &QAction::triggered, this, [this, &row] { (this->*row.act)(); });
    }
    menu.exec(onScreen);
}

void TextItem::cut() {
    copy();
    textCursor().removeSelectedText();
}

void TextItem::copy() {
    if (!textCursor().hasSelection()) return;
    const std::vector<text::Piece> copied = m_document.withFieldsAsShown(m_document.pieces(textCursor()));
    const std::wstring codes = text::write(copied, m_document.looks().base());
    auto data = std::make_unique<QMimeData>();
    data->setText(QString::fromStdWString(text::strip(codes)));
    data->setData(QString::fromLatin1(kCodes), QString::fromStdWString(codes).toUtf8());
    QGuiApplication::clipboard()->setMimeData(data.release());
}

void TextItem::paste() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr) return;
    QTextCursor caret = textCursor();
    const QByteArray codes = data->data(QString::fromLatin1(kCodes));
    m_document.insert(caret, codes.isEmpty()
                                 ? plainPieces(data->text(), m_document.format(caret))
                                 : text::pieces(QString::fromUtf8(codes).toStdWString(), m_document.looks().base()));
    setTextCursor(caret);
}

void TextItem::selectAll() {
    QTextCursor caret(document());
    caret.select(QTextCursor::Document);
    setTextCursor(caret);
}

void TextItem::moveTo(const QPointF& place) {
    QTextCursor caret(document());
    caret.setPosition(document()->documentLayout()->hitTest(place, Qt::FuzzyHit));
    setTextCursor(caret);
}

void TextItem::moveToEnd() {
    QTextCursor caret(document());
    caret.movePosition(QTextCursor::End);
    setTextCursor(caret);
}

}  // namespace kdhost
