// Reads the eight files of a language without the library and without trust: the library answers 0 to every load, so
// what is wrong with a directory must be found before it is asked.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "osd_menu.h"

struct ReadPicture {
    osdmenu_view_bitmap size{}; // its pointer is never used
    std::string pixels;
};

struct ReadChoice {
    std::string text;
    ReadPicture picture;
};

struct ReadItem {
    size_t offset = 0; // in m.d
    std::string name;
    std::string text;
    osdmenu_position position{};
    ReadPicture picture;
    unsigned int value_type = VALUE_NONE;
    int current = 0;
    osdmenu_item_value_number number{};
    std::vector<ReadChoice> choices;
};

struct ReadLine {
    std::string name;
    std::string text;
    ReadPicture picture;
    int level = 0; // of a bubble
};

struct Fault {
    std::string file; // bare name
    size_t offset;    // bytes from the start of the file
    std::string text;
};

struct Resources {
    std::vector<ReadItem> items;
    std::vector<ReadLine> help_lines;
    std::vector<ReadLine> bubbles;
    std::vector<ReadPicture> glyphs;
    std::vector<ReadPicture> symbols;
    std::vector<Fault> faults;
};

// The content of a file by its bare name, or nothing when there is none.
using FileSource = std::function<std::optional<std::string>(const std::string &name)>;

FileSource files_of_directory(const std::string &directory);
FileSource files_in_memory(const std::map<std::string, std::string> &files);

// After a fault the rest of that pair of files is left unread, since its records are out of step.
Resources read_resources(const FileSource &source);
