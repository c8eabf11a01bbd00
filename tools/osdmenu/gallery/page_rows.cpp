#include "gallery/page_rows.h"

#include "core/layout.h"
#include "core/walks.h"
#include "host/host.h"
#include "host/places.h"
#include "host/values.h"
#include "page/page_walk.h"

std::vector<PageRow> rows_of_page(const std::string &name)
{
    std::vector<PageRow> rows;
    const list_head *page = rows_on(name);
    const int top = osdmenu_viewarea_topitem_number.levels[osdmenu_current_viewlevel];
    struct page_walk walk = {osdmenu_view_itemarea_y, 0, 0};
    row_place place = ROW_NOT_PAINTED;
    for (osdmenu_item *item = first_row(page); item; item = row_below(item, page)) {
        if (!takes_part(item))
            continue;
        const struct walked_row row = walked(item);
        if (place != ROW_BELOW_VIEW)
            place = place_of_row(&walk, &row, top, osdmenu_viewarea_height);
        if (row.is_enabled)
            rows.push_back({item, place == ROW_PAINTED ? walk.y : -1});
        if (place != ROW_BELOW_VIEW)
            step_past_row(&walk, &row, place, osdmenu_view_rowspace);
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
    return width_in_glyphs(value_text(item, value));
}
