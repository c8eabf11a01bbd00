#include "rules/fixed_rules.h"

#include <algorithm>

#include "common/text.h"
#include "core/fixed_items.h"

namespace
{

struct FixedPlace {
    const char *name;
    int depth;          // where it has no parent
    const char *parent; // whose page it belongs to, or null
};

// UP or DOWN at an anchor goes to a row by its name or by its number.
struct Jump {
    const char *anchor; // key of osd_menu.json
    const char *pressed;
    const char *target; // name of the row, null where it goes by number
    const char *asked;  // item whose mark decides, or null
    const char *meant;  // key that names the item meant there; null for the peripheral page itself
    int depth;          // of the list that it moves in
    int index;          // of the row, counted without hidden ones
    bool is_shown;      // the mark at which the key jumps to this row
};

} // namespace

static constexpr FixedPlace fixed_places[] = {
    {"camera", 0, nullptr},
    {"osdmirror", 0, nullptr},
    {INFORMATION_ITEM, 0, nullptr},
    {AI_MODE_ITEM, 0, nullptr},
    {PRESET_ITEM, 2, nullptr},
    {INFORMATION_BACK_ITEM, 0, INFORMATION_ITEM},
    {PERIPHERAL_BACK_ITEM, 0, PERIPHERAL_ITEM},
};

static constexpr Jump jumps[] = {
    {"menu_first_item", "UP", "osdmirror", nullptr, "menu_last_item", 0, 0, true},
    {"menu_last_item", "DOWN", "camera", nullptr, "menu_first_item", 0, 0, true},
    {"get_ip_first_item", "UP", nullptr, "ethernet_for_laptop", "get_ip_last_item", 2, 2, true},
    {"get_ip_last_item", "DOWN", nullptr, "ethernet_for_laptop", "get_ip_first_item", 2, 1, true},
    {"peripheralinformation_item", "UP", nullptr, "cec", "general_last_item", 2, 3, true},
    {"language_item", "UP", nullptr, PERIPHERAL_ITEM, nullptr, 2, 8, true},
    {"language_item", "UP", nullptr, PERIPHERAL_ITEM, "general_last_item", 2, 3, false},
    {"general_last_item", "DOWN", nullptr, PERIPHERAL_ITEM, nullptr, 2, 8, true},
    {"general_last_item", "DOWN", nullptr, PERIPHERAL_ITEM, "language_item", 2, 1, false},
};

static const Row *row_named(const std::vector<Row> &rows, const std::string &name)
{
    auto found = std::find_if(rows.begin(), rows.end(), [&](const Row &row) { return row.item->name == name; });
    return found == rows.end() ? nullptr : &*found;
}

static void check_place(const std::vector<Row> &rows, const Row &row, const FixedPlace &fixed, Findings &findings)
{
    std::string name = in_quotes(fixed.name);
    if (!fixed.parent && row.depth != fixed.depth)
        findings.add({row.item->place, "fixed-name",
                      name + " must lie at depth " + std::to_string(fixed.depth) + " (found at " +
                          std::to_string(row.depth) + ")",
                      "the top list is depth 0", fixed.name});
    if (fixed.parent && (row.parent < 0 || rows[static_cast<size_t>(row.parent)].item->name != fixed.parent))
        findings.add({row.item->place, "fixed-name", name + " belongs on the page of " + in_quotes(fixed.parent), "",
                      fixed.name});
}

// A page of things to read ends with the row from which OK leads back.
static void check_back_row(const Item &item, const FixedPlace &fixed, Findings &findings)
{
    auto is_back_row = [&](const Item &one) { return one.name == fixed.name; };
    if (!item.items.empty() && std::none_of(item.items.begin(), item.items.end(), is_back_row))
        findings.add({item.place, "fixed-name",
                      "the page of " + in_quotes(item.name) + " has no " + in_quotes(fixed.name), "", item.name});
}

