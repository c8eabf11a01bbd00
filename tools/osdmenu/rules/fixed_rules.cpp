#include "rules/fixed_rules.h"

#include <algorithm>

#include "common/text.h"
#include "control/anchors.h"
#include "core/fixed_items.h"
#include "core/state.h"

namespace
{

struct FixedPlace {
    const char *name;
    int depth;          // where it has no parent
    const char *parent; // whose page it belongs to, or null
};

// Where UP or DOWN at an anchor goes while the item that it asks, if any, is shown or hidden.
struct Jump {
    const anchor &from;
    const char *pressed;
    bool is_shown;

    int row() const // or TO_ITEM or STAY
    {
        return anchor_row(&from, is_shown);
    }
    std::string key() const // of osd_menu.json
    {
        return anchor_key(&from, is_shown);
    }
    const char *asked() const // or null
    {
        return item_decides(&from) ? from.item : nullptr;
    }
    int depth() const // of the list that it moves in
    {
        return row() == TO_ITEM ? 0 : JUMP_LEVEL;
    }
};

// What a jump is meant to land on. One without an entry may land on any row.
struct Meaning {
    const char *anchor; // key of osd_menu.json
    bool is_shown;      // the answer of the item that it asks
    const char *item;   // key that names the item meant; null for the item that was asked
};

} // namespace

static constexpr FixedPlace fixed_places[] = {
    {INFORMATION_ITEM, 0, nullptr},
    {AI_MODE_ITEM, 0, nullptr},
    {PRESET_ITEM, MENU_LEVELS - 2, nullptr},
    {INFORMATION_BACK_ITEM, 0, INFORMATION_ITEM},
    {PERIPHERAL_BACK_ITEM, 0, PERIPHERAL_ITEM},
};

static constexpr Meaning meanings[] = {
    {"menu_first_item", true, "menu_last_item"},
    {"menu_last_item", true, "menu_first_item"},
    {"get_ip_first_item", true, "get_ip_last_item"},
    {"get_ip_last_item", true, "get_ip_first_item"},
    {"peripheralinformation_item", true, "general_last_item"},
    {"language_item", true, nullptr},
    {"language_item", false, "general_last_item"},
    {"general_last_item", true, nullptr},
    {"general_last_item", false, "language_item"},
};
static_assert(std::ranges::all_of(meanings, [](const Meaning &meaning) {
    return is_anchor_key(meaning.anchor) && (!meaning.item || is_anchor_key(meaning.item));
}));

// An item that decides nothing gives one jump alone.
static std::vector<Jump> all_jumps()
{
    std::vector<Jump> jumps;
    auto add = [&](const anchor &from, const char *pressed) {
        for (bool is_shown : {true, false})
            if (Jump jump{from, pressed, is_shown}; jump.row() != STAY && (is_shown || jump.asked()))
                jumps.push_back(jump);
    };
    for (const anchor &each : up_anchors)
        add(each, "UP");
    for (const anchor &each : down_anchors)
        add(each, "DOWN");
    return jumps;
}

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
    std::vector<FixedPlace> places(std::begin(fixed_places), std::end(fixed_places));
    for (const Jump &jump : all_jumps())
        if (jump.row() == TO_ITEM)
            places.push_back({jump.from.item, jump.depth(), nullptr});
    for (const FixedPlace &fixed : places)
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
static const Row *row_at(const std::vector<Row> &rows, const Row &anchor_place, const Jump &jump)
{
    int index = 0;
    for (const Row &row : rows) {
        bool is_asked = jump.asked() && row.item->name == jump.asked();
        bool is_shown = is_asked ? jump.is_shown : row.item->enabled || &row == &anchor_place;
        if (row.parent == anchor_place.parent && is_shown && index++ == jump.row())
            return &row;
    }
    return nullptr;
}

// Empty where the menu doesn't say.
static std::string name_meant(const Project &project, const Jump &jump)
{
    for (const Meaning &meaning : meanings)
        if (jump.key() == meaning.anchor && jump.is_shown == meaning.is_shown)
            return meaning.item ? project.configuration.text_of(meaning.item) : jump.from.item;
    return "";
}

static void check_jump(const Project &project, const Row &anchor_place, const Jump &jump, Findings &findings)
{
    // Without the row that is asked, its mark never reads as shown.
    if (jump.is_shown && jump.asked() && !row_named(project.rows, jump.asked()))
        return;
    const bool is_by_name = jump.row() == TO_ITEM;
    auto report = [&](const std::string &fault) {
        std::string to = is_by_name ? in_quotes(jump.from.item) : "row " + std::to_string(jump.row());
        findings.add({anchor_place.item->place, "fixed-jump",
                      jump.pressed + (" at " + in_quotes(anchor_place.item->name)) + " jumps to " + to + fault,
                      in_quotes(jump.key()) + " in osd_menu.json makes it jump", anchor_place.item->name});
    };
    const Row *row = is_by_name ? row_named(project.rows, jump.from.item) : row_at(project.rows, anchor_place, jump);
    std::string meant = name_meant(project, jump);
    if (anchor_place.depth != jump.depth())
        report(" of the list at depth " + std::to_string(jump.depth()) + ", but does not lie in one");
    else if (!row || row->parent != anchor_place.parent)
        report(", which is not on its page");
    else if (!meant.empty() && row->item->name != meant)
        report(" of its page, which is " + in_quotes(row->item->name) + ", not " + in_quotes(meant));
}

void check_fixed_jumps(const Project &project, Findings &findings)
{
    for (const Jump &jump : all_jumps())
        if (const Row *place = row_named(project.rows, project.configuration.text_of(jump.key())))
            check_jump(project, *place, jump, findings);
}
