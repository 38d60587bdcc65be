// Keywords of prompts as links.

#include "host/app/window/promptwords.h"

#include <QRegularExpression>
#include <QStringList>
#include <QUrl>
#include <algorithm>

#include "host/ed/commandline.h"

namespace kdhost {

std::wstring promptLine(const std::wstring& prompt) {
    return withoutLineEnds(prompt);
}

QString typedFor(const QString& shown) {
    static const QRegularExpression inParentheses(QStringLiteral("\\(([^()]+)\\)\\s*$"));
    if (const auto match = inParentheses.match(shown); match.hasMatch()) return match.captured(1);
    const QStringList words = shown.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const auto hasCapital = [](const QString& word) {
        return std::any_of(word.begin(), word.end(), [](QChar letter) { return letter.isUpper(); });
    };
    const auto found = std::find_if(words.begin(), words.end(), hasCapital);
    return found == words.end() ? shown.trimmed() : *found;
}

QString promptAsLinks(const std::wstring& prompt) {
    const QString text = QString::fromStdWString(promptLine(prompt));
    const int open = text.indexOf(QLatin1Char('['));
    const int close = text.indexOf(QLatin1Char(']'), open + 1);
    if (open < 0 || close < 0) return text.toHtmlEscaped();
    QStringList links;
    for (const QString& word : text.mid(open + 1, close - open - 1).split(QLatin1Char('/'))) {
        const QString target = QString::fromUtf8(QUrl::toPercentEncoding(typedFor(word)));
        links << QStringLiteral("<a href=\"%1\" style=\"color:#1f6fb2\">%2</a>").arg(target, word.toHtmlEscaped());
    }
    return text.left(open + 1).toHtmlEscaped() + links.join(QLatin1Char('/')) + text.mid(close).toHtmlEscaped();
}

}  // namespace kdhost
