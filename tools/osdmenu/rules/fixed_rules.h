// The rows that the library knows by name or by number: whether they lie where it expects them.
#pragma once

#include "menu/project.h"

void check_fixed_names(const Project &project, Findings &findings);

// From the anchors that osd_menu.json has.
void check_fixed_jumps(const Project &project, Findings &findings);
