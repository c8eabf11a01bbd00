// A menu as its designer wrote it, each part with its place in the file.
#pragma once

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/fixed_items.h"
#include "osd_menu.h"
#include "render/pixels.h"
#include "resources/glyph_banks.h"
#include "rules/findings.h"

struct Text {
    std::string words; // in the source language
    Place place;
};

struct Font {
    std::string family;
    std::string package; // the Debian package that holds it
    Place place;
    std::vector<std::string> scripts; // it serves, as ISO 15924 codes such as Arab; empty for all
    int percent = 100;                // size of its letters, of the text's size
};

struct Language {
    std::string code;
    std::vector<Font> fonts; // in place of the menu's own, for a script that needs other faces
    Place place;
};

struct Display {
    int burst = 2;
    int font_size = 30; // base size of the text, as osdmenu_fontsize_init2 takes it
    int width = 0;      // of the view; 0 means what burst gives
    int height = 0;
    int help_percent = 100; // size of the help lines' text, of that of the rows
    int outline = 0;        // pixels around each letter, at every burst
    PixelFormat pixel_format = PixelFormat::argb1555;
};

struct Colours {
    Colour background{0x10, 0x18, 0x28, 255};
    Colour text{0xf0, 0xf4, 0xfa, 255};
    Colour title{0xff, 0xb4, 0x54, 255};
    Colour value{0x7f, 0xd1, 0xff, 255};
    Colour disabled{0x9a, 0xa8, 0xbc, 255}; // of muted rows
    Colour outline{0x00, 0x00, 0x00, 255};
    Colour help{0x9a, 0xa8, 0xbc, 255};
    Colour pointer{0xff, 0xb4, 0x54, 255};
    Colour bubble{0xf0, 0xf4, 0xfa, 255};
};

// Of a number or percentage: high, low, current, step.
inline constexpr osdmenu_item_value_number STANDARD_LIMITS{100, 0, 0, 1};

struct Item {
    std::string name;
    Place place;
    Text text;
    bool enabled = true;
    bool muted = false;     // painted as something to read, not to choose
    bool free_text = false; // a single choice whose text the host replaces at run time
    unsigned int value_type = VALUE_NONE;
    int current = 0; // of a choice its index
    std::vector<Text> choices;
    osdmenu_item_value_number number = STANDARD_LIMITS;
    std::vector<Item> items; // its own page

    bool is_title() const
    {
        return ::is_title(name.c_str());
    }
};

struct Line {
    std::string name;
    Place place;
    Text text;
    int level = 0;  // bubbles only: a word for the host
    int indent = 0; // blank pixels in front of the text
};

// Where a text of the menu stands.
enum class TextKind { row_text, choice, help_line, bubble };

struct Symbols {
    std::array<Text, SYMBOLS_OF_MENU> marks; // by SYMBOL_...; without words a triangle is drawn
    std::vector<Text> more;                  // the host's, behind them
};

struct Menu {
    std::string path;
    std::string device_directory = "/usr/share/osd_menu/";
    std::string accessory;
    std::string source_language = "en";
    std::vector<Language> languages;
    Display display;
    Colours colours;
    std::vector<Font> fonts;
    std::vector<Item> items;
    Symbols symbols;
    std::vector<Line> help_lines;
    std::vector<Line> bubbles;
    CheckSettings check;
};
