#include "menu/rooms.h"

#include <algorithm>

// Within the view, whatever the file says.
static int value_column(const Project &project, const std::string &language, const Row &row)
{
    int column = project.configuration.value_column(project.menu, language, page_key(project.rows, row),
                                                    project.geometry.value_column);
    return std::clamp(column, 0, project.geometry.view_width);
}

static int room_of_text(const Project &project, const std::string &language, const Row &row)
{
    const Geometry &geometry = project.geometry;
    int end = row.item->value_type == VALUE_NONE ? geometry.view_width : value_column(project, language, row);
    return end - geometry.item_column;
}

static int room_of_choice(const Project &project, const std::string &language, const Row &row)
{
    return project.geometry.view_width - value_column(project, language, row);
}

// The layouts of the help block put some texts side by side: the second begins nine text heights from the edge.
static int room_of_help_line(const Project &project, const std::string &name)
{
    int f = project.geometry.line_height, t = f * 3 / 4, width = project.geometry.view_width;
    if (name == "select")
        return 9 * f - (2 * f + t);
    if (name == "change")
        return width - (10 * f + t);
    if (name == "enter")
        return 9 * f - t;
    return width - (name == "menu" ? 9 * f : t);
}

// The first composer has the smallest room: lines of 1100 pixels behind a margin of 100.
static int room_of_bubble(const Project &project)
{
    return std::min(1100 - 100, project.geometry.view_width);
}

int room_of(const Project &project, const std::string &language, TextKind kind, const Row *row, const std::string &name)
{
    switch (kind) {
    case TextKind::row_text:
        return room_of_text(project, language, *row);
    case TextKind::choice:
        return room_of_choice(project, language, *row);
    case TextKind::help_line:
        return room_of_help_line(project, name);
    default:
        return room_of_bubble(project);
    }
}
