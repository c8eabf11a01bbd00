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

// The glyph of a character, or with a message the one of the space. Null where the bank lacks it: it is then skipped.
// One painter writes a blank behind the comma of that message.
const struct osdmenu_view_bitmap *glyph_or_space(const char *function, char character, const char *blank);
