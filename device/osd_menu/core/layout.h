// The numbers that place things on a page. All but osdmenu_view_pixelsize are pixels.
//
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

// Height of one line of text, in pixels.
inline int fontSize(void)
{
    return wrapping_mul(FT_OSD_FONT_SIZE, 6) / 5;
}

// Width of a block in pixels, of a width in bytes.
inline int pixels_of(unsigned int width)
{
    return static_cast<int>(width) / osdmenu_view_pixelsize;
}
