// The direct channel of the debug output.
#include "core/debug.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

static char *append(char *at, const char *end, const char *text)
{
    return std::copy_n(text, std::min(std::strlen(text), static_cast<std::size_t>(end - at)), at);
}

// Puts "PREFIX:FILE FUNCTION[LINE] " before a message's format, so that a line goes out whole. By hand: formatting it
// would cost as much again as writing the line. Names of files and functions hold no percent sign.
static void prepend(char *format, std::size_t size, const char *prefix, const char *file, const char *function,
                    int line, const char *message)
{
    char place[] = "[0000] ";
    for (int i = 4; i > 0; i--, line /= 10)
        place[i] = static_cast<char>('0' + line % 10);
    const char *const end = format + size - 1;
    for (const char *part : {prefix, file, " ", function, static_cast<const char *>(place), message})
        format = append(format, end, part);
    *format = '\0';
}

static void print_line(std::FILE *stream, const char *prefix, const char *file, const char *function, int line,
                       const char *message, std::va_list arguments)
{
    char format[256];
    prepend(format, sizeof format, prefix, file, function, line, message);
    std::vfprintf(stream, format, arguments);
    std::fflush(stream);
}

void dbg_info(const char *file, const char *function, int line, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print_line(stdout, "DBG_INFO:", file, function, line, format, arguments);
    va_end(arguments);
}

void dbg_out_info(const char *file, const char *function, int line, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print_line(stdout, "DBG_OUT_INFO:", file, function, line, format, arguments);
    va_end(arguments);
}

void dbg_err(const char *file, const char *function, int line, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print_line(stderr, "DBG_ERR:", file, function, line, format, arguments);
    va_end(arguments);
}
