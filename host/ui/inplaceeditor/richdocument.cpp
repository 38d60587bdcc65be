// Pieces into a text document and back.

#include "host/ui/inplaceeditor/richdocument.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>

#include "host/text/glyphs.h"
#include "host/ui/inplaceeditor/textobjects.h"

namespace kdhost {
namespace {

// What characters carry beside their looks.
constexpr int kFormatNumber = QTextFormat::UserProperty + 1;
constexpr int kObjectNumber = QTextFormat::UserProperty + 2;

/// Whether a document would take the character for something else, or can't hold it.
bool needsObject(wchar_t c) {
    constexpr wchar_t kLastCharacter = 0x10FFFF;
    const bool isControl = (c < L' ' && c != L'\t') || (c >= 0x7F && c < 0xA0);
    const bool isSeparator = c == 0x2028 || c == 0x2029;
    const bool isHalf = c >= 0xD800 && c < 0xE000;
    const bool isNone = (c >= 0xFDD0 && c <= 0xFDEF) || (c & 0xFFFE) == 0xFFFE || c > kLastCharacter;
    return isControl || isSeparator || isHalf || isNone || c == text::kStackCharacter;
}

void append(std::vector<text::Piece>& pieces, const text::Format& format, const std::wstring& characters) {
    const bool joins =
        !pieces.empty() && pieces.back().kind == text::Piece::Kind::Characters && pieces.back().format == format;
    if (joins) {
        pieces.back().text += characters;
    } else {
        pieces.push_back({text::Piece::Kind::Characters, format, characters, {}, 0});
    }
}

}  // namespace

RichDocument::RichDocument(const TextLooks& looks, std::function<std::wstring(wchar_t)> nameOf)
    : m_looks(looks), m_nameOf(std::move(nameOf)), m_formats{looks.base()} {
    m_document.setDocumentMargin(0.0);
    m_document.setDefaultTextOption(looks.option());
    m_document.setDefaultFont(looks.characters(looks.base()).font());
    m_document.documentLayout()->registerHandler(TextObjects::kType, new TextObjects(*this));
}

RichDocument::~RichDocument() = default;

int RichDocument::numberOf(const text::Format& format) {
    const auto found = std::find(m_formats.begin(), m_formats.end(), format);
    if (found != m_formats.end()) return static_cast<int>(found - m_formats.begin());
    m_formats.push_back(format);
    return static_cast<int>(m_formats.size()) - 1;
}

QTextCharFormat RichDocument::charFormat(int number) const {
    QTextCharFormat result = m_looks.characters(m_formats[static_cast<std::size_t>(number)]);
    result.setProperty(kFormatNumber, number);
    return result;
}

QTextCharFormat RichDocument::charFormat(const text::Format& format) {
    return charFormat(numberOf(format));
}

const text::Format& RichDocument::formatOf(const QTextCharFormat& format) const {
    return m_formats[static_cast<std::size_t>(format.intProperty(kFormatNumber))];
}

const text::Piece& RichDocument::object(const QTextFormat& format) const {
    return m_objects[static_cast<std::size_t>(format.intProperty(kObjectNumber))];
}

void RichDocument::load(const std::vector<text::Piece>& pieces) {
    m_document.setUndoRedoEnabled(false);
    m_document.clear();
    QTextCursor cursor(&m_document);
    // The first paragraph begins as the first piece does.
    const text::Format& first = pieces.empty() ? m_looks.base() : pieces.front().format;
    cursor.setBlockFormat(m_looks.paragraph(first.paragraph));
    cursor.setBlockCharFormat(charFormat(m_looks.base()));
    cursor.setCharFormat(charFormat(m_looks.base()));
    insert(cursor, pieces);
    m_document.setUndoRedoEnabled(true);
}

void RichDocument::insert(QTextCursor& cursor, const std::vector<text::Piece>& pieces) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        insertPiece(cursor, pieces[i]);
        // A paragraph stands as its first piece says.
        const bool begins = pieces[i].kind == text::Piece::Kind::LineBreak && i + 1 < pieces.size();
        if (begins) cursor.setBlockFormat(m_looks.paragraph(pieces[i + 1].format.paragraph));
    }
    cursor.endEditBlock();
}

void RichDocument::insertPiece(QTextCursor& cursor, const text::Piece& piece) {
    switch (piece.kind) {
        case text::Piece::Kind::Characters:
            insertCharacters(cursor, piece);
            break;
        case text::Piece::Kind::LineBreak:
            cursor.insertBlock(m_looks.paragraph(piece.format.paragraph), charFormat(piece.format));
            break;
        case text::Piece::Kind::Stack:
            insertAsObject(cursor, piece);
            break;
    }
}

void RichDocument::insertCharacters(QTextCursor& cursor, const text::Piece& piece) {
    const std::wstring& characters = piece.text;
    for (auto at = characters.begin(); at != characters.end();) {
        const auto end = std::find_if(at, characters.end(), needsObject);
        if (end != at) cursor.insertText(QString::fromStdWString(std::wstring(at, end)), charFormat(piece.format));
        if (end == characters.end()) break;
        insertAsObject(cursor, {piece.kind, piece.format, std::wstring(1, *end), {}, 0});
        at = end + 1;
    }
}

