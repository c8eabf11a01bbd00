#include "walk/walk_rules.h"

#include <algorithm>
#include <set>

#include "common/text.h"
#include "core/fixed_items.h"
#include "core/walks.h"
#include "host/host.h"
#include "host/places.h"

// Titles and rows that are there to be read are not to be chosen, and for one the camera has a button.
static bool is_to_be_chosen(const osdmenu_item *row)
{
    return !is_disabled(row) && !is_title(row->name) && !is_named(row->name, AI_MODE_ITEM) &&
           !host.menu.manifest.only_read.contains(row->name);
}

static bool has_other_row(const list_head *page, const std::string &item)
{
    for (const osdmenu_item *row = first_row(page); row; row = row_below(row, page))
        if (item != row->name && is_to_be_chosen(row))
            return true;
    return false;
}

static void add(Findings &findings, const char *rule, const std::string &text, const std::string &subject)
{
    Finding finding;
    finding.place.file = host.menu.directory_of(host.language) + RESOURCE_FILES[0]; // which holds the rows
    finding.rule = rule;
    finding.text = text;
    finding.subject = subject;
    findings.add(std::move(finding));
}

static void find_rows(const list_head *page, const std::set<std::string> &reached, Findings &findings)
{
    for (const osdmenu_item *row = first_row(page); row; row = row_below(row, page)) {
        if (reached.contains(row->name))
            find_rows(&row->child, reached, findings);
        else if (is_to_be_chosen(row)) // and none below it
            add(findings, "unreachable-row", "no key reaches " + in_quotes(row->name), row->name);
    }
}

static bool is_left_by_no_key(const Walk &walk, size_t at)
{
    const WalkedState &state = walk.states[at];
    // The last key is the step back, which leaves every page.
    return std::all_of(state.next.begin(), state.next.end() - 1, [&](size_t next) { return next == at; });
}

static void find_dead_ends(const Walk &walk, Findings &findings)
{
    for (size_t at = 0; at < walk.pressed; at++) {
        const WalkedState &state = walk.states[at];
        if (state.item.empty() || !is_left_by_no_key(walk, at) || !has_other_row(rows_on(state.page), state.item))
            continue;
        std::string text = "no key leads from " + in_quotes(state.item);
        text += state.page.empty() ? " to another row of the top list"
                                   : " to another row of the page " + in_quotes(state.page);
        add(findings, "dead-end", text, state.item);
    }
}

// Only the top list can be without one: a page gives way to the page above it. The first place tells it for all.
static void find_list_without_row(const Walk &walk, Findings &findings)
{
    auto lost =
        std::find_if(walk.states.begin(), walk.states.end(), [](const auto &state) { return state.item.empty(); });
    if (lost == walk.states.end())
        return;
    std::string keys = joined(keys_to(walk, static_cast<size_t>(lost - walk.states.begin())), " ");
    add(findings, "dead-end", "the top list has no row chosen" + (keys.empty() ? "" : " after " + keys), "");
}

Findings findings_of(const Walk &walk)
{
    Findings findings;
    std::set<std::string> reached;
    for (const WalkedState &state : walk.states)
        reached.insert(state.item);
    if (walk.pressed == walk.states.size())
        find_rows(&orderized_osdmenu.siblings, reached, findings);
    find_dead_ends(walk, findings);
    find_list_without_row(walk, findings);
    findings.settle(host.menu.manifest.check);
    return findings;
}
