// The host's hand on the items: actions, enable marks, and values by name.
#include "core/debug.h"
#include "core/item_value.h"
#include "core/texts.h"
#include "core/walks.h"

int osdmenu_register_action_byname(const char *itemname, osdmenu_action_callback action, int flag_action)
{
    struct osdmenu_item *item = item_byname(itemname);
    if (!item) {
        LIB_TRACE(LOG_EVENT, "fail,%s\n", shown(itemname));
        return 0;
    }
    item->action = action;
    if (item->item_values.type == VALUE_NONE || !action)
        return 0;
    if (flag_action == 1)
        action(item, ACTION_OP_INIT, 0);
    store_current(&item->item_values, action(item, ACTION_OP_GET, 0));
    return 0;
}

int osdmenu_itemenabled(struct osdmenu_item *item)
{
    if (!item)
        return 0;
    if (is_disabled(item)) {
        DBG_INFO("menuitem %s disabled!\n", shown(item->name));
        return 0;
    }
    DBG_INFO("menuitem %s enabled!\n", shown(item->name));
    return 1;
}

int osdmenu_itemname_enable(const char *itemname)
{
    return osdmenu_itemenabled(item_byname(itemname));
}

static void mark(struct osdmenu_item *item, int enable_mark)
{
    item->position.levels[MENU_LEVELS - 1] = static_cast<unsigned char>(enable_mark);
}

static bool not_loaded(const char *function)
{
    if (menu_was_loaded())
        return false;
    LIB_TRACE_AS(function, LOG_STEP, "font not init\n");
    return true;
}

int osdmenu_enableitem_byaction(osdmenu_action_callback action)
{
    if (not_loaded(__func__))
        return -1;
    for (struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        if (item->action != action)
            continue;
        DBG_INFO("enable:%s\n", shown(item->name));
        mark(item, ITEM_MARK_ENABLED);
    }
    return 0;
}

int osdmenu_disableitem_byaction(osdmenu_action_callback action)
{
    if (not_loaded(__func__))
        return 0;
    for (struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        bool matches = item->action == action;
        DBG_INFO("item:%s\n", shown(item->name));
        DBG_INFO("action:%s\n", item->action ? "set" : "none");
        DBG_INFO("mark:0x%02x\n", item->position.levels[MENU_LEVELS - 1]);
        DBG_INFO("%s\n", matches ? "disable" : "leave");
        if (matches)
            mark(item, ITEM_MARK_DISABLED);
    }
    return 0;
}

static void mark_byname(const char *function, const char *itemname, int enable_mark)
{
    if (not_loaded(function))
        return;
    struct osdmenu_item *item = item_byname(itemname);
    if (item)
        mark(item, enable_mark);
}

int osdmenu_enableitem_byname(const char *itemname)
{
    mark_byname(__func__, itemname, ITEM_MARK_ENABLED);
    return 0;
}

int osdmenu_disableitem_byname(const char *itemname)
{
    mark_byname(__func__, itemname, ITEM_MARK_DISABLED);
    return 0;
}

// What stands behind a new text in its block is left alone.
int osdmenu_action_setnewtxtvalue2menuitem(struct osdmenu_item *menuitem, const char *txtvalue)
{
    if (!menuitem || !txtvalue) {
        DBG_INFO("parameters invalid!\n");
        return -1;
    }
    struct osdmenu_item_value *choice = present_choice(__func__, &menuitem->item_values);
    if (!choice)
        return 0;
    if (choice->u.txt.description)
        store_text(choice->u.txt.description, FREE_TEXT_LENGTH, txtvalue, strnlen(txtvalue, FREE_TEXT_LENGTH));
    menuitem->item_values.type = VALUE_RAWTXT;
    menuitem->item_values.current = 0;
    return 0;
}

int osdmenu_action_setnewtxtvalue2menuitem_byname(const char *itemname, const char *txtvalue)
{
    DBG_INFO("Enter\n");
    char text[FREE_TEXT_LENGTH + 1]; // several items may bear the name, and the text may be that of the first
    if (txtvalue)
        store_text(text, sizeof text, txtvalue, strnlen(txtvalue, FREE_TEXT_LENGTH));
    for (struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        if (!is_named(item->name, itemname))
            continue;
        DBG_INFO("Fit\n");
        mark(item, ITEM_MARK_ENABLED);
        osdmenu_action_setnewtxtvalue2menuitem(item, txtvalue ? text : nullptr);
    }
    DBG_INFO("Leave\n");
    return 0;
}

int osdmenu_action_ext_change_value_byname(const char *itemname, int value)
{
    for (struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        if (is_named(item->name, itemname))
            store_current(&item->item_values, value);
    return 0;
}

int osdmenu_complete_action_byname(const char *itemname, int action_value, int newvaluenumber)
{
    if (not_loaded(__func__))
        return -1;
    struct osdmenu_item *item = item_byname(itemname);
    if (!item) {
        LIB_TRACE(LOG_EVENT, "item don't exist\n");
        return -1;
    }
    return item->action ? item->action(item, action_value, newvaluenumber) : -1;
}

int osdmenu_action_menuctl_byname(const char *itemname, int action, int newvalue)
{
    struct osdmenu_item *item = item_byname(itemname);
    if (item && item->action)
        item->action(item, action, newvalue);
    return 0;
}

void osdmenu_action_menuctl_byname_safe(const char *itemname, int action, int newvalue)
{
    osdmenu_Mutex_Lock(__func__);
    osdmenu_action_menuctl_byname(itemname, action, newvalue);
    osdmenu_Mutex_Unlock(__func__);
}
