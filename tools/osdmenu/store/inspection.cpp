#include "store/inspection.h"

#include <cstring>

#include <glib.h>

#include "common/text.h"
#include "core/layout.h"
#include "core/walks.h"
#include "menu/configuration.h"
#include "resources/glyph_banks.h"

// The items as the library takes them, and the list that is told what it does with them.
struct Tree {
    const std::vector<ReadItem> &items;
    std::vector<osdmenu_item> records; // in the order of the items
    cJSON *notes;
};

template <class Value> static cJSON *json_of(const Value &value)
{
    if constexpr (std::is_same_v<Value, bool>)
        return cJSON_CreateBool(value);
    else if constexpr (std::is_arithmetic_v<Value>)
        return cJSON_CreateNumber(static_cast<double>(value));
    else if constexpr (std::is_same_v<Value, osdmenu_position>)
        return cJSON_CreateIntArray(std::vector<int>(value.levels, std::end(value.levels)).data(), 4);
    else
        return cJSON_CreateString(printable(value).c_str());
}

// Fields in pairs of key and value.
template <class Value, class... More>
static void add(cJSON *entry, const char *key, const Value &value, const More &...more)
{
    cJSON_AddItemToObject(entry, key, json_of(value));
    if constexpr (sizeof...(more) > 0)
        add(entry, more...);
}

static cJSON *add_entry(cJSON *list)
{
    cJSON *entry = cJSON_CreateObject();
    cJSON_AddItemToArray(list, entry);
    return entry;
}

template <class All, class Describe>
static void add_all(cJSON *parent, const char *key, const All &all, const Describe &describe)
{
    cJSON *list = cJSON_AddArrayToObject(parent, key);
    size_t index = 0;
    for (const auto &one : all)
        describe(add_entry(list), one, index++);
}

static void describe_fault(cJSON *entry, const Fault &fault, size_t)
{
    add(entry, "file", fault.file, "offset", fault.offset, "text", fault.text);
}

// Width in pixels. The stride of glyphs and symbols tells how many bytes their rows lie apart.
static void describe_picture(cJSON *entry, const ReadPicture &picture)
{
    add(entry, "width", pixels_of(picture.size.width), "height", picture.size.height, "bytes", picture.pixels.size(),
        "stride", picture.size.stride, "pixel_type", picture.size.pixeltype, "pixel_offset", picture.offset);
}

static void describe_line(cJSON *entry, const ReadLine &line, size_t index)
{
    add(entry, "index", index, "name", line.name, "text", line.text, "meta_offset", line.place.meta, "data_offset",
        line.place.data);
    describe_picture(entry, line.picture);
}

static void describe_choice(cJSON *entry, const ReadChoice &choice, size_t index)
{
    add(entry, "index", index, "text", choice.text, "meta_offset", choice.place.meta, "data_offset", choice.place.data);
    describe_picture(entry, choice.picture);
}

static void describe_item(cJSON *entry, const Tree &tree, osdmenu_item &record)
{
    static constexpr const char *types[] = {"none", "choices", "number", "percentage"};
    size_t index = static_cast<size_t>(&record - tree.records.data());
    const ReadItem &item = tree.items[index];
    const auto &[high, low, current, step] = item.number;
    add(entry, "index", index, "name", item.name, "text", item.text, "meta_offset", item.place.meta, "data_offset",
        item.place.data, "levels", item.position, "depth", get_viewlevel_from_menuitem(&record), "enabled",
        !is_disabled(&record), "value", std::string(types[item.value_type]));
    if (item.value_type == VALUE_TXT)
        add(entry, "current", item.current, "choice_count", item.choices.size());
    else if (item.value_type != VALUE_NONE)
        add(entry, "current", current, "low", low, "high", high, "step", step);
    describe_picture(entry, item.picture);
    add_all(entry, "choices", item.choices, describe_choice);
}

