// A menu read, rendered and held against every rule: what `build` and `check` both begin with.
#pragma once

#include "render/languages.h"

struct Judged {
    std::unique_ptr<Project> project; // null when the menu can't be read
    LanguageFonts fonts;
    std::vector<RenderedLanguage> languages; // none when a file or a font can't be read
};

struct JudgeOptions {
    std::string path;
    bool pseudo = false; // with the made-up language as well
    EarlierFiles earlier = [](const std::string &, const std::string &) { return Files(); };
    ShowProgress progress = [](size_t, size_t, const std::string &) {};
};

// The findings are settled as the menu asks.
Judged judge_menu(const JudgeOptions &options, Findings &findings);
