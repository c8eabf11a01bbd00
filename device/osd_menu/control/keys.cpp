// The five keys. A key moves the position, the level or a value; the next draw shows it and finds the current item.
//
// Most of the movement is one generic rule. Before it stand the anchors.
#include <cstdint>
#include <span>

#include "control/anchors.h"
#include "control/position.h"
#include "core/config.h"
#include "core/debug.h"
#include "core/state.h"
#include "core/wrapping.h"
#include "host_settings.h"

static const char FUNCTION[] = "osdmenu_process_key";

static bool current_item_is(const char *name)
{
    return osdmenu_current_menuitem && is_named(osdmenu_current_menuitem->name, name);
}

static void set_row(int level, int row)
{
    current_view_position.levels[level] = static_cast<unsigned char>(row);
}

static void go_to(const struct anchor *anchor, int row)
{
    if (row == TO_ITEM)
        set_row(0, get_levels_byname(anchor->item));
    else if (row != STAY)
        set_row(JUMP_LEVEL, row);
}

// True when the press ends here. An item is asked once, with a line of its own.
static bool try_anchor(const struct anchor *anchor)
{
    bool enabled = anchor->key_while_disabled && osdmenu_itemname_enable(anchor->item) == 1;
    if (!current_item_is(config_text(anchor_key(anchor, enabled))))
        return false;
    if (item_decides(anchor) && !anchor->key_while_disabled)
        enabled = osdmenu_itemname_enable(anchor->item) == 1;
    go_to(anchor, anchor_row(anchor, enabled));
    return true;
}

// Without a configuration two items hold the position; with one, its anchors do.
static bool held_by_anchor(std::span<const struct anchor> anchors)
{
    if (!osdmenu_config)
        return current_item_is(INFORMATION_BACK_ITEM) || current_item_is(PERIPHERAL_BACK_ITEM);
    for (const struct anchor &anchor : anchors)
        if (try_anchor(&anchor))
            return true;
    return false;
}

// In the top list a separator may stand below the title.
static int lowest_row(void)
{
    return underlineenable == 1 && osdmenu_current_viewlevel == 0 ? FIRST_ROW + 1 : FIRST_ROW;
}

static void trace_separator(void)
{
    if (underlineenable == 1)
        LIB_TRACE_AS(FUNCTION, LOG_EVENT, "underlineenable %d\n", underlineenable);
}

static unsigned char *scroll_top(void)
{
    return &osdmenu_viewarea_topitem_number.levels[osdmenu_current_viewlevel];
}

static void press_up(void)
{
    if (held_by_anchor(up_anchors))
        return;
    int level = osdmenu_current_viewlevel;
    int row = current_view_position.levels[level];
    trace_separator();
    if (row == lowest_row()) {
        set_row(level, wrapping_sub(last_looped_itemnumber, 1));
    } else {
        row--;
        set_row(level, row);
    }
    if (row < *scroll_top())
        *scroll_top() = static_cast<unsigned char>(row);
}

static void press_down(void)
{
    if (held_by_anchor(down_anchors))
        return;
    int level = osdmenu_current_viewlevel;
    int row = current_view_position.levels[level] + 1;
    if (row == last_noview_itemnumber) {
        ++*scroll_top();
        set_row(level, row);
    }
    if (row < last_looped_itemnumber) {
        set_row(level, row);
        return;
    }
    trace_separator();
    set_row(level, lowest_row());
    *scroll_top() = 0;
}

// One step, down (-1) or up (+1). Beyond the limit it goes to the far one, and so does a step that no int can hold.
static int stepped(const struct osdmenu_item_value_number *number, int direction)
{
    std::int64_t next = std::int64_t{number->current} + std::int64_t{direction} * number->step;
    if (direction < 0)
        return next < number->lowlimit || next > INT32_MAX ? number->highlimit : static_cast<int>(next);
    return next > number->highlimit || next < INT32_MIN ? number->lowlimit : static_cast<int>(next);
}

static void set_value(int value)
{
    if (osdmenu_current_menuitem->action)
        osdmenu_current_menuitem->action(osdmenu_current_menuitem, ACTION_OP_SET, value);
}

// A choice has no bound here: the action hears the bare index, and the next draw wraps what it answers.
static void press_sideways(int direction)
{
    if (!osdmenu_current_menuitem)
        return;
    struct osdmenu_item_value *value = &osdmenu_current_menuitem->item_values;
    switch (value->type) {
    case VALUE_TXT:
        value->current = wrapping_add(value->current, direction);
        set_value(value->current);
        break;
    case VALUE_NUMBER:
    case VALUE_PERCENTAGE: // its record has the same fields
        value->u.number.current = stepped(&value->u.number, direction);
        set_value(value->u.number.current);
        break;
    default:
        break;
    }
}

static void call_enter(void)
{
    if (osdmenu_current_menuitem->action)
        osdmenu_current_menuitem->action(osdmenu_current_menuitem, ACTION_OP_ENTER, 0);
}

// Where an entered page opens. The item is read again: its action may have loaded another menu.
static void set_entry_position(void)
{
    if (!osdmenu_current_menuitem)
        return;
    int level = osdmenu_current_viewlevel;
    const int row = opening_row(osdmenu_current_menuitem->name);
    if (row == LAST_ENABLED_ROW) {
        set_row(level, last_enabled_row(osdmenu_current_menuitem));
    } else if (row == ROW_OF_PRESET) {
        osdmenu_current_viewlevel = MENU_LEVELS - 1;
        set_row(MENU_LEVELS - 1, row_of_preset(get_sc_smartgallery_preset()));
    } else {
        set_row(level, row);
    }
}

// A page is entered when it has two rows or more, but for one that never is.
static bool has_page_to_enter(const struct osdmenu_item *item)
{
    return !is_named(item->name, UPGRADE_ITEM) && item->child.next != item->child.prev;
}

static void press_ok(void)
{
    if (!osdmenu_current_menuitem)
        return;
    if (!has_page_to_enter(osdmenu_current_menuitem)) {
        call_enter();
        return;
    }
    osdmenu_current_viewlevel = level_below(osdmenu_current_menuitem);
    call_enter();
    set_entry_position();
}

int osdmenu_process_key(int keyvalue)
{
    switch (keyvalue) {
    case OSD_KEY_UP:
        press_up();
        break;
    case OSD_KEY_DOWN:
        press_down();
        break;
    case OSD_KEY_LEFT:
        press_sideways(-1);
        break;
    case OSD_KEY_RIGHT:
        press_sideways(+1);
        break;
    case OSD_KEY_OK:
        press_ok();
        break;
    default:
        break;
    }
    return 0;
}

static int press_locked(const char *function, int keyvalue)
{
    osdmenu_Mutex_Lock(function);
    osdmenu_process_key(keyvalue);
    osdmenu_Mutex_Unlock(function);
    return 0;
}

int osdmenu_action_up(void)
{
    return press_locked(__func__, OSD_KEY_UP);
}

int osdmenu_action_down(void)
{
    return press_locked(__func__, OSD_KEY_DOWN);
}

int osdmenu_action_left(void)
{
    return press_locked(__func__, OSD_KEY_LEFT);
}

int osdmenu_action_right(void)
{
    return press_locked(__func__, OSD_KEY_RIGHT);
}

int osdmenu_action_ok(void)
{
    return press_locked(__func__, OSD_KEY_OK);
}
