// The layouts of the help block at the foot of a page: tables, and where they put things on a line.
//
// A layout is a list of lines from the top down, a line a list of groups from left to right, and a group a few parts
// at fixed columns.
#pragma once

#include "core/wrapping.h"

// A column in units of the text height F, of T, which is three quarters of it, and of a sixth of it.
struct help_column {
    signed char f;
    signed char t;
    signed char sixth;
};

enum { NO_SYMBOL = -1 };

struct help_group {
    signed char first_symbol; // or NO_SYMBOL, for a text alone
    signed char second_symbol;
    char text[8]; // name of the help line
    struct help_column first_column;
    struct help_column second_column;
    struct help_column text_column;
    bool wide; // the text one tall pitch behind that column
};

enum { HELP_LAYOUTS = 18, HELP_LINES = 5, GROUPS_A_LINE = 2, NO_GROUP = 0 };

struct help_layout {
    unsigned char lines_from_bottom;                // where the first line stands, in text lines
    bool tall_pitch;                                // lines 1.2 text lines apart, else 1
    unsigned char lines[HELP_LINES][GROUPS_A_LINE]; // indexes of help_groups, or NO_GROUP
};

extern const struct help_group help_groups[];
extern const struct help_layout help_layouts[HELP_LAYOUTS]; // the index is the layout's number

inline constexpr double TALL_PITCH = 1.2;

// Sums in double precision may leave the range of int, at a burst beyond any display.
inline int truncated(double value)
{
    return value >= -2147483648.0 && value < 2147483648.0 ? static_cast<int>(value) : 0;
}

// One tall pitch further. Truncated each time, so lines do not follow from one closed formula.
inline int tall_next(int from, int line_height)
{
    return truncated(static_cast<double>(from) + static_cast<double>(line_height) * TALL_PITCH);
}

inline int help_column_x(const struct help_column *column, int line_height)
{
    const int t = wrapping_mul(line_height, 3) / 4;
    return wrapping_add(wrapping_add(wrapping_mul(column->f, line_height), wrapping_mul(column->t, t)),
                        wrapping_mul(column->sixth, line_height / 6));
}

inline int help_text_x(const struct help_group *group, int line_height)
{
    const int x = help_column_x(&group->text_column, line_height);
    return group->wide ? tall_next(x, line_height) : x;
}
