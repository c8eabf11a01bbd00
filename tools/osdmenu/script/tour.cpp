#include "script/tour.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <map>
#include <set>

#include "common/text.h"
#include "core/fixed_items.h"
#include "host/host.h"
#include "host/places.h"
#include "script/script.h"

using Keys = std::vector<size_t>; // indexes of WALK_KEYS

// A bit for each page, in each state that shows it. A top list without a chosen row counts as no page.
static std::vector<size_t> bits_of_pages(const Walk &walk)
{
    std::map<std::string, size_t> number_of;
    std::vector<size_t> bits;
    for (const WalkedState &state : walk.states) {
        size_t number = number_of.try_emplace(state.page, number_of.size()).first->second;
        bits.push_back(state.item.empty() ? 0 : size_t{1} << number);
    }
    return bits;
}

static size_t key_between(const Walk &walk, size_t from, size_t to)
{
    const auto &next = walk.states[from].next;
    return static_cast<size_t>(std::find(next.begin(), next.end(), to) - next.begin());
}

// Breadth first over pairs of a place and the pages seen on the way there: the first pair that has seen all of them is
// at the end of a shortest way. Where a trap lets nobody see all, the first of those that have seen most.
static Keys shortest_way(const Walk &walk, size_t pages)
{
    static constexpr uint32_t NEW = std::numeric_limits<uint32_t>::max();
    const size_t places = walk.states.size(), all = (size_t{1} << pages) - 1;
    const std::vector<size_t> bits = bits_of_pages(walk);
    std::vector<uint32_t> before(places << pages, NEW), queue;
    auto come_to = [&](size_t place, size_t seen, size_t from) {
        size_t pair = (seen | bits[place]) * places + place;
        if (before[pair] != NEW)
            return;
        before[pair] = static_cast<uint32_t>(queue.empty() ? pair : from);
        queue.push_back(static_cast<uint32_t>(pair));
    };
    come_to(0, 0, 0);
    size_t best = queue[0];
    for (size_t head = 0; head < queue.size() && best / places != all; head++) {
        size_t pair = queue[head];
        if (std::popcount(pair / places) > std::popcount(best / places))
            best = pair;
        for (size_t next : walk.states[pair % places].next)
            come_to(next, pair / places, pair);
    }
    Keys keys;
    for (; before[best] != best; best = before[best])
        keys.push_back(key_between(walk, before[best] % places, best % places));
    std::reverse(keys.begin(), keys.end());
    return keys;
}

// The keys to the nearest state that shows another page than these; none where nothing leads to one.
static Keys way_to_new_page(const Walk &walk, size_t start, const std::set<std::string> &seen)
{
    std::map<size_t, size_t> before{{start, start}};
    std::vector<size_t> queue{start};
    for (size_t head = 0; head < queue.size(); head++) {
        size_t at = queue[head];
        if (!walk.states[at].item.empty() && !seen.contains(walk.states[at].page)) {
            Keys keys;
            for (; at != start; at = before[at])
                keys.push_back(key_between(walk, before[at], at));
            std::reverse(keys.begin(), keys.end());
            return keys;
        }
        for (size_t next : walk.states[at].next)
            if (before.try_emplace(next, at).second)
                queue.push_back(next);
    }
    return {};
}

static Keys nearest_page_first(const Walk &walk)
{
    Keys keys;
    std::set<std::string> seen{walk.states[0].page};
    size_t at = 0;
    for (Keys way = way_to_new_page(walk, at, seen); !way.empty(); way = way_to_new_page(walk, at, seen)) {
        for (size_t key : way)
            at = walk.states[at].next[key];
        seen.insert(walk.states[at].page);
        keys.insert(keys.end(), way.begin(), way.end());
    }
    return keys;
}

static Keys way_through_all_pages(const Walk &walk)
{
    static constexpr size_t MOST_PAGES = 20, MOST_PAIRS = size_t{1} << 24;
    std::set<std::string> pages;
    for (const WalkedState &state : walk.states)
        pages.insert(state.page);
    bool is_small = pages.size() <= MOST_PAGES && walk.states.size() << pages.size() <= MOST_PAIRS;
    return is_small ? shortest_way(walk, pages.size()) : nearest_page_first(walk);
}

namespace
{

struct Tour {
    const Walk &walk;
    std::string script = {};
    size_t at = 0;  // where it stands
    Keys keys = {}; // since the last picture
    std::set<std::string> pages = {}, names = {};
};

} // namespace

// A page is entered by OK on its row: the script names that row, so that it finds its way in a changed menu too.
static std::string leg(const Tour &tour, const std::string &row_before)
{
    if (tour.keys.empty())
        return "";
    if (std::string(WALK_KEYS[tour.keys.back()]) == "ok")
        return "goto " + script_word(row_before) + "\nok\n";
    std::vector<std::string> names;
    for (size_t key : tour.keys)
        names.push_back(WALK_KEYS[key]);
    return joined(names, " ") + "\n";
}

// Any name of an item makes a name for a file, and each another one.
static std::string picture_name(Tour &tour, const std::string &page)
{
    std::string name = page.empty() ? "top" : page;
    std::replace(name.begin(), name.end(), '/', '_');
    if (name[0] == '.')
        name[0] = '_';
    while (!tour.names.insert(name).second)
        name += "_";
    return name;
}

static void take_page(Tour &tour, const std::string &page)
{
    tour.pages.insert(page);
    tour.script += "page " + script_word(picture_name(tour, page)) + "\n";
}

static void look(Tour &tour, const std::string &row_before)
{
    const WalkedState &state = tour.walk.states[tour.at];
    if (state.item.empty() || tour.pages.contains(state.page))
        return;
    tour.script += leg(tour, row_before);
    tour.keys.clear();
    take_page(tour, state.page);
}

std::string tour_script(const Walk &walk, const std::vector<std::string> &enabled)
{
    Tour tour{walk};
    const Keys keys = way_through_all_pages(walk);
    for (const std::string &item : enabled)
        tour.script += "enable " + script_word(item) + "\n";
    look(tour, "");
    for (size_t key : keys) {
        const std::string row = walk.states[tour.at].item;
        tour.at = walk.states[tour.at].next[key];
        tour.keys.push_back(key);
        look(tour, row);
    }
    // The camera opens this page at a button of its own.
    if (!tour.pages.contains(AI_MODE_ITEM) && has_ai_mode_page()) {
        tour.script += "aimode\n";
        take_page(tour, AI_MODE_ITEM);
    }
    return "# Every page of the menu: " + counted(tour.pages.size(), "page") + ", " + counted(keys.size(), "press") +
           ".\n" + tour.script;
}
