#include "host/host.h"

#include <algorithm>
#include <cstring>

#include "common/text.h"
#include "control/position.h"
#include "core/fixed_items.h"
#include "core/item_value.h"
#include "core/layout.h"
#include "core/state.h"
#include "core/walks.h"
#include "host/places.h"
#include "host/values.h"
#include "host_settings.h"
#include "menu/geometry.h"
#include "osd_menu_post.h"

Host host;

static constexpr size_t CALLS_KEPT = 1024;

// Also before anything was stored: the library may ask at any time.
static int setting(const char *name)
{
    auto found = host.settings.values.find(name);
    return found == host.settings.values.end() ? 0 : found->second;
}

// Settings may come from another edition of the menu, or from an editor.
int get_sc_smartgallery_preset(void)
{
    return std::clamp(setting(PRESET_ITEM), 0, std::max(0, preset_of_row(count_on_page(PRESET_ITEM) - 1)));
}

int get_sc_trackingmode(void)
{
    return std::clamp(setting("trackingmode"), 0, mirrored_mode(sc_trackingmode_max, FIRST_ROW));
}

// The library calls this with its lock held, and knows no exceptions.
int save_config_to_flash(void)
{
    if (host.settings_path.empty())
        return 0;
    try {
        write_settings(host.settings_path, host.settings);
        return 0;
    } catch (const std::exception &e) {
        host.notice = e.what();
        return -1;
    }
}

// The page is gone with its row: the user is back at the row from before. Called with the lock held.
int set_aimode_show(int)
{
    if (host.row_below_ai_mode >= 0)
        set_current_view_position(0, host.row_below_ai_mode);
    host.row_below_ai_mode = -1;
    return 0;
}

// A step past the last choice comes as a bare index: the list goes round.
static int within_limits(const osdmenu_item *item, int value)
{
    if (item->item_values.type == VALUE_TXT) {
        int count = std::max(1, choice_count(item));
        return (value % count + count) % count;
    }
    if (!is_number(item->item_values.type))
        return value;
    const osdmenu_item_value_number &number = item->item_values.u.number;
    return std::min(std::max(value, number.lowlimit), number.highlimit);
}

// OK on a row that stands for something the camera does.
static void enter(const osdmenu_item *item)
{
    if (int row = index_on_page(PRESET_ITEM, item); row > 0)
        host.settings.values[PRESET_ITEM] = preset_of_row(row);
    if (int row = index_on_page(AI_MODE_ITEM, item); row > 0) {
        host.settings.values["trackingmode"] = mirrored_mode(sc_trackingmode_max, row);
        osdmenu_action_menuback();
    }
    // Rows that stand for the way back do what their words say.
    if (std::string(item->name).ends_with("menuback"))
        osdmenu_action_menuback();
}

static bool load_language(const std::string &language);

static void set(const std::string &item, int value)
{
    host.settings.values[item] = value;
    const std::vector<std::string> &languages = host.menu.manifest.languages;
    if (host.follows_language && item == "language" && static_cast<size_t>(value) < languages.size())
        load_language(languages[static_cast<size_t>(value)]);
}

static void remember(const osdmenu_item *item, int value)
{
    host.settings.values[item->name] = within_limits(item, value);
}

static int answer(osdmenu_item *item, int operation, int value)
{
    std::string name = item->name;
    switch (operation) {
    // What the resource file carries is the factory setting; what is remembered may come from another edition of it.
    case ACTION_OP_INIT:
        remember(item, host.settings.values.try_emplace(name, current_value(item)).first->second);
        return 0;
    case ACTION_OP_GET:
        return host.settings.values[name];
    case ACTION_OP_SET:
        set(name, within_limits(item, value)); // the item may be gone after it
        return 0;
    case ACTION_OP_ENTER:
        enter(item);
        return 0;
    }
    return 0;
}

// Runs with the menu's lock held when it comes from a key or a draw.
static int settings_action(osdmenu_item *item, int operation, int value) noexcept
{
    std::string name = item->name;
    int result = answer(item, operation, value);
    host.calls.push_back({name, operation, operation == ACTION_OP_GET ? result : value});
    if (host.calls.size() > CALLS_KEPT)
        host.calls.pop_front();
    return result;
}

void load_resources(const std::string &directory)
{
    read2mem_menuitem_commonchar(directory.c_str());
    read2mem_menuitem_utf16symbol(directory.c_str());
    read2mem_all_menuitems(directory.c_str());
    orderize_all_menuitems();
    read2mem_helpline(directory.c_str());
    read2mem_bubbleline(directory.c_str());
}

// The row "language", if the menu has it, shows the language that is loaded: its choices stand in the menu's order.
static void show_language(const std::string &language)
{
    const std::vector<std::string> &languages = host.menu.manifest.languages;
    auto found = std::find(languages.begin(), languages.end(), language);
    if (found != languages.end())
        host.settings.values["language"] = static_cast<int>(found - languages.begin());
}

// Value columns are looked up by the directory on the device, which is not the one that was loaded here.
static void pretend_device_directory(const std::string &language)
{
    const std::string &device_directory = host.menu.manifest.device_directory;
    if (device_directory.empty())
        return;
    std::string path = device_directory + language + "/";
    std::memset(language_string, 0, sizeof language_string);
    path.copy(language_string, sizeof language_string);
}

// Items come from their files without actions and run-time texts. A text shows its row, which is the firmware's to say.
static void equip_items()
{
    const auto marks = row_marks();
    for (const std::string &item : host.items)
        osdmenu_register_action_byname(item.c_str(), settings_action, 1);
    for (const auto &[name, text] : host.menu.manifest.free_texts) {
        auto remembered = host.settings.texts.find(name);
        const std::string &shown = remembered == host.settings.texts.end() ? text : remembered->second;
        osdmenu_action_setnewtxtvalue2menuitem_byname(name.c_str(), shown.c_str());
    }
    restore_row_marks(marks);
}

