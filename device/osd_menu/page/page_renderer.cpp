// One menu page: the way down to the list on show, its rows from the top, and the recovery from a position without one.
//
// A pass also finds the current item and the two counts that the keys work with. It allocates nothing.
#include "core/config.h"
#include "core/debug.h"
#include "core/item_value.h"
#include "core/view_buffer.h"
#include "core/walks.h"
#include "page/page_walk.h"
#include "resources/glyph_banks.h"

static const char FUNCTION[] = "_osdmenu_draw_allitems";

// The page below the enabled row with that index. The last match wins: a disabled row at the index matches without
// moving the count, and the row behind it takes its place. Without any match it is the page found a level above.
static struct list_head *page_below_row(struct list_head *page, int index, struct list_head *found_above)
{
    struct list_head *found = found_above;
    int enabledcount = 0;
    for (struct osdmenu_item *row = first_row(page); row; row = row_below(row, page)) {
        if (enabledcount == index)
            found = &row->child;
        if (!is_disabled(row))
            enabledcount++;
    }
    return found;
}

// Follows the position down to the list on show. Null when not even its first byte stands for a row.
static struct list_head *page_on_show(void)
{
    if (osdmenu_current_viewlevel == 0)
        return &orderized_osdmenu.siblings;
    struct list_head *page = page_below_row(&orderized_osdmenu.siblings, current_view_position.levels[0], nullptr);
    for (int level = 1; page && level < osdmenu_current_viewlevel; level++)
        page = page_below_row(page, current_view_position.levels[level], page);
    return page;
}

// Where the next row goes.
struct page_pass {
    int x;
    int value_x;
    int value_drop; // of a value below its row's view
    struct page_walk walk;
};

static int value_y(const struct page_pass *pass)
{
    return wrapping_add(pass->walk.y, pass->value_drop);
}

// Asks the row's action for its value. False when the row does not take part.
static bool take_value(struct osdmenu_item *row)
{
    if (!takes_part(row))
        return false;
    if (row->item_values.type != VALUE_NONE)
        store_current(&row->item_values, row->action(row, ACTION_OP_GET, 0));
    return true;
}

// Two items, named in the configuration, are current without showing the pointer.
static bool shows_pointer(const struct osdmenu_item *row)
{
    return !is_named(config_text(INFORMATION_LAST_KEY), row->name) &&
           !is_named(config_text(PERIPHERAL_TITLE_KEY), row->name);
}

static void make_current(const struct page_pass *pass, struct osdmenu_item *row)
{
    osdmenu_current_menuitem = row;
    if (shows_pointer(row))
        osdmenu_mark_current_menuitem(osdmenu_view_rulerarea_x, value_y(pass), SYMBOL_POINTER);
}

static void paint_row(const struct page_pass *pass, struct osdmenu_item *row)
{
    if (is_named(row->name, ACCESSORY_ITEM))
        osdmenu_draw_string_at_position(pass->x, pass->walk.y, kz73_name,
                                        static_cast<int>(strnlen(kz73_name, sizeof kz73_name)));
    else
        osdmenu_draw_itemview(pass->x, pass->walk.y, &row->view);
    osdmenu_draw_itemvalue(pass->value_x, value_y(pass), &row->item_values);
}

// Finds the row's place, paints it there, and steps past it. False where it lies below the view.
static bool pass_row(struct page_pass *pass, struct osdmenu_item *row)
{
    const int level = osdmenu_current_viewlevel;
    const struct walked_row shape = walked(row);
    const enum row_place place =
        place_of_row(&pass->walk, &shape, osdmenu_viewarea_topitem_number.levels[level], osdmenu_viewarea_height);
    if (place == ROW_BELOW_VIEW)
        return false;
    if (pass->walk.enabledcount == current_view_position.levels[level])
        make_current(pass, row);
    if (place == ROW_PAINTED)
        paint_row(pass, row);
    step_past_row(&pass->walk, &shape, place, osdmenu_view_rowspace);
    return true;
}

// Walks the rows of a page, paints those from the scroll top on, and finds the current one. Returns the number of
// enabled rows walked.
static int paint_rows(const struct list_head *page)
{
    struct page_pass pass = {osdmenu_view_itemarea_x,
                             get_osdmenu_view_valuearea_x(),
                             wrapping_sub(osdmenu_view_valuearea_y, osdmenu_view_itemarea_y),
                             {osdmenu_view_itemarea_y, 0, 0}};
    osdmenu_current_menuitem = nullptr;
    for (struct osdmenu_item *row = page ? first_row(page) : nullptr; row; row = row_below(row, page)) {
        if (!take_value(row))
            continue;
        if (!pass_row(&pass, row)) {
            LIB_TRACE_AS(FUNCTION, LOG_STEP, " break for cann't display a whole item!\n\n");
            last_noview_itemnumber = pass.walk.loopcount;
            break;
        }
    }
    return pass.walk.enabledcount;
}

// Recovery: a page without a current row gives way to the page above it. False where there is nothing to recover from,
// or no page above.
static bool fall_back(void)
{
    if (osdmenu_current_menuitem)
        return false;
    LIB_TRACE_AS(FUNCTION, LOG_WORKAROUND, "osdmenu_current_menuitem == NULL,do menuback\n");
    if (osdmenu_current_viewlevel == 0)
        return false;
    osdmenu_action_menuback();
    osdmenu_viewbuffer_fill_background();
    return true;
}

// The passes are counted, since an action that is asked in one may step back in.
int _osdmenu_draw_allitems(void)
{
    int enabled_rows = paint_rows(page_on_show());
    for (int passes = 0; passes < MENU_LEVELS && fall_back(); passes++)
        enabled_rows = paint_rows(page_on_show());
    last_looped_itemnumber = enabled_rows;
    if (g_meetingCameraHelpLineStatus)
        osdmenu_draw_meeting_camera_helpline();
    return 0;
}

int osdmenu_draw_allitems(void)
{
    osdmenu_Mutex_Lock(__func__);
    _osdmenu_draw_allitems();
    osdmenu_Mutex_Unlock(__func__);
    return 0;
}
