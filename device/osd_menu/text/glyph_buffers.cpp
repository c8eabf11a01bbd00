// Painters of text into a place that the caller chooses, and the measure of a text.
#include <algorithm>

#include "core/debug.h"
#include "text/glyphs.h"

// An address some bytes further on. It may leave the view: it is handed back, and never followed there.
static char *address_behind(char *address, unsigned int bytes)
{
    return reinterpret_cast<char *>(reinterpret_cast<std::uintptr_t>(address) + bytes);
}

// The pen moves before the edge is tested: where the edge stops the text, the pen stays beyond it.
void get_osdmenu_common_bitmap(const char *msg, int msg_max, int *x_pos_cur, char **dst_viewarea_buffer)
{
    DBG_ERR("msg:%s max:%d\n", shown(msg), msg_max);
    if (!msg || !x_pos_cur || !dst_viewarea_buffer)
        return;
    const struct paint_area area = view_area();
    for (int j = 0; j < msg_max; j++) {
        const struct osdmenu_view_bitmap *glyph = glyph_or_space(__func__, msg[j], "");
        if (!glyph)
            continue;
        *x_pos_cur = wrapping_add(*x_pos_cur, pixels_of(glyph->width));
        if (*x_pos_cur > osdmenu_viewarea_width) {
            LIB_TRACE(LOG_WORKAROUND, "exceed the maximum with of row, cur_x:%d, max_w:%d\n", *x_pos_cur,
                      osdmenu_viewarea_width);
            return;
        }
        paint_glyph(&area, offset_of_view_address(*dst_viewarea_buffer), glyph);
        *dst_viewarea_buffer = address_behind(*dst_viewarea_buffer, glyph->width);
    }
}

// A text between margins. The limits are compared with pens that hold the margins already.
struct text_box {
    int viewarea_width;
    int effective_width;
    int effective_height;
    int left_margin;
};

static char *address_in_box(const struct text_box *box, int x, int y)
{
    return view_address(wrapping_mul(wrapping_add(wrapping_mul(y, box->viewarea_width), x), osdmenu_view_pixelsize));
}

static bool is_below_box(const struct text_box *box, int y)
{
    return wrapping_add(y, FT_OSD_FONT_SIZE) > box->effective_height;
}

// Goes to the start of the next line. False where the box has no room for it: the write position then stays.
static bool break_line(const struct text_box *box, int *x, int *y, char **write_position)
{
    *y = wrapping_add(*y, FT_OSD_FONT_SIZE);
    *x = box->left_margin;
    if (is_below_box(box, *y))
        return false;
    *write_position = address_in_box(box, *x, *y);
    return true;
}

// A newline is painted like any other character, and then breaks the line.
static void paint_in_box(const struct text_box *box, const char *msg, int msg_max, int x, int y, char **write_position)
{
    *write_position = address_in_box(box, x, y);
    for (int i = 0; i < msg_max && !is_below_box(box, y); i++) {
        const char character[2] = {msg[i], '\0'};
        get_osdmenu_common_bitmap(character, 1, &x, write_position);
        if (x > box->effective_width && !break_line(box, &x, &y, write_position))
            return;
        if (msg[i] == '\n' && !break_line(box, &x, &y, write_position))
            return;
    }
}

void get_osdmenu_common_bitmap_with_margin(const char *msg, int msg_max, int *x_pos_cur, int *y_pos_cur,
                                           char **dst_viewarea_buffer, int viewarea_width, int viewarea_height,
                                           int top_margin, int bottom_margin, int left_margin, int right_margin)
{
    if (!x_pos_cur || !y_pos_cur || !dst_viewarea_buffer)
        return;
    const struct text_box box = {
        viewarea_width,
        wrapping_sub(wrapping_sub(viewarea_width, left_margin), right_margin),
        wrapping_sub(wrapping_sub(viewarea_height, top_margin), bottom_margin),
        left_margin,
    };
    paint_in_box(&box, msg, msg ? msg_max : 0, wrapping_add(*x_pos_cur, left_margin),
                 wrapping_add(*y_pos_cur, top_margin), dst_viewarea_buffer);
}

// A buffer of the caller's with the pen of a text in it. Its size is a product of 32 bits, as it is reported.
struct caller_buffer {
    struct paint_area area;
    int width;     // pixels
    int height;    // pixels
    int pixelsize; // bytes
    int size;      // bytes
    int x;         // pixels
    int y;
    int reports_left; // of rows past the end: a file may give a glyph a height without end
};

// Moves the pen behind the glyph, on the next line where this one has no room. A line is as far down as the glyph at
// hand is high. False where the buffer ends.
static bool advance(const char *function, struct caller_buffer *buffer, const struct osdmenu_view_bitmap *glyph)
{
    const int glyph_width = static_cast<int>(glyph->width) / buffer->pixelsize;
    const int glyph_height = static_cast<int>(glyph->height);
    buffer->x = wrapping_add(buffer->x, glyph_width);
    if (buffer->x <= buffer->width)
        return true;
    buffer->x = glyph_width;
    buffer->y = wrapping_add(buffer->y, glyph_height);
    if (wrapping_add(buffer->y, glyph_height) <= buffer->height)
        return true;
    LIB_TRACE_AS(function, LOG_WORKAROUND, "exceed the maximum height of buffer, cur_y:%d, max_h:%d\n",
                 wrapping_add(buffer->y, glyph_height), buffer->height);
    return false;
}

