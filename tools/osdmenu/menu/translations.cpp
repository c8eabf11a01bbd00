#include "menu/translations.h"

#include <algorithm>
#include <filesystem>

#include <glib.h>

#include "common/text.h"
#include "menu/po_file.h"

std::vector<TranslatableText> texts_to_translate(const Menu &menu, const std::vector<Row> &rows)
{
    std::vector<TranslatableText> texts;
    for (const Row &row : rows) {
        texts.push_back({TextKind::row_text, &row.item->text, &row.item->name, &row});
        if (!row.item->free_text)
            for (const Text &choice : row.item->choices)
                texts.push_back({TextKind::choice, &choice, &row.item->name, &row});
    }
    for (const Line &line : menu.help_lines)
        texts.push_back({TextKind::help_line, &line.text, &line.name, nullptr, line.indent});
    for (const Line &line : menu.bubbles)
        texts.push_back({TextKind::bubble, &line.text, &line.name, nullptr, line.indent});
    std::stable_sort(texts.begin(), texts.end(), [](auto &a, auto &b) { return a.text->place < b.text->place; });
    return texts;
}

// Numbers and signs are the same in most languages.
static bool has_letter(const char *text)
{
    while (*text && !g_unichar_isalpha(g_utf8_get_char(text)))
        text = g_utf8_next_char(text);
    return *text != '\0';
}

static TranslationState state_of(po_message_t message, const std::string &source, const std::string &words)
{
    // The translator's word that it is meant so stands in a line of its own.
    std::string comment = std::string("\n") + po_message_comments(message);
    if (po_message_is_fuzzy(message))
        return TranslationState::fuzzy;
    if ((words.empty() || words == source) && comment.find("\nsame as the source\n") != comment.npos)
        return TranslationState::same_on_purpose;
    if (words.empty())
        return TranslationState::untranslated;
    return words == source && has_letter(source.c_str()) ? TranslationState::same_as_source
                                                         : TranslationState::translated;
}

Translations::Translations(const std::string &path, Findings &findings) : file(path)
{
    auto take = [&](po_message_t message, int line) {
        const char *context = po_message_msgctxt(message);
        std::string source = po_message_msgid(message), words = po_message_msgstr(message);
        TranslationState state = state_of(message, source, words);
        Place place{path, line, 1};
        if (!source.empty() && !is_plain_utf8(words))
            findings.error(place, "the translation of " + in_quotes(source) + " holds a control character");
        texts[{context ? context : "", source}] = {state == TranslationState::translated ? words : source, state,
                                                   place};
    };
    if (!std::filesystem::exists(path))
        return;
    if (!read_file(path))
        findings.add({Place{path}, "unreadable", "cannot be read"});
    else if (!read_po_file(path, findings, take))
        file.clear();
}

Translation Translations::of(const Text &text, const std::string &name) const
{
    if (auto found = texts.find({name, text.words}); found != texts.end())
        return found->second;
    return {text.words, file.empty() ? TranslationState::translated : TranslationState::missing, text.place};
}

Text Translations::shown(const Text &text, const std::string &name) const
{
    Translation translation = of(text, name);
    bool has_place = translation.is_translated() && translation.place.line > 0;
    return {translation.words, has_place ? translation.place : text.place};
}
