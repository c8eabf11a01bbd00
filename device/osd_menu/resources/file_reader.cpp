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

static bool read_ahead(struct reader *in)
{
    ssize_t got = read(in->fd, in->ahead, in->lookahead);
    in->at = 0;
    in->filled = got > 0 ? static_cast<std::size_t>(got) : 0;
    return got >= 0;
}

ssize_t reader_fill(struct reader *in, void *to, std::size_t size)
{
    char *place = static_cast<char *>(to);
    std::size_t got = take_from_ahead(in, place, size);
    std::size_t missing = size - got;
    if (missing >= in->lookahead) {
        ssize_t more = read(in->fd, place + got, missing);
        return more < 0 ? -1 : static_cast<ssize_t>(got) + more;
    }
    if (missing > 0) {
        if (!read_ahead(in))
            return -1;
        got += take_from_ahead(in, place + got, missing);
    }
    return static_cast<ssize_t>(got);
}