static void take_names(const Resources &resources)
{
    host.items.clear();
    for (const ReadItem &item : resources.items)
        host.items.push_back(item.name);
    host.bubbles.clear();
    for (const ReadLine &line : resources.bubbles)
        host.bubbles.push_back(line.name);
}

static void load_sound(const std::string &language, const Resources &resources)
{
    take_names(resources);
    load_resources(host.menu.directory_of(language));
    pretend_device_directory(language);
    host.language = language;
    show_language(language);
    equip_items();
}

void start_host(const MenuDirectory &menu, const std::string &language)
{
    host.menu = menu;
    Resources resources = sound_resources(menu.directory_of(language));
    const Display &display = menu.manifest.display;
    osdmenu_fontsize_init2(display.font_size, display.burst);
    const Geometry geometry = geometry_of(display);
    osdmenu_viewbuffer_malloc(geometry.view_width, geometry.view_height);
    if (!osdmenu_viewbuffer)
        throw Failure("no memory for the view");
    load_sound(language, resources);
    set_kz73_name(menu.manifest.accessory.c_str());
    osdmenu_current_view_position_reset();
}

// Called with the lock held, and by the library from an action: no exception may leave it.
static bool load_language(const std::string &language)
{
    try {
        Resources resources = sound_resources(host.menu.directory_of(language));
        // The firmware shows and hides rows by its own state, which a change of language leaves as it is.
        const auto marks = row_marks();
        free_all_menuitems();
        load_sound(language, resources);
        restore_row_marks(marks);
        return true;
    } catch (const std::exception &e) {
        host.notice = e.what();
        show_language(host.language);
        return false;
    }
}

bool change_language(const std::string &language)
{
    osdmenu_Mutex_Lock(__func__);
    bool is_loaded = load_language(language);
    osdmenu_Mutex_Unlock(__func__);
    return is_loaded;
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

namespace
{

constexpr struct PressedKey {
    const char *name;
    int (*press)();
} keys[] = {
    {"up", osdmenu_action_up},
    {"down", osdmenu_action_down},
    {"left", osdmenu_action_left},
    {"right", osdmenu_action_right},
    {"ok", osdmenu_action_ok},
    {"back", go_back},
    {"menu", osdmenu_current_view_position_reset},
};

} // namespace

bool press(const std::string &key)
{
    for (const PressedKey &each : keys)
        if (key == each.name) {
            each.press();
            return true;
        }
    return false;
}

std::string key_names()
{
    std::vector<std::string> names;
    for (const PressedKey &key : keys)
        names.push_back(key.name);
    return joined(names, " ");
}

// A name that isn't there would be passed over in silence.
void show_row(const std::string &item, bool shown)
{
    if (std::find(host.items.begin(), host.items.end(), item) == host.items.end())
        throw Failure("no item " + in_quotes(item));
    if (shown)
        osdmenu_enableitem_byname(item.c_str());
    else
        osdmenu_disableitem_byname(item.c_str());
}

bool has_ai_mode_page()
{
    return path_to(item_byname(AI_MODE_ITEM)).size() == 1 && count_on_page(AI_MODE_ITEM) > 1;
}

// A camera shows the page at a button of its remote control, and hides it again when it is left. Its modes are the rows
// below the title.
void open_ai_mode()
{
    if (!has_ai_mode_page())
        throw Failure(std::string("the menu has no page of AI modes, ").append(in_quotes(AI_MODE_ITEM)));
    osdmenu_Mutex_Lock(__func__);
    bool is_open = osdmenu_itemname_enable(AI_MODE_ITEM) == 1 && osdmenu_current_viewlevel > 0 &&
                   osdmenu_current_view_position() == get_levels_byname(AI_MODE_ITEM);
    if (!is_open)
        host.row_below_ai_mode = osdmenu_current_view_position();
    set_sc_trackingmode_max(count_on_page(AI_MODE_ITEM) - 1);
    osdmenu_enableitem_byname(AI_MODE_ITEM);
    osdmenu_enter_aimodeselection();
    osdmenu_Mutex_Unlock(__func__);
}

void open_information()
{
    osdmenu_Mutex_Lock(__func__);
    osdmenu_call_information_immediate();
    osdmenu_Mutex_Unlock(__func__);
}

PixelView painted_view()
{
    return {osdmenu_viewbuffer, osdmenu_viewarea_width, osdmenu_viewarea_height, osdmenu_viewarea_width,
            host.menu.manifest.display.pixel_format};
}

// A missing name would be painted as text, which is never what is meant here.
PixelView paint_bubble(const std::string &name)
{
    // Around a bubble's picture; the first counts bytes and must be even.
    static constexpr int SIDE = 40, ABOVE = 20, BELOW = 20;
    if (std::find(host.bubbles.begin(), host.bubbles.end(), name) == host.bubbles.end())
        throw Failure("no bubble " + in_quotes(name) + "; known are: " + joined(host.bubbles, " "));
    int width = 0, height = 0;
    const char *block = osdmenu_get_bubbleline_byname_with_wh(name.c_str(), SIDE, ABOVE, BELOW, &width, &height);
    if (static_cast<long>(width) * height > static_cast<long>(osdmenu_viewarea_width) * osdmenu_viewarea_height)
        throw Failure("the bubble " + in_quotes(name) + " is larger than the view");
    return {block, width, height, width, host.menu.manifest.display.pixel_format};
}
