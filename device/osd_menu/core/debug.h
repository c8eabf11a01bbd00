// Debug output: both channels and the forms of their lines.
//
// A line names the exported function that reports, also where a helper shared by several does the writing: those
// helpers use the _AS forms and hand the name on.
#pragma once

#include "lib_dbgout.h"

// Of rows that nothing but a file's height counts, a call reports no more: such a height has no end.
enum { MOST_REPORTS = 65536 };

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

// The direct channel: always on, flushed at once, each line in one write. A function for each of its prefixes.
void dbg_info(const char *file, const char *function, int line, const char *format, ...)
    __attribute__((format(printf, 4, 5)));
void dbg_out_info(const char *file, const char *function, int line, const char *format, ...)
    __attribute__((format(printf, 4, 5)));
void dbg_err(const char *file, const char *function, int line, const char *format, ...)
    __attribute__((format(printf, 4, 5)));

#define DBG_INFO_AS(function, ...) dbg_info(__FILE_NAME__, (function), __LINE__, __VA_ARGS__)
#define DBG_INFO(...) DBG_INFO_AS(__func__, __VA_ARGS__)
#define DBG_OUT_INFO_AS(function, ...) dbg_out_info(__FILE_NAME__, (function), __LINE__, __VA_ARGS__)
#define DBG_ERR_AS(function, ...) dbg_err(__FILE_NAME__, (function), __LINE__, __VA_ARGS__)
#define DBG_ERR(...) DBG_ERR_AS(__func__, __VA_ARGS__)

// What a line shows for a text that may be missing: printf must never see a null pointer.
inline const char *shown(const char *text)
{
    return text ? text : "(null)";
}
