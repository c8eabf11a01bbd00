#include "menu/rooms.h"

#include <algorithm>

#include "page/help_layouts.h"
#include "text/composers.h"

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

static int start_of(const help_group &group, int line_height)
{
    return group.first_symbol == NO_SYMBOL ? help_text_x(&group, line_height)
                                           : help_column_x(&group.first_column, line_height);
}

// The least that any layout of the help block leaves it: up to what stands beside it, or to the view's edge.
static int room_of_help_line(const Project &project, const std::string &name)
{
    const int line_height = project.geometry.line_height, width = project.geometry.view_width;
    int room = width;
    for (const help_layout &layout : help_layouts)
        for (const auto &line : layout.lines)
            for (size_t i = 0; i < GROUPS_A_LINE && line[i] != NO_GROUP; i++) {
                const help_group &group = help_groups[line[i]];
                const bool is_last = i + 1 == GROUPS_A_LINE || line[i + 1] == NO_GROUP;
                const int end = is_last ? width : std::min(width, start_of(help_groups[line[i + 1]], line_height));
                if (group.text == name)
                    room = std::min(room, end - help_text_x(&group, line_height));
            }
    return room;
}

// The least that any composer of messages leaves it.
static int room_of_bubble(const Project &project)
{
    int room = project.geometry.view_width;
    for (const composer &each : composers)
        room = std::min(room, each.row_pitch - each.margins.left);
    return room;
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
