// The painters of one row: its view, its marker, and its value in four kinds.
#include <cstdio>

#include "core/debug.h"
#include "core/item_value.h"
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

// Brings a number between its limits and paints it. Where the limits are crossed it ends on the high one: the low one
// comes first.
static int draw_bounded(const char *function, int start_x, int start_y, int *current, int lowlimit, int highlimit,
                        const char *unit)
{
    char numberstring[32];
    if (*current < lowlimit)
        *current = lowlimit;
    if (*current > highlimit)
        *current = highlimit;
    std::snprintf(numberstring, sizeof numberstring, "%d%s", *current, unit);
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
    return draw_bounded(__func__, start_x, start_y, &itemvaluenumber->current, itemvaluenumber->lowlimit,
                        itemvaluenumber->highlimit, unit_of(VALUE_NUMBER));
}

int osdmenu_draw_itemvalue_percentage(int start_x, int start_y,
                                      struct osdmenu_item_value_percentage *itemvaluepercentage)
{
    if (!itemvaluepercentage)
        return 0;
    return draw_bounded(__func__, start_x, start_y, &itemvaluepercentage->current, itemvaluepercentage->lowlimit,
                        itemvaluepercentage->highlimit, unit_of(VALUE_PERCENTAGE));
}

int osdmenu_draw_itemvalue_rawtxt(int start_x, int start_y, struct osdmenu_item_value *item_value)
{
    if (!item_value)
        return 0;
    const struct osdmenu_item_value *choice = present_choice(__func__, item_value);
    const char *txtvalue = choice ? choice->u.txt.description : nullptr;
    int result = draw_glyph_string(__func__, start_x, start_y, txtvalue ? txtvalue : "");
    if (result != 0)
        DBG_INFO("char not among the commonchar_string.\n");
    return result;
}

// Keys move `current` without a look at the list, so this is where it wraps.
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
    value->current = wrapped_choice(value->current, count);
    struct osdmenu_item_value *wrapped = value->current > 0 ? last : first_choice(value);
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
