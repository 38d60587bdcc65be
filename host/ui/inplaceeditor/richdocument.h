// The pieces of a formatted text in a text document of Qt, without loss: whatever an edit doesn't touch comes out
// as it went in. Every character carries the number of its format; what Qt has no character for, stacks and
// fields among it, is an object in the line.
#pragma once

#include <QObject>
#include <QTextCursor>
#include <QTextDocument>
#include <functional>
#include <string>
#include <vector>

#include "host/text/format.h"
#include "host/ui/inplaceeditor/textlooks.h"

namespace kdhost {

class RichDocument : public QObject {
public:
    /// `nameOf` gives what a field is shown as, from the character that stands for it: one of kFirstField and
    /// those behind it.
    RichDocument(const TextLooks& looks, std::function<std::wstring(wchar_t)> nameOf);
    ~RichDocument() override;

    /// Behind all characters that there are.
    static constexpr wchar_t kFirstField = 0x110000;

    QTextDocument& document() { return m_document; }
    const TextLooks& looks() const { return m_looks; }

    /// Replaces everything; nothing of it can be undone.
    void load(const std::vector<text::Piece>& pieces);
    /// What the document holds, as pieces() of its codes would give it.
    std::vector<text::Piece> pieces() const;
    /// The same, of what is selected.
    std::vector<text::Piece> pieces(const QTextCursor& selection) const;
    /// Replaces what is selected.
    void insert(QTextCursor& cursor, const std::vector<text::Piece>& pieces);
    /// One character in the format of the place, as a field is.
    void insertObject(QTextCursor& cursor, wchar_t character);

    /// Of the character before the cursor, or of what is typed next.
    const text::Format& format(const QTextCursor& cursor) const;
    /// Changes the format of what is selected, in one step of undo; of what is typed next, where nothing is.
    void change(QTextCursor& cursor, const std::function<void(text::Format&)>& how);

    /// The same with fields turned into what they show.
    std::vector<text::Piece> withFieldsAsShown(std::vector<text::Piece> pieces) const;
    /// As it is read: stacks in one line, fields as they are shown.
    std::wstring plainText() const;

    /// Place of the first and the last baseline below the document's top, in document pixels, and how high the
    /// first line's capitals or stacks stand above its baseline.
    struct Extent {
        double firstBaseline = 0.0;
        double lastBaseline = 0.0;
        double above = 0.0;
        double height() const { return above + lastBaseline - firstBaseline; }
    };
    Extent extent() const;

    // For the objects that paint themselves.
    const text::Piece& object(const QTextFormat& format) const;
    std::wstring nameOf(wchar_t character) const { return m_nameOf(character); }

private:
    QTextCharFormat charFormat(const text::Format& format);
    QTextCharFormat charFormat(int number) const;
    int numberOf(const text::Format& format);
    const text::Format& formatOf(const QTextCharFormat& format) const;
    void insertPiece(QTextCursor& cursor, const text::Piece& piece);
    void insertCharacters(QTextCursor& cursor, const text::Piece& piece);
    void insertAsObject(QTextCursor& cursor, const text::Piece& piece);
    std::vector<text::Piece> piecesBetween(int from, int to) const;
    void appendText(std::vector<text::Piece>& pieces, const QString& text, const QTextCharFormat& format) const;
    double heightOfFirstLine() const;

    const TextLooks& m_looks;
    std::function<std::wstring(wchar_t)> m_nameOf;
    std::vector<text::Format> m_formats;
    std::vector<text::Piece> m_objects;
    QTextDocument m_document;
};

}  // namespace kdhost
