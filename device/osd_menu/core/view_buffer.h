// The one buffer that pages and bubbles are painted into.
#pragma once

#include "core/layout.h"
#include "core/row_copy.h"
#include "osd_menu_post.h"

extern int osdmenu_default_color;   // background fill word, two pixels; the configuration may replace it
extern int osdmenu_viewbuffer_size; // bytes

// The buffer at the row pitch of the moment. A few bubbles work at a pitch of their own.
inline struct paint_area view_area(void)
{
    return {osdmenu_viewbuffer, static_cast<std::size_t>(osdmenu_viewbuffer_size),
            wrapping_mul(osdmenu_viewarea_width, osdmenu_view_pixelsize)};
}

// Byte offset of a pixel from the start of the buffer.
inline int view_offset(int x, int y)
{
    return wrapping_mul(wrapping_add(wrapping_mul(y, osdmenu_viewarea_width), x), osdmenu_view_pixelsize);
}

// The address of a byte offset, which may lie outside the buffer: it is formed, handed out, and never followed there.
char *view_address(std::int64_t offset);

// The byte offset of such an address.
std::int64_t offset_of_view_address(const char *address);

// Places a block with its top left pixel at (x, y).
void paint_block(int x, int y, const struct pixel_block *block);

// Zeroes the first bytes of the buffer, at most all of it.
void clear_view(std::size_t bytes);
void clear_whole_view(void);
