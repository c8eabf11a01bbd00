// The tool as a host of the library, like the firmware of a camera: start-up, settings behind the items' actions,
// keys, languages and paints. A process has one menu and so one host.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "host/settings.h"
#include "render/image.h"
#include "store/menu_directory.h"

// A call that the library made to an item's action.
struct HostCall {
    std::string item;
    int operation; // ACTION_OP_...
    int value;     // given with ACTION_OP_SET, answered to ACTION_OP_GET
};

struct Host {
    MenuDirectory menu;
    std::string language;                    // that is loaded
    std::vector<std::string> items, bubbles; // names of what is loaded, in file order
    Settings settings;
    std::string settings_path;     // where save_config_to_flash saves; empty keeps them in memory alone
    bool follows_language = false; // a change of the row "language" loads that language
    int row_below_ai_mode = -1;    // of the top list, chosen when that page was opened; -1 where it is not open
    std::deque<HostCall> calls;    // the latest at the end
    std::string notice;            // what the person should hear: taken and cleared by whoever shows it
};
extern Host host;

// Starts the library as any host does. A Failure tells what is wrong with the directory.
void start_host(const MenuDirectory &menu, const std::string &language);

// The eight files of a directory in the order that matters: items before their tree, and lines last.
void load_resources(const std::string &directory);

// Loads another language under the lock and stays at the same row. False, with a notice, when it can't be loaded.
bool change_language(const std::string &language);

// Fills the background and draws.
void repaint();

// up, down, left, right, ok; back goes one level up, menu to the top list. False for any other name.
// The library acts on what the last draw found: a repaint belongs after each.
bool press(const std::string &key);
std::string key_names(); // with blanks between

// As the firmware shows and hides rows. A Failure when there is no item of that name.
void show_row(const std::string &item, bool shown);

// The page of AI modes, which stands in the top list, with modes below its title.
bool has_ai_mode_page();

// What a camera does at buttons of its own. A Failure when the menu has no page for the first.
void open_ai_mode();
void open_information();

// The whole view buffer, as the last paint left it.
PixelView painted_view();

// Paints a bubble into the view buffer in place of the page. It stands there until the next paint; a Failure when there
// is none of that name.
PixelView paint_bubble(const std::string &name);
