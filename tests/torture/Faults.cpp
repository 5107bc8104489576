// A program's own function goes before that of a library, so the library under test calls these.
// The system's headers are left out: what they declare would have to be repeated to the letter.
#include "Faults.h"

#include <dlfcn.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstddef>

#include "support/Heap.h"

namespace {

using OrlekTest::FaultKind;

std::atomic<long> countdown = 0;
std::atomic<FaultKind> armedKind = FaultKind::allocation;
std::atomic<const char*> failed = "";

bool strikes(FaultKind kind) {
    return countdown > 0 && armedKind == kind && countdown.fetch_sub(1) == 1;
}

bool strikes(const char* name, int error) {
    if (!strikes(FaultKind::system)) {
        return false;
    }
    failed = name;
    errno = error;
    return true;
}

/// The function that would have been called.
template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

namespace OrlekTest {

void armFault(FaultKind kind, long number) {
    allocationFails = [] { return strikes(FaultKind::allocation); };
    armedKind = kind;
    countdown = number;
}

bool disarmFault() {
    return countdown.exchange(0) <= 0;
}

const char* failedCall() {
    return failed;
}

}  // namespace OrlekTest

#define FAULTY(Result, name, error, parameters, arguments)        \
    Result name parameters {                                      \
        static auto* const real = next<Result parameters>(#name); \
        return strikes(#name, error) ? -1 : real arguments;       \
    }

extern "C" {

struct addrinfo;

FAULTY(int, fsync, EIO, (int file), (file))
FAULTY(int, fstat, EIO, (int file, void* status), (file, status))
FAULTY(int, access, EACCES, (const char* path, int mode), (path, mode))
FAULTY(int, fchown, EPERM, (int file, unsigned int owner, unsigned int group), (file, owner, group))
FAULTY(int, fchmod, EPERM, (int file, unsigned int mode), (file, mode))
FAULTY(int, rename, EACCES, (const char* from, const char* to), (from, to))
FAULTY(int, linkat, ENOSPC, (int from, const char* old, int to, const char* name, int flags),
       (from, old, to, name, flags))
FAULTY(int, mkdir, ENOSPC, (const char* path, unsigned int mode), (path, mode))
FAULTY(long, read, EIO, (int file, void* bytes, std::size_t size), (file, bytes, size))
FAULTY(long, pread, EIO, (int file, void* bytes, std::size_t size, long offset),
       (file, bytes, size, offset))
FAULTY(long, write, ENOSPC, (int file, const void* bytes, std::size_t size), (file, bytes, size))

FAULTY(int, socket, ENFILE, (int family, int type, int protocol), (family, type, protocol))
FAULTY(int, connect, ECONNREFUSED, (int socket, const void* peer, unsigned int size),
       (socket, peer, size))
FAULTY(int, bind, EADDRINUSE, (int socket, const void* local, unsigned int size),
       (socket, local, size))
FAULTY(int, listen, EADDRINUSE, (int socket, int backlog), (socket, backlog))
FAULTY(int, accept4, EMFILE, (int socket, void* peer, unsigned int* size, int flags),
       (socket, peer, size, flags))
FAULTY(int, poll, ENOMEM, (void* waited, unsigned long count, int timeoutMs),
       (waited, count, timeoutMs))
FAULTY(int, getsockopt, ENOBUFS, (int socket, int level, int name, void* value, unsigned int* size),
       (socket, level, name, value, size))
FAULTY(int, setsockopt, ENOBUFS,
       (int socket, int level, int name, const void* value, unsigned int size),
       (socket, level, name, value, size))
FAULTY(long, send, ECONNRESET, (int socket, const void* bytes, std::size_t size, int flags),
       (socket, bytes, size, flags))
FAULTY(long, sendmsg, ECONNRESET, (int socket, const void* message, int flags),
       (socket, message, flags))
FAULTY(long, sendto, ENETUNREACH,
       (int socket, const void* bytes, std::size_t size, int flags, const void* peer,
        unsigned int peerSize),
       (socket, bytes, size, flags, peer, peerSize))
FAULTY(long, recv, ECONNRESET, (int socket, void* bytes, std::size_t size, int flags),
       (socket, bytes, size, flags))
FAULTY(int, getifaddrs, ENOMEM, (void** interfaces), (interfaces))
FAULTY(int, getaddrinfo, ENOMEM,  // -1 is EAI_BADFLAGS
       (const char* node, const char* service, const addrinfo* hints, addrinfo** result),
       (node, service, hints, result))

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, unsigned int);  // read in vain where there is none
    va_end(rest);
    static auto* const real = next<int(const char*, int, ...)>("open");
    return strikes("open", EMFILE) ? -1 : real(path, flags, mode);
}

int fcntl(int file, int command, ...) {
    va_list rest;
    va_start(rest, command);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    static auto* const real = next<int(int, int, ...)>("fcntl");
    return strikes("fcntl", EBADF) ? -1 : real(file, command, argument);
}

/// The descriptor is gone whatever close says.
int close(int file) {
    static auto* const real = next<int(int)>("close");
    const int result = real(file);
    return strikes("close", EIO) ? -1 : result;
}

}  // extern "C"
