// The help block at the foot of a page: eighteen layouts as tables, and the one function that walks them.
//
// A layout is a list of lines from the top down, a line a list of groups from left to right, and a group a few parts
// at fixed columns.
#include "core/config.h"
#include "core/layout.h"
#include "core/state.h"
#include "resources/glyph_banks.h"

enum group : unsigned char {
    NOTHING,
    SELECT,
    CHANGE,
    CLOSE_SELECT,
    FAR_CHANGE,
    WIDE_SELECT,
    ENTER,
    MENU,
    FAR_MENU,
    MENU0,
};

// A column in units of the text height F, of T, which is three quarters of it, and of a sixth of it.
struct column {
    signed char f;
    signed char t;
    signed char sixth;
};

enum { NO_SYMBOL = -1 };

struct group_parts {
    signed char first_symbol; // or NO_SYMBOL, for a text alone
    signed char second_symbol;
    char text[8]; // name of the help line
    struct column first_column;
    struct column second_column;
    struct column text_column;
    bool wide; // the text one tall pitch behind that column
};

static const struct group_parts groups[] = {
    /* NOTHING */ {NO_SYMBOL, NO_SYMBOL, "", {}, {}, {}, false},
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

enum { MOST_LINES = 5, GROUPS_A_LINE = 2 };

struct layout {
    unsigned char lines_from_bottom; // where the first line stands, in text lines
    bool tall_pitch;                 // lines 1.2 text lines apart, else 1
    enum group lines[MOST_LINES][GROUPS_A_LINE];
};

// The index is the layout's number.
static const struct layout layouts[] = {
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
static const int LAYOUT_COUNT = sizeof layouts / sizeof *layouts;

static const double TALL_PITCH = 1.2;
static const double TALL_MARGIN = 10.0; // below the last line, in pixels at every burst

// Sums in double precision may leave the range of int, at a burst beyond any display.
static int truncated(double value)
{
    return value >= -2147483648.0 && value < 2147483648.0 ? static_cast<int>(value) : 0;
}

static int tall_top(int lines)
{
    return truncated(static_cast<double>(osdmenu_viewarea_height) -
                     static_cast<double>(wrapping_mul(lines, fontSize())) * TALL_PITCH - TALL_MARGIN);
}

// One tall pitch further. Truncated each time, so lines do not follow from one closed formula.
static int tall_next(int from)
{
    return truncated(static_cast<double>(from) + static_cast<double>(fontSize()) * TALL_PITCH);
}

static int pixels_at(const struct column *column)
{
    const int f = fontSize();
    const int t = wrapping_mul(f, 3) / 4;
    return wrapping_add(wrapping_add(wrapping_mul(column->f, f), wrapping_mul(column->t, t)),
                        wrapping_mul(column->sixth, f / 6));
}

static void paint_group(const struct group_parts *parts, int y)
{
    if (parts->first_symbol != NO_SYMBOL) {
        osdmenu_mark_current_menuitem(pixels_at(&parts->first_column), y, parts->first_symbol);
        osdmenu_mark_current_menuitem(pixels_at(&parts->second_column), y, parts->second_symbol);
    }
    const int x = pixels_at(&parts->text_column);
    osdmenu_draw_helpline_byname(parts->wide ? tall_next(x) : x, y, parts->text);
}

static void paint_layout(const struct layout *layout)
{
    int y = layout->tall_pitch
                ? tall_top(layout->lines_from_bottom)
                : wrapping_sub(osdmenu_viewarea_height, wrapping_mul(layout->lines_from_bottom, fontSize()));
    for (const enum group(&line)[GROUPS_A_LINE] : layout->lines) {
        for (enum group part : line)
            if (part != NOTHING)
                paint_group(&groups[part], y);
        y = layout->tall_pitch ? tall_next(y) : wrapping_add(y, fontSize());
    }
}

// The item's own entry beats the default.
static int layout_of(const struct osdmenu_item *item)
{
    int by_default = config_number(osdmenu_config, "helpline_default", 0);
    if (!item->name)
        return by_default;
    return config_number(config_entry(osdmenu_config, "helpline_type"), item->name, by_default);
}

void osdmenu_draw_meeting_camera_helpline(void)
{
    if (!osdmenu_current_menuitem)
        return;
    int helpline_type = layout_of(osdmenu_current_menuitem);
    if (helpline_type >= 0 && helpline_type < LAYOUT_COUNT)
        paint_layout(&layouts[helpline_type]);
}

// Weak, so that a host's own definition wins.
__attribute__((weak)) void osdmenu_helpline_type_set_from_version(char *, int *) {}
