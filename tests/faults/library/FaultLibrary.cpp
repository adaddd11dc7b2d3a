// Loaded before the C library, it makes the Nth call of one kind fail, or ends the process at it.
//
//   FAULT=KIND:N:HOW   KIND as in kindNames; N counts from 1, from the program's main on; HOW as in howNames
//   FAULT_LOG=FILE     a file that exists: a byte is added for each fault; at the end, unless FAULT is set, the count
//   of
//                      each kind, a line each
//
// The calls that a stream of the C library makes inside it are out of reach: the stream's own functions fail instead,
// and mark the stream as one in error as the library does.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

enum Kind { Open, Read, Write, Sync, Rename, Link, Unlink, Close, Map, Truncate, State, Mode, Lock, Memory };
enum How { Once, FromThenOn, Short, Interrupted, KillBefore, KillAfter };

constexpr std::array<std::string_view, 14> kindNames = {"open",  "read",   "write", "sync",  "rename",
                                                        "link",  "unlink", "close", "map",   "truncate",
                                                        "state", "mode",   "lock",  "memory"};
constexpr std::array<std::string_view, 6> howNames = {"once",        "from-then-on", "short",
                                                      "interrupted", "kill-before",  "kill-after"};
constexpr std::array<int, 14> errors = {EMFILE, EIO,    ENOSPC, EIO, EIO,   EPERM,  EIO,
                                        EIO,    ENOMEM, EIO,    EIO, EPERM, ENOLCK, ENOMEM};

bool wanted = false;  // Whether a fault was asked for.
std::size_t wantedKind = 0, wantedHow = 0;
long wantedCall = 0;
const char* logFile = nullptr;
std::atomic<bool> counting = false;  // From main on: what fails before is the loader's business.
std::array<std::atomic<long>, kindNames.size()> calls;

template <std::size_t Count>
std::size_t place(const std::array<std::string_view, Count>& names, std::string_view name) {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) _exit(99);
    return static_cast<std::size_t>(found - names.begin());
}

void readWishes() {
    logFile = std::getenv("FAULT_LOG");
    const char* fault = std::getenv("FAULT");
    if (fault == nullptr) return;
    const std::string_view text = fault;
    const std::size_t first = text.find(':'), second = text.rfind(':');
    if (first == second) _exit(99);
    wantedKind = place(kindNames, text.substr(0, first));
    wantedCall = std::strtol(text.data() + first + 1, nullptr, 10);
    wantedHow = place(howNames, text.substr(second + 1));
    wanted = true;
}

/// Past everything that is counted here.
void addToLog(const char* text, std::size_t length) {
    if (logFile == nullptr) return;
    const long file = syscall(SYS_open, logFile, O_WRONLY | O_APPEND | O_CLOEXEC);
    if (file < 0) return;
    syscall(SYS_write, file, text, length);
    syscall(SYS_close, file);
}

void logCounts() {
    if (wanted) return;
    for (std::size_t kind = 0; kind < kindNames.size(); ++kind) {
        std::array<char, 64> line{};
        const int length =
            std::snprintf(line.data(), line.size(), "%s %ld\n", kindNames[kind].data(), calls[kind].load());
        addToLog(line.data(), static_cast<std::size_t>(length));
    }
}

void die() {
    addToLog("!", 1);
    syscall(SYS_kill, syscall(SYS_getpid), SIGKILL);
}

