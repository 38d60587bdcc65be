// The calls of the system, in the place of the C library's for the whole program: the libraries that it loads find
// these first.

#include "tests/faults/filefaults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t kMostFiles = 4096;

/// Plain data, ready before anything else of the program is.
struct Watch {
    bool on = false;
    std::array<char, 4096> folder{};
    std::size_t length = 0;
    int number = 0;
    std::array<bool, kMostFiles> watched{};  ///< by descriptor
    int brokenFile = -1;                     ///< whose disk is full
};
Watch watch;

bool isBelow(const char* path) {
    return watch.on && path != nullptr && std::strncmp(path, watch.folder.data(), watch.length) == 0 &&
           path[watch.length] == '/';
}

/// Names without a folder lie in the folder that the program runs in.
bool isWatched(const char* path) {
    if (!watch.on || path == nullptr) return false;
    if (*path == '/') return isBelow(path);
    std::array<char, 4096> here{};
    if (::getcwd(here.data(), here.size()) == nullptr) return false;
    return std::strncmp(here.data(), watch.folder.data(), watch.length) == 0;
}

bool isWatched(int file) {
    return watch.on && file >= 0 && static_cast<std::size_t>(file) < kMostFiles &&
           watch.watched[static_cast<std::size_t>(file)];
}

void note(int file, bool isOpen) {
    if (file >= 0 && static_cast<std::size_t>(file) < kMostFiles)
        watch.watched[static_cast<std::size_t>(file)] = isOpen;
}

bool strikes() {
    return watch.number > 0 && --watch.number == 0;
}

int refuse(int cause) {
    errno = cause;
    return -1;
}

/// The call that these stand in front of.
template <class Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// What the call of that name returns with these arguments, or the cause of failure where it is struck.
template <class... Arguments>
int unlessStruck(bool isWatched, int cause, const char* name, Arguments... arguments) {
    return isWatched && strikes() ? refuse(cause) : next<int(Arguments...)>(name)(arguments...);
}

template <class Open>
int opened(const char* path, int flags, mode_t mode, Open* open) {
    if (!isWatched(path)) return open(path, flags, mode);
    if (strikes()) return refuse(EACCES);
    const int file = open(path, flags, mode);
    note(file, true);
    return file;
}

mode_t modeOf(int flags, va_list arguments) {
    const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return hasMode ? static_cast<mode_t>(va_arg(arguments, unsigned)) : 0;
}

int openAnd(const char* path, int flags, mode_t mode, const char* name) {
    using Open = int(const char*, int, ...);
    static Open* const open = next<Open>("open");
    static Open* const open64 = next<Open>("open64");
    return opened(path, flags, mode, std::strcmp(name, "open") == 0 ? open : open64);
}

template <class Make>
int made(char* path, int flags, Make* make) {
    if (!isWatched(path)) return make(path, flags);
    if (strikes()) return refuse(EACCES);
    const int file = make(path, flags);
    note(file, true);
    return file;
}

}  // namespace

namespace kdtest {

FileFaults::FileFaults(const std::string& folder) {
    watch.length = folder.copy(watch.folder.data(), watch.folder.size() - 1);
    watch.folder[watch.length] = '\0';
    watch.watched.fill(false);
    watch.on = true;
}

FileFaults::~FileFaults() {
    watch.on = false;
    watch.number = 0;
}

void FileFaults::arm(int number) {
    watch.number = number;
    watch.brokenFile = -1;
}

int FileFaults::left() {
    return watch.number;
}

}  // namespace kdtest

#define KD_EXPORTED __attribute__((visibility("default")))

extern "C" {

KD_EXPORTED int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAnd(path, flags, mode, "open");
}

KD_EXPORTED int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAnd(path, flags, mode, "open64");
}

KD_EXPORTED int mkostemp(char* path, int flags) {
    static auto* const make = next<int(char*, int)>("mkostemp");
    return made(path, flags, make);
}

KD_EXPORTED int mkostemp64(char* path, int flags) {
    static auto* const make = next<int(char*, int)>("mkostemp64");
    return made(path, flags, make);
}

KD_EXPORTED ssize_t read(int file, void* bytes, size_t count) {
    static auto* const read = next<ssize_t(int, void*, size_t)>("read");
    if (isWatched(file) && strikes()) return refuse(EIO);
    return read(file, bytes, count);
}

KD_EXPORTED ssize_t write(int file, const void* bytes, size_t count) {
    static auto* const write = next<ssize_t(int, const void*, size_t)>("write");
    if (!isWatched(file)) return write(file, bytes, count);
    if (watch.brokenFile == file) return refuse(ENOSPC);
    if (!strikes()) return write(file, bytes, count);
    watch.brokenFile = file;
    return count < 2 ? refuse(ENOSPC) : write(file, bytes, count / 2);
}

KD_EXPORTED int close(int file) {
    static auto* const close = next<int(int)>("close");
    const bool fails = isWatched(file) && strikes();
    if (isWatched(file)) note(file, false);
    if (watch.brokenFile == file) watch.brokenFile = -1;
    const int status = close(file);
    return fails ? refuse(EIO) : status;
}

KD_EXPORTED int fsync(int file) {
    return unlessStruck(isWatched(file), EIO, "fsync", file);
}

KD_EXPORTED int fdatasync(int file) {
    return unlessStruck(isWatched(file), EIO, "fdatasync", file);
}

KD_EXPORTED int fchmod(int file, mode_t mode) noexcept {
    return unlessStruck(isWatched(file), EPERM, "fchmod", file, mode);
}

KD_EXPORTED int rename(const char* from, const char* to) noexcept {
    return unlessStruck(isWatched(to), EACCES, "rename", from, to);
}

KD_EXPORTED int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    return unlessStruck(isWatched(to), EACCES, "renameat2", fromFolder, from, toFolder, to, flags);
}

KD_EXPORTED int link(const char* from, const char* to) noexcept {
    return unlessStruck(isWatched(to), EPERM, "link", from, to);
}

KD_EXPORTED int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return unlessStruck(isWatched(to), EPERM, "linkat", fromFolder, from, toFolder, to, flags);
}

}  // extern "C"
