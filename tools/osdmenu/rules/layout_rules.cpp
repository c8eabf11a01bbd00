#include "rules/layout_rules.h"

#include <algorithm>

#include "common/text.h"
#include "core/fixed_items.h"
#include "core/item_value.h"
#include "menu/rooms.h"
#include "render/pseudo.h"
#include "text/glyphs.h"

// What the device sets from single glyphs.
static int width_in_glyphs(const std::string &text, const Resources &pictures)
{
    int bytes = 0;
    measure_text(
        text.c_str(), [&](int index) { return &pictures.glyphs[static_cast<size_t>(index)].size; }, &bytes);
    return pixels_of(static_cast<unsigned int>(bytes));
}

// The device paints numbers at run time; the widest is one of the limits.
static void visit_number(const Project &project, const std::string &language, const Resources &pictures, const Row &row,
                         const VisitFit &visit)
{
    const Item &item = *row.item;
    std::string unit = unit_of(item.value_type);
    Text low{std::to_string(item.number.lowlimit) + unit, item.place};
    Text high{std::to_string(item.number.highlimit) + unit, item.place};
    int low_width = width_in_glyphs(low.words, pictures), high_width = width_in_glyphs(high.words, pictures);
    visit({low_width > high_width ? low : high, item.name, &row, TextKind::choice, std::max(low_width, high_width)},
          room_of(project, language, TextKind::choice, &row, item.name));
}

// The device writes the accessory's name in place of this row's text.
static bool is_accessory(const MeasuredText &text)
{
    return text.kind == TextKind::row_text && text.row->item->name == ACCESSORY_ITEM;
}

void for_each_fit(const Project &project, const std::string &language, const Resources &pictures, const VisitFit &visit)
{
    auto visit_fit = [&](const MeasuredText &text) {
        visit(text, room_of(project, language, text.kind, text.row, text.name));
    };
    for_each_text(project, pictures, [&](const MeasuredText &measured) {
        MeasuredText text = measured;
        // Its picture stands only until the host writes the text anew, in glyphs.
        if (text.kind == TextKind::choice && text.row->item->free_text)
            text.width = std::max(text.width, width_in_glyphs(text.text.words, pictures));
        Text name{project.menu.accessory, text.text.place};
        if (is_accessory(text) && !name.words.empty())
            visit_fit({name, text.name, text.row, text.kind, width_in_glyphs(name.words, pictures)});
        else
            visit_fit(text);
    });
    for (const Row &row : project.rows)
        if (is_number(row.item->value_type))
            visit_number(project, language, pictures, row, visit);
}

static std::string pixels(int width, int room)
{
    return " (" + std::to_string(width) + " of " + std::to_string(room) + ")";
}

// Numbers need no translation, and what the host writes is the same in every language.
static bool is_translated(const MeasuredText &text)
{
    bool is_word = text.kind != TextKind::choice || text.row->item->value_type == VALUE_TXT;
    return is_word && !is_accessory(text) && !(text.kind == TextKind::choice && text.row->item->free_text);
}

// Where a language shows other words than the menu file has, they stand in its PO file.
static Text shown_text(const Project &project, const std::string &language, const MeasuredText &text)
{
    auto texts = project.translations.find(language);
    bool has_words = texts != project.translations.end() && is_translated(text);
    return has_words ? texts->second.shown(text.text, text.name) : text.text;
}

static void report_too_wide(const Project &project, const std::string &language, const MeasuredText &text, int room,
                            Findings &findings)
{
    bool has_value = text.kind == TextKind::row_text && text.row->item->value_type != VALUE_NONE;
    bool is_composed = text.kind == TextKind::bubble && text.width <= project.geometry.view_width;
    const char *where = is_composed                        ? "beyond the lines that it is composed in"
                        : text.kind == TextKind::help_line ? "beyond its room"
                        : has_value                        ? "into the value column"
                                                           : "off the view";
    Text shown = shown_text(project, language, text);
    findings.add({shown.place, is_composed ? "bubble-too-wide" : "text-too-wide",
                  in_quotes(shown.words) + " runs " + std::to_string(text.width - room) + " pixels " + where + " in " +
                      language + pixels(text.width, room),
                  text.row ? "shorten it, or move the column with 'value_offset_x' in osd_menu.json" : "shorten it",
                  text.name, language});
}

static void check_growth(const std::string &language, const MeasuredText &text, int room, Findings &findings)
{
    if (is_translated(text) && text.width * (100 + GROWTH_PERCENT) > room * 100)
        findings.add({text.text.place, "no-room-to-translate",
                      in_quotes(text.text.words) + " leaves " + std::to_string(room - text.width) +
                          " pixels for longer translations" + pixels(text.width, room),
                      "they are often " + std::to_string(GROWTH_PERCENT) + " % wider", text.name, language});
}

void check_layout(const Project &project, const std::string &language, const Resources &pictures, Findings &findings)
{
    for_each_fit(project, language, pictures, [&](const MeasuredText &text, int room) {
        if (text.width > room)
            report_too_wide(project, language, text, room, findings);
        else if (language == project.menu.source_language)
            check_growth(language, text, room, findings);
    });
}
