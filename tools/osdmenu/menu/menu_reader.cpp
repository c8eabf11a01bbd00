#include "menu/menu_reader.h"

#include "common/text.h"
#include "menu/yaml.h"

static constexpr int MAX_VIEW_SIDE = 8192; // pixels: far above any output, far below what would not fit in memory
static constexpr int MAX_BURST = 8;
static constexpr int MAX_FONT_SIZE = 400;

// Leaves the result alone where the entry is missing or wrong.
static void read_number(Yaml &yaml, const YAML::Node &map, const char *key, int low, int high, int &result)
{
    if (!map[key])
        return;
    std::optional<int> value = yaml.number(map[key], key);
    if (value && (*value < low || *value > high))
        yaml.findings.error(yaml.place(map[key]), in_quotes(key) + " must be between " + std::to_string(low) + " and " +
                                                      std::to_string(high) + " (found " + std::to_string(*value) + ")");
    else if (value)
        result = *value;
}

static void read_flag(Yaml &yaml, const YAML::Node &map, const char *key, bool &result)
{
    if (map[key] && !(map[key].IsScalar() && YAML::convert<bool>::decode(map[key], result)))
        yaml.findings.error(yaml.place(map[key]), in_quotes(key) + " must be true or false");
}

// Empty texts have no picture, and a help line without one would end the device's load.
static Text read_text(Yaml &yaml, const YAML::Node &node, const std::string &what)
{
    Text result{{}, yaml.place(node)};
    result.words = yaml.text(node, what).value_or("");
    if (node.IsScalar() && node.Scalar().empty())
        yaml.findings.error(result.place, in_quotes(what) + " must not be empty");
    return result;
}

static void read_display(Yaml &yaml, const YAML::Node &node, Display &display)
{
    if (!yaml.check_keys(node, "the display",
                         {"burst", "font_size", "width", "height", "help_percent", "pixel_format"}))
        return;
    read_number(yaml, node, "burst", 1, MAX_BURST, display.burst);
    read_number(yaml, node, "font_size", 8, MAX_FONT_SIZE, display.font_size);
    read_number(yaml, node, "width", 16, MAX_VIEW_SIDE, display.width);
    read_number(yaml, node, "height", 16, MAX_VIEW_SIDE, display.height);
    read_number(yaml, node, "help_percent", 20, 100, display.help_percent);
    if (!node["pixel_format"])
        return;
    std::string name = yaml.text(node["pixel_format"], "pixel_format").value_or("");
    if (std::optional<PixelFormat> format = parse_pixel_format(name))
        display.pixel_format = *format;
    else
        yaml.findings.error(yaml.place(node["pixel_format"]), "no pixel format " + in_quotes(name),
                            "known are: ARGB1555, RGB565");
}

static void read_colours(Yaml &yaml, const YAML::Node &node, Colours &colours)
{
    if (!yaml.check_keys(node, "the colours",
                         {"background", "text", "title", "value", "disabled", "outline", "help", "pointer", "bubble"}))
        return;
    const std::pair<const char *, Colour *> members[] = {
        {"background", &colours.background},
        {"text", &colours.text},
        {"title", &colours.title},
        {"value", &colours.value},
        {"disabled", &colours.disabled},
        {"outline", &colours.outline},
        {"help", &colours.help},
        {"pointer", &colours.pointer},
        {"bubble", &colours.bubble},
    };
    for (const auto &[key, colour] : members)
        if (node[key])
            *colour = yaml.colour(node[key], key).value_or(*colour);
}

// The package is asked for so that a machine without the font can be told what to install.
static std::vector<Font> read_fonts(Yaml &yaml, const YAML::Node &node)
{
    std::vector<Font> fonts;
    yaml.each(node, "fonts", [&](const YAML::Node &entry) {
        if (!yaml.check_keys(entry, "a font", {"family", "package"}))
            return;
        Font font;
        font.place = yaml.place(entry);
        if (const YAML::Node family = yaml.required(entry, "family", "a font"))
            font.family = yaml.text(family, "family").value_or("");
        if (const YAML::Node package = yaml.required(entry, "package", "a font"))
            font.package = yaml.text(package, "package").value_or("");
        fonts.push_back(font);
    });
    return fonts;
}

// The code becomes a directory's name.
static bool is_language_code(const std::string &code)
{
    return !code.empty() &&
           code.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_-0123456789@") == code.npos;
}

