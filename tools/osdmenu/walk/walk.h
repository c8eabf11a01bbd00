// Every state that the keys can reach, found on the real library: breadth first, so that each has its fewest presses.
//
// A state is where the user stands: the page, the row, how far pages are scrolled and which rows are shown. Values are
// no part of it, or no menu would ever be walked: each row's values are walked at that row alone, and the settings are
// as they were before each press.
#pragma once

#include <array>
#include <compare>
#include <string>
#include <vector>

#include "core/state.h"

inline constexpr const char *WALK_KEYS[] = {"up", "down", "left", "right", "ok", "back"};
inline constexpr size_t WALK_KEY_COUNT = std::size(WALK_KEYS);

struct MenuState {
    int level = 0;
    std::array<unsigned char, MENU_LEVELS> rows{}; // enabled indexes; 1 below the level, where they mean nothing yet
    std::array<unsigned char, MENU_LEVELS> tops{}; // first painted rows
    int first_unseen = 0;                          // last_noview_itemnumber
    std::vector<bool> shown;                       // by item, in file order

    auto operator<=>(const MenuState &) const = default;
};

// Where the menu stands, and going back there. The second paints.
MenuState menu_state();
void return_to(const MenuState &state);

// A value of a row, as LEFT and RIGHT lead to it.
struct WalkedValue {
    int value = 0;
    int presses = 0; // of LEFT and RIGHT from the row's own value
    size_t left = 0; // index among the row's values
    size_t right = 0;
};

struct WalkedState {
    MenuState state;
    std::string page; // the item whose page is shown, empty for the top list
    std::string item; // the row that is chosen, empty when there is none
    int presses = 0;
    size_t from = 0;                           // the state before, itself for the first one
    size_t key = 0;                            // that was pressed there
    std::array<size_t, WALK_KEY_COUNT> next{}; // the state that each of WALK_KEYS leads to
    std::vector<WalkedValue> values;           // the first is the row's own; none where the row has no value
};

struct Walk {
    std::vector<WalkedState> states; // by presses; the first is where the walk began
    size_t pressed = 0;              // states whose keys were tried; the others lead nowhere yet
    bool is_whole = true;            // false when the menu has more states or values than anyone can walk
};

// From where the menu stands, where it stands again afterwards.
Walk walk_menu();

// The keys that lead from the first state to this one.
std::vector<std::string> keys_to(const Walk &walk, size_t state);

// The fewest keys from where the menu stands to a row. A Failure when no key leads there.
std::vector<std::string> keys_to_item(const std::string &item);
