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
#include "host/places.h"
#include "host/values.h"
#include "menu/configuration.h"
#include "osd_menu_post.h"
#include "render/png.h"
#include "rules/json.h"
#include "store/digest.h"
#include "walk/walk.h"

namespace
{

using Texts = std::vector<std::string>; // most of them JSON

constexpr int NO_CHOICE = -1; // the text of a row itself

// Rows, help lines and messages may bear the same names.
struct StringKey {
    std::string name;
    int choice = NO_CHOICE;
    enum Kind { row, help_line, bubble } kind = row;

    auto operator<=>(const StringKey &) const = default;
};

struct Painter {
    Walk walk;
    std::map<std::string, std::string> before; // pictures of an earlier edition by page
    bool wants_strings;
    std::map<std::string, std::vector<WalkedValue>> values = {}; // by item
    std::map<StringKey, std::string> strings = {};               // PNG files
    std::set<std::string> names = {};                            // of pages
    Texts pages = {}, scenes = {}, unreached = {};
    Texts states = Texts(walk.states.size(), "[0,-1,[0,0,0,0,0,0],[],0]"); // by their place in the walk
    PictureList pictures = {};
    bool is_transparent = false;
};

} // namespace

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
        result.push_back(json_array({std::to_string(area.x), std::to_string(area.y), std::to_string(picture)}));
    }
    return json_array(result);
}

static std::string value_patches(Painter &painter, const osdmenu_item *item)
{
    std::string pixels;
    PixelView before = copied_view(pixels);
    Texts result;
    int own = current_value(item);
    for (const WalkedValue &value : painter.values.at(item->name)) {
        if (value.value == own)
            continue;
        show_value(item->name, value.value);
        result.push_back(json_array({std::to_string(value.value), patches(painter, before)}));
    }
    show_value(item->name, own);
    return json_array(result);
}

static std::string png_with_frame(const PageRow &row)
{
    static constexpr int DISTANCE = 8; // from the row's picture to the outer edge of the frame
    Image image = image_of(painted_view());
    lay_over(image, host.menu.manifest.background);
    int x = osdmenu_view_itemarea_x - DISTANCE;
    outline(image, {x, row.y - DISTANCE, image.width - x - DISTANCE, row.height() + 2 * DISTANCE});
    return png_of(image);
}

