#include "rules/headroom.h"

#include <algorithm>

#include "common/text.h"
#include "rules/json.h"
#include "rules/layout_rules.h"

namespace
{

struct Headroom {
    std::string name; // of the item or line
    const char *kind;
    std::string text;           // in the source language
    int room = 0;               // in the worst language
    size_t worst = 0;           // index of the language with the fewest free pixels
    std::vector<int> free = {}; // by language
};

} // namespace

// Adds one language. The texts come in the same order for each.
static void add_language(const Project &project, const RenderedLanguage &language, std::vector<Headroom> &texts)
{
    static constexpr const char *kinds[] = {"row", "choice", "help line", "bubble"};
    size_t index = 0;
    for_each_fit(project, language.code, language.resources, [&](const MeasuredText &text, int room) {
        if (index == texts.size())
            texts.push_back({text.name, kinds[static_cast<size_t>(text.kind)], text.text.words});
        Headroom &headroom = texts[index++];
        headroom.free.push_back(room - text.width);
        if (headroom.free.size() > 1 && headroom.free.back() >= headroom.free[headroom.worst])
            return;
        headroom.worst = headroom.free.size() - 1;
        headroom.room = room;
    });
}

static std::string right(const std::string &text, size_t width)
{
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

static std::string table_line(const std::string &name, const std::string &text, const std::string &room,
                              const std::string &worst, const std::vector<std::string> &columns)
{
    std::string line = in_cells(name, 20) + " " + in_cells(text, 16) + right(room, 6) + right(worst, 12);
    for (const std::string &column : columns)
        line += right(column, 6);
    return line + "\n";
}

static std::string json_line(const Headroom &text, const std::vector<std::string> &codes)
{
    std::vector<std::string> free;
    for (size_t i = 0; i < codes.size(); i++)
        free.push_back(json_quoted(codes[i]) + ": " + std::to_string(text.free[i]));
    return json_object({{"name", json_quoted(text.name)},
                        {"kind", json_quoted(text.kind)},
                        {"text", json_quoted(text.text)},
                        {"room", std::to_string(text.room)},
                        {"worst", json_quoted(codes[text.worst])},
                        {"free", std::string("{") + joined(free, ", ") + "}"}});
}

std::string headroom(const Project &project, const std::vector<RenderedLanguage> &languages, bool as_json)
{
    std::vector<Headroom> texts;
    std::vector<std::string> codes, lines;
    for (const RenderedLanguage &language : languages) {
        add_language(project, language, texts);
        codes.push_back(language.code);
    }
    std::stable_sort(texts.begin(), texts.end(), [](const Headroom &one, const Headroom &other) {
        return one.free[one.worst] < other.free[other.worst];
    });
    for (const Headroom &text : texts) {
        std::vector<std::string> columns;
        for (int free : text.free)
            columns.push_back(std::to_string(free));
        std::string worst = codes[text.worst] + right(columns[text.worst], 6);
        lines.push_back(as_json ? json_line(text, codes)
                                : table_line(text.name, text.text, std::to_string(text.room), worst, columns));
    }
    if (as_json)
        return json_object({{"schema", "1"}, {"headroom", json_array(lines)}}) + "\n";
    return table_line("name", "text", "room", "worst", codes) + joined(lines, "");
}
