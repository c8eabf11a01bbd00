/* A host in C on the shared library alone: it brings its own functions, writes a small menu, starts as a device does,
 * presses keys, and looks at the pixels. Blocks are 10 rows of 2 pixels, each filled with a number of its own. */
#define _POSIX_C_SOURCE 200809L
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
lib_dbgout_profile dbgout_profile;

static int brightness = 8, entered, wrong;

static int act(struct osdmenu_item *item, int operation, int value)
{
    if (operation == ACTION_OP_SET)
        brightness = value;
    entered += operation == ACTION_OP_ENTER && strcmp(item->name, "page") == 0;
    return brightness;
}

static void put_pixels(FILE *file, int fill)
{
    for (int i = 0; i < 40; i++)
        fputc(fill, file);
}

static void write_bank(const char *name, int count)
{
    osdmenu_view_bitmap block = {0, 10, 4, 4, NULL};
    FILE *bank = fopen(name, "wb");
    for (int i = 0; i < count && fwrite(&block, sizeof block, 1, bank) == 1; i++)
        put_pixels(bank, i);
    fclose(bank);
}

static void write_items(void)
{
    static const char *const names[] = {"title", "brightness", "page", "first", "second"};
    FILE *meta = fopen("m.d", "wb"), *data = fopen("b.d", "wb");
    for (int i = 0; i < 5; i++) {
        osdmenu_item item = {.position.levels = {2, 255, 255, 255}, .view.viewbitmap = {0, 10, 4, 0, NULL}};
        item.position.levels[i / 3] = (unsigned char)(i % 3);
        item.item_values = (osdmenu_item_value){.type = i == 1 ? VALUE_NUMBER : VALUE_NONE, .u.number = {9, 0, 0, 1}};
        fwrite(&item, sizeof item, 1, meta);
        fprintf(data, "%s%ctext%c", names[i], 0, 0);
        put_pixels(data, 100 + i);
    }
    fclose(meta);
    fclose(data);
}

/* Draws; the pointer has to stand at a y, and a view or value at a place. */
static void expect(int pointer_y, int x, int y, int fill)
{
    osdmenu_viewbuffer_fill_background();
    osdmenu_draw_allitems();
    int pointer = osdmenu_viewbuffer[(pointer_y * 880 + 8) * 2], seen = osdmenu_viewbuffer[(y * 880 + x) * 2];
    wrong += pointer != 1 || seen != fill;
    fprintf(stderr, "pointer at %d: %d; (%d, %d): %d, wanted %d\n", pointer_y, pointer, x, y, seen, fill);
}

int main(void)
{
    char directory[] = "/tmp/menu-XXXXXX";
    if (!mkdtemp(directory) || chdir(directory) != 0)
        return 2;
    static const char *const files[] = {"c.d", "s.d", "m.d", "b.d", "hm.d", "hb.d", "bm.d", "bb.d"};
    for (int i = 0; i < 8; i++)
        write_bank(files[i], i == 0 ? 93 : i == 1 ? 4 : 0);
    write_items();
    osdmenu_fontsize_init(1);
    osdmenu_viewbuffer_malloc(880, 580);
    wrong += read2mem_menuitem_commonchar("./") <= 0 || read2mem_menuitem_utf16symbol("./") != 0;
    read2mem_all_menuitems("./");
    orderize_all_menuitems();
    wrong += read2mem_helpline("./") != 0 || read2mem_bubbleline("./") != 0;
    osdmenu_register_action_byname("brightness", act, 1);
    osdmenu_register_action_byname("page", act, 1);
    osdmenu_current_view_position_reset();
    expect(55, 440, 55, 8); /* the glyph of the brightness */
    osdmenu_action_right();
    osdmenu_action_right(); /* past its high limit */
    expect(55, 440, 55, 0);
    osdmenu_action_left();
    expect(55, 440, 55, 9);
    osdmenu_action_down();
    expect(80, 40, 80, 102);
    osdmenu_action_ok();
    expect(40, 40, 15, 103); /* the page opens on its second row */
    osdmenu_action_menuback();
    osdmenu_action_up();
    expect(55, 40, 15, 100);
    for (int i = 0; i < 8; i++)
        unlink(files[i]);
    return wrong != 0 || entered != 1 || rmdir(directory) != 0;
}
