// The words and widths of the made-up language that tries a layout before its translations come.
#pragma once

#include "render/languages.h"

Wordings pseudo_wordings(const Project &project, const std::vector<RenderedLanguage> &languages);
