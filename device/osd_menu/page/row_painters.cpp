// The painters of one row: its view, its marker, and its value in four kinds.
#include <cstdio>

#include "core/debug.h"
#include "core/walks.h"
#include "text/glyphs.h"

int osdmenu_draw_itemview(int start_x, int start_y, struct osdmenu_view *itemview)
{
    if (!itemview)
        return 0;
    struct pixel_block block = tight_block(&itemview->viewbitmap);
    paint_block(start_x, start_y, &block);
    return 0;
}

int osdmenu_mark_current_menuitem(int start_x, int start_y, int charindex)
{
    const struct osdmenu_view_bitmap *symbol = symbol_at(charindex);
    if (!symbol)
        return 0;
    struct pixel_block block = strided_block(symbol);
    paint_block(start_x, start_y, &block);
    return 0;
}

int osdmenu_draw_itemvalue_txt(int start_x, int start_y, struct osdmenu_item_value_txt *itemvaluetxt)
{
    if (!itemvaluetxt)
        return 0;
    struct pixel_block block = tight_block(&itemvaluetxt->viewbitmap);
    paint_block(start_x, start_y, &block);
    return 0;
}

// Sets a text side by side from one top line, with a line of trace for each glyph. Returns -1 at the first character
// outside the table; what was painted before it stays.
static int draw_glyph_string(const char *function, int start_x, int start_y, const char *text)
{
    struct paint_area area = view_area();
    std::int64_t offset = view_offset(start_x, start_y);
    for (const char *character = text; *character != '\0'; character++) {
        int index = glyph_index(*character);
        if (index == GLYPH_NONE)
            return -1;
        const struct osdmenu_view_bitmap *glyph = glyph_at(index);
        if (!glyph)
            continue;
        DBG_INFO_AS(function, "glyph pixeltype:%u height:%u width:%u stride:%u\n", glyph->pixeltype, glyph->height,
                    glyph->width, glyph->stride);
        paint_glyph(&area, offset, glyph);
        offset += glyph->width;
    }
    return 0;
}

// The order matters where the limits are crossed: such a value ends on the high one.
static int clamped(int current, int lowlimit, int highlimit)
{
    if (current < lowlimit)
        current = lowlimit;
    return current > highlimit ? highlimit : current;
}

static int draw_number_text(const char *function, int start_x, int start_y, const char *numberstring)
{
    DBG_INFO_AS(function, "number:%s\n", numberstring);
    int result = draw_glyph_string(function, start_x, start_y, numberstring);
    if (result != 0)
        DBG_ERR_AS(function, "char not among the commonchar_string.\n");
    return result;
}

int osdmenu_draw_itemvalue_number(int start_x, int start_y, struct osdmenu_item_value_number *itemvaluenumber)
{
    if (!itemvaluenumber)
        return 0;
    char numberstring[32];
    itemvaluenumber->current = clamped(itemvaluenumber->current, itemvaluenumber->lowlimit, itemvaluenumber->highlimit);
    std::snprintf(numberstring, sizeof numberstring, "%d", itemvaluenumber->current);
    return draw_number_text(__func__, start_x, start_y, numberstring);
}

int osdmenu_draw_itemvalue_percentage(int start_x, int start_y,
                                      struct osdmenu_item_value_percentage *itemvaluepercentage)
{
    if (!itemvaluepercentage)
        return 0;
    char numberstring[32];
    itemvaluepercentage->current =
        clamped(itemvaluepercentage->current, itemvaluepercentage->lowlimit, itemvaluepercentage->highlimit);
    std::snprintf(numberstring, sizeof numberstring, "%d%%", itemvaluepercentage->current);
    return draw_number_text(__func__, start_x, start_y, numberstring);
}

// The text of the choice at `current`, with a line of trace for each choice looked at; empty where there is none.
static const char *present_text(const char *function, const struct osdmenu_item_value *value)
{
    int i = 0;
    for (const struct osdmenu_item_value *choice = first_choice(value); choice; choice = choice_after(choice, value)) {
        DBG_INFO_AS(function, "choice %d:%s\n", i, shown(choice->u.txt.description));
        if (i++ == value->current)
            return choice->u.txt.description ? choice->u.txt.description : "";
    }
    return "";
}

int osdmenu_draw_itemvalue_rawtxt(int start_x, int start_y, struct osdmenu_item_value *item_value)
{
    if (!item_value)
        return 0;
    int result = draw_glyph_string(__func__, start_x, start_y, present_text(__func__, item_value));
    if (result != 0)
        DBG_INFO("char not among the commonchar_string.\n");
    return result;
}

// Keys move `current` without a look at the list, so this is where it wraps: past the end to the first choice, below 0,
// however far, to the last.
static void draw_present_choice(int start_x, int start_y, struct osdmenu_item_value *value)
{
    int count = 0;
    struct osdmenu_item_value *last = nullptr;
    for (struct osdmenu_item_value *choice = first_choice(value); choice; choice = choice_after(choice, value)) {
        last = choice;
        if (count++ == value->current) {
            osdmenu_draw_itemvalue_txt(start_x, start_y, &choice->u.txt);
            return;
        }
    }
    bool from_below = value->current < 0 && last;
    value->current = from_below ? count - 1 : 0;
    struct osdmenu_item_value *wrapped = from_below ? last : first_choice(value);
    if (wrapped)
        osdmenu_draw_itemvalue_txt(start_x, start_y, &wrapped->u.txt);
}

int osdmenu_draw_itemvalue(int start_x, int start_y, struct osdmenu_item_value *itemvalue)
{
    if (!itemvalue)
        return 0;
    switch (itemvalue->type) {
    case VALUE_TXT:
        draw_present_choice(start_x, start_y, itemvalue);
        break;
    case VALUE_NUMBER:
        osdmenu_draw_itemvalue_number(start_x, start_y, &itemvalue->u.number);
        break;
    case VALUE_PERCENTAGE:
        osdmenu_draw_itemvalue_percentage(start_x, start_y, &itemvalue->u.percentage);
        break;
    case VALUE_RAWTXT:
        osdmenu_draw_itemvalue_rawtxt(start_x, start_y, itemvalue);
        break;
    default:
        break;
    }
    return 0;
}
