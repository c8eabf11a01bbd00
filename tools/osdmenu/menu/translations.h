// A language's texts, from its gettext PO file.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "menu/menu_model.h"

// Only the first two count as translated; everything else shows the source text.
enum class TranslationState { translated, same_on_purpose, same_as_source, missing, fuzzy, untranslated };

struct Translation {
    std::string words;
    TranslationState state = TranslationState::translated;
    Place place; // in the PO file
};

class Translations
{
  public:
    Translations() = default; // of the source language: every text stands for itself

    Translations(const std::string &path, Findings &findings);

    // Of a text of this item or line (its msgctxt). Its words are never empty.
    Translation of(const Text &text, const std::string &name) const;

    const std::string &path() const
    {
        return file;
    }

  private:
    std::string file;                                                 // empty in the source language
    std::map<std::pair<std::string, std::string>, Translation> texts; // by context and source text
};
