// The rows of a page as the library paints them.
#pragma once

#include <string>
#include <vector>

#include "core/state.h"

struct PageRow {
    osdmenu_item *item;
    int y; // of its picture; -1 where the page is not scrolled to it

    int height() const
    {
        return static_cast<int>(item->view.viewbitmap.height);
    }
};

// All enabled rows of an item's page, or of the top list for "". It must be the page on show.
std::vector<PageRow> rows_of_page(const std::string &page);

// As if keys had led to it.
void show_value(const std::string &item, int value);

int value_width(const osdmenu_item *item, int value); // pixels
