#include "render/language_resources.h"

#include <algorithm>
#include <cstring>

#include "common/text.h"
#include "resources/glyph_banks.h"

namespace
{

// The symbols that a bank must have: up, pointer (also right), down, left.
constexpr int SYMBOLS_NEEDED = 4;

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
    std::string described(const std::string &words, const Place &place);
    Picture row_picture(const Row &row, const std::string &words);
    void check_width(const Row &row, const Picture &view, const std::vector<Picture> &choices);
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

std::string Writer::described(const std::string &words, const Place &place)
{
    std::string result = cut_utf8(words, MAX_TEXT);
    if (result.size() < words.size())
        job.findings.warning(place,
                             "the description is cut at " + std::to_string(result.size()) + " of " +
                                 std::to_string(words.size()) + " bytes in " + job.language,
                             "its picture is whole");
    return result;
}

// The mark behind the text tells rows with a page of their own from the others.
Picture Writer::row_picture(const Row &row, const std::string &words)
{
    const Colours &colours = job.menu.colours;
    Style style{row.item->muted ? colours.muted : colours.text};
    if (row.item->is_title()) {
        style.colour = colours.title;
        style.bold = true;
    }
    if (!row.item->items.empty())
        style.suffix = "  \u203A";
    return job.renderer.text(words, style, row.item->text.place, job.findings);
}

// A block past the right edge goes on in the next row of pixels, and one past the value column is painted over.
void Writer::check_width(const Row &row, const Picture &view, const std::vector<Picture> &choices)
{
    int column =
        job.configuration.value_column(job.menu, job.language, page_key(job.rows, row), job.geometry.value_column);
    int end = job.geometry.item_column + static_cast<int>(view.width / 2);
    const Text &text = row.item->text;
    if (row.item->value_type != VALUE_NONE && end > column)
        job.findings.warning(text.place,
                             in_quotes(text.words) + " runs " + std::to_string(end - column) +
                                 " pixels into the value column in " + job.language,
                             "shorten it, or move the column with 'value_offset_x' in osd_menu.json");
    else if (end > job.geometry.view_width)
        job.findings.warning(text.place, in_quotes(text.words) + " runs " +
                                             std::to_string(end - job.geometry.view_width) +
                                             " pixels off the view in " + job.language);
    for (size_t i = 0; i < choices.size(); i++) {
        int over = column + static_cast<int>(choices[i].width / 2) - job.geometry.view_width;
        const Text &choice = row.item->choices[i];
        if (over > 0)
            job.findings.warning(choice.place, in_quotes(choice.words) + " runs " + std::to_string(over) +
                                                   " pixels off the view in " + job.language);
    }
}

// In m.d and b.d alike: the item, then its choices.
void Writer::row(const Row &row)
{
    const Item &item = *row.item;
    const PixelFormat format = job.menu.display.pixel_format;
    const std::string &words = job.translations.of(item.text, item.name, job.findings);
    Picture view = row_picture(row, words);
    osdmenu_item image = zeroed<osdmenu_item>();
    std::memcpy(image.position.levels, row.levels, sizeof row.levels);
    describe(image.view.viewbitmap, view, format);
    image.item_values.type = item.value_type;
    image.item_values.current = item.current;
    if (item.value_type == VALUE_NUMBER || item.value_type == VALUE_PERCENTAGE)
        image.item_values.u.number = item.number;
    // The count travels where the description's pointer will stand.
    int count = static_cast<int>(item.choices.size());
    if (item.value_type == VALUE_TXT)
        std::memcpy(&image.item_values.u, &count, sizeof count);
    record("m.d", image);
    string("b.d", item.name);
    string("b.d", described(words, item.text.place));
    pixels("b.d", view);

    std::vector<Picture> choices;
    for (const Text &choice : item.choices) {
        const std::string &chosen =
            item.free_text ? choice.words : job.translations.of(choice, item.name, job.findings);
        choices.push_back(job.renderer.text(chosen, {job.menu.colours.value}, choice.place, job.findings));
        osdmenu_item_value choice_image = zeroed<osdmenu_item_value>();
        choice_image.type = VALUE_TXT;
        describe(choice_image.u.txt.viewbitmap, choices.back(), format);
        record("m.d", choice_image);
        string("b.d", described(chosen, choice.place));
        pixels("b.d", choices.back());
    }
    check_width(row, view, choices);
}

void Writer::line(const Line &line, Style style, bool is_bubble)
{
    const std::string &words = job.translations.of(line.text, line.name, job.findings);
    style.indent = line.indent;
    Picture picture = job.renderer.text(words, style, line.text.place, job.findings);
    if (static_cast<int>(picture.width / 2) > job.geometry.view_width)
        job.findings.warning(line.text.place,
                             in_quotes(line.text.words) + " is wider than the view in " + job.language);
    osdbubbleline image = zeroed<osdbubbleline>();
    describe(image.viewbitmap, picture, job.menu.display.pixel_format);
    image.level = line.level;
    // A help line's record is a bubble line's without the level and what follows it.
    size_t size = is_bubble ? sizeof(osdbubbleline) : sizeof(osdhelpline);
    const char *data = is_bubble ? "bb.d" : "hb.d";
    file(is_bubble ? "bm.d" : "hm.d").append(reinterpret_cast<const char *>(&image), size);
    string(data, line.name);
    string(data, described(words, line.text.place));
    pixels(data, picture);
}

void Writer::glyphs()
{
    auto block = [&](const char *name, const Picture &picture) {
        osdmenu_view_bitmap image = zeroed<osdmenu_view_bitmap>();
        describe(image, picture, job.menu.display.pixel_format);
        record(name, image);
        pixels(name, picture);
    };
    for (int i = 0; i < GLYPH_COUNT; i++)
        block("c.d", job.renderer.glyph(osdmenu_common_char[i]));
    for (int i = 0; i < SYMBOLS_NEEDED; i++)
        block("s.d", job.renderer.symbol(i));
}

// A pair without a record is still a pair: the loader opens both files.
Files make_language_resources(const LanguageJob &job)
{
    Writer writer{job, {{"m.d", ""}, {"b.d", ""}, {"hm.d", ""}, {"hb.d", ""}, {"bm.d", ""}, {"bb.d", ""}}};
    for (const Row &row : job.rows)
        writer.row(row);
    for (const Line &line : job.menu.help_lines)
        writer.line(line, {job.menu.colours.help, false, 0, job.menu.display.help_percent}, false);
    for (const Line &line : job.menu.bubbles)
        writer.line(line, {job.menu.colours.bubble}, true);
    writer.glyphs();
    return writer.files;
}
