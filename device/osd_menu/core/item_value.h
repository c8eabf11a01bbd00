// The rules that belong to an item's value, whoever brings it.
#pragma once

#include "osd_menu.h"

enum { FREE_TEXT_LENGTH = 64 }; // bytes that an item takes of a text given at run time

// The types whose value has a list of choices. For all others the list is never followed.
inline bool has_choices(const struct osdmenu_item_value *value)
{
    return value->type == VALUE_TXT || value->type == VALUE_RAWTXT;
}

// The types whose value is a number between limits. Their records have the same fields.
inline bool is_number(unsigned int type)
{
    return type == VALUE_NUMBER || type == VALUE_PERCENTAGE;
}

// What stands behind such a number.
inline const char *unit_of(unsigned int type)
{
    return type == VALUE_PERCENTAGE ? "%" : "";
}

// The choice that stands in for an index that the list has not: past its end the first, below 0, however far, the last.
inline int wrapped_choice(int current, int count)
{
    return current < 0 && count > 0 ? count - 1 : 0;
}

// Stores a present value where its type keeps it; other types have none to store.
inline void store_current(struct osdmenu_item_value *value, int current)
{
    if (value->type == VALUE_TXT)
        value->current = current;
    else if (value->type == VALUE_NUMBER)
        value->u.number.current = current;
    else if (value->type == VALUE_PERCENTAGE)
        value->u.percentage.current = current;
}
