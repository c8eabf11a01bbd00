// Reading a resource file.
#include "resources/file_reader.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

bool reader_open(struct reader *in, const char *dir, const char *file_name, std::size_t lookahead)
{
    char path[PATH_MAX];
    if (!dir) {
        errno = ENOENT;
        return false;
    }
    int length = std::snprintf(path, sizeof path, "%s%s", dir, file_name);
    if (length < 0 || length >= static_cast<int>(sizeof path)) {
        errno = ENAMETOOLONG;
        return false;
    }
    in->fd = open(path, O_RDONLY | O_CLOEXEC);
    in->lookahead = lookahead;
    in->at = 0;
    in->filled = 0;
    in->failure = 0;
    return in->fd >= 0;
}

int reader_close(struct reader *in)
{
    return close(in->fd);
}

static std::size_t take_from_ahead(struct reader *in, char *to, std::size_t size)
{
    std::size_t taken = std::min(size, in->filled - in->at);
    if (taken == 0) // a block of no bytes may have no address
        return 0;
    std::memcpy(to, in->ahead + in->at, taken);
    in->at += taken;
    return taken;
}

// Reads what was not read ahead: a large rest straight into its place, a small one by way of the next bytes ahead.
static ssize_t read_on(struct reader *in, char *to, std::size_t size)
{
    if (size >= in->lookahead)
        return read(in->fd, to, size);
    ssize_t got = read(in->fd, in->ahead, in->lookahead);
    in->at = 0;
    in->filled = got > 0 ? static_cast<std::size_t>(got) : 0;
    return got < 0 ? -1 : static_cast<ssize_t>(take_from_ahead(in, to, size));
}

ssize_t reader_fill(struct reader *in, void *to, std::size_t size)
{
    if (in->failure != 0 && size > 0) {
        errno = in->failure;
        return -1;
    }
    char *place = static_cast<char *>(to);
    std::size_t got = take_from_ahead(in, place, size);
    if (got == size)
        return static_cast<ssize_t>(got);
    ssize_t more = read_on(in, place + got, size - got);
    if (more >= 0)
        return static_cast<ssize_t>(got) + more;
    if (got == 0)
        return -1;
    in->failure = errno;
    return static_cast<ssize_t>(got);
}
