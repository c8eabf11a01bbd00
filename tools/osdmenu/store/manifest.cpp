#include "store/manifest.h"

#include "common/text.h"
#include "menu/menu_keys.h"
#include "render/fonts.h"
#include "rules/rule_table.h"

static void add_texts(cJSON *object, const char *key, const std::map<std::string, std::string> &texts)
{
    cJSON *inner = cJSON_AddObjectToObject(object, key);
    for (const auto &[name, text] : texts)
        cJSON_AddStringToObject(inner, name.c_str(), text.c_str());
}

// The row that each page opens on, by the name of the page's item; the top list has none and stands under "".
static std::map<std::string, std::string> opening_rows(const Menu &menu, const std::vector<Row> &rows)
{
    std::map<std::string, std::string> result;
    if (const Item *item = opening_item(menu, nullptr))
        result[""] = item->name;
    for (const Row &row : rows)
        if (const Item *item = row.item->items.empty() ? nullptr : opening_item(menu, row.item))
            result[row.item->name] = item->name;
    return result;
}

static void add_records(cJSON *object, const std::map<std::string, LanguageRecord> &records)
{
    cJSON *inner = cJSON_AddObjectToObject(object, "digests");
    for (const auto &[language, record] : records) {
        cJSON *entry = cJSON_AddObjectToObject(inner, language.c_str());
        cJSON_AddStringToObject(entry, "inputs", record.inputs.c_str());
        cJSON_AddStringToObject(entry, "files", record.files.c_str());
    }
}

// Without their places: the same menu has the same manifest wherever it lies.
static void add_findings(cJSON *object, const Findings &findings)
{
    cJSON *list = cJSON_AddArrayToObject(object, "findings");
    for (const Finding &finding : findings.sorted()) {
        cJSON *entry = cJSON_CreateObject();
        cJSON_AddItemToArray(list, entry);
        cJSON_AddStringToObject(entry, "rule", finding.rule.c_str());
        cJSON_AddStringToObject(entry, "severity", severity_name(finding.severity));
        cJSON_AddStringToObject(entry, "text", finding.text.c_str());
        cJSON_AddStringToObject(entry, "subject", finding.subject.c_str());
        cJSON_AddStringToObject(entry, "language", finding.language.c_str());
    }
}

static void add_only_read(cJSON *object, const std::vector<Row> &rows)
{
    cJSON *list = cJSON_AddArrayToObject(object, "only_read");
    for (const Row &row : rows)
        if (row.item->muted)
            cJSON_AddItemToArray(list, cJSON_CreateString(row.item->name.c_str()));
}

// What the menu says about the rules that only a walk can hold it against.
static void add_check(cJSON *object, const CheckSettings &check)
{
    cJSON *inner = cJSON_AddObjectToObject(object, "check");
    cJSON *severities = cJSON_AddObjectToObject(inner, "severity");
    for (const auto &[rule, severity] : check.severities)
        if (rule_named(rule)->is_walked)
            cJSON_AddStringToObject(severities, rule.c_str(), severity_name(severity));
    cJSON *suppressions = cJSON_AddArrayToObject(inner, "suppress");
    for (const Suppression &suppression : check.suppressions) {
        if (!rule_named(suppression.rule)->is_walked)
            continue;
        cJSON *entry = cJSON_CreateObject();
        cJSON_AddItemToArray(suppressions, entry);
        cJSON_AddStringToObject(entry, "rule", suppression.rule.c_str());
        cJSON_AddStringToObject(entry, "item", suppression.subject.c_str());
    }
}

std::string manifest_text(const Project &project, const Findings &findings,
                          const std::map<std::string, std::string> &font_versions,
                          const std::map<std::string, LanguageRecord> &records)
{
    const Menu &menu = project.menu;
    const std::vector<Row> &rows = project.rows;
    Json root(cJSON_CreateObject());
    cJSON_AddNumberToObject(root.get(), "burst", menu.display.burst);
    cJSON_AddNumberToObject(root.get(), "font_size", menu.display.font_size);
    // A host needs the sizes that hold, also where the menu left them to burst.
    cJSON_AddNumberToObject(root.get(), "width", project.geometry.view_width);
    cJSON_AddNumberToObject(root.get(), "height", project.geometry.view_height);
    cJSON_AddStringToObject(root.get(), "pixel_format", pixel_format_name(menu.display.pixel_format).c_str());
    cJSON_AddStringToObject(root.get(), "background", colour_text(menu.colours.background).c_str());
    cJSON_AddStringToObject(root.get(), "device_directory", menu.device_directory.c_str());
    cJSON *languages = cJSON_AddArrayToObject(root.get(), "languages");
    for (const Language &language : menu.languages)
        cJSON_AddItemToArray(languages, cJSON_CreateString(language.code.c_str()));
    cJSON_AddStringToObject(root.get(), "accessory", menu.accessory.c_str());
    std::map<std::string, std::string> free_texts;
    for (const Row &row : rows)
        if (row.item->free_text)
            free_texts[row.item->name] = row.item->choices[0].words;
    add_texts(root.get(), "free_texts", free_texts);
    add_texts(root.get(), "opens_on", opening_rows(menu, rows));
    add_only_read(root.get(), rows);
    add_findings(root.get(), findings);
    add_check(root.get(), menu.check);
    add_texts(root.get(), "fonts", font_versions);
    add_texts(root.get(), "shaped_by", shaping_versions());
    add_records(root.get(), records);
    return json_text(root.get());
}

