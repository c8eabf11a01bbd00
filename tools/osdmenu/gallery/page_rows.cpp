#include "gallery/page_rows.h"

#include "core/layout.h"
#include "core/walks.h"
#include "host/host.h"
#include "host/places.h"
#include "host/values.h"
#include "resources/glyph_banks.h"

// As a draw does it: rows without an answer are left out, hidden ones count as scrolled past, and the first that does
// not fit is the end.
std::vector<PageRow> rows_of_page(const std::string &name)
{
    std::vector<PageRow> rows;
    const list_head *page = rows_on(name);
    int y = osdmenu_view_itemarea_y, index = 0;
    bool is_full = false;
    for (osdmenu_item *item = first_row(page); item; item = row_below(item, page)) {
        if (item->item_values.type != VALUE_NONE && !item->action)
            continue;
        PageRow row{item, y};
        is_full = is_full || y + row.height() >= osdmenu_viewarea_height;
        bool is_above = index++ < osdmenu_viewarea_topitem_number.levels[osdmenu_current_viewlevel];
        if (is_disabled(item))
            continue;
        if (is_full || is_above)
            row.y = -1;
        else
            y += row.height() + osdmenu_view_rowspace * (std::strstr(item->name, "title") ? 2 : 1);
        rows.push_back(row);
    }
    return rows;
}

void show_value(const std::string &item, int value)
{
    host.settings.values[item] = value;
    repaint();
}

int value_width(const osdmenu_item *item, int value)
{
    const osdmenu_item_value *choice = choice_at(item, value);
    if (choice && item->item_values.type == VALUE_TXT)
        return pixels_of(choice->u.txt.viewbitmap.width);
    int width = 0;
    for (char c : value_text(item, value))
        if (const osdmenu_view_bitmap *glyph = glyph_at(glyph_index(c)))
            width += pixels_of(glyph->width);
    return width;
}
