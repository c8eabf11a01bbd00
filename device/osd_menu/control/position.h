// Position rules that keys and position control share.
#pragma once

#include "osd_menu.h"

// The level of an item's page. The deepest is 3: an item there, or one whose enable mark reads as a fourth coordinate,
// would ask for level 4.
int level_below(struct osdmenu_item *item);

// Index of the last enabled row of an item's page, from 0; -1 without one. Each row is asked with a line of its own.
int last_enabled_row(const struct osdmenu_item *item);