// The back row is what a key can't leave, so the page must open on it.
static void check_opening(const Project &project, const Item &item, Findings &findings)
{
    auto is_back_row = [](const Item &one) { return one.name == INFORMATION_BACK_ITEM; };
    const Item *opening = item.name == INFORMATION_ITEM ? opening_item(project.menu, &item) : nullptr;
    if (opening && !is_back_row(*opening) && std::any_of(item.items.begin(), item.items.end(), is_back_row))
        findings.add({opening->place, "fixed-name",
                      "the page of " + in_quotes(item.name) + " opens on its last row, which is " +
                          in_quotes(opening->name) + ", not " + in_quotes(INFORMATION_BACK_ITEM),
                      "", item.name});
}

// osdmenu_call_information_immediate takes the count of shown items up to this one, in file order, for its row.
static void check_information(const std::vector<Row> &rows, Findings &findings)
{
    const Row *information = row_named(rows, INFORMATION_ITEM);
    if (!information || information->depth > 0)
        return;
    auto shown = std::count_if(rows.data(), information + 1, [](const Row &row) { return row.item->enabled; });
    if (shown - 1 != information->enabled_index)
        findings.add({information->item->place, "fixed-name",
                      "osdmenu_call_information_immediate goes to row " + std::to_string(shown - 1) + ", but " +
                          in_quotes(INFORMATION_ITEM) + " is row " + std::to_string(information->enabled_index),
                      "it counts shown rows, so this one must be shown when it is called", INFORMATION_ITEM});
}

void check_fixed_names(const Project &project, Findings &findings)
{
    for (const FixedPlace &fixed : fixed_places)
        for (const Row &row : project.rows) {
            if (row.item->name == fixed.name)
                check_place(project.rows, row, fixed, findings);
            if (fixed.parent && row.item->name == fixed.parent)
                check_back_row(*row.item, fixed, findings);
        }
    for (const Row &row : project.rows)
        check_opening(project, *row.item, findings);
    check_information(project.rows, findings);
}

// At the time of the jump: the anchor is shown, being the current row, and the row that was asked as the jump wants it.
static const Row *row_at(const std::vector<Row> &rows, const Row &anchor, const Jump &jump)
{
    int index = 0;
    for (const Row &row : rows) {
        bool is_asked = jump.asked && row.item->name == jump.asked;
        bool is_shown = is_asked ? jump.is_shown : row.item->enabled || &row == &anchor;
        if (row.parent == anchor.parent && is_shown && index++ == jump.index)
            return &row;
    }
    return nullptr;
}

static void check_jump(const Project &project, const Row &anchor, const Jump &jump, Findings &findings)
{
    // Without the row that is asked, its mark never reads as shown.
    if (jump.is_shown && jump.asked && !row_named(project.rows, jump.asked))
        return;
    auto report = [&](const std::string &fault) {
        std::string to = jump.target ? in_quotes(jump.target) : "row " + std::to_string(jump.index);
        findings.add({anchor.item->place, "fixed-jump",
                      jump.pressed + (" at " + in_quotes(anchor.item->name)) + " jumps to " + to + fault,
                      in_quotes(jump.anchor) + " in osd_menu.json makes it jump", anchor.item->name});
    };
    const Row *row = jump.target ? row_named(project.rows, jump.target) : row_at(project.rows, anchor, jump);
    std::string meant = jump.meant ? project.configuration.text_of(jump.meant) : PERIPHERAL_ITEM;
    if (anchor.depth != jump.depth)
        report(" of the list at depth " + std::to_string(jump.depth) + ", but does not lie in one");
    else if (!row || row->parent != anchor.parent)
        report(", which is not on its page");
    else if (!meant.empty() && row->item->name != meant)
        report(" of its page, which is " + in_quotes(row->item->name) + ", not " + in_quotes(meant));
}

void check_fixed_jumps(const Project &project, Findings &findings)
{
    for (const Jump &jump : jumps)
        if (const Row *anchor = row_named(project.rows, project.configuration.text_of(jump.anchor)))
            check_jump(project, *anchor, jump, findings);
}
