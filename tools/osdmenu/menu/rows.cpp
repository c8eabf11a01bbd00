#include "menu/rows.h"

#include "control/position.h"
#include "core/config.h"
#include "core/state.h"

// On the deepest level the coordinate stands where the enable mark does, so the value that disables is left out.
static unsigned char coordinate(int depth, int index)
{
    bool reads_as_disabled = depth == MARK_LEVEL && index >= ITEM_MARK_DISABLED;
    return static_cast<unsigned char>(reads_as_disabled ? index + 1 : index);
}

static Row place_row(const std::vector<Row> &rows, int parent, const Item *item, int index, int enabled_index)
{
    Row row{item, parent, 0, index, enabled_index, {{LEVEL_ABSENT, LEVEL_ABSENT, LEVEL_ABSENT, LEVEL_ABSENT}}};
    if (parent >= 0) {
        const Row &above = rows[static_cast<size_t>(parent)];
        row.depth = above.depth + 1;
        for (int depth = 0; depth < row.depth; depth++)
            row.position.levels[depth] = above.position.levels[depth];
    }
    row.position.levels[row.depth] = coordinate(row.depth, index);
    if (row.depth < MARK_LEVEL && !item->enabled)
        row.position.levels[MARK_LEVEL] = ITEM_MARK_DISABLED;
    return row;
}

// Hidden rows have coordinates like all others, but no enabled index of their own.
static void add_page(std::vector<Row> &rows, int parent, const std::vector<Item> &items)
{
    int index = 0, enabled_index = 0;
    for (const Item &item : items) {
        rows.push_back(place_row(rows, parent, &item, index++, enabled_index));
        enabled_index += item.enabled ? 1 : 0;
    }
}

std::vector<Row> rows_in_file_order(const Menu &menu)
{
    std::vector<Row> rows;
    add_page(rows, -1, menu.items);
    for (size_t i = 0; i < rows.size(); i++)
        add_page(rows, static_cast<int>(i), rows[i].item->items);
    return rows;
}

std::string page_key(const std::vector<Row> &rows, const Row &row)
{
    unsigned char path[MENU_LEVELS] = {};
    const Row *at = &row;
    while (at->parent >= 0) {
        at = &rows[static_cast<size_t>(at->parent)];
        path[at->depth] = static_cast<unsigned char>(at->enabled_index);
    }
    char key[PAGE_KEY_SIZE];
    page_key(key, path, row.depth);
    return key;
}

const Item *opening_item(const Menu &menu, const Item *parent)
{
    std::vector<const Item *> enabled;
    for (const Item &item : parent ? parent->items : menu.items)
        if (item.enabled)
            enabled.push_back(&item);
    const int row = opening_row(parent ? parent->name.c_str() : nullptr);
    // The host opens the page of modes without OK, at the mode in force.
    const bool is_of_host = row == ROW_OF_PRESET || (parent && parent->name == AI_MODE_ITEM);
    if (is_of_host || enabled.empty())
        return nullptr;
    if (row == LAST_ENABLED_ROW)
        return enabled.back();
    return static_cast<size_t>(row) < enabled.size() ? enabled[static_cast<size_t>(row)] : nullptr;
}
