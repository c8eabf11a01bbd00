#include "gallery/painting.h"

#include <algorithm>
#include <set>

#include <glib.h>

#include "common/text.h"
#include "core/layout.h"
#include "core/walks.h"
#include "gallery/page_rows.h"
#include "gallery/pictures.h"
#include "host/host.h"
#include "osd_menu_post.h"
#include "render/png.h"
#include "rules/json.h"
#include "store/digest.h"
#include "walk/walk.h"

namespace
{

using Texts = std::vector<std::string>; // most of them JSON

struct Painter {
    Walk walk;
    bool wants_strings;
    std::map<std::string, std::vector<WalkedValue>> values = {};     // by item
    std::map<std::pair<std::string, int>, std::string> strings = {}; // PNG files by name and choice; -1 is the text
    std::set<std::string> names = {};                                // of pages
    Texts pages = {}, scenes = {}, unreached = {};
    Texts states = Texts(walk.states.size(), "[0,-1,[0,0,0,0,0,0],[],0]"); // by their place in the walk
    Pictures pictures = {};
    bool is_transparent = false;
};

} // namespace

static std::string numbers(const std::vector<long> &values)
{
    Texts texts;
    for (long value : values)
        texts.push_back(std::to_string(value));
    return std::string("[").append(joined(texts, ",")).append("]");
}

static void show_value(const std::string &item, int value)
{
    host.settings.values[item] = value;
    repaint();
}

// The view buffer itself goes on changing.
static PixelView copied_view(std::string &pixels)
{
    PixelView view = painted_view();
    pixels.assign(view.first, static_cast<size_t>(view.pitch) * static_cast<size_t>(view.height) * 2);
    return {pixels.data(), view.width, view.height, view.pitch, view.format};
}

// What the view shows now that it did not before.
static std::string patches(Painter &painter, const PixelView &before)
{
    Texts result;
    for (const Area &area : differences(before, painted_view())) {
        size_t picture = painter.pictures.add(png_of(image_of(part_of(painted_view(), area))));
        result.push_back(numbers({area.x, area.y, static_cast<long>(picture)}));
    }
    return json_array(result);
}

static std::string value_patches(Painter &painter, const osdmenu_item *item)
{
    std::string pixels;
    PixelView before = copied_view(pixels);
    Texts result;
    int own = current_value(item);
    for (const WalkedValue &value : painter.values[item->name]) {
        if (value.value == own)
            continue;
        show_value(item->name, value.value);
        result.push_back(json_array({std::to_string(value.value), patches(painter, before)}));
    }
    show_value(item->name, own);
    return json_array(result);
}

static std::string with_frame(const PageRow &row)
{
    static constexpr int DISTANCE = 8;
    Image image = image_of(painted_view());
    lay_over(image, host.menu.manifest.background);
    int x = osdmenu_view_itemarea_x - DISTANCE;
    outline(image, {x, row.y - DISTANCE, image.width - x - DISTANCE, row.height() + 2 * DISTANCE});
    return png_of(image);
}

static void add_strings(Painter &painter, const PageRow &row)
{
    const osdmenu_item_value &value = row.item->item_values;
    if (auto [text, is_new] = painter.strings.try_emplace({row.item->name, -1}); is_new)
        text->second = with_frame(row);
    int own = current_value(row.item), index = 0;
    auto *choice = value.type == VALUE_TXT ? first_choice(&value) : nullptr;
    for (; choice; choice = choice_after(choice, &value), index++)
        if (auto [text, is_new] = painter.strings.try_emplace({row.item->name, index}); is_new) {
            show_value(row.item->name, index);
            text->second = with_frame(row);
        }
    if (index > 0)
        show_value(row.item->name, own);
}

