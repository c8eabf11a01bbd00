// Where the library puts things, in pixels.
#pragma once

#include "menu/menu_model.h"

struct Geometry {
    int view_width;
    int view_height;
    int line_height; // of a text line, and so of a row's picture and of every glyph
    int text_size;   // the em that fits such a line
    int row_gap;
    int first_row;   // y
    int item_column; // x
    int value_column;
};

// A view size of 0 is the one that burst gives.
Geometry geometry_of(const Display &display);
