// The registry's file: reading, locking and replacing it.

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <chrono>
#include <thread>

#include "host/win32/registry.h"

namespace kdhost::registry {
namespace {

QString folder() {
    const QString configured = qEnvironmentVariable("XDG_CONFIG_HOME");
    // A relative folder is to be passed over, as the rules of that variable say.
    const QString base = QDir::isAbsolutePath(configured) ? configured : QDir::homePath() + QStringLiteral("/.config");
    return base + QStringLiteral("/kdhost");
}

QString inFolder(const QString& name) {
    return folder() + QLatin1Char('/') + name;
}

QString file() {
    return inFolder(QStringLiteral("registry.json"));
}

/// By the rights that the process has now.
bool mayWrite(const QString& path) {
    return faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

/// The file under a further name of its own; it stays where it is until it is replaced.
bool setAside() {
    constexpr int mostNames = 1000;
    const QByteArray from = QFile::encodeName(file());
    for (int number = 1; number <= mostNames; ++number) {
        const QByteArray to = QFile::encodeName(inFolder(QStringLiteral("registry.damaged-%1.json").arg(number)));
        if (link(from.constData(), to.constData()) == 0) return true;
        if (errno == EEXIST) continue;
        // File systems without links: the file moves.
        return access(to.constData(), F_OK) != 0 && rename(from.constData(), to.constData()) == 0;
    }
    return false;
}

}  // namespace

std::string filePath() {
    return file().toStdString();
}

Stored read() {
    QFile stored(file());
    if (!stored.open(QIODevice::ReadOnly)) {
        // What isn't there is empty; what is there and stays closed must not be taken for empty.
        const bool found = access(QFile::encodeName(stored.fileName()).constData(), F_OK) == 0;
        const bool missing = !found && (errno == ENOENT || errno == ENOTDIR);
        return {{}, missing ? Condition::kSound : Condition::kUnreadable};
    }
    const QByteArray text = stored.readAll();
    if (stored.error() != QFileDevice::NoError) return {{}, Condition::kUnreadable};
    std::optional<Key> root = parse(text.toStdString());
    if (!root) return {{}, Condition::kDamaged};
    return {std::move(*root), Condition::kSound};
}

bool isWritable() {
    if (QFileInfo::exists(file()) && !mayWrite(file())) return false;
    QString existing = folder();
    while (!QFileInfo::exists(existing)) existing = QFileInfo(existing).path();
    return QFileInfo(existing).isDir() && mayWrite(existing);
}

Lock::Lock() {
    using namespace std::chrono_literals;
    constexpr auto patience = 2s;
    constexpr auto pause = 5ms;
    // No folder, no store: the open below tells.
    QDir().mkpath(folder());
    const QByteArray name = QFile::encodeName(inFolder(QStringLiteral("registry.lock")));
    m_file = open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_file < 0) return;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (flock(m_file, LOCK_EX | LOCK_NB) != 0) {
        if (std::chrono::steady_clock::now() > end) {
            m_status = ERROR_LOCK_VIOLATION;
            return;
        }
        std::this_thread::sleep_for(pause);
    }
    m_status = ERROR_SUCCESS;
}

Lock::~Lock() {
    // Closing the file lets the lock go.
    if (m_file >= 0) close(m_file);
}

bool write(const Key& root, bool oldIsDamaged) {
    if (oldIsDamaged && !setAside()) return false;
    const std::string text = print(root);
    const auto length = static_cast<qint64>(text.size());
    QSaveFile replacement(file());
    return replacement.open(QIODevice::WriteOnly) && replacement.write(text.data(), length) == length &&
           replacement.commit();
}

}  // namespace kdhost::registry
