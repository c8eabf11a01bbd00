#include "rules/menu_rules.h"

#include <algorithm>

#include "common/text.h"

// Coordinates are bytes below the mark of an absent level; at depth 3 one value more is taken.
static constexpr size_t MAX_ROWS = LEVEL_ABSENT - 1;

// The library keeps 64 bytes of the path of a resource file, and the longest name has four.
static constexpr size_t MAX_DIRECTORY = 59;

// The library searches from the front and stops at the first match.
static void check_name(const std::string &name, const Place &place, std::map<std::string, Place> &seen,
                       Findings &findings)
{
    if (name.empty()) {
        findings.error(place, "a name must not be empty");
        return;
    }
    if (name.size() > MAX_TEXT)
        findings.error(place, "a name holds at most 127 bytes (found " + std::to_string(name.size()) + ")");
    auto [first, is_new] = seen.insert({name, place});
    if (!is_new)
        findings.add({place, "duplicate-name",
                      in_quotes(name) + " is taken already, in line " + std::to_string(first->second.line),
                      "the library finds the first of that name only", name});
}

static void check_names(const Menu &menu, const std::vector<Row> &rows, Findings &findings)
{
    std::map<std::string, Place> items, help_lines, bubbles, languages;
    for (const Row &row : rows)
        check_name(row.item->name, row.item->place, items, findings);
    for (const Line &line : menu.help_lines)
        check_name(line.name, line.place, help_lines, findings);
    for (const Line &line : menu.bubbles)
        check_name(line.name, line.place, bubbles, findings);
    for (const Language &language : menu.languages) {
        check_name(language.code, language.place, languages, findings);
        std::string directory = menu.device_directory + language.code + "/";
        if (directory.size() > MAX_DIRECTORY)
            findings.add({language.place, "directory-too-long",
                          "the directory " + in_quotes(directory) + " on the device is too long",
                          "'device_directory' and the code take at most 59 bytes together", language.code});
    }
}

// Where the mark that hides a row stands, and what else is read from that byte, depends on the depth.
static void check_mark(const Row &row, Findings &findings)
{
    const Item &item = *row.item;
    if (item.enabled || row.depth < 2)
        return;
    if (row.depth == 3)
        findings.add({item.place, "mark-collision",
                      in_quotes(item.name) + " lies at depth 3, where a row cannot start disabled",
                      "its coordinate stands where the mark would; let the host disable it after loading", item.name});
    else
        findings.add({item.place, "disabled-at-depth",
                      in_quotes(item.name) + " starts disabled at depth 2: its mark reads as a coordinate",
                      "the row keeps its place; the library logs 'list_add err' for it once per load", item.name});
}

// OK enters a page of two rows or more; on anything else it only calls the action.
static void check_page(const Item *parent, const std::vector<Item> &items, Findings &findings)
{
    Place place = parent ? parent->place : items.front().place;
    std::string page = parent ? "the page of " + in_quotes(parent->name) : "the top list";
    if (items.size() == 1)
        findings.add({place, "single-child", page + " has one row", "OK enters a page of two rows or more",
                      parent ? parent->name : items.front().name});
    if (items.size() > MAX_ROWS)
        findings.error(place, page + " has more than " + std::to_string(MAX_ROWS) + " rows");
    if (!items.front().is_title())
        findings.add({items.front().place, "untitled-page",
                      in_quotes(items.front().name) + " is row 0 of " + page + ", which UP and DOWN don't reach",
                      "begin with a row whose name contains 'title'", items.front().name});
    if (parent && parent->name == "upgrade")
        findings.add({place, "unreachable-page", "OK never enters the page of 'upgrade'", "", parent->name});
}

// Names that the library looks for at one depth only.
static void check_fixed_depth(const Row &row, Findings &findings)
{
    static constexpr std::pair<const char *, int> fixed[] = {
        {"camera", 0},
        {"osdmirror", 0},
        {"aimodeselection", 0},
        {"smartgallery_preset", 2},
    };
    for (const auto &[name, depth] : fixed)
        if (row.item->name == name && row.depth != depth)
            findings.add({row.item->place, "fixed-name",
                          in_quotes(name) + " must lie at depth " + std::to_string(depth) + " (found at " +
                              std::to_string(row.depth) + ")",
                          "", name});
}

static void check_colours(const Menu &menu, Findings &findings)
{
    if (menu.display.pixel_format == PixelFormat::rgb565 && menu.colours.background.alpha != 255)
        findings.error({menu.path}, "RGB565 has no transparency, but the background has");
}

static void check_page_heights(const std::vector<Row> &rows, const Geometry &geometry, Findings &findings)
{
    // As the library walks a page: the first row that doesn't fit ends it.
    int y = geometry.first_row;
    for (const Row &row : rows) {
        if (row.index == 0)
            y = geometry.first_row;
        if (y < geometry.view_height && y + geometry.line_height >= geometry.view_height)
            findings.add({row.item->place, "page-too-tall",
                          in_quotes(row.item->name) + " and the rows below it don't fit on the view",
                          "move some to a page of their own, or choose a smaller font", row.item->name});
        y += geometry.line_height + geometry.row_gap * (row.item->is_title() ? 2 : 1);
    }
}

void check_menu(const Project &project, Findings &findings)
{
    const Menu &menu = project.menu;
    const std::vector<Row> &rows = project.rows;
    check_names(menu, rows, findings);
    check_colours(menu, findings);
    if (menu.languages.empty() || menu.fonts.empty() || menu.items.empty())
        findings.error({menu.path}, "a menu needs at least a language, a font and an item");
    if (!menu.items.empty())
        check_page(nullptr, menu.items, findings);
    for (const Row &row : rows) {
        check_mark(row, findings);
        check_fixed_depth(row, findings);
        if (!row.item->items.empty())
            check_page(row.item, row.item->items, findings);
    }
    check_page_heights(rows, project.geometry, findings);
}
