#include "menu/menu_keys.h"

#include <algorithm>

#include "common/text.h"
#include "core/item_value.h"
#include "core/layout.h"
#include "menu/menu_model.h"
#include "osd_menu_post.h"
#include "rules/rule_table.h"

using enum KeyType;

static const Menu model;
static const Display &screen = model.display;
static constexpr auto number_text = [](int value) { return std::to_string(value); };
static constexpr auto times_burst = [](int value) { return std::to_string(value) + " times burst"; };
static constexpr layout_metrics base_metrics = layout_metrics_of(0, 1);
static const std::string name_limit = "at most " + std::to_string(MAX_TEXT) + " bytes";
static const std::string first_symbol = std::to_string(SYMBOLS_OF_MENU);
static constexpr std::nullopt_t required = std::nullopt;
static constexpr Limits any, one_or_more{1}, view_side{16, MAX_PICTURE_SIDE};
// As much as the library takes, with a terminator behind each text.
static constexpr Limits accessory_name{.high = sizeof kz73_name - 1}, free_text{.high = FREE_TEXT_LENGTH - 1};
static constexpr Limits more_symbols{.high = SYMBOLS_IN_FILE - SYMBOLS_OF_MENU};

// Defaults that are plain values come from the model.
static const Key keys[] = {
    {"menu", "items", mappings, one_or_more, "", required, "Rows of the top list", "item"},
    {"menu", "source_language", text, any, "", model.source_language, "Code of the language of the texts in this file"},
    {"menu", "languages", mappings, one_or_more, "", "the source language", "Each a directory of the result",
     "language"},
    {"menu", "fonts", mappings, one_or_more, "", "DejaVu Sans", "First choice first; no others are used", "font"},
    {"menu", "display", mapping, any, "", "its defaults", "What the menu is painted on, and how large", "display"},
    {"menu", "colours", mapping, any, "", "its defaults", "Colours of the menu's parts", "colours"},
    {"menu", "symbols", mapping, any, "", "triangles", "Marks that pages and help lines paint", "symbols"},
    {"menu", "help_lines", mappings, any, "", "none", "Named select, change, enter, menu and menu0", "line"},
    {"menu", "bubbles", mappings, any, "", "none", "Messages that the host shows by their names", "line"},
    {"menu", "accessory", plain_text, accessory_name, "bytes", "none", "Name of an accessory, for previews"},
    {"menu", "device_directory", text, any, "", model.device_directory, "Where the device keeps the languages"},
    {"menu", "check", mapping, any, "", "none", "How findings count in this menu", "check"},

    {"item", "name", text, any, "", required, "By which the host knows it, unlike any other; " + name_limit},
    {"item", "text", text, any, "", "its name, blanks for _ and -, with a capital", "What people read"},
    {"item", "enabled", flag, any, "", "true", "Whether the row is there before the host asks for it"},
    {"item", "muted", flag, any, "", "false", "Whether it is painted as something to read, not to choose"},
    {"item", "choices", texts, one_or_more, "", "none", "Texts that its value is one of; quote Off and On"},
    {"item", "value", text, any, "", "the first of its choices", "The choice that it starts with"},
    {"item", "number", mapping, any, "", "none", "Its value is a number", "limits"},
    {"item", "percentage", mapping, any, "", "none", "Its value is a number with a percent sign", "limits"},
    {"item", "free_text", plain_text, free_text, "bytes", "none", "Its value is a text that the host replaces"},
    {"item", "items", mappings, any, "", "none", "Rows of its own page; four levels are the most", "item"},

    {"limits", "low", number, any, "", number_text(STANDARD_LIMITS.lowlimit), "Smallest value"},
    {"limits", "high", number, any, "", number_text(STANDARD_LIMITS.highlimit), "Largest value"},
    {"limits", "step", number, one_or_more, "", number_text(STANDARD_LIMITS.step), "Change of one key press"},
    {"limits", "value", number, any, "", "the smallest value", "The value that it starts with"},

    {"language", "code", text, any, "", required, "Such as de or zh_CN; the translations are po/CODE.po"},
    {"language", "fonts", mappings, one_or_more, "", "the menu's", "Font families, first choice first", "font"},

    {"font", "family", text, any, "", required, "Name of the family"},
    {"font", "package", text, any, "", required, "Debian package of the family, told to those who lack it"},
    {"font", "scripts", texts, any, "", "all alike", "Scripts that it goes first for: ISO 15924 codes such as Arab"},
    {"font", "percent", number, {20, 200}, "percent", number_text(Font().percent), "Size of letters in these scripts"},

    {"display", "burst", number, {1, 8}, "", number_text(screen.burst), "Scale of the device's layout"},
    {"display", "font_size", number, {8, 400}, "pixels at burst 1", number_text(screen.font_size), "Height of a line"},
    {"display", "width", number, view_side, "pixels", times_burst(base_metrics.viewarea_width), "Width of the view"},
    {"display", "height", number, view_side, "pixels", times_burst(base_metrics.viewarea_height), "Height of the view"},
    {"display", "help_percent", number, {20, 100}, "percent", number_text(screen.help_percent), "Size of help lines"},
    {"display", "outline", number, {0, 32}, "pixels", number_text(screen.outline), "Line around letters"},
    {"display", "pixel_format", word, any, "", pixel_format_name(screen.pixel_format), "Of the view", "formats"},

    {"colours", "background", colour, any, "", colour_text(model.colours.background),
     "Behind all text; edges blend with it"},
    {"colours", "text", colour, any, "", colour_text(model.colours.text), "Rows"},
    {"colours", "title", colour, any, "", colour_text(model.colours.title), "Rows with \"title\" in their name"},
    {"colours", "value", colour, any, "", colour_text(model.colours.value), "Values of rows"},
    {"colours", "disabled", colour, any, "", colour_text(model.colours.disabled), "Muted rows"},
    {"colours", "outline", colour, any, "", colour_text(model.colours.outline), "The line around letters"},
    {"colours", "help", colour, any, "", colour_text(model.colours.help), "Help lines"},
    {"colours", "pointer", colour, any, "", colour_text(model.colours.pointer), "The mark at the current row"},
    {"colours", "bubble", colour, any, "", colour_text(model.colours.bubble), "Bubbles"},

    {"symbols", "up", text, any, "", "a triangle", "Mark of rows above"},
    {"symbols", "pointer", text, any, "", "a triangle", "Mark of the current row, and of the key to the right"},
    {"symbols", "down", text, any, "", "a triangle", "Mark of rows below"},
    {"symbols", "left", text, any, "", "a triangle", "Mark of the key to the left"},
    {"symbols", "more", texts, more_symbols, "", "none", "Symbols of the host, from index " + first_symbol + " on"},

    {"line", "name", text, any, "", required, "By which the library or the host knows it; " + name_limit},
    {"line", "text", text, any, "", required, "What people read"},
    {"line", "level", number, any, "", "0", "A word for the host, in bubbles"},
    {"line", "indent", number, {0, MAX_PICTURE_SIDE}, "pixels", "0", "Blank room in front of the text"},

    {"check", "severity", mapping, any, "", "none", "Severities that differ from the rules' own", "severity"},
    {"check", "suppress", mappings, any, "", "none", "Findings that are known and accepted", "suppression"},

    {"suppression", "rule", word, any, "", required, "The rule that it is about", "rules"},
    {"suppression", "item", text, any, "", "all", "Name of the item or line"},
    {"suppression", "language", text, any, "", "all", "Code of the language"},
    {"suppression", "reason", text, any, "", required, "Why, for those who read the menu later"},
};

