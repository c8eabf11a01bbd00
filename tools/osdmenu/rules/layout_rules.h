// What can be judged only when the texts of a language have been rendered: whether they fit.
#pragma once

#include "menu/project.h"
#include "store/resource_reader.h"

// The pictures stand in the order of the project's rows, help lines and bubbles.
void check_layout(const Project &project, const std::string &language, const Resources &pictures, Findings &findings);
