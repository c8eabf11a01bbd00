// osdmenu schema: what a menu file may hold, as editors read it and as people do.

#include <memory>

#include "commands/commands.h"
#include "common/text.h"
#include "menu/configuration.h"
#include "menu/menu_keys.h"

struct TypeWords {
    const char *schema;
    const char *low; // the schema's keywords for limits
    const char *high;
    const char *words;
};

#define ONE_TEXT R"({"type": ["string", "number"], "minLength": 1})"
static constexpr char PREAMBLE[] = R"(# The menu file

All keys of `menu.yaml`, as `osdmenu schema --markdown` prints them. The shortest menu:

    items:
      - name: main_title
      - name: brightness

`osdmenu schema >menu.schema.json` writes a schema by which editors complete and check it; they find it by a comment in
the menu's first line:

    # yaml-language-server: $schema=menu.schema.json

A text is one line of UTF-8, and not empty. A file has at most 1 MiB and 20000 entries, those behind aliases included.
)";

// In the order of the types.
static constexpr TypeWords type_words[] = {
    {ONE_TEXT, "", "maxLength", "text"},
    {ONE_TEXT, "", "maxLength", "text of characters that the device has glyphs for"},
    {R"({"type": "integer"})", "minimum", "maximum", "whole number"},
    {R"({"type": "boolean"})", "", "", "true or false"},
    {R"({"type": "string", "pattern": "^#([0-9a-fA-F]{2}){3,4}$"})", "", "", "colour"},
    {"{}", "", "", "one of "},
    {"{}", "", "", ""},
    {R"({"type": "array", "items": )" ONE_TEXT "}", "minItems", "maxItems", "list of texts"},
    {R"({"type": "array"})", "minItems", "maxItems", "list of "},
};

// A default that is told in words stands in the description alone.
static cJSON *schema_of(const Key &key)
{
    const TypeWords &words = type_words[static_cast<size_t>(key.type)];
    cJSON *schema = cJSON_Parse(words.schema);
    if (key.type == KeyType::word)
        for (cJSON *names = cJSON_AddArrayToObject(schema, "enum"); const std::string &name : key.words())
            cJSON_AddItemToArray(names, cJSON_CreateString(name.c_str()));
    else if (!key.of.empty())
        cJSON_AddStringToObject(key.type == KeyType::mappings ? cJSON_AddObjectToObject(schema, "items") : schema,
                                "$ref", ("#/$defs/" + key.of).c_str());
    if (key.limits.low != INT_MIN)
        cJSON_AddNumberToObject(schema, words.low, key.limits.low);
    if (key.limits.high != INT_MAX)
        cJSON_AddNumberToObject(schema, words.high, key.limits.high);
    std::string standard = key.standard.value_or("none"), unit = key.unit.empty() ? "" : ", in " + key.unit;
    std::string description = key.description + unit + (key.standard ? ". Default: " + standard : ". Required");
    cJSON_AddStringToObject(schema, "description", description.c_str());
    if (key.type == KeyType::colour || key.type == KeyType::word)
        cJSON_AddStringToObject(schema, "default", standard.c_str());
    else if (cJSON *value = cJSON_ParseWithOpts(standard.c_str(), nullptr, true))
        cJSON_AddItemToObject(schema, "default", value);
    return schema;
}

static void add_table(cJSON *kinds, const KeyTable &table)
{
    cJSON *schema = cJSON_AddObjectToObject(kinds, table.name.c_str());
    cJSON_AddItemToObject(schema, "type",
                          cJSON_Parse(table.shorthand.empty() ? "\"object\"" : R"(["object", "string"])"));
    cJSON_AddStringToObject(schema, "description", table.summary.c_str());
    cJSON_AddFalseToObject(schema, "additionalProperties");
    cJSON *required = cJSON_AddArrayToObject(schema, "required");
    cJSON *properties = cJSON_AddObjectToObject(schema, "properties");
    for (const Key &key : table.keys) {
        cJSON_AddItemToObject(properties, key.name.c_str(), schema_of(key));
        if (!key.standard)
            cJSON_AddItemToArray(required, cJSON_CreateString(key.name.c_str()));
    }
}

static std::string schema_text()
{
    Json schema(cJSON_Parse(R"({"$schema": "https://json-schema.org/draft/2020-12/schema",
                                "title": "Menu file of osdmenu", "$ref": "#/$defs/menu"})"));
    cJSON *kinds = cJSON_AddObjectToObject(schema.get(), "$defs");
    for (const KeyTable &table : all_key_tables())
        add_table(kinds, table);
    return json_text(schema.get());
}

static std::string type_text(const Key &key)
{
    std::string of = key.of.empty() ? "" : "[" + key.of + "](#" + key.of + ")";
    if (key.type == KeyType::word)
        of = key.of == "rules" ? "the keys of [severity](#severity)" : joined(key.words(), ", ");
    const std::string limits = key.limits.text().empty() ? "" : ", " + key.limits.text();
    return type_words[static_cast<size_t>(key.type)].words + of + limits;
}

static std::string markdown_text()
{
    std::string text = PREAMBLE;
    for (const KeyTable &table : all_key_tables()) {
        text += "\n## " + table.name + "\n\n" + table.summary + "\n\n";
        text += "| key | type | unit | default | description |\n| --- | --- | --- | --- | --- |\n";
        for (const Key &key : table.keys)
            text += "| `" + key.name + "` | " + type_text(key) + " | " + key.unit + " | " +
                    key.standard.value_or("required") + " | " + key.description + " |\n";
    }
    return text;
}

void add_schema(CLI::App &app, Run &run)
{
    auto is_markdown = std::make_shared<bool>(false);
    CLI::App *command = app.add_subcommand("schema", "Prints the JSON Schema of menu files, for editors");
    command->add_flag("--markdown", *is_markdown, "Prints the same for people");
    command->callback([&run, is_markdown] {
        run = [is_markdown] {
            const std::string text = *is_markdown ? markdown_text() : schema_text();
            std::fputs(text.c_str(), stdout);
            return STATUS_CLEAN;
        };
    });
}
