// The state of the one menu of this process, and the tests that everything makes on it.
//
// Every variable is set before any code runs, so that a host may call before its main.
#pragma once

#include <cstring>
#include <pthread.h>

#include "osd_menu_post.h"

enum { MENU_LEVELS = 4 };
enum { MARK_LEVEL = MENU_LEVELS - 1 }; // where an item has its enable mark, on the deepest level its coordinate as well

// What is loaded. The menu counts as never loaded while osdmenu.readlist.prev is null.
extern struct osdmenu_item osdmenu;           // heads of the load-order lists; written by the loader and the ordering
extern struct osdmenu_item orderized_osdmenu; // head of the top list; written by the ordering
extern struct osdhelpline osdhelp;            // head of the help lines; written by their loader
extern struct osdbubbleline osbbubble;        // head of the bubble lines; written by their loader
extern char language_string[64];              // `dir` of the last load, without terminator when it fills the array

// Where the user stands.
extern int osdmenu_current_viewlevel;                           // 0 to 3; written by keys and position control
extern struct osdmenu_position current_view_position;           // enabled indexes; written by keys and position control
extern struct osdmenu_position osdmenu_viewarea_topitem_number; // first painted row per depth; written by keys

// What the last draw found.
extern struct osdmenu_item *osdmenu_current_menuitem; // written by draws; null without a row, and after a free
extern int last_noview_itemnumber;                    // rows above the first that did not fit; written on overflow
extern int last_looped_itemnumber;                    // enabled rows walked; written at the end of each draw

extern int underlineenable;               // 1 when row 1 of the top list is a separator; written by the configuration
extern int g_meetingCameraHelpLineStatus; // 1 when pages end with the help block; written by its setter
extern int osdmenu_status;                // a word of the host's; written by its setter
extern pthread_mutex_t osdmenu_mutex;     // taken by osdmenu_Mutex_Lock alone

// A missing name matches nothing, and most names differ in their first letter.
inline bool is_named(const char *own_name, const char *name)
{
    return own_name && name && *own_name == *name && std::strcmp(own_name, name) == 0;
}

// Every mark but this one means enabled.
inline bool is_disabled(const struct osdmenu_item *item)
{
    return item->position.levels[MARK_LEVEL] == ITEM_MARK_DISABLED;
}

inline bool is_level(int level)
{
    return level >= 0 && level < MENU_LEVELS;
}

inline bool menu_was_loaded(void)
{
    return osdmenu.readlist.prev != nullptr;
}
