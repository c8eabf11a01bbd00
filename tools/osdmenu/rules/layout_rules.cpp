#include "rules/layout_rules.h"

#include "common/text.h"
#include "menu/rooms.h"

static int pixels_of(const ReadPicture &picture)
{
    return static_cast<int>(picture.size.width / 2);
}

namespace
{

struct Judge {
    const Project &project;
    const std::string &language;
    Findings &findings;

    // A block past the right edge goes on in the next row of pixels, and one past the value column is painted over.
    void fits(const ReadPicture &picture, int room, const Text &text, const std::string &name, const char *where) const
    {
        int width = pixels_of(picture);
        if (width > room)
            findings.add({text.place, "text-too-wide",
                          in_quotes(text.words) + " runs " + std::to_string(width - room) + " pixels " + where +
                              " in " + language + " (" + std::to_string(width) + " of " + std::to_string(room) + ")",
                          "shorten it, or move the column with 'value_offset_x' in osd_menu.json", name, language});
    }
};

} // namespace

static void check_row(const Judge &judge, const Row &row, const ReadItem &read)
{
    const Item &item = *row.item;
    const char *where = item.value_type == VALUE_NONE ? "off the view" : "into the value column";
    judge.fits(read.picture, room_of_text(judge.project, judge.language, row), item.text, item.name, where);
    int room = room_of_choice(judge.project, judge.language, row);
    for (size_t i = 0; i < item.choices.size(); i++)
        judge.fits(read.choices[i].picture, room, item.choices[i], item.name, "off the view");
}

void check_layout(const Project &project, const std::string &language, const Resources &pictures, Findings &findings)
{
    Judge judge{project, language, findings};
    for (size_t i = 0; i < project.rows.size(); i++)
        check_row(judge, project.rows[i], pictures.items[i]);
    for (size_t i = 0; i < project.menu.help_lines.size(); i++) {
        const Line &line = project.menu.help_lines[i];
        judge.fits(pictures.help_lines[i].picture, room_of_help_line(project, line), line.text, line.name,
                   "beyond its room");
    }
}
