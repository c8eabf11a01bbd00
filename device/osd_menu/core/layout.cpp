// Layout metrics: their values at load, their scaling, and the value column of the page on show.
#include "core/layout.h"

#include <cstdio>

#include "core/config.h"
#include "core/state.h"

// What a burst of 2 gives, but for the y of the first row.
constinit int _FT_OSD_FONT_SIZE = 48;
constinit int FT_OSD_FONT_SIZE = 80;
constinit int osdmenu_view_rowspace = 30;
constinit int osdmenu_view_rulerarea_x = 16;
constinit int osdmenu_view_itemarea_x = 80;
constinit int osdmenu_view_itemarea_y = 20;
constinit int osdmenu_view_valuearea_x = 880;
constinit int osdmenu_view_valuearea_y = 20;
constinit int osdmenu_helplinearea_x = 100;
constinit int osdmenu_helplinearea_y = 1100;
constinit int osdmenu_viewarea_width = 1760;
constinit int osdmenu_viewarea_height = 1160;

constinit unsigned char ft_font_col_arr[5] = {0x21, 0x04, 0xFF, 0xFF, 0x00};

void osdmenu_fontsize_init(int burst)
{
    FT_OSD_FONT_SIZE = wrapping_mul(wrapping_mul(_FT_OSD_FONT_SIZE, burst), 5) / 6;
    osdmenu_view_rowspace = wrapping_mul(15, burst);
    osdmenu_view_rulerarea_x = wrapping_mul(8, burst);
    osdmenu_view_itemarea_x = wrapping_mul(40, burst);
    osdmenu_view_itemarea_y = wrapping_mul(15, burst);
    osdmenu_view_valuearea_x = wrapping_mul(440, burst);
    osdmenu_view_valuearea_y = wrapping_mul(15, burst);
    osdmenu_helplinearea_x = wrapping_mul(50, burst);
    osdmenu_helplinearea_y = wrapping_mul(550, burst);
    osdmenu_viewarea_width = wrapping_mul(880, burst);
    osdmenu_viewarea_height = wrapping_mul(580, burst);
}

void osdmenu_fontsize_init2(int fontsize, int burst)
{
    _FT_OSD_FONT_SIZE = fontsize;
    osdmenu_fontsize_init(burst);
}

void osdmenu_osd_area_size_init(int, int) {}

void set_osdmenu_view_valuearea_x(int size, int value)
{
    osdmenu_view_valuearea_x = wrapping_mul(value, size);
}

void osdmenu_meeting_camera_helpline_enable(int status)
{
    g_meetingCameraHelpLineStatus = status != 0;
}

// The page's path of parents, such as ".3.1". The position within the page is no part of it.
static void page_key(char *level_string, std::size_t size)
{
    std::strncpy(level_string, osdmenu_current_viewlevel == 0 ? "." : "", size);
    for (int level = 0; level < osdmenu_current_viewlevel; level++) {
        char temp[8];
        std::snprintf(temp, sizeof temp, ".%d", current_view_position.levels[level]);
        std::strncat(level_string, temp, size - std::strlen(level_string) - 1);
    }
}

int get_osdmenu_view_valuearea_x(void)
{
    if (!osdmenu_config)
        return osdmenu_view_valuearea_x;
    char level_string[32];
    page_key(level_string, sizeof level_string);
    char language[sizeof language_string + 1] = {}; // language_string may fill its array without a terminator
    std::memcpy(language, language_string, sizeof language_string);
    const cJSON *languages = config_entry(osdmenu_config, "value_offset_x");
    const cJSON *pages = config_entry(languages, language);
    return config_number(pages, level_string, osdmenu_view_valuearea_x);
}