// A plain code, or a mapping where a language brings its own fonts.
static void read_languages(Yaml &yaml, const YAML::Node &node, std::vector<Language> &languages)
{
    yaml.each(node, "languages", [&](const YAML::Node &entry) {
        Language language{{}, {}, yaml.place(entry)};
        if (entry.IsMap() && yaml.check_keys(entry, "a language", {"code", "fonts"})) {
            if (const YAML::Node code = yaml.required(entry, "code", "a language"))
                language.code = yaml.text(code, "code").value_or("");
            if (entry["fonts"])
                language.fonts = read_fonts(yaml, entry["fonts"]);
        } else {
            language.code = yaml.text(entry, "languages").value_or("");
        }
        if (!is_language_code(language.code))
            yaml.findings.error(language.place, "no language code " + in_quotes(language.code), "such as en or zh_CN");
        languages.push_back(language);
    });
}

// A number or a percentage: its limits, its step and what it starts with.
static void read_limits(Yaml &yaml, const YAML::Node &node, const std::string &what, osdmenu_item_value_number &number)
{
    if (!yaml.check_keys(node, what, {"low", "high", "step", "value"}))
        return;
    int low = 0, high = 100, step = 1;
    if (const YAML::Node entry = yaml.required(node, "low", what))
        low = yaml.number(entry, "low").value_or(low);
    if (const YAML::Node entry = yaml.required(node, "high", what))
        high = yaml.number(entry, "high").value_or(high);
    if (node["step"])
        step = yaml.number(node["step"], "step").value_or(step);
    if (low > high)
        yaml.findings.error(yaml.place(node["high"] ? node["high"] : node), "'high' must not be below 'low' (found " +
                                                                                std::to_string(high) + " and " +
                                                                                std::to_string(low) + ")");
    if (step <= 0)
        yaml.findings.error(yaml.place(node["step"]), "'step' must be above 0 (found " + std::to_string(step) + ")");
    number = {high, low, low, step};
    if (low <= high)
        read_number(yaml, node, "value", low, high, number.current);
}

// The starting value is given by its words, which survive a change of the order.
static void read_choices(Yaml &yaml, const YAML::Node &node, Item &item)
{
    item.value_type = VALUE_TXT;
    yaml.each(node["choices"], "choices",
              [&](const YAML::Node &entry) { item.choices.push_back(read_text(yaml, entry, "choices")); });
    if (item.choices.empty())
        yaml.findings.error(yaml.place(node["choices"]), "'choices' must not be empty");
    if (!node["value"])
        return;
    std::string chosen = yaml.text(node["value"], "value").value_or("");
    std::vector<std::string> all;
    for (const Text &choice : item.choices) {
        if (choice.words == chosen)
            item.current = static_cast<int>(all.size());
        all.push_back(choice.words);
    }
    if (item.choices.empty() || item.choices[static_cast<size_t>(item.current)].words != chosen)
        yaml.findings.error(yaml.place(node["value"]), in_quotes(chosen) + " is none of the choices",
                            "they are: " + joined(all, ", "));
}

// The device sets it from single glyphs, and copies it into the block of its only choice.
static void read_free_text(Yaml &yaml, const YAML::Node &node, Item &item)
{
    static constexpr size_t MAX_FREE_TEXT = 63; // bytes the device takes over at run time
    Text text = read_text(yaml, node, "free_text");
    item.value_type = VALUE_TXT;
    item.free_text = true;
    item.choices = {text};
    if (text.words.size() > MAX_FREE_TEXT)
        yaml.findings.error(text.place, "a free text holds at most 63 bytes");
    if (std::optional<std::string> character = character_without_glyph(text.words))
        yaml.findings.error(text.place, "the device has no glyph for " + in_quotes(*character) + " in a free text");
}

// Which kind of value an item has shows in the entry that it brings.
static void read_value(Yaml &yaml, const YAML::Node &node, Item &item)
{
    int kinds = 0;
    for (const char *kind : {"choices", "number", "percentage", "free_text"})
        kinds += node[kind] ? 1 : 0;
    if (kinds > 1)
        yaml.findings.error(item.place, in_quotes(item.name) + " has more than one kind of value");
    if (node["value"] && !node["choices"])
        yaml.findings.error(yaml.place(node["value"]), "'value' here belongs to 'choices'",
                            "that of a number stands inside 'number' or 'percentage'");
    if (node["choices"]) {
        read_choices(yaml, node, item);
    } else if (node["free_text"]) {
        read_free_text(yaml, node["free_text"], item);
    } else if (node["number"]) {
        item.value_type = VALUE_NUMBER;
        read_limits(yaml, node["number"], "a number", item.number);
    } else if (node["percentage"]) {
        item.value_type = VALUE_PERCENTAGE;
        read_limits(yaml, node["percentage"], "a percentage", item.number);
    }
}

