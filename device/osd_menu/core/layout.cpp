// Layout metrics: their values at load, their scaling, and the value column of the page on show.
#include "core/layout.h"

#include "core/config.h"
#include "core/state.h"

// Before any call this base size and a burst of 2 hold, but for the y of the first row.
constinit int _FT_OSD_FONT_SIZE = 48;
static constexpr struct layout_metrics at_load = layout_metrics_of(48, 2);

constinit int FT_OSD_FONT_SIZE = at_load.text_size;
constinit int osdmenu_view_rowspace = at_load.rowspace;
constinit int osdmenu_view_rulerarea_x = at_load.rulerarea_x;
constinit int osdmenu_view_itemarea_x = at_load.itemarea_x;
constinit int osdmenu_view_itemarea_y = 20;
constinit int osdmenu_view_valuearea_x = at_load.valuearea_x;
constinit int osdmenu_view_valuearea_y = 20;
constinit int osdmenu_helplinearea_x = at_load.helplinearea_x;
constinit int osdmenu_helplinearea_y = at_load.helplinearea_y;
constinit int osdmenu_viewarea_width = at_load.viewarea_width;
constinit int osdmenu_viewarea_height = at_load.viewarea_height;

constinit unsigned char ft_font_col_arr[5] = {0x21, 0x04, 0xFF, 0xFF, 0x00};

void osdmenu_fontsize_init(int burst)
{
    const struct layout_metrics metrics = layout_metrics_of(_FT_OSD_FONT_SIZE, burst);
    FT_OSD_FONT_SIZE = metrics.text_size;
    osdmenu_view_rowspace = metrics.rowspace;
    osdmenu_view_rulerarea_x = metrics.rulerarea_x;
    osdmenu_view_itemarea_x = metrics.itemarea_x;
    osdmenu_view_itemarea_y = metrics.itemarea_y;
    osdmenu_view_valuearea_x = metrics.valuearea_x;
    osdmenu_view_valuearea_y = metrics.valuearea_y;
    osdmenu_helplinearea_x = metrics.helplinearea_x;
    osdmenu_helplinearea_y = metrics.helplinearea_y;
    osdmenu_viewarea_width = metrics.viewarea_width;
    osdmenu_viewarea_height = metrics.viewarea_height;
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

int get_osdmenu_view_valuearea_x(void)
{
    if (!osdmenu_config)
        return osdmenu_view_valuearea_x;
    char level_string[PAGE_KEY_SIZE];
    page_key(level_string, current_view_position.levels, osdmenu_current_viewlevel);
    char language[sizeof language_string + 1] = {}; // language_string may fill its array without a terminator
    std::memcpy(language, language_string, sizeof language_string);
    return config_value_column(osdmenu_config, language, level_string, osdmenu_view_valuearea_x);
}
