// The program's definitions win over those of libc and of a sanitizer.
#include "support/faults.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

Fault failing = {};
int calls_to_failure = 0;

static bool fails(Fault fault)
{
    errno = fault == Fault::Calloc ? ENOMEM : EIO; // a call that succeeds may leave one, too
    return fault == failing && --calls_to_failure == 0;
}

extern "C" void *__libc_calloc(std::size_t, std::size_t);
extern "C" void *__interceptor_calloc(std::size_t, std::size_t) __attribute__((weak)); // a sanitizer's
extern "C" void *calloc(std::size_t count, std::size_t size) noexcept
{
    return fails(Fault::Calloc) ? nullptr : (__interceptor_calloc ? __interceptor_calloc : __libc_calloc)(count, size);
}

extern "C" ssize_t read(int fd, void *to, std::size_t size)
{
    return fails(Fault::Read) ? -1 : syscall(SYS_read, fd, to, size);
}

extern "C" int open(const char *path, int flags, ...) // of files that exist
{
    return fails(Fault::Open) ? -1 : static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags));
}

extern "C" int close(int fd)
{
    return syscall(SYS_close, fd) != 0 || fails(Fault::Close) ? -1 : 0;
}
