#include "rules/menu_rules.h"

#include <algorithm>

#include "common/text.h"
#include "core/fixed_items.h"
#include "core/state.h"
#include "page/page_walk.h"
#include "render/languages.h"
#include "rules/fixed_rules.h"

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
        findings.error(place, "a name holds at most " + std::to_string(MAX_TEXT) + " bytes (found " +
                                  std::to_string(name.size()) + ")");
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
        if (language.code == PSEUDO_LANGUAGE)
            findings.error(language.place, "'pseudo' is the code of the made-up language that build --pseudo adds");
        std::string directory = menu.device_directory + language.code + "/";
        if (directory.size() > MAX_DIRECTORY)
            findings.add(
                {language.place, "directory-too-long",
                 "the directory " + in_quotes(directory) + " on the device is too long",
                 "'device_directory' and the code take at most " + std::to_string(MAX_DIRECTORY) + " bytes together",
                 language.code});
    }
}

// Where the mark that hides a row stands, and what else is read from that byte, depends on the depth.
static void check_mark(const Row &row, Findings &findings)
{
    const Item &item = *row.item;
    if (row.position.levels[row.depth] == LEVEL_ABSENT)
        findings.add({item.place, "mark-collision",
                      "no coordinate is left for " + in_quotes(item.name) + " and the rows below it",
                      "a page has at most " + std::to_string(row.index) + " rows", item.name});
    if (!item.enabled && row.depth == MARK_LEVEL)
        findings.add({item.place, "mark-collision",
                      in_quotes(item.name) + " lies at depth 3, where a row cannot start disabled",
                      "its coordinate stands where the mark would; let the host disable it after loading", item.name});
    if (!item.enabled && row.depth == MARK_LEVEL - 1)
        findings.add({item.place, "disabled-at-depth",
                      in_quotes(item.name) + " starts disabled at depth 2: its mark reads as a coordinate",
                      "the row keeps its place; the library logs 'list_add err' for it once per load", item.name});
}

namespace
{

struct Page {
    const Item *parent; // null for the top list
    const std::vector<Item> &items;
    std::string words;
    const Item &named_by; // what a suppression calls it
};

} // namespace

// UP and DOWN go round between row 1 and the last one.
static void check_title(const Menu &menu, const Page &page, Findings &findings)
{
    auto is_shown = [](const Item &item) { return item.enabled; };
    auto end = page.items.end(), first = std::find_if(page.items.begin(), end, is_shown);
    auto second = first == end ? end : std::find_if(first + 1, end, is_shown);
    if (second != end && opening_item(menu, page.parent) == &*second && !first->is_title())
        findings.add({first->place, "untitled-page",
                      in_quotes(first->name) + " is row 0 of " + page.words + ", which UP and DOWN don't reach",
                      "begin with a row whose name contains 'title'", first->name});
}

// Of the rows that are shown at the start.
static void check_height(const Page &page, const Geometry &geometry, Findings &findings)
{
    std::vector<std::string> beyond;
    Place first;
    struct page_walk walk = {geometry.first_row, 0, 0};
    for (const Item &item : page.items) {
        const struct walked_row row = {static_cast<unsigned int>(geometry.line_height), item.enabled,
                                       item.name.c_str()};
        const row_place place = place_of_row(&walk, &row, 0, geometry.view_height);
        if (place != ROW_BELOW_VIEW) {
            step_past_row(&walk, &row, place, geometry.row_gap);
        } else if (item.enabled) {
            first = beyond.empty() ? item.place : first;
            beyond.push_back(in_quotes(item.name));
        }
    }
    if (!beyond.empty())
        findings.add({first, "page-too-tall",
                      page.words + " is too tall, these rows don't fit on the view: " + joined(beyond, ", "),
                      "no key reaches them; move some to a page of their own, or choose a smaller font",
                      page.named_by.name});
}

// OK enters a page of two rows or more; on anything else it only calls the action.
static void check_page(const Project &project, const Item *parent, const std::vector<Item> &items, Findings &findings)
{
    Page page{parent, items, parent ? "the page of " + in_quotes(parent->name) : "the top list",
              parent ? *parent : items.front()};
    if (items.size() == 1)
        findings.add({page.named_by.place, "single-child", page.words + " has one row",
                      parent ? "OK enters a page of two rows or more" : "the list opens on its second row",
                      page.named_by.name});
    if (parent && parent->name == UPGRADE_ITEM)
        findings.add({parent->place, "unreachable-page", "OK never enters " + page.words, "", parent->name});
    if (parent && std::none_of(items.begin(), items.end(), [](const Item &item) { return item.enabled; }))
        findings.add({page.named_by.place, "unreachable-page",
                      "no row of " + page.words + " is shown at the start, so it closes at once",
                      "show a row, or hide the row that leads to it", page.named_by.name});
    check_title(project.menu, page, findings);
    check_height(page, project.geometry, findings);
}

static void check_colours(const Menu &menu, Findings &findings)
{
    if (menu.display.pixel_format == PixelFormat::rgb565 && menu.colours.background.alpha != 255)
        findings.error({menu.path}, "RGB565 has no transparency, but the background has");
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
        check_page(project, nullptr, menu.items, findings);
    for (const Row &row : rows) {
        check_mark(row, findings);
        if (!row.item->items.empty())
            check_page(project, row.item, row.item->items, findings);
    }
    check_fixed_names(project, findings);
    check_fixed_jumps(project, findings);
}
