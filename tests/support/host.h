// A host for the tests: its functions, an action that records its calls, and shorthands for what every host does.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/state.h"
#include "lib_dbgout.h"
#include "osd_menu_post.h"
#include "support/resources.h"

// What the host's functions answer, and which of them were called.
extern int gallery_preset;
extern int tracking_mode;
extern std::vector<std::string> host_calls;

// What came out of the levelled channel, each line with its level in front: "7:[lib f +12  ]text".
extern std::vector<std::string> traces;
void set_trace_level(int lib_level);
int traced(const std::string &part); // how many of them contain it

// An action that records ("name", operation, value) and answers ACTION_OP_GET from `settings`.
struct Call {
    std::string name;
    int operation;
    int value;
    bool operator==(const Call &) const = default;
};
extern std::vector<Call> calls;
extern std::map<std::string, int> settings;
int recording_action(osdmenu_item *item, int operation, int value);

// Writes the items, loads and orders them, and gives every item with a value the recording action.
void load_menu(const ResourceDirectory &directory, const std::vector<Item> &items);

// A view of that size, with glyphs of 4 rows by 8 bytes and four symbols of 2 rows by 4 bytes, filled 0xA0 to 0xA3.
void prepare_view(const ResourceDirectory &directory, int width, int height);

// Fills the background and draws, with the direct lines thrown away.
void redraw();

// Presses keys by name, with a redraw behind each: "down ok".
void press(const std::string &keys);

// A byte of the view buffer, by the pixel it belongs to (its left byte).
int byte_at(int x, int y);

// The names of a page's rows in display order, "A B C"; of the top list for null.
std::string rows_of(const osdmenu_item *item = nullptr);
osdmenu_item *loaded(const std::string &name);

struct Output {
    std::string out;
    std::string err;
};
Output output_of(const std::function<void()> &work);
int lines_with(const std::string &text, const std::string &part);
