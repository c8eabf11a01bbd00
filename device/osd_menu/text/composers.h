// What tells the three composers of messages apart, as a table. Pixels throughout.
#pragma once

struct margins {
    int top;
    int bottom;
    int left;
    int right;
};

struct composer {
    const char *function;
    struct margins margins;
    int row_pitch;
    int width_report_pad; // added to the width that is reported
    bool result_at_pen;   // the result is the first pen position, else the start of the buffer
    int text_rise;        // how far above the pen a text starts
    struct margins text_margins;
    int bubble_indent_after_text; // from the pen; or BEHIND_TEXT
};

enum { BEHIND_TEXT = -1 };
enum { MULTILINE, MULTILINE_2, MULTILINE_2_EN };

inline constexpr struct composer composers[] = {
    {"osdmenu_get_bubbleline_byname_multiline", {10, 10, 100, 30}, 1100, 0, true, 0, {10, 10, 100, 30}, BEHIND_TEXT},
    {"osdmenu_get_bubbleline_byname_multiline_2", {5, 20, 80, 10}, 1200, 20, false, 5, {0, 0, 10, 10}, 35},
    {"osdmenu_get_bubbleline_byname_multiline_2_en", {5, 20, 80, 10}, 1200, 20, false, 0, {0, 5, 10, 10}, BEHIND_TEXT},
};