// The row framed on its page, with each of its choices.
static void add_strings(Painter &painter, const PageRow &row)
{
    int own = current_value(row.item);
    bool has_choices = row.item->item_values.type == VALUE_TXT;
    for (int i = NO_CHOICE; i == NO_CHOICE || (has_choices && choice_at(row.item, i)); i++) {
        auto [picture, is_new] = painter.strings.try_emplace({row.item->name, i});
        if (is_new && i != NO_CHOICE)
            show_value(row.item->name, i);
        if (is_new)
            picture->second = png_with_frame(row);
    }
    if (has_choices)
        show_value(row.item->name, own);
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

// Of the row's part of the view without the pointer: the same for a row that only moved.
static std::string digest_of_row(const PageRow &row)
{
    int x = std::min(osdmenu_view_itemarea_x, osdmenu_viewarea_width - 1); // of a view that shows no texts
    Area area{x, row.y, osdmenu_viewarea_width - x, row.height()};
    return digest_of({{"row", row.y < 0 ? "" : png_of(image_of(part_of(painted_view(), area)))}}).substr(0, 16);
}

// Name, text, value, y, height, pixels left beside the text and beside the widest value, digest.
static std::string row_json(Painter &painter, const PageRow &row)
{
    const osdmenu_item *item = row.item;
    bool has_value = item->item_values.type != VALUE_NONE;
    int value_x = get_osdmenu_view_valuearea_x(), widest = value_width(item, current_value(item));
    if (auto walked = painter.values.find(item->name); walked != painter.values.end())
        for (const WalkedValue &value : walked->second)
            widest = std::max(widest, value_width(item, value.value));
    int room = (has_value ? value_x : osdmenu_viewarea_width) - osdmenu_view_itemarea_x;
    return json_array({json_quoted(item->name), json_quoted(item->view.description),
                       json_quoted(value_text(item, current_value(item))), std::to_string(row.y),
                       std::to_string(row.height()), std::to_string(room - pixels_of(item->view.viewbitmap.width)),
                       has_value ? std::to_string(osdmenu_viewarea_width - value_x - widest) : "null",
                       json_quoted(digest_of_row(row))});
}

// Null where nothing changed.
static std::string marked_picture(Painter &painter, const std::string &page, const Image &image, const std::string &png)
{
    auto before = painter.before.find(page);
    if (before == painter.before.end() || before->second == png)
        return "null";
    return std::to_string(painter.pictures.add(png_of(marked(image_of_png(before->second), image))));
}

// The result are the names of its rows, by whose order a state tells its row.
static Texts add_page(Painter &painter, const std::string &name, const Texts &path, const std::string &state)
{
    Texts rows, names;
    for (const PageRow &row : rows_of_page(name)) {
        rows.push_back(row_json(painter, row));
        names.push_back(row.item->name);
    }
    Image image = image_of(painted_view());
    for (const Colour &pixel : image.pixels)
        painter.is_transparent |= pixel.alpha != 255;
    std::string png = png_of(image);
    painter.pages.push_back(json_object({{"name", json_quoted(name)},
                                         {"path", json_array(path)},
                                         {"picture", std::to_string(painter.pictures.add(png))},
                                         {"marked", marked_picture(painter, name, image, png)},
                                         {"state", state},
                                         {"rows", json_array(rows)}}));
    return names;
}

static long index_of(const Texts &names, const std::string &item)
{
    auto found = std::find(names.begin(), names.end(), item);
    return found == names.end() ? -1 : found - names.begin();
}

static std::string state_json(size_t page, long row, const WalkedState &state, const std::string &changed, size_t scene)
{
    Texts next;
    for (size_t each : state.next)
        next.push_back(std::to_string(each));
    return json_array({std::to_string(page), std::to_string(row), json_array(next), changed, std::to_string(scene)});
}

// The state that comes to a page first gives the picture that the others differ from. False where none comes.
static bool paint_states(Painter &painter, const std::string &name, const Texts &path)
{
    std::string pixels; // of that picture
    PixelView base{};
    Texts names;                                                // of its rows
    std::map<std::pair<int, std::vector<bool>>, size_t> scenes; // by first painted row and rows shown
    for (size_t i = 0; i < painter.walk.states.size(); i++) {
        const WalkedState &state = painter.walk.states[i];
        if (state.page != name)
            continue;
        return_to(state.state);
        if (pixels.empty()) {
            base = copied_view(pixels);
            names = add_page(painter, name, path, std::to_string(i));
        }
        std::string changed = patches(painter, base);
        int top = state.state.tops[static_cast<size_t>(state.state.level)];
        auto [scene, is_new] = scenes.try_emplace({top, state.state.shown}, painter.scenes.size());
        if (is_new)
            painter.scenes.push_back(scene_json(painter, rows_of_page(name)));
        painter.states[i] =
            state_json(painter.pages.size() - 1, index_of(names, state.item), state, changed, scene->second);
    }
    return !pixels.empty();
}

// A page behind or below a hidden row is opened by the camera itself, not by keys.
static void paint_hidden(Painter &painter, const std::string &name, const Texts &path)
{
    MenuState before = menu_state();
    for (const osdmenu_item *row : path_to(item_byname(name.c_str())))
        osdmenu_enableitem_byname(row->name);
    bool is_open = open_item(name);
    repaint();
    if (is_open && osdmenu_current_menuitem && page_of(osdmenu_current_menuitem) == name)
        add_page(painter, name, path, "null");
    else
        painter.unreached.push_back(json_array(path));
    return_to(before);
}

// In the menu's order, whatever order the walk came to them in.
static void paint_pages(Painter &painter, const list_head *page, const std::string &name, Texts path = {})
{
    if (painter.names.insert(name).second && !paint_states(painter, name, path))
        paint_hidden(painter, name, path);
    path.emplace_back();
    for (osdmenu_item *item = first_row(page); item; item = row_below(item, page)) {
        path.back() = json_quoted(item->view.description);
        if (first_row(&item->child))
            paint_pages(painter, &item->child, item->name, path);
    }
}

static std::string values_json(const Painter &painter)
{
    Texts result;
    for (const auto &[name, values] : painter.values) {
        Texts entries;
        for (const auto &[value, presses, left, right] : values)
            entries.push_back(json_array({std::to_string(value), std::to_string(left), std::to_string(right),
                                          json_quoted(value_text(item_byname(name.c_str()), value))}));
        result.push_back(json_array({json_quoted(name), json_array(entries)}));
    }
    return json_array(result);
}

// Messages, help lines and hidden rows stand on no page.
static void add_alone(Painter &painter, const StringKey &key, const ReadPicture &read)
{
    int width = pixels_of(read.size.width), height = static_cast<int>(read.size.height);
    if (width == 0 || height == 0 || painter.strings.contains(key))
        return;
    const Manifest &manifest = host.menu.manifest;
    painter.strings[key] =
        png_of({read.pixels.data(), width, height, width, manifest.display.pixel_format}, manifest.background);
}

// One plain part of a path, whatever the name held. The suffixes have what no such name has: none meets another.
static std::string file_name(const std::string &name, int choice, std::set<std::string> &taken)
{
    std::string safe = name.substr(0, 100);
    for (char &c : safe)
        c = g_ascii_isalnum(c) || c == '-' ? c : '_';
    if (choice != NO_CHOICE)
        safe.append(".").append(std::to_string(choice));
    std::string free = safe;
    for (int number = 2; !taken.insert(free).second; number++)
        free = safe + "~" + std::to_string(number);
    return free + ".png";
}

static void add_string_files(Painter &painter, Parts &parts)
{
    Resources resources = sound_resources(host.menu.directory_of(host.language));
    for (const ReadItem &item : resources.items) {
        add_alone(painter, {item.name}, item.picture);
        for (size_t i = 0; i < item.choices.size() && !host.menu.manifest.free_texts.contains(item.name); i++)
            add_alone(painter, {item.name, static_cast<int>(i)}, item.choices[i].picture);
    }
    for (const ReadLine &line : resources.help_lines)
        add_alone(painter, {line.name, NO_CHOICE, StringKey::help_line}, line.picture);
    for (const ReadLine &line : resources.bubbles)
        add_alone(painter, {line.name, NO_CHOICE, StringKey::bubble}, line.picture);
    std::set<std::string> taken;
    for (const auto &[key, png] : painter.strings)
        parts.insert(parts.end(), {file_name(key.name, key.choice, taken), png});
}

// By the page's name, of a language that was painted.
static std::map<std::string, std::string> page_pictures(const Parts &painted)
{
    std::map<std::string, std::string> result;
    Json root(cJSON_Parse(painted[0].c_str()));
    const cJSON *page;
    cJSON_ArrayForEach(page, cJSON_GetObjectItem(root.get(), "pages"))
    {
        int picture = cJSON_GetObjectItem(page, "picture")->valueint;
        result[cJSON_GetObjectItem(page, "name")->valuestring] = painted.at(static_cast<size_t>(picture) * 2 + 2);
    }
    return result;
}

Parts paint_language(const MenuDirectory &menu, const std::string &language, const PaintingOptions &options)
{
    start_host(menu, language);
    osdmenu_meeting_camera_helpline_enable(options.help_line);
    Painter painter{walk_menu(), {}, options.strings};
    if (options.before)
        painter.before = page_pictures(*options.before);
    for (const WalkedState &state : painter.walk.states)
        if (!state.values.empty())
            painter.values.try_emplace(state.item, state.values);
    paint_pages(painter, &orderized_osdmenu.siblings, "");
    Parts parts{json_object({{"transparent", painter.is_transparent ? "true" : "false"},
                             {"whole", painter.walk.is_whole ? "true" : "false"},
                             {"pages", json_array(painter.pages)},
                             {"unreached", json_array(painter.unreached)},
                             {"states", json_array(painter.states)},
                             {"scenes", json_array(painter.scenes)},
                             {"values", values_json(painter)}})};
    for (const std::string &png : painter.pictures.png_files)
        parts.insert(parts.end(), {"", png});
    if (options.strings)
        add_string_files(painter, parts);
    return parts;
}
