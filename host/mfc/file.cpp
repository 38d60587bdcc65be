// Files under the class framework's names, on the system's own calls: CFile hands every read and write to the
// system, CStdioFile has a buffer below it, so that reading and writing character by character costs little.

#include "mfc/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <vector>

#include "host/rx/encoding.h"

/// An open file with its buffer. The buffer holds either bytes still to be written or bytes read ahead, never
/// both. A failed call throws its errno.
struct CFile::Handle {
    struct Failure {
        int cause;
    };

    Handle(int descriptor, bool buffered, Room& room)
        : m_descriptor(descriptor), m_buffer(buffered ? kBufferSize : 0), m_room(room) {}
    ~Handle() {
        m_room = {};
        ::close(m_descriptor);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    std::size_t read(char* out, std::size_t count) {
        flush();
        std::size_t done = takeReadAhead(out, count);
        while (done < count) {
            if (count - done < m_buffer.size()) {
                m_readEnd = readSome(m_buffer.data(), m_buffer.size());
                m_readBegin = 0;
                if (m_readEnd == 0) break;
                done += takeReadAhead(out + done, count - done);
            } else {
                const std::size_t got = readSome(out + done, count - done);
                if (got == 0) break;
                done += got;
            }
        }
        return done;
    }

    /// Writes what the room has no place for.
    void write(const char* bytes, std::size_t count) {
        if (count == 0) return;
        dropReadAhead();
        flush();
        if (count >= m_buffer.size()) return writeAll(bytes, count);
        m_room = {m_buffer.data(), m_buffer.data() + m_buffer.size()};
        std::memcpy(m_room.next, bytes, count);
        m_room.next += count;
    }

    /// Leaves no room, so that the buffer can serve for reading. Bytes that the system doesn't take stay in it.
    void flush() {
        const std::size_t count = unwritten();
        std::size_t done = 0;
        try {
            while (done < count) done += writeSome(m_buffer.data() + done, count - done);
        } catch (const Failure&) {
            std::memmove(m_buffer.data(), m_buffer.data() + done, count - done);
            m_room.next -= done;
            throw;
        }
        m_room = {};
    }

    std::uint64_t seek(std::int64_t offset, int whence) {
        flush();
        if (whence == SEEK_CUR && stepInReadAhead(offset)) return position();
        dropReadAhead();
        return seekSystem(offset, whence);
    }

    std::uint64_t position() const {
        const std::uint64_t system = seekSystem(0, SEEK_CUR);
        return system - (m_readEnd - m_readBegin) + unwritten();
    }

    std::uint64_t length() const {
        struct stat status {};
        if (::fstat(m_descriptor, &status) != 0) throw Failure{errno};
        const auto onDisk = static_cast<std::uint64_t>(status.st_size);
        return unwritten() == 0 ? onDisk : std::max(onDisk, position());
    }

private:
    static constexpr std::size_t kBufferSize = 0x10000;

    std::size_t unwritten() const {
        return m_room.next == nullptr ? 0 : static_cast<std::size_t>(m_room.next - m_buffer.data());
    }

    std::size_t takeReadAhead(char* out, std::size_t count) {
        const std::size_t taken = std::min(count, m_readEnd - m_readBegin);
        if (taken != 0) std::memcpy(out, m_buffer.data() + m_readBegin, taken);
        m_readBegin += taken;
        return taken;
    }

    /// Moves the system's position back to where the user's is.
    void dropReadAhead() {
        if (m_readBegin != m_readEnd) seekSystem(-static_cast<std::int64_t>(m_readEnd - m_readBegin), SEEK_CUR);
        m_readBegin = m_readEnd = 0;
    }

    bool stepInReadAhead(std::int64_t offset) {
        const auto target = static_cast<std::int64_t>(m_readBegin) + offset;
        if (m_readEnd == 0 || target < 0 || target > static_cast<std::int64_t>(m_readEnd)) return false;
        m_readBegin = static_cast<std::size_t>(target);
        return true;
    }

    std::uint64_t seekSystem(std::int64_t offset, int whence) const {
        const off_t position = ::lseek(m_descriptor, offset, whence);
        if (position < 0) throw Failure{errno};
        return static_cast<std::uint64_t>(position);
    }

    std::size_t readSome(char* out, std::size_t count) {
        for (;;) {
            const ssize_t got = ::read(m_descriptor, out, count);
            if (got >= 0) return static_cast<std::size_t>(got);
            if (errno != EINTR) throw Failure{errno};
        }
    }

    std::size_t writeSome(const char* bytes, std::size_t count) {
        for (;;) {
            const ssize_t done = ::write(m_descriptor, bytes, count);
            if (done >= 0) return static_cast<std::size_t>(done);
            if (errno != EINTR) throw Failure{errno};
        }
    }

    void writeAll(const char* bytes, std::size_t count) {
        for (std::size_t done = 0; done < count;) done += writeSome(bytes + done, count - done);
    }

    int m_descriptor;
    std::vector<char> m_buffer;
    Room& m_room;
    std::size_t m_readBegin = 0;
    std::size_t m_readEnd = 0;
};

namespace {

/// The open flags of the system; modes of sharing have no meaning here, and text is not translated.
int systemFlags(UINT flags) {
    const UINT access = flags & (CFile::modeWrite | CFile::modeReadWrite);
    int result = O_CLOEXEC;
    result |= (access & CFile::modeReadWrite) != 0 ? O_RDWR : access == CFile::modeWrite ? O_WRONLY : O_RDONLY;
    if ((flags & CFile::modeCreate) != 0) result |= O_CREAT;
    if ((flags & CFile::modeCreate) != 0 && (flags & CFile::modeNoTruncate) == 0) result |= O_TRUNC;
    return result;
}

bool isFolder(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

/// The descriptor, or the cause of the failure as a negative number. A folder opens for reading on this system
/// and still is no file.
int openDescriptor(const wchar_t* path, UINT flags) {
    if (path == nullptr || *path == L'\0') return -ENOENT;
    const int descriptor = ::open(kdhost::toUtf8(path).c_str(), systemFlags(flags), 0666);
    if (descriptor < 0) return -errno;
    if (!isFolder(descriptor)) return descriptor;
    ::close(descriptor);
    return -EISDIR;
}

std::optional<int> systemOrigin(UINT from) {
    switch (from) {
        case CFile::begin:
            return SEEK_SET;
        case CFile::current:
            return SEEK_CUR;
        case CFile::end:
            return SEEK_END;
        default:
            return std::nullopt;
    }
}

}  // namespace

CFile::CFile() = default;

CFile::CFile(bool buffered) : m_buffered(buffered) {}

CFile::CFile(const wchar_t* path, UINT flags) {
    CFileException error(0, {});
    if (!CFile::Open(path, flags, &error)) throw error;
}

CFile::~CFile() {
    if (!m_handle) return;
    try {
        m_handle->flush();
    } catch (const Handle::Failure&) {
        // A destructor has nobody to tell; who must know closes the file.
    }
}

bool CFile::Open(const wchar_t* path, UINT flags, CFileException* error) {
    const int descriptor = m_handle ? -EBUSY : openDescriptor(path, flags);
    if (descriptor < 0) {
        if (error != nullptr) *error = CFileException(-descriptor, path == nullptr ? L"" : path);
        return false;
    }
    m_handle = std::make_unique<Handle>(descriptor, m_buffered, m_room);
    m_path = path;
    return true;
}

template <class Work>
auto CFile::onHandle(Work work) const {
    if (!m_handle) throw CFileException(EBADF, m_path);
    try {
        return work(*m_handle);
    } catch (const Handle::Failure& failure) {
        throw CFileException(failure.cause, m_path);
    }
}

UINT CFile::Read(void* buffer, UINT count) {
    return onHandle([&](Handle& file) { return static_cast<UINT>(file.read(static_cast<char*>(buffer), count)); });
}

void CFile::writeThrough(const void* buffer, UINT count) {
    onHandle([&](Handle& file) { file.write(static_cast<const char*>(buffer), count); });
}

std::uint64_t CFile::Seek(std::int64_t offset, UINT from) {
    const std::optional<int> origin = systemOrigin(from);
    if (!origin) throw CFileException(EINVAL, m_path);
    return onHandle([&](Handle& file) { return file.seek(offset, *origin); });
}

std::uint64_t CFile::GetPosition() const {
    return onHandle([](const Handle& file) { return file.position(); });
}

std::uint64_t CFile::GetLength() const {
    return onHandle([](const Handle& file) { return file.length(); });
}

void CFile::Flush() {
    onHandle([](Handle& file) { file.flush(); });
}

void CFile::Close() {
    if (!m_handle) return;
    const std::unique_ptr<Handle> closing = std::move(m_handle);
    try {
        closing->flush();
    } catch (const Handle::Failure& failure) {
        throw CFileException(failure.cause, m_path);
    }
}

bool CFile::isOpen() const {
    return m_handle != nullptr;
}

CStdioFile::CStdioFile() : CFile(true) {}

CStdioFile::CStdioFile(const wchar_t* path, UINT flags) : CFile(true) {
    CFileException error(0, {});
    if (!CFile::Open(path, flags, &error)) throw error;
}

CStdioFile::~CStdioFile() = default;
