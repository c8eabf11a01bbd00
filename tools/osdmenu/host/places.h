// Rows in the tree of the menu: where they lie, whether they are shown, and going there without keys.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/state.h"

// The rows of an item's page, or of the top list for "". Null where there is no such item.
const list_head *rows_on(const std::string &page);

// The rows that lead from the top list down to an item, itself the last; none when it is on no page.
std::vector<osdmenu_item *> path_to(const osdmenu_item *item);

// The item whose page holds a row, empty for the top list and for a row on no page.
std::string page_of(const osdmenu_item *row);

// Of the rows that are shown: how many there are, and where one is among them, -1 when it is not.
int count_on_page(const std::string &page);
int index_on_page(const std::string &page, const osdmenu_item *row);

// ITEM_MARK_...: whether a row is shown.
unsigned char &mark_of(osdmenu_item *row);

// By the rows' names.
std::map<std::string, unsigned char> row_marks();
void restore_row_marks(const std::map<std::string, unsigned char> &marks);

// Goes to an item. False when no page shows it.
bool go_to(const std::string &item);

// Goes to an item, wherever it lies, and presses OK there. False when no page shows it.
bool open_item(const std::string &item);
