// Resource files built by the tests: small records in, the bytes of the eight files out.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "osd_menu.h"

struct Picture {
    unsigned height = 0, width = 0; // rows, and bytes of each
    char fill = 0;                  // every byte of it
};

struct Choice {
    std::string text;
    Picture picture;
    unsigned type = VALUE_TXT;
};

struct Item {
    std::string name;
    std::vector<int> levels; // coordinates; those left out are LEVEL_ABSENT
    Picture view = {};
    unsigned type = VALUE_NONE;
    std::vector<Choice> choices = {};
    osdmenu_item_value_number number = {}; // also of a percentage
    int current = 0;
    std::string description = "description";
};

std::vector<Item> items_of(const std::string &menu); // by names and coordinates, "A:1 A1:1.1"

struct Line {
    std::string name;
    Picture picture;
    int level = 0;
    std::string description = "line";
};

std::string meta_of(const Item &item);
std::string meta_of(const Line &line, bool bubble);
std::string block_of(const Picture &picture, unsigned stride); // in c.d or s.d; the stride may exceed the width

inline std::string text_of(const std::string &text, const Picture &picture = {})
{
    return text + '\0' + std::string(std::size_t{picture.height} * picture.width, picture.fill);
}

inline std::string data_of(const Item &item)
{
    std::string data = text_of(item.name) + text_of(item.description, item.view);
    for (const Choice &choice : item.choices)
        data += text_of(choice.text, choice.picture);
    return data;
}

inline std::string data_of(const Line &line)
{
    return text_of(line.name) + text_of(line.description, line.picture);
}

// A whole c.d: glyph i is filled with the byte i + 1.
inline std::string glyph_bank(unsigned height, unsigned width)
{
    std::string bank;
    for (char fill = 1; fill <= 93; fill++)
        bank += block_of({height, width, fill}, width);
    return bank;
}

// A directory of resources that goes with its owner. Its configuration lies where the library looks for it.
struct ResourceDirectory {
    std::string root = std::filesystem::temp_directory_path() / "menu-XXXXXX";

    ResourceDirectory()
    {
        std::filesystem::create_directories(mkdtemp(root.data()) + std::string("/en"));
        std::filesystem::create_directories(root + "/conf_backup");
    }
    ResourceDirectory(const ResourceDirectory &) = delete;
    ~ResourceDirectory()
    {
        std::filesystem::remove_all(root);
    }

    std::string path() const // with its trailing slash
    {
        return root + "/en/";
    }
    void write(const std::string &file, const std::string &bytes) const
    {
        std::ofstream(path() + file, std::ios::binary) << bytes;
    }
    void write_config(const std::string &json) const
    {
        write("../conf_backup/osd_menu.json", json);
    }
    void remove(const std::string &file) const
    {
        std::filesystem::remove(path() + file);
    }
    void write_items(const std::vector<Item> &items) const
    {
        std::string meta, data;
        for (const Item &item : items)
            meta += meta_of(item), data += data_of(item);
        write("m.d", meta);
        write("b.d", data);
    }
    void write_lines(const std::vector<Line> &lines, bool bubbles) const
    {
        std::string meta, data;
        for (const Line &line : lines)
            meta += meta_of(line, bubbles), data += data_of(line);
        write(bubbles ? "bm.d" : "hm.d", meta);
        write(bubbles ? "bb.d" : "hb.d", data);
    }
};
