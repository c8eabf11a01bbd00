// The tests' host.
#include "support/host.h"

#include <cstdarg>
#include <cstdio>
#include <gtest/gtest.h>
#include <sstream>

#include "core/walks.h"
#include "host_settings.h"

int gallery_preset = 0;
int tracking_mode = 0;
std::vector<std::string> host_calls;
std::vector<std::string> traces;
std::vector<Call> calls;
std::map<std::string, int> settings;

int get_sc_smartgallery_preset(void)
{
    return gallery_preset;
}

int get_sc_trackingmode(void)
{
    return tracking_mode;
}

int save_config_to_flash(void)
{
    host_calls.push_back("save_config_to_flash");
    return 0;
}

int set_aimode_show(int show)
{
    host_calls.push_back("set_aimode_show " + std::to_string(show));
    return 0;
}

int qmx_traceout(int level, const char *format, ...)
{
    char line[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    traces.push_back(std::to_string(level) + ":" + line);
    return 0;
}

void set_trace_level(int lib_level)
{
    dbgout_profile.lib_level = lib_level;
}

int traced(const std::string &part)
{
    int count = 0;
    for (const std::string &line : traces)
        count += line.find(part) != std::string::npos;
    return count;
}

int recording_action(osdmenu_item *item, int operation, int value)
{
    calls.push_back({item->name, operation, value});
    if (operation == ACTION_OP_SET)
        settings[item->name] = value;
    return operation == ACTION_OP_GET ? settings[item->name] : 0;
}

void load_menu(const ResourceDirectory &directory, const std::vector<Item> &items)
{
    directory.write_items(items);
    output_of([&] {
        read2mem_all_menuitems(directory.path().c_str());
        orderize_all_menuitems();
        for (const Item &item : items)
            if (item.type != VALUE_NONE)
                osdmenu_register_action_byname(item.name.c_str(), recording_action, 0);
    });
    calls.clear();
}

void prepare_view(const ResourceDirectory &directory, int width, int height)
{
    directory.write("c.d", glyph_bank(4, 8));
    std::string symbols;
    for (int i = 0; i < 4; i++)
        symbols += block_of({2, 4, static_cast<char>(0xA0 + i)}, 4);
    directory.write("s.d", symbols);
    output_of([&] {
        read2mem_menuitem_commonchar(directory.path().c_str());
        read2mem_menuitem_utf16symbol(directory.path().c_str());
        osdmenu_viewbuffer_malloc(width, height);
    });
}

void redraw()
{
    output_of([] {
        osdmenu_viewbuffer_fill_background();
        osdmenu_draw_allitems();
    });
}

void press(const std::string &keys)
{
    static const std::map<std::string, int (*)()> actions = {
        {"up", osdmenu_action_up},       {"down", osdmenu_action_down}, {"left", osdmenu_action_left},
        {"right", osdmenu_action_right}, {"ok", osdmenu_action_ok},     {"back", osdmenu_action_menuback}};
    std::istringstream words(keys);
    for (std::string key; words >> key;) {
        output_of([&] { actions.at(key)(); });
        redraw();
    }
}

int byte_at(int x, int y)
{
    extern int osdmenu_viewarea_width;
    return static_cast<unsigned char>(osdmenu_viewbuffer[(y * osdmenu_viewarea_width + x) * 2]);
}

std::string rows_of(const osdmenu_item *item)
{
    const list_head *page = item ? &item->child : &orderized_osdmenu.siblings;
    std::string names;
    for (const osdmenu_item *row = first_row(page); row; row = row_below(row, page)) {
        names += names.empty() ? "" : " ";
        names += row->name;
    }
    return names;
}

osdmenu_item *loaded(const std::string &name)
{
    return item_byname(name.c_str());
}

Output output_of(const std::function<void()> &work)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    work();
    std::fflush(stdout);
    Output output;
    output.out = testing::internal::GetCapturedStdout();
    output.err = testing::internal::GetCapturedStderr();
    return output;
}

int lines_with(const std::string &text, const std::string &part)
{
    int count = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        count += line.find(part) != std::string::npos;
    return count;
}
