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

static void show_view(const struct osdmenu_view *view)
{
    DBG_INFO_AS(FUNCTION, "view type:%d\n", static_cast<int>(view->type));
    DBG_INFO_AS(FUNCTION, "view description:%s\n", shown(view->description));
    DBG_INFO_AS(FUNCTION, "view pixeltype:%d\n", static_cast<int>(view->viewbitmap.pixeltype));
    DBG_INFO_AS(FUNCTION, "view height:%d\n", static_cast<int>(view->viewbitmap.height));
    DBG_INFO_AS(FUNCTION, "view width:%d\n", static_cast<int>(view->viewbitmap.width));
    DBG_INFO_AS(FUNCTION, "view bitmap:0x%8p\n", static_cast<void *>(view->viewbitmap.bitmap));
}

static void show_choice(const struct osdmenu_item_value_txt *txt)
{
    DBG_INFO_AS(FUNCTION, "txt description:%s\n", shown(txt->description));
    DBG_INFO_AS(FUNCTION, "txt viewbitmap pixeltype:%d\n", static_cast<int>(txt->viewbitmap.pixeltype));
    DBG_INFO_AS(FUNCTION, "txt viewbitmap height:%d\n", static_cast<int>(txt->viewbitmap.height));
    DBG_INFO_AS(FUNCTION, "txt viewbitmap width:%d\n", static_cast<int>(txt->viewbitmap.width));
    DBG_INFO_AS(FUNCTION, "txt viewbitmap bitmap:0x%8p\n", static_cast<void *>(txt->viewbitmap.bitmap));
}

static void show_value(const struct osdmenu_item_value *value)
{
    if (value->type == VALUE_NONE) {
        DBG_INFO_AS(FUNCTION, "no value!\n");
        return;
    }
    DBG_INFO_AS(FUNCTION, "value type:%d\n", static_cast<int>(value->type));
    if (value->type == VALUE_NUMBER) {
        DBG_INFO_AS(FUNCTION, "number highlimit:%d\n", value->u.number.highlimit);
        DBG_INFO_AS(FUNCTION, "number lowlimit:%d\n", value->u.number.lowlimit);
        DBG_INFO_AS(FUNCTION, "number step:%d\n", value->u.number.step);
    } else if (value->type == VALUE_PERCENTAGE) {
        DBG_INFO_AS(FUNCTION, "percentage highlimit:%d\n", value->u.percentage.highlimit);
        DBG_INFO_AS(FUNCTION, "percentage lowlimit:%d\n", value->u.percentage.lowlimit);
        DBG_INFO_AS(FUNCTION, "percentage step:%d\n", value->u.percentage.step);
    } else if (value->type == VALUE_TXT) {
        for (const struct osdmenu_item_value *choice = first_choice(value); choice;
             choice = choice_after(choice, value))
            show_choice(&choice->u.txt);
    }
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