// How many rows, from the first at that offset on, end inside the buffer. At a pitch that no memory has, none does.
static std::int64_t rows_before_end(const struct caller_buffer *buffer, int offset, int width)
{
    const std::int64_t distance = std::int64_t{buffer->size} - width - offset;
    return buffer->area.row_pitch <= 0 || distance < 0 ? 0 : distance / buffer->area.row_pitch + 1;
}

// The pen is behind the glyph by now: its left column is the pen less its own width. Rows that would leave the buffer
// are reported one by one, also those without bytes of their own.
static void paint_behind_pen(const char *function, struct caller_buffer *buffer,
                             const struct osdmenu_view_bitmap *glyph)
{
    const struct pixel_block block = strided_block(glyph);
    const int width = static_cast<int>(glyph->width);
    const int column = wrapping_sub(buffer->x, width / buffer->pixelsize);
    const int pixels = wrapping_add(wrapping_mul(buffer->y, buffer->width), column);
    const int offset = wrapping_mul(pixels, buffer->pixelsize);
    const int pitch = static_cast<int>(buffer->area.row_pitch);
    const std::int64_t inside = rows_before_end(buffer, offset, width);
    const struct row_range rows = rows_touching(&buffer->area, offset, &block);
    for (std::int64_t i = rows.first; i < std::min(rows.end, inside); i++) {
        const struct pixel_block row = row_of(&block, i);
        row_copy(&buffer->area, wrapping_add(offset, wrapping_mul(static_cast<int>(i), pitch)), &row);
    }
    for (std::int64_t i = inside; i < block.height && buffer->reports_left > 0; i++, buffer->reports_left--)
        LIB_TRACE_AS(function, LOG_WORKAROUND, "copy out of bounds: dst=%d, size=%d, max=%d\n",
                     wrapping_add(offset, wrapping_mul(static_cast<int>(i), pitch)), width, buffer->size);
}

int get_osdmenu_common_bitmap_ex(const char *msg, int msg_max, int *x_pos_cur, int *y_pos_cur, char *dst_buffer,
                                 int buffer_width, int buffer_height, int pixelsize)
{
    if (!msg || !x_pos_cur || !y_pos_cur || !dst_buffer || msg_max <= 0 || buffer_width <= 0 || buffer_height <= 0 ||
        pixelsize <= 0)
        return -1;
    const int size = wrapping_mul(wrapping_mul(buffer_width, buffer_height), pixelsize);
    const struct paint_area area = {dst_buffer, static_cast<std::size_t>(std::max(size, 0)),
                                    wrapping_mul(buffer_width, pixelsize)};
    struct caller_buffer buffer = {area, buffer_width, buffer_height, pixelsize,
                                   size, *x_pos_cur,   *y_pos_cur,    MOST_REPORTS};
    DBG_ERR("msg:%s max:%d\n", msg, msg_max);
    for (int j = 0; j < msg_max; j++) {
        const struct osdmenu_view_bitmap *glyph = glyph_or_space(__func__, msg[j], " ");
        if (!glyph) {
            LIB_TRACE(LOG_WORKAROUND, "viewbitmap for char '%c' is NULL\n", msg[j]);
            continue;
        }
        if (!advance(__func__, &buffer, glyph))
            break;
        paint_behind_pen(__func__, &buffer, glyph);
    }
    *x_pos_cur = buffer.x;
    *y_pos_cur = buffer.y;
    return 0;
}

// Both take whole strings, and end at the first character outside the table.
static bool is_in_table(const char *function, char character)
{
    if (glyph_index(character) != GLYPH_NONE)
        return true;
    LIB_TRACE_AS(function, LOG_STEP, "char not among the commonchar_string.\n\n");
    return false;
}

int get_string_bitmap_length(const char *msg)
{
    int length = 0;
    const char *end = measure_text(msg ? msg : "", glyph_at, &length);
    if (*end != '\0' && !is_in_table(__func__, *end))
        return -1;
    LIB_TRACE(LOG_STEP, "leave\n");
    return length;
}

// The size of a caller's buffer is known only where it lies in the view buffer. Elsewhere its word is taken.
static struct paint_area area_from(char *dst_buf)
{
    const std::int64_t offset = offset_of_view_address(dst_buf);
    if (osdmenu_viewbuffer && offset >= 0 && offset < osdmenu_viewbuffer_size)
        return {dst_buf, static_cast<std::size_t>(osdmenu_viewbuffer_size - offset), 0};
    return {dst_buf, INT64_MAX / 4, 0};
}

int get_string_bitmap(const char *msg, int buf_width, int pixelsize, char *dst_buf)
{
    if (pixelsize != osdmenu_view_pixelsize) {
        LIB_TRACE(LOG_STEP, "pixelsize not match\n");
        return -1;
    }
    struct paint_area area = area_from(dst_buf);
    area.row_pitch = wrapping_mul(buf_width, pixelsize);
    std::int64_t offset = 0;
    for (; msg && *msg != '\0'; msg++) {
        if (!is_in_table(__func__, *msg))
            return -1;
        const struct osdmenu_view_bitmap *glyph = glyph_at(glyph_index(*msg));
        if (!glyph)
            continue;
        paint_glyph(&area, offset, glyph);
        offset += glyph->width;
    }
    LIB_TRACE(LOG_STEP, "leave\n");
    return 0;
}
