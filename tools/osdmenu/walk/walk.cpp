#include "walk/walk.h"

#include <algorithm>
#include <map>
#include <utility>

#include "common/text.h"
#include "core/walks.h"
#include "host/host.h"
#include "host/places.h"
#include "osd_menu_post.h"

// More states than any menu for people has, and more values than anyone steps through.
static constexpr size_t MAX_STATES = 20000, MAX_VALUES = 4000;

static std::vector<bool> rows_shown()
{
    std::vector<bool> shown;
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item))
        shown.push_back(!is_disabled(item));
    return shown;
}

MenuState menu_state()
{
    MenuState state;
    state.level = osdmenu_current_viewlevel;
    for (int level = 0; level < MENU_LEVELS; level++) {
        auto at = static_cast<size_t>(level);
        state.rows[at] = level <= state.level ? current_view_position.levels[level] : 1;
        state.tops[at] = osdmenu_viewarea_topitem_number.levels[level];
    }
    state.first_unseen = last_noview_itemnumber;
    state.shown = rows_shown();
    return state;
}

// Only what changed is marked anew: a mark from the file may be more than shown or hidden.
static void show_rows(const std::vector<bool> &shown)
{
    size_t index = 0;
    for (osdmenu_item *item = first_loaded(); item; item = loaded_after(item), index++)
        if (shown[index] == is_disabled(item))
            mark_of(item) = shown[index] ? ITEM_MARK_ENABLED : ITEM_MARK_DISABLED;
}

// The draw finds the current item and the counts on which the next key acts.
static void stand_at(const MenuState &state)
{
    osdmenu_current_viewlevel = state.level;
    std::copy(state.rows.begin(), state.rows.end(), current_view_position.levels);
    std::copy(state.tops.begin(), state.tops.end(), osdmenu_viewarea_topitem_number.levels);
    last_noview_itemnumber = state.first_unseen;
    show_rows(state.shown);
    osdmenu_draw_allitems();
}

void return_to(const MenuState &state)
{
    stand_at(state);
    repaint();
}

namespace
{

struct Walker {
    const std::string *wanted; // item at which the walk ends, null to walk all and the values too
    Settings settings;         // as they are before each press
    int row_below_ai_mode;     // as well
    Walk walk = {};
    std::map<MenuState, size_t> index_of = {};

    bool is_done() const
    {
        return wanted && !walk.states.empty() && walk.states.back().item == *wanted;
    }
};

} // namespace

// A host's answer and the item's own value, as they are after a draw that showed it.
static void set_value(const std::string &item, int value)
{
    host.settings.values[item] = value;
    osdmenu_action_ext_change_value_byname(item.c_str(), value);
}

// Beyond the most values the key counts as one that does nothing, and the walk is not whole.
static size_t index_of_value(Walker &walker, std::vector<WalkedValue> &values, size_t from, int value)
{
    auto found = std::find_if(values.begin(), values.end(), [&](const WalkedValue &one) { return one.value == value; });
    if (found != values.end())
        return static_cast<size_t>(found - values.begin());
    if (values.size() == MAX_VALUES) {
        walker.walk.is_whole = false;
        return from;
    }
    values.push_back({value, values[from].presses + 1});
    return values.size() - 1;
}

static void walk_values(Walker &walker, WalkedState &state)
{
    const osdmenu_item *item = osdmenu_current_menuitem;
    if (!item || item->item_values.type == VALUE_NONE || item->item_values.type == VALUE_RAWTXT)
        return;
    state.values.push_back({host.settings.values[state.item]});
    auto after = [&](size_t from, const char *key) {
        set_value(state.item, state.values[from].value);
        press(key);
        return index_of_value(walker, state.values, from, host.settings.values[state.item]);
    };
    for (size_t at = 0; at < state.values.size(); at++) { // the list grows
        const size_t left = after(at, "left"), right = after(at, "right");
        state.values[at].left = left;
        state.values[at].right = right;
    }
    host.settings = walker.settings;
    set_value(state.item, state.values[0].value);
}

// The state that a key has led to; a new one is walked later in its turn.
static size_t arrive(Walker &walker, size_t from, size_t key)
{
    std::vector<WalkedState> &states = walker.walk.states;
    auto [found, is_new] = walker.index_of.try_emplace(menu_state(), states.size());
    if (!is_new)
        return found->second;
    WalkedState state;
    state.state = found->first;
    state.item = osdmenu_current_menuitem ? osdmenu_current_menuitem->name : "";
    state.page = page_of(osdmenu_current_menuitem);
    state.presses = states.empty() ? 0 : states[from].presses + 1;
    state.from = from;
    state.key = key;
    state.next.fill(found->second);
    if (!walker.wanted)
        walk_values(walker, state);
    states.push_back(std::move(state));
    return found->second;
}

static void press_every_key(Walker &walker, size_t at)
{
    for (size_t key = 0; key < WALK_KEY_COUNT && !walker.is_done(); key++) {
        stand_at(walker.walk.states[at].state);
        press(WALK_KEYS[key]);
        host.settings = walker.settings;
        host.row_below_ai_mode = walker.row_below_ai_mode;
        osdmenu_draw_allitems();
        size_t next = arrive(walker, at, key);
        walker.walk.states[at].next[key] = next;
    }
}

// Trying is not doing: nothing is saved and no language loaded meanwhile.
static Walk explore(const std::string *wanted)
{
    const std::string settings_path = std::exchange(host.settings_path, "");
    const bool follows_language = std::exchange(host.follows_language, false);
    Walker walker{wanted, host.settings, host.row_below_ai_mode};
    osdmenu_draw_allitems();
    const MenuState start = menu_state();
    arrive(walker, 0, 0);
    size_t at = 0;
    for (; at < walker.walk.states.size() && walker.walk.states.size() < MAX_STATES && !walker.is_done(); at++)
        press_every_key(walker, at);
    walker.walk.pressed = at;
    walker.walk.is_whole = walker.walk.is_whole && at == walker.walk.states.size();
    return_to(start);
    host.settings_path = settings_path;
    host.follows_language = follows_language;
    return std::move(walker.walk);
}

Walk walk_menu()
{
    return explore(nullptr);
}

std::vector<std::string> keys_to(const Walk &walk, size_t state)
{
    std::vector<std::string> keys;
    for (; walk.states[state].from != state; state = walk.states[state].from)
        keys.push_back(WALK_KEYS[walk.states[state].key]);
    std::reverse(keys.begin(), keys.end());
    return keys;
}

std::vector<std::string> keys_to_item(const std::string &item)
{
    Walk walk = explore(&item);
    if (walk.states.back().item != item)
        throw Failure("no key leads to " + in_quotes(item));
    return keys_to(walk, walk.states.size() - 1);
}
