// Writes the first inputs of menu_fuzz into a directory: small menus from the tests' builders, then every call in turn
// with arguments of a fixed sequence.
#include <fstream>
#include <random>

#include "support/resources.h"

static std::string lengths_and_files(const std::vector<std::string> &files)
{
    std::string lengths, contents;
    for (const std::string &file : files) {
        lengths += static_cast<char>(file.size() & 0xFF);
        lengths += static_cast<char>(file.size() >> 8);
        contents += file;
    }
    return lengths + contents;
}

static std::string calls_and_arguments(unsigned seed)
{
    std::minstd_rand random(seed);
    std::string bytes;
    for (int i = 0; i < 50; i++)
        bytes += static_cast<char>(i);
    for (int i = 0; i < 800; i++)
        bytes += static_cast<char>(random() >> 8);
    return bytes;
}

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    const Picture picture = {4, 16, 0x31};
    const std::vector<Item> items = {{"camera", {0}, picture},
                                     {"information", {1}, picture},
                                     {"title", {1, 0}, picture},
                                     {"speed", {1, 1}, picture, VALUE_NUMBER, {}, {9, 1, 5, 2}},
                                     {"mode", {1, 2}, picture, VALUE_TXT, {{"on", picture}, {"off", picture}}},
                                     {"zoom", {2}, picture, VALUE_PERCENTAGE, {}, {100, 0, 50, 10}}};
    const std::vector<Line> lines = {{"select", picture}, {"menu", picture}, {"RestarKz73", picture}};
    std::string item_meta, item_data, help_meta, bubble_meta, line_data;
    for (const Item &item : items) {
        item_meta += meta_of(item);
        item_data += data_of(item);
    }
    for (const Line &line : lines) {
        help_meta += meta_of(line, false);
        bubble_meta += meta_of(line, true);
        line_data += data_of(line);
    }
    const std::string symbols = block_of({2, 4, 1}, 4) + block_of({2, 4, 2}, 6);
    const std::string config =
        R"({"helpline_default": 6, "menu_last_item": "zoom", "value_offset_x": {"/res/": {".": 90}}})";
    const std::vector<std::string> files = {"",        symbols,     item_meta, item_data, help_meta,
                                            line_data, bubble_meta, line_data, config};
    for (int flags : {2, 3}) {
        std::ofstream seed(std::string(argv[1]) + "/seed_" + std::to_string(flags), std::ios::binary);
        seed << static_cast<char>(flags) << '\0' << lengths_and_files(files)
             << calls_and_arguments(static_cast<unsigned>(flags));
    }
}
