/**
 * @file
 * Debug output of the host: a record of levels that says what is let out, and the function that takes it.
 *
 * The host defines both names. One that has no debug output of its own links the default layer, osd_menu_host.
 */
#ifndef LIB_DBGOUT_H
#define LIB_DBGOUT_H

#ifdef __cplusplus
extern "C" {
#endif

/** Levels of the debug output, one per component. A message goes out when its level is at most the component's. */
typedef struct lib_dbgout_profile {
    int lib_level;  /**< lets the menu's own messages out: above 2 workarounds, above 5 notable events, above 6 steps */
    int para_level; /**< above 2 lets out the complaint about a configuration file that cannot be parsed */
    int cc_level;   /**< not read by the menu, as all that follow */
    int visca_level;                             /**< of another component */
    int net_protocol_level;                      /**< of another component */
    int module_level;                            /**< of another component */
    int mpp_level;                               /**< of another component */
    int others;                                  /**< of everything else */
    int time_enable;                             /**< whether messages carry the time */
    void (*log_cb)(int level, const char *text); /**< where messages go besides */
} lib_dbgout_profile;

typedef lib_dbgout_profile lib_dbgout_profile_s; /**< its second name */

/** The levels in force. The library only reads it, at any time and on any thread. */
extern lib_dbgout_profile dbgout_profile;

/**
 * Takes one message that the levels let out.
 *
 * @param level   7 steps, 6 notable events, 3 conditions that the library works around
 * @param format  of printf, followed by its arguments
 * @return not used by the library
 */
int qmx_traceout(int level, const char *format, ...)
#ifdef __GNUC__
    __attribute__((format(printf, 2, 3)))
#endif
    ;

#ifdef __cplusplus
}
#endif

#endif
