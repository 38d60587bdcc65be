// A program with a clipboard, for tests that need two of them. It obeys lines on its standard input and answers each
// with one on its standard output; it ends with its input.
//
//     put FORMAT HEX       puts bytes on the clipboard by a new data object
//     add FORMAT HEX       more bytes by the same object
//     text WORDS           puts plain text there, as any program does
//     get FORMAT           the bytes in that format in hexadecimal digits, or "none"
//     has FORMAT           "yes" or "no"

#include <QApplication>
#include <QClipboard>
#include <QSocketNotifier>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "mfc/oledataobject.h"
#include "win32/clipboard.h"
#include "win32/globalmem.h"

namespace {

CLIPFORMAT formatOf(const std::string& name) {
    return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(QString::fromStdString(name).toStdWString().c_str()));
}

class Peer {
public:
    std::string answer(const std::string& line) {
        std::istringstream words(line);
        std::string verb;
        std::string format;
        std::string rest;
        words >> verb >> format;
        std::getline(words >> std::ws, rest);
        if (verb == "put") m_owner = attached();
        if (verb == "put" || verb == "add") return put(format, QByteArray::fromHex(QByteArray::fromStdString(rest)));
        if (verb == "text") return text(line.substr(verb.size() + 1));
        if (verb == "get") return get(format);
        return verb == "has" ? has(format) : "what?";
    }

private:
    static std::unique_ptr<COleDataObject> attached() {
        auto object = std::make_unique<COleDataObject>();
        object->AttachClipboard();
        return object;
    }

    std::string put(const std::string& format, const QByteArray& bytes) {
        if (!m_owner) return "no object";
        auto* record = static_cast<KdClipboardMemory*>(std::calloc(1, sizeof(KdClipboardMemory)));
        record->size = static_cast<std::size_t>(bytes.size());
        record->data = GlobalAlloc(GMEM_MOVEABLE, record->size);
        std::memcpy(record->data, bytes.constData(), record->size);
        m_owner->CacheGlobalData(formatOf(format), record);
        return "done";
    }

    static std::string text(const std::string& words) {
        QApplication::clipboard()->setText(QString::fromStdString(words));
        return "done";
    }

    static std::string get(const std::string& format) {
        const auto object = attached();
        HGLOBAL found = object->GetGlobalData(formatOf(format));
        if (found == nullptr) return "none";
        if (format == "text/plain") {
            const QByteArray bytes(static_cast<const char*>(found));
            GlobalFree(found);
            return bytes.toHex().toStdString();
        }
        const auto* record = static_cast<const KdClipboardMemory*>(found);
        return QByteArray(static_cast<const char*>(record->data), static_cast<int>(record->size)).toHex().toStdString();
    }

    static std::string has(const std::string& format) {
        return attached()->IsDataAvailable(formatOf(format)) ? "yes" : "no";
    }

    std::unique_ptr<COleDataObject> m_owner;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Peer peer;
    const QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&peer] {
        std::string line;
        if (!std::getline(std::cin, line)) return QApplication::quit();
        std::cout << peer.answer(line) << std::endl;
    });
    std::cout << "ready" << std::endl;
    return QApplication::exec();
}
