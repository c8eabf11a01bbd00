#include "rules/translation_rules.h"

#include <filesystem>

#include "common/text.h"

static constexpr struct {
    TranslationState state;
    const char *rule, *text, *cure;
} LACKS[] = {
    {TranslationState::missing, "missing-translation", " has no entry in ",
     "bring that file up to date with osdmenu extract and msgmerge"},
    {TranslationState::untranslated, "untranslated", " has no translation in ", ""},
    {TranslationState::fuzzy, "fuzzy-translation", " has a translation marked as fuzzy in ",
     "check it and take the mark away"},
    {TranslationState::same_as_source, "same-as-source", " is the same in the menu and in ",
     "where that is meant, a line '# same as the source' above the entry says so"},
};

static void check_text(const TranslatableText &text, const std::string &language, const Translations &texts,
                       Findings &findings)
{
    Translation translation = texts.of(*text.text, *text.name);
    for (const auto &lack : LACKS)
        if (translation.state == lack.state)
            findings.add({translation.place, lack.rule, in_quotes(text.text->words) + lack.text + texts.path(),
                          lack.cure, *text.name, language});
}

void check_translations(const Project &project, Findings &findings)
{
    std::vector<TranslatableText> all = texts_to_translate(project.menu, project.rows);
    for (const auto &[code, fonts, place] : project.menu.languages) {
        const Translations &texts = project.texts_of(code);
        if (texts.path().empty() || std::filesystem::exists(texts.path()))
            for (const TranslatableText &text : all)
                check_text(text, code, texts, findings);
        else
            findings.add({place, "missing-translation", "there is no " + texts.path() + " to be read",
                          "make it with: osdmenu extract " + project.menu.path + " -o menu.pot; mkdir -p " +
                              std::filesystem::path(texts.path()).parent_path().string() +
                              "; msginit --no-translator -l " + code + " -i menu.pot -o " + texts.path(),
                          "", code});
    }
}
