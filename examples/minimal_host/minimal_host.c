/*
 * The smallest host of the menu: loads a directory of resources, answers for one setting, presses two keys and writes
 * the view buffer to a file, 2 bytes a pixel.
 *
 * usage: minimal_host DIRECTORY/ VIEW.raw
 */
#include <osd_menu/osd_menu_post.h>
#include <stdio.h>

enum { BURST = 1, VIEW_WIDTH = 880, VIEW_HEIGHT = 580 };

static int brightness = 50;

/* What the host keeps has the last word: every draw asks for it. */
static int brightness_action(struct osdmenu_item *item, int operation, int value)
{
    (void)item;
    if (operation == ACTION_OP_SET)
        brightness = value;
    return brightness;
}

/* This host's own setting; the default host layer answers for the others. */
int get_sc_trackingmode(void)
{
    return 2;
}

static int start(const char *directory)
{
    osdmenu_fontsize_init(BURST);
    if (!osdmenu_viewbuffer_malloc(VIEW_WIDTH, VIEW_HEIGHT))
        return -1;
    if (read2mem_menuitem_commonchar(directory) < 0 || read2mem_menuitem_utf16symbol(directory) < 0)
        return -1;
    read2mem_all_menuitems(directory);
    orderize_all_menuitems();
    osdmenu_register_action_byname("brightness", brightness_action, 1);
    return osdmenu_current_view_position_reset();
}

static void draw(void)
{
    osdmenu_viewbuffer_fill_background();
    osdmenu_draw_allitems();
}

int main(int argc, char **argv)
{
    if (argc != 3) {
        fprintf(stderr, "usage: minimal_host DIRECTORY/ VIEW.raw\n");
        return 2;
    }
    if (start(argv[1]) != 0) {
        fprintf(stderr, "minimal_host: %s holds no menu\n", argv[1]);
        return 1;
    }
    draw();
    osdmenu_action_down();
    draw();
    osdmenu_action_ok();
    draw();
    FILE *view = fopen(argv[2], "wb");
    if (!view || fwrite(osdmenu_viewbuffer, 2, VIEW_WIDTH * VIEW_HEIGHT, view) != VIEW_WIDTH * VIEW_HEIGHT ||
        fclose(view) != 0) {
        perror(argv[2]);
        return 1;
    }
    return 0;
}
