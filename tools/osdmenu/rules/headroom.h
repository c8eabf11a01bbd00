// How many pixels each text leaves free in each language, tightest first: what a layout can still take.
#pragma once

#include "render/languages.h"

std::string headroom(const Project &project, const std::vector<RenderedLanguage> &languages, bool as_json);
