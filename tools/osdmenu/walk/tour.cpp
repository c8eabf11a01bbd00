#include "walk/tour.h"

#include <algorithm>
#include <cstdint>
#include <set>

#include "core/walks.h"

static constexpr int FAR = 1000000;         // presses where there is no way: more than any takes
static constexpr size_t MOST_TO_ORDER = 16; // pages whose every order is weighed

// The state before each on the shortest way from one state.
struct Ways {
    std::vector<int> presses;
    std::vector<size_t> from;
    std::vector<size_t> key;
};

static Ways ways_from(const Walk &walk, size_t start)
{
    const size_t count = walk.states.size();
    Ways ways{std::vector<int>(count, FAR), std::vector<size_t>(count), std::vector<size_t>(count)};
    std::vector<size_t> queue{start};
    ways.presses[start] = 0;
    for (size_t head = 0; head < queue.size(); head++)
        for (size_t key = 0; key < WALK_KEY_COUNT; key++) {
            size_t at = queue[head], next = walk.states[at].next[key];
            if (ways.presses[next] != FAR)
                continue;
            ways.presses[next] = ways.presses[at] + 1;
            ways.from[next] = at;
            ways.key[next] = key;
            queue.push_back(next);
        }
    return ways;
}

static std::vector<size_t> first_states_of_pages(const Walk &walk)
{
    std::vector<size_t> states;
    std::set<std::string> pages;
    for (size_t at = 0; at < walk.states.size(); at++)
        if (!walk.states[at].item.empty() && pages.insert(walk.states[at].page).second)
            states.push_back(at);
    return states;
}

using Table = std::vector<std::vector<int>>; // presses from the first page to the second

static std::vector<size_t> nearest_first(const Table &presses)
{
    std::vector<size_t> order{0}, left;
    for (size_t page = 1; page < presses.size(); page++)
        left.push_back(page);
    while (!left.empty()) {
        const std::vector<int> &from = presses[order.back()];
        auto nearest =
            std::min_element(left.begin(), left.end(), [&](size_t a, size_t b) { return from[a] < from[b]; });
        order.push_back(*nearest);
        left.erase(nearest);
    }
    return order;
}

// For each set of pages seen and each page that was the last of them: the fewest presses, and the page before it.
static std::vector<size_t> best_order(const Table &presses)
{
    const size_t pages = presses.size(), sets = size_t{1} << pages;
    static constexpr int UNKNOWN = 1000 * FAR;
    struct Step {
        int presses = UNKNOWN;
        uint8_t before = 0;
    };
    std::vector<Step> steps(sets * pages);
    steps[1 * pages].presses = 0;
    for (size_t set = 1; set < sets; set++)
        for (size_t last = 0; last < pages; last++)
            for (size_t next = 0; next < pages && steps[set * pages + last].presses < UNKNOWN; next++) {
                Step &step = steps[(set | size_t{1} << next) * pages + next];
                int sum = steps[set * pages + last].presses + presses[last][next];
                if ((set >> next & 1) == 0 && sum < step.presses)
                    step = {sum, static_cast<uint8_t>(last)};
            }
    size_t set = sets - 1, last = 0;
    for (size_t page = 1; page < pages; page++)
        if (steps[set * pages + page].presses < steps[set * pages + last].presses || last == 0)
            last = page;
    std::vector<size_t> order;
    for (; order.size() < pages; set &= ~(size_t{1} << order.back())) {
        order.push_back(last);
        last = steps[set * pages + last].before;
    }
    std::reverse(order.begin(), order.end());
    return order;
}

std::vector<size_t> shortest_tour(const Walk &walk)
{
    const std::vector<size_t> states = first_states_of_pages(walk);
    if (states.empty())
        return {};
    Table presses;
    for (size_t state : states) {
        Ways ways = ways_from(walk, state);
        std::vector<int> &row = presses.emplace_back();
        for (size_t other : states)
            row.push_back(ways.presses[other]);
    }
    const std::vector<size_t> order = states.size() <= MOST_TO_ORDER ? best_order(presses) : nearest_first(presses);
    std::vector<size_t> tour{states[order[0]]};
    for (size_t at = 1; at < order.size() && presses[order[at - 1]][order[at]] < FAR; at++)
        tour.push_back(states[order[at]]);
    return tour;
}

// A page is entered by OK on its row: the script names that row, so that it finds its way in a changed menu too.
static std::string leg(const Walk &walk, size_t from, size_t to)
{
    Ways ways = ways_from(walk, from);
    const WalkedState &before = walk.states[ways.from[to]];
    if (std::string(WALK_KEYS[ways.key[to]]) == "ok")
        return "goto " + before.item + "\nok\n";
    std::vector<std::string> keys;
    for (size_t at = to; at != from; at = ways.from[at])
        keys.push_back(WALK_KEYS[ways.key[at]]);
    std::string line;
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        line += *key + (std::next(key) == keys.rend() ? "\n" : " ");
    return line;
}

static std::string name_of_page(const std::string &page)
{
    return page.empty() ? "top" : page;
}

// The page that the camera opens at a button of its own, where it starts hidden.
static bool has_hidden_ai_mode_page()
{
    const osdmenu_item *item = item_byname("aimodeselection");
    return item && is_disabled(item) && first_row(&item->child);
}

std::string tour_script(const Walk &walk, const std::vector<std::string> &enabled)
{
    std::vector<size_t> tour = shortest_tour(walk);
    std::string script;
    int presses = 0;
    for (const std::string &item : enabled)
        script += "enable " + item + "\n";
    for (size_t at = 0; at < tour.size(); at++) {
        if (at > 0) {
            presses += ways_from(walk, tour[at - 1]).presses[tour[at]];
            script += leg(walk, tour[at - 1], tour[at]);
        }
        script += "page " + name_of_page(walk.states[tour[at]].page) + "\n";
    }
    if (has_hidden_ai_mode_page())
        script += "aimode\npage aimodeselection\n";
    return "# Every page of the menu: " + std::to_string(tour.size()) + " pages, " + std::to_string(presses) +
           " presses.\n" + script;
}
