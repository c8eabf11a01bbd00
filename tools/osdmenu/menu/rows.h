// The rows of a menu in the order in which the files hold them, each with its coordinates.
//
// Breadth first: a parent always stands before its children, and what counts rows in file order counts the top list
// before anything below it.
#pragma once

#include <string>
#include <vector>

#include "menu/menu_model.h"

struct Row {
    const Item *item;
    int parent;        // index of the row whose page it stands on, -1 in the top list
    int depth;         // 0 for the top list
    int index;         // place on its page, from 0
    int enabled_index; // rows above it that are enabled at the start
    osdmenu_position position;
};

std::vector<Row> rows_in_file_order(const Menu &menu);

// The library's key for the page that a row stands on: "." for the top list, .3.1 below its fourth row's second one.
std::string page_key(const std::vector<Row> &rows, const Row &row);

// The row that OK opens the page of `parent` on, or the top list for null; null when it depends on the host.
const Item *opening_item(const Menu &menu, const Item *parent);
