// Drawings on disk: reading a whole file, writing one in an old one's place.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "host/file/drawingfile.h"
#include "host/file/largepages.h"
#include "host/rx/encoding.h"
#include "kd/db/database.h"

namespace {

using kdhost::toUtf8;

constexpr int kOnlyVersion = 33;

struct FileBytes {
    std::unique_ptr<char[]> at;
    std::size_t size = 0;
};

/// An open file, closed at the end.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : m_descriptor(descriptor) {}
    ~OpenFile() { close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }
    bool close() {
        const int closed = isOpen() ? ::close(m_descriptor) : 0;
        m_descriptor = -1;
        return closed == 0;
    }

    bool write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t written = ::write(m_descriptor, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

    /// Nothing for what is no plain file, and on failure.
    std::optional<FileBytes> readAll() {
        struct stat about {};
        if (::fstat(m_descriptor, &about) != 0 || !S_ISREG(about.st_mode)) return std::nullopt;
        const auto wanted = static_cast<std::size_t>(about.st_size);
        FileBytes bytes{std::make_unique_for_overwrite<char[]>(wanted), 0};
        kdhost::file::askForLargePages(bytes.at.get(), wanted);
        while (bytes.size < wanted) {
            const ssize_t got = ::read(m_descriptor, bytes.at.get() + bytes.size, wanted - bytes.size);
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) return std::nullopt;
            if (got == 0) break;
            bytes.size += static_cast<std::size_t>(got);
        }
        return bytes;
    }

private:
    int m_descriptor;
};

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

/// The file behind a link, so that the link stays one; the path itself where there is no file yet.
std::string behindLinks(const std::string& path) {
    char* resolved = ::realpath(path.c_str(), nullptr);
    std::string result = resolved == nullptr ? path : resolved;
    std::free(resolved);
    return result;
}

/// The rights of the file that is replaced, else those of any new file.
mode_t rightsFor(const std::string& path) {
    struct stat about {};
    if (::stat(path.c_str(), &about) == 0) return about.st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

/// What was renamed stays renamed when the machine stops.
void settleFolder(const std::string& folder) {
    const OpenFile opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.isOpen()) ::fsync(opened.descriptor());
}

bool keepBackupOf(const std::string& path) {
    if (::access(path.c_str(), F_OK) != 0) return true;
    const std::string backup = path + ".bak";
    ::unlink(backup.c_str());
    return ::link(path.c_str(), backup.c_str()) == 0;
}

/// Devices, pipes and folders aren't there to become drawings.
bool mayBeReplaced(const std::string& path) {
    struct stat about {};
    return ::stat(path.c_str(), &about) != 0 || S_ISREG(about.st_mode);
}

/// Beside the target, and complete on disk, before it takes the target's name.
bool replaceFile(const std::string& path, std::string_view bytes, bool keepBackup) {
    if (!mayBeReplaced(path)) return false;
    std::string temporary = path + ".XXXXXX";
    OpenFile file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.isOpen()) return false;
    const bool isWritten = ::fchmod(file.descriptor(), rightsFor(path)) == 0 && file.write(bytes) &&
                           ::fsync(file.descriptor()) == 0 && file.close() && (!keepBackup || keepBackupOf(path)) &&
                           ::rename(temporary.c_str(), path.c_str()) == 0;
    if (!isWritten) ::unlink(temporary.c_str());
    if (isWritten) settleFolder(folderOf(path));
    return isWritten;
}

}  // namespace

Kdad::ErrorStatus KdDbDatabase::saveAs(const wchar_t* fileName, bool keepBackup, int version, const void* security) {
    if (fileName == nullptr || *fileName == L'\0') return Kdad::eInvalidInput;
    if (version != kOnlyVersion || security != nullptr || modelSpaceId().isNull()) return Kdad::eNotApplicable;
    const bool isDone = replaceFile(behindLinks(toUtf8(fileName)), kdhost::file::drawingBytes(*this), keepBackup);
    return isDone ? Kdad::eOk : Kdad::eFileAccessError;
}

Kdad::ErrorStatus KdDbDatabase::readDwgFile(const wchar_t* fileName, int, bool, const wchar_t*) {
    if (fileName == nullptr || *fileName == L'\0') return Kdad::eInvalidInput;
    // A pipe that nobody writes to must not be waited for.
    OpenFile file(::open(toUtf8(fileName).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen()) return errno == ENOENT || errno == ENOTDIR ? Kdad::eFileNotFound : Kdad::eFileAccessError;
    const std::optional<FileBytes> bytes = file.readAll();
    if (!bytes) return Kdad::eFileAccessError;
    return kdhost::file::readDrawing(*this, {bytes->at.get(), bytes->size});
}
