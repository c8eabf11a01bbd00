// Composite bubbles: messages put together from bubble lines, text and line breaks, at a row pitch of their own.
//
// Three composers are one body. The pen decides where lines begin and wrap. Where a bubble lands is decided by the
// write position, which a text moves and the pen does not follow.
#include <climits>

#include "core/debug.h"
#include "core/line_walks.h"
#include "text/composers.h"
#include "text/glyphs.h"

enum { LINE_SPACE = 10 }; // between lines that a token breaks, pixels

// One call at work. The pen is the top left corner of the next bubble, and its limits hold its margins.
struct composition {
    const struct composer *composer;
    osd_bubble_para *para;
    int effective_width;
    int effective_height;
    int x;
    int y;
    char *write_position;
};

static void write_at_pen(struct composition *now)
{
    now->write_position = view_address(view_offset(now->x, now->y));
}

// Moves the pen to the start of a line further down. False where that line has no room.
static bool start_line(struct composition *now, int down)
{
    now->x = wrapping_add(now->para->start_x, now->composer->margins.left);
    now->y = wrapping_add(now->y, down);
    if (wrapping_add(now->y, fontSize()) > now->effective_height)
        return false;
    write_at_pen(now);
    return true;
}

static bool break_line(struct composition *now)
{
    DBG_ERR_AS(now->composer->function, "change line enter\n");
    if (!start_line(now, wrapping_add(fontSize(), LINE_SPACE)))
        return false;
    now->para->view_height_max = now->y;
    return true;
}

// A wrap goes down by the text height alone. A bubble that finds no room below is dropped; the pen stays on that line.
static void add_bubble(struct composition *now, const struct osdbubbleline *bubble)
{
    const struct pixel_block block = tight_block(&bubble->viewbitmap);
    const int width = pixels_of(block.width);
    if (wrapping_add(now->x, width) > now->effective_width && !start_line(now, fontSize()))
        return;
    const struct paint_area area = view_area();
    row_copy(&area, offset_of_view_address(now->write_position), &block);
    now->x = wrapping_add(now->x, width);
    write_at_pen(now);
}

static int text_length(const char *text)
{
    std::size_t length = std::strlen(text);
    return length < INT_MAX ? static_cast<int>(length) : INT_MAX;
}

// A text leaves the pen alone, however long it is.
static void add_text(struct composition *now, const char *text)
{
    const struct composer *composer = now->composer;
    const struct margins *margins = &composer->text_margins;
    int x = now->x;
    int y = wrapping_sub(now->y, composer->text_rise);
    get_osdmenu_common_bitmap_with_margin(text, text_length(text), &x, &y, &now->write_position, osdmenu_viewarea_width,
                                          osdmenu_viewarea_height, margins->top, margins->bottom, margins->left,
                                          margins->right);
    if (composer->bubble_indent_after_text != BEHIND_TEXT)
        now->write_position =
            view_address(view_offset(wrapping_add(now->x, composer->bubble_indent_after_text), now->y));
}

// False ends the message.
static bool add_token(struct composition *now, const char *token)
{
    const char *function = now->composer->function;
    if (std::strcmp(token, "\n") == 0)
        return break_line(now);
    const struct osdbubbleline *bubble = bubbleline_byname(token);
    if (bubble) {
        DBG_ERR_AS(function, "bubble:%s enter\n", token);
        add_bubble(now, bubble);
    } else {
        DBG_ERR_AS(function, "common:%s enter\n", token);
        add_text(now, token);
    }
    return true;
}

static void add_tokens(struct composition *now, char **array_name, int array_max)
{
    for (int i = 0; array_name && i < array_max; i++) {
        if (!array_name[i])
            continue;
        DBG_ERR_AS(now->composer->function, "name[%d]:%s\n", i, array_name[i]);
        if (!add_token(now, array_name[i]))
            return;
    }
}

// The limits come from the view as it stands at entry, the addresses from the composer's own pitch.
static char *compose(const struct composer *composer, char **array_name, int array_max, osd_bubble_para *b_para)
{
    if (!b_para)
        return nullptr;
    const struct margins *margins = &composer->margins;
    struct composition now = {
        composer,
        b_para,
        wrapping_sub(wrapping_sub(osdmenu_viewarea_width, margins->left), margins->right),
        wrapping_sub(wrapping_sub(osdmenu_viewarea_height, margins->top), margins->bottom),
        wrapping_add(b_para->start_x, margins->left),
        wrapping_add(b_para->start_y, margins->top),
        nullptr,
    };
    const int temp_wid = osdmenu_viewarea_width;
    osdmenu_viewarea_width = composer->row_pitch;
    clear_whole_view();
    b_para->view_width_max = wrapping_add(now.effective_width, composer->width_report_pad);
    b_para->view_height_max = now.effective_height;
    write_at_pen(&now);
    char *result = composer->result_at_pen ? now.write_position : osdmenu_viewbuffer;
    add_tokens(&now, array_name, array_max);
    osdmenu_viewarea_width = temp_wid;
    DBG_INFO_AS(composer->function, "out\n");
    return result;
}

char *osdmenu_get_bubbleline_byname_multiline(char **array_name, int array_max, osd_bubble_para *b_para)
{
    return compose(&composers[MULTILINE], array_name, array_max, b_para);
}

char *osdmenu_get_bubbleline_byname_multiline_2(char **array_name, int array_max, osd_bubble_para *b_para)
{
    return compose(&composers[MULTILINE_2], array_name, array_max, b_para);
}

char *osdmenu_get_bubbleline_byname_multiline_2_en(char **array_name, int array_max, osd_bubble_para *b_para)
{
    return compose(&composers[MULTILINE_2_EN], array_name, array_max, b_para);
}
