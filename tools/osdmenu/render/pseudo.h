// The words and widths of the made-up language that tries a layout before its translations come.
#pragma once

#include "render/languages.h"

// How much wider than its source a text may become where no translation tells.
inline constexpr int GROWTH_PERCENT = 30;

Wordings pseudo_wordings(const Project &project, const std::vector<RenderedLanguage> &languages);
