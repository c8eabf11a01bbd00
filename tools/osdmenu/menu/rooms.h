// How many pixels a text may take before it runs into something or off the view.
#pragma once

#include <string>

#include "menu/project.h"

// Up to the value column where the item has a value, and to the view's edge where it has none.
int room_of_text(const Project &project, const std::string &language, const Row &row);

int room_of_choice(const Project &project, const std::string &language, const Row &row);
int room_of_help_line(const Project &project, const std::string &name);

// Within the narrowest pitch that the host's messages are composed at, and within the view.
int room_of_bubble(const Project &project);
