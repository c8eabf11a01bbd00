#include "host/host.h"

#include <algorithm>
#include <map>

#include "core/layout.h"
#include "core/state.h"
#include "core/walks.h"
#include "host_settings.h"
#include "lib_dbgout.h"
#include "osd_menu_post.h"

// What the menu's rows stand for, by item name. It begins with what the resource files carry.
static std::map<std::string, int> settings;

// Also before anything was stored: the library may ask at any time.
static int setting(const char *name, int fallback)
{
    auto found = settings.find(name);
    return found == settings.end() ? fallback : found->second;
}

// The library's default layer answers these; a host that keeps settings answers from them.
int get_sc_smartgallery_preset(void)
{
    return setting("smartgallery_preset", 0);
}

int get_sc_trackingmode(void)
{
    return setting("trackingmode", 0);
}

// What the resource file carries is the factory setting.
static int value_of(const osdmenu_item *item)
{
    switch (item->item_values.type) {
    case VALUE_NUMBER:
        return item->item_values.u.number.current;
    case VALUE_PERCENTAGE:
        return item->item_values.u.percentage.current;
    default:
        return item->item_values.current;
    }
}

static int choice_count(const osdmenu_item *item)
{
    int count = 0;
    for (auto *choice = first_choice(&item->item_values); choice; choice = choice_after(choice, &item->item_values))
        count++;
    return count;
}

// A step past the last choice comes as a bare index: the list goes round.
static int within_limits(const osdmenu_item *item, int value)
{
    if (item->item_values.type == VALUE_TXT) {
        int count = std::max(1, choice_count(item));
        return (value % count + count) % count;
    }
    const osdmenu_item_value_number &number = item->item_values.u.number;
    return std::min(std::max(value, number.lowlimit), number.highlimit);
}

// Runs with the menu's lock held when it comes from a key or a draw.
static int settings_action(osdmenu_item *item, int operation, int value)
{
    std::string name = item->name;
    switch (operation) {
    case ACTION_OP_INIT:
        settings[name] = value_of(item);
        return 0;
    case ACTION_OP_GET:
        return settings[name];
    case ACTION_OP_SET:
        settings[name] = within_limits(item, value);
        return 0;
    case ACTION_OP_ENTER:
        // Rows that stand for the way back do what their words say.
        if (name.ends_with("menuback"))
            osdmenu_action_menuback();
        return 0;
    }
    return 0;
}

// The order matters: items before their tree, and lines last.
static void load(const std::string &directory)
{
    read2mem_menuitem_commonchar(directory.c_str());
    read2mem_menuitem_utf16symbol(directory.c_str());
    read2mem_all_menuitems(directory.c_str());
    orderize_all_menuitems();
    read2mem_helpline(directory.c_str());
    read2mem_bubbleline(directory.c_str());
}

// The last part of the directory.
static std::string language_of(const std::string &directory)
{
    std::string path = directory.substr(0, directory.size() - 1);
    return path.substr(path.rfind('/') + 1);
}

// The row "language", if the menu has it, shows the language that is loaded: its choices stand in the menu's order.
static void set_language(const std::string &language, const std::vector<std::string> &languages)
{
    auto found = std::find(languages.begin(), languages.end(), language);
    if (found != languages.end())
        settings["language"] = static_cast<int>(found - languages.begin());
}

// Value columns are looked up by the directory on the device, which is not the one that was loaded here.
static void pretend_device_directory(const std::string &language, const std::string &device_directory)
{
    if (device_directory.empty())
        return;
    std::string path = device_directory + language + "/";
    std::memset(language_string, 0, sizeof language_string);
    path.copy(language_string, sizeof language_string);
}

void start_library(const std::string &directory, const Manifest &manifest, const Resources &resources)
{
    // The library may say all it has: its streams lead to the trace file or nowhere.
    static constexpr int TRACE_STEPS = 7;
    dbgout_profile.lib_level = TRACE_STEPS;
    dbgout_profile.para_level = TRACE_STEPS;
    const Display &display = manifest.display;
    osdmenu_fontsize_init2(display.font_size, display.burst);
    osdmenu_viewbuffer_malloc(display.width ? display.width : osdmenu_viewarea_width,
                              display.height ? display.height : osdmenu_viewarea_height);
    load(directory);
    pretend_device_directory(language_of(directory), manifest.device_directory);
    for (const ReadItem &item : resources.items)
        osdmenu_register_action_byname(item.name.c_str(), settings_action, 1);
    for (const auto &[name, text] : manifest.free_texts)
        osdmenu_action_setnewtxtvalue2menuitem_byname(name.c_str(), text.c_str());
    set_language(language_of(directory), manifest.languages);
    set_kz73_name(manifest.accessory.c_str());
    osdmenu_current_view_position_reset();
}

// As every host: the background is its own to fill before each draw.
void repaint()
{
    osdmenu_viewbuffer_fill_background();
    osdmenu_draw_allitems();
}

// The step back takes no lock of its own, unlike the keys.
static int go_back()
{
    osdmenu_Mutex_Lock(__func__);
    osdmenu_action_menuback();
    osdmenu_Mutex_Unlock(__func__);
    return 0;
}

bool press(const std::string &key)
{
    static const std::map<std::string, int (*)()> keys = {
        {"up", osdmenu_action_up},
        {"down", osdmenu_action_down},
        {"left", osdmenu_action_left},
        {"right", osdmenu_action_right},
        {"ok", osdmenu_action_ok},
        {"back", go_back},
        {"menu", osdmenu_current_view_position_reset},
    };
    auto found = keys.find(key);
    if (found == keys.end())
        return false;
    found->second();
    return true;
}

// The enabled indexes that lead to an item; false when it is not there or not shown.
static bool find_path(const list_head *page, const std::string &name, std::vector<int> &path)
{
    int enabled = 0;
    for (osdmenu_item *row = first_row(page); row; row = row_below(row, page)) {
        if (is_disabled(row))
            continue;
        path.push_back(enabled++);
        if (name == row->name || find_path(&row->child, name, path))
            return true;
        path.pop_back();
    }
    return false;
}

// Levels are entered one by one, so that each keeps its row for the way back.
static bool choose(const std::string &name)
{
    std::vector<int> path;
    if (!find_path(&orderized_osdmenu.siblings, name, path))
        return false;
    osdmenu_current_view_position_reset();
    for (size_t level = 0; level < path.size(); level++) {
        set_current_view_position(static_cast<int>(level), path[level]);
        if (level > 0)
            osdmenu_submenu_entry();
    }
    return true;
}

// OK acts on the item that the last draw found, hence the repaint between the two.
bool open_item(const std::string &name)
{
    if (!choose(name))
        return false;
    if (name == "aimodeselection") {
        osdmenu_enter_aimodeselection();
        return true;
    }
    repaint();
    return press("ok");
}
