// The formats of the resource files, from the side of their maker. Pointers hold junk: nothing may follow them.
#include "support/resources.h"

#include <cstring>
#include <fstream>
#include <unistd.h>

template <class Record> static Record junk_record()
{
    Record record;
    std::memset(static_cast<void *>(&record), 0x5A, sizeof record);
    return record;
}

template <class Record> static std::string image(const Record &record)
{
    return {reinterpret_cast<const char *>(&record), sizeof record};
}

static void set_geometry(osdmenu_view_bitmap &bitmap, const Picture &picture)
{
    bitmap.height = picture.height;
    bitmap.width = picture.width;
}

static std::string pixels_of(const Picture &picture)
{
    return std::string(std::size_t{picture.height} * picture.width, picture.fill);
}

std::string text_of(const std::string &text)
{
    return text + '\0';
}

std::string meta_of(const Item &item)
{
    auto record = junk_record<osdmenu_item>();
    for (std::size_t i = 0; i < 4; i++)
        record.position.levels[i] = static_cast<unsigned char>(i < item.levels.size() ? item.levels[i] : LEVEL_ABSENT);
    set_geometry(record.view.viewbitmap, item.view);
    record.item_values.type = item.type;
    record.item_values.current = item.current;
    if (item.type == VALUE_NUMBER || item.type == VALUE_PERCENTAGE)
        record.item_values.u.number = item.number;
    const int count = static_cast<int>(item.choices.size());
    if (item.type == VALUE_TXT)
        std::memcpy(&record.item_values.u, &count, sizeof count);
    std::string meta = image(record);
    for (const Choice &choice : item.choices) {
        auto node = junk_record<osdmenu_item_value>();
        node.type = choice.type;
        set_geometry(node.u.txt.viewbitmap, choice.picture);
        meta += image(node);
    }
    return meta;
}

std::string data_of(const Item &item)
{
    std::string data = text_of(item.name) + text_of(item.description) + pixels_of(item.view);
    for (const Choice &choice : item.choices)
        data += text_of(choice.text) + pixels_of(choice.picture);
    return data;
}

std::string meta_of(const Line &line, bool bubble)
{
    auto record = junk_record<osdbubbleline>();
    set_geometry(record.viewbitmap, line.picture);
    record.level = line.level;
    return image(record).substr(0, bubble ? sizeof(osdbubbleline) : sizeof(osdhelpline));
}

std::string data_of(const Line &line)
{
    return text_of(line.name) + text_of(line.description) + pixels_of(line.picture);
}

std::string block_of(const Picture &picture, unsigned stride)
{
    auto record = junk_record<osdmenu_view_bitmap>();
    set_geometry(record, picture);
    record.stride = stride;
    return image(record) + std::string(std::size_t{picture.height} * stride, picture.fill);
}

std::string glyph_bank(unsigned height, unsigned width)
{
    std::string bank;
    for (int i = 0; i < 93; i++)
        bank += block_of({height, width, static_cast<char>(i + 1)}, width);
    return bank;
}

ResourceDirectory::ResourceDirectory()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "menu-XXXXXX").string();
    root = mkdtemp(pattern.data());
    std::filesystem::create_directories(root / "en");
    std::filesystem::create_directories(root / "conf_backup");
}

ResourceDirectory::~ResourceDirectory()
{
    std::filesystem::remove_all(root);
}

std::string ResourceDirectory::path() const
{
    return (root / "en").string() + "/";
}

void ResourceDirectory::write(const std::string &file, const std::string &bytes) const
{
    std::ofstream(root / "en" / file, std::ios::binary) << bytes;
}

void ResourceDirectory::remove(const std::string &file) const
{
    std::filesystem::remove_all(root / "en" / file);
}

void ResourceDirectory::write_items(const std::vector<Item> &items) const
{
    std::string meta, data;
    for (const Item &item : items) {
        meta += meta_of(item);
        data += data_of(item);
    }
    write("m.d", meta);
    write("b.d", data);
}

void ResourceDirectory::write_lines(const std::vector<Line> &lines, bool bubbles) const
{
    std::string meta, data;
    for (const Line &line : lines) {
        meta += meta_of(line, bubbles);
        data += data_of(line);
    }
    write(bubbles ? "bm.d" : "hm.d", meta);
    write(bubbles ? "bb.d" : "hb.d", data);
}

void ResourceDirectory::write_config(const std::string &json) const
{
    std::ofstream(root / "conf_backup" / "osd_menu.json") << json;
}