void RichDocument::insertAsObject(QTextCursor& cursor, const text::Piece& piece) {
    QTextCharFormat format = charFormat(piece.format);
    format.setObjectType(TextObjects::kType);
    format.setProperty(kObjectNumber, static_cast<int>(m_objects.size()));
    m_objects.push_back(piece);
    cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

void RichDocument::insertObject(QTextCursor& cursor, wchar_t character) {
    const text::Format here = format(cursor);
    insertAsObject(cursor, {text::Piece::Kind::Characters, here, std::wstring(1, character), {}, 0});
    cursor.setCharFormat(charFormat(here));
}

std::vector<text::Piece> RichDocument::pieces() const {
    return piecesBetween(0, m_document.characterCount());
}

std::vector<text::Piece> RichDocument::pieces(const QTextCursor& selection) const {
    return piecesBetween(selection.selectionStart(), selection.selectionEnd());
}

std::vector<text::Piece> RichDocument::piecesBetween(int from, int to) const {
    std::vector<text::Piece> result;
    for (QTextBlock block = m_document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        // A paragraph carries the format of the break before it.
        if (block.position() > from) {
            result.push_back({text::Piece::Kind::LineBreak, formatOf(block.charFormat()), {}, {}, 0});
        }
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            const int begin = std::max(from, fragment.position());
            const int end = std::min(to, fragment.position() + fragment.length());
            if (begin >= end) continue;
            appendText(result, fragment.text().mid(begin - fragment.position(), end - begin), fragment.charFormat());
        }
    }
    return result;
}

void RichDocument::appendText(std::vector<text::Piece>& pieces, const QString& text,
                              const QTextCharFormat& format) const {
    if (format.objectType() != TextObjects::kType) return append(pieces, formatOf(format), text.toStdWString());
    text::Piece piece = object(format);
    piece.format = formatOf(format);
    for (int i = 0; i < text.size(); ++i) {
        if (piece.kind == text::Piece::Kind::Characters) {
            append(pieces, piece.format, piece.text);
        } else {
            pieces.push_back(piece);
        }
    }
}

const text::Format& RichDocument::format(const QTextCursor& cursor) const {
    return formatOf(cursor.charFormat());
}

void RichDocument::change(QTextCursor& cursor, const std::function<void(text::Format&)>& how) {
    const auto changed = [&](const QTextCharFormat& before) {
        text::Format format = formatOf(before);
        how(format);
        QTextCharFormat after = charFormat(format);
        if (before.objectType() == TextObjects::kType) {
            after.setObjectType(TextObjects::kType);
            after.setProperty(kObjectNumber, before.property(kObjectNumber));
        }
        return after;
    };
    if (!cursor.hasSelection()) {
        cursor.setCharFormat(changed(cursor.charFormat()));
        return;
    }
    struct Part {
        int begin;
        int end;
        QTextCharFormat format;
    };
    std::vector<Part> parts;
    const int from = cursor.selectionStart();
    const int to = cursor.selectionEnd();
    for (QTextBlock block = m_document.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            const int begin = std::max(from, fragment.position());
            const int end = std::min(to, fragment.position() + fragment.length());
            if (begin < end) parts.push_back({begin, end, changed(fragment.charFormat())});
        }
    }
    QTextCursor part(&m_document);
    part.beginEditBlock();
    for (const Part& each : parts) {
        part.setPosition(each.begin);
        part.setPosition(each.end, QTextCursor::KeepAnchor);
        part.setCharFormat(each.format);
    }
    part.endEditBlock();
}

std::vector<text::Piece> RichDocument::withFieldsAsShown(std::vector<text::Piece> pieces) const {
    for (text::Piece& piece : pieces) {
        std::wstring shown;
        for (const wchar_t c : piece.text) shown += c >= kFirstField ? m_nameOf(c) : std::wstring(1, c);
        piece.text = std::move(shown);
    }
    return pieces;
}

std::wstring RichDocument::plainText() const {
    return text::strip(text::write(withFieldsAsShown(pieces()), m_looks.base()));
}

double RichDocument::heightOfFirstLine() const {
    const QTextBlock block = m_document.begin();
    const int end = block.position() + block.layout()->lineAt(0).textLength();
    double height = 0.0;
    for (auto at = block.begin(); !at.atEnd() && at.fragment().position() < end; ++at) {
        const QTextCharFormat format = at.fragment().charFormat();
        height = std::max(height, formatOf(format).height * m_looks.pixelsPerUnit());
        const bool isStack =
            format.objectType() == TextObjects::kType && object(format).kind == text::Piece::Kind::Stack;
        if (isStack) height = std::max(height, m_looks.stack(object(format)).above);
    }
    return height == 0.0 ? TextLooks::kCapital : height;
}

RichDocument::Extent RichDocument::extent() const {
    const QAbstractTextDocumentLayout& layout = *m_document.documentLayout();
    const auto baseline = [&](const QTextBlock& block, const QTextLine& line) {
        return layout.blockBoundingRect(block).top() + line.y() + line.ascent();
    };
    const QTextBlock first = m_document.begin();
    const QTextBlock last = m_document.lastBlock();
    // Asking for a place makes the document lay itself out.
    layout.blockBoundingRect(last);
    const QTextLayout& lastLines = *last.layout();
    if (first.layout()->lineCount() == 0 || lastLines.lineCount() == 0) {
        return {TextLooks::kCapital, TextLooks::kCapital, TextLooks::kCapital};
    }
    return {baseline(first, first.layout()->lineAt(0)), baseline(last, lastLines.lineAt(lastLines.lineCount() - 1)),
            heightOfFirstLine()};
}

}  // namespace kdhost
