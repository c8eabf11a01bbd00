// What the library asks of a menu as a whole: names, coordinates, pages that can be entered, rows that fit.
#pragma once

#include "menu/geometry.h"
#include "menu/menu_model.h"
#include "menu/rows.h"

void check_menu(const Menu &menu, const std::vector<Row> &rows, Findings &findings);

// Rows that end below the view are never shown, and keys don't reach them.
void check_page_heights(const std::vector<Row> &rows, const Geometry &geometry, Findings &findings);
