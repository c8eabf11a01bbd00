// The way past every page of a menu that takes the fewest presses, as a script.
#pragma once

#include "walk/walk.h"

// The states in which a walk came to each page first, in the order of the tour. Beyond sixteen pages the next page is
// always the nearest one, which may take a few presses more.
std::vector<size_t> shortest_tour(const Walk &walk);

// Pages are named by their items, and the top list "top".
std::string tour_script(const Walk &walk);
