// A menu with all the files around it: osd_menu.json and the translations.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "menu/configuration.h"
#include "menu/geometry.h"
#include "menu/menu_model.h"
#include "menu/rows.h"
#include "menu/translations.h"

struct Project {
    Menu menu;
    std::vector<Row> rows; // they point into the menu
    Configuration configuration;
    Geometry geometry;
    std::map<std::string, Translations> translations; // by language

    const Translations &texts_of(const std::string &language) const
    {
        return translations.at(language);
    }
};

// Null when the menu file itself can't be read.
std::unique_ptr<Project> read_project(const std::string &path, Findings &findings);
