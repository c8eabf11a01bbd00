// Debug output: both channels and the forms of their lines.
//
// A line names the exported function that reports, also where a helper shared by several does the writing: those
// helpers use the _AS forms and hand the name on.
#pragma once

#include <cstdio>

#include "lib_dbgout.h"

enum {
    LOG_WORKAROUND = 3, // a condition that the library works around
    LOG_EVENT = 6,      // a notable event
    LOG_STEP = 7,       // a step of some work
};

// The levelled channel. The arguments are evaluated only when the level lets the line out.
#define LIB_TRACE_AS(function, level, format, ...)                                                                     \
    do {                                                                                                               \
        if (dbgout_profile.lib_level >= (level))                                                                       \
            qmx_traceout((level), "[lib %s +%-4d]" format, (function), __LINE__ __VA_OPT__(, ) __VA_ARGS__);           \
    } while (0)
#define LIB_TRACE(level, format, ...) LIB_TRACE_AS(__func__, level, format __VA_OPT__(, ) __VA_ARGS__)

#define PARA_TRACE(level, format, ...)                                                                                 \
    do {                                                                                                               \
        if (dbgout_profile.para_level >= (level))                                                                      \
            qmx_traceout((level), "[para %s +%-4d]" format, __func__, __LINE__ __VA_OPT__(, ) __VA_ARGS__);            \
    } while (0)

// The direct channel: always on, flushed at once. The form with a name of its own comes first, the common one second.
#define DBG_DIRECT(stream, prefix, function, format, ...)                                                              \
    print_line((stream), prefix ":%s %s[%04d] " format, __FILE_NAME__, (function), __LINE__ __VA_OPT__(, ) __VA_ARGS__)
#define DBG_INFO_AS(function, format, ...) DBG_DIRECT(stdout, "DBG_INFO", function, format __VA_OPT__(, ) __VA_ARGS__)
#define DBG_INFO(format, ...) DBG_INFO_AS(__func__, format __VA_OPT__(, ) __VA_ARGS__)
#define DBG_OUT_INFO_AS(function, format, ...)                                                                         \
    DBG_DIRECT(stdout, "DBG_OUT_INFO", function, format __VA_OPT__(, ) __VA_ARGS__)
#define DBG_ERR_AS(function, format, ...) DBG_DIRECT(stderr, "DBG_ERR", function, format __VA_OPT__(, ) __VA_ARGS__)
#define DBG_ERR(format, ...) DBG_ERR_AS(__func__, format __VA_OPT__(, ) __VA_ARGS__)

// Writes a whole line and flushes it.
void print_line(std::FILE *stream, const char *format, ...) __attribute__((format(printf, 2, 3)));

// What a line shows for a text that may be missing: printf must never see a null pointer.
inline const char *shown(const char *text)
{
    return text ? text : "(null)";
}
