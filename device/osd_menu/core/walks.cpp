// Finding records: by their name, and the present choice of a value.
#include "core/walks.h"

#include "core/debug.h"
#include "core/line_walks.h"

struct osdmenu_item *item_byname(const char *name)
{
    for (struct osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        if (is_named(item->name, name))
            return item;
    return nullptr;
}

const struct osdbubbleline *bubbleline_byname(const char *name)
{
    for (const struct osdbubbleline *line = first_bubbleline(); line; line = bubbleline_after(line))
        if (is_named(line->name, name))
            return line;
    return nullptr;
}

struct osdmenu_item_value *present_choice(const char *function, const struct osdmenu_item_value *value)
{
    int i = 0;
    for (struct osdmenu_item_value *choice = first_choice(value); choice; choice = choice_after(choice, value)) {
        DBG_INFO_AS(function, "choice %d:%s\n", i, shown(choice->u.txt.description));
        if (i++ == value->current)
            return choice;
    }
    return nullptr;
}
