// Bubble lines by name: placed in the view, or as a packed block of their own with the accessory's name beside them.
#include <algorithm>
#include <cinttypes>

#include "core/debug.h"
#include "core/line_walks.h"
#include "text/glyphs.h"

enum {
    LEFT_MARGIN = 150,         // of a block's picture; bytes, in the text fallback pixels
    MARGIN_PER_CHARACTER = 46, // more of it for each character of the accessory's name
    NAME_INDENT = 30,          // of that name, pixels
    BLOCK_ALIGNMENT = 16,      // of a block's rows, and of its row pitch in bytes
};

typedef void direct_channel(const char *file, const char *function, int line, const char *format, ...)
    __attribute__((format(printf, 4, 5)));

// Copies the picture of a bubble line to a byte offset of the view, at the pitch of the area. It is traced first: the
// record, and where each of its rows goes, in bytes. Rows with pixels are left out where they do not reach the view.
static void place_bubble(const char *function, direct_channel *trace, const struct osdbubbleline *bubble,
                         const struct paint_area *area, std::int64_t offset)
{
    const struct osdmenu_view_bitmap *picture = &bubble->viewbitmap;
    const struct pixel_block block = tight_block(picture);
    trace(__FILE_NAME__, function, __LINE__, "bubble:%s height:%u width:%u pitch:%" PRId64 " bitmap:%p\n",
          shown(bubble->viewdescription), picture->height, picture->width, area->row_pitch,
          static_cast<void *>(picture->bitmap));
    const std::int64_t owned = rows_owned(&block);
    const struct row_range touching = rows_touching(area, offset, &block);
    const struct row_range bare = {owned, std::min<std::int64_t>(block.height, owned + MOST_REPORTS)};
    for (const struct row_range &rows : {touching, bare})
        for (std::int64_t row = rows.first; row < rows.end; row++)
            trace(__FILE_NAME__, function, __LINE__, "dst:%" PRId64 " src:%" PRId64 " size:%u\n",
                  offset + row * area->row_pitch, row * block.pitch, block.width);
    row_copy(area, offset, &block);
}

char *osdmenu_get_bubbleline_byname(const char *name, int start_x, int start_y, int *max_view_height)
{
    clear_whole_view();
    if (max_view_height)
        *max_view_height = wrapping_add(start_y, fontSize());
    char *result;
    const struct osdbubbleline *bubble = bubbleline_byname(name);
    if (bubble) {
        const struct paint_area area = view_area();
        place_bubble(__func__, dbg_err, bubble, &area, view_offset(start_x, start_y));
        result = view_address(view_offset(start_x, start_y));
    } else {
        result = get_osdmenu_bubble2(name, start_x, start_y, max_view_height);
    }
    DBG_INFO("out\n");
    return result;
}

static int kz73_name_length(void)
{
    return static_cast<int>(strnlen(kz73_name, sizeof kz73_name));
}

static bool is_message_of_accessory(const char *name)
{
    return is_named(name, "Kz73Connect") || is_named(name, "Kz73Disconnect") || is_named(name, "RestarKz73");
}

static int aligned(int size)
{
    return wrapping_add(size, BLOCK_ALIGNMENT - 1) & ~(BLOCK_ALIGNMENT - 1);
}

// Builds the block at the start of the view buffer. What stands behind it there is left alone.
static char *build_block(const struct osdbubbleline *bubble, int start_x, int start_y, int down_margin, int left_margin,
                         int *width_bubble, int *height_bubble)
{
    const int rows = static_cast<int>(bubble->viewbitmap.height);
    const int row_bytes = static_cast<int>(bubble->viewbitmap.width);
    const int height_align = aligned(wrapping_add(wrapping_add(rows, start_y), down_margin));
    const int width_align = aligned(wrapping_add(wrapping_add(row_bytes, wrapping_mul(start_x, 2)), left_margin));
    const int osdmenu_bubblebuffer_size = wrapping_mul(wrapping_mul(width_align, height_align), osdmenu_view_pixelsize);
    if (width_bubble)
        *width_bubble = width_align / osdmenu_view_pixelsize;
    if (height_bubble)
        *height_bubble = height_align;
    if (osdmenu_bubblebuffer_size > 0)
        clear_view(static_cast<std::size_t>(osdmenu_bubblebuffer_size));
    struct paint_area area = view_area();
    area.row_pitch = width_align;
    place_bubble("osdmenu_get_bubbleline_byname_with_wh", dbg_info, bubble, &area,
                 wrapping_add(wrapping_add(wrapping_mul(start_y, width_align), start_x), left_margin));
    return osdmenu_viewbuffer;
}

// Paints the accessory's name with the block as the view, so that the block's edges stop it.
static void paint_kz73_name(int start_x, int start_y, const int *block_width, const int *block_height)
{
    const int width = osdmenu_viewarea_width;
    const int height = osdmenu_viewarea_height;
    if (block_width)
        osdmenu_viewarea_width = *block_width;
    if (block_height)
        osdmenu_viewarea_height = *block_height;
    osdmenu_draw_string_at_position(wrapping_add(start_x, NAME_INDENT), start_y, kz73_name, kz73_name_length());
    osdmenu_viewarea_width = width;
    osdmenu_viewarea_height = height;
}

char *osdmenu_get_bubbleline_byname_with_wh(const char *name, int start_x, int start_y, int down_margin,
                                            int *width_bubble, int *height_bubble)
{
    const bool is_kz73_bubble = is_message_of_accessory(name);
    const int left_margin = LEFT_MARGIN + (is_kz73_bubble ? kz73_name_length() * MARGIN_PER_CHARACTER : 0);
    char *result;
    const struct osdbubbleline *bubble = bubbleline_byname(name);
    if (bubble)
        result = build_block(bubble, start_x, start_y, down_margin, left_margin, width_bubble, height_bubble);
    else
        result =
            get_osdmenu_bubble2_with_wh(name, wrapping_add(start_x, left_margin), start_y, width_bubble, height_bubble);
    if (is_kz73_bubble)
        paint_kz73_name(start_x, start_y, width_bubble, height_bubble);
    DBG_INFO("out\n");
    return result;
}
