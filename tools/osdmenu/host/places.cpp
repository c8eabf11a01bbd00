#include "host/places.h"

#include <algorithm>

#include "core/fixed_items.h"
#include "core/walks.h"
#include "host/host.h"
#include "osd_menu_post.h"

const list_head *rows_on(const std::string &page)
{
    if (page.empty())
        return &orderized_osdmenu.siblings;
    const osdmenu_item *item = item_byname(page.c_str());
    return item ? &item->child : nullptr;
}

static bool find_path(const list_head *page, const osdmenu_item *item, std::vector<osdmenu_item *> &path)
{
    for (osdmenu_item *row = first_row(page); row; row = row_below(row, page)) {
        path.push_back(row);
        if (row == item || find_path(&row->child, item, path))
            return true;
        path.pop_back();
    }
    return false;
}

std::vector<osdmenu_item *> path_to(const osdmenu_item *item)
{
    std::vector<osdmenu_item *> path;
    if (item)
        find_path(&orderized_osdmenu.siblings, item, path);
    return path;
}

std::string page_of(const osdmenu_item *row)
{
    const std::vector<osdmenu_item *> path = path_to(row);
    return path.size() > 1 ? path[path.size() - 2]->name : "";
}

static std::vector<const osdmenu_item *> shown_on_page(const std::string &page)
{
    const list_head *rows = rows_on(page);
    std::vector<const osdmenu_item *> shown;
    for (auto *row = rows ? first_row(rows) : nullptr; row; row = row_below(row, rows))
        if (!is_disabled(row))
            shown.push_back(row);
    return shown;
}

int count_on_page(const std::string &page)
{
    return static_cast<int>(shown_on_page(page).size());
}

int index_on_page(const std::string &page, const osdmenu_item *row)
{
    const std::vector<const osdmenu_item *> shown = shown_on_page(page);
    auto found = std::find(shown.begin(), shown.end(), row);
    return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
}

unsigned char &mark_of(osdmenu_item *row)
{
    return row->position.levels[MARK_LEVEL];
}

std::map<std::string, unsigned char> row_marks()
{
    std::map<std::string, unsigned char> marks;
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        marks[item->name] = mark_of(item);
    return marks;
}

void restore_row_marks(const std::map<std::string, unsigned char> &marks)
{
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        if (auto found = marks.find(item->name); found != marks.end())
            mark_of(item) = found->second;
}

// Levels are entered one by one, so that each keeps its row for the way back.
bool go_to(const std::string &item)
{
    const std::vector<osdmenu_item *> path = path_to(item_byname(item.c_str()));
    if (path.empty() || std::any_of(path.begin(), path.end(), is_disabled))
        return false;
    osdmenu_current_view_position_reset();
    for (size_t level = 0; level < path.size(); level++) {
        set_current_view_position(static_cast<int>(level),
                                  index_on_page(level ? path[level - 1]->name : "", path[level]));
        if (level > 0)
            osdmenu_submenu_entry();
    }
    return true;
}

// OK acts on the item that the last draw found, hence the repaint between the two.
bool open_item(const std::string &item)
{
    if (!go_to(item))
        return false;
    if (item == AI_MODE_ITEM)
        return open_ai_mode(), true;
    repaint();
    return press("ok");
}
