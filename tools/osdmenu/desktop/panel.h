// What stands beside the page, as lines: a window and a terminal show the same.
#pragma once

#include "desktop/session.h"

enum class Tone { title, plain, heading, faint, chosen, notice };

struct PanelLine {
    std::string text;
    Tone tone = Tone::plain;
};

// Just so many lines, and one at least. Where the page itself is too small to be read its rows are listed too.
std::vector<PanelLine> panel_lines(const Session &session, size_t height, bool lists_rows);

// The chosen row in one line: its name, level and position, and value.
std::string place_line();

// The names of the rows that lead to the chosen one, from the top; none when none is chosen.
std::vector<std::string> place();
