// From menu.yaml to the model. What can be judged by looking at one entry alone is judged here.
#pragma once

#include "menu/menu_model.h"

Menu read_menu(const std::string &path, Findings &findings);
