// What the library asks of a menu as a whole: names, coordinates, pages that can be entered, rows that fit.
#pragma once

#include "menu/project.h"

void check_menu(const Project &project, Findings &findings);