// Messages, help lines and hidden rows stand on no page: they are shown alone.
static void add_other_strings(Painter &painter, const MenuDirectory &menu, const Resources &resources)
{
    auto add = [&](const std::string &name, int choice, const ReadPicture &read) {
        int width = static_cast<int>(read.size.width / 2), height = static_cast<int>(read.size.height);
        if (width == 0 || height == 0 || painter.strings.contains({name, choice}))
            return;
        Image image = image_of({read.pixels.data(), width, height, width, menu.manifest.display.pixel_format});
        lay_over(image, menu.manifest.background);
        painter.strings[{name, choice}] = png_of(image);
    };
    for (const ReadItem &item : resources.items) {
        add(item.name, -1, item.picture);
        for (size_t i = 0; i < item.choices.size() && !menu.manifest.free_texts.contains(item.name); i++)
            add(item.name, static_cast<int>(i), item.choices[i].picture);
    }
    for (const auto *lines : {&resources.help_lines, &resources.bubbles})
        for (const ReadLine &line : *lines)
            add(line.name, -1, line.picture);
}

// What depends on where a page is scrolled to and which rows are shown: the pictures of values.
static std::string scene_json(Painter &painter, const std::vector<PageRow> &rows)
{
    Texts result;
    for (const PageRow &row : rows) {
        if (row.y >= 0 && painter.values.contains(row.item->name))
            result.push_back(json_array({json_quoted(row.item->name), value_patches(painter, row.item)}));
        if (row.y >= 0 && painter.wants_strings)
            add_strings(painter, row);
    }
    return json_array(result);
}

// The row's part of the view without the pointer: the same for a row that only moved.
static std::string digest_of_row(const PageRow &row)
{
    Digest digest;
    for (int y = row.y; row.y >= 0 && y < row.y + row.height(); y++) {
        PixelView line = part_of(painted_view(), {osdmenu_view_itemarea_x, y});
        digest.add({line.first, static_cast<size_t>(osdmenu_viewarea_width - osdmenu_view_itemarea_x) * 2});
    }
    return digest.text().substr(0, 16);
}

// Name, text, value, y, height, pixels left of the text and of the widest value, digest.
static std::string row_json(Painter &painter, const PageRow &row)
{
    const osdmenu_item *item = row.item;
    bool has_value = item->item_values.type != VALUE_NONE;
    int value_x = get_osdmenu_view_valuearea_x(), widest = value_width(item, current_value(item));
    for (const WalkedValue &value : painter.values[item->name])
        widest = std::max(widest, value_width(item, value.value));
    int room = (has_value ? value_x : osdmenu_viewarea_width) - osdmenu_view_itemarea_x;
    return json_array({json_quoted(item->name), json_quoted(item->view.description),
                       json_quoted(value_text(item, current_value(item))), std::to_string(row.y),
                       std::to_string(row.height()), std::to_string(room - pixels_of(item->view.viewbitmap.width)),
                       has_value ? std::to_string(osdmenu_viewarea_width - value_x - widest) : "null",
                       json_quoted(digest_of_row(row))});
}

static void add_page(Painter &painter, const std::string &name, const Texts &path, const std::string &state)
{
    Texts rows;
    for (const PageRow &row : rows_of_page(name))
        rows.push_back(row_json(painter, row));
    Image image = image_of(painted_view());
    for (const Colour &pixel : image.pixels)
        painter.is_transparent |= pixel.alpha != 255;
    painter.pages.push_back(json_object({{"name", json_quoted(name)},
                                         {"path", json_array(path)},
                                         {"picture", std::to_string(painter.pictures.add(png_of(image)))},
                                         {"state", state},
                                         {"rows", json_array(rows)}}));
}

static long index_of(const std::vector<PageRow> &rows, const std::string &item)
{
    auto found = std::find_if(rows.begin(), rows.end(), [&](const PageRow &row) { return item == row.item->name; });
    return found == rows.end() ? -1 : found - rows.begin();
}

// The state that comes to a page first gives the picture that the others differ from. False where none comes.
static bool paint_states(Painter &painter, const std::string &name, const Texts &path)
{
    std::string pixels; // of that picture
    PixelView base{};
    std::map<std::pair<int, std::vector<bool>>, size_t> scenes; // by first painted row and rows shown
    long page = static_cast<long>(painter.pages.size());
    for (size_t i = 0; i < painter.walk.states.size(); i++) {
        const WalkedState &state = painter.walk.states[i];
        if (state.page != name)
            continue;
        return_to(state.state);
        if (pixels.empty()) {
            base = copied_view(pixels);
            add_page(painter, name, path, std::to_string(i));
        }
        std::vector<PageRow> rows = rows_of_page(name);
        std::string changed = patches(painter, base);
        int top = state.state.tops[static_cast<size_t>(state.state.level)];
        auto [scene, is_new] = scenes.try_emplace({top, state.state.shown}, painter.scenes.size());
        if (is_new)
            painter.scenes.push_back(scene_json(painter, rows));
        painter.states[i] =
            json_array({std::to_string(page), std::to_string(index_of(rows, state.item)),
                        numbers({state.next.begin(), state.next.end()}), changed, std::to_string(scene->second)});
    }
    return !pixels.empty();
}

