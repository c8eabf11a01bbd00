#include "render/language_resources.h"

#include <cstring>

#include "common/text.h"
#include "core/item_value.h"
#include "resources/glyph_banks.h"

namespace
{

struct Writer {
    const LanguageJob &job;
    Files files;

    std::string &file(const char *name)
    {
        return files[name];
    }

    template <class Record> void record(const char *name, const Record &image)
    {
        file(name).append(reinterpret_cast<const char *>(&image), sizeof image);
    }

    void string(const char *name, const std::string &text)
    {
        file(name).append(text).push_back('\0');
    }

    void pixels(const char *name, const Picture &picture)
    {
        file(name).append(reinterpret_cast<const char *>(picture.pixels.data()), picture.pixels.size() * 2);
    }

    void row(const Row &row);
    void line(const Line &line, Style style, bool is_bubble);
    void glyphs();

  private:
    void tell_missing(const Rendered &rendered, const Place &place, const std::string &name, const std::string &shown);
    Picture picture(const std::string &name, Style style, const Wording &wording);
    void described(const char *name, const Wording &wording, const std::string &subject);
    void choices(const Item &item);
};

} // namespace

// Records go out as images, so the bytes between their fields must be the same on every run as well.
template <class Record> static Record zeroed()
{
    Record record;
    std::memset(static_cast<void *>(&record), 0, sizeof record);
    return record;
}

// The pointer stays null: the device puts its own block there.
static void describe(osdmenu_view_bitmap &block, const Picture &picture, PixelFormat format)
{
    block.pixeltype = static_cast<unsigned int>(format);
    block.height = picture.height;
    block.width = picture.width;
    block.stride = picture.stride;
}

// What rendering found goes out with the name and the language that only this file knows.
void Writer::tell_missing(const Rendered &rendered, const Place &place, const std::string &name,
                          const std::string &shown)
{
    if (!rendered.missing.empty())
        job.findings.add({place, "missing-character",
                          "no font has " + joined(rendered.missing, " ") + " of " + shown + " in " + job.language,
                          "add a font that has it to 'fonts'", name, job.language});
}

Picture Writer::picture(const std::string &name, Style style, const Wording &wording)
{
    style.width = wording.width;
    Rendered rendered = job.renderer.text(wording.words, style);
    tell_missing(rendered, wording.place, name, in_quotes(wording.words));
    if (rendered.is_cut)
        job.findings.add({wording.place, "ink-cut",
                          in_quotes(wording.words) + " stands above or below its line and is cut in " + job.language,
                          "choose a smaller 'percent' for its font, or a smaller outline", name, job.language});
    if (rendered.is_beyond)
        job.findings.error(wording.place, in_quotes(wording.words) + " is wider than any view in " + job.language,
                           "no picture has more than " + std::to_string(MAX_PICTURE_SIDE) + " pixels in a row");
    return rendered.picture;
}

// The description beside a picture, for hosts that print it.
void Writer::described(const char *name, const Wording &wording, const std::string &subject)
{
    std::string words = cut_utf8(wording.words, MAX_TEXT);
    if (words.size() < wording.words.size())
        job.findings.add({wording.place, "description-cut",
                          "the description is cut at " + std::to_string(words.size()) + " of " +
                              std::to_string(wording.words.size()) + " bytes in " + job.language,
                          "its picture is whole", subject, job.language});
    string(name, words);
}

// The mark behind the text tells rows with a page of their own from the others.
static Style row_style(const Item &item, const Colours &colours)
{
    Style style{item.muted ? colours.disabled : colours.text};
    if (item.is_title()) {
        style.colour = colours.title;
        style.bold = true;
    }
    if (!item.items.empty())
        style.suffix = "  \u203A";
    return style;
}

