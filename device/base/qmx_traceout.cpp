// Default debug output: messages go to standard error.
#include "lib_dbgout.h"

#include <cstdarg>
#include <cstdio>

int qmx_traceout(int, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    int written = std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    return written;
}
