// The help block at the foot of a page: the tables of its layouts, and the one function that walks them.
#include "core/config.h"
#include "core/layout.h"
#include "core/state.h"
#include "page/help_layouts.h"
#include "resources/glyph_banks.h"

// Indexes of the groups.
enum : unsigned char {
    SELECT = NO_GROUP + 1,
    CHANGE,
    CLOSE_SELECT,
    FAR_CHANGE,
    WIDE_SELECT,
    ENTER,
    MENU,
    FAR_MENU,
    MENU0,
};

const struct help_group help_groups[] = {
    /* NO_GROUP */ {NO_SYMBOL, NO_SYMBOL, "", {}, {}, {}, false},
    /* SELECT */ {SYMBOL_UP, SYMBOL_DOWN, "select", {1, 0, 0}, {1, 1, 0}, {2, 1, 0}, false},
    /* CHANGE */ {SYMBOL_LEFT, SYMBOL_RIGHT, "change", {1, 0, 0}, {1, 1, 0}, {2, 1, 0}, false},
    /* CLOSE_SELECT */ {SYMBOL_UP, SYMBOL_DOWN, "select", {1, 0, 0}, {1, 1, -1}, {2, 1, -1}, false},
    /* FAR_CHANGE */ {SYMBOL_LEFT, SYMBOL_RIGHT, "change", {9, 0, 0}, {9, 1, 0}, {10, 1, 0}, false},
    /* WIDE_SELECT */ {SYMBOL_UP, SYMBOL_DOWN, "select", {1, 0, 0}, {1, 1, 0}, {1, 1, 0}, true},
    /* ENTER */ {NO_SYMBOL, NO_SYMBOL, "enter", {}, {}, {0, 1, 0}, false},
    /* MENU */ {NO_SYMBOL, NO_SYMBOL, "menu", {}, {}, {0, 1, 0}, false},
    /* FAR_MENU */ {NO_SYMBOL, NO_SYMBOL, "menu", {}, {}, {9, 0, 0}, false},
    /* MENU0 */ {NO_SYMBOL, NO_SYMBOL, "menu0", {}, {}, {0, 1, 0}, false},
};

const struct help_layout help_layouts[HELP_LAYOUTS] = {
    {3, false, {{SELECT}, {CHANGE}, {MENU}}},
    {2, false, {{SELECT}, {MENU}}},
    {3, false, {{CHANGE}, {ENTER}, {MENU}}},
    {3, false, {{SELECT}, {ENTER}, {MENU}}},
    {4, false, {{SELECT}, {CHANGE}, {ENTER}, {MENU}}},
    {2, false, {{ENTER}, {MENU}}},
    {2, false, {{CLOSE_SELECT, FAR_CHANGE}, {MENU}}},
    {2, false, {{CHANGE}, {MENU}}},
    {2, false, {{CLOSE_SELECT, FAR_CHANGE}, {ENTER, FAR_MENU}}},
    {2, false, {{CLOSE_SELECT}, {ENTER, FAR_MENU}}},
    {1, false, {{ENTER, FAR_MENU}}},
    {1, false, {{MENU}}},
    {4, true, {{SELECT}, {ENTER}, {MENU}, {MENU0}}},
    {5, true, {{WIDE_SELECT}, {CHANGE}, {ENTER}, {MENU}, {MENU0}}},
    {3, true, {{ENTER}, {MENU0}, {MENU}}},
    {4, true, {{WIDE_SELECT}, {CHANGE}, {MENU}, {MENU0}}},
    {2, true, {{MENU0}, {MENU}}},
    {3, true, {{CHANGE}, {MENU}, {MENU0}}},
};

static const double TALL_MARGIN = 10.0; // below the last line, in pixels at every burst

static int tall_top(int lines, int f)
{
    return truncated(static_cast<double>(osdmenu_viewarea_height) -
                     static_cast<double>(wrapping_mul(lines, f)) * TALL_PITCH - TALL_MARGIN);
}

static void paint_group(const struct help_group *group, int f, int y)
{
    if (group->first_symbol != NO_SYMBOL) {
        osdmenu_mark_current_menuitem(help_column_x(&group->first_column, f), y, group->first_symbol);
        osdmenu_mark_current_menuitem(help_column_x(&group->second_column, f), y, group->second_symbol);
    }
    osdmenu_draw_helpline_byname(help_text_x(group, f), y, group->text);
}

static void paint_layout(const struct help_layout *layout)
{
    const int f = fontSize();
    int y = layout->tall_pitch ? tall_top(layout->lines_from_bottom, f)
                               : wrapping_sub(osdmenu_viewarea_height, wrapping_mul(layout->lines_from_bottom, f));
    for (const unsigned char(&line)[GROUPS_A_LINE] : layout->lines) {
        for (unsigned char group : line)
            if (group != NO_GROUP)
                paint_group(&help_groups[group], f, y);
        y = layout->tall_pitch ? tall_next(y, f) : wrapping_add(y, f);
    }
}

// The item's own entry beats the default.
static int layout_of(const struct osdmenu_item *item)
{
    int by_default = config_number(osdmenu_config, HELP_DEFAULT_KEY, 0);
    if (!item->name)
        return by_default;
    return config_number(config_entry(osdmenu_config, HELP_TYPES_KEY), item->name, by_default);
}

void osdmenu_draw_meeting_camera_helpline(void)
{
    if (!osdmenu_current_menuitem)
        return;
    int helpline_type = layout_of(osdmenu_current_menuitem);
    if (helpline_type >= 0 && helpline_type < HELP_LAYOUTS)
        paint_layout(&help_layouts[helpline_type]);
}

// Weak, so that a host's own definition wins.
__attribute__((weak)) void osdmenu_helpline_type_set_from_version(char *, int *) {}
