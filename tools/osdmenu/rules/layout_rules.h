// What can be judged only when the texts of a language have been rendered: whether they fit.
#pragma once

#include "menu/project.h"
#include "render/measured.h"
#include "store/resource_reader.h"

// Calls back for each text of the menu and for the widest value of each number, with the pixels that it may take. The
// pictures stand in the order of the project's rows, help lines and bubbles.
using VisitFit = std::function<void(const MeasuredText &text, int room)>;
void for_each_fit(const Project &project, const std::string &language, const Resources &pictures,
                  const VisitFit &visit);

void check_layout(const Project &project, const std::string &language, const Resources &pictures, Findings &findings);