// A number outside what a menu file may say counts as missing: the manifest may be anyone's.
static void take_number(const cJSON *root, const char *key, int &result)
{
    const cJSON *entry = cJSON_GetObjectItemCaseSensitive(root, key);
    if (cJSON_IsNumber(entry) && display_key(key).limits.hold(entry->valueint))
        result = entry->valueint;
}

static std::string text_of(const cJSON *root, const char *key)
{
    const cJSON *entry = cJSON_GetObjectItemCaseSensitive(root, key);
    return cJSON_IsString(entry) ? entry->valuestring : "";
}

static std::vector<std::string> texts_of(const cJSON *root, const char *key)
{
    std::vector<std::string> texts;
    const cJSON *entry;
    cJSON_ArrayForEach(entry, cJSON_GetObjectItemCaseSensitive(root, key)) if (cJSON_IsString(entry))
        texts.push_back(entry->valuestring);
    return texts;
}

static void take_findings(const cJSON *root, std::vector<KnownFinding> &findings)
{
    const cJSON *entry;
    cJSON_ArrayForEach(entry, cJSON_GetObjectItemCaseSensitive(root, "findings"))
        findings.push_back({text_of(entry, "rule"), text_of(entry, "severity"), text_of(entry, "text"),
                            text_of(entry, "subject"), text_of(entry, "language")});
}

// A rule that this edition of the tool doesn't know says nothing.
static void take_check(const cJSON *check, CheckSettings &settings)
{
    const cJSON *entry;
    cJSON_ArrayForEach(entry, cJSON_GetObjectItemCaseSensitive(check, "severity"))
    {
        for (Severity severity : SEVERITIES)
            if (cJSON_IsString(entry) && std::string(entry->valuestring) == severity_name(severity))
                settings.severities.push_back({entry->string, severity});
    }
    cJSON_ArrayForEach(entry, cJSON_GetObjectItemCaseSensitive(check, "suppress"))
    {
        const Rule *rule = rule_named(text_of(entry, "rule"));
        if (rule && rule->is_walked)
            settings.suppressions.push_back({Place{}, rule->name, text_of(entry, "item"), "", ""});
    }
}

Manifest read_manifest(const std::string &directory, Findings &findings)
{
    Manifest manifest;
    std::string path = directory + "/menu.json";
    std::optional<std::string> content = read_file(path);
    Json root(cJSON_Parse(content.value_or("").c_str()));
    if (!cJSON_IsObject(root.get())) {
        Finding finding{Place{path}, "no-manifest", content ? "is no JSON object" : "there is no such file"};
        const Display &display = manifest.display;
        finding.cure = "taking burst " + std::to_string(display.burst) + ", font size " +
                       std::to_string(display.font_size) + " and pixel format " +
                       pixel_format_name(display.pixel_format);
        findings.add(finding);
    }
    take_number(root.get(), "burst", manifest.display.burst);
    take_number(root.get(), "font_size", manifest.display.font_size);
    take_number(root.get(), "width", manifest.display.width);
    take_number(root.get(), "height", manifest.display.height);
    manifest.display.pixel_format =
        parse_pixel_format(text_of(root.get(), "pixel_format")).value_or(manifest.display.pixel_format);
    manifest.background = parse_colour(text_of(root.get(), "background")).value_or(Colour{});
    manifest.device_directory = text_of(root.get(), "device_directory");
    manifest.accessory = text_of(root.get(), "accessory");
    const cJSON *entry;
    manifest.languages = texts_of(root.get(), "languages");
    std::vector<std::string> only_read = texts_of(root.get(), "only_read");
    manifest.only_read = {only_read.begin(), only_read.end()};
    take_findings(root.get(), manifest.findings);
    take_check(cJSON_GetObjectItemCaseSensitive(root.get(), "check"), manifest.check);
    cJSON_ArrayForEach(entry, cJSON_GetObjectItemCaseSensitive(root.get(), "free_texts")) if (cJSON_IsString(entry))
        manifest.free_texts[entry->string] = entry->valuestring;
    cJSON_ArrayForEach(entry, cJSON_GetObjectItemCaseSensitive(root.get(), "digests"))
        manifest.records[entry->string] = {text_of(entry, "inputs"), text_of(entry, "files")};
    return manifest;
}