static void read_items(Yaml &yaml, const YAML::Node &node, int depth, std::vector<Item> &items);

// Findings about an item as a whole stand at its name, the one word that is its own.
static Item read_item(Yaml &yaml, const YAML::Node &node, int depth)
{
    Item item;
    item.place = yaml.place(node);
    if (!yaml.check_keys(
            node, "an item",
            {"name", "text", "enabled", "muted", "choices", "number", "percentage", "free_text", "value", "items"}))
        return item;
    if (const YAML::Node name = yaml.required(node, "name", "an item")) {
        item.place = yaml.place(name);
        item.name = yaml.text(name, "name").value_or("");
    }
    if (const YAML::Node text = yaml.required(node, "text", "an item"))
        item.text = read_text(yaml, text, "text");
    read_flag(yaml, node, "enabled", item.enabled);
    read_flag(yaml, node, "muted", item.muted);
    read_value(yaml, node, item);
    if (node["items"])
        read_items(yaml, node["items"], depth + 1, item.items);
    return item;
}

static void read_items(Yaml &yaml, const YAML::Node &node, int depth, std::vector<Item> &items)
{
    if (depth > 3) {
        yaml.findings.error(yaml.place(node), "a menu has four levels, this would be a fifth");
        return;
    }
    yaml.each(node, "items", [&](const YAML::Node &entry) { items.push_back(read_item(yaml, entry, depth)); });
}

// Help lines and bubbles are written alike.
static void read_lines(Yaml &yaml, const YAML::Node &node, const std::string &what, std::vector<Line> &lines)
{
    yaml.each(node, what, [&](const YAML::Node &entry) {
        if (!yaml.check_keys(entry, "a line", {"name", "text", "level", "indent"}))
            return;
        Line line;
        line.place = yaml.place(entry);
        if (const YAML::Node name = yaml.required(entry, "name", "a line")) {
            line.place = yaml.place(name);
            line.name = yaml.text(name, "name").value_or("");
        }
        if (const YAML::Node text = yaml.required(entry, "text", "a line"))
            line.text = read_text(yaml, text, "text");
        if (entry["level"])
            line.level = yaml.number(entry["level"], "level").value_or(0);
        read_number(yaml, entry, "indent", 0, MAX_VIEW_SIDE, line.indent);
        lines.push_back(line);
    });
}

static void read_strings(Yaml &yaml, const YAML::Node &root, Menu &menu)
{
    if (const YAML::Node node = yaml.required(root, "device_directory", "a menu")) {
        menu.device_directory = yaml.text(node, "device_directory").value_or("");
        if (!menu.device_directory.ends_with('/'))
            menu.device_directory += '/';
    }
    if (root["source_language"])
        menu.source_language = yaml.text(root["source_language"], "source_language").value_or("");
    if (!root["accessory"])
        return;
    static constexpr size_t MAX_ACCESSORY = 31; // bytes of kz73_name
    menu.accessory = yaml.text(root["accessory"], "accessory").value_or("");
    if (menu.accessory.size() > MAX_ACCESSORY || character_without_glyph(menu.accessory))
        yaml.findings.error(yaml.place(root["accessory"]), "'accessory' takes at most 31 plain characters");
}

Menu read_menu(const std::string &path, Findings &findings)
{
    Menu menu;
    menu.path = path;
    Yaml yaml(path, findings);
    YAML::Node root = yaml.root();
    if (findings.has_rule("unreadable") ||
        !yaml.check_keys(root, "a menu",
                         {"device_directory", "source_language", "languages", "accessory", "display", "colours",
                          "fonts", "items", "help_lines", "bubbles"}))
        return menu;
    read_strings(yaml, root, menu);
    if (const YAML::Node node = yaml.required(root, "languages", "a menu"))
        read_languages(yaml, node, menu.languages);
    if (const YAML::Node node = yaml.required(root, "fonts", "a menu"))
        menu.fonts = read_fonts(yaml, node);
    if (root["display"])
        read_display(yaml, root["display"], menu.display);
    if (root["colours"])
        read_colours(yaml, root["colours"], menu.colours);
    if (const YAML::Node node = yaml.required(root, "items", "a menu"))
        read_items(yaml, node, 0, menu.items);
    if (root["help_lines"])
        read_lines(yaml, root["help_lines"], "help_lines", menu.help_lines);
    if (root["bubbles"])
        read_lines(yaml, root["bubbles"], "bubbles", menu.bubbles);
    return menu;
}