/// One call of a kind: whether it is to fail, and what happens around it.
class Call {
public:
    explicit Call(Kind kind) : kind_(kind) {
        if (!counting) return;
        const long number = ++calls[kind];
        if (!wanted || wantedKind != kind) return;
        chosen_ = wantedHow == FromThenOn ? number >= wantedCall : number == wantedCall;
        if (chosen_ && wantedHow == KillBefore) die();
    }
    ~Call() {
        if (chosen_ && wantedHow == KillAfter) die();
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    bool fails() const {
        if (!chosen_ || wantedHow == Short || wantedHow >= KillBefore) return false;
        addToLog("!", 1);
        errno = wantedHow == Interrupted ? EINTR : errors[kind_];
        return true;
    }
    /// How much of that much is to be done.
    std::size_t part(std::size_t whole) const {
        if (!chosen_ || wantedHow != Short || whole < 2) return whole;
        addToLog("!", 1);
        return whole / 2;
    }

private:
    Kind kind_;
    bool chosen_ = false;
};

template <class Function>
Function* next(const char* name, Function*) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void markInError(FILE* stream) {
    constexpr int inError = 0x20;
    stream->_flags |= inError;
}

using Main = int (*)(int, char**, char**);
Main realMain = nullptr;

int countedMain(int argc, char** argv, char** environment) {
    readWishes();
    std::atexit(logCounts);
    alarm(60);  // A call that fails for ever must not be tried for ever.
    counting = true;
    return realMain(argc, argv, environment);
}

/// The mode of a call that may create a file is its last argument.
mode_t modeOf(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

#define NEXT(name) static const auto real = next(#name, &name)

#pragma GCC visibility push(default)
extern "C" {

void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);

int __libc_start_main(Main main, int argc, char** argv, void (*start)(), void (*end)(), void (*loader)(), void* stack);
int __libc_start_main(Main main, int argc, char** argv, void (*start)(), void (*end)(), void (*loader)(), void* stack) {
    NEXT(__libc_start_main);
    realMain = main;
    return real(countedMain, argc, argv, start, end, loader, stack);
}

void* malloc(std::size_t size) noexcept {
    const Call call(Memory);
    return call.fails() ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) noexcept {
    const Call call(Memory);
    return call.fails() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) noexcept {
    const Call call(Memory);
    return call.fails() ? nullptr : __libc_realloc(block, size);
}

int open(const char* path, int flags, ...) {
    NEXT(open);
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    const Call call(Open);
    return call.fails() ? -1 : real(path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    NEXT(open64);
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    const Call call(Open);
    return call.fails() ? -1 : real(path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
    NEXT(openat);
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    const Call call(Open);
    return call.fails() ? -1 : real(folder, path, flags, mode);
}
FILE* fopen(const char* path, const char* mode) {
    NEXT(fopen);
    const Call call(Open);
    return call.fails() ? nullptr : real(path, mode);
}
FILE* fopen64(const char* path, const char* mode) {
    NEXT(fopen64);
    const Call call(Open);
    return call.fails() ? nullptr : real(path, mode);
}
FILE* fdopen(int file, const char* mode) noexcept {
    NEXT(fdopen);
    const Call call(Open);
    return call.fails() ? nullptr : real(file, mode);
}
FILE* tmpfile() {
    NEXT(tmpfile);
    const Call call(Open);
    return call.fails() ? nullptr : real();
}
int mkstemp(char* pattern) {
    NEXT(mkstemp);
    const Call call(Open);
    return call.fails() ? -1 : real(pattern);
}
DIR* opendir(const char* path) {
    NEXT(opendir);
    const Call call(Open);
    return call.fails() ? nullptr : real(path);
}

ssize_t read(int file, void* bytes, std::size_t count) {
    NEXT(read);
    const Call call(Read);
    return call.fails() ? -1 : real(file, bytes, call.part(count));
}
ssize_t pread(int file, void* bytes, std::size_t count, off_t at) {
    NEXT(pread);
    const Call call(Read);
    return call.fails() ? -1 : real(file, bytes, call.part(count), at);
}
std::size_t fread(void* bytes, std::size_t size, std::size_t count, FILE* stream) {
    NEXT(fread);
    const Call call(Read);
    if (!call.fails()) return real(bytes, size, count, stream);
    markInError(stream);
    return 0;
}
struct dirent* readdir(DIR* folder) {
    NEXT(readdir);
    const Call call(Read);
    return call.fails() ? nullptr : real(folder);
}

ssize_t write(int file, const void* bytes, std::size_t count) {
    NEXT(write);
    const Call call(Write);
    return call.fails() ? -1 : real(file, bytes, call.part(count));
}
ssize_t writev(int file, const iovec* pieces, int count) {
    NEXT(writev);
    const Call call(Write);
    if (call.fails()) return -1;
    if (count < 1) return real(file, pieces, count);
    // The first half of the first piece that has two bytes is short of any number of pieces.
    const std::size_t half = call.part(pieces[0].iov_len);
    return half < pieces[0].iov_len ? ::write(file, pieces[0].iov_base, half) : real(file, pieces, count);
}
std::size_t fwrite(const void* bytes, std::size_t size, std::size_t count, FILE* stream) {
    NEXT(fwrite);
    const Call call(Write);
    if (!call.fails()) return real(bytes, size, count, stream);
    markInError(stream);
    return 0;
}
int fputs(const char* text, FILE* stream) {
    NEXT(fputs);
    const Call call(Write);
    if (!call.fails()) return real(text, stream);
    markInError(stream);
    return EOF;
}
int fflush(FILE* stream) {
    NEXT(fflush);
    const Call call(Write);
    if (!call.fails()) return real(stream);
    if (stream != nullptr) markInError(stream);
    return EOF;
}

int fsync(int file) {
    NEXT(fsync);
    const Call call(Sync);
    return call.fails() ? -1 : real(file);
}
int fdatasync(int file) {
    NEXT(fdatasync);
    const Call call(Sync);
    return call.fails() ? -1 : real(file);
}
int rename(const char* from, const char* to) noexcept {
    NEXT(rename);
    const Call call(Rename);
    return call.fails() ? -1 : real(from, to);
}
int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    NEXT(renameat);
    const Call call(Rename);
    return call.fails() ? -1 : real(fromFolder, from, toFolder, to);
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    NEXT(renameat2);
    const Call call(Rename);
    return call.fails() ? -1 : real(fromFolder, from, toFolder, to, flags);
}
int link(const char* from, const char* to) noexcept {
    NEXT(link);
    const Call call(Link);
    return call.fails() ? -1 : real(from, to);
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    NEXT(linkat);
    const Call call(Link);
    return call.fails() ? -1 : real(fromFolder, from, toFolder, to, flags);
}
int unlink(const char* path) noexcept {
    NEXT(unlink);
    const Call call(Unlink);
    return call.fails() ? -1 : real(path);
}
int unlinkat(int folder, const char* path, int flags) noexcept {
    NEXT(unlinkat);
    const Call call(Unlink);
    return call.fails() ? -1 : real(folder, path, flags);
}

// What fails to close is closed all the same, as on Linux.
int close(int file) {
    NEXT(close);
    const Call call(Close);
    if (!call.fails()) return real(file);
    const int error = errno;
    real(file);
    errno = error;
    return -1;
}
int fclose(FILE* stream) {
    NEXT(fclose);
    const Call call(Close);
    if (!call.fails()) return real(stream);
    const int error = errno;
    real(stream);
    errno = error;
    return EOF;
}

void* mmap(void* at, std::size_t length, int protection, int flags, int file, off_t offset) noexcept {
    NEXT(mmap);
    const Call call(Map);
    return call.fails() ? MAP_FAILED : real(at, length, protection, flags, file, offset);
}
void* mremap(void* at, std::size_t length, std::size_t newLength, int flags, ...) noexcept {
    const Call call(Map);
    if (call.fails()) return MAP_FAILED;
    const long moved = syscall(SYS_mremap, at, length, newLength, flags, nullptr);
    return reinterpret_cast<void*>(moved);
}
int ftruncate(int file, off_t length) noexcept {
    NEXT(ftruncate);
    const Call call(Truncate);
    return call.fails() ? -1 : real(file, length);
}
int stat(const char* path, struct stat* found) noexcept {
    NEXT(stat);
    const Call call(State);
    return call.fails() ? -1 : real(path, found);
}
int fstat(int file, struct stat* found) noexcept {
    NEXT(fstat);
    const Call call(State);
    return call.fails() ? -1 : real(file, found);
}
int lstat(const char* path, struct stat* found) noexcept {
    NEXT(lstat);
    const Call call(State);
    return call.fails() ? -1 : real(path, found);
}
char* realpath(const char* path, char* resolved) noexcept {
    NEXT(realpath);
    const Call call(State);
    return call.fails() ? nullptr : real(path, resolved);
}
ssize_t readlink(const char* path, char* target, std::size_t size) noexcept {
    NEXT(readlink);
    const Call call(State);
    return call.fails() ? -1 : real(path, target, size);
}
int faccessat(int folder, const char* path, int type, int flags) noexcept {
    NEXT(faccessat);
    const Call call(State);
    return call.fails() ? -1 : real(folder, path, type, flags);
}

int fchmod(int file, mode_t mode) noexcept {
    NEXT(fchmod);
    const Call call(Mode);
    return call.fails() ? -1 : real(file, mode);
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
    NEXT(fchown);
    const Call call(Mode);
    return call.fails() ? -1 : real(file, owner, group);
}
int fsetxattr(int file, const char* name, const void* value, std::size_t size, int flags) noexcept {
    NEXT(fsetxattr);
    const Call call(Mode);
    return call.fails() ? -1 : real(file, name, value, size, flags);
}
ssize_t listxattr(const char* path, char* names, std::size_t size) noexcept {
    NEXT(listxattr);
    const Call call(Mode);
    return call.fails() ? -1 : real(path, names, size);
}
int flock(int file, int operation) noexcept {
    NEXT(flock);
    const Call call(Lock);
    return call.fails() ? -1 : real(file, operation);
}
}  // extern "C"
#pragma GCC visibility pop
