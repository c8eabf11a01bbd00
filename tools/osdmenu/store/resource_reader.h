// Reads the eight files of a language without the library and without trust: the library answers 0 to every load, so
// what is wrong with a directory must be found before it is asked.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "osd_menu.h"

// In the order in which they are read: a file of records, then the file of its texts and pixels.
inline constexpr const char *RESOURCE_FILES[] = {"m.d", "b.d", "hm.d", "hb.d", "bm.d", "bb.d", "c.d", "s.d"};

struct ReadPicture {
    osdmenu_view_bitmap size{}; // its pointer is never used
    std::string pixels;
    size_t offset = 0; // of the first pixel in its file
};

// Where a record stands, in bytes.
struct ReadPlace {
    size_t meta = 0; // of the record, in m.d, hm.d or bm.d
    size_t data = 0; // of its first text, in b.d, hb.d or bb.d
};

struct ReadChoice {
    ReadPlace place;
    std::string text;
    ReadPicture picture;
};

struct ReadItem {
    ReadPlace place;
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
    ReadPlace place;
    std::string name;
    std::string text;
    ReadPicture picture;
    int level = 0; // of a bubble
};

struct Fault {
    std::string file; // bare name
    size_t offset;    // of the record or the bytes that are wrong, from the start of the file
    std::string text;
};

struct Resources {
    std::vector<ReadItem> items;
    std::vector<ReadLine> help_lines;
    std::vector<ReadLine> bubbles;
    std::vector<ReadPicture> glyphs;
    std::vector<ReadPicture> symbols;
    std::vector<Fault> faults;
    std::map<std::string, size_t> file_sizes; // bytes of each file that is there
    size_t bytes = 0;                         // of all of them
};

// The content of a file by its bare name, or nothing when there is none.
using FileSource = std::function<std::optional<std::string>(const std::string &name)>;

FileSource files_of_directory(const std::string &directory);
FileSource files_in_memory(const std::map<std::string, std::string> &files);

// After a fault the rest of that pair of files is left unread, since its records are out of step.
Resources read_resources(const FileSource &source);
