// Comma-separated text to rows of fields: decoding, splitting and unquoting, without any table.
//
// The rules, line by line:
// - A line reaches to its line feed, which belongs to it; the last line may have none. A field can't hold a
//   line break, so each physical line is one row.
// - Each line is UTF-8 on its own. One byte order mark at its start is dropped, a second one stays. Bytes that
//   are not UTF-8 refuse the whole text, as does a sequence that a line feed cuts off; one that the end of the
//   text cuts off is dropped. NUL and noncharacters pass, encoded surrogates don't.
// - A comma separates when an even number of double quotes follows it up to the end of its line.
// - A field whose first and last characters are double quotes loses them, and each pair of quotes inside
//   becomes one. All else is kept: blanks, and the line end in the line's last field, where it hides a closing
//   quote from this rule.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>
#include <memory>
#include <vector>

namespace csv {

/// A stretch of decoded text.
struct Field {
    char16_t* text = nullptr;
    int length = 0;

    bool isEmpty() const { return length == 0; }
};

/// Decodes the line `bytes` to `end` into `out`, which has room for as many units as there are bytes. Returns
/// the end of what was written; null when the line isn't UTF-8.
char16_t* decodeLine(const char* bytes, const char* end, char16_t* out);

/// Puts the fields of a line in place of what `fields` held. A line has at least one.
void splitLine(char16_t* line, const char16_t* end, std::vector<Field>& fields);

/// The field without its quotes, if it is quoted; its text is changed in place.
Field unquote(Field field);

/// A whole text, cut into rows of fields.
///
/// All fields are views into one buffer, with their headers beside each other, which spares an allocation for
/// each field: 800,000 of them cost a third of as many strings of their own. They are good for reading as long
/// as this object lives; who wants to keep one longer copies its characters.
class Rows {
public:
    Rows() = default;
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    /// Reads a text, once for each object. False when it isn't UTF-8; the rows are of no use then.
    bool read(const QByteArray& bytes);

    /// Every line of the text, also those that don't count as rows.
    const QVector<QStringList>& lines() const { return m_lines; }
    /// The number of the last line whose first field isn't empty: lines behind it don't count.
    int rowCount() const { return m_rowCount; }
    /// The fields of the widest line, also of one that doesn't count as a row.
    int columnCount() const { return m_columnCount; }

private:
    void append(std::vector<Field>& fields);
    QString view(Field field);

    std::unique_ptr<char16_t[]> m_text;
    std::vector<std::unique_ptr<QStringData[]>> m_headers;  ///< blocks; the last one is being filled
    int m_headersUsed = 0;                                  ///< in the last block
    QVector<QStringList> m_lines;                           ///< after what it points into, so that it goes first
    int m_rowCount = 0;
    int m_columnCount = 0;
};

}  // namespace csv
