// The eight resource files of one language, in memory.
#pragma once

#include <map>
#include <string>

#include "menu/configuration.h"
#include "menu/rows.h"
#include "menu/translations.h"
#include "render/renderer.h"

using Files = std::map<std::string, std::string>; // content by name

struct LanguageJob {
    const Menu &menu;
    const std::vector<Row> &rows;
    const Configuration &configuration;
    const Geometry &geometry;
    const Renderer &renderer;
    const Translations &translations;
    const std::string &language;
    Findings &findings;
};

Files make_language_resources(const LanguageJob &job);
