// Choosing the glyph of a character where the space stands in for those without one.
#include "text/glyphs.h"

#include "core/debug.h"

const struct osdmenu_view_bitmap *glyph_or_space(const char *function, char character, const char *blank)
{
    int index = glyph_index(character);
    if (index == GLYPH_NONE) {
        LIB_TRACE_AS(function, LOG_WORKAROUND, "char[0x%x] not among the commonchar_string,%sreplaced by space\n",
                     static_cast<unsigned char>(character), blank);
        index = GLYPH_SPACE;
    }
    return glyph_at(index);
}
