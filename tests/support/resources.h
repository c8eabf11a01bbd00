// Resource files built by the tests: small records in, the bytes of the eight files out.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "osd_menu.h"

struct Picture {
    unsigned height = 0;
    unsigned width = 0; // bytes
    char fill = 0;      // every byte of it
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

struct Line {
    std::string name;
    Picture picture;
    int level = 0;
    std::string description = "line";
};

// The bytes of a record and of what its data file holds for it.
std::string meta_of(const Item &item);
std::string data_of(const Item &item);
std::string meta_of(const Line &line, bool bubble);
std::string data_of(const Line &line);
std::string text_of(const std::string &text); // with its terminator

// One entry of c.d or s.d; the stride may exceed the width.
std::string block_of(const Picture &picture, unsigned stride);

// A whole c.d: glyph i is filled with the byte i + 1.
std::string glyph_bank(unsigned height, unsigned width);

// A directory of resources that goes with its owner. Its configuration lies where the library looks for it.
class ResourceDirectory
{
  public:
    ResourceDirectory();
    ~ResourceDirectory();
    ResourceDirectory(const ResourceDirectory &) = delete;
    ResourceDirectory &operator=(const ResourceDirectory &) = delete;

    std::string path() const; // with its trailing slash
    void write(const std::string &file, const std::string &bytes) const;
    void remove(const std::string &file) const;
    void write_items(const std::vector<Item> &items) const;
    void write_lines(const std::vector<Line> &lines, bool bubbles) const;
    void write_config(const std::string &json) const;

  private:
    std::filesystem::path root;
};
