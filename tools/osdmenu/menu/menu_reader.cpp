#include "menu/menu_reader.h"

#include <algorithm>
#include <filesystem>

#include <glib.h>

#include "common/text.h"
#include "core/state.h"
#include "menu/yaml.h"

static void read_display(const Mapping &map, Display &display)
{
    map.read("burst", display.burst);
    map.read("font_size", display.font_size);
    map.read("width", display.width);
    map.read("height", display.height);
    map.read("help_percent", display.help_percent);
    map.read("outline", display.outline);
    std::string format = pixel_format_name(display.pixel_format);
    map.read("pixel_format", format);
    display.pixel_format = *parse_pixel_format(format);
}

static void read_colours(const Mapping &map, Colours &colours)
{
    map.read("background", colours.background);
    map.read("text", colours.text);
    map.read("title", colours.title);
    map.read("value", colours.value);
    map.read("disabled", colours.disabled);
    map.read("outline", colours.outline);
    map.read("help", colours.help);
    map.read("pointer", colours.pointer);
    map.read("bubble", colours.bubble);
}

// Four letters. Codes that stand for several scripts, such as Jpan, are of no use: each letter has one script.
static bool is_script(const std::string &code)
{
    guint32 number = 0;
    for (char letter : code)
        number = number << 8 | static_cast<unsigned char>(letter);
    GUnicodeScript script = g_unicode_script_from_iso15924(number);
    return code.size() == 4 && script != G_UNICODE_SCRIPT_UNKNOWN && script != G_UNICODE_SCRIPT_INVALID_CODE;
}

// The package is asked for so that a machine without the font can be told what to install.
static std::vector<Font> read_fonts(const Mapping &map)
{
    std::vector<Font> fonts;
    for (const Mapping &entry : map.list("fonts")) {
        Font font;
        font.place = entry.place();
        entry.read("family", font.family);
        entry.read("package", font.package);
        entry.read("percent", font.percent);
        std::vector<Text> scripts;
        entry.read("scripts", scripts);
        for (const Text &script : scripts) {
            if (!is_script(script.words))
                entry.error("scripts", "no script " + in_quotes(script.words), "such as Arab, Hang or Hira");
            font.scripts.push_back(script.words);
        }
        fonts.push_back(font);
    }
    return fonts;
}

