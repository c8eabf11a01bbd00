// The formats of the resource files, from the side of their maker. Pointers hold junk: nothing may follow them.
#include "support/resources.h"

#include <cstdio>
#include <cstring>
#include <sstream>

template <class Record> static std::string image(const Record &record)
{
    return {reinterpret_cast<const char *>(&record), sizeof record};
}

static osdmenu_view_bitmap bitmap_of(const Picture &picture, unsigned stride = 0x5A5A5A5A)
{
    return {0x5A5A5A5A, picture.height, picture.width, stride, reinterpret_cast<char *>(0x5A5A5A5A5A5A5A5A)};
}

std::vector<Item> items_of(const std::string &menu)
{
    std::vector<Item> items;
    std::istringstream words(menu);
    for (std::string word; words >> word;) {
        items.push_back({word.substr(0, word.find(':')), std::vector<int>(4, LEVEL_ABSENT)});
        int *levels = items.back().levels.data();
        std::sscanf(word.c_str(), "%*[^:]:%d.%d.%d.%d", levels, levels + 1, levels + 2, levels + 3);
    }
    return items;
}

std::string meta_of(const Item &item)
{
    osdmenu_item record;
    std::memset(&record, 0x5A, sizeof record);
    for (std::size_t i = 0; i < 4; i++)
        record.position.levels[i] = static_cast<unsigned char>(i < item.levels.size() ? item.levels[i] : LEVEL_ABSENT);
    record.view.viewbitmap = bitmap_of(item.view);
    record.item_values.type = item.type;
    record.item_values.current = item.current;
    record.item_values.u.number = item.number;
    if (item.type == VALUE_TXT) // the number of the choices lies in the first field
        record.item_values.u.number.highlimit = static_cast<int>(item.choices.size());
    std::string meta = image(record);
    for (const Choice &choice : item.choices) {
        osdmenu_item_value node;
        std::memset(&node, 0x5A, sizeof node);
        node.type = choice.type;
        node.u.txt.viewbitmap = bitmap_of(choice.picture);
        meta += image(node);
    }
    return meta;
}

std::string meta_of(const Line &line, bool bubble)
{
    osdbubbleline record;
    std::memset(&record, 0x5A, sizeof record);
    record.viewbitmap = bitmap_of(line.picture);
    record.level = line.level;
    return image(record).substr(0, bubble ? sizeof(osdbubbleline) : sizeof(osdhelpline));
}

std::string block_of(const Picture &picture, unsigned stride)
{
    return image(bitmap_of(picture, stride)) + std::string(std::size_t{picture.height} * stride, picture.fill);
}
