// The direct channel of the debug output.
#include "core/debug.h"

#include <cstdarg>

void print_line(std::FILE *stream, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stream, format, arguments);
    va_end(arguments);
    std::fflush(stream);
}
