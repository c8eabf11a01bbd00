// Dumps of the loaded menu for a developer. They change nothing.
#include "core/debug.h"
#include "core/walks.h"

static const char FUNCTION[] = "show_all_menuitems";

// Bytes of 0 are left out.
static void show_position(const struct osdmenu_position *position)
{
    DBG_INFO_AS(FUNCTION, "position:\n");
    for (unsigned char level : position->levels)
        if (level != 0)
            DBG_INFO_AS(FUNCTION, "%d\n", level);
    DBG_INFO_AS(FUNCTION, "\n");
}

static void show_picture(const char *label, const struct osdmenu_view_bitmap *picture)
{
    DBG_INFO_AS(FUNCTION, "%s pixeltype:%d\n", label, static_cast<int>(picture->pixeltype));
    DBG_INFO_AS(FUNCTION, "%s height:%d\n", label, static_cast<int>(picture->height));
    DBG_INFO_AS(FUNCTION, "%s width:%d\n", label, static_cast<int>(picture->width));
    DBG_INFO_AS(FUNCTION, "%s bitmap:0x%8p\n", label, static_cast<void *>(picture->bitmap));
}

static void show_view(const struct osdmenu_view *view)
{
    DBG_INFO_AS(FUNCTION, "view type:%d\n", static_cast<int>(view->type));
    DBG_INFO_AS(FUNCTION, "view description:%s\n", shown(view->description));
    show_picture("view", &view->viewbitmap);
}

static void show_limits(const char *label, int highlimit, int lowlimit, int step)
{
    DBG_INFO_AS(FUNCTION, "%s highlimit:%d\n", label, highlimit);
    DBG_INFO_AS(FUNCTION, "%s lowlimit:%d\n", label, lowlimit);
    DBG_INFO_AS(FUNCTION, "%s step:%d\n", label, step);
}

static void show_choices(const struct osdmenu_item_value *value)
{
    for (const struct osdmenu_item_value *choice = first_choice(value); choice; choice = choice_after(choice, value)) {
        DBG_INFO_AS(FUNCTION, "txt description:%s\n", shown(choice->u.txt.description));
        show_picture("txt viewbitmap", &choice->u.txt.viewbitmap);
    }
}

static void show_value(const struct osdmenu_item_value *value)
{
    if (value->type == VALUE_NONE) {
        DBG_INFO_AS(FUNCTION, "no value!\n");
        return;
    }
    const struct osdmenu_item_value_number *number = &value->u.number;
    const struct osdmenu_item_value_percentage *percentage = &value->u.percentage;
    DBG_INFO_AS(FUNCTION, "value type:%d\n", static_cast<int>(value->type));
    if (value->type == VALUE_NUMBER)
        show_limits("number", number->highlimit, number->lowlimit, number->step);
    else if (value->type == VALUE_PERCENTAGE)
        show_limits("percentage", percentage->highlimit, percentage->lowlimit, percentage->step);
    else if (value->type == VALUE_TXT)
        show_choices(value);
}

void show_all_menuitems(void)
{
    for (const struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        show_position(&item->position);
        DBG_INFO("name:%s\n", shown(item->name));
        show_view(&item->view);
        show_value(&item->item_values);
        DBG_INFO("\n");
    }
}

// Each item's line is followed by those of its own page. A fourth depth is not shown.
static void show_page(const struct list_head *page, int depth)
{
    static const char function[] = "osdmenu_show_orderized_osdmenu_siblings";
    for (const struct osdmenu_item *item = first_along_next(page); item; item = item_along_next(item, page)) {
        if (depth == 0)
            LIB_TRACE_AS(function, LOG_STEP, "==level 1 name:%s ==\n", shown(item->name));
        else if (depth == 1)
            LIB_TRACE_AS(function, LOG_STEP, "----level 2 name:%s----\n", shown(item->name));
        else
            LIB_TRACE_AS(function, LOG_STEP, "------level 3 name:%s\n", shown(item->name));
        if (depth < 2)
            show_page(&item->child, depth + 1);
    }
}

int osdmenu_show_orderized_osdmenu_siblings(void)
{
    LIB_TRACE(LOG_STEP, "===========show orderized_osdmenu.siblings=============\n");
    show_page(&orderized_osdmenu.siblings, 0);
    return 0;
}

int osdmenu_show_osdmenu_siblings_and_readlist(void)
{
    LIB_TRACE(LOG_STEP, "===========show osdmenu.siblings=============\n");
    const struct list_head *waiting = &osdmenu.siblings;
    for (const struct osdmenu_item *item = first_along_next(waiting); item; item = item_along_next(item, waiting))
        LIB_TRACE(LOG_STEP, "name:%s\n", shown(item->name));
    LIB_TRACE(LOG_STEP, "===========show osdmenu.readlist=============\n");
    for (const struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        LIB_TRACE(LOG_STEP, "name:%s\n", shown(item->name));
    return 0;
}
