// CFile and CStdioFile: files under the class framework's names.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "win32/types.h"

/// What a file operation throws. `cause` is the errno of the failed call.
class CFileException {
public:
    CFileException(int cause, std::wstring fileName) : m_cause(cause), m_fileName(std::move(fileName)) {}
    int cause() const { return m_cause; }
    const std::wstring& fileName() const { return m_fileName; }

private:
    int m_cause;
    std::wstring m_fileName;
};

/// A file of bytes, not buffered. An operation on a file that isn't open throws EBADF.
class CFile {
public:
    /// Bits of the open flags.
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        modeCreate = 0x1000,  ///< makes the file, and empties one that is there
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000,
    };
    enum SeekPosition : UINT { begin = 0, current = 1, end = 2 };

    CFile();
    /// Opens the file; throws CFileException when that fails.
    CFile(const wchar_t* path, UINT flags);
    /// Closes the file, if open; a failure to write the rest is not reported here.
    virtual ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// False, with the cause in `error` when it isn't null, on failure; a file that is open stays open.
    virtual bool Open(const wchar_t* path, UINT flags, CFileException* error = nullptr);
    /// Returns the number of bytes read, less than `count` only at the end of the file. Throws.
    virtual UINT Read(void* buffer, UINT count);
    /// Writes all bytes or throws. What fits the buffer costs no call, so that text can be written byte by byte.
    virtual void Write(const void* buffer, UINT count) {
        if (count > static_cast<std::size_t>(m_room.end - m_room.next)) return writeThrough(buffer, count);
        if (count == 1) {
            *m_room.next++ = *static_cast<const char*>(buffer);
        } else if (count > 0) {
            std::memcpy(m_room.next, buffer, count);
            m_room.next += count;
        }
    }
    /// Writes single bytes, put one after the other straight where a buffer has room for them: `put(room, end)` puts
    /// as many as it has and fit, and returns the place behind them. It is asked again until it leaves room free.
    /// Without a buffer the room is that of one byte, which goes to the system on its own. Throws.
    template <class Put>
    void WriteEach(Put put) {
        for (;;) {
            if (m_room.next != m_room.end) {
                m_room.next = put(m_room.next, m_room.end);
                if (m_room.next != m_room.end) return;
            }
            char single;
            if (put(&single, &single + 1) == &single) return;
            writeThrough(&single, 1);
        }
    }
    /// Returns the new position from the start. Throws.
    virtual std::uint64_t Seek(std::int64_t offset, UINT from);
    virtual std::uint64_t GetPosition() const;
    virtual std::uint64_t GetLength() const;
    /// Hands everything written so far to the system. Throws.
    virtual void Flush();
    /// Flushes and closes. Throws when the rest can't be written; the file is closed all the same. Nothing
    /// when the file isn't open.
    virtual void Close();

    bool isOpen() const;
    const std::wstring& GetFilePath() const { return m_path; }

protected:
    struct Handle;
    /// `buffered` asks for a buffer below the file class, as CStdioFile has.
    explicit CFile(bool buffered);

private:
    /// Does its work on the open file and turns a failure into the exception.
    template <class Work>
    auto onHandle(Work work) const;
    /// Writes what the buffer has no room for.
    void writeThrough(const void* buffer, UINT count);

    /// Where the next bytes to be written go; none without a buffer, and while the buffer holds bytes read ahead.
    struct Room {
        char* next = nullptr;
        char* end = nullptr;
    };

    Room m_room;  ///< of the handle's buffer
    std::unique_ptr<Handle> m_handle;
    std::wstring m_path;
    bool m_buffered = false;
};

/// A file of text, buffered.
class CStdioFile : public CFile {
public:
    CStdioFile();
    CStdioFile(const wchar_t* path, UINT flags);
    ~CStdioFile() override;
};
