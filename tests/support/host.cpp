// The tests' host.
#include "support/host.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <numeric>
#include <regex>
#include <sstream>

#include "host_settings.h"

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
    return host_calls.push_back("save_config_to_flash"), 0;
}

int set_aimode_show(int show)
{
    return host_calls.push_back("set_aimode_show " + std::to_string(show)), 0;
}

int qmx_traceout(int level, const char *format, ...)
{
    char line[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    return traces.push_back(std::to_string(level) + ":" + line), 0;
}

static std::string all_traces()
{
    return std::accumulate(traces.begin(), traces.end(), std::string());
}

int traced(const std::string &part)
{
    return lines_with(all_traces(), part);
}

std::string traced_text()
{
    return std::regex_replace(all_traces(), std::regex(R"(:\[(\w+ \w+) \+\d+ *\])"), " $1: ");
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

static std::vector<std::string> states_of_items()
{
    std::vector<std::string> states;
    for (const osdmenu_item *item = first_loaded(); item; item = loaded_after(item)) {
        std::ostringstream state;
        state << " [" << item->name << " " << +item->position.levels[3] << " " << item->item_values.type << " "
              << item->item_values.u.number.current << " " << item->item_values.current << "]";
        states.push_back(state.str());
    }
    return states;
}

std::string effect_of(const std::function<int()> &act)
{
    const std::string from = place();
    const int status = get_osdmenu_status();
    const std::vector<std::string> before = states_of_items();
    calls.clear(), host_calls.clear(), traces.clear();
    set_trace_level(6);
    int answer = 0;
    const Output output = output_of([&] { answer = act(); });
    std::string effect = std::to_string(answer);
    for (const Call &call : calls)
        effect += " " + call.name + ":" + std::to_string(call.operation) + "=" + std::to_string(call.value);
    for (const std::string &call : host_calls)
        effect += " " + call;
    effect += get_osdmenu_status() == status ? "" : " status " + std::to_string(get_osdmenu_status());
    const std::vector<std::string> after = states_of_items();
    for (std::size_t i = 0; i < before.size() && i < after.size(); i++)
        effect += after[i] == before[i] ? "" : after[i];
    effect += place() == from ? "" : " " + place();
    const std::size_t lines = traces.size() + static_cast<std::size_t>(lines_with(output.out + output.err, "\n"));
    return effect + (lines ? " +" + std::to_string(lines) : "");
}

void load_lines(const ResourceDirectory &directory, const std::vector<Line> &lines, bool bubbles)
{
    directory.write_lines(lines, bubbles);
    output_of([&] { (bubbles ? read2mem_bubbleline : read2mem_helpline)(directory.path().c_str()); });
}

void configure(const ResourceDirectory &directory, const std::string &json, const std::string &behind_path)
{
    directory.write_config(json);
    output_of([&] { read2mem_all_menuitems((directory.path() + behind_path).c_str()); });
}

void prepare_view(const ResourceDirectory &directory, int width, int height)
{
    directory.write("c.d", glyph_bank(4, 8));
    directory.write("s.d", block_of({2, 4, '\xA0'}, 4) + block_of({2, 4, '\xA1'}, 4) + block_of({2, 4, '\xA2'}, 4) +
                               block_of({2, 4, '\xA3'}, 4));
    output_of([&] {
        read2mem_menuitem_commonchar(directory.path().c_str());
        read2mem_menuitem_utf16symbol(directory.path().c_str());
        osdmenu_viewbuffer_malloc(width, height);
    });
}

void press(const std::string &keys)
{
    const std::map<std::string, int> codes = {{"up", 1}, {"down", 2}, {"left", 3}, {"right", 4}, {"ok", 5}};
    std::istringstream words(keys);
    for (std::string key; words >> key; redraw())
        output_of([&] { osdmenu_process_key(codes.at(key)); });
}

std::string blocks_in(std::string buffer, int width)
{
    const std::size_t pitch = static_cast<std::size_t>(width) * 2;
    std::ostringstream found;
    for (std::size_t at = 0; (at = buffer.find_first_not_of('\0', at)) != std::string::npos;) {
        const char fill = buffer[at];
        const std::string row(std::min(buffer.find_first_not_of(fill, at), buffer.size()) - at, fill);
        std::size_t rows = 0;
        for (std::size_t to = at; to < buffer.size() && buffer.compare(to, row.size(), row) == 0; to += pitch, rows++)
            buffer.replace(to, row.size(), row.size(), '\0');
        const bool is_glyph = fill > 0 && fill <= GLYPH_COUNT;
        found << (found.tellp() > 0 ? " " : "");
        found << (is_glyph ? std::string{osdmenu_common_char[fill - 1]} : std::string{'[', fill, ']'});
        found << '@' << at % pitch / 2 << ',' << at / pitch;
        if (row.size() != 8 || rows != 4)
            found << '(' << row.size() / 2 << 'x' << rows << ')';
    }
    return found.str();
}
