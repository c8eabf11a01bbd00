#include "menu/configuration.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "common/text.h"

// Layouts of the help block are numbered from 0.
static constexpr int HELP_LAYOUTS = 18;

// Keys whose text names an item at which UP or DOWN behave specially.
static constexpr const char *anchors[] = {
    "information_last_item", "peripheralinformation_title",
    "peripheral_last_item",  "get_ip_first_item",
    "get_ip_last_item",      "menu_first_item",
    "menu_last_item",        "peripheralinformation_item",
    "language_item",         "general_last_item",
};

// Keys keep the order in which they were added, so the text is the same on every run.
std::string json_text(const cJSON *json)
{
    char *text = cJSON_Print(json);
    std::string result = std::string(text ? text : "") + "\n";
    std::free(text);
    return result;
}

namespace
{

// The file while it is checked. cJSON keeps no places, so a finding stands at the first mention of its word.
struct Checked {
    std::string path;
    std::string content;
    const Menu &menu;
    const std::vector<Row> &rows;
    Findings &findings;

    // Columns count bytes, as everywhere in findings.
    Place place_at(size_t offset) const
    {
        offset = std::min(offset, content.size());
        auto lines = std::count(content.begin(), content.begin() + static_cast<std::ptrdiff_t>(offset), '\n');
        size_t start = offset == 0 ? std::string::npos : content.rfind('\n', offset - 1);
        size_t column = start == std::string::npos ? offset : offset - start - 1;
        return {path, static_cast<int>(lines) + 1, static_cast<int>(column) + 1};
    }

    Place place_of(const std::string &word) const
    {
        return place_at(std::min(content.find('"' + word + '"'), content.size()));
    }

    bool is_item(const std::string &name) const
    {
        return std::any_of(rows.begin(), rows.end(), [&](const Row &row) { return row.item->name == name; });
    }
};

} // namespace

// An anchor that names nothing never matches, and UP or DOWN silently lose their jump.
static void check_anchors(const Checked &in, const cJSON *root)
{
    for (const char *key : anchors) {
        const cJSON *entry = cJSON_GetObjectItemCaseSensitive(root, key);
        if (entry && !cJSON_IsString(entry))
            in.findings.error(in.place_of(key), in_quotes(key) + " must be a text");
        else if (entry && !in.is_item(entry->valuestring))
            in.findings.error(in.place_of(key), in_quotes(key) + " names no item: " + in_quotes(entry->valuestring));
    }
}

// A layout beyond the table paints nothing at all.
static void check_help_types(const Checked &in, const cJSON *root)
{
    const cJSON *entry = cJSON_GetObjectItemCaseSensitive(root, "helpline_default");
    if (entry && (!cJSON_IsNumber(entry) || entry->valueint < 0 || entry->valueint >= HELP_LAYOUTS))
        in.findings.error(in.place_of("helpline_default"), "a help layout is a number from 0 to 17");
    const cJSON *types = cJSON_GetObjectItemCaseSensitive(root, "helpline_type");
    cJSON_ArrayForEach(entry, types)
    {
        if (!in.is_item(entry->string))
            in.findings.error(in.place_of(entry->string), "'helpline_type' names no item: " + in_quotes(entry->string));
        if (!cJSON_IsNumber(entry) || entry->valueint < 0 || entry->valueint >= HELP_LAYOUTS)
            in.findings.error(in.place_of(entry->string), "a help layout is a number from 0 to 17");
    }
}

// The library looks columns up by the very text of the directory that it loads from.
static void check_value_columns(const Checked &in, const cJSON *root)
{
    const cJSON *columns = cJSON_GetObjectItemCaseSensitive(root, "value_offset_x");
    const cJSON *language;
    cJSON_ArrayForEach(language, columns)
    {
        std::string directory = language->string;
        auto &known = in.menu.languages;
        if (std::none_of(known.begin(), known.end(),
                         [&](const Language &one) { return in.menu.device_directory + one.code + "/" == directory; }))
            in.findings.error(in.place_of(directory), "no language has the directory " + in_quotes(directory),
                              "'device_directory' of the menu and a language's code make it");
        const cJSON *page;
        cJSON_ArrayForEach(page, language) if (!cJSON_IsNumber(page))
            in.findings.error(in.place_of(page->string), "a value column is a number of pixels");
    }
}

// The background belongs to the menu, which blends the edges of its texts with it.
static void set_background(const Checked &in, cJSON *root)
{
    int word = fill_word(in.menu.display.pixel_format, in.menu.colours.background);
    const cJSON *given = cJSON_GetObjectItemCaseSensitive(root, "default_color");
    if (!given)
        cJSON_AddNumberToObject(root, "default_color", word);
    else if (!cJSON_IsNumber(given) || given->valueint != word)
        in.findings.error(in.place_of("default_color"),
                          "'default_color' differs from the menu's background, " + std::to_string(word),
                          "leave it out: it is added");
}

Configuration::Configuration(const Menu &menu, const std::vector<Row> &rows, Findings &findings)
    : root(cJSON_CreateObject())
{
    std::string path = (std::filesystem::path(menu.path).parent_path() / "osd_menu.json").string();
    std::optional<std::string> content = read_file(path);
    Checked in{path, content.value_or("{}"), menu, rows, findings};
    const char *end = nullptr;
    // Strict: text behind the object is a mistake as well, though the library would let it pass.
    Json parsed(cJSON_ParseWithOpts(in.content.c_str(), &end, true));
    if (!cJSON_IsObject(parsed.get())) {
        size_t offset = end ? static_cast<size_t>(end - in.content.c_str()) : 0;
        findings.error(in.place_at(offset), "no JSON object can be read here");
        return;
    }
    root = std::move(parsed);
    check_anchors(in, root.get());
    check_help_types(in, root.get());
    check_value_columns(in, root.get());
    set_background(in, root.get());
}

// The same three lookups that the library makes at the start of a page.
int Configuration::value_column(const Menu &menu, const std::string &language, const std::string &page,
                                int fallback) const
{
    const cJSON *columns = cJSON_GetObjectItemCaseSensitive(root.get(), "value_offset_x");
    std::string directory = menu.device_directory + language + "/";
    const cJSON *pages = cJSON_GetObjectItemCaseSensitive(columns, directory.c_str());
    const cJSON *column = cJSON_GetObjectItemCaseSensitive(pages, page.c_str());
    return cJSON_IsNumber(column) ? column->valueint : fallback;
}
