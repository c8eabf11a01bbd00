// What is missing in the PO files.
#pragma once

#include "menu/project.h"

void check_translations(const Project &project, Findings &findings);
