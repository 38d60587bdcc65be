// Data objects over the system clipboard.

#include "mfc/oledataobject.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "host/win32/clipboardformats.h"

namespace {

/// A zero of this width ends wide text and narrow.
constexpr std::size_t kEndingZero = sizeof(wchar_t);

struct RecordDeleter {
    void operator()(KdClipboardMemory* record) const {
        GlobalFree(record->data);
        std::free(record);
    }
};
using Record = std::unique_ptr<KdClipboardMemory, RecordDeleter>;

/// A block with the bytes and a zero behind them; null when there is no memory.
HGLOBAL blockOf(const QByteArray& bytes) {
    const auto size = static_cast<std::size_t>(bytes.size());
    HGLOBAL block = GlobalAlloc(GMEM_ZEROINIT, size + kEndingZero);
    if (block != nullptr) std::memcpy(block, bytes.constData(), size);
    return block;
}

Record recordOf(const QByteArray& bytes) {
    HGLOBAL block = blockOf(bytes);
    if (block == nullptr) return nullptr;
    Record record(static_cast<KdClipboardMemory*>(std::calloc(1, sizeof(KdClipboardMemory))));
    if (!record) {
        GlobalFree(block);
        return nullptr;
    }
    record->data = block;
    record->size = static_cast<std::size_t>(bytes.size());
    return record;
}

/// The text up to its first zero, without a carriage return or line feed changed.
QByteArray plainText(const QMimeData& held) {
    const QByteArray text = held.text().toUtf8();
    const int zero = text.indexOf('\0');
    return zero < 0 ? text : text.left(zero);
}

}  // namespace

struct COleDataObject::Private {
    bool attached = false;
    /// What this object has put on the clipboard, by MIME type.
    std::vector<std::pair<QString, QByteArray>> put;
    /// Records handed out.
    std::vector<Record> records;

    void publish() const {
        auto data = std::make_unique<QMimeData>();
        for (const auto& [type, bytes] : put) data->setData(type, bytes);
        QGuiApplication::clipboard()->setMimeData(data.release());  // the clipboard owns it
    }
};

COleDataObject::COleDataObject() : m_private(std::make_unique<Private>()) {}

COleDataObject::~COleDataObject() = default;

bool COleDataObject::AttachClipboard() {
    Release();
    m_private->attached = qApp != nullptr && !kdhost::clipboardFaultStrikes();
    return m_private->attached;
}

void COleDataObject::Release() {
    m_private = std::make_unique<Private>();
}

bool COleDataObject::IsDataAvailable(CLIPFORMAT format) const {
    return m_private->attached && IsClipboardFormatAvailable(format) != 0;
}

HGLOBAL COleDataObject::GetGlobalData(CLIPFORMAT format) const {
    if (!IsDataAvailable(format) || kdhost::clipboardFaultStrikes()) return nullptr;
    const QMimeData* held = QGuiApplication::clipboard()->mimeData();
    if (kdhost::isPlainTextFormat(format)) {
        const QByteArray text = plainText(*held);
        return text.isEmpty() ? nullptr : blockOf(text);
    }
    const QByteArray bytes = held->data(kdhost::clipboardMimeType(format));
    if (bytes.isEmpty()) return nullptr;
    Record record = recordOf(bytes);
    if (!record) return nullptr;
    return m_private->records.emplace_back(std::move(record)).get();
}

void COleDataObject::CacheGlobalData(CLIPFORMAT format, HGLOBAL memory) {
    const Record record(static_cast<KdClipboardMemory*>(memory));
    const QString type = kdhost::clipboardMimeType(format);
    if (!m_private->attached || !record || record->data == nullptr || type.isEmpty()) return;
    if (kdhost::clipboardFaultStrikes()) return;
    QByteArray bytes(static_cast<const char*>(record->data), static_cast<int>(record->size));
    auto& put = m_private->put;
    const auto known = std::find_if(put.begin(), put.end(), [&](const auto& entry) { return entry.first == type; });
    if (known == put.end()) {
        put.emplace_back(type, std::move(bytes));
    } else {
        known->second = std::move(bytes);
    }
    m_private->publish();
}
