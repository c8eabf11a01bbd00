// The program's definitions win over those of libc, and of a sanitizer, which they call.
#include "support/faults.h"

#include <cerrno>
#include <cstddef>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>

static Fault kind = {};
static int calls_left = 0; // until the one that fails; 0 lets all through, below 0 one has failed

void fail_call(Fault fault, int nth)
{
    kind = fault;
    calls_left = nth;
}
bool call_failed()
{
    const bool failed = calls_left < 0;
    calls_left = 0;
    return failed;
}
static bool fails(Fault fault)
{
    if (kind != fault || calls_left <= 0 || --calls_left > 0)
        return false;
    calls_left = -1;
    errno = fault == Fault::Calloc ? ENOMEM : EIO;
    return true;
}
template <class Function> static Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}
extern "C" void *__libc_calloc(std::size_t, std::size_t);
extern "C" void *__interceptor_calloc(std::size_t, std::size_t) __attribute__((weak)); // a sanitizer's
extern "C" void *calloc(std::size_t count, std::size_t size) noexcept
{
    if (fails(Fault::Calloc))
        return nullptr;
    return __interceptor_calloc ? __interceptor_calloc(count, size) : __libc_calloc(count, size);
}
extern "C" ssize_t read(int fd, void *to, std::size_t size)
{
    return fails(Fault::Read) ? -1 : next<ssize_t(int, void *, std::size_t)>("read")(fd, to, size);
}
extern "C" int open(const char *path, int flags, ...) // of files that exist
{
    return fails(Fault::Open) ? -1 : next<int(const char *, int, ...)>("open")(path, flags);
}
extern "C" int close(int fd)
{
    const int result = next<int(int)>("close")(fd);
    return fails(Fault::Close) ? -1 : result;
}
