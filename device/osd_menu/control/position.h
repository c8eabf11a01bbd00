// Position rules that keys and position control share with whoever foretells them.
#pragma once

#include "core/fixed_items.h"
#include "core/state.h"
#include "core/wrapping.h"

// Row 0 of a page is its title.
enum { FIRST_ROW = 1 };

// Where OK opens an item's page, in enabled rows from 0; or one of these.
enum { LAST_ENABLED_ROW = -1, ROW_OF_PRESET = -2 };

inline int opening_row(const char *name)
{
    if (is_named(name, INFORMATION_ITEM))
        return LAST_ENABLED_ROW;
    if (is_named(name, PRESET_ITEM))
        return ROW_OF_PRESET;
    return is_named(name, PERIPHERAL_ITEM) ? 0 : FIRST_ROW;
}

// The gallery page lists the presets, which count from 0, below its title.
inline int row_of_preset(int preset)
{
    return (preset & 0xFF) + FIRST_ROW;
}

inline int preset_of_row(int row)
{
    return row - FIRST_ROW;
}

// The AI mode page lists the modes from the highest down: gives the row of a mode, and the mode of a row.
inline int mirrored_mode(int highest, int mode_or_row)
{
    return wrapping_sub(highest, mode_or_row);
}

// The level of an item's page. The deepest is 3: an item there, or one whose enable mark reads as a fourth coordinate,
// would ask for level 4.
int level_below(struct osdmenu_item *item);

// Index of the last enabled row of an item's page, from 0; -1 without one. Each row is asked with a line of its own.
int last_enabled_row(const struct osdmenu_item *item);