// A page behind a hidden row is opened by the camera itself, not by keys.
static void paint_hidden(Painter &painter, const std::string &name, const Texts &path)
{
    MenuState before = menu_state();
    osdmenu_enableitem_byname(name.c_str());
    bool is_open = open_item(name);
    repaint();
    std::vector<PageRow> rows = rows_of_page(name);
    if (is_open && osdmenu_current_menuitem && index_of(rows, osdmenu_current_menuitem->name) >= 0)
        add_page(painter, name, path, "null");
    else
        painter.unreached.push_back(json_array(path));
    return_to(before);
}

// In the menu's order, whatever order the walk came to them in.
static void paint_pages(Painter &painter, const list_head *page, const std::string &name, Texts &path)
{
    if (painter.names.insert(name).second && !paint_states(painter, name, path))
        paint_hidden(painter, name, path);
    for (osdmenu_item *item = first_row(page); item; item = row_below(item, page)) {
        if (!first_row(&item->child))
            continue;
        path.push_back(json_quoted(item->view.description));
        paint_pages(painter, &item->child, item->name, path);
        path.pop_back();
    }
}

static std::string values_json(const Painter &painter)
{
    Texts result;
    for (const auto &[name, values] : painter.values) {
        Texts entries;
        for (const WalkedValue &value : values)
            entries.push_back(
                json_array({std::to_string(value.value), std::to_string(value.left), std::to_string(value.right),
                            json_quoted(value_text(item_byname(name.c_str()), value.value))}));
        result.push_back(json_array({json_quoted(name), json_array(entries)}));
    }
    return json_array(result);
}

std::string safe_file_name(const std::string &name)
{
    std::string safe = name.substr(0, 100);
    for (char &c : safe)
        c = g_ascii_isalnum(c) || c == '-' ? c : '_';
    return safe.empty() ? "_" : safe;
}

// No safe name has a dot or a tilde, so that none meets another's suffix.
static std::map<std::string, std::string> string_files(const Painter &painter)
{
    std::map<std::string, std::string> files;
    for (const auto &[key, png] : painter.strings) {
        std::string name = safe_file_name(key.first) + (key.second < 0 ? "" : "." + std::to_string(key.second));
        std::string free = name;
        for (int number = 2; files.contains(free); number++)
            free = name + "~" + std::to_string(number);
        files[free] = png;
    }
    return files;
}

Parts paint_language(const MenuDirectory &menu, const std::string &language, const PaintingOptions &options)
{
    start_host(menu, language);
    osdmenu_meeting_camera_helpline_enable(options.help_line);
    Painter painter{walk_menu(), options.strings};
    for (const WalkedState &state : painter.walk.states)
        if (!state.values.empty())
            painter.values.try_emplace(state.item, state.values);
    Texts path;
    paint_pages(painter, &orderized_osdmenu.siblings, "", path);
    if (options.strings)
        add_other_strings(painter, menu, sound_resources(menu.directory_of(language)));
    Parts parts{json_object({{"transparent", painter.is_transparent ? "true" : "false"},
                             {"whole", painter.walk.is_whole ? "true" : "false"},
                             {"pages", json_array(painter.pages)},
                             {"unreached", json_array(painter.unreached)},
                             {"states", json_array(painter.states)},
                             {"scenes", json_array(painter.scenes)},
                             {"values", values_json(painter)}})};
    for (const std::string &png : painter.pictures.png_files)
        parts.insert(parts.end(), {"", png});
    for (const auto &[name, png] : string_files(painter))
        parts.insert(parts.end(), {name, png});
    return parts;
}