// The code becomes a directory's name.
static bool check_code(const Mapping &map, const std::string &key, const std::string &code)
{
    static constexpr char LETTERS[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_-0123456789@";
    bool is_code = !code.empty() && code.find_first_not_of(LETTERS) == code.npos;
    if (!is_code)
        map.error(key, "no language code " + in_quotes(code), "such as en or zh_CN");
    return is_code;
}

static std::vector<Language> read_languages(const Mapping &map, const std::string &source_language)
{
    std::vector<Language> languages;
    if (!map.has("languages"))
        languages.push_back({source_language, {}, map.place()});
    for (const Mapping &entry : map.list("languages")) {
        Language language{{}, read_fonts(entry), entry.place()};
        entry.read("code", language.code);
        if (check_code(entry, "code", language.code))
            languages.push_back(language);
    }
    return languages;
}

static void read_limits(const Mapping &map, osdmenu_item_value_number &number)
{
    number = STANDARD_LIMITS;
    map.read("low", number.lowlimit);
    map.read("high", number.highlimit);
    map.read("step", number.step);
    number.current = number.lowlimit;
    map.read("value", number.current);
    std::string range = std::to_string(number.lowlimit) + " and " + std::to_string(number.highlimit);
    if (number.lowlimit > number.highlimit)
        map.error("high", "'low' must not be above 'high' (found " + range + ")");
    else if (number.current < number.lowlimit || number.current > number.highlimit)
        map.error("value", "'value' must be between " + range + " (found " + std::to_string(number.current) + ")");
}

// The starting value is given by its words, which survive a change of the order.
static void read_choices(const Mapping &map, Item &item)
{
    map.read("choices", item.choices);
    std::string chosen = item.choices.empty() ? "" : item.choices.front().words;
    map.read("value", chosen);
    std::vector<std::string> all;
    for (const Text &choice : item.choices)
        all.push_back(choice.words);
    auto found = std::find(all.begin(), all.end(), chosen);
    if (found != all.end())
        item.current = static_cast<int>(found - all.begin());
    else if (!all.empty())
        map.error("value", in_quotes(chosen) + " is none of the choices", "they are: " + joined(all, ", "));
}

// Which kind of value an item has shows in the entry that it brings.
static void read_value(const Mapping &map, Item &item)
{
    static constexpr std::pair<const char *, unsigned int> kinds[] = {
        {"choices", VALUE_TXT}, {"free_text", VALUE_TXT}, {"number", VALUE_NUMBER}, {"percentage", VALUE_PERCENTAGE}};
    std::string kind;
    for (const auto &[key, type] : kinds) {
        if (!map.has(key))
            continue;
        if (!kind.empty())
            map.error("name", in_quotes(item.name) + " has more than one kind of value");
        kind = key;
        item.value_type = type;
        item.free_text = kind == "free_text";
    }
    if (map.has("value") && kind != "choices")
        map.error("value", "'value' here belongs to 'choices'",
                  "that of a number stands inside 'number' or 'percentage'");
    if (kind == "choices")
        read_choices(map, item);
    else if (kind == "free_text")
        map.read(kind, item.choices.emplace_back());
    else if (!kind.empty())
        read_limits(map.inner(kind), item.number);
}

// Findings about an item or a line as a whole stand at its name, the one word that is its own. Without one it gets a
// stand-in, so that the rules about names stay silent.
static void read_name(const Mapping &map, std::string &name, Place &place)
{
    place = map.place("name");
    name = "(line " + std::to_string(place.line) + ", column " + std::to_string(place.column) + ")";
    map.read("name", name);
}

static Text text_of_name(const std::string &name, const Place &place)
{
    Text text{name, place};
    std::replace(text.words.begin(), text.words.end(), '_', ' ');
    std::replace(text.words.begin(), text.words.end(), '-', ' ');
    text.words.front() = g_ascii_toupper(text.words.front());
    return text;
}

static std::vector<Item> read_items(const Mapping &map, int depth)
{
    std::vector<Item> items;
    if (depth >= MENU_LEVELS && map.has("items")) {
        map.error("items", "a menu has four levels, this would be a fifth");
        return items;
    }
    for (const Mapping &entry : map.list("items")) {
        Item item;
        read_name(entry, item.name, item.place);
        item.text = text_of_name(item.name, item.place);
        entry.read("text", item.text);
        entry.read("enabled", item.enabled);
        entry.read("muted", item.muted);
        read_value(entry, item);
        item.items = read_items(entry, depth + 1);
        items.push_back(std::move(item));
    }
    return items;
}

// Help lines and bubbles are written alike.
static void read_lines(const Mapping &map, const std::string &key, std::vector<Line> &lines)
{
    for (const Mapping &entry : map.list(key)) {
        Line line;
        read_name(entry, line.name, line.place);
        entry.read("text", line.text);
        entry.read("level", line.level);
        entry.read("indent", line.indent);
        lines.push_back(line);
    }
}

static void read_symbols(const Mapping &map, Symbols &symbols)
{
    static constexpr std::pair<const char *, size_t> marks[] = {
        {"up", SYMBOL_UP}, {"pointer", SYMBOL_POINTER}, {"down", SYMBOL_DOWN}, {"left", SYMBOL_LEFT}};
    for (const auto &[key, symbol] : marks)
        map.read(key, symbols.marks[symbol]);
    map.read("more", symbols.more);
}

static void read_check(const Mapping &map, CheckSettings &check)
{
    const Mapping severities = map.inner("severity");
    for (const Key &rule : key_table("severity").keys) {
        std::string chosen;
        severities.read(rule.name, chosen);
        for (Severity severity : SEVERITIES)
            if (chosen == severity_name(severity))
                check.severities.push_back({rule.name, severity});
    }
    for (const Mapping &entry : map.list("suppress")) {
        Suppression suppression{entry.place(), {}, {}, {}, {}};
        entry.read("rule", suppression.rule);
        entry.read("item", suppression.subject);
        entry.read("language", suppression.language);
        entry.read("reason", suppression.reason);
        if (!suppression.rule.empty())
            check.suppressions.push_back(suppression);
    }
}

Menu read_menu_text(const std::string &path, const std::string &content, Findings &findings)
{
    Menu menu;
    menu.path = path;
    std::optional<YAML::Node> root = parse_yaml(path, content, findings);
    if (!root)
        return menu;
    Mapping map(path, *root, "menu", findings);
    map.read("accessory", menu.accessory);
    map.read("device_directory", menu.device_directory);
    if (!menu.device_directory.ends_with('/'))
        menu.device_directory += '/';
    map.read("source_language", menu.source_language);
    check_code(map, "source_language", menu.source_language);
    menu.languages = read_languages(map, menu.source_language);
    menu.fonts = read_fonts(map);
    if (!map.has("fonts"))
        menu.fonts = {{"DejaVu Sans", "fonts-dejavu-core", {path}, {}}};
    read_display(map.inner("display"), menu.display);
    read_colours(map.inner("colours"), menu.colours);
    menu.items = read_items(map, 0);
    read_symbols(map.inner("symbols"), menu.symbols);
    read_lines(map, "help_lines", menu.help_lines);
    read_lines(map, "bubbles", menu.bubbles);
    read_check(map.inner("check"), menu.check);
    return menu;
}

Menu read_menu(const std::string &path, Findings &findings)
{
    static constexpr uintmax_t MAX_FILE = 1 << 20; // bytes
    std::error_code error;
    bool is_too_large = std::filesystem::file_size(path, error) > MAX_FILE && !error;
    std::optional<std::string> content = error || is_too_large ? std::nullopt : read_file(path);
    if (content)
        return read_menu_text(path, *content, findings);
    std::string reason = error ? ": " + error.message() : is_too_large ? ": it is larger than 1 MiB" : "";
    findings.add({Place{path}, "unreadable", "cannot be read" + reason});
    return {};
}