static void add_page(cJSON *parent, const Tree &tree, const list_head *page, int depth)
{
    cJSON *list = cJSON_AddArrayToObject(parent, "items");
    for (osdmenu_item *row = first_row(page); row; row = row_below(row, page)) {
        cJSON *entry = add_entry(list);
        describe_item(entry, tree, *row);
        add_page(entry, tree, &row->child, depth + 1);
        if (get_viewlevel_from_menuitem(row) == depth)
            continue;
        const ReadItem &item = tree.items[static_cast<size_t>(row - tree.records.data())];
        add(add_entry(tree.notes), "file", std::string("m.d"), "offset", item.place.meta, "text",
            in_quotes(item.name) + " has no parent and lands at depth " + std::to_string(depth));
    }
}

// Ordered by the library itself, which alone knows where an item lands whose parent is missing.
static void add_items(cJSON *language, Tree tree)
{
    cJSON *refused = cJSON_AddArrayToObject(language, "refused_items");
    list_init(&orderized_osdmenu.siblings);
    for (size_t i = 0; i < tree.items.size(); i++) {
        osdmenu_item &record = tree.records[i];
        record.position = tree.items[i].position;
        record.name = const_cast<char *>(tree.items[i].name.c_str()); // for what the library prints
        if (insert2orderized_osmenu(&record) != 1)
            describe_item(add_entry(refused), tree, record);
    }
    add_page(language, tree, &orderized_osdmenu.siblings, 0);
    list_init(&orderized_osdmenu.siblings); // the records go, and nothing may lead to them
}

static void describe_language(cJSON *entry, const InspectedLanguage &language, size_t)
{
    const Resources &resources = language.resources;
    add(entry, "name", language.name, "directory", language.directory, "bytes", resources.bytes);
    add_all(entry, "damages", resources.faults, describe_fault);
    add_all(entry, "notes", notes_on(resources), describe_fault);
    std::vector<osdmenu_item> records(resources.items.size());
    add_items(entry, {resources.items, std::move(records), cJSON_GetObjectItem(entry, "notes")});
    add_all(entry, "help_lines", resources.help_lines, describe_line);
    add_all(entry, "bubbles", resources.bubbles, [](cJSON *bubble, const ReadLine &line, size_t index) {
        describe_line(bubble, line, index);
        add(bubble, "level", line.level);
    });
    add_all(entry, "glyphs", resources.glyphs, [](cJSON *glyph, const ReadPicture &picture, size_t index) {
        add(glyph, "index", index, "character", std::string(1, osdmenu_common_char[index]));
        describe_picture(glyph, picture);
    });
    add_all(entry, "symbols", resources.symbols, [](cJSON *symbol, const ReadPicture &picture, size_t index) {
        add(symbol, "index", index);
        describe_picture(symbol, picture);
    });
    add_all(entry, "files", resources.file_sizes, [](cJSON *file, const auto &name_and_size, size_t) {
        add(file, "name", name_and_size.first, "bytes", name_and_size.second);
    });
}

// A line of fields, and below it a line for each entry of its lists, which are named in the plural. Coordinates are a
// list as well, of numbers.
static std::string lines_of(const std::string &kind, const cJSON *entry)
{
    std::string line = kind, below;
    const cJSON *field, *one;
    cJSON_ArrayForEach(field, entry)
    {
        if (!cJSON_IsArray(field) || cJSON_IsNumber(field->child)) {
            char *value = cJSON_PrintUnformatted(field);
            line.append(" ").append(field->string).append("=").append(value ? value : "");
            cJSON_free(value);
            continue;
        }
        std::string singular(field->string, std::strlen(field->string) - 1);
        std::string indent(kind.find_first_not_of(' ') + 2, ' ');
        cJSON_ArrayForEach(one, field) below += lines_of(indent + singular, one);
    }
    return line + "\n" + below;
}

std::string inspection_report(const std::vector<InspectedLanguage> &languages, InspectionFormat format)
{
    Json root(cJSON_CreateObject());
    size_t bytes = 0;
    for (const InspectedLanguage &language : languages)
        bytes += language.resources.bytes;
    // The schema's number grows whenever a reader of the earlier one could be misled.
    add(root.get(), "schema", 1, "language_count", languages.size(), "bytes", bytes);
    add_all(root.get(), "languages", languages, describe_language);
    return format == InspectionFormat::json ? json_text(root.get()) : lines_of("total", root.get());
}
