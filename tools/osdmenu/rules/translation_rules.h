// What the PO files lack: a file, an entry, a translation, a translator's word that it is meant as it is.
#pragma once

#include "menu/project.h"

void check_translations(const Project &project, Findings &findings);
