// Setting single glyphs: the terms that all painters of text share.
#pragma once

#include "core/view_buffer.h"
#include "resources/glyph_banks.h"

// Copies a glyph, or a symbol, to a byte offset of an area.
inline void paint_glyph(const struct paint_area *area, std::int64_t offset, const struct osdmenu_view_bitmap *glyph)
{
    struct pixel_block block = strided_block(glyph);
    row_copy(area, offset, &block);
}

// Adds up how many bytes a text takes that is set side by side, as far as its characters are in the table. Returns the
// first one that is not, or the text's end. `glyph_of` gives the glyph of an index, or null for one that takes no room.
template <class GlyphOf> const char *measure_text(const char *text, GlyphOf glyph_of, int *bytes)
{
    for (int index; *text != '\0' && (index = glyph_index(*text)) != GLYPH_NONE; text++) {
        const struct osdmenu_view_bitmap *glyph = glyph_of(index);
        if (glyph)
            *bytes = wrapping_add(*bytes, static_cast<int>(glyph->width));
    }
    return text;
}

// The glyph of a character, or with a message the one of the space. Null where the bank lacks it: it is then skipped.
// One painter writes a blank behind the comma of that message.
const struct osdmenu_view_bitmap *glyph_or_space(const char *function, char character, const char *blank);