// A free text is the host's, the same in every language.
void Writer::choices(const Item &item)
{
    for (const Text &choice : item.choices) {
        Wording wording = item.free_text ? Wording{choice.words, choice.place} : job.wordings(choice, item.name);
        Picture chosen = picture(item.name, {job.project.menu.colours.value}, wording);
        osdmenu_item_value image = zeroed<osdmenu_item_value>();
        image.type = VALUE_TXT;
        describe(image.u.txt.viewbitmap, chosen, job.project.menu.display.pixel_format);
        record("m.d", image);
        described("b.d", wording, item.name);
        pixels("b.d", chosen);
    }
}

// In m.d and b.d alike: the item, then its choices.
void Writer::row(const Row &row)
{
    const Item &item = *row.item;
    Wording wording = job.wordings(item.text, item.name);
    Picture view = picture(item.name, row_style(item, job.project.menu.colours), wording);
    osdmenu_item image = zeroed<osdmenu_item>();
    image.position = row.position;
    describe(image.view.viewbitmap, view, job.project.menu.display.pixel_format);
    image.item_values.type = item.value_type;
    image.item_values.current = item.current;
    if (is_number(item.value_type))
        image.item_values.u.number = item.number;
    // The count travels where the description's pointer will stand.
    int count = static_cast<int>(item.choices.size());
    if (item.value_type == VALUE_TXT)
        std::memcpy(&image.item_values.u, &count, sizeof count);
    record("m.d", image);
    string("b.d", item.name);
    described("b.d", wording, item.name);
    pixels("b.d", view);
    choices(item);
}

void Writer::line(const Line &line, Style style, bool is_bubble)
{
    Wording wording = job.wordings(line.text, line.name);
    style.indent = line.indent;
    Picture view = picture(line.name, style, wording);
    osdbubbleline image = zeroed<osdbubbleline>();
    describe(image.viewbitmap, view, job.project.menu.display.pixel_format);
    image.level = line.level;
    // A help line's record is a bubble line's without the level and what follows it.
    size_t size = is_bubble ? sizeof(osdbubbleline) : sizeof(osdhelpline);
    const char *data = is_bubble ? "bb.d" : "hb.d";
    file(is_bubble ? "bm.d" : "hm.d").append(reinterpret_cast<const char *>(&image), size);
    string(data, line.name);
    described(data, wording, line.name);
    pixels(data, view);
}

void Writer::glyphs()
{
    auto block = [&](const char *name, const Picture &picture) {
        osdmenu_view_bitmap image = zeroed<osdmenu_view_bitmap>();
        describe(image, picture, job.project.menu.display.pixel_format);
        record(name, image);
        pixels(name, picture);
    };
    const Menu &menu = job.project.menu;
    for (int i = 0; i < GLYPH_COUNT; i++) {
        Rendered glyph = job.renderer.glyph(osdmenu_common_char[i]);
        tell_missing(glyph, Place{menu.path}, "glyphs", "the glyphs");
        block("c.d", glyph.picture);
    }
    Style style{menu.colours.pointer};
    auto symbol = [&](const Text &text) { return picture("symbols", style, {text.words, text.place}); };
    for (size_t i = 0; i < menu.symbols.marks.size(); i++) {
        const Text &mark = menu.symbols.marks[i];
        block("s.d", mark.words.empty() ? job.renderer.triangle(static_cast<int>(i)) : symbol(mark));
    }
    for (const Text &text : menu.symbols.more)
        block("s.d", symbol(text));
}

// A pair without a record is still a pair: the loader opens both files.
Files make_language_resources(const LanguageJob &job)
{
    const Menu &menu = job.project.menu;
    Writer writer{job, {{"m.d", ""}, {"b.d", ""}, {"hm.d", ""}, {"hb.d", ""}, {"bm.d", ""}, {"bb.d", ""}}};
    for (const Row &row : job.project.rows)
        writer.row(row);
    for (const Line &line : menu.help_lines)
        writer.line(line, {.colour = menu.colours.help, .percent = menu.display.help_percent}, false);
    for (const Line &line : menu.bubbles)
        writer.line(line, {menu.colours.bubble}, true);
    writer.glyphs();
    return writer.files;
}
