// Position rules that keys and position control share.
#pragma once

#include "osd_menu.h"

// Index of the last enabled row of an item's page, from 0; -1 without one. Each row is asked with a line of its own.
int last_enabled_row(const struct osdmenu_item *item);
