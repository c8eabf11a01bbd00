// The numbers that place things on a page. All but osdmenu_view_pixelsize are pixels.
//
// They follow from the base size of the text and the burst, for this menu and for any that somebody merely measures.
// osdmenu_fontsize_init writes them all; osdmenu_viewbuffer_malloc then sets the size of the view.
#pragma once

#include "core/wrapping.h"

inline constexpr int osdmenu_view_pixelsize = 2; // bytes per pixel

extern int _FT_OSD_FONT_SIZE;        // base size of the text
extern int FT_OSD_FONT_SIZE;         // scaled size of the text
extern int osdmenu_view_rowspace;    // gap between two rows
extern int osdmenu_view_rulerarea_x; // the pointer at the current row
extern int osdmenu_view_itemarea_x;  // views of items
extern int osdmenu_view_itemarea_y;  // the first of them
extern int osdmenu_view_valuearea_x; // values, where the configuration gives no other column
extern int osdmenu_view_valuearea_y; // the first of them, and of the pointer
extern int osdmenu_helplinearea_x;   // classic help block
extern int osdmenu_helplinearea_y;
extern int osdmenu_viewarea_width; // of the view; also the row pitch of the view buffer
extern int osdmenu_viewarea_height;

// What a base size of the text and a burst give.
struct layout_metrics {
    int text_size;
    int rowspace;
    int rulerarea_x;
    int itemarea_x;
    int itemarea_y;
    int valuearea_x;
    int valuearea_y;
    int helplinearea_x;
    int helplinearea_y;
    int viewarea_width;
    int viewarea_height;
};

constexpr struct layout_metrics layout_metrics_of(int base_size, int burst)
{
    return {
        wrapping_mul(wrapping_mul(base_size, burst), 5) / 6,
        wrapping_mul(15, burst),
        wrapping_mul(8, burst),
        wrapping_mul(40, burst),
        wrapping_mul(15, burst),
        wrapping_mul(440, burst),
        wrapping_mul(15, burst),
        wrapping_mul(50, burst),
        wrapping_mul(550, burst),
        wrapping_mul(880, burst),
        wrapping_mul(580, burst),
    };
}

// Height of one line of text of that size.
inline int line_height(int text_size)
{
    return wrapping_mul(text_size, 6) / 5;
}

inline int fontSize(void)
{
    return line_height(FT_OSD_FONT_SIZE);
}

// Width of a block in pixels, of a width in bytes.
inline int pixels_of(unsigned int width)
{
    return static_cast<int>(width) / osdmenu_view_pixelsize;
}
