// What stands in a line of edited text as one: a stack, a field, a character that has no sign of its own.
#pragma once

#include <QObject>
#include <QTextObjectInterface>

namespace kdhost {

class RichDocument;

class TextObjects : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
public:
    /// Lives as long as the document, which it belongs to.
    explicit TextObjects(RichDocument& document);

    static constexpr int kType = QTextFormat::UserObject + 1;

    QSizeF intrinsicSize(QTextDocument* document, int place, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int place,
                    const QTextFormat& format) override;

private:
    RichDocument& m_document;
};

}  // namespace kdhost
