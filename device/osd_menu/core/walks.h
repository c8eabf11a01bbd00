// Walks over the lists of the menu. The name of a helper says which list it follows and in which direction.
//
// Every walk finds nothing in a list that was never set up.
#pragma once

#include <cstddef>

#include "core/list_primitives.h"
#include "core/state.h"

// All items of the load, in file order, at any depth.
inline struct osdmenu_item *item_of_readlist(struct list_head *node)
{
    if (!node)
        return nullptr;
    return reinterpret_cast<struct osdmenu_item *>(reinterpret_cast<char *>(node) -
                                                   offsetof(struct osdmenu_item, readlist));
}

inline struct osdmenu_item *first_loaded(void)
{
    return item_of_readlist(list_next(&osdmenu.readlist, &osdmenu.readlist));
}

inline struct osdmenu_item *loaded_after(const struct osdmenu_item *item)
{
    return item_of_readlist(list_next(&item->readlist, &osdmenu.readlist));
}

// `siblings` stands first in an item, and `list` first in a choice: the node is the record.
inline struct osdmenu_item *item_of_siblings(struct list_head *node)
{
    return reinterpret_cast<struct osdmenu_item *>(node);
}

// The rows of a page from the top down: display order runs along `prev`.
inline struct osdmenu_item *first_row(const struct list_head *page)
{
    return item_of_siblings(list_prev(page, page));
}

inline struct osdmenu_item *row_below(const struct osdmenu_item *item, const struct list_head *page)
{
    return item_of_siblings(list_prev(&item->siblings, page));
}

// A list of items along `next`: file order before the ordering, from the bottom row up after it.
inline struct osdmenu_item *first_along_next(const struct list_head *head)
{
    return item_of_siblings(list_next(head, head));
}

inline struct osdmenu_item *item_along_next(const struct osdmenu_item *item, const struct list_head *head)
{
    return item_of_siblings(list_next(&item->siblings, head));
}

// The choices of a value, in file order.
inline struct osdmenu_item_value *first_choice(const struct osdmenu_item_value *value)
{
    return reinterpret_cast<struct osdmenu_item_value *>(list_next(&value->list, &value->list));
}

inline struct osdmenu_item_value *choice_after(const struct osdmenu_item_value *choice,
                                               const struct osdmenu_item_value *value)
{
    return reinterpret_cast<struct osdmenu_item_value *>(list_next(&choice->list, &value->list));
}

// The first item of that name in file order, at any depth, or null.
struct osdmenu_item *item_byname(const char *name);

// The choice at `current`, or null where the list has none. Each choice looked at writes a line for the function.
struct osdmenu_item_value *present_choice(const char *function, const struct osdmenu_item_value *value);
