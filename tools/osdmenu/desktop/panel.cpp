#include "desktop/panel.h"

#include <algorithm>
#include <fstream>

#include "common/text.h"
#include "core/walks.h"
#include "host/places.h"
#include "host/values.h"

using Lines = std::vector<PanelLine>;

std::vector<std::string> place()
{
    std::vector<std::string> names;
    for (const osdmenu_item *item : path_to(osdmenu_current_menuitem))
        names.push_back(item->name);
    return names;
}

// As the host counts it, and what the page shows for it.
static std::string chosen_value()
{
    const osdmenu_item *item = osdmenu_current_menuitem;
    if (!item || item->item_values.type == VALUE_NONE)
        return "no value";
    std::string number = std::to_string(current_value(item)), shown = printable(value_text(item, current_value(item)));
    return "value " + number + (shown == number ? "" : " (" + shown + ")");
}

static Lines place_lines()
{
    const osdmenu_item *item = osdmenu_current_menuitem;
    std::string position = "level " + std::to_string(osdmenu_current_viewlevel) + "  position";
    for (unsigned char byte : current_view_position.levels)
        position.append(" ").append(std::to_string(byte));
    return {{item ? printable(item->name) : "no row", Tone::title}, {position}, {chosen_value()}};
}

std::string place_line()
{
    std::string line;
    for (const PanelLine &each : place_lines())
        line.append(line.empty() ? "" : "  ").append(each.text);
    return line;
}

// As many rows of the page as there is room for, the chosen one among them.
static Lines row_lines(size_t room)
{
    const list_head *page = rows_on(page_of(osdmenu_current_menuitem));
    Lines lines;
    size_t chosen = 0;
    for (osdmenu_item *row = first_row(page); row; row = row_below(row, page)) {
        if (is_disabled(row))
            continue;
        bool is_chosen = row == osdmenu_current_menuitem;
        chosen = is_chosen ? lines.size() : chosen;
        std::string text = (is_chosen ? "> " : "  ") + printable(row->view.description);
        std::string value = printable(value_text(row, current_value(row)));
        lines.push_back({in_cells(text, 26) + "  " + value, is_chosen ? Tone::chosen : Tone::plain});
    }
    size_t first = std::min(lines.size(), chosen < room ? 0 : chosen + 1 - room);
    return {lines.begin() + static_cast<long>(first),
            lines.begin() + static_cast<long>(std::min(lines.size(), first + room))};
}

static Lines key_lines()
{
    Lines lines = {{""}, {"KEYS", Tone::heading}};
    for (const DesktopKey &key : desktop_keys)
        lines.push_back({in_cells(key.label, 12) + key.meaning});
    return lines;
}

// What they say, without where they come from, for which there is no room; of the end of the file, which may be long.
static std::vector<std::string> last_trace_lines(const std::string &path)
{
    static constexpr long TAIL = 8192; // bytes
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    in.seekg(std::max(0L, static_cast<long>(in.tellg()) - TAIL));
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line.substr(line.find("] ") == line.npos ? 0 : line.find("] ") + 2));
    return lines;
}

// The latest of them below a heading, or beside it where there is little room.
static Lines latest(const char *heading, const std::vector<std::string> &texts, size_t room)
{
    const std::string last = texts.empty() ? "" : printable(texts.back());
    if (room < 3)
        return room == 0 ? Lines{} : Lines{{in_cells(heading, 7) + last, Tone::faint}};
    Lines lines = {{""}, {heading, Tone::heading}};
    for (size_t i = texts.size() - std::min(texts.size(), room - 2); i < texts.size(); i++)
        lines.push_back({printable(texts[i]), Tone::faint});
    return lines;
}

static std::vector<std::string> calls_to_tell(const Session &session)
{
    std::vector<std::string> calls{session.calls.begin(), session.calls.end()};
    if (session.values_asked > 0)
        calls.push_back("GET x" + std::to_string(session.values_asked));
    return calls;
}

std::vector<PanelLine> panel_lines(const Session &session, size_t height, bool lists_rows)
{
    Lines lines = place_lines();
    for (const std::string &notice : session.notices)
        lines.push_back({printable(notice), Tone::notice});
    auto room = [&] { return height - std::min(height, lines.size() + 1); };
    auto append = [&](const Lines &more) { lines.insert(lines.end(), more.begin(), more.end()); };
    if (session.shows_keys)
        append(key_lines());
    if (lists_rows)
        append(row_lines(room() - std::min<size_t>(room(), 2)));
    append(latest("CALLS", calls_to_tell(session), room() / 2));
    append(latest("TRACE", last_trace_lines(session.trace_path), room()));
    lines.resize(std::max<size_t>(height, 1) - 1);
    lines.push_back({host.language + "   ? shows the keys, Q leaves", Tone::faint});
    return lines;
}
