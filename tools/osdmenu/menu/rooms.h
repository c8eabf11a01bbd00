// How many pixels a text may take before it runs into something or off the view.
#pragma once

#include <string>

#include "menu/project.h"

// Of a text of this item or line; `row` is null for help lines and bubbles. A row's text has room up to the value
// column where the item has a value, and to the view's edge where it has none; a help line up to what a layout of
// the help block puts beside it; a bubble within the narrowest pitch that the host's messages are composed at, and
// within the view.
int room_of(const Project &project, const std::string &language, TextKind kind, const Row *row,
            const std::string &name);
