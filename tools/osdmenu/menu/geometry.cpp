#include "menu/geometry.h"

#include "core/layout.h"
#include "osd_menu_post.h"

// The library computes its own layout here, so that the two can never differ.
Geometry set_up_geometry(const Display &display)
{
    osdmenu_fontsize_init2(display.font_size, display.burst);
    return {display.width ? display.width : osdmenu_viewarea_width,
            display.height ? display.height : osdmenu_viewarea_height,
            fontSize(),
            FT_OSD_FONT_SIZE,
            osdmenu_view_rowspace,
            osdmenu_view_itemarea_y,
            osdmenu_view_itemarea_x,
            osdmenu_view_valuearea_x};
}
