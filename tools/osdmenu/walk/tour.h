// The way past every page of a menu that takes the fewest presses, as a script.
#pragma once

#include "walk/walk.h"

// The states in which a walk came to each page first, in the order of the tour. Beyond sixteen pages the next page is
// always the nearest one, which may take a few presses more. A page that nothing leads back to is left out.
std::vector<size_t> shortest_tour(const Walk &walk);

// Pages are named by their items, and the top list "top". Rows that were shown for the walk are shown in the script.
std::string tour_script(const Walk &walk, const std::vector<std::string> &enabled);
