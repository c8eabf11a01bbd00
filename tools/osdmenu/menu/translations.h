// A language's texts, from its gettext PO file.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "menu/menu_model.h"

class Translations
{
  public:
    Translations() = default; // of the source language: every text stands for itself

    // Fuzzy and obsolete entries don't count, as everywhere with gettext.
    Translations(const std::string &path, Findings &findings);

    // A translation given for this item (as msgctxt) goes before the common one. A text without any stands for
    // itself, with a warning.
    const std::string &of(const Text &text, const std::string &item, Findings &findings) const;

  private:
    std::string file;                                                 // empty in the source language
    std::map<std::pair<std::string, std::string>, std::string> texts; // by context and source text
};

// Every text of the menu, as a template for translators.
void write_template(const Menu &menu, const std::string &path);
