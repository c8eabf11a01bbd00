// The texts of a menu that are translated, and their translations from a language's gettext PO file.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "menu/rows.h"

struct TranslatableText {
    TextKind kind;
    const Text *text;
    const std::string *name; // of its item or line: the msgctxt
    const Row *row;          // null for help lines and bubbles
    int indent = 0;          // of these
};

// In the order of the menu file. Free texts are the host's and not among them.
std::vector<TranslatableText> texts_to_translate(const Menu &menu, const std::vector<Row> &rows);

// Only the first two count as translated; all from `missing` on show the source text.
enum class TranslationState { translated, same_on_purpose, same_as_source, missing, fuzzy, untranslated };

struct Translation {
    std::string words;
    TranslationState state = TranslationState::translated;
    Place place; // in the PO file, or in the menu where that has no entry

    bool is_translated() const
    {
        return state == TranslationState::translated || state == TranslationState::same_on_purpose;
    }
};

class Translations
{
  public:
    Translations() = default; // of the source language: every text stands for itself

    // A file that isn't there is no finding yet. One with a fault is, and nothing is said of its texts then.
    Translations(const std::string &path, Findings &findings);

    // Of a text of this item or line (its msgctxt). Its words are never empty.
    Translation of(const Text &text, const std::string &name) const;

    // What people see of that text, and where it stands: in the PO file when it is translated there.
    Text shown(const Text &text, const std::string &name) const;

    const std::string &path() const
    {
        return file;
    }

  private:
    std::string file;                                                 // empty where every text stands for itself
    std::map<std::pair<std::string, std::string>, Translation> texts; // by context and source text
};
