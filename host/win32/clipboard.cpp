// The formats of the clipboard: names, numbers and MIME types.

#include "win32/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>
#include <vector>

#include "host/rx/faults.h"
#include "host/win32/clipboardformats.h"

namespace {

constexpr UINT kFirstNumber = 0xC000;
constexpr std::size_t kNumbers = 0x4000;

/// Names in the order of their numbers. Never destroyed: modules ask until the end.
std::vector<QString>& names() {
    static auto* const instance = new std::vector<QString>;
    return *instance;
}

const QString* nameOf(UINT format) {
    if (format < kFirstNumber || format - kFirstNumber >= names().size()) return nullptr;
    return &names()[format - kFirstNumber];
}

}  // namespace

namespace kdhost {

QString clipboardMimeType(UINT format) {
    const QString* name = nameOf(format);
    if (name == nullptr) return {};
    if (name->contains(QLatin1Char('/'))) return *name;
    return QStringLiteral("application/x-kd-clipboard;format=\"%1\"").arg(*name);
}

bool clipboardFaultStrikes() {
    return faultStrikes(faults().failClipboardNumber);
}

bool isPlainTextFormat(UINT format) {
    const QString* name = nameOf(format);
    return name != nullptr && name->compare(QLatin1String("text/plain"), Qt::CaseInsensitive) == 0;
}

}  // namespace kdhost

UINT RegisterClipboardFormatW(const wchar_t* name) {
    const QString wanted = QString::fromWCharArray(name == nullptr ? L"" : name);
    if (wanted.isEmpty() || kdhost::clipboardFaultStrikes()) return 0;
    std::vector<QString>& known = names();
    const auto found = std::find_if(known.begin(), known.end(), [&](const QString& candidate) {
        return candidate.compare(wanted, Qt::CaseInsensitive) == 0;
    });
    const auto index = static_cast<std::size_t>(found - known.begin());
    if (found == known.end()) {
        if (known.size() == kNumbers) return 0;
        known.push_back(wanted);
    }
    return kFirstNumber + static_cast<UINT>(index);
}

int GetClipboardFormatNameW(UINT format, wchar_t* name, int length) {
    const QString* known = nameOf(format);
    if (known == nullptr || name == nullptr || length <= 0) return 0;
    const std::wstring text = known->toStdWString();
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(length) - 1);
    std::copy_n(text.begin(), count, name);
    name[count] = L'\0';
    return static_cast<int>(count);
}

int IsClipboardFormatAvailable(UINT format) {
    if (qApp == nullptr || kdhost::clipboardFaultStrikes()) return 0;
    const QMimeData* held = QGuiApplication::clipboard()->mimeData();
    if (held == nullptr) return 0;
    if (kdhost::isPlainTextFormat(format)) return held->hasText() ? 1 : 0;
    const QString type = kdhost::clipboardMimeType(format);
    return !type.isEmpty() && held->hasFormat(type) ? 1 : 0;
}
