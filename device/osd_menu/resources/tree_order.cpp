// The tree of pages: placing the loaded items by their coordinates.
//
// A page is in display order along `prev`. A file whose coordinates ascend puts each new item first along `next`, and
// so last in display order: the page then shows the order of the file.
#include "core/debug.h"
#include "core/walks.h"

static const char PLACING[] = "insert2orderized_osmenu";

enum placement { PLACED = 1, REFUSED = 2 };

// The page below the first item along `next` with that coordinate. Without one it is the page itself: a missing parent
// is neither made nor reported.
static struct list_head *page_below(struct list_head *page, int depth, unsigned char coordinate)
{
    for (struct osdmenu_item *member = first_along_next(page); member; member = item_along_next(member, page))
        if (member->position.levels[depth] == coordinate)
            return &member->child;
    return page;
}

// The first item along `next` that a new one with this coordinate goes before, or null.
static struct osdmenu_item *item_not_below(const struct list_head *page, int depth, unsigned char coordinate)
{
    for (struct osdmenu_item *member = first_along_next(page); member; member = item_along_next(member, page))
        if (coordinate <= member->position.levels[depth])
            return member;
    return nullptr;
}

static void link_before(struct osdmenu_item *item, struct osdmenu_item *member, int depth)
{
    int value = item->position.levels[depth];
    int other = member->position.levels[depth];
    list_add_tail(&item->siblings, &member->siblings);
    DBG_INFO_AS(PLACING, "list_add err %s %d %d\n", shown(item->name), value, other);
    LIB_TRACE_AS(PLACING, LOG_EVENT, "list_add err %s %d %d\n\n", shown(item->name), value, other);
}

int insert2orderized_osmenu(struct osdmenu_item *item)
{
    if (!item)
        return REFUSED;
    if (item->position.levels[0] == LEVEL_ABSENT) {
        DBG_ERR_AS(PLACING, "first level value 0!\n");
        return REFUSED;
    }
    struct list_head *page = &orderized_osdmenu.siblings;
    if (!page->next) // no menu was ordered yet
        list_init(page);
    int depth = get_viewlevel_from_menuitem(item);
    for (int d = 0; d < depth; d++)
        page = page_below(page, d, item->position.levels[d]);
    struct osdmenu_item *member = item_not_below(page, depth, item->position.levels[depth]);
    list_init(&item->child);
    if (member)
        link_before(item, member, depth);
    else
        list_add(&item->siblings, page);
    return PLACED;
}

// Places the first item that is not refused. A walk cannot go on from a node that has moved to another list, so the
// next one starts at the head again.
static bool place_next_item(void)
{
    struct list_head *waiting = &osdmenu.siblings;
    for (struct osdmenu_item *item = first_along_next(waiting); item; item = item_along_next(item, waiting)) {
        list_del(&item->siblings);
        if (insert2orderized_osmenu(item) == PLACED)
            return true;
        list_add_tail(&item->siblings, item->siblings.next); // back to the same spot
        LIB_TRACE_AS("orderize_all_menuitems", LOG_STEP, "not inserted. right?\n");
    }
    return false;
}

void orderize_all_menuitems(void)
{
    list_init(&orderized_osdmenu.siblings);
    while (place_next_item())
        ;
    DBG_INFO("end!\n");
}

// Along `next` the rows above an item come behind it. The count starts at the item itself, disabled or not.
int get_levels_byname(const char *name)
{
    const struct list_head *top = &orderized_osdmenu.siblings;
    int count = 0;
    for (struct osdmenu_item *item = first_along_next(top); item; item = item_along_next(item, top)) {
        bool named = is_named(item->name, name);
        if (named)
            count = 1;
        if (count != 0 && (named || !is_disabled(item)))
            count++;
    }
    return count - 2;
}
