/* A host in C on the shared library alone: it brings its own functions, writes a small menu, starts as a device does,
 * presses keys, and looks at the pixels. Blocks are 10 rows of 2 pixels that begin with the block's number. */
#define _POSIX_C_SOURCE 200809L
#undef NDEBUG
#include <assert.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include "host_settings.h"
#include "lib_common.h"
#include "lib_dbgout.h"
#include "osd_menu_post.h"

#define HOST_FUNCTION(declaration, result)                                                                             \
    declaration                                                                                                        \
    {                                                                                                                  \
        return result;                                                                                                 \
    }
HOST_FUNCTION(int get_sc_smartgallery_preset(void), 0)
HOST_FUNCTION(int get_sc_trackingmode(void), 0)
HOST_FUNCTION(int save_config_to_flash(void), 0)
HOST_FUNCTION(int set_aimode_show(int show), show)
HOST_FUNCTION(int qmx_traceout(int level, const char *format, ...), level + *format)
HOST_FUNCTION(char *read_file_to_buf(char *path), strdup(*path ? "{\"default_color\": 0}" : ""))
static int brightness = 9;
HOST_FUNCTION(static int act(struct osdmenu_item *item, int operation, int value),
              operation == ACTION_OP_SET && item ? (brightness = value) : brightness)
lib_dbgout_profile dbgout_profile;

/* Draws. Whether the pointer stands at a y, and the block of that number at a place. */
static int page_shows(int pointer_y, int x, int y, char number)
{
    osdmenu_viewbuffer_fill_background();
    osdmenu_draw_allitems();
    return osdmenu_viewbuffer[(pointer_y * 880 + 8) * 2] == '1' && osdmenu_viewbuffer[(y * 880 + x) * 2] == number;
}

static void write_menu(void)
{
    FILE *meta = fopen("m.d", "wb"), *data = fopen("b.d", "wb"), *banks[] = {fopen("c.d", "wb"), fopen("s.d", "wb")};
    for (int i = 0; i < 5; i++) { /* three rows, and two in the page below the last of them */
        osdmenu_item item = {.position.levels = {2, 255, 255, 255}, .view.viewbitmap = {0, 10, 4, 0, NULL}};
        item.position.levels[i / 3] = (unsigned char)(i % 3);
        item.item_values = (osdmenu_item_value){.type = i == 1 ? VALUE_NUMBER : VALUE_NONE, .u.number = {9, 0, 0, 1}};
        fwrite(&item, sizeof item, 1, meta);
        fprintf(data, "item%d%ctext%c%-40d", i, 0, 0, i);
    }
    for (int i = 0; i < 97; i++) { /* 93 glyphs and 4 symbols */
        fwrite(&(osdmenu_view_bitmap){0, 10, 4, 4, NULL}, sizeof(osdmenu_view_bitmap), 1, banks[i / 93]);
        fprintf(banks[i / 93], "%-40d", i % 93);
    }
    fclose(meta), fclose(data), fclose(banks[0]), fclose(banks[1]);
}

int main(void)
{
    char directory[] = "/tmp/menu-XXXXXX";
    assert(mkdtemp(directory) && chdir(directory) == 0);
    write_menu();
    osdmenu_fontsize_init(1);
    osdmenu_viewbuffer_malloc(880, 580);
    assert(read2mem_menuitem_commonchar("./") == 40);
    assert(read2mem_menuitem_utf16symbol("./") == 0);
    read2mem_all_menuitems("./");
    orderize_all_menuitems();
    osdmenu_register_action_byname("item1", act, 1);
    osdmenu_current_view_position_reset();
    assert(page_shows(40, 440, 40, '9')); /* the glyph of the brightness */
    osdmenu_action_right();               /* past its high limit */
    assert(page_shows(40, 440, 40, '0'));
    osdmenu_action_down();
    assert(page_shows(65, 40, 65, '2'));
    osdmenu_action_ok();
    assert(page_shows(40, 40, 15, '3')); /* the page opens on its second row */
    return unlink("m.d") || unlink("b.d") || unlink("c.d") || unlink("s.d") || rmdir(directory);
}
