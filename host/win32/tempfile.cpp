// Temporary files: a name is taken by making its file, so that two processes never get the same one.

#include "win32/tempfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cwchar>
#include <string>

#include "host/rx/encoding.h"

namespace {

thread_local DWORD lastError = LAST_NO_ERROR;

constexpr std::size_t kPrefixLength = 3;
constexpr UINT kFileNumbers = 0x10000;
constexpr mode_t kOwnerOnly = 0600;

UINT failed(DWORD code) {
    SetLastError(code);
    return 0;
}

std::wstring nameOf(std::wstring folder, const std::wstring& prefix, UINT number) {
    if (!folder.empty() && folder.back() != L'/') folder += L'/';
    std::array<wchar_t, 16> tail{};
    std::swprintf(tail.data(), tail.size(), L"%04X.tmp", number % kFileNumbers);
    return folder + prefix.substr(0, kPrefixLength) + tail.data();
}

enum class Made { Yes, Taken, No };

Made makeFile(const std::wstring& name) {
    const int file = ::open(kdhost::toUtf8(name).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly);
    if (file < 0) return errno == EEXIST ? Made::Taken : Made::No;
    ::close(file);
    return Made::Yes;
}

bool isFolder(const std::wstring& path) {
    struct stat status {};
    return ::stat(kdhost::toUtf8(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// Where the search begins; any number will do, but not the same for each process.
UINT firstNumber() {
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    return static_cast<UINT>(static_cast<std::uint64_t>(ticks) ^ (static_cast<std::uint64_t>(::getpid()) << 4U)) %
           kFileNumbers;
}

/// Makes the file of the first number that is free; 0 stands for a failure and is never a number.
UINT takeNumber(const std::wstring& folder, const std::wstring& prefix) {
    const UINT first = firstNumber();
    for (UINT step = 0; step < kFileNumbers; ++step) {
        const UINT number = (first + step) % kFileNumbers;
        if (number == 0) continue;
        switch (makeFile(nameOf(folder, prefix, number))) {
            case Made::Yes:
                return number;
            case Made::No:
                return failed(LAST_ACCESS_DENIED);
            case Made::Taken:
                break;
        }
    }
    return failed(LAST_FILE_EXISTS);
}

}  // namespace

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD code) {
    lastError = code;
}

int getKdadErrorFromWinErr(DWORD) {
    return 0;
}

UINT GetTempFileNameW(const wchar_t* folder, const wchar_t* prefix, UINT unique, wchar_t* out) {
    if (folder == nullptr || out == nullptr) return failed(LAST_INVALID_PARAMETER);
    const std::wstring start = prefix == nullptr ? L"" : std::wstring(prefix).substr(0, kPrefixLength);
    if (start.find(L'/') != std::wstring::npos) return failed(LAST_INVALID_NAME);
    const std::wstring place = *folder == L'\0' ? L"." : folder;
    if (nameOf(place, start, 0).size() >= static_cast<std::size_t>(KD_MAX_PATH)) return failed(LAST_BUFFER_OVERFLOW);
    if (!isFolder(place)) return failed(LAST_PATH_NOT_FOUND);
    UINT number = unique % kFileNumbers;
    if (number == 0) number = takeNumber(place, start);
    if (number == 0) return 0;
    const std::wstring name = nameOf(place, start, number);
    std::wmemcpy(out, name.c_str(), name.size() + 1);
    SetLastError(LAST_NO_ERROR);
    return number;
}