static const KeyTable mapping_kinds[] = {
    {"menu", "a menu", "The whole file.", ""},
    {"item", "an item", "A row, with at most one of choices, number, percentage and free_text.", ""},
    {"limits", "a number or percentage", "Limits of a value; {} takes all defaults.", ""},
    {"language", "a language", "A bare code stands for a language without fonts of its own.", "code"},
    {"font", "a font", "A family of fonts.", ""},
    {"display", "the display", "The view that the menu is painted on.", ""},
    {"colours", "the list of colours", "Each \"#rrggbb\" or \"#rrggbbaa\", in quotes; alpha 00 is transparent.", ""},
    {"symbols", "the list of symbols", "Texts in place of the triangles, and more symbols.", ""},
    {"line", "a line", "A help line or a bubble.", ""},
    {"check", "the entry 'check'", "What the designer makes of the rules' findings.", ""},
    {"severity", "the list of changeable rules", "Rules, and how much their findings count.", ""},
    {"suppression", "a suppression", "Findings that are not told. One that meets nothing is a finding itself.", ""},
};

// Only the rules that a menu may change.
static std::vector<Key> severity_keys()
{
    std::vector<Key> result;
    for (const Rule &rule : all_rules())
        if (!rule.is_fixed)
            result.push_back(
                {"severity", rule.name, word, any, "", severity_name(rule.severity), rule.summary, "severities"});
    return result;
}

std::string Limits::text() const
{
    const std::string lowest = std::to_string(low), highest = std::to_string(high);
    if (low == INT_MIN)
        return high == INT_MAX ? "" : "at most " + highest;
    return high == INT_MAX ? "at least " + lowest : "from " + lowest + " to " + highest;
}

std::vector<std::string> Key::words() const
{
    std::vector<std::string> result;
    if (of == "rules")
        for (const Key &rule : key_table("severity").keys)
            result.push_back(rule.name);
    if (of == "severities")
        for (Severity severity : SEVERITIES)
            result.emplace_back(severity_name(severity));
    if (of == "formats")
        for (unsigned int code = 0; !pixel_format_name(PixelFormat(code)).empty(); code++)
            result.push_back(pixel_format_name(PixelFormat(code)));
    return result;
}

const Key *KeyTable::find(const std::string &name_of_key) const
{
    auto found = std::find_if(keys.begin(), keys.end(), [&](const Key &key) { return key.name == name_of_key; });
    return found == keys.end() ? nullptr : &*found;
}

const std::vector<KeyTable> &all_key_tables()
{
    static const std::vector<KeyTable> all = [] {
        std::vector<KeyTable> tables(std::begin(mapping_kinds), std::end(mapping_kinds));
        std::vector<Key> rows = severity_keys();
        rows.insert(rows.end(), std::begin(keys), std::end(keys));
        for (KeyTable &table : tables)
            std::copy_if(rows.begin(), rows.end(), std::back_inserter(table.keys),
                         [&](const Key &key) { return key.mapping == table.name; });
        return tables;
    }();
    return all;
}

const KeyTable &key_table(const std::string &name)
{
    const std::vector<KeyTable> &tables = all_key_tables();
    return *std::find_if(tables.begin(), tables.end(), [&](const KeyTable &table) { return table.name == name; });
}

const Key &display_key(const std::string &name)
{
    return *key_table("display").find(name);
}
