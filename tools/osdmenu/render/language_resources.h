// The eight resource files of one language, in memory.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "menu/project.h"
#include "render/renderer.h"

using Files = std::map<std::string, std::string>; // content by name

// What stands for a text of the menu in a language.
struct Wording {
    std::string words;
    Place place;   // of the words: in the menu or in a PO file
    int width = 0; // pixels that their picture must fill, 0 for none but its own
};

// By the text and the name of its item or line.
using Wordings = std::function<Wording(const Text &text, const std::string &name)>;

struct LanguageJob {
    const Project &project;
    const Renderer &renderer;
    const Wordings &wordings;
    const std::string &language;
    Findings &findings;
};

Files make_language_resources(const LanguageJob &job);
