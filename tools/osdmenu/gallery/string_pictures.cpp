#include "gallery/string_pictures.h"

#include <set>

#include <glib.h>

#include "core/layout.h"
#include "gallery/pictures.h"
#include "host/host.h"
#include "render/png.h"

static constexpr int NO_CHOICE = -1;

static std::string png_with_frame(const PageRow &row)
{
    static constexpr int DISTANCE = 8; // from the row's picture to the outer edge of the frame
    Image image = image_of(painted_view());
    lay_over(image, host.menu.manifest.background);
    int x = osdmenu_view_itemarea_x - DISTANCE;
    outline(image, {x, row.y - DISTANCE, image.width - x - DISTANCE, row.height() + 2 * DISTANCE});
    return png_of(image);
}

void StringPictures::add_row(const PageRow &row)
{
    int own = current_value(row.item);
    bool has_choices = row.item->item_values.type == VALUE_TXT;
    for (int i = NO_CHOICE; i == NO_CHOICE || (has_choices && choice_at(row.item, i)); i++) {
        auto [picture, is_new] = png_files.try_emplace({row.item->name, i});
        if (is_new && i != NO_CHOICE)
            show_value(row.item->name, i);
        if (is_new)
            picture->second = png_with_frame(row);
    }
    if (has_choices)
        show_value(row.item->name, own);
}

static void add_alone(StringPictures &strings, const std::string &name, int choice, const ReadPicture &read)
{
    int width = static_cast<int>(read.size.width / 2), height = static_cast<int>(read.size.height);
    if (width == 0 || height == 0 || strings.png_files.contains({name, choice}))
        return;
    Image image = image_of({read.pixels.data(), width, height, width, host.menu.manifest.display.pixel_format});
    lay_over(image, host.menu.manifest.background);
    strings.png_files[{name, choice}] = png_of(image);
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

void StringPictures::add_to(Parts &parts)
{
    Resources resources = sound_resources(host.menu.directory_of(host.language));
    for (const ReadItem &item : resources.items) {
        add_alone(*this, item.name, NO_CHOICE, item.picture);
        for (size_t i = 0; i < item.choices.size() && !host.menu.manifest.free_texts.contains(item.name); i++)
            add_alone(*this, item.name, static_cast<int>(i), item.choices[i].picture);
    }
    for (const auto *lines : {&resources.help_lines, &resources.bubbles})
        for (const ReadLine &line : *lines)
            add_alone(*this, line.name, NO_CHOICE, line.picture);
    std::set<std::string> taken;
    for (const auto &[key, png] : png_files)
        parts.insert(parts.end(), {file_name(key.first, key.second, taken), png});
}
