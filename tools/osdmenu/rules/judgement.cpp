#include "rules/judgement.h"

#include "rules/layout_rules.h"
#include "rules/menu_rules.h"
#include "rules/translation_rules.h"

Judged judge_menu(const JudgeOptions &options, Findings &findings)
{
    Judged judged;
    judged.project = read_project(options.path, findings);
    if (!judged.project)
        return judged;
    const Project &project = *judged.project;
    check_menu(project, findings);
    check_translations(project, findings);
    judged.fonts = find_fonts(project.menu, findings);
    // An entry that could not be taken has no picture to judge, and without its fonts a language has none at all.
    if (!findings.has_rule("menu-file") && !findings.has_rule("unreadable")) {
        judged.languages = render_languages(project, judged.fonts, options.earlier, options.progress, findings);
        if (options.pseudo)
            judged.languages.push_back(render_pseudo_language(project, judged.fonts, judged.languages, findings));
        for (const RenderedLanguage &language : judged.languages)
            check_layout(project, language.code, language.resources, findings);
    }
    findings.settle(project.menu.check);
    return judged;
}
