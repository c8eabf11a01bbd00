#include "render/measured.h"

static void visit_lines(const std::vector<Line> &lines, const std::vector<ReadLine> &read, TextKind kind,
                        const std::function<void(const MeasuredText &)> &visit)
{
    for (size_t i = 0; i < lines.size(); i++)
        visit({lines[i].text, lines[i].name, nullptr, kind, pixels_of(read[i].picture)});
}

void for_each_text(const Project &project, const Resources &pictures,
                   const std::function<void(const MeasuredText &)> &visit)
{
    for (size_t i = 0; i < project.rows.size(); i++) {
        const Row &row = project.rows[i];
        const Item &item = *row.item;
        const ReadItem &read = pictures.items[i];
        visit({item.text, item.name, &row, TextKind::row_text, pixels_of(read.picture)});
        for (size_t k = 0; k < item.choices.size(); k++)
            visit({item.choices[k], item.name, &row, TextKind::choice, pixels_of(read.choices[k].picture)});
    }
    visit_lines(project.menu.help_lines, pictures.help_lines, TextKind::help_line, visit);
    visit_lines(project.menu.bubbles, pictures.bubbles, TextKind::bubble, visit);
}
