// Moving the menu without a key: to the top, one level in or out, to the AI mode and information pages.
#include "control/position.h"

#include "core/debug.h"
#include "core/walks.h"
#include "host_settings.h"

int level_below(struct osdmenu_item *item)
{
    int level = get_viewlevel_from_menuitem(item) + 1;
    return level < MENU_LEVELS ? level : MENU_LEVELS - 1;
}

int last_enabled_row(const struct osdmenu_item *item)
{
    int count = 0;
    for (struct osdmenu_item *row = first_row(&item->child); row; row = row_below(row, &item->child))
        count += osdmenu_itemenabled(row);
    return count - 1;
}

int osdmenu_current_view_position_reset(void)
{
    osdmenu_Mutex_Lock(__func__);
    current_view_position = {{FIRST_ROW, FIRST_ROW, FIRST_ROW, FIRST_ROW}};
    osdmenu_current_viewlevel = 0;
    osdmenu_Mutex_Unlock(__func__);
    return 0;
}

int osdmenu_submenu_entry(void)
{
    LIB_TRACE(LOG_EVENT, "enter\n");
    if (is_level(osdmenu_current_viewlevel + 1))
        osdmenu_current_viewlevel++;
    return 0;
}

int osdmenu_action_menuback(void)
{
    int level = osdmenu_current_viewlevel - 1;
    if (level >= 0)
        osdmenu_current_viewlevel = level;
    osdmenu_action_aimodeback();
    return level;
}

int set_sc_trackingmode_max(int val)
{
    sc_trackingmode_max = val;
    return sc_trackingmode_max;
}

// The row is a byte, whatever the two numbers are.
int osdmenu_enter_aimodeselection(void)
{
    int top_row = get_levels_byname(AI_MODE_ITEM);
    int mode_row = mirrored_mode(sc_trackingmode_max, get_sc_trackingmode());
    current_view_position = {
        {static_cast<unsigned char>(top_row), static_cast<unsigned char>(mode_row), FIRST_ROW, FIRST_ROW}};
    osdmenu_current_viewlevel = 1;
    return 0;
}

// The comparison is one of integers: a row that is not in the top list, -2, is never the position.
int osdmenu_action_aimodeback(void)
{
    LIB_TRACE(LOG_EVENT, "enter\n");
    if (current_view_position.levels[0] != get_levels_byname(AI_MODE_ITEM))
        return 0;
    set_osdmenu_status(0);
    save_config_to_flash();
    osdmenu_disableitem_byname(AI_MODE_ITEM);
    set_aimode_show(0);
    return 0;
}

// Walks to the item with a line for each one passed, and counts the enabled ones, itself included, in a byte.
static struct osdmenu_item *walk_to_information(unsigned char *enabled)
{
    *enabled = 0;
    for (struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        DBG_INFO_AS("osdmenu_call_information_immediate", "nextitem->name= %s\n", shown(item->name));
        if (!is_disabled(item))
            ++*enabled;
        if (is_named(item->name, INFORMATION_ITEM))
            return item;
    }
    return nullptr;
}

// The row counts the items of all depths in load order, as they were before the action is called: it is the row of the
// top list only in files that hold the top list first.
int osdmenu_call_information_immediate(void)
{
    unsigned char enabled;
    struct osdmenu_item *item = walk_to_information(&enabled);
    if (item && item->action) {
        item->action(item, ACTION_OP_ENTER, 0);
        item = item_byname(INFORMATION_ITEM); // the callback may have loaded another menu
    }
    if (!item)
        return 0;
    osdmenu_current_viewlevel = level_below(item);
    current_view_position.levels[0] = static_cast<unsigned char>(enabled - 1);
    current_view_position.levels[osdmenu_current_viewlevel] = static_cast<unsigned char>(last_enabled_row(item));
    return 0;
}

int osdmenu_recall_extsetting(void)
{
    if (osdmenu_current_viewlevel > 0)
        current_view_position.levels[osdmenu_current_viewlevel - 1]++;
    return 0;
}

int osdmenu_recall_delsetting(void)
{
    LIB_TRACE(LOG_STEP, "osdmenu_current_viewlevel: %d\n\n", osdmenu_current_viewlevel);
    if (current_view_position.levels[osdmenu_current_viewlevel] > 2)
        current_view_position.levels[osdmenu_current_viewlevel]--;
    return 0;
}
