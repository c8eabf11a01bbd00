// A help line by its name, and the classic block of three.
#include "core/debug.h"
#include "core/line_walks.h"
#include "core/view_buffer.h"
#include "resources/glyph_banks.h"

// All lines of that name are painted on one place; the last in file order stays on top.
int osdmenu_draw_helpline_byname(int start_x, int start_y, const char *name)
{
    for (const struct osdhelpline *line = first_helpline(); line; line = helpline_after(line)) {
        if (!is_named(line->name, name))
            continue;
        DBG_INFO("help line:%s\n", shown(line->viewdescription));
        struct pixel_block block = tight_block(&line->viewbitmap);
        paint_block(start_x, start_y, &block);
    }
    DBG_INFO("out\n");
    return 0;
}

// The pitch of the parts and of the lines comes from the base size of the text, which no burst scales.
int osdmenu_draw_helpline(void)
{
    DBG_INFO("enter..\n");
    const int x[] = {osdmenu_helplinearea_x, wrapping_add(osdmenu_helplinearea_x, _FT_OSD_FONT_SIZE),
                     wrapping_add(osdmenu_helplinearea_x, wrapping_mul(2, _FT_OSD_FONT_SIZE))};
    const int pitch = wrapping_add(_FT_OSD_FONT_SIZE, osdmenu_view_rowspace);
    const int first = osdmenu_helplinearea_y;
    const int second = wrapping_add(first, pitch);
    const int third = wrapping_add(first, wrapping_mul(2, pitch));
    osdmenu_mark_current_menuitem(x[0], first, SYMBOL_UP);
    osdmenu_mark_current_menuitem(x[1], first, SYMBOL_DOWN);
    osdmenu_draw_helpline_byname(x[2], first, "select");
    osdmenu_mark_current_menuitem(x[0], second, SYMBOL_LEFT);
    osdmenu_mark_current_menuitem(x[1], second, SYMBOL_RIGHT);
    osdmenu_draw_helpline_byname(x[2], second, "change");
    osdmenu_draw_helpline_byname(x[0], third, "enter");
    DBG_INFO("out\n");
    return 0;
}
