// Reading a resource file: a little ahead for what is small, straight into its place for what is large.
#pragma once

#include <cstddef>
#include <sys/types.h>

// How far to read ahead, in bytes. Records stand side by side and are read ahead by the page. Texts stand between
// pictures, which are not to be copied twice: what was read ahead of one is.
enum { LOOKAHEAD_RECORDS = 4096, LOOKAHEAD_TEXTS = 512 };

struct reader {
    int fd;
    std::size_t lookahead;
    std::size_t at;     // of the bytes read ahead, the first not handed out
    std::size_t filled; // end of the bytes read ahead
    int failure;        // errno of a failure that the next read has to tell, or 0
    char ahead[LOOKAHEAD_RECORDS];
};

// Opens `dir` followed by the file's name. False with errno set when that cannot be done.
bool reader_open(struct reader *in, const char *dir, const char *file_name, std::size_t lookahead);

// As close().
int reader_close(struct reader *in);

// Reads up to `size` bytes, a field, as one read of the file would: fewer where the file ends, or where a failure comes
// behind some of them. The next read of any byte then fails. -1 with errno set on failure.
ssize_t reader_fill(struct reader *in, void *to, std::size_t size);
