// The direct channel of the debug output.
#include "core/debug.h"

#include <cstdarg>
#include <cstdio>

// Prefix and message are made one format, so that a line goes out whole.
static void print_line(std::FILE *stream, const char *prefix, const char *file, const char *function, int line,
                       const char *format, std::va_list arguments)
{
    char whole_format[256]; // names of files and functions hold no percent sign
    std::snprintf(whole_format, sizeof whole_format, "%s:%s %s[%04d] %s", prefix, file, function, line, format);
    std::vfprintf(stream, whole_format, arguments);
    std::fflush(stream);
}

void dbg_info(const char *file, const char *function, int line, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print_line(stdout, "DBG_INFO", file, function, line, format, arguments);
    va_end(arguments);
}

void dbg_out_info(const char *file, const char *function, int line, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print_line(stdout, "DBG_OUT_INFO", file, function, line, format, arguments);
    va_end(arguments);
}

void dbg_err(const char *file, const char *function, int line, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print_line(stderr, "DBG_ERR", file, function, line, format, arguments);
    va_end(arguments);
}
