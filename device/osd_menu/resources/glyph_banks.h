// The two banks of pixel blocks that text and markers are painted from.
#pragma once

#include "osd_menu.h"

enum {
    GLYPH_COUNT = 93,
    GLYPH_NONE = 93,  // what the lookup gives for a character outside the table
    GLYPH_SPACE = 88, // stands in for such a character where a painter wants one
    SYMBOL_COUNT = 32,
    SYMBOLS_IN_FILE = SYMBOL_COUNT - 1, // at most: with one more the load fails
    SYMBOLS_OF_MENU = 4,                // painted by pages and help lines; the others are the host's
};

// Symbols are known by their index alone.
enum { SYMBOL_UP = 0, SYMBOL_RIGHT = 1, SYMBOL_DOWN = 2, SYMBOL_LEFT = 3, SYMBOL_POINTER = SYMBOL_RIGHT };

extern const char osdmenu_common_char[GLYPH_COUNT + 1];                            // order of the characters in c.d
extern struct osdmenu_view_bitmap *osdmenu_commonchar_viewbitmap[GLYPH_COUNT + 1]; // glyph of each, null until loaded
extern struct osdmenu_view_bitmap *osdmenu_utf16symbol_viewbitmap[SYMBOL_COUNT];   // symbols, null until loaded

// Index of a character, or GLYPH_NONE.
int glyph_index(char character);

// The glyph of an index, or null where none was loaded.
const struct osdmenu_view_bitmap *glyph_at(int index);

// The symbol of an index, or null where none was loaded or there can be none.
const struct osdmenu_view_bitmap *symbol_at(int index);
