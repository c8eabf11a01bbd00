#include "menu/configuration.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>

#include "common/text.h"
#include "control/anchors.h"
#include "core/config.h"
#include "page/help_layouts.h"

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

    // Of the last word of a way through the file, each searched behind the one before it.
    Place place_of(const std::vector<std::string> &way) const
    {
        size_t at = 0, from = 0;
        for (const std::string &word : way)
            if (size_t found = content.find('"' + word + '"', from); found != std::string::npos)
                from = (at = found) + 1;
        return place_at(at);
    }

    bool is_item(const std::string &name) const
    {
        return std::any_of(rows.begin(), rows.end(), [&](const Row &row) { return row.item->name == name; });
    }

    void wrong(const std::vector<std::string> &way, const std::string &text, const std::string &cure = {}) const
    {
        findings.add({place_of(way), "configuration", text, cure});
    }

    // An entry that names nothing never matches, and UP or DOWN silently lose their jump.
    void expect_item(const std::vector<std::string> &way) const
    {
        const std::string &name = way.back();
        if (!is_item(name))
            findings.add({place_of(way), "anchor-without-item",
                          in_quotes(way.front()) + " names no item: " + in_quotes(name), "", name});
    }

    void expect_number(const std::vector<std::string> &way, const cJSON *entry, int high,
                       const std::string &words) const
    {
        if (!cJSON_IsNumber(entry) || entry->valueint < 0 || entry->valueint > high)
            wrong(way, in_quotes(way.back()) + " must be " + words);
    }
};

// All that the library reads, and what is looked at when an entry is of the right type.
struct Entry {
    const char *key;
    cJSON_bool (*is_right)(const cJSON *entry);
    const char *type;
    void (*check)(const Checked &in, const cJSON *entry);
};

} // namespace

// One beyond the table paints nothing at all.
static void expect_layout(const Checked &in, const std::vector<std::string> &way, const cJSON *entry)
{
    const int last = HELP_LAYOUTS - 1;
    in.expect_number(way, entry, last, "a help layout, a number from 0 to " + std::to_string(last));
}

static void check_help_layout(const Checked &in, const cJSON *entry)
{
    expect_layout(in, {entry->string}, entry);
}

static void check_help_types(const Checked &in, const cJSON *types)
{
    const cJSON *entry;
    cJSON_ArrayForEach(entry, types)
    {
        in.expect_item({types->string, entry->string});
        expect_layout(in, {types->string, entry->string}, entry);
    }
}

static void check_page_column(const Checked &in, const std::vector<std::string> &way, const cJSON *column)
{
    in.expect_number(way, column, INT_MAX, "a column, a number of pixels");
    auto has_key = [&](const Row &row) { return page_key(in.rows, row) == way.back(); };
    if (std::none_of(in.rows.begin(), in.rows.end(), has_key))
        in.wrong(way, "no page has the key " + in_quotes(way.back()),
                 "'.' is the top list, '.2.1' the page of row 1 on the page of its row 2");
}

// The library looks columns up by the very text of the directory that it loads from.
static void check_value_columns(const Checked &in, const cJSON *columns)
{
    const cJSON *pages, *column;
    cJSON_ArrayForEach(pages, columns)
    {
        std::string directory = pages->string;
        auto is_loaded = [&](const Language &one) { return in.menu.device_directory + one.code + "/" == directory; };
        if (std::none_of(in.menu.languages.begin(), in.menu.languages.end(), is_loaded))
            in.wrong({columns->string, directory}, "no language has the directory " + in_quotes(directory),
                     "'device_directory' of the menu and a language's code make it");
        if (!cJSON_IsObject(pages))
            in.wrong({columns->string, directory}, in_quotes(directory) + " must be an object");
        else
            cJSON_ArrayForEach(column, pages)
                check_page_column(in, {columns->string, directory, column->string}, column);
    }
}

// The background belongs to the menu, which blends the edges of its texts with it.
static void check_background(const Checked &in, const cJSON *entry)
{
    int word = fill_word(in.menu.display.pixel_format, in.menu.colours.background);
    if (entry->valueint != word)
        in.wrong({entry->string},
                 in_quotes(BACKGROUND_KEY) + " differs from the menu's background, " + std::to_string(word),
                 "leave it out: it is added");
}

// At such an item UP or DOWN behave specially.
static void check_anchor(const Checked &in, const cJSON *entry)
{
    in.expect_item({entry->string, entry->valuestring});
}

static constexpr Entry known_entries[] = {
    {SEPARATOR_KEY, cJSON_IsString, "a text", [](const Checked &, const cJSON *) {}},
    {BACKGROUND_KEY, cJSON_IsNumber, "a number", check_background},
    {VALUE_COLUMNS_KEY, cJSON_IsObject, "an object", check_value_columns},
    {HELP_DEFAULT_KEY, cJSON_IsNumber, "a number", check_help_layout},
    {HELP_TYPES_KEY, cJSON_IsObject, "an object", check_help_types},
};

static const Entry *entry_known(const std::string &key)
{
    static constexpr Entry anchor_entry{"", cJSON_IsString, "a text", check_anchor};
    for (const Entry &entry : known_entries)
        if (entry.key == key)
            return &entry;
    return is_anchor_key(key) ? &anchor_entry : nullptr;
}

static void check_entry(const Checked &in, const cJSON *entry)
{
    std::string key = entry->string;
    const Entry *known = entry_known(key);
    if (!known)
        in.wrong({key}, "the library reads no " + in_quotes(key));
    else if (!known->is_right(entry))
        in.wrong({key}, in_quotes(key) + " must be " + known->type);
    else
        known->check(in, entry);
}

Configuration::Configuration(const Menu &menu, const std::vector<Row> &rows, Findings &findings)
    : root(cJSON_CreateObject())
{
    std::string path = (std::filesystem::path(menu.path).parent_path() / "osd_menu.json").string();
    std::optional<std::string> content = read_file(path);
    if (!content && std::filesystem::exists(path)) {
        findings.add({Place{path}, "unreadable", "cannot be read"});
        return;
    }
    Checked in{path, content.value_or("{}"), menu, rows, findings};
    const char *end = nullptr;
    // Strict: text behind the object is a mistake as well, though the library would let it pass.
    Json parsed(cJSON_ParseWithOpts(in.content.c_str(), &end, true));
    if (!cJSON_IsObject(parsed.get())) {
        size_t offset = end ? static_cast<size_t>(end - in.content.c_str()) : 0;
        findings.add({in.place_at(offset), "unreadable", "no JSON object can be read here"});
        return;
    }
    root = std::move(parsed);
    const cJSON *entry;
    cJSON_ArrayForEach(entry, root.get()) check_entry(in, entry);
    if (!config_entry(root.get(), BACKGROUND_KEY))
        cJSON_AddNumberToObject(root.get(), BACKGROUND_KEY,
                                fill_word(menu.display.pixel_format, menu.colours.background));
}

std::string Configuration::text_of(const std::string &key) const
{
    const cJSON *entry = cJSON_GetObjectItemCaseSensitive(root.get(), key.c_str());
    return cJSON_IsString(entry) ? entry->valuestring : "";
}

int Configuration::value_column(const Menu &menu, const std::string &language, const std::string &page,
                                int fallback) const
{
    const std::string directory = menu.device_directory + language + "/";
    return config_value_column(root.get(), directory.c_str(), page.c_str(), fallback);
}
