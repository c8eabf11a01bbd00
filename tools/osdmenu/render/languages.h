// All languages of a menu as resource files, rendered on all cores.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "render/fonts.h"
#include "render/language_resources.h"
#include "store/resource_reader.h"

struct RenderedLanguage {
    std::string code;
    std::string inputs = {}; // digest of all that the files were made from; empty when rendering had findings
    Files files = {};
    Resources resources = {}; // the files as any reader sees them
    bool is_reused = false;
};

// Families by language, found on this machine.
using LanguageFonts = std::map<std::string, std::vector<FontFamily>>;
LanguageFonts find_fonts(const Menu &menu, Findings &findings);

// Asked for each language before it is rendered: files made earlier from the same inputs, or none.
using EarlierFiles = std::function<Files(const std::string &language, const std::string &inputs)>;

// Told after each language: how many of how many are done. Never called by two threads at once.
using ShowProgress = std::function<void(size_t done, size_t all, const std::string &language)>;

// In the order of the menu. What rendering finds is added in that order as well.
std::vector<RenderedLanguage> render_languages(const Project &project, const LanguageFonts &fonts,
                                               const EarlierFiles &earlier, const ShowProgress &progress,
                                               Findings &findings);

// A made-up language: each text as wide as its widest translation, or 30 % wider than the source where there is none,
// in letters with accents at full height.
inline constexpr char PSEUDO_LANGUAGE[] = "pseudo";
RenderedLanguage render_pseudo_language(const Project &project, const LanguageFonts &fonts,
                                        const std::vector<RenderedLanguage> &languages, Findings &findings);
