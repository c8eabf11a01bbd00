// From menu.yaml to the model. What can be judged by looking at one entry alone is judged here.
#pragma once

#include "menu/menu_model.h"

Menu read_menu(const std::string &path, Findings &findings);

// The path is for the findings only.
Menu read_menu_text(const std::string &path, const std::string &content, Findings &findings);
