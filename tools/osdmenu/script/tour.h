// The shortest script that shows every page of the menu, for pictures of all of them.
#pragma once

#include "walk/walk.h"

// Pages are named by their items, and the top list "top". Rows that were shown for the walk are shown in the script.
//
// The fewest presses of all, unless the menu has so many pages and places that the nearest new page is taken each time,
// which may be a few presses more.
std::string tour_script(const Walk &walk, const std::vector<std::string> &enabled);
