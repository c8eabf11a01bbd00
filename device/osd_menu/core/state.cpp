// The shared state of the menu, its accessors for the host, and the lock.
#include "core/state.h"

#include "core/debug.h"
#include "core/texts.h"

constinit struct osdmenu_item osdmenu = {};
constinit struct osdmenu_item orderized_osdmenu = {};
constinit struct osdhelpline osdhelp = {};
constinit struct osdbubbleline osbbubble = {};
constinit char language_string[64] = {};

constinit int osdmenu_current_viewlevel = 0;
constinit struct osdmenu_position current_view_position = {};
constinit struct osdmenu_position osdmenu_viewarea_topitem_number = {};

constinit struct osdmenu_item *osdmenu_current_menuitem = nullptr;
constinit int last_noview_itemnumber = 0xFFFF; // above any position, until a page overflows
constinit int last_looped_itemnumber = 0;

constinit int underlineenable = -1;
constinit int g_meetingCameraHelpLineStatus = 0;
constinit int osdmenu_status = 0;
constinit pthread_mutex_t osdmenu_mutex = PTHREAD_MUTEX_INITIALIZER;

constinit char kz73_name[32] = {};
constinit int sc_trackingmode_max = 5;

int set_kz73_name(const char *new_name)
{
    const std::size_t length = new_name ? length_in(new_name, kz73_name, sizeof kz73_name) : sizeof kz73_name;
    if (length < sizeof kz73_name)
        store_text(kz73_name, sizeof kz73_name, new_name, length);
    return 0;
}

char *get_kz73_name(void)
{
    return kz73_name;
}

int get_osdmenu_current_viewlevel(void)
{
    return osdmenu_current_viewlevel;
}

int osdmenu_current_view_position(void)
{
    return current_view_position.levels[0];
}

int set_current_view_position(int level, int pos)
{
    if (is_level(level))
        current_view_position.levels[level] = static_cast<unsigned char>(pos);
    return 0;
}

int get_current_view_position(int level)
{
    return is_level(level) ? current_view_position.levels[level] : 0;
}

void set_osdmenu_status(int value)
{
    osdmenu_status = value;
}

int get_osdmenu_status(void)
{
    return osdmenu_status;
}

int get_viewlevel_from_menuitem(struct osdmenu_item *item)
{
    if (!item)
        return 0;
    for (int i = 1; i < MENU_LEVELS; i++)
        if (item->position.levels[i] == LEVEL_ABSENT)
            return i - 1;
    return MENU_LEVELS - 1;
}

int osdmenu_Mutex_Lock(const char *str)
{
    LIB_TRACE(LOG_STEP, "fun:%s\n", shown(str));
    pthread_mutex_lock(&osdmenu_mutex);
    return 0;
}

int osdmenu_Mutex_Unlock(const char *str)
{
    LIB_TRACE(LOG_STEP, "fun:%s\n", shown(str));
    pthread_mutex_unlock(&osdmenu_mutex);
    return 0;
}
