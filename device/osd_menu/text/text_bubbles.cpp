// Text bubbles: a message of one or more lines on an otherwise empty view.
//
// One body serves all variants. It stops at the bottom of the view but not at its right edge: a line that passes the
// end of a row goes on in the rows below.
#include "core/debug.h"
#include "text/glyphs.h"

// What tells the variants apart. Any of the three results may be null.
struct bubble_variant {
    const char *function;
    int line_pad;         // beyond the height of a line of text
    int *max_view_height; // the row below the last line
    int *glyph_width;     // of the last glyph painted, in pixels
    int *glyph_height;
};

static void report_glyph(const struct bubble_variant *variant, const struct osdmenu_view_bitmap *glyph)
{
    if (variant->glyph_width)
        *variant->glyph_width = static_cast<int>(glyph->width / 2);
    if (variant->glyph_height)
        *variant->glyph_height = static_cast<int>(glyph->height);
}

// Sets one character at a write position, and returns the next one.
static std::int64_t paint_character(const struct bubble_variant *variant, const struct paint_area *area,
                                    std::int64_t offset, char character)
{
    const struct osdmenu_view_bitmap *glyph = glyph_or_space(variant->function, character, "");
    if (!glyph)
        return offset;
    report_glyph(variant, glyph);
    paint_glyph(area, offset, glyph);
    return offset + glyph->width;
}

static int step_of(const struct bubble_variant *variant)
{
    return wrapping_add(fontSize(), variant->line_pad);
}

// The guard at the bottom knows the text height alone, without the pad, and refuses a line that would just fit.
static void paint_lines(const struct bubble_variant *variant, const char *msg, int start_x, int start_y)
{
    const int line_step = step_of(variant);
    const struct paint_area area = view_area();
    std::int64_t offset = view_offset(start_x, start_y);
    for (; *msg != '\0'; msg++) {
        if (*msg != '\n') {
            offset = paint_character(variant, &area, offset, *msg);
            continue;
        }
        start_y = wrapping_add(start_y, line_step);
        if (wrapping_add(start_y, fontSize()) >= osdmenu_viewarea_height)
            return;
        offset = view_offset(start_x, start_y);
        if (variant->max_view_height)
            *variant->max_view_height = wrapping_add(*variant->max_view_height, line_step);
    }
}

static char *paint_bubble(const struct bubble_variant *variant, const char *msg, int start_x, int start_y)
{
    LIB_TRACE_AS(variant->function, LOG_STEP, "%s\n", shown(msg));
    clear_whole_view();
    char *result = view_address(view_offset(start_x, start_y));
    if (variant->max_view_height)
        *variant->max_view_height = wrapping_add(start_y, step_of(variant));
    LIB_TRACE_AS(variant->function, LOG_STEP, " %d %p\n\n", osdmenu_viewarea_width, static_cast<void *>(result));
    paint_lines(variant, msg ? msg : "", start_x, start_y);
    return result;
}

char *get_osdmenu_bubble(const char *msg, int start_x, int start_y)
{
    return get_osdmenu_bubble2(msg, start_x, start_y, nullptr);
}

char *get_osdmenu_bubble2(const char *msg, int start_x, int start_y, int *max_view_height)
{
    const struct bubble_variant variant = {__func__, 0, max_view_height, nullptr, nullptr};
    return paint_bubble(&variant, msg, start_x, start_y);
}

char *get_osdmenu_bubble2_with_wh(const char *msg, int start_x, int start_y, int *width_bubble, int *height_bubble)
{
    const struct bubble_variant variant = {__func__, 0, nullptr, width_bubble, height_bubble};
    return paint_bubble(&variant, msg, start_x, start_y);
}

char *get_osdmenu_bubble_linepad(const char *msg, int start_x, int start_y, int line_pad, int *max_view_height)
{
    const struct bubble_variant variant = {__func__, line_pad, max_view_height, nullptr, nullptr};
    return paint_bubble(&variant, msg, start_x, start_y);
}

// No bubble line is looked for. One clearing of the view, that of the body, is enough.
char *osdmenu_get_bubble_multiline(const char *name, int start_x, int start_y, int line_pad, int *max_view_height)
{
    return get_osdmenu_bubble_linepad(name, start_x, start_y, line_pad, max_view_height);
}
