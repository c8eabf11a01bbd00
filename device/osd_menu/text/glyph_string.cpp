// One line of text into the view, kept inside its far edges.
#include "core/debug.h"
#include "text/glyphs.h"

static const char FUNCTION[] = "osdmenu_draw_string_at_position";

// The glyph of a character, or null with a line that says why there is none.
static const struct osdmenu_view_bitmap *glyph_of(char character)
{
    int index = glyph_index(character);
    if (index == GLYPH_NONE) {
        DBG_ERR_AS(FUNCTION, "Character '%c' (0x%02x) not in common char table\n", character,
                   static_cast<unsigned char>(character));
        return nullptr;
    }
    const struct osdmenu_view_bitmap *glyph = glyph_at(index);
    if (!glyph)
        DBG_ERR_AS(FUNCTION, "Character '%c' bitmap is NULL\n", character);
    return glyph;
}

static bool passes_an_edge(int x, int y, const struct osdmenu_view_bitmap *glyph)
{
    if (wrapping_add(x, pixels_of(glyph->width)) > osdmenu_viewarea_width) {
        DBG_ERR_AS(FUNCTION, "Text exceeds screen width\n");
        return true;
    }
    if (wrapping_add(y, static_cast<int>(glyph->height)) > osdmenu_viewarea_height) {
        DBG_ERR_AS(FUNCTION, "Text exceeds screen height\n");
        return true;
    }
    return false;
}

int osdmenu_draw_string_at_position(int start_x, int start_y, const char *text, int text_max_len)
{
    if (!text || text_max_len <= 0) {
        DBG_ERR("Invalid parameters!\n");
        return -1;
    }
    struct paint_area area = view_area();
    std::int64_t offset = view_offset(start_x, start_y);
    for (int j = 0; j < text_max_len && text[j] != '\0'; j++) {
        const struct osdmenu_view_bitmap *glyph = glyph_of(text[j]);
        if (!glyph)
            continue;
        if (passes_an_edge(start_x, start_y, glyph))
            break;
        paint_glyph(&area, offset, glyph);
        offset += glyph->width;
        start_x = wrapping_add(start_x, pixels_of(glyph->width));
    }
    return 0;
}
